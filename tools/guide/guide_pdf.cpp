// Renders the user guide, written in Markdown, into the PDF file that the
// editor's Help command opens.
#include <iostream>

#include <QFile>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: tesselo-guide-pdf GUIDE.md OUT.pdf\n";
        return 2;
    }
    QFile source(QString::fromLocal8Bit(argv[1]));
    if (!source.open(QIODevice::ReadOnly)) {
        std::cerr << "tesselo-guide-pdf: cannot read " << argv[1] << '\n';
        return 1;
    }
    QTextDocument guide;
    QFont body("DejaVu Sans");
    body.setPointSizeF(10.5);
    guide.setDefaultFont(body);
    guide.setDefaultStyleSheet("h1 { color: #1d2b44; } h2 { color: #2f6fd0; } code { font-family: 'DejaVu Sans Mono'; }");
    guide.setMarkdown(QString::fromUtf8(source.readAll()));
    guide.setMetaInformation(QTextDocument::DocumentTitle, "Kelvaro Tesselo 3 - User Guide");

    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    pdf.setTitle("Kelvaro Tesselo 3 - User Guide");
    pdf.setCreator("tesselo");
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(20, 18, 20, 18), QPageLayout::Millimeter);
    guide.print(&pdf);
    return 0;
}
