#include "views/simulator_window.h"

#include <algorithm>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>
#include <QFontDatabase>

#include "core/image/byte_reader.h"
#include "core/image/image_file.h"
#include "core/keys/hardkey_pictures.h"
#include "views/remote_picture.h"

namespace tesselo {

namespace {

const QString title = "Tesselo Simulator";

std::size_t at(int i) { return static_cast<std::size_t>(i); }

}  // namespace

SimulatorWindow::SimulatorWindow(const IrStepNames& names, QWidget* parent)
    : QMainWindow(parent), names_(names), watcher_(new QFileSystemWatcher(this))
{
    setObjectName("SimulatorWindow");
    setWindowTitle(title);

    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    picture_ = new RemotePicture(central);
    picture_->setObjectName("remote");
    layout->addWidget(picture_, 0, Qt::AlignTop);

    auto* side = new QVBoxLayout;
    home_ = new QPushButton("HOME", central);
    home_->setObjectName("home");
    page_up_ = new QPushButton("Page Up", central);
    page_up_->setObjectName("pageUp");
    page_down_ = new QPushButton("Page Down", central);
    page_down_->setObjectName("pageDown");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(home_);
    buttons->addWidget(page_up_);
    buttons->addWidget(page_down_);
    side->addLayout(buttons);

    auto* speed_row = new QHBoxLayout;
    auto* speed_label = new QLabel("Delays:", central);
    speed_box_ = new QComboBox(central);
    speed_box_->setObjectName("speed");
    speed_box_->addItem("Real speed", 1);
    speed_box_->addItem("Twice as fast", 2);
    speed_box_->addItem("Ten times as fast", 10);
    speed_box_->addItem("No waiting", 0);
    speed_label->setBuddy(speed_box_);
    speed_row->addWidget(speed_label);
    speed_row->addWidget(speed_box_, 1);
    side->addLayout(speed_row);

    beep_ = new QLabel(central);
    beep_->setObjectName("beep");
    beep_->setAlignment(Qt::AlignCenter);
    beep_->setStyleSheet("background: #fff3b0; border: 1px solid #c9a800; border-radius: 3px; padding: 4px;");
    beep_->hide();
    side->addWidget(beep_);

    auto* log_label = new QLabel("What the remote does:", central);
    side->addWidget(log_label);
    log_ = new QPlainTextEdit(central);
    log_->setObjectName("log");
    log_->setReadOnly(true);
    log_->setMaximumBlockCount(5000);
    log_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    log_label->setBuddy(log_);
    side->addWidget(log_, 1);
    layout->addLayout(side, 1);
    // On a small screen the remote scrolls rather than being cut.
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(central);
    setCentralWidget(scroll);

    QMenu* file = menuBar()->addMenu("&File");
    QAction* open = file->addAction("&Open...", this, &SimulatorWindow::choose_file);
    open->setShortcut(QKeySequence::Open);
    QAction* again = file->addAction("&Reload", this, [this] { reload(); });
    again->setObjectName("reload");
    again->setShortcut(QKeySequence(Qt::Key_F5));
    file->addSeparator();
    QAction* quit = file->addAction("&Quit", this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    connect(picture_, &RemotePicture::picture_pressed, this, &SimulatorWindow::press_picture);
    connect(home_, &QPushButton::clicked, this, &SimulatorWindow::press_home);
    connect(page_up_, &QPushButton::clicked, this, [this] { press_page(false); });
    connect(page_down_, &QPushButton::clicked, this, [this] { press_page(true); });
    connect(speed_box_, &QComboBox::currentIndexChanged, this,
            [this](int index) { speed_ = speed_box_->itemData(index).toInt(); });

    waiting_.setSingleShot(true);
    connect(&waiting_, &QTimer::timeout, this, [this] {
        beep_->hide();
        play_next();
    });
    // An editor writes the file through a scratch file and a rename: the
    // folder is watched too, and a change is read once it has settled.
    reload_soon_.setSingleShot(true);
    reload_soon_.setInterval(250);
    connect(&reload_soon_, &QTimer::timeout, this, &SimulatorWindow::file_touched);
    connect(watcher_, &QFileSystemWatcher::fileChanged, this, [this] { reload_soon_.start(); });
    connect(watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { reload_soon_.start(); });

    statusBar()->showMessage("No configuration: File > Open");
    show_state();
}

SimulatorWindow::~SimulatorWindow() = default;

void SimulatorWindow::place_on_screen()
{
    // Wide enough for the log beside the remote, never larger than the
    // screen, and in its middle.
    const QRect free = screen()->availableGeometry();
    const auto* scroll = static_cast<QScrollArea*>(centralWidget());
    const int whole = scroll->widget()->sizeHint().height() + menuBar()->sizeHint().height() +
                      statusBar()->sizeHint().height() + 4;
    const QSize wanted(std::min(900, free.width() - 40), std::min(whole, free.height() - 60));
    resize(wanted);
    move(free.center() - QPoint(wanted.width() / 2, wanted.height() / 2));
}

void SimulatorWindow::set_speed(int factor)
{
    const int index = speed_box_->findData(factor);
    if (index >= 0) speed_box_->setCurrentIndex(index);
}

bool SimulatorWindow::load(const QString& path, bool keep_page, QString& why)
{
    std::vector<std::uint8_t> bytes;
    if (const auto error = read_image_file(path.toStdString(), bytes)) {
        why = QString::fromStdString(*error);
        return false;
    }
    const QFileInfo info(path);
    std::unique_ptr<RemoteSimulator> next;
    try {
        next = RemoteSimulator::from_image(std::move(bytes), names_);
    } catch (const ImageBoundsError&) {
        why = "file is corrupted";
        return false;
    }
    const SimPage was = displayed_;
    sim_ = std::move(next);
    if (keep_page) sim_->show(was);
    path_ = info.absoluteFilePath();
    loaded_time_ = info.lastModified();
    loaded_size_ = info.size();
    queue_.clear();
    waiting_.stop();
    beep_->hide();
    watch(path_);
    setWindowTitle(info.fileName() + " - " + title);
    statusBar()->showMessage(path_);
    show_page(sim_->shown());
    show_state();
    return true;
}

bool SimulatorWindow::open_file(const QString& path)
{
    QString why;
    if (!load(path, false, why)) {
        QMessageBox::warning(this, title, QFileInfo(path).fileName() + ": " + why);
        return false;
    }
    say("open " + path_);
    return true;
}

bool SimulatorWindow::reload()
{
    if (path_.isEmpty()) return false;
    QString why;
    if (!load(path_, true, why)) {
        // A file half written, or gone: the configuration running stays.
        statusBar()->showMessage(QFileInfo(path_).fileName() + ": " + why + "; the configuration read before runs on");
        return false;
    }
    say("reload " + path_);
    return true;
}

void SimulatorWindow::choose_file()
{
    const QString start = path_.isEmpty() ? QString() : QFileInfo(path_).absolutePath();
    const QString path =
        QFileDialog::getOpenFileName(this, "Open", start, "Configuration files (*.kcf *.trl);;All files (*)");
    if (!path.isEmpty()) open_file(path);
}

void SimulatorWindow::watch(const QString& path)
{
    if (!watcher_->files().isEmpty()) watcher_->removePaths(watcher_->files());
    if (!watcher_->directories().isEmpty()) watcher_->removePaths(watcher_->directories());
    watcher_->addPath(path);
    watcher_->addPath(QFileInfo(path).absolutePath());
}

void SimulatorWindow::file_touched()
{
    // The folder changes for every file in it: only a change of this file counts.
    const QFileInfo info(path_);
    if (!info.exists() || (info.lastModified() == loaded_time_ && info.size() == loaded_size_)) return;
    reload();
}

void SimulatorWindow::press_picture(int picture)
{
    if (!sim_) return;
    if (busy()) {
        statusBar()->showMessage("The remote is still running the last key", 2000);
        return;
    }
    if (is_side_button(picture)) {
        const int row = side_button_row(picture);
        const bool left = side_button_position(picture) >= 128;
        run(QString("press soft %1%2").arg(row).arg(left ? " left" : ""), sim_->press_soft(row, left));
        return;
    }
    const int key = check_hardkeyindex(picture);
    if (key >= 0) run(QString("press hard %1").arg(key), sim_->press_hard(key));
}

void SimulatorWindow::press_home()
{
    if (!sim_ || busy()) return;
    sim_->home();
    say("home");
    show_page(sim_->shown());
}

void SimulatorWindow::press_page(bool next)
{
    if (!sim_ || busy()) return;
    if (next) sim_->page_next();
    else sim_->page_prev();
    say(next ? "page next" : "page prev");
    show_page(sim_->shown());
}

void SimulatorWindow::run(const QString& gesture, std::vector<SimAction> actions)
{
    say(gesture);
    queue_.assign(actions.begin(), actions.end());
    show_state();
    play_next();
}

void SimulatorWindow::play_next()
{
    while (!queue_.empty()) {
        const SimAction action = queue_.front();
        queue_.pop_front();
        say("  " + QString::fromStdString(action.line));
        if (action.kind == SimAction::Kind::show) show_page(action.page);
        if (action.kind != SimAction::Kind::wait && action.kind != SimAction::Kind::beep) continue;
        if (action.kind == SimAction::Kind::beep) {
            beep_->setText(QString("\u266A BEEP %1 Hz").arg(action.hertz));
            beep_->show();
            QApplication::beep();
        }
        // A delay of the remote is hundredths of a second.
        const int ms = speed_ == 0 ? 0 : action.hundredths * 10 / speed_;
        if (ms > 0) {
            waiting_.start(ms);
            return;
        }
        beep_->hide();
    }
    // The key has run: the display shows where the remote stands.
    show_page(sim_->shown());
    show_state();
}

void SimulatorWindow::show_page(SimPage page)
{
    displayed_ = page;
    picture_->set_rows(sim_->display(page));
    const int pages = sim_->pages(page.device);
    picture_->set_counter(QString::fromStdString(GenTagString(page.place + 1) + "/" + GenTagString(pages)));
    // The hard keys carry the names of the device shown, HOME's own on a HOME page.
    picture_->set_hard_labels([this](int key) -> const KeyLabel* {
        if (!sim_) return nullptr;
        return &sim_->tables().hardkey_labels[at(displayed_.device * hardkeys_per_device + key)];
    });
    picture_->update();
}

void SimulatorWindow::show_state()
{
    const bool ready = sim_ && !busy();
    home_->setEnabled(ready);
    page_up_->setEnabled(ready);
    page_down_->setEnabled(ready);
}

void SimulatorWindow::say(const QString& line) { log_->appendPlainText(line); }

}  // namespace tesselo
