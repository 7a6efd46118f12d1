#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <functional>

namespace tesselo::testing {

// What a message box showed.
struct BoxSeen {
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
};

// Answers the next modal message box with `button`, after noting what it
// showed and, when `take_picture` is given, letting it take the box's picture.
inline void answer_next_box(BoxSeen& seen, QMessageBox::StandardButton button,
                            std::function<void(QWidget*)> take_picture = {})
{
    QTimer::singleShot(0, [&seen, button, take_picture] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.icon = box->icon();
        for (QAbstractButton* b : box->buttons()) seen.buttons << b->text().remove('&');
        if (take_picture) take_picture(box);
        box->button(button)->click();
    });
}

}  // namespace tesselo::testing
