#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/keys/key_labels.h"
#include "core/keys/step_commands.h"

namespace tesselo {

class Application;
class IrStepNames;

inline const std::string no_properties_text = "No properties available";
inline const std::string device_properties_text = "Device properties";

// The step list and the switches of a key, as the Action tab shows them.
struct ActionPanel {
    std::vector<StepRow> rows;
    // While "Link to Right side button" or "Punch Through" holds, the list is
    // grey (0xC0C0C0) and the step buttons are disabled.
    bool grey = false;
    bool test_ir = true;  // TestIRBt, disabled with a greyed left button
    bool check1_shown = false, check1 = false;  // Punch Through: hard keys of a device
    bool check2 = false, check2_enabled = true;  // Sleep Timer
    bool check3_shown = false, check3 = false;   // Link to Right side button: left buttons of a device's page
    bool check3_enabled = true;                  // greyed on the title row
};

// Why the Action tab's step buttons are greyed for a key: the key runs the
// list of the device that punched it through, a left button without a key of
// its own runs the right one's, an empty place of a HOME page is no key.
// The command line refuses what the editor greys, for the same reasons.
enum class StepsGreyed { no, punched, linked_right, no_key };
StepsGreyed steps_greyed(const Configuration& config, const KeyPlace& place);

// Check3, Link to Right side button, greyed: the title row carries the
// device's name across its width and gets no left key of its own.
bool link_right_greyed(const Configuration& config, const KeyPlace& place);

// A device's radio settings, as "Device properties" shows them.
struct DevicePanel {
    int device = -1;       // device row, 0 for HOME
    bool rf_frame = true;  // IRRF and "RF Setting"; HOME has the blaster alone
    int option_a = 0;
    int channel = 1;
    int group = 1;
    bool blaster = false;
};

// What muproperties_Click shows for the selection: the frame noproperties,
// "Device properties" (TabStrip1) with the Label, a soft key (TabStrip1:
// Action and Label), a hard key (TabStrip2: Action and Label), or the Label
// alone (TabStrip3) when the Label command is given on a device.
struct PropertiesContent {
    enum class Shows { noproperties, device, softkey, hardkey };
    Shows shows = Shows::noproperties;
    int tab_strip = 0;
    ActionPanel action;
    DevicePanel device;
    std::optional<LabelTarget> label;  // the Label tab, when there is a label to edit
    bool alignment = false;            // Command10 to Command12: soft keys and device names
};

// The content for the selection that the application holds. `label_alone`
// is the Label command's view of a device. Loading the steps may open
// Key_error for a broken list.
PropertiesContent properties_content(Application& app, const IrStepNames& ir, bool label_alone = false);

// muproperties_Click: shows the properties window for the selection.
void muproperties_Click(Application& app);
// labelproperties: shows it with the Label tab forward.
void labelproperties(Application& app);

// What the selected key allows of the Edit commands: the title row and hard
// keys can't be cut; a HOME page's device keys are neither cut nor deleted;
// an empty position offers nothing but Paste, which needs a key in the clipboard.
struct KeyEditEnables {
    bool cut = false, copy = false, paste = false, remove = false;
};
std::optional<KeyEditEnables> key_edit_enables(Application& app, bool key_in_clipboard);

// The key selected on a page canvas, when the last click was on a key.
std::optional<KeyTarget> selected_key_target(Application& app);

}  // namespace tesselo
