// The frame's document and page windows: they follow core's documents.
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaObject>

#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "views/artwork.h"
#include "views/mainform.h"
#include "views/mdi_form1.h"
#include "views/remote.h"

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
            if (slot < 0 || page->slot() == slot) pages.push_back(page);
    return pages;
}

void MDIForm1::document_opened(int document)
{
    const Document& doc = app_.documents()[static_cast<std::size_t>(document)];
    auto* form = new mainform(app_, doc.slot);
    form->setWindowTitle(QString::fromStdString(doc.title));
    form->setWindowIcon(tree_picture("home"));
    QMdiSubWindow* sub = area_->addSubWindow(form);
    sub->resize(300, 460);
    windows_.insert(windows_.begin() + document, form);
    connect(form, &mainform::close_requested, this,
            [this](mainform* window) { close_document(app_, document_index(window)); update_commands(); });
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
    for (Remote* page : page_windows(form->slot()))
        if (page->parentWidget()) page->parentWidget()->hide();
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

Remote* MDIForm1::open_page(int document, const QString& node_key)
{
    mainform* form = document_window(document);
    if (!form) return nullptr;
    const int slot = form->slot();
    for (Remote* page : page_windows(slot))
        if (page->windowTitle() == node_key) {
            page->parentWidget()->show();
            area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(page->parentWidget()));
            return page;
        }
    if (static_cast<int>(page_windows().size()) >= max_page_windows) {
        app_.ui().message(title_main, "Out of Memory", Icon::exclamation);
        return nullptr;
    }
    const auto found = find_page(app_.config(slot), node_key.toStdString());
    if (!found) return nullptr;
    auto* page = new Remote(app_, slot, *found);
    QMdiSubWindow* sub = area_->addSubWindow(page, Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    sub->setWindowIcon(tree_picture("tv"));
    connect(page, &Remote::key_hovered, this, &MDIForm1::show_key_status);
    connect(page, &Remote::key_selected, this, &MDIForm1::show_key_status);
    sub->show();
    const std::string key = node_key.toStdString();
    const std::string text = key.substr(key.find_last_of('\\') + 1);
    app_.write_log("Open page " + text + "/" + page->device_text().toStdString() + "-" + key);
    update_commands();
    return page;
}

void MDIForm1::open_allpage(int document)
{
    mainform* form = document_window(document);
    if (!form) return;
    const Configuration& config = app_.config(form->slot());
    for (const PageRef& page : all_page_refs(config))
        if (!open_page(document, QString::fromStdString(page_node_key(config, page)))) break;
}

void MDIForm1::close_pages(int slot)
{
    for (Remote* page : page_windows(slot))
        if (page->parentWidget()) page->parentWidget()->close();
}

void MDIForm1::show_key_status(Remote* window, int index)
{
    const int document = app_.document_of_slot(window->slot());
    mainform* form = document_window(document);
    if (!form) return;
    if (index < 0)
        form->clear_key_status();
    else
        form->show_key_status(window->device_text(), window->key_text(index), window->key_steps(index));
}

}  // namespace tesselo
