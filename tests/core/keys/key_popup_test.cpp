#include "core/keys/key_popup.h"
#include "key_clipboard_document.h"

namespace tesselo::testing {
namespace {

using KeyPopup = ClipDocument;

// "caption" enabled, "(caption)" greyed, "-" a divider.
std::vector<std::string> items(Application& app)
{
    std::vector<std::string> out;
    for (const auto& item : build_key_popup(app))
        out.push_back(item.type == popup_divider ? "-" : item.state == popup_greyed ? "(" + item.caption + ")" : item.caption);
    return out;
}

TEST_F(KeyPopup, ItsItemsFollowTheKeyAndTheClipboard)
{
    click(page1, 5);
    add_plain(page1, step_delay, 1);
    EXPECT_EQ(items(t.app), (std::vector<std::string>{"Cut", "Copy", "(Paste)", "Delete", "-", "Label", "Properties"}));
    cPopup2_ItemClick(t.app, "Copy");
    EXPECT_EQ(t.app.selection().drag_mode, drag_move);
    click(page1, 33);
    EXPECT_EQ(items(t.app), (std::vector<std::string>{"(Cut)", "Copy", "Paste", "Delete", "-", "Label", "Properties"}));
    click(page1, 3);
    EXPECT_EQ(items(t.app), (std::vector<std::string>{"(Cut)", "Copy", "Paste", "(Delete)", "-", "Label", "Properties"}));
    click(page1, 9);  // an empty place
    EXPECT_EQ(items(t.app), (std::vector<std::string>{"(Cut)", "(Copy)", "Paste", "(Delete)", "-", "Label", "Properties"}));
    cPopup2_ItemClick(t.app, "Paste");
    EXPECT_EQ(step_numbers(page1, 9), std::vector<int>{1});
    cPopup2_ItemClick(t.app, "Cut");
    EXPECT_LT(place(page1, 9)->slot, 0);
}

TEST_F(KeyPopup, OnAHomePageTheDevicesKeysCanOnlyBeCopied)
{
    click("HOME1\\PAGE1", 5);
    EXPECT_EQ(items(t.app), (std::vector<std::string>{"(Cut)", "Copy", "(Paste)", "(Delete)", "-", "Label", "Properties"}));
    cPopup2_ItemClick(t.app, "Delete");
    EXPECT_GE(place("HOME1\\PAGE1", 5)->slot, 0);
}

}  // namespace
}  // namespace tesselo::testing
