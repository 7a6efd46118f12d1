// The help of the script operations and of the simulator's gestures: one
// entry for each family of forms, in the words of the editor's gestures.
#include "app/cli/help_text.h"

namespace tesselo::cli {

const std::vector<HelpEntry>& script_operation_help()
{
    static const std::vector<HelpEntry> entries = {
        {"new", "File > New Configuration"},
        {"open PATH", "File > Open Configuration with PATH chosen"},
        {"save / save-as PATH", "File > Save Configuration / Save Configuration as"},
        {"close", "closes the active document (its question answered from the queue)"},
        {"merge PATH", "File > Merge Configuration with PATH chosen; prints the status line"},
        {"restore", "Tools > Restore Default Configuration, its question answered from the queue"},
        {"activate SLOT", "makes the window of document slot SLOT (0 to 9) the active one"},
        {"answer WORD...",
         "queues answers for the next questions and dialogs, in order: yes, no, cancel, ok, continue and giveup "
         "(the error window's two buttons), file:PATH (a file dialog's choice); a file dialog with no file: answer "
         "queued is cancelled"},
        {"select NODEKEY",
         "a click on that node of the active document's tree (HOME1, HOME1\\PAGE1, DEVICE11, DEVICE11PROPERTIES, "
         "DEVICE11\\PAGE1, ...)"},
        {"popup ITEM",
         "the popup menu item with that key on the selected node (\"Add Device\", \"Open Page\", ...); a greyed or "
         "missing item is refused"},
        {"add-device / add-page", "Insert > Device / Insert > Page"},
        {"move-up / move-down / hide",
         "Move Up, Move Down, Hide Device or Hide Page on the selected node; refused where the item is greyed"},
        {"drag NODEKEY [SLOT]",
         "drags the selected device or page onto the node NODEKEY of document SLOT (default the active one): it is "
         "copied there"},
        {"undo / redo", "Edit > Undo / Redo"},
        {"key soft ROW [left] / key hard PICTURE",
         "a click on a key of the selected page: an LCD row 0 to 5 (its left button with left), or a picture 0 to "
         "55 (15 to 17 and the side buttons 3 to 14 are no hard key); a broken list asks the Key_error question, "
         "answered ok or cancel"},
        {"add-delay SECONDS", "the Delay dialog: the seconds typed, the field left, OK"},
        {"add-beep SECONDS SLIDER", "the Beep dialog: the slider at 0 to 19 (200 to 4000 hertz), the seconds typed, OK"},
        {"add-jump NODEKEY", "the Jump dialog with that page node chosen (DEVICE21\\PAGE2, HOME1\\PAGE1)"},
        {"add-link hard DEVICEKEY PICTURE / add-link soft PAGEKEY ROW [left]",
         "the Link dialog with that device's hard key, or that page's soft key, chosen; row 0 is the page's title "
         "row, the device's own key"},
        {"add-ir rc5 S C / add-ir rc5x S C D / add-ir rc6 S C / add-ir rc6a U S C",
         "Add IR Code, RC5 / RC6 with those fields, OK"},
        {"add-ir library CODESET KEYINDEX", "Add IR Code, IR Database with that code set (tv000) and key, OK"},
        {"add-ir mydb BRAND DEVICE MODEL FUNCTION", "Add IR Code, My Database with those four names, OK"},
        {"add-ir learn", "Add IR Code, Learn IR (the remote on --link learns a code), OK"},
        {"add-ir ... duration SECONDS", "at the end of any add-ir: Duration Minimum with SECONDS typed (0.01 to 10)"},
        {"edit-step ROW",
         "a double click on step row ROW (from 1): the next add-delay, add-beep, add-jump, add-link or add-ir "
         "rewrites that step"},
        {"delete-step ROW / step-up ROW / step-down ROW", "Delete, Move action Up, Move action down on row ROW"},
        {"steps", "prints the selected key's step rows as the Action tab shows them, one a line"},
        {"test-ir SOURCE...",
         "Add IR Code with that source (the words of add-ir: rc5 S C, library CODESET KEYINDEX, learn, ...), Test "
         "IR pressed and released, Cancel"},
        {"mydb add brand|device|model|function NAME", "the Add New ... Name dialog of that level answered with NAME"},
        {"mydb register BRAND DEVICE MODEL FUNCTION",
         "Register to My Database with the code under work; \"Select one\" for a box left alone"},
        {"focus tree / focus key",
         "where Cut, Copy, Paste and Delete go: the tree's selected device or page, or the page's selected key"},
        {"cut / copy / paste / delete",
         "the Edit menu; a greyed entry (Paste after Delete or Undo, Cut of the title row or of a hard key, ...) is "
         "refused with status 2"},
        {"drag-key MODE soft ROW [left] / drag-key MODE hard PICTURE",
         "a drag from the selected key onto that key of the same page; MODE move (a plain drag), copy (with Ctrl), "
         "action (with Alt: the steps only) or link (with Shift+Alt: a link to the dragged key)"},
        {"label TEXT",
         "types TEXT into the Label field of the selected key, or of the device's name when a device (or HOME) "
         "node is selected; \\b is a Backspace"},
        {"glyph N", "presses the glyph keyboard's button of glyph N (0 the blank, 1 to 100)"},
        {"align left|center|right", "the alignment buttons"},
        {"punch on|off", "Punch Through of the selected hard key (its question answered from the queue)"},
        {"sleep on|off", "Sleep Timer of the selected key"},
        {"link-right on|off", "Link to Right side button of a left button (key soft ROW left)"},
        {"device ir|rf / blaster on|off / channel N / group N",
         "the selected device's settings (select DEVICE11 or its properties node)"},
        {"download / upload / clock",
         "File > Download of the active document, File > Upload (the new document becomes the active one), Clock "
         "Sync"},
        {"dump PATH / tree", "the active document's JSON to PATH; its tree, as the tree command prints it"},
    };
    return entries;
}

const std::vector<HelpEntry>& simulator_gesture_help()
{
    static const std::vector<HelpEntry> entries = {
        {"screen",
         "prints page HOME P/N or page D P/N (D the device's row, P the page among the device's N pages), then "
         "row R \"TEXT\" or row R left \"TEXT\" for each row with a key; row 0 is the page's title"},
        {"press soft ROW [left]",
         "a side button of the display; a left button without a key of its own runs its row's right key"},
        {"press hard KEY", "hard key KEY (0 to 40) of the device shown, HOME's own on a HOME page"},
        {"home", "HOME page 1"},
        {"page next / page prev",
         "the next or previous page of the device shown that is not hidden; at the end the display stays"},
    };
    return entries;
}

const std::vector<HelpEntry>& simulator_action_help()
{
    static const std::vector<HelpEntry> entries = {
        {"send TEXT", "an IR code, TEXT the step's row as the step list shows it (send RC5 0 12)"},
        {"wait N", "a delay of N hundredths of a second"},
        {"beep N HZ", "a beep of N hundredths of a second at HZ hertz"},
        {"show D P / show HOME P", "a jump: the display moves to that page"},
        {"link D P ROW [left] / link D hard KEY", "before the actions of the linked key"},
        {"punch D", "before the actions of the device that owns a punched-through key"},
        {"nothing", "a key or position without action"},
        {"loop", "a chain of links came back to a key that is running: that link is not followed"},
    };
    return entries;
}

}  // namespace tesselo::cli
