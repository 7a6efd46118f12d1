#pragma once

#include <cstdint>

#include <QDialog>
#include <QStringList>

namespace tesselo {

// Lists the faults found in a file that is being opened and asks whether to go
// on. The outcome is left in `corruption_flag`: 2 go on, 1 give up.
class ErrorWindow : public QDialog {
    Q_OBJECT
public:
    ErrorWindow(const QStringList& faults, std::uint8_t& corruption_flag, QWidget* parent = nullptr);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    std::uint8_t& flag_;
};

}  // namespace tesselo
