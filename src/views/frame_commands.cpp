#include "views/frame_commands.h"

namespace tesselo {

const std::vector<MenuDefinition>& frame_menus()
{
    static const std::vector<MenuDefinition> menus = {
        {"muFile",
         "&File",
         {
             {"muNew", "&New Configuration", "Ctrl+N"},
             {"muOpen", "&Open Configuration", "Ctrl+O"},
             {"muMerge", "&Merge Configuration", ""},
             {"muClose", "&Close Configuration", "Ctrl+F4"},
             {"muFilebar1", nullptr, ""},
             {"muSave", "&Save Configuration", "Ctrl+S"},
             {"muSaveas", "Save Configuration &as", "Ctrl+Shift+S"},
             {"muPrintOverview", "&Print Overview...", "Ctrl+P"},
             {"muFilebar2", nullptr, ""},
             {"muDownload", "&Download", ""},
             {"muUpload", "&Upload", ""},
             {"muFilebar3", nullptr, ""},
             {"muExit", "E&xit", "Ctrl+Q"},
         }},
        {"muEdit",
         "&Edit",
         {
             {"muUndo", "&Undo", "Ctrl+Z"},
             {"muRedo", "&Redo", "Ctrl+Y"},
             {"muFilebar4", nullptr, ""},
             {"muCut", "Cu&t", "Ctrl+X"},
             {"muCopy", "&Copy", "Ctrl+C"},
             {"muPaste", "&Paste", "Ctrl+V"},
             {"muDelete", "&Delete", "Del"},
             {"muFilebar5", nullptr, ""},
             {"muMoveUp", "Move Up in List", ""},
             {"muMoveDown", "Move Down in List", ""},
         }},
        {"muView",
         "&View",
         {
             {"muStandardToolbar", "Standard Toolbar", ""},
             {"muStatusBar", "Status Bar", ""},
             {"muFilebar6", nullptr, ""},
             {"muExpandall", "Expand All", ""},
             {"muCollapseall", "Collapse All", ""},
             {"muFilebar7", nullptr, ""},
             {"muOpenPage", "Open Page", ""},
             {"muOpenAll", "Open All Pages", ""},
             {"muCloseAll", "Close All Pages", ""},
             {"muFilebar8", nullptr, ""},
             {"muproperties", "Properties...", "Alt+Return"},
         }},
        {"muInsert",
         "&Insert",
         {
             {"muInsertdevice", "Device", ""},
             {"muInsertpage", "Page", ""},
         }},
        {"muTools",
         "&Tools",
         {
             {"muSimulator", "Simulator", ""},
             {"muRestore", "Restore Default Configuration      ", ""},
         }},
        {"muWindow",
         "&Window",
         {
             {"muCascade", "Cascade", ""},
             {"muTileHor", "Tile Horizontally", ""},
             {"muTileVer", "Tile Vertically", ""},
         }},
        {"muHelp",
         "&Help",
         {
             {"muAbout", "About", ""},
         }},
    };
    return menus;
}

const MenuDefinition& key_popup_menu()
{
    static const MenuDefinition popup = {"mukeyedit",
                                         "Key",
                                         {
                                             {"mukeyCut", "Cu&t", ""},
                                             {"mukeyCopy", "&Copy", ""},
                                             {"mukeyPaste", "&Paste", ""},
                                             {"mukeyDelete", "&Delete", ""},
                                             {"muFilebar9", nullptr, ""},
                                             {"mukeyproperties", "P&roperties", ""},
                                             {"mukeyhelp", "&Help", ""},
                                         }};
    return popup;
}

const std::array<ToolbarButton, 18>& toolbar_buttons()
{
    static const std::array<ToolbarButton, 18> buttons = {{
        {1, "new", "New Configuration", "new"},
        {2, "open", "Open Configuration", "open"},
        {3, "save", "Save Configuration", "save"},
        {4, "download", "Download to remote control", "download"},
        {5, "upload", "Upload from remote control", "upload"},
        {6, "undo", "Undo", "undo"},
        {7, "redo", "Redo", "redo"},
        {8, "cut", "", "cut"},
        {9, "copy", "Copy", "copy"},
        {10, "paste", "Paste", "paste"},
        {11, "delete", "Delete", "delete"},
        {12, "label", "Label", "label"},
        {13, "properties", "Properties", "properties"},
        {14, "newdevice", "Add new device", "newdevice"},
        {15, "newpage", "Add new page", "newpage"},
        {16, "simualtor", "Tesselo Simulator", "simualtor"},
        {17, "clock", "Clock Sync", "clocksync"},
        {18, "help", "Help", "help"},
    }};
    return buttons;
}

const std::array<const char*, 17>& toolbar_dispatch_order()
{
    // "new" is not among them: its button runs New through its own entry.
    static const std::array<const char*, 17> order = {"open", "download", "upload", "newdevice", "undo", "redo",
                                                      "cut",  "copy",     "paste",  "delete",    "save", "newpage",
                                                      "clock", "label",   "properties", "simualtor", "help"};
    return order;
}

}  // namespace tesselo
