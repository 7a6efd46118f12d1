#include <functional>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include "core/document/open_command.h"
#include "core/image/image_writer.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/page_canvas.h"
#include "core/model/action_chain.h"
#include "core/tree/journal.h"
#include "core/tree/tree_commands.h"
#include "core/tree/selection.h"
#include "gui_support.h"
#include "views/action_frame.h"
#include "views/device_frame.h"
#include "views/glyph_keyboard.h"
#include "views/label_frame.h"
#include "views/page_tree_dialogs.h"
#include "views/properties_window.h"
#include "views/remote.h"
#include "views/step_dialogs.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// Runs `act` on the modal dialog that the next gesture opens.
void on_dialog(std::function<void(QWidget*)> act)
{
    QTimer::singleShot(0, [act] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        // The keyboard goes to the dialog, as it does when a window opens.
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        act(dialog);
    });
}

// The dark dots a row box of a page window paints: its label's glyphs.
int inked_dots(Remote* page, int row)
{
    for (auto* box : page->findChildren<LcdRowBox*>("labelRichText1")) {
        if (box->row() != row) continue;
        // Drawn at twice the size, as the screenshots are: the dots of a
        // glyph are whole pixels there whatever the box's place.
        QImage image(box->size() * 2, QImage::Format_ARGB32);
        image.setDevicePixelRatio(2);
        image.fill(Qt::white);
        box->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        int dark = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) dark += image.pixel(x, y) != qRgb(255, 255, 255);
        return dark;
    }
    return -1;
}

// A click on a check box's or radio button's own box, as a user aims it.
void click_box(QAbstractButton* box) { QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2)); }

template <typename T>
T* child(QWidget* w, const char* name)
{
    T* found = w->findChild<T*>(name);
    if (!found) qWarning("no child %s", name);
    return found;
}

QStringList list_rows(properties* window)
{
    QStringList rows;
    QTreeWidget* list = window->action_frame()->list();
    for (int i = 0; i < list->topLevelItemCount(); ++i) rows << list->topLevelItem(i)->text(0);
    return rows;
}

// A new document with one device of two pages, its first page open.
struct KeyFixture : FrameFixture {
    Remote* page = nullptr;
    KeyFixture()
    {
        frame->entry("muNew")->trigger();
        frame->entry("muInsertdevice")->trigger();
        click_tree_node(*frame, 0, "DEVICE11");
        frame->entry("muInsertpage")->trigger();
        page = frame->open_page(0, "DEVICE11\\PAGE1");
        test.take_lines();
    }
    void click_key(int picture) { QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(picture).center().toPoint()); }
    properties* window() { return frame->properties_window(); }
    QWidget* button(const char* name) { return window()->findChild<QWidget*>(name); }
    void press(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    LcdRow lcd_row(int row)
    {
        const Configuration& c = test.app.config(0);
        return lcd_page_rows(c, *find_page(c, "DEVICE11\\PAGE1"))[static_cast<std::size_t>(row)];
    }
};

}  // namespace

class PropertiesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void a_page_shows_no_properties_and_a_device_its_settings()
    {
        KeyFixture f;
        f.frame->entry("muproperties")->trigger();
        properties* w = f.window();
        QVERIFY(w && w->isVisible());
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11\\PAGE1"));
        QCOMPARE(w->findChild<QStackedWidget*>()->currentWidget()->objectName(), QString("noproperties"));
        QCOMPARE(w->findChild<QLabel*>("noproperties_text")->text(), QString("No properties available"));
        save_screenshot(w, "properties_noproperties");

        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        QTabBar* strip = w->tab_strip();
        QCOMPARE(strip->objectName(), QString("TabStrip1"));
        QCOMPARE(strip->tabText(0), QString("Device properties"));
        QCOMPARE(strip->tabText(1), QString("Label"));
        QVERIFY(w->device_frame()->isVisible());
        auto radios = w->device_frame()->findChildren<QRadioButton*>("IRRF");
        QCOMPARE(radios.size(), 2);
        QCOMPARE(radios[0]->text(), QString("IR Enabled"));
        QVERIFY(radios[0]->isChecked());
        // IR chosen: the RF frame, its combo boxes and labels are greyed.
        QVERIFY(!w->findChild<QComboBox*>("Combo1")->isEnabled());
        click_box(radios[1]);
        QCOMPARE(f.test.app.config(0).device_extra[1].option_a, 1);
        QVERIFY(w->findChild<QComboBox*>("Combo1")->isEnabled());
        QComboBox* channel = w->findChild<QComboBox*>("Combo1");
        channel->showPopup();
        QTest::keyClick(channel->view(), Qt::Key_Down);
        QTest::keyClick(channel->view(), Qt::Key_Down);
        QTest::keyClick(channel->view(), Qt::Key_Return);
        QCOMPARE(f.test.app.config(0).device_extra[1].option_b & 3, 2);
        auto blaster = w->device_frame()->findChildren<QRadioButton*>("Option1");
        click_box(blaster[0]);
        QCOMPARE(f.test.app.config(0).device_extra[1].option_b, 0x82);
        const auto log = f.test.log_lines();
        QCOMPARE(QString::fromStdString(log.back()), QString("\"Set blaster bit DEVICE1 1\""));
        save_screenshot(w, "properties_device");

        // HOME has the blaster alone.
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1"));
        QVERIFY(!w->findChild<QGroupBox*>("FrameRF")->isVisible());
        QVERIFY(blaster[0]->isVisible());
        save_screenshot(w, "properties_home");
    }

    void filling_the_controls_counts_as_no_click()
    {
        KeyFixture f;
        Configuration& c = f.test.app.config(0);
        c.device_extra[1].option_a = 1;
        c.device_extra[1].option_b = 0x80 | 0x07;
        c.hardkeys[41 + 36].sleep_flag = 1;
        const int undo = f.test.app.journal().undo.count;
        const auto log = f.test.log_lines().size();
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        f.frame->entry("muproperties")->trigger();
        properties* w = f.window();
        QCOMPARE(w->findChild<QComboBox*>("Combo1")->currentText(), QString("4"));
        QCOMPARE(w->findChild<QComboBox*>("Combo2")->currentText(), QString("2"));
        f.click_key(22);
        QVERIFY(w->findChild<QCheckBox*>("Check2")->isChecked());
        w->refresh();
        QCOMPARE(f.test.app.journal().undo.count, undo);
        QCOMPARE(f.test.log_lines().size(), log);
        QCOMPARE(int(c.device_extra[1].option_b), 0x87);
    }

    void a_key_is_programmed_end_to_end_with_the_mouse_and_the_keyboard()
    {
        KeyFixture f;
        f.click_key(5);  // row 1, right
        properties* w = f.window();
        QVERIFY(w && w->isVisible());
        QCOMPARE(f.page->selected_index(), 5);
        QCOMPARE(f.test.app.key_selection.selected_kind, 2);
        QCOMPARE(f.test.app.key_selection.selected_row, 3);
        QCOMPARE(w->tab_strip()->objectName(), QString("TabStrip1"));
        QCOMPARE(w->tab_strip()->tabText(0), QString("Action"));
        QVERIFY(list_rows(w).isEmpty());
        save_screenshot(w, "properties_empty_key");

        // A delay, with the field's refusals on the way.
        on_dialog([](QWidget* d) {
            QCOMPARE(d->objectName(), QString("Delaytime"));
            QCOMPARE(d->windowTitle(), QString("Add Delay"));
            auto* field = child<DurationEdit>(d, "Text1");
            QCOMPARE(field->text(), QString("0.5"));
            field->clear();
            QTest::keyClicks(field, "1a.5");
            QCOMPARE(field->text(), QString("1.5"));
            save_screenshot(d, "dialog_delaytime");
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
        });
        f.press("AddDelayBt");
        QCOMPARE(list_rows(w), QStringList({"DELAY 1.5 S"}));

        // A beep at 600 hertz; Enter in the field acts as OK.
        on_dialog([](QWidget* d) {
            QCOMPARE(d->objectName(), QString("Addbeep"));
            child<QSlider>(d, "Slider1")->setValue(2);
            QCOMPARE(child<QLabel>(d, "Label1")->text(), QString("600"));
            auto* field = child<DurationEdit>(d, "Text1");
            field->setFocus();
            field->clear();
            QTest::keyClicks(field, "0.25");
            save_screenshot(d, "dialog_addbeep");
            QTest::keyClick(field, Qt::Key_Return);
        });
        f.press("AddBeepBt");
        QCOMPARE(list_rows(w).back(), QString("BEEP SOUND 0.25Sec "));

        // A jump: the device chosen in Combo1 opens at its first page, the one we are on.
        on_dialog([](QWidget* d) {
            auto* jump = qobject_cast<CreatejumpWindow*>(d);
            QVERIFY(jump);
            const int device = jump->devices()->findText("DEVICE1");
            QVERIFY(device >= 0);
            jump->devices()->setCurrentIndex(device);
            Q_EMIT jump->devices()->activated(device);
            // PAGE1 is the page we are on: the device opens, its pages shown.
            QCOMPARE(jump->tree()->currentItem()->text(0), QString("DEVICE1"));
            QVERIFY(jump->tree()->currentItem()->isExpanded());
            const int home = jump->devices()->findText("HOME");
            Q_EMIT jump->devices()->activated(home);
            QCOMPARE(jump->tree()->currentItem()->text(0), QString("PAGE1"));
            QVERIFY(jump->choose("DEVICE11\\PAGE2"));
            save_screenshot(d, "dialog_createjump");
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
        });
        f.press("CreateJumpBt");
        QCOMPARE(list_rows(w).back(), QString("JUMP TO DEVICE1 PAGE2"));

        // A link to the ENTER hard key.
        on_dialog([](QWidget* d) {
            auto* link = qobject_cast<CreateLinkWindow*>(d);
            // The key itself is marked, and cannot be chosen.
            QVERIFY(link->choose("DEVICE11\\PAGE1KEY1"));
            QCOMPARE(link->tree()->currentItem()->text(0), QString(" (Currently selected) "));
            QVERIFY(link->choose("DEVICE11HARD36"));
            save_screenshot(d, "dialog_createlink");
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
        });
        f.press("CreateLinkBt");
        QCOMPARE(list_rows(w), QStringList({"DELAY 1.5 S", "BEEP SOUND 0.25Sec ", "JUMP TO DEVICE1 PAGE2",
                                            "LINK TO DEVICE1ENTER-HARD-"}));
        save_screenshot(w, "properties_action_tab");

        // Move a step with the button and with Ctrl+Up, then delete one.
        ActionFrame* action = w->action_frame();
        action->select_row(4);
        f.press("MoveUPBt");
        QCOMPARE(action->selected_row(), 3);
        QCOMPARE(list_rows(w)[2], QString("LINK TO DEVICE1ENTER-HARD-"));
        QTest::keyClick(action->list(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(action->selected_row(), 2);
        QCOMPARE(list_rows(w)[1], QString("LINK TO DEVICE1ENTER-HARD-"));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"move marco step up\""));
        action->select_row(1);
        f.press("DeleteBt");
        QCOMPARE(list_rows(w), QStringList({"LINK TO DEVICE1ENTER-HARD-", "BEEP SOUND 0.25Sec ", "JUMP TO DEVICE1 PAGE2"}));
        QCOMPARE(action->selected_row(), 1);

        // A double click edits the beep in place.
        on_dialog([](QWidget* d) {
            auto* field = child<DurationEdit>(d, "Text1");
            QCOMPARE(field->text(), QString("0.25"));
            QCOMPARE(child<QSlider>(d, "Slider1")->value(), 2);
            field->clear();
            QTest::keyClicks(field, "1");
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
        });
        action->ListView1_DblClick(2);
        QCOMPARE(list_rows(w)[1], QString("BEEP SOUND 1Sec "));
        QVERIFY(!f.test.app.step_edit.edit_flag);

        // The label: typed, with a backspace, and a symbol from the glyph keyboard.
        QCOMPARE(inked_dots(f.page, 1), 0);
        w->tab_strip()->setCurrentIndex(1);
        LabelFrame* label = w->label_frame();
        QVERIFY(label->isVisible());
        GlyphField* text = label->field();
        text->setFocus();
        QTest::keyClicks(text, "movx");
        QTest::keyClick(text, Qt::Key_Backspace);
        QTest::keyClicks(text, "ie ");
        QCOMPARE(text->length(), 6);
        QTest::mouseClick(label->keyboard()->button(76), Qt::LeftButton);
        QCOMPARE(text->length(), 7);
        const LcdRow row = f.lcd_row(1);
        QVERIFY(row.has_right);
        QCOMPARE(QString::fromStdString(label_to_text(row.right, row.right.glyph_count())), QString("MOVIE ="));
        QCOMPARE(row.right.bytes[7], 76);
        // Each press drew the key's row box again.
        QVERIFY(inked_dots(f.page, 1) > 0);
        QTest::mouseClick(child<QToolButton>(w, "Command12"), Qt::LeftButton);
        QCOMPARE(f.lcd_row(1).right.alignment(), align_right);
        save_screenshot(w, "properties_label_tab");
        save_screenshot(f.page, "page_with_label");

        // The switches.
        w->tab_strip()->setCurrentIndex(0);
        click_box(child<QCheckBox>(w, "Check2"));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"Set sleep timer DEVICE11\\PAGE1 row 1\""));
        QVERIFY(child<QCheckBox>(w, "Check2")->isChecked());
        click_box(child<QCheckBox>(w, "Check2"));
        QVERIFY(!child<QCheckBox>(w, "Check2")->isChecked());

        // Saved and opened again, the key is the same.
        const Configuration& before = f.test.app.config(0);
        const auto path = (f.test.home.path() / "programmed.kcf").string();
        QVERIFY(save_tofile(f.test.app, path, 0, 0));
        const int reopened = open_configuration(f.test.app, path);
        QVERIFY(reopened >= 0);
        const Configuration& after = f.test.app.config(f.test.app.documents()[static_cast<std::size_t>(reopened)].slot);
        const auto& key_before = before.device_pages[0].slots[1];
        const auto& key_after = after.device_pages[0].slots[1];
        QCOMPARE(key_after.position, key_before.position);
        QVERIFY(after.softkey_labels[static_cast<std::size_t>(key_after.label_index)] ==
                before.softkey_labels[static_cast<std::size_t>(key_before.label_index)]);
        const auto steps_before = steps_of_list(before, key_before.action_list);
        const auto steps_after = steps_of_list(after, key_after.action_list);
        QCOMPARE(steps_after.size(), steps_before.size());
        for (std::size_t i = 0; i < steps_before.size(); ++i) {
            const ActionStep& a = before.action_steps.steps[static_cast<std::size_t>(steps_before[i])];
            const ActionStep& b = after.action_steps.steps[static_cast<std::size_t>(steps_after[i])];
            QCOMPARE(b.step_type, a.step_type);
            QCOMPARE(b.param_low, a.param_low);
            QCOMPARE(b.param_high, a.param_high);
            QCOMPARE(b.value, a.value);
        }
    }

    void the_dialogs_say_their_field_messages()
    {
        KeyFixture f;
        f.click_key(7);
        // A value above 32 is refused on leaving the field, and emptied.
        on_dialog([&f](QWidget* d) {
            auto* field = child<DurationEdit>(d, "Text1");
            field->setFocus();
            field->clear();
            QTest::keyClicks(field, "32.01");
            child<QSlider>(d, "Slider1")->setFocus();
            QCOMPARE(f.test.take_lines(),
                     std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\""});
            QCOMPARE(field->text(), QString());
            // Below a tenth on OK: the message, and the dialog stays.
            QTest::keyClicks(field, "0.05");
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
            QCOMPARE(f.test.take_lines(),
                     std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\""});
            QVERIFY(d->isVisible());
            QTest::keyClick(field, Qt::Key_Escape);
        });
        f.press("AddBeepBt");
        QVERIFY(list_rows(f.window()).isEmpty());

        on_dialog([&f](QWidget* d) {
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
            QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Select a valid page     \""});
            // The page we are on is marked and cannot be chosen.
            auto* jump = qobject_cast<CreatejumpWindow*>(d);
            QVERIFY(jump->choose("DEVICE11\\PAGE1 (Currently selected) "));
            QCOMPARE(jump->tree()->currentItem()->text(0), QString("PAGE1 (Currently selected) "));
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
            QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Select a valid page     \""});
            QTest::mouseClick(child<QPushButton>(d, "Command2"), Qt::LeftButton);
        });
        f.press("CreateJumpBt");

        on_dialog([&f](QWidget* d) {
            auto* link = qobject_cast<CreateLinkWindow*>(d);
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
            QCOMPARE(f.test.take_lines(), std::vector<std::string>{
                "message \"Kelvarzo Tesselo 3\" \"Please select a valid button or hard button or device\""});
            QVERIFY(link->choose("DEVICE11"));
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
            QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please select key\""});
            QTest::keyClick(link->tree(), Qt::Key_Escape);
        });
        f.press("CreateLinkBt");
        QVERIFY(list_rows(f.window()).isEmpty());
    }

    void punch_through_greys_the_other_devices_list()
    {
        KeyFixture f;
        f.frame->entry("muInsertdevice")->trigger();
        f.click_key(22);
        properties* w = f.window();
        QCOMPARE(w->tab_strip()->objectName(), QString("TabStrip2"));
        on_dialog([](QWidget* d) {
            QTest::mouseClick(child<QPushButton>(d, "Command1"), Qt::LeftButton);
        });
        f.press("AddDelayBt");
        f.test.ui.queue_answer("ok");
        click_box(child<QCheckBox>(w, "Check1"));
        QVERIFY(child<QCheckBox>(w, "Check1")->isChecked());
        QCOMPARE(list_rows(w), QStringList({"DELAY 0.5 S"}));
        Remote* other = f.frame->open_page(0, "DEVICE21\\PAGE1");
        QTest::mouseClick(other, Qt::LeftButton, {}, other->picture_rect(22).center().toPoint());
        QCOMPARE(list_rows(w), QStringList({"Punch from DEVICE1"}));
        QCOMPARE(w->action_frame()->list()->palette().color(QPalette::Base), QColor(0xC0C0C0));
        QVERIFY(!w->findChild<QPushButton*>("AddDelayBt")->isEnabled());
        QVERIFY(!w->findChild<QCheckBox*>("Check2")->isEnabled());
        save_screenshot(w, "properties_punch_through");
        click_box(child<QCheckBox>(w, "Check1"));
        QVERIFY(list_rows(w).isEmpty());
        QVERIFY(w->findChild<QPushButton*>("AddDelayBt")->isEnabled());
    }

    void a_left_button_is_greyed_until_link_to_right_side_button_is_cleared()
    {
        KeyFixture f;
        f.click_key(8);  // row 2, left
        properties* w = f.window();
        auto* check3 = child<QCheckBox>(w, "Check3");
        QVERIFY(check3->isVisible());
        QVERIFY(check3->isChecked());
        QVERIFY(!w->findChild<QPushButton*>("AddDelayBt")->isEnabled());
        QVERIFY(!w->tab_strip()->isTabEnabled(1));
        save_screenshot(w, "properties_left_button_linked");
        click_box(check3);
        QVERIFY(!check3->isChecked());
        QVERIFY(w->findChild<QPushButton*>("AddDelayBt")->isEnabled());
        QCOMPARE(w->action_frame()->list()->palette().color(QPalette::Base), w->palette().color(QPalette::Base));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"add left softkey DEVICE11\\PAGE1 row 2 left\""));
        w->tab_strip()->setCurrentIndex(1);
        QTest::keyClicks(w->label_frame()->field(), "ab");
        QVERIFY(f.lcd_row(2).has_left);
        // On HOME there is no Check3.
        Remote* home = f.frame->open_page(0, "HOME1\\PAGE1");
        QTest::mouseClick(home, Qt::LeftButton, {}, home->picture_rect(6).center().toPoint());
        QVERIFY(!child<QCheckBox>(w, "Check3")->isVisible());
    }

    void the_title_rows_link_to_right_side_button_is_greyed()
    {
        KeyFixture f;
        f.click_key(4);  // the title row's left button
        properties* w = f.window();
        auto* check3 = child<QCheckBox>(w, "Check3");
        QVERIFY(check3->isVisible());
        QVERIFY(check3->isChecked());
        QVERIFY(!check3->isEnabled());
        save_screenshot(w, "properties_title_row_left_button");
        f.click_key(6);  // row 1, left
        QVERIFY(child<QCheckBox>(w, "Check3")->isEnabled());
    }

    void the_label_command_brings_the_label_tab_forward()
    {
        KeyFixture f;
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        f.frame->Toolbar1_ButtonClick("label");
        properties* w = f.window();
        QVERIFY(w && w->isVisible());
        QCOMPARE(w->tab_strip()->objectName(), QString("TabStrip3"));
        QVERIFY(w->label_frame()->isVisible());
        GlyphField* text = w->label_frame()->field();
        QTest::mouseClick(text, Qt::LeftButton);
        for (int i = 0; i < 7; ++i) QTest::keyClick(text, Qt::Key_Backspace);
        QTest::keyClicks(text, "tv");
        mainform* form = f.frame->document_window(0);
        const QModelIndex device = form->index_of(f.test.app.tree(0).find("DEVICE11"));
        QCOMPARE(device.data().toString(), QString("TV"));
        // The title row of the open page says it too.
        QCOMPARE(QString::fromStdString(label_to_text(f.lcd_row(0).right, 2)), QString("TV"));
        save_screenshot(w, "properties_label_alone");
        // Arrow keys move the focus over the glyph keyboard.
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w));
        GlyphButton* a = w->label_frame()->keyboard()->button(1);
        a->setFocus();
        QTest::keyClick(a, Qt::Key_Right);
        QCOMPARE(QApplication::focusWidget(), w->label_frame()->keyboard()->button(2));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), w->label_frame()->keyboard()->button(2 + GlyphKeyboard::columns));
        // The device popup's Label item does the same.
        f.frame->entry("muproperties")->trigger();
        QCOMPARE(w->tab_strip()->objectName(), QString("TabStrip1"));
    }

    void the_key_sets_the_edit_commands()
    {
        KeyFixture f;
        // A key selected: Cut, Copy, Paste and Delete wait for the key's own paths.
        f.test.app.tree_commands().key_cut = [](Application&) {};
        f.test.app.tree_commands().key_copy = [](Application&) {};
        f.test.app.tree_commands().key_delete = [](Application&) {};
        f.click_key(3);  // the title row
        f.frame->update_commands();
        QVERIFY(!f.frame->entry("muCut")->isEnabled());
        QVERIFY(f.frame->entry("muCopy")->isEnabled());
        f.click_key(22);  // a hard key
        f.frame->update_commands();
        QVERIFY(!f.frame->entry("muCut")->isEnabled());
        QVERIFY(f.frame->entry("muDelete")->isEnabled());
        f.click_key(5);  // an empty place
        f.frame->update_commands();
        QVERIFY(!f.frame->entry("muCopy")->isEnabled());
        QVERIFY(!f.frame->entry("muPaste")->isEnabled());
    }
};

QTEST_MAIN(PropertiesTest)
#include "properties_test.moc"
