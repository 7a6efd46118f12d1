#include "views/mdi_form1.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/restore_default.h"
#include "core/document/ui.h"
#include "core/link/clock_sync.h"
#include "core/link/download.h"
#include "core/link/upload.h"
#include "core/keys/key_edit.h"
#include "core/keys/properties_content.h"
#include "core/tree/adding.h"
#include "core/tree/edit_state.h"
#include "core/tree/journal.h"
#include "core/tree/merge_configuration.h"
#include "core/tree/node_keys.h"
#include "core/tree/popup_menu.h"
#include "core/tree/selection.h"
#include "core/tree/tree_commands.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "views/artwork.h"
#include "views/frame_commands.h"
#include "views/mainform.h"
#include "views/remote.h"

namespace tesselo {

QString toolbar_command(const QString& key)
{
    static const QHash<QString, QString> commands = {
        {"new", "muNew"},         {"open", "muOpen"},       {"save", "muSave"},
        {"download", "muDownload"}, {"upload", "muUpload"}, {"undo", "muUndo"},
        {"redo", "muRedo"},       {"cut", "muCut"},         {"copy", "muCopy"},
        {"paste", "muPaste"},     {"delete", "muDelete"},   {"label", "label"},
        {"properties", "muproperties"}, {"newdevice", "muInsertdevice"}, {"newpage", "muInsertpage"},
        {"simualtor", "muSimulator"}, {"clock", "clock"},   {"help", "help"},
    };
    return commands.value(key);
}

MDIForm1::MDIForm1(Application& app, QWidget* parent) : QMainWindow(parent), app_(app)
{
    setObjectName("MDIForm1");
    setWindowTitle(QString::fromStdString(title_main));
    setWindowIcon(program_icon());
    area_ = new QMdiArea(this);
    area_->setObjectName("MDIArea");
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setBackground(QColor(0x6B, 0x72, 0x7E));
    setCentralWidget(area_);
    connect(area_, &QMdiArea::subWindowActivated, this, &MDIForm1::subwindow_activated);

    status_text_ = new QLabel(this);
    status_text_->setObjectName("StatusText");
    progress_ = new QProgressBar(this);
    progress_->setObjectName("ProgressBar1");
    progress_->setMaximumWidth(220);
    progress_->setTextVisible(false);
    progress_->hide();
    statusBar()->addWidget(status_text_, 1);
    statusBar()->addPermanentWidget(progress_);

    register_commands();
    build_menus();
    build_toolbar();
    app_.add_listener(this);
    size_from_screen();
    update_commands();
}

MDIForm1::~MDIForm1() { app_.remove_listener(this); }

void MDIForm1::register_commands()
{
    commands_["muNew"] = [this] { muNew(app_); };
    commands_["muOpen"] = [this] { muOpen(app_); };
    commands_["muUndo"] = [this] { muUndo_Click(app_); };
    commands_["muRedo"] = [this] { muRedo_Click(app_); };
    commands_["muInsertdevice"] = [this] { muInsertdevice(app_); };
    commands_["muInsertpage"] = [this] { muInsertPage(app_); };
    commands_["muOpenPage"] = [this] {
        const auto [slot, node] = selected_node();
        if (node) tesselo::open_page(app_, slot, node);
    };
    commands_["muExpandall"] = [this] { set_all_expanded(true); };
    commands_["muCollapseall"] = [this] { set_all_expanded(false); };
    commands_["muproperties"] = [this] { muproperties_Click(app_); };
    // The tree's operations that other parts of the program install.
    const auto installed = [this](TreeCommands::Command TreeCommands::*member) {
        return [this, member] {
            if (app_.tree_commands().*member) (app_.tree_commands().*member)(app_);
        };
    };
    // The Edit commands take the key path while the last click was on a key.
    const auto edit = [this](TreeCommands::Command TreeCommands::*tree_path, TreeCommands::Command TreeCommands::*key_path) {
        return [this, tree_path, key_path] {
            const auto member = app_.selection().selected_kind == TreeSelection::Kind::key ? key_path : tree_path;
            if (app_.tree_commands().*member) (app_.tree_commands().*member)(app_);
        };
    };
    commands_["muCut"] = edit(&TreeCommands::cut, &TreeCommands::key_cut);
    commands_["muCopy"] = edit(&TreeCommands::copy, &TreeCommands::key_copy);
    commands_["muPaste"] = edit(&TreeCommands::paste, &TreeCommands::key_paste);
    commands_["muDelete"] = edit(&TreeCommands::remove, &TreeCommands::key_delete);
    commands_["muMoveUp"] = installed(&TreeCommands::move_up);
    commands_["muMoveDown"] = installed(&TreeCommands::move_down);
    commands_["label"] = installed(&TreeCommands::label);
    commands_["muClose"] = [this] { close_document(app_, app_.active_document()); };
    commands_["muSave"] = [this] { muSave(app_); };
    commands_["muSaveas"] = [this] { muSaveas(app_); };
    commands_["muPrintOverview"] = [this] { muPrintOverview_Click(); };
    commands_["muExit"] = [this] { close(); };
    commands_["muStandardToolbar"] = [this] { Toolbar1->setVisible(entry("muStandardToolbar")->isChecked()); };
    commands_["muStatusBar"] = [this] { statusBar()->setVisible(entry("muStatusBar")->isChecked()); };
    commands_["muOpenAll"] = [this] { open_allpage(app_); };
    commands_["muCloseAll"] = [this] {
        if (const Document* doc = app_.active()) close_pages(doc->slot);
    };
    commands_["muSimulator"] = [this] { muSimulator(app_); };
    commands_["muRestore"] = [this] { muRestore(app_); };
    commands_["muMerge"] = [this] { muMerge(app_); };
    commands_["muCascade"] = [this] { arrange(Arrangement::cascade); };
    commands_["muTileHor"] = [this] { arrange(Arrangement::tile_horizontally); };
    commands_["muTileVer"] = [this] { arrange(Arrangement::tile_vertically); };
    commands_["muAbout"] = [this] { muAbout_Click(); };
    commands_["help"] = [this] { open_pdf(app_); };
    commands_["muDownload"] = [this] { muDownload_Click(app_); };
    commands_["muUpload"] = [this] { muUpload_Click(app_); };
    commands_["clock"] = [this] { clock_sync(app_); };
}

void MDIForm1::build_menus()
{
    for (const MenuDefinition& definition : frame_menus()) {
        QMenu* m = menuBar()->addMenu(QString::fromUtf8(definition.caption));
        m->setObjectName(definition.name);
        m->menuAction()->setObjectName(definition.name);
        menus_.insert(definition.name, m);
        for (const MenuEntry& e : definition.entries) {
            QAction* action = nullptr;
            if (!e.caption) {
                action = m->addSeparator();
            } else {
                action = m->addAction(QString::fromUtf8(e.caption));
                if (*e.shortcut) action->setShortcut(QKeySequence(QString::fromUtf8(e.shortcut)));
                const QString name = e.name;
                connect(action, &QAction::triggered, this, [this, name] { run(name); });
            }
            action->setObjectName(e.name);
            entries_.insert(e.name, action);
        }
        connect(m, &QMenu::aboutToShow, this, &MDIForm1::update_commands);
    }
    for (const char* name : {"muStandardToolbar", "muStatusBar"}) {
        entry(name)->setCheckable(true);
        entry(name)->setChecked(true);
    }
    // The key popup lives hidden beside the menus, in the frame's terms.
    const MenuDefinition& popup = key_popup_menu();
    auto* keymenu = new QMenu(QString::fromUtf8(popup.caption), this);
    keymenu->setObjectName(popup.name);
    menus_.insert(popup.name, keymenu);
    for (const MenuEntry& e : popup.entries) {
        QAction* action = e.caption ? keymenu->addAction(QString::fromUtf8(e.caption)) : keymenu->addSeparator();
        action->setObjectName(e.name);
        action->setEnabled(false);
        entries_.insert(e.name, action);
    }
    connect_key_entries();
}

void MDIForm1::build_toolbar()
{
    Toolbar1 = addToolBar("Standard");
    Toolbar1->setObjectName("Toolbar1");
    Toolbar1->setIconSize(QSize(24, 24));
    Toolbar1->setMovable(false);
    for (const ToolbarButton& b : toolbar_buttons()) {
        // Dividers between the groups: files, link, journal, clipboard, keys, tree, tools.
        if (b.number == 4 || b.number == 6 || b.number == 8 || b.number == 12 || b.number == 14 || b.number == 16)
            Toolbar1->addSeparator();
        QAction* action = Toolbar1->addAction(toolbar_picture(b.picture), QString::fromUtf8(b.tool_tip));
        action->setObjectName(b.key);
        action->setToolTip(QString::fromUtf8(b.tool_tip));
        action->setProperty("number", b.number);
        action->setProperty("key", QString::fromUtf8(b.key));
        const QString key = b.key;
        connect(action, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
        buttons_.insert(b.key, action);
    }
}

void MDIForm1::Toolbar1_ButtonClick(const QString& key)
{
    update_commands();
    if (!button_enabled(key)) return;
    if (key == "new") {
        run("muNew");
        return;
    }
    for (const char* candidate : toolbar_dispatch_order())
        if (key == candidate) {
            run(toolbar_command(key));
            return;
        }
}

void MDIForm1::run(const QString& command)
{
    update_commands();
    if (!command_enabled(command)) return;
    commands_[command]();
    update_commands();
}

std::pair<int, int> MDIForm1::selected_node() const
{
    const Document* doc = const_cast<Application&>(app_).active();
    if (!doc) return {-1, 0};
    return {doc->slot, const_cast<Application&>(app_).tree(doc->slot).selected()};
}

void MDIForm1::set_all_expanded(bool expanded)
{
    const Document* doc = app_.active();
    if (!doc) return;
    TreeModel& tree = app_.tree(doc->slot);
    for (int i = 1; i <= tree.count(); ++i) tree.node(i).expanded = expanded;
    tree_changed(doc->slot);
}

bool MDIForm1::command_enabled(const QString& command) const
{
    if (!commands_.count(command)) return false;
    Application& app = const_cast<Application&>(app_);
    const bool has_document = app.active_document() >= 0;
    const auto [slot, node] = selected_node();
    const TreeNode* selected = node ? &app.tree(slot).node(node) : nullptr;
    // HOME and its own pages: nothing of a device can be done there.
    const bool home_selected = selected && (selected->image == image_home || selected->key.rfind("HOME", 0) == 0);
    const auto installed = [&app](TreeCommands::Command TreeCommands::*member) {
        return static_cast<bool>(app.tree_commands().*member);
    };
    static const QStringList on_document = {"muClose",     "muSave",        "muSaveas",       "muOpenAll",
                                            "muCloseAll",  "muSimulator",   "muExpandall",    "muCollapseall",
                                            "muproperties", "muInsertdevice", "muRestore", "muPrintOverview",
                                            "muMerge"};
    // An upload keeps its own entry and Upload's button still.
    if (app.flags().upload_in_progress && command == "muUpload") return false;
    if (command == "muDownload") return has_document;
    if (on_document.contains(command)) return has_document;
    if (command == "muInsertpage") return has_document && selected && !home_selected;
    if (command == "muOpenPage") return has_document && selected && is_page_image(selected->image);
    // The entries follow the journal as the toolbar's buttons do: nothing to
    // undo or redo, nothing to choose.
    if (command == "muUndo") return app.edit_state().undo_menu && undo_enabled(app);
    if (command == "muRedo") return app.edit_state().redo_menu && redo_enabled(app);
    if (const auto key = edit_command_of_key(command)) return *key;
    if (command == "muCut" || command == "muDelete" || command == "label")
        return has_document && !home_selected && installed(command == "muCut"      ? &TreeCommands::cut
                                                           : command == "muDelete" ? &TreeCommands::remove
                                                                                   : &TreeCommands::label);
    if (command == "muCopy") return has_document && !home_selected && installed(&TreeCommands::copy);
    if (command == "muPaste") return has_document && app.edit_state().paste_button && installed(&TreeCommands::paste);
    if (command == "muMoveUp") return has_document && installed(&TreeCommands::move_up);
    if (command == "muMoveDown") return has_document && installed(&TreeCommands::move_down);
    if (command == "muCascade" || command == "muTileHor" || command == "muTileVer")
        return !area_->subWindowList().isEmpty();
    return true;
}

std::optional<bool> MDIForm1::edit_command_of_key(const QString& command) const
{
    Application& app = const_cast<Application&>(app_);
    const bool edit = command == "muCut" || command == "muCopy" || command == "muPaste" || command == "muDelete";
    if (!edit || app.selection().selected_kind != TreeSelection::Kind::key) return std::nullopt;
    // What the key allows, and only where the key path is there.
    const auto allows = key_edit_enables(app, key_in_clipboard(app));
    if (!allows) return false;
    const TreeCommands& c = app.tree_commands();
    if (command == "muCut") return allows->cut && static_cast<bool>(c.key_cut);
    if (command == "muCopy") return allows->copy && static_cast<bool>(c.key_copy);
    if (command == "muPaste") return allows->paste && static_cast<bool>(c.key_paste);
    return allows->remove && static_cast<bool>(c.key_delete);
}

// Toolbar buttons whose state is their own: the journal's and HOME's.
bool MDIForm1::button_enabled(const QString& key) const
{
    Application& app = const_cast<Application&>(app_);
    const QString command = toolbar_command(key);
    // An upload keeps the simulator's button still too.
    if (key == "simualtor" && app.flags().upload_in_progress) return false;
    if (key == "undo") return undo_enabled(app) && commands_.count(command);
    if (key == "redo") return redo_enabled(app) && commands_.count(command);
    const auto [slot, node] = selected_node();
    const bool home_selected = node && (app.tree(slot).node(node).image == image_home ||
                                        app.tree(slot).node(node).key.rfind("HOME", 0) == 0);
    if (home_selected && (key == "cut" || key == "copy" || key == "delete" || key == "label" ||
                          key == "properties" || key == "newpage"))
        return false;
    return command_enabled(command);
}

void MDIForm1::update_commands()
{
    for (auto it = entries_.begin(); it != entries_.end(); ++it) {
        if (it.value()->isSeparator() || it.key().startsWith("mukey")) continue;
        it.value()->setEnabled(command_enabled(it.key()));
    }
    for (auto it = buttons_.begin(); it != buttons_.end(); ++it) it.value()->setEnabled(button_enabled(it.key()));
    update_key_entries();
}

void MDIForm1::set_status(const QString& text) { status_text_->setText(text); }

void MDIForm1::set_progress(int value, int maximum)
{
    progress_->setMaximum(std::max(1, maximum));
    progress_->setValue(std::clamp(value, 0, std::max(1, maximum)));
    progress_->setVisible(value > 0 && value < maximum);
}

void MDIForm1::muAbout_Click()
{
    QMessageBox about(this);
    about.setObjectName("About");
    about.setWindowTitle("About");
    about.setIconPixmap(program_icon().pixmap(64, 64));
    about.setText("<b>" + QString::fromStdString(title_main) + "</b>");
    about.setInformativeText("The editor of the QM4100 and QM5100 universal remote controls.\nVersion " +
                             QApplication::applicationVersion());
    about.exec();
}

void MDIForm1::closeEvent(QCloseEvent* event)
{
    if (close_frame(app_))
        event->accept();
    else
        event->ignore();
}

void MDIForm1::raise_frame()
{
    if (isMinimized()) showNormal();
    show();
    raise();
    activateWindow();
}

void MDIForm1::open_files(const QStringList& paths)
{
    raise_frame();
    for (const QString& path : paths) open_configuration(app_, path.toStdString());
    update_commands();
}

}  // namespace tesselo
