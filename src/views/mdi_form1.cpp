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
#include "core/document/ui.h"
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
    resize(1024, 720);
    update_commands();
}

MDIForm1::~MDIForm1() { app_.remove_listener(this); }

void MDIForm1::register_commands()
{
    commands_["muNew"] = [this] { muNew(app_); };
    commands_["muClose"] = [this] { close_document(app_, app_.active_document()); };
    commands_["muSave"] = [this] { muSave(app_); };
    commands_["muSaveas"] = [this] { muSaveas(app_); };
    commands_["muExit"] = [this] { close(); };
    commands_["muStandardToolbar"] = [this] { Toolbar1->setVisible(entry("muStandardToolbar")->isChecked()); };
    commands_["muStatusBar"] = [this] { statusBar()->setVisible(entry("muStatusBar")->isChecked()); };
    commands_["muOpenAll"] = [this] { open_allpage(app_.active_document()); };
    commands_["muCloseAll"] = [this] {
        if (const Document* doc = app_.active()) close_pages(doc->slot);
    };
    commands_["muSimulator"] = [this] { muSimulator(app_); };
    commands_["muCascade"] = [this] { area_->cascadeSubWindows(); };
    commands_["muTileHor"] = [this] {
        // One above the other, each the width of the frame.
        const auto windows = area_->subWindowList();
        const int height = windows.isEmpty() ? 0 : area_->viewport()->height() / int(windows.size());
        for (int i = 0; i < windows.size(); ++i)
            windows[i]->setGeometry(0, i * height, area_->viewport()->width(), height);
    };
    commands_["muTileVer"] = [this] {
        // Side by side, each the height of the frame.
        const auto windows = area_->subWindowList();
        const int width = windows.isEmpty() ? 0 : area_->viewport()->width() / int(windows.size());
        for (int i = 0; i < windows.size(); ++i)
            windows[i]->setGeometry(i * width, 0, width, area_->viewport()->height());
    };
    commands_["muAbout"] = [this] { muAbout_Click(); };
    commands_["help"] = [this] { open_pdf(app_); };
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

bool MDIForm1::command_enabled(const QString& command) const
{
    if (!commands_.count(command)) return false;
    const bool has_document = app_.active_document() >= 0;
    static const QStringList on_document = {"muClose", "muSave", "muSaveas", "muOpenAll", "muCloseAll", "muSimulator"};
    if (on_document.contains(command)) return has_document;
    if (command == "muCascade" || command == "muTileHor" || command == "muTileVer")
        return !area_->subWindowList().isEmpty();
    return true;
}

void MDIForm1::update_commands()
{
    for (auto it = entries_.begin(); it != entries_.end(); ++it) {
        if (it.value()->isSeparator() || it.key().startsWith("mukey")) continue;
        it.value()->setEnabled(command_enabled(it.key()));
    }
    for (auto it = buttons_.begin(); it != buttons_.end(); ++it)
        it.value()->setEnabled(command_enabled(toolbar_command(it.key())));
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
    for (const QString& path : paths) set_status(path);
}

}  // namespace tesselo
