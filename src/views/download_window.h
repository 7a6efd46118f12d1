#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QTimer;

namespace tesselo {

// The window of an exchange with the remote: an animation of data going
// between the computer and the remote, and the progress bar ProgressBar2.
class Download : public QWidget {
    Q_OBJECT
public:
    explicit Download(QWidget* parent = nullptr);

    // "Download" or "Upload"; the animation runs towards the remote or from it.
    void set_caption(const QString& caption);
    void show_progress(bool visible);
    void set_progress(int value, int maximum);
    QProgressBar* progress_bar() const { return ProgressBar2; }
    // What the transfer is doing now, under the animation; painted at once,
    // since the transfer holds the event loop while it waits for the remote.
    void set_activity(const QString& text);
    QLabel* activity() const { return activity_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QProgressBar* ProgressBar2;
    QLabel* activity_;
    QTimer* animation_;
    int frame_ = 0;
    bool towards_remote_ = true;
};

}  // namespace tesselo
