// File > Print Overview...: the frame's print dialog and the overview drawn
// on what the user chose.
#include <QPrintDialog>
#include <QPrinter>

#include "core/document/ui.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/overview_content.h"
#include "views/mdi_form1.h"
#include "views/overview_printer.h"

namespace tesselo {

void MDIForm1::muPrintOverview_Click()
{
    const Document* doc = app_.active();
    if (!doc) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName("Overview of " + QString::fromStdString(doc->title));
    printer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName("PrintOverview");
    dialog.setWindowTitle("Print Overview");
    if (dialog.exec() != QDialog::Accepted) return;
    if (print_overview(printer)) return;
    const QString file = printer.outputFileName();
    app_.ui().message(title_main, file.isEmpty() ? "Unable to print the overview" : "Unable to write " + file.toStdString(),
                      Icon::exclamation);
}

bool MDIForm1::print_overview(QPagedPaintDevice& device)
{
    const Document* doc = app_.active();
    if (!doc) return false;
    const int slot = doc->slot;
    const std::string title = doc->title;
    app_.write_log("print overview (start) " + title);
    WaitCursor wait(app_.ui());
    // The step rows are named as the properties window names them.
    const LibraryStepNames names(app_.home(), &app_.my_database());
    const bool drawn = paint_overview(device, overview_sections(app_.config(slot), names, &app_.tree(slot)),
                                      QString::fromStdString(title));
    app_.write_log(title + " - print overview");
    return drawn;
}

}  // namespace tesselo
