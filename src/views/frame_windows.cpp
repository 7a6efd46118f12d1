// The frame's document and page windows: they follow core's documents and
// core's list of open page windows.
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaObject>

#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "core/tree/page_windows.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_commands.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "views/artwork.h"
#include "views/mainform.h"
#include "views/mdi_form1.h"
#include "views/properties_window.h"
#include "views/edit_ir_form.h"
#include "views/remote.h"
#include "views/window_placement.h"

namespace tesselo {

mainform* MDIForm1::document_window(int document) const
{
    if (document < 0 || document >= static_cast<int>(windows_.size())) return nullptr;
    return windows_[static_cast<std::size_t>(document)];
}

int MDIForm1::document_index(const mainform* window) const
{
    for (std::size_t i = 0; i < windows_.size(); ++i)
        if (windows_[i] == window) return static_cast<int>(i);
    return -1;
}

std::vector<Remote*> MDIForm1::page_windows(int slot) const
{
    std::vector<Remote*> pages;
    for (QMdiSubWindow* sub : area_->subWindowList())
        if (auto* page = qobject_cast<Remote*>(sub->widget()))
            if (!page->released() && (slot < 0 || page->slot() == slot)) pages.push_back(page);
    return pages;
}

Remote* MDIForm1::page_window(int slot, const QString& caption) const
{
    for (Remote* page : page_windows(slot))
        if (page->caption() == caption) return page;
    return nullptr;
}

void MDIForm1::document_opened(int document)
{
    const Document& doc = app_.documents()[static_cast<std::size_t>(document)];
    auto* form = new mainform(app_, doc.slot);
    form->setWindowTitle(QString::fromStdString(doc.title));
    form->setWindowIcon(tree_picture("home"));
    QMdiSubWindow* sub = area_->addSubWindow(form);
    windows_.insert(windows_.begin() + document, form);
    connect(form, &mainform::close_requested, this, [this](mainform* window) {
        close_document(app_, document_index(window));
        update_commands();
    });
    connect(form, &mainform::commands_changed, this, &MDIForm1::update_commands);
    form->rebuild_tree();
    place_new_window(sub);
    sub->show();
    update_commands();
}

void MDIForm1::document_retitled(int document)
{
    if (mainform* form = document_window(document))
        form->setWindowTitle(QString::fromStdString(app_.documents()[static_cast<std::size_t>(document)].title));
}

void MDIForm1::document_views_hidden(int document)
{
    mainform* form = document_window(document);
    if (!form) return;
    hidden_views_.clear();
    for (Remote* page : page_windows(form->slot()))
        if (QWidget* sub = page->parentWidget(); sub && sub->isVisible()) {
            hidden_views_.push_back(sub);
            sub->hide();
        }
    if (properties_ && properties_->isVisible()) {
        hidden_views_.push_back(properties_);
        properties_->hide();
    }
}

void MDIForm1::document_views_restored(int)
{
    // Back where they were: a hidden window keeps its place and size.
    for (const QPointer<QWidget>& view : hidden_views_)
        if (view) view->show();
    hidden_views_.clear();
}

void MDIForm1::document_closed(int slot)
{
    // The window that has no document any more is the first out of step.
    const auto& docs = app_.documents();
    std::size_t gone = windows_.size();
    for (std::size_t i = 0; i < windows_.size(); ++i)
        if (i >= docs.size() || windows_[i]->slot() != docs[i].slot) {
            gone = i;
            break;
        }
    if (gone == windows_.size()) return;
    mainform* form = windows_[gone];
    windows_.erase(windows_.begin() + static_cast<std::ptrdiff_t>(gone));
    if (app_.document_of_slot(slot) < 0) close_pages(slot);
    form->release();
    // The close may have begun in the window's own close event: finish it after.
    if (QWidget* sub = form->parentWidget()) QMetaObject::invokeMethod(sub, "close", Qt::QueuedConnection);
    update_commands();
}

void MDIForm1::active_document_changed()
{
    if (syncing_) return;
    mainform* form = document_window(app_.active_document());
    if (!form || !form->parentWidget()) return;
    syncing_ = true;
    area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
    syncing_ = false;
}

void MDIForm1::subwindow_activated(QMdiSubWindow* window)
{
    if (!window || syncing_) return;
    int document = -1;
    if (auto* form = qobject_cast<mainform*>(window->widget())) document = document_index(form);
    if (auto* page = qobject_cast<Remote*>(window->widget())) document = app_.document_of_slot(page->slot());
    if (document >= 0 && document != app_.active_document()) {
        syncing_ = true;
        app_.activate(document);
        syncing_ = false;
    }
    update_commands();
}

void MDIForm1::tree_changed(int slot)
{
    if (mainform* form = document_window(app_.document_of_slot(slot))) form->rebuild_tree();
    // Names on HOME keys and page counters may have changed with the tree.
    for (Remote* page : page_windows(slot)) page->update();
    update_commands();
}

void MDIForm1::selection_changed(int slot)
{
    if (mainform* form = document_window(app_.document_of_slot(slot))) form->show_selection();
    for (Remote* page : page_windows()) page->update();
    if (properties_) properties_->selection_moved();
    update_commands();
}

void MDIForm1::edit_states_changed() { update_commands(); }

properties* MDIForm1::ensure_properties()
{
    if (!properties_) {
        properties_ = new properties(app_, this);
        connect(properties_, &properties::data_changed, this, &MDIForm1::update_commands);
    }
    return properties_;
}

void MDIForm1::properties_requested()
{
    ensure_properties()->selection_moved();
    show_placed(properties_, this, Placement::beside_frame);
}

void MDIForm1::label_requested()
{
    ensure_properties()->show_label();
    show_placed(properties_, this, Placement::beside_frame);
}

void MDIForm1::page_key_changed(int slot, const std::string& caption, int picture)
{
    if (Remote* page = page_window(slot, QString::fromStdString(caption))) page->refresh_key(picture);
}

void MDIForm1::page_window_opened(int slot, const std::string& caption)
{
    const QString title = QString::fromStdString(caption);
    if (Remote* page = page_window(slot, title)) {
        page->parentWidget()->show();
        area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(page->parentWidget()));
        return;
    }
    const auto found = find_page(app_.config(slot), caption);
    const int registered = app_.page_windows().find(slot, caption);
    if (!found) {
        // A page that the tables do not hold cannot be drawn: the window is not made.
        app_.page_windows().remove(registered);
        return;
    }
    auto* page = new Remote(app_, slot, *found);
    if (registered >= 0)
        page->refresh(QString::fromStdString(app_.page_windows().all()[static_cast<std::size_t>(registered)].pagelabel));
    QMdiSubWindow* sub = area_->addSubWindow(page, Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    sub->setWindowIcon(tree_picture("tv"));
    connect(page, &Remote::key_hovered, this, &MDIForm1::show_key_status);
    connect(page, &Remote::key_selected, this, &MDIForm1::key_selected);
    connect(page, &Remote::key_double_clicked, this, &MDIForm1::add_ir_code);
    connect(page, &Remote::key_menu_requested, this, &MDIForm1::key_menu_requested);
    connect(page, &Remote::key_dropped, this, &MDIForm1::key_dropped);
    connect(page, &Remote::closed, this, &MDIForm1::page_window_closed_by_user);
    sub->adjustSize();
    place_new_window(sub);
    sub->show();
    update_commands();
}

void MDIForm1::page_window_closed(int slot, const std::string& caption)
{
    if (Remote* page = page_window(slot, QString::fromStdString(caption))) {
        page->release();
        page->parentWidget()->close();
    }
}

void MDIForm1::page_window_changed(int slot, const std::string& caption)
{
    Remote* page = page_window(slot, QString::fromStdString(caption));
    const int registered = app_.page_windows().find(slot, caption);
    if (!page || registered < 0) return;
    page->refresh(QString::fromStdString(app_.page_windows().all()[static_cast<std::size_t>(registered)].pagelabel));
}

void MDIForm1::page_window_closed_by_user(Remote* page)
{
    if (page->released()) return;
    page->release();
    const std::string caption = page->caption().toStdString();
    const int registered = app_.page_windows().find(page->slot(), caption);
    if (registered >= 0) app_.page_windows().remove(registered);
    app_.write_log("close page " + caption);
    update_commands();
}

Remote* MDIForm1::open_page(int document, const QString& node_key)
{
    mainform* form = document_window(document);
    if (!form) return nullptr;
    const int slot = form->slot();
    const int node = app_.tree(slot).find(node_key.toStdString());
    if (node == 0 || !tesselo::open_page(app_, slot, node)) return nullptr;
    return page_window(slot, node_key);
}

void MDIForm1::close_pages(int slot)
{
    for (Remote* page : page_windows(slot))
        if (page->parentWidget()) page->parentWidget()->close();
}

void MDIForm1::show_key_status(Remote* window, int index)
{
    mainform* form = document_window(app_.document_of_slot(window->slot()));
    if (!form) return;
    if (index < 0)
        form->clear_key_status();
    else
        form->show_key_status(window->device_text(), window->key_text(index), window->key_steps(index));
}

void MDIForm1::key_selected(Remote* window, int index)
{
    // The tree's selection follows the page, as every later operation reads it.
    const int slot = window->slot();
    const int node = app_.tree(slot).find(window->caption().toStdString());
    if (node != 0) click_node(app_, slot, node);
    select_key(app_, index);
    show_key_status(window, index);
    // One selected key: the window that had it shows it no more.
    for (Remote* page : page_windows()) page->update();
    // The key is loaded into the properties window, which shows itself by the
    // frame without taking the keyboard from the page.
    properties* shown = ensure_properties();
    shown->selection_moved();
    if (!shown->isVisible()) {
        shown->setAttribute(Qt::WA_ShowWithoutActivating);
        show_placed(shown, this, Placement::beside_frame);
    }
    update_commands();
}

void MDIForm1::add_ir_code(Remote* window, int index)
{
    key_selected(window, index);
    tesselo::select_key(app_, index);
    const std::string caption = window->caption().toStdString();
    EditIRForm form(app_, KeyTarget{window->slot(), caption}, this);
    if (form.exec() != QDialog::Accepted) return;
    page_window_changed(window->slot(), caption);
    show_key_status(window, index);
    if (properties_) properties_->refresh();
    update_commands();
}

}  // namespace tesselo
