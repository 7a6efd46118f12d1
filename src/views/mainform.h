#pragma once

#include <QWidget>

class QLabel;
class QTreeView;

namespace tesselo {

class Application;

// A document window: the tree of its Configuration and the status panel
// that tells what the pointer is over. Its tag is the document slot.
class mainform : public QWidget {
    Q_OBJECT
public:
    mainform(Application& app, int slot, QWidget* parent = nullptr);

    int slot() const { return slot_; }
    QString tag() const { return QString::number(slot_); }
    QTreeView* tree() const { return TreeView1; }

    // The status panel: device, key label, and the count of the key's steps.
    void show_key_status(const QString& device, const QString& key, int steps);
    void clear_key_status();

    // Set by the frame once core has let the document go: the window may close.
    void release() { released_ = true; }

Q_SIGNALS:
    void close_requested(mainform* window);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Application& app_;
    int slot_;
    bool released_ = false;
    QTreeView* TreeView1;
    QLabel* Devicelabel;
    QLabel* keylabel;
    QLabel* marcolabel;
};

}  // namespace tesselo
