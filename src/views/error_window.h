#pragma once

#include <string>
#include <vector>

#include <QDialog>

#include "core/document/ui.h"

namespace tesselo {

// The window ErrorWindow: the faults found in a file that is being opened,
// with the words around them, and the choice to go on (Command1) or to give
// up (Command2). Core turns the answer into corruption_flag.
class ErrorWindowForm : public QDialog {
    Q_OBJECT
public:
    // texts[0] stands above the list of faults, the others below it.
    ErrorWindowForm(const std::string& title, const std::vector<std::string>& texts,
                    const std::vector<std::string>& rows, QWidget* parent = nullptr);

    ErrorWindowAnswer answer() const { return answer_; }

private:
    ErrorWindowAnswer answer_ = ErrorWindowAnswer::closed;
};

}  // namespace tesselo
