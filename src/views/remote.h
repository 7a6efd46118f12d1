#pragma once

#include "core/keys/page_canvas.h"
#include "views/remote_picture.h"

namespace tesselo {

class Application;

// A page window: the remote's picture showing one page of a document. It
// holds no key data: every paint reads the document's tables.
class Remote : public RemotePicture {
    Q_OBJECT
public:
    Remote(Application& app, int slot, const PageRef& page, QWidget* parent = nullptr);
    int slot() const { return slot_; }
    const PageRef& page() const { return page_; }
    QString tag() const { return tag_; }
    QString caption() const { return windowTitle(); }
    // Reads the page again from the tables (after an edit, undo or redo) and
    // shows the page counter. False when the page is gone.
    bool refresh(const QString& pagelabel);
    QString pagelabel_text() const;
    // Set when core has let the window go: its close is no user's gesture.
    void release() { released_ = true; }
    bool released() const { return released_; }

    // The selected key when it is on this window's page, else -1: there is
    // one selected key in the program, held by the application.
    int selected_index() const;
    void select_key(int index);
    // One key drawn again from the tables: a side button's LCD row box, or a
    // hard key's picture.
    void refresh_key(int index);

    // Plain-text label of a key, the device's name, and the key's step count.
    QString key_text(int index) const;
    QString device_text() const;
    int key_steps(int index) const;

Q_SIGNALS:
    void key_hovered(Remote* window, int index);
    void key_selected(Remote* window, int index);
    // A double click on a key: its Add IR Code dialog.
    void key_double_clicked(Remote* window, int index);
    void closed(Remote* window);

protected:
    int selected_picture() const override { return selected_index(); }
    void closeEvent(QCloseEvent* event) override;

private:
    void update_rows();

    Application& app_;
    int slot_;
    PageRef page_;
    QString tag_;
    bool released_ = false;
};

}  // namespace tesselo
