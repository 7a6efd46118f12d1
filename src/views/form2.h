#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace tesselo {

// The splash window: the remote sends its signal while the frame loads.
class Form2 : public QWidget {
    Q_OBJECT
public:
    explicit Form2(QWidget* parent = nullptr);
    // Plays the animation for `duration_ms`, processing events so that the
    // window stays alive.
    void change_wallpaper(int duration_ms);
    // The animation's phase, 0 to 1.
    void set_phase(qreal phase);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qreal phase_ = 0;
};

}  // namespace tesselo
