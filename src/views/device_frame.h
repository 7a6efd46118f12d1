#pragma once

#include <QWidget>

#include "core/keys/properties_content.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace tesselo {

class Application;

// "Device properties": IRRF ("IR Enabled", "RF Enabled"), the frame "RF
// Setting" with Combo1 "Channel" and Combo2 "Group ID", and Option1 "Enable"
// and "Disable" under "Built in IR Blasters". Each writes at once.
class DeviceFrame : public QWidget {
    Q_OBJECT
public:
    DeviceFrame(Application& app, QWidget* parent = nullptr);
    // Fills the controls; what filling them does is no click.
    void load(const DevicePanel& panel);

Q_SIGNALS:
    void setting_changed();

private:
    void after(bool changed);

    Application& app_;
    bool filling_ = false;
    QGroupBox* irrf_frame_;
    QRadioButton* IRRF[2];
    QGroupBox* Frame_RF;
    QLabel* channel_label_;
    QLabel* group_label_;
    QComboBox* Combo1;
    QComboBox* Combo2;
    QRadioButton* Option1[2];
};

}  // namespace tesselo
