#pragma once

#include <QDialog>

#include "core/ir/ir_data_dialog.h"

class QComboBox;
class QListWidget;

namespace tesselo {

class Application;

// IRData: the IR library walked from a device category and a brand to a
// code set ("Code Set-NNN") and a function key. OK makes the code the
// current code.
class IRDataForm : public QDialog {
    Q_OBJECT
public:
    explicit IRDataForm(Application& app, QWidget* parent = nullptr);

    IRData& logic() { return logic_; }
    QComboBox* category() const { return Combo1; }
    QListWidget* brands() const { return brands_; }
    QListWidget* codesets() const { return codesets_; }
    QListWidget* functions() const { return functions_; }

    void accept() override;

private:
    static void fill(QListWidget* list, const std::vector<std::string>& items);

    IRData logic_;
    QComboBox* Combo1;
    QListWidget* brands_;
    QListWidget* codesets_;
    QListWidget* functions_;
};

}  // namespace tesselo
