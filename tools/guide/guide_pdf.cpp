// Renders the user guide, written in Markdown, into the PDF file that the
// editor's Help command opens, with the pictures that the window tests took:
// an image ../build/screenshots/NAME.png of the guide is NAME.png of the
// pictures' folder, drawn at the size a reader sees it on the screen and
// never wider than the page.
#include <iostream>
#include <set>

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextList>

namespace {

constexpr const char* guide_title = "Kelvaro Tesselo 3 - User Guide";

class Guide : public QTextDocument {
public:
    explicit Guide(QString pictures) : pictures_(std::move(pictures)) {}

    // The pictures that the guide names and the folder does not hold.
    const std::set<QString>& missing() const { return missing_; }

    // Each picture at the size it has on the screen (its resolution says how
    // many of its pixels make an inch), at most the width of the text; both
    // in the document's units, `dpi` of them to the inch.
    void size_pictures(qreal text_width, qreal dpi)
    {
        for (QTextBlock block = begin(); block.isValid(); block = block.next())
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                const QTextFragment fragment = it.fragment();
                if (!fragment.charFormat().isImageFormat()) continue;
                QTextImageFormat image = fragment.charFormat().toImageFormat();
                const QImage picture = resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
                if (picture.isNull()) continue;
                const qreal picture_dpi = picture.dotsPerMeterX() * 0.0254;
                const qreal width = std::min(picture.width() / picture_dpi * dpi, text_width);
                image.setWidth(width);
                image.setHeight(width * picture.height() / picture.width());
                QTextCursor cursor(this);
                cursor.setPosition(fragment.position());
                cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
                cursor.setCharFormat(image);
            }
    }

    // Lays the guide out on pages of `page` (in the document's units) so that
    // no picture is cut by the end of a page: one that would be starts the
    // next page.
    void keep_pictures_whole(const QSizeF& page)
    {
        setPageSize(page);
        for (bool moved = true; moved;) {
            // A change is laid out lazily: lay the whole guide out again.
            markContentsDirty(0, characterCount());
            documentLayout()->documentSize();
            moved = false;
            for (QTextBlock block = begin(); block.isValid() && !moved; block = block.next()) {
                if (!holds_picture(block)) continue;
                const QRectF box = documentLayout()->blockBoundingRect(block);
                const int first = static_cast<int>(box.top() / page.height());
                const int last = static_cast<int>((box.bottom() - 1) / page.height());
                if (first == last || box.height() >= page.height()) continue;
                QTextBlockFormat format = block.blockFormat();
                if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) continue;
                format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
                QTextCursor(block).setBlockFormat(format);
                moved = true;
            }
        }
    }

protected:
    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type != QTextDocument::ImageResource) return QTextDocument::loadResource(type, name);
        const QString path = pictures_ + "/" + QFileInfo(name.path()).fileName();
        QImage picture(path);
        if (picture.isNull()) {
            missing_.insert(name.toString());
            return {};
        }
        return picture;
    }

private:
    static bool holds_picture(const QTextBlock& block)
    {
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().isImageFormat()) return true;
        return false;
    }

    QString pictures_;
    std::set<QString> missing_;
};

}  // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::cerr << "usage: tesselo-guide-pdf GUIDE.md PICTURES-FOLDER OUT.pdf\n";
        return 2;
    }
    QFile source(QString::fromLocal8Bit(argv[1]));
    if (!source.open(QIODevice::ReadOnly)) {
        std::cerr << "tesselo-guide-pdf: cannot read " << argv[1] << '\n';
        return 1;
    }
    Guide guide(QString::fromLocal8Bit(argv[2]));
    QFont body("DejaVu Sans");
    body.setPointSizeF(10.5);
    guide.setDefaultFont(body);
    guide.setDefaultStyleSheet("h1 { color: #1d2b44; } h2 { color: #2f6fd0; } h3 { color: #2f6fd0; } "
                               "code { font-family: 'DejaVu Sans Mono'; }");
    guide.setMarkdown(QString::fromUtf8(source.readAll()));
    guide.setMetaInformation(QTextDocument::DocumentTitle, guide_title);

    QPdfWriter pdf(QString::fromLocal8Bit(argv[3]));
    pdf.setTitle(guide_title);
    pdf.setCreator("tesselo");
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(20, 18, 20, 18), QPageLayout::Millimeter);
    // The guide is laid out at the screen's resolution, in pages of the
    // paper's printable area less a line for the page number, and drawn page
    // by page onto the paper at its own resolution.
    const qreal dpi = QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    const QRectF paper = pdf.pageLayout().paintRectPixels(pdf.resolution());
    const qreal scale = pdf.resolution() / dpi;
    const qreal footer = QFontMetricsF(body).height() * 2;
    const QSizeF page(paper.width() / scale, paper.height() / scale - footer);
    guide.size_pictures(page.width() - 2 * guide.documentMargin(), dpi);
    if (!guide.missing().empty()) {
        for (const QString& name : guide.missing())
            std::cerr << "tesselo-guide-pdf: no picture " << name.toStdString() << " in " << argv[2] << '\n';
        return 1;
    }
    guide.keep_pictures_whole(page);

    QPainter painter(&pdf);
    const int pages = guide.pageCount();
    for (int i = 0; i < pages; ++i) {
        if (i > 0) pdf.newPage();
        painter.save();
        painter.scale(scale, scale);
        painter.translate(0, -i * page.height());
        guide.drawContents(&painter, QRectF(QPointF(0, i * page.height()), page));
        painter.restore();
        // The page number, at the foot of the printable area.
        painter.setFont(body);
        painter.setPen(QColor(0x55, 0x5B, 0x67));
        painter.drawText(QRectF(0, paper.height() - footer * scale, paper.width(), footer * scale),
                         Qt::AlignRight | Qt::AlignBottom, QString::number(i + 1));
    }
    return 0;
}
