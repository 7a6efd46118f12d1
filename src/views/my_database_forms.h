#pragma once

#include <array>

#include <QDialog>

#include "core/ir/my_database_forms.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace tesselo {

class Application;

// The four boxes of My Database's forms: Brand, Device, Model and Function.
using MyDbBoxes = std::array<QComboBox*, 4>;

// MyDatabase: the current code registered under four names chosen from the
// lists; AddBrand, AddDevice, AddModel and AddFunction add a new name.
class MyDatabaseForm : public QDialog {
    Q_OBJECT
public:
    explicit MyDatabaseForm(Application& app, QWidget* parent = nullptr);
    QComboBox* box(int level) const { return boxes_[static_cast<std::size_t>(level - level_brand)]; }
    void accept() override;

private:
    void fill(int level, const QString& choose = {});
    void add_name(int level);

    Application& app_;
    MyDatabase logic_;
    MyDbBoxes boxes_{};
};

// AddDataBase: a new name for one level's list.
class AddDataBaseForm : public QDialog {
    Q_OBJECT
public:
    AddDataBaseForm(Application& app, int level, QWidget* parent = nullptr);
    QLineEdit* text() const { return Text1; }
    QString added() const { return added_; }
    void accept() override;

private:
    AddDataBase logic_;
    QLineEdit* Text1;
    QString added_;
};

// NewIRData: a registered code picked level by level; OK makes it the
// current code.
class NewIRDataForm : public QDialog {
    Q_OBJECT
public:
    explicit NewIRDataForm(Application& app, QWidget* parent = nullptr);
    QComboBox* box(int level) const { return boxes_[static_cast<std::size_t>(level - level_brand)]; }
    void accept() override;

private:
    void show_lists();

    NewIRData logic_;
    MyDbBoxes boxes_{};
    QPushButton* ok_ = nullptr;
};

}  // namespace tesselo
