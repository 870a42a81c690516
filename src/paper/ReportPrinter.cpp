#include "paper/ReportPrinter.h"

#include "paper/Pages.h"
#include "paper/PdfOutline.h"
#include "paper/PicturePages.h"
#include "paper/WholeFile.h"
#include "readers/FileFailure.h"
#include "readers/ReportHead.h"
#include "style/ReportFont.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPageRanges>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr double kHeaderSize = 9;  // points

QFont sized(QFont font, double points) {
    font.setPointSizeF(points);
    return font;
}

/// The text of a report laid out on the pages of a device.
class TextPages {
public:
    TextPages(const QString& text, const QPagedPaintDevice& device, double height) {
        const double atUsual =
            QFontMetricsF(sized(reportFont(), kUsualPrint), &device).horizontalAdvance(' ');
        const PrintSize size = printSizeFor(widestLine(text), device.width() / (atUsual / kUsualPrint));
        font_ = sized(reportFont(), size.points);
        const QFontMetricsF metrics(font_, &device);
        rowHeight_ = metrics.lineSpacing();
        ascent_ = metrics.ascent();
        const int rowsOfPage = std::max(static_cast<int>(height / rowHeight_), 1);
        pages_ = paginated(printedBlocks(text, size.columns), rowsOfPage);
    }

    [[nodiscard]] std::size_t count() const { return pages_.size(); }
    [[nodiscard]] Sections sections() const { return sectionsOf(pages_); }
    /// What the last page takes of its height.
    [[nodiscard]] double endOfLast() const { return static_cast<double>(pages_.back().size()) * rowHeight_; }
    void draw(QPainter& painter, std::size_t page) const {
        painter.setFont(font_);
        painter.setPen(Qt::black);
        double baseline = ascent_;
        for (const QString& row : pages_[page]) {
            painter.drawText(QPointF(0, baseline), row);
            baseline += rowHeight_;
        }
    }

private:
    QFont font_;
    double rowHeight_;
    double ascent_;
    std::vector<QStringList> pages_;
};

/// One report on one device.
class PageDrawer {
public:
    PageDrawer(const ReportText& report, const std::vector<ReportPicture>& pictures,
               QPagedPaintDevice& device)
        : name_(report.name()),
          head_(headOf(report)),
          device_(device),
          headFont_(sized(QGuiApplication::font(), kHeaderSize)),
          headHeight_(2.2 * QFontMetricsF(headFont_, &device_).height()),
          text_(report.text, device_, bodyHeight()),
          pictures_(pictures, headFont_, device_, roomForPictures()) {}

    std::optional<Sections> draw() {
        QPainter painter;
        if (!painter.begin(&device_))
            return std::nullopt;
        bool isFirst = true;
        for (int number = 1; number <= count(); ++number) {
            if (!isWanted(number))
                continue;
            if (!isFirst && !device_.newPage())
                return std::nullopt;
            isFirst = false;
            drawHead(painter);
            drawFoot(painter, number);
            drawBody(painter, static_cast<std::size_t>(number - 1));
        }
        return painter.end() ? std::optional(sections()) : std::nullopt;
    }

private:
    [[nodiscard]] double bodyHeight() const { return device_.height() - 2 * headHeight_; }
    [[nodiscard]] PictureRoom roomForPictures() const {
        const double gap = 2 * QFontMetricsF(headFont_, &device_).height();
        return {{device_.width() + 0.0, bodyHeight()}, text_.endOfLast() + gap};
    }
    /// The page on which pictures begin, from 0.
    [[nodiscard]] std::size_t firstOfPictures() const { return text_.count() - 1; }
    [[nodiscard]] int count() const {
        return static_cast<int>(std::max(text_.count(), firstOfPictures() + pictures_.count()));
    }
    [[nodiscard]] bool isWanted(int number) const {
        const QPageRanges ranges = device_.pageRanges();
        return ranges.isEmpty() || ranges.contains(number);
    }
    [[nodiscard]] Sections sections() const {
        Sections all = text_.sections();
        for (const SectionPlace& section : pictures_.sections())
            all.push_back({section.name, section.page + static_cast<int>(firstOfPictures())});
        return all;
    }

    /// A line of the head or the foot: something at its left, and something at its right.
    void drawLine(QPainter& painter, double top, const QString& left, const QString& right) const {
        painter.setFont(headFont_);
        painter.setPen(Qt::black);
        const QFontMetricsF metrics(headFont_, &device_);
        const double room = device_.width() - metrics.horizontalAdvance(right) - metrics.height();
        const QRectF line(0, top, device_.width(), metrics.height());
        painter.drawText(line, Qt::AlignLeft | Qt::TextSingleLine,
                         metrics.elidedText(left, Qt::ElideMiddle, room));
        painter.drawText(line, Qt::AlignRight | Qt::TextSingleLine, right);
    }
    void drawRule(QPainter& painter, double height) const {
        painter.setPen(QPen(Qt::black, QFontMetricsF(headFont_, &device_).lineWidth()));
        painter.drawLine(QPointF(0, height), QPointF(device_.width(), height));
    }
    void drawHead(QPainter& painter) const {
        drawLine(painter, 0, head_.title, head_.date);
        drawRule(painter, 0.57 * headHeight_);
    }
    void drawFoot(QPainter& painter, int number) const {
        const double height = QFontMetricsF(headFont_, &device_).height();
        drawLine(painter, device_.height() - height, name_,
                 QString("Page %1 of %2").arg(number).arg(count()));
        drawRule(painter, device_.height() - 0.57 * headHeight_);
    }
    void drawBody(QPainter& painter, std::size_t page) const {
        painter.save();
        painter.translate(0, headHeight_);
        if (page < text_.count())
            text_.draw(painter, page);
        if (page >= firstOfPictures() && page - firstOfPictures() < pictures_.count())
            pictures_.draw(painter, page - firstOfPictures());
        painter.restore();
    }

    QString name_;
    ReportHead head_;
    QPagedPaintDevice& device_;
    QFont headFont_;
    double headHeight_;
    TextPages text_;
    PicturePages pictures_;
};

}  // namespace

std::optional<Sections> drawPages(const ReportText& report, const std::vector<ReportPicture>& pictures,
                                  QPagedPaintDevice& device) {
    return PageDrawer(report, pictures, device).draw();
}

void writePdf(const ReportText& report, const std::vector<ReportPicture>& pictures, const QPageSize& paper,
              const QString& file) {
    QBuffer drawn;
    drawn.open(QIODevice::WriteOnly);
    QPdfWriter writer(&drawn);
    writer.setTitle(headOf(report).title);
    writer.setCreator("Tallybrook");
    writer.setPageSize(paper);
    writer.setPageMargins(kPageMargins, QPageLayout::Millimeter);
    const std::optional<Sections> sections = drawPages(report, pictures, writer);
    if (!sections)
        throw FileFailure("The pages cannot be drawn.");
    writeWhole(file, withOutline(drawn.data(), *sections));
}

}  // namespace tallybrook
