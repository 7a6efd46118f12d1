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
#include "views/artwork.h"
#include "views/page_tree_dialogs.h"
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

    AddDelayBt = step_button("AddDelayBt", "Add Delay", this);
    AddBeepBt = step_button("AddBeepBt", "Add Beep", this);
    CreateJumpBt = step_button("CreateJumpBt", "Create Jump", this);
    CreateLinkBt = step_button("CreateLinkBt", "Create Link", this);
    DeleteBt = step_button("DeleteBt", "Delete", this);
    MoveUPBt = picture_button("MoveUPBt", "move up", "Move action Up", this);
    MoveDownBt = picture_button("MoveDownBt", "move down", "Move action down", this);
    Check1 = new QCheckBox("Punch Through", this);
    Check1->setObjectName("Check1");
    Check2 = new QCheckBox("Sleep Timer", this);
    Check2->setObjectName("Check2");
    Check3 = new QCheckBox("Link to Right side button", this);
    Check3->setObjectName("Check3");

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {AddDelayBt, AddBeepBt, CreateJumpBt, CreateLinkBt, DeleteBt}) buttons->addWidget(b);
    auto* moves = new QHBoxLayout;
    moves->addWidget(MoveUPBt);
    moves->addWidget(MoveDownBt);
    moves->addStretch(1);
    buttons->addLayout(moves);
    buttons->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(ListView1, 1);
    top->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    for (QCheckBox* c : {Check1, Check2, Check3}) layout->addWidget(c);

    connect(AddDelayBt, &QPushButton::clicked, this, &ActionFrame::AddDelayBt_Click);
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
    for (QWidget* w : std::initializer_list<QWidget*>{AddDelayBt, AddBeepBt, CreateJumpBt, CreateLinkBt, DeleteBt,
                                                      MoveUPBt, MoveDownBt})
        w->setEnabled(!panel.grey);
    Check1->setVisible(panel.check1_shown);
    Check1->setChecked(panel.check1);
    Check2->setChecked(panel.check2);
    Check2->setEnabled(panel.check2_enabled);
    Check3->setVisible(panel.check3_shown);
    Check3->setChecked(panel.check3);
    if (!panel.grey) select_row(std::min(row, ListView1->topLevelItemCount()));
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
    // The IR steps' editors belong to the Add IR Code dialog.
    if (type < step_jump || type > step_beep) return;
    if (begin_step_edit(app_, *t, row) < 0) return;
    select_row(row);
    switch (type) {
    case step_jump: open_dialog<CreatejumpWindow>(); break;
    case step_delay: open_dialog<DelaytimeWindow>(); break;
    case step_link: open_dialog<CreateLinkWindow>(); break;
    default: open_dialog<AddbeepWindow>(); break;
    }
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
