#pragma once

#include <QDialog>
#include <QLayout>

namespace tesselo {

// A dialog's frame: a title and a close button, no minimise or maximise,
// and, for a dialog of fixed fields, the size its fields need.
inline void dialog_frame(QDialog* dialog, bool fixed_size)
{
    dialog->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    if (fixed_size && dialog->layout()) dialog->layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace tesselo
