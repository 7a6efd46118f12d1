#pragma once

#include <filesystem>
#include <memory>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <QTest>
#include <QTreeView>

#include "core/model/configuration.h"
#include "core/tree/tree_model.h"
#include "support/test_app.h"
#include "views/mainform.h"
#include "views/mdi_form1.h"

namespace tesselo::testing {

// A frame over an application whose Ui is scripted: every message is a line
// of text, every question is answered from the queue.
struct FrameFixture {
    RecordingApp test;
    std::unique_ptr<MDIForm1> frame = std::make_unique<MDIForm1>(test.app);

    FrameFixture() { frame->show(); }
    ~FrameFixture()
    {
        // Whatever is still open goes without its questions.
        test.ui.clear_answers();
        for (int i = 0; i < 12; ++i) test.ui.queue_answer("no");
        frame->close();
    }
};

// Clicks the tree row of the node with `key` in a document window, as the
// user does. False when there is no such row.
inline bool click_tree_node(MDIForm1& frame, int document, const std::string& key,
                            Qt::MouseButton button = Qt::LeftButton, bool twice = false)
{
    mainform* form = frame.document_window(document);
    if (!form) return false;
    const QModelIndex index = form->index_of(frame.app().tree(form->slot()).find(key));
    if (!index.isValid()) return false;
    form->tree()->scrollTo(index);
    const QPoint at = form->tree()->visualRect(index).center();
    QTest::mouseClick(form->tree()->viewport(), button, {}, at);
    // A double click is a press, a release and the double click itself.
    if (twice) {
        QTest::mousePress(form->tree()->viewport(), button, {}, at);
        QTest::mouseDClick(form->tree()->viewport(), button, {}, at);
    }
    return true;
}

// Gives the first page of device row 1 four soft keys with labels, as the
// label editor leaves them: NEWS left-aligned, MOVI centred with two steps,
// the play, pause and stop signs on a left button, SPORT right-aligned.
inline void label_first_page(Configuration& config, const std::string& page_key)
{
    DevicePage* page = nullptr;
    for (auto& row : config.device_pages)
        if (row.node_key == page_key) page = &row;
    QVERIFY(page);
    for (int entry = 0; entry < page_rows; ++entry)
        if (config.page_table[static_cast<std::size_t>(entry)].node_key == page_key)
            config.page_table[static_cast<std::size_t>(entry)].key_count = 5;
    page->slots[1] = SoftKey{0, 1, 900, no_index, 0};
    page->slots[2] = SoftKey{0, 2, 901, 7990, 0};
    page->slots[3] = SoftKey{0, 130, 902, no_index, 0};
    page->slots[4] = SoftKey{0, 4, 903, no_index, 0};
    config.softkey_labels[900].bytes = {0x24, 14, 5, 23, 19};
    config.softkey_labels[901].bytes = {0x04, 13, 15, 22, 9};
    config.softkey_labels[902].bytes = {0x03, 76, 74, 75};
    config.softkey_labels[903].bytes = {0x35, 19, 16, 15, 18, 20};
    config.action_lists.entries[7990] = {0, 2};
}

// Saves a picture of `widget` at twice its size, for a reviewer to look at
// and for the user guide.
inline QString save_screenshot(QWidget* widget, const QString& name)
{
    QDir().mkpath(TESSELO_SCREENSHOTS);
    const qreal scale = 2.0;
    QPixmap pixmap(widget->size() * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    widget->render(&pixmap);
    const QString path = QString(TESSELO_SCREENSHOTS) + "/" + name + ".png";
    // Its resolution says so: twice the screen's 96 dots to the inch, so
    // that the user guide prints it at the size it has on the screen.
    QImage image = pixmap.toImage();
    image.setDotsPerMeterX(qRound(scale * 96 / 0.0254));
    image.setDotsPerMeterY(qRound(scale * 96 / 0.0254));
    image.save(path);
    return path;
}

}  // namespace tesselo::testing
