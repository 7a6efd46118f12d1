// The IR code windows, filled as a user fills them: RC5/RC6 fields, the IR
// library, My Database's forms, Add IR Code with its duration, Learn IR and
// Test IR held down against the emulated remote, and the canvas's double click.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest>

#include <filesystem>

#include "core/keys/key_locator.h"
#include "core/keys/step_commands.h"
#include "core/model/action_chain.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "emulator/emulator_transport.h"
#include "gui_support.h"
#include "views/edit_ir_form.h"
#include "views/ir_data_form.h"
#include "views/my_database_forms.h"
#include "views/qt_ui.h"
#include "views/rc56_edit_form.h"
#include "views/remote.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

namespace fs = std::filesystem;

// A frame with one document of one device, the library in its home, and the
// key in row 1 of the device's first page selected.
struct KeyFixture : FrameFixture {
    std::string page = "DEVICE11\\PAGE1";
    KeyFixture()
    {
        fs::copy(fs::path(TESSELO_BUILD_BIN) / "Data base", test.home.path() / "Data base",
                 fs::copy_options::recursive);
        frame->entry("muNew")->trigger();
        frame->entry("muInsertdevice")->trigger();
        click_node(test.app, 0, test.app.tree(0).find(page));
        select_key(test.app, 5);
        test.take_lines();
    }
    KeyTarget target() const { return {0, page}; }
    std::vector<ActionStep> steps()
    {
        Configuration& c = test.app.config(0);
        std::vector<ActionStep> out;
        const auto place = locate_key(c, page, test.app.key_selection);
        for (int s : steps_of_list(c, key_action_list(c, *place))) out.push_back(c.action_steps.steps[static_cast<std::size_t>(s)]);
        return out;
    }
};

void type_into(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

// Runs `act` on the next modal dialog once it is on the screen.
template <typename Act>
void on_next_dialog(Act act)
{
    QTimer::singleShot(0, [act] {
        QWidget* w = QApplication::activeModalWidget();
        QVERIFY(w);
        act(w);
    });
}

}  // namespace

class IrDialogsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void rc56edit_shows_the_ranges_of_the_protocol_and_builds_the_code()
    {
        KeyFixture f;
        RC56EditForm form(f.test.app);
        form.show();
        QCOMPARE(form.windowTitle(), QString("RC5 / RC6"));
        QCOMPARE(form.findChild<QLabel*>("RangeText3")->text(), QString("(0-31)"));
        QCOMPARE(form.findChild<QLabel*>("RangeText1")->text(), QString("(0-127)"));
        QVERIFY(!form.field(RcField::Text4)->isEnabled());
        QVERIFY(!form.field(RcField::Text2)->isEnabled());
        form.option(rc_protocol_rc5x)->click();
        QVERIFY(form.field(RcField::Text4)->isEnabled());
        form.option(rc_protocol_rc6a)->click();
        QCOMPARE(form.findChild<QLabel*>("RangeText3")->text(), QString("(0-255)"));
        QVERIFY(form.field(RcField::Text2)->isEnabled());
        QVERIFY(!form.field(RcField::Text4)->isEnabled());
        type_into(form.field(RcField::Text2), "32768");
        type_into(form.field(RcField::Text3), "12");
        type_into(form.field(RcField::Text1), "200");
        save_screenshot(&form, "rc56edit_rc6a");
        form.accept();
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(f.test.app.current_ir.name, std::string("RC6A 32768 12 200"));
        QCOMPARE(int(f.test.app.current_ir.current_ir_type), 4);
    }

    void rc56edit_says_what_a_field_out_of_range_should_be()
    {
        KeyFixture f;
        RC56EditForm form(f.test.app);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        type_into(form.field(RcField::Text3), "40");
        QTest::keyClick(form.field(RcField::Text3), Qt::Key_Return);
        QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0 - 31\""});
        QVERIFY(form.field(RcField::Text3)->hasFocus());
        QCoreApplication::processEvents();
        form.accept();
        QVERIFY(form.result() != int(QDialog::Accepted));
    }

    void irdata_walks_from_category_to_function()
    {
        KeyFixture f;
        IRDataForm form(f.test.app);
        form.show();
        QCOMPARE(form.windowTitle(), QString("IR Database"));
        QCOMPARE(form.category()->count(), 13);
        QCOMPARE(form.category()->itemText(0), QString("T V"));
        form.category()->setCurrentIndex(0);
        QVERIFY(form.brands()->count() > 0);
        form.brands()->setCurrentRow(0);
        QVERIFY(form.codesets()->count() > 0);
        QCOMPARE(form.codesets()->item(0)->text(), QString("Code Set-000"));
        form.codesets()->setCurrentRow(0);
        QVERIFY(form.functions()->count() > 3);
        form.accept();
        QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Please select the function key\""});
        form.functions()->setCurrentRow(3);
        save_screenshot(&form, "irdata");
        form.accept();
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(f.test.app.current_ir.name, std::string("IR CODE tv000:"));
    }

    void my_database_adds_names_registers_and_picks()
    {
        KeyFixture f;
        f.test.app.current_ir.name = "RC5 0 1";
        {
            RC56EditForm rc(f.test.app);
            type_into(rc.field(RcField::Text3), "0");
            type_into(rc.field(RcField::Text1), "1");
            rc.accept();
        }
        MyDatabaseForm form(f.test.app);
        form.show();
        QCOMPARE(form.box(level_brand)->currentText(), QString("Select one"));
        QCOMPARE(form.box(level_device)->itemText(1), QString("CABLE "));
        for (const auto& [level, name] : {std::pair{level_brand, "ACME"}, std::pair{level_model, "X1"},
                                          std::pair{level_function, "POWER"}}) {
            on_next_dialog([name = QString(name)](QWidget* w) {
                auto* add = qobject_cast<AddDataBaseForm*>(w);
                QVERIFY(add);
                QVERIFY(!add->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
                QTest::keyClicks(add->text(), name);
                if (name == "ACME") save_screenshot(add, "adddatabase");
                add->accept();
            });
            static const char* adders[] = {"AddBrand", "AddDevice", "AddModel", "AddFunction"};
            form.findChild<QPushButton*>(adders[level - level_brand])->click();
            QCOMPARE(form.box(level)->currentText(), QString(name));
        }
        form.box(level_device)->setCurrentIndex(form.box(level_device)->findText("TAPE DECK"));
        save_screenshot(&form, "mydatabase");
        form.accept();
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(f.test.app.my_database().code_count(), 1);

        NewIRDataForm pick(f.test.app);
        pick.show();
        QVERIFY(!pick.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
        for (const auto& [level, name] : {std::pair{level_brand, "ACME"}, std::pair{level_device, "TAPE DECK"},
                                          std::pair{level_model, "X1"}, std::pair{level_function, "POWER"}}) {
            QComboBox* box = pick.box(level);
            QVERIFY(box->isEnabled());
            const int index = box->findText(name);
            QVERIFY(index > 0);
            box->setCurrentIndex(index);
            Q_EMIT box->activated(index);
        }
        QVERIFY(pick.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
        save_screenshot(&pick, "newirdata");
        pick.accept();
        QCOMPARE(f.test.app.current_ir.name, std::string("MYDATABASE CODE ACME-TAPE DECK-X1-POWER"));
        QCOMPARE(int(f.test.app.current_ir.current_ir_type), 128);
    }

    void add_ir_code_stores_a_typed_code_with_its_duration()
    {
        KeyFixture f;
        EditIRForm form(f.test.app, f.target());
        form.show();
        QCOMPARE(form.windowTitle(), QString("Add IR Code"));
        QVERIFY(form.name_line()->text().isEmpty());
        QVERIFY(!form.button("TestIR")->isEnabled());
        QVERIFY(form.findChild<QRadioButton*>("Option1")->isChecked());
        QVERIFY(!form.duration_field()->isEnabled());
        form.accept();
        QCOMPARE(f.test.take_lines(), std::vector<std::string>{"status \"Invalid IRcode\""});
        on_next_dialog([](QWidget* w) {
            auto* rc = qobject_cast<RC56EditForm*>(w);
            QVERIFY(rc);
            type_into(rc->field(RcField::Text3), "0");
            type_into(rc->field(RcField::Text1), "12");
            rc->accept();
        });
        form.button("RC56")->click();
        QCOMPARE(form.name_line()->text(), QString("RC5 0 12"));
        QVERIFY(form.button("TestIR")->isEnabled());
        form.findChild<QRadioButton*>("Option2")->click();
        QVERIFY(form.duration_field()->isEnabled());
        QCOMPARE(form.duration_field()->text(), QString("0.01"));
        form.findChild<QToolButton*>("UpDown1Up")->click();
        form.findChild<QToolButton*>("UpDown1Up")->click();
        QCOMPARE(form.duration_field()->text(), QString("0.03"));
        QTest::keyClicks(form.duration_field(), "x");
        QCOMPARE(form.duration_field()->text(), QString("0.03"));
        save_screenshot(&form, "editir_rc5");
        form.accept();
        QCOMPARE(form.result(), int(QDialog::Accepted));
        const auto s = f.steps();
        QCOMPARE(s.size(), std::size_t(1));
        QCOMPARE(int(s[0].step_type), 1);
        QCOMPARE(int(s[0].value), 3);
    }

    void the_duration_does_not_apply_to_a_library_code()
    {
        KeyFixture f;
        EditIRForm form(f.test.app, f.target());
        form.show();
        on_next_dialog([](QWidget* w) {
            auto* lib = qobject_cast<IRDataForm*>(w);
            QVERIFY(lib);
            lib->category()->setCurrentIndex(0);
            lib->brands()->setCurrentRow(0);
            lib->codesets()->setCurrentRow(0);
            lib->functions()->setCurrentRow(1);
            lib->accept();
        });
        form.button("IRDatabase")->click();
        QCOMPARE(form.name_line()->text(), QString("IR CODE tv000:"));
        QVERIFY(!form.findChild<QGroupBox*>("Duration")->isEnabled());
        save_screenshot(&form, "editir_library");
    }

    void my_database_button_says_when_it_is_empty()
    {
        KeyFixture f;
        EditIRForm form(f.test.app, f.target());
        form.show();
        form.button("MyDatabase")->click();
        QCOMPARE(f.test.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Mydatabase is empty!\""});
    }

    void learn_ir_and_test_ir_held_down_reach_the_remote()
    {
        KeyFixture f;
        auto remote = std::make_shared<emulator::RemoteEmulator>();
        f.test.app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(remote, f.test.clock));
        EditIRForm form(f.test.app, f.target());
        form.show();
        form.button("LearnIR")->click();
        QCOMPARE(form.name_line()->text(), QString("LEARNING CODE"));
        QCOMPARE(f.test.take_lines(), (std::vector<std::string>{"status \"Ready\"", "status \"LEARN OK\""}));
        QTest::mousePress(form.button("TestIR"), Qt::LeftButton);
        QVERIFY(remote->sending_code);
        QCOMPARE(remote->test_frame.size(), std::size_t(73));
        QTest::mouseRelease(form.button("TestIR"), Qt::LeftButton);
        QVERIFY(!remote->sending_code);
        QCOMPARE(f.test.take_lines(), (std::vector<std::string>{"status \"    \"", "status \"sending data...\"",
                                                               "status \"send completed\""}));
        form.accept();
        QCOMPARE(int(f.steps().at(0).step_type), 5);
    }

    void the_link_writes_into_the_open_dialogs_status_line()
    {
        KeyFixture f;
        QtUi ui;
        EditIRForm form(f.test.app, f.target());
        form.show();
        ui.editir_status("no usb device");
        QCOMPARE(form.status_line()->text(), QString("no usb device"));
        save_screenshot(&form, "editir_status");
    }

    void a_double_click_on_a_key_opens_add_ir_code_for_it()
    {
        KeyFixture f;
        Remote* page = f.frame->open_page(0, QString::fromStdString(f.page));
        QVERIFY(page);
        bool seen = false;
        on_next_dialog([&seen](QWidget* w) {
            QCOMPARE(w->objectName(), QString("EditIR"));
            QCOMPARE(w->windowTitle(), QString("Add IR Code"));
            seen = true;
            static_cast<QDialog*>(w)->reject();
        });
        const QPoint at = page->picture_rect(7).center().toPoint();
        QTest::mouseDClick(page, Qt::LeftButton, {}, at);
        QVERIFY(seen);
        QCOMPARE(f.test.app.key_selection.selected_index, 7);
        QCOMPARE(f.test.app.key_selection.selected_kind, int(kind_soft));
    }
};

QTEST_MAIN(IrDialogsTest)
#include "ir_dialogs_test.moc"
