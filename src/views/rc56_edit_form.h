#pragma once

#include <array>

#include <QDialog>

#include "core/ir/rc56_edit.h"

class QLabel;
class QLineEdit;
class QRadioButton;

namespace tesselo {

class Application;

// RC56Edit: a code typed by its protocol fields. The protocols are the four
// options of Option1; System, Command, Data and Customer Code are Text3,
// Text1, Text4 and Text2, with their ranges beside them. OK makes the code
// the current code.
class RC56EditForm : public QDialog {
    Q_OBJECT
public:
    explicit RC56EditForm(Application& app, QWidget* parent = nullptr);
    // The fields of a stored code, for its step to be edited.
    bool load_code(const IrCodeWords& words, int count);

    RC56Edit& logic() { return logic_; }
    QLineEdit* field(RcField f) const { return fields_[static_cast<std::size_t>(f)]; }
    QRadioButton* option(int protocol) const { return Option1[static_cast<std::size_t>(protocol)]; }

    void accept() override;

private:
    void choose(int protocol);
    void take_texts();
    void show_protocol();
    void leave(RcField f);

    RC56Edit logic_;
    std::array<QRadioButton*, 4> Option1{};
    std::array<QLineEdit*, 4> fields_{};
    std::array<QLabel*, 4> ranges_{};
    std::array<QLabel*, 4> names_{};
    bool checking_ = false;
    bool just_refused_ = false;
};

}  // namespace tesselo
