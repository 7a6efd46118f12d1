#include "views/overview_printer.h"

#include <algorithm>

#include <QBuffer>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

#include "views/glyph_font.h"
#include "views/remote_picture.h"

namespace tesselo {

namespace {

// Sizes in points (1/72 inch).
constexpr qreal title_height = 30;
constexpr qreal heading_height = 26;
constexpr qreal foot_height = 18;
constexpr qreal line_height = 11;
constexpr qreal place_width = 190;  // the key column; the step rows stand to its right
constexpr qreal cell_gap = 16;      // between two displays of a row
constexpr qreal display_frame = 3;  // the display's dark frame around its glass
constexpr qreal caption_height = 24;

const QColor ink(0x1A, 0x1D, 0x22);
const QColor quiet(0x6B, 0x72, 0x7E);
const QColor rule_colour(0xC8, 0xCC, 0xD2);
const QColor chip_back(0xDD, 0xE8, 0xD2);

QFont text_font(qreal points, bool bold = false)
{
    QFont f("DejaVu Sans");
    f.setStyleHint(QFont::SansSerif);
    f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

qreal display_width() { return lcd_panel_size().width() + 2 * display_frame; }
qreal display_height() { return lcd_panel_size().height() + 2 * display_frame; }

// Lays the overview out on the sheets of a paged device, top to bottom.
class OverviewSheets {
public:
    OverviewSheets(QPagedPaintDevice& device, QPainter& painter, const QString& title)
        : device_(device), p_(painter), title_(title), unit_(device.logicalDpiY() / 72.0)
    {
        width_ = device.width() / unit_;
        height_ = device.height() / unit_;
        per_row_ = std::max(1, static_cast<int>((width_ + cell_gap) / (display_width() + cell_gap)));
    }

    void document_title()
    {
        text(0, y_, width_, title_height - 10, text_font(15, true), ink, "Overview of " + title_);
        rule(y_ + title_height - 8, 1.2, ink);
        y_ += title_height;
    }

    void section(const OverviewSection& s)
    {
        // A device is kept on one sheet where it fits; a longer one starts
        // on a fresh sheet and goes on over the next ones.
        if (section_height(s) > room() && y_ > sheet_top()) new_sheet();
        heading(s, false);
        const auto rows = (static_cast<int>(s.pages.size()) + per_row_ - 1) / per_row_;
        for (int r = 0; r < rows; ++r) {
            make_room(s, page_row_height());
            page_row(s, r * per_row_);
        }
        for (const OverviewKey& key : s.keys) {
            make_room(s, key_height(key));
            key_band(key);
        }
        y_ += line_height;
    }

    void finish() { foot(); }

private:
    qreal pt(qreal v) const { return v * unit_; }
    qreal full_room() const { return height_ - foot_height; }
    qreal room() const { return full_room() - y_; }
    // Where the first device of a sheet begins: below the title on the first.
    qreal sheet_top() const { return sheet_ == 1 ? title_height : 0; }

    qreal page_row_height() const { return display_height() + caption_height; }
    static qreal key_height(const OverviewKey& key)
    {
        return std::max<qreal>(2, static_cast<qreal>(key.steps.size())) * line_height + 6;
    }
    qreal section_height(const OverviewSection& s) const
    {
        const auto rows = (static_cast<int>(s.pages.size()) + per_row_ - 1) / per_row_;
        qreal h = heading_height + rows * page_row_height() + line_height;
        for (const OverviewKey& key : s.keys) h += key_height(key);
        return h;
    }

    void make_room(const OverviewSection& s, qreal needed)
    {
        if (needed <= room()) return;
        new_sheet();
        heading(s, true);
    }

    void new_sheet()
    {
        foot();
        device_.newPage();
        ++sheet_;
        y_ = 0;
    }

    void foot()
    {
        const qreal top = height_ - foot_height + 6;
        rule(top - 3, 0.5, rule_colour);
        text(0, top, width_ / 2, foot_height - 6, text_font(7), quiet, title_);
        text(width_ / 2, top, width_ / 2, foot_height - 6, text_font(7), quiet, "Page " + QString::number(sheet_),
             Qt::AlignRight);
    }

    void heading(const OverviewSection& s, bool continued)
    {
        QString name = QString::fromStdString(s.name);
        if (s.hidden) name += " (hidden)";
        if (continued) name += " (continued)";
        text(0, y_ + 4, width_, heading_height - 8, text_font(12, true), ink, name);
        rule(y_ + heading_height - 4, 0.8, ink);
        y_ += heading_height;
    }

    // One row of displays, from page `first` of the section.
    void page_row(const OverviewSection& s, int first)
    {
        const QSizeF panel = lcd_panel_size();
        for (int i = 0; i < per_row_ && first + i < static_cast<int>(s.pages.size()); ++i) {
            const OverviewPage& page = s.pages[static_cast<std::size_t>(first + i)];
            const qreal x = i * (display_width() + cell_gap);
            p_.save();
            p_.translate(pt(x), pt(y_ + 4));
            p_.scale(unit_, unit_);
            p_.setRenderHint(QPainter::Antialiasing);
            draw_display(p_, QRectF(QPointF(display_frame, display_frame), panel), page.rows);
            p_.restore();
            const qreal caption = y_ + 4 + display_height() + 3;
            text(x, caption, display_width(), line_height, text_font(7.5, true), ink,
                 QString::fromStdString(page.name) + "  " + QString::fromStdString(page.counter), Qt::AlignHCenter);
            if (page.hidden)
                text(x, caption + line_height - 2, display_width(), line_height, text_font(6.5), quiet, "(hidden)",
                     Qt::AlignHCenter);
        }
        y_ += page_row_height();
    }

    void key_band(const OverviewKey& key)
    {
        rule(y_, 0.4, rule_colour);
        const qreal top = y_ + 3;
        QString place = QString::fromStdString(key.place);
        if (!key.label_text.empty()) place += "  " + QString::fromStdString(key.label_text);
        text(0, top, place_width - 8, line_height, text_font(7.5, true), ink, place);
        if (key.glyphs > 0) {
            // The label as the remote shows it.
            const qreal chip_width = key.glyphs * glyph_advance + 3;
            const QRectF chip(0, top + line_height + 1, chip_width, glyph_height + 3);
            p_.save();
            p_.scale(unit_, unit_);
            p_.setPen(Qt::NoPen);
            p_.setBrush(chip_back);
            p_.drawRect(chip);
            draw_glyphs(p_, chip, key.label, key.glyphs, align_centre, ink, 1.0);
            p_.restore();
        }
        const QFont steps = text_font(7.5);
        const QFontMetricsF metrics(steps, &device_);
        const qreal room_for_row = pt(width_ - place_width);
        qreal y = top;
        for (const std::string& row : key.steps) {
            const QString shown = metrics.elidedText(QString::fromStdString(row), Qt::ElideRight, room_for_row);
            text(place_width, y, width_ - place_width, line_height, steps, ink, shown);
            y += line_height;
        }
        y_ += key_height(key);
    }

    void text(qreal x, qreal y, qreal w, qreal h, const QFont& font, const QColor& colour, const QString& words,
              Qt::Alignment align = Qt::AlignLeft)
    {
        p_.setFont(font);
        p_.setPen(colour);
        p_.drawText(QRectF(pt(x), pt(y), pt(w), pt(h)), static_cast<int>(align | Qt::AlignVCenter), words);
    }

    void rule(qreal y, qreal thickness, const QColor& colour)
    {
        p_.setPen(QPen(colour, pt(thickness)));
        p_.drawLine(QPointF(0, pt(y)), QPointF(pt(width_), pt(y)));
    }

    QPagedPaintDevice& device_;
    QPainter& p_;
    QString title_;
    qreal unit_;  // device pixels to a point
    qreal width_ = 0, height_ = 0;
    int per_row_ = 1;
    int sheet_ = 1;
    qreal y_ = 0;
};

}  // namespace

bool paint_overview(QPagedPaintDevice& device, const std::vector<OverviewSection>& sections, const QString& title)
{
    QPainter painter;
    if (!painter.begin(&device)) return false;
    OverviewSheets sheets(device, painter, title);
    sheets.document_title();
    for (const OverviewSection& section : sections) sheets.section(section);
    sheets.finish();
    return painter.end();
}

QByteArray overview_pdf(const std::vector<OverviewSection>& sections, const QString& title)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        pdf.setResolution(300);
        pdf.setTitle("Overview of " + title);
        pdf.setCreator("Tesselo");
        if (!paint_overview(pdf, sections, title)) return {};
    }
    return buffer.data();
}

}  // namespace tesselo
