#include "views/action_frame.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "core/keys/key_behaviours.h"
#include "core/ir/edit_ir.h"
#include "core/ir/learn_test_ir.h"
#include "views/artwork.h"
#include "views/edit_ir_form.h"
#include "views/page_tree_dialogs.h"
#include "views/rc56_edit_form.h"
#include "views/step_dialogs.h"

namespace tesselo {

namespace {

constexpr int step_role = Qt::UserRole + 1;

QPushButton* step_button(const QString& name, const QString& text, QWidget* parent)
{
    auto* b = new QPushButton(text, parent);
    b->setObjectName(name);
    return b;
}

}  // namespace

ActionFrame::ActionFrame(Application& app, QWidget* parent) : QWidget(parent), app_(app)
{
    setObjectName("FrameAction");
    ListView1 = new QTreeWidget(this);
    ListView1->setObjectName("ListView1");
    ListView1->setHeaderLabels({"Action steps"});
    ListView1->setRootIsDecorated(false);
    ListView1->setUniformRowHeights(true);
    ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    ListView1->setAutoFillBackground(true);
    ListView1->installEventFilter(this);
    ListView1->viewport()->setAutoFillBackground(true);

    AddIRBt = step_button("AddIRBt", "Add IR", this);
    AddDelayBt = step_button("AddDelayBt", "Add Delay", this);
    AddBeepBt = step_button("AddBeepBt", "Add Beep", this);
    CreateJumpBt = step_button("CreateJumpBt", "Create Jump", this);
    CreateLinkBt = step_button("CreateLinkBt", "Create Link", this);
    DeleteBt = step_button("DeleteBt", "Delete", this);
    MoveUPBt = picture_button("MoveUPBt", "move up", "Move action Up", this);
    MoveDownBt = picture_button("MoveDownBt", "move down", "Move action down", this);
    TestIRBt = step_button("TestIRBt", "Test IR", this);
    TestIRBt->setToolTip("Hold the button down: the remote sends the selected step's code until you let go");
    Check1 = new QCheckBox("Punch Through", this);
    Check1->setObjectName("Check1");
    Check2 = new QCheckBox("Sleep Timer", this);
    Check2->setObjectName("Check2");
    Check3 = new QCheckBox("Link to Right side button", this);
    Check3->setObjectName("Check3");

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {AddIRBt, AddDelayBt, AddBeepBt, CreateJumpBt, CreateLinkBt, DeleteBt}) buttons->addWidget(b);
    auto* moves = new QHBoxLayout;
    moves->addWidget(MoveUPBt);
    moves->addWidget(MoveDownBt);
    moves->addStretch(1);
    buttons->addLayout(moves);
    buttons->addWidget(TestIRBt);
    buttons->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(ListView1, 1);
    top->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    for (QCheckBox* c : {Check1, Check2, Check3}) layout->addWidget(c);

    connect(AddIRBt, &QPushButton::clicked, this, &ActionFrame::AddIRBt_Click);
    connect(AddDelayBt, &QPushButton::clicked, this, &ActionFrame::AddDelayBt_Click);
    // Test IR is a press and a hold: the remote sends from the press to the release.
    connect(TestIRBt, &QPushButton::pressed, this, &ActionFrame::TestIRBt_Pressed);
    connect(TestIRBt, &QPushButton::released, this, &ActionFrame::TestIRBt_Released);
    connect(ListView1, &QTreeWidget::itemSelectionChanged, this, &ActionFrame::show_test_state);
    connect(AddBeepBt, &QPushButton::clicked, this, &ActionFrame::AddBeepBt_Click);
    connect(CreateJumpBt, &QPushButton::clicked, this, &ActionFrame::CreateJumpBt_Click);
    connect(CreateLinkBt, &QPushButton::clicked, this, &ActionFrame::CreateLinkBt_Click);
    connect(DeleteBt, &QPushButton::clicked, this, &ActionFrame::DeleteBt_Click);
    connect(MoveUPBt, &QToolButton::clicked, this, &ActionFrame::MoveUPBt_Click);
    connect(MoveDownBt, &QToolButton::clicked, this, &ActionFrame::MoveDownBt_Click);
    connect(ListView1, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { ListView1_DblClick(ListView1->indexOfTopLevelItem(item) + 1); });
    // clicked is the user's click alone; filling a box never sends it.
    const auto on_click = [this](auto click) {
        return [this, click](bool checked) {
            if (filling_) return;
            if (const auto t = target()) click(app_, *t, checked);
            Q_EMIT key_changed(selected_row());
        };
    };
    connect(Check1, &QCheckBox::clicked, this, on_click(Check1_Click));
    connect(Check2, &QCheckBox::clicked, this, on_click(Check2_Click));
    connect(Check3, &QCheckBox::clicked, this, on_click(Check3_Click));
}

std::optional<KeyTarget> ActionFrame::target() const { return selected_key_target(app_); }

void ActionFrame::load(const ActionPanel& panel)
{
    filling_ = true;
    const int row = selected_row();
    ListView1->clear();
    for (const StepRow& r : panel.rows) {
        auto* item = new QTreeWidgetItem(ListView1);
        item->setText(0, QString::fromStdString(r.text));
        item->setData(0, step_role, r.step);
    }
    // A greyed list stands for a list the key does not run itself.
    QPalette colours = palette();
    if (panel.grey) {
        colours.setColor(QPalette::Base, QColor(0xC0C0C0));
        colours.setColor(QPalette::Text, QColor(0x80, 0x80, 0x80));
    }
    ListView1->setPalette(colours);
    for (QWidget* w : std::initializer_list<QWidget*>{AddIRBt, AddDelayBt, AddBeepBt, CreateJumpBt, CreateLinkBt,
                                                      DeleteBt, MoveUPBt, MoveDownBt, TestIRBt})
        w->setEnabled(!panel.grey);
    Check1->setVisible(panel.check1_shown);
    Check1->setChecked(panel.check1);
    Check2->setChecked(panel.check2);
    Check2->setEnabled(panel.check2_enabled);
    Check3->setVisible(panel.check3_shown);
    Check3->setChecked(panel.check3);
    Check3->setEnabled(panel.check3_enabled);
    if (!panel.grey) select_row(std::min(row, ListView1->topLevelItemCount()));
    show_test_state();
    filling_ = false;
}

int ActionFrame::selected_row() const
{
    for (int i = 0; i < ListView1->topLevelItemCount(); ++i)
        if (ListView1->topLevelItem(i)->isSelected()) return i + 1;
    return 0;
}

void ActionFrame::select_row(int row)
{
    ListView1->clearSelection();
    if (row < 1 || row > ListView1->topLevelItemCount()) return;
    QTreeWidgetItem* item = ListView1->topLevelItem(row - 1);
    ListView1->setCurrentItem(item);
    item->setSelected(true);
}

template <typename Window>
void ActionFrame::open_dialog()
{
    const auto t = target();
    if (!t) return;
    Window dialog(app_, *t, window());
    dialog.exec();
    Q_EMIT key_changed(selected_row());
}

void ActionFrame::AddIRBt_Click() { open_dialog<EditIRForm>(); }
void ActionFrame::AddDelayBt_Click() { open_dialog<DelaytimeWindow>(); }
void ActionFrame::AddBeepBt_Click() { open_dialog<AddbeepWindow>(); }
void ActionFrame::CreateJumpBt_Click() { open_dialog<CreatejumpWindow>(); }
void ActionFrame::CreateLinkBt_Click() { open_dialog<CreateLinkWindow>(); }

void ActionFrame::DeleteBt_Click()
{
    const auto t = target();
    const int row = selected_row();
    if (!t || row == 0) return;
    if (!tesselo::DeleteBt(app_, *t, row)) return;
    Q_EMIT key_changed(row_after_delete(row, ListView1->topLevelItemCount() - 1));
}

void ActionFrame::move(bool up)
{
    const auto t = target();
    const int row = selected_row();
    if (!t || row == 0) return;
    if (!(up ? tesselo::MoveUPBt(app_, *t, row) : tesselo::MoveDownBt(app_, *t, row))) return;
    // The selection moves with the step.
    Q_EMIT key_changed(up ? row - 1 : row + 1);
}

void ActionFrame::MoveUPBt_Click() { move(true); }
void ActionFrame::MoveDownBt_Click() { move(false); }

void ActionFrame::ListView1_DblClick(int row)
{
    const auto t = target();
    if (!t || !AddDelayBt->isEnabled() || row < 1 || row > ListView1->topLevelItemCount()) return;
    const int step = ListView1->topLevelItem(row - 1)->data(0, step_role).toInt();
    if (step < 0) return;
    const std::uint8_t type = app_.config(t->slot).action_steps.steps[static_cast<std::size_t>(step)].step_type;
    if (begin_step_edit(app_, *t, row) < 0) return;
    select_row(row);
    switch (type) {
    case step_jump: open_dialog<CreatejumpWindow>(); break;
    case step_delay: open_dialog<DelaytimeWindow>(); break;
    case step_link: open_dialog<CreateLinkWindow>(); break;
    case step_beep: open_dialog<AddbeepWindow>(); break;
    default: edit_ir_row(row, type); break;
    }
}

void ActionFrame::edit_ir_row(int row, std::uint8_t type)
{
    const auto t = target();
    if (!t) return;
    if (type < step_rc5 || type > step_rc6a) {
        // A library, learned or My Database code: Add IR Code on the step's own code.
        open_dialog<EditIRForm>();
        return;
    }
    // A typed code: its protocol's fields, and OK stores the new code in the step.
    EditIR logic(app_, *t);
    RC56EditForm fields(app_, window());
    fields.load_code(app_.current_ir.ir_code_words, app_.current_ir.ir_code_word_count);
    if (fields.exec() == QDialog::Accepted) logic.ok();
    else logic.cancel();
    Q_EMIT key_changed(row);
}

void ActionFrame::show_test_state()
{
    // Test IR sends the selected row's code: it is there for IR rows.
    const auto t = target();
    const int row = selected_row();
    bool ir = false;
    if (t && row > 0 && app_.slot_in_use[static_cast<std::size_t>(t->slot)]) {
        const int step = ListView1->topLevelItem(row - 1)->data(0, step_role).toInt();
        if (step >= 0 && step < action_step_rows) {
            ir = is_ir_step(app_.config(t->slot).action_steps.steps[static_cast<std::size_t>(step)].step_type);
        }
    }
    TestIRBt->setEnabled(ir && AddIRBt->isEnabled());
}

void ActionFrame::TestIRBt_Pressed()
{
    const auto t = target();
    const int row = selected_row();
    testing_ = false;
    if (!t || row == 0) return;
    const int step = ListView1->topLevelItem(row - 1)->data(0, step_role).toInt();
    const Configuration& config = app_.config(t->slot);
    if (!load_step_code(app_, config, step)) return;
    test_delay_ = step_test_delay(config.action_steps.steps[static_cast<std::size_t>(step)]);
    testing_ = true;
    TestIR_Start(app_, app_.current_ir.current_ir_type, test_delay_);
}

void ActionFrame::TestIRBt_Released()
{
    if (!testing_) return;
    testing_ = false;
    TestIR_End(app_, test_delay_);
}

bool ActionFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ListView1 && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const auto mods = key->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
        if (mods == Qt::ControlModifier && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
            if (AddDelayBt->isEnabled()) move(key->key() == Qt::Key_Up);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tesselo
