#pragma once

#include <deque>
#include <memory>

#include <QDateTime>
#include <QMainWindow>
#include <QTimer>

#include "core/sim/remote_simulator.h"

class QComboBox;
class QFileSystemWatcher;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tesselo {

class IrStepNames;
class RemotePicture;

// The simulator: a configuration run as the remote runs it. The remote's
// picture shows the page being run and takes key presses; the log lists each
// action as it happens; delays really wait, at the speed the user chooses.
class SimulatorWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit SimulatorWindow(const IrStepNames& names, QWidget* parent = nullptr);
    ~SimulatorWindow() override;

    // Runs the configuration in `path` from HOME page 1. A file that is no
    // configuration is reported and the one running stays.
    bool open_file(const QString& path);
    // The same file read again, on the page shown when the page is still there.
    bool reload();
    // Its size and place on the screen it opens on.
    void place_on_screen();
    QString file() const { return path_; }

    // How fast delays and beeps pass: 1 real speed, 2 and 10 faster, 0 at once.
    void set_speed(int factor);
    // Whether a key's actions are still being played.
    bool busy() const { return !queue_.empty() || waiting_.isActive(); }

    RemotePicture* picture() const { return picture_; }
    QPlainTextEdit* log() const { return log_; }
    QLabel* beep_sign() const { return beep_; }
    // The display's page as the remote shows it now.
    SimPage displayed() const { return displayed_; }

    // The gestures of the buttons beside the remote and of the key pictures.
    void press_picture(int picture);
    void press_home();
    void press_page(bool next);

private:
    bool load(const QString& path, bool keep_page, QString& why);
    void choose_file();
    void file_touched();
    void watch(const QString& path);
    void run(const QString& gesture, std::vector<SimAction> actions);
    void play_next();
    void show_page(SimPage page);
    void show_state();
    void say(const QString& line);

    const IrStepNames& names_;
    std::unique_ptr<RemoteSimulator> sim_;
    QString path_;
    QDateTime loaded_time_;  // the file as it was when it was read
    qint64 loaded_size_ = -1;
    SimPage displayed_;
    std::deque<SimAction> queue_;
    QTimer waiting_;
    QTimer reload_soon_;
    int speed_ = 1;

    RemotePicture* picture_;
    QPlainTextEdit* log_;
    QLabel* beep_;
    QPushButton* home_;
    QPushButton* page_up_;
    QPushButton* page_down_;
    QComboBox* speed_box_;
    QFileSystemWatcher* watcher_;
};

}  // namespace tesselo
