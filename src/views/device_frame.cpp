#include "views/device_frame.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/keys/device_settings.h"

namespace tesselo {

DeviceFrame::DeviceFrame(Application& app, QWidget* parent) : QWidget(parent), app_(app)
{
    setObjectName("FrameDevice");
    irrf_frame_ = new QGroupBox("IR / RF", this);
    auto* irrf = new QHBoxLayout(irrf_frame_);
    const char* irrf_texts[] = {"IR Enabled", "RF Enabled"};
    for (int i = 0; i < 2; ++i) {
        IRRF[i] = new QRadioButton(irrf_texts[i], irrf_frame_);
        IRRF[i]->setObjectName("IRRF");
        IRRF[i]->setProperty("Index", i);
        irrf->addWidget(IRRF[i]);
        connect(IRRF[i], &QRadioButton::clicked, this, [this, i] {
            if (!filling_) after(IRRF_Click(app_, static_cast<std::uint8_t>(i)));
        });
    }

    Frame_RF = new QGroupBox("RF Setting", this);
    Frame_RF->setObjectName("FrameRF");
    auto* rf = new QGridLayout(Frame_RF);
    channel_label_ = new QLabel("Channel", Frame_RF);
    group_label_ = new QLabel("Group ID", Frame_RF);
    Combo1 = new QComboBox(Frame_RF);
    Combo1->setObjectName("Combo1");
    Combo1->addItems({"1", "2", "3", "4"});
    Combo2 = new QComboBox(Frame_RF);
    Combo2->setObjectName("Combo2");
    Combo2->addItems({"1", "2"});
    rf->addWidget(channel_label_, 0, 0);
    rf->addWidget(Combo1, 0, 1);
    rf->addWidget(group_label_, 1, 0);
    rf->addWidget(Combo2, 1, 1);
    rf->setColumnStretch(2, 1);
    // activated is the user's choice alone, never a filling.
    connect(Combo1, &QComboBox::activated, this, [this](int index) {
        if (!filling_) after(Combo1_Click(app_, index + 1));
    });
    connect(Combo2, &QComboBox::activated, this, [this](int index) {
        if (!filling_) after(Combo2_Click(app_, index + 1));
    });

    auto* blaster = new QGroupBox("Built in IR Blasters", this);
    auto* blaster_layout = new QHBoxLayout(blaster);
    const char* option_texts[] = {"Enable", "Disable"};
    for (int i = 0; i < 2; ++i) {
        Option1[i] = new QRadioButton(option_texts[i], blaster);
        Option1[i]->setObjectName("Option1");
        Option1[i]->setProperty("Index", i);
        blaster_layout->addWidget(Option1[i]);
        connect(Option1[i], &QRadioButton::clicked, this, [this, i] {
            if (!filling_) after(Option1_Click(app_, i == 0));
        });
    }

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(irrf_frame_);
    layout->addWidget(Frame_RF);
    layout->addWidget(blaster);
    layout->addStretch(1);
}

void DeviceFrame::load(const DevicePanel& panel)
{
    filling_ = true;
    irrf_frame_->setVisible(panel.rf_frame);
    Frame_RF->setVisible(panel.rf_frame);
    IRRF[panel.option_a == option_rf ? 1 : 0]->setChecked(true);
    Combo1->setCurrentIndex(panel.channel - 1);
    Combo2->setCurrentIndex(panel.group - 1);
    // Choosing IR greys the RF frame, its combo boxes and their labels.
    const bool rf = panel.option_a == option_rf;
    for (QWidget* w : {static_cast<QWidget*>(Frame_RF), static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Combo2),
                       static_cast<QWidget*>(channel_label_), static_cast<QWidget*>(group_label_)})
        w->setEnabled(rf);
    Option1[panel.blaster ? 0 : 1]->setChecked(true);
    layout()->activate();
    filling_ = false;
}

void DeviceFrame::after(bool)
{
    // The controls show the tables again, also after a click that changed nothing.
    Q_EMIT setting_changed();
}

}  // namespace tesselo
