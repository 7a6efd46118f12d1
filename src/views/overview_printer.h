#pragma once

#include <vector>

#include <QByteArray>
#include <QString>

#include "core/keys/overview_content.h"

class QPagedPaintDevice;

namespace tesselo {

// The printable overview of a document: for HOME and each device its name,
// each page drawn as the remote's display with its labels, then every key
// that has steps with its step rows. A device starts a new sheet when it
// does not fit on what is left of the current one; a device longer than a
// sheet goes on over the next, its name repeated. Each sheet carries the
// document's title and its number at the foot.

// Draws the overview on a printer or a PDF writer. False when nothing could
// be drawn on the device.
bool paint_overview(QPagedPaintDevice& device, const std::vector<OverviewSection>& sections, const QString& title);

// The overview as the bytes of a PDF file on A4 sheets; empty when it could
// not be made.
QByteArray overview_pdf(const std::vector<OverviewSection>& sections, const QString& title);

}  // namespace tesselo
