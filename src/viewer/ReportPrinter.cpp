#include "viewer/ReportPrinter.h"

#include "viewer/Device.h"
#include "viewer/FileFailure.h"
#include "viewer/Pages.h"
#include "viewer/PicturePages.h"
#include "viewer/ReportView.h"

#include <QGuiApplication>
#include <QPageRanges>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr double kHeaderSize = 9;  // points

QFont sized(QFont font, double points) {
    font.setPointSizeF(points);
    return font;
}

/// One report on one device.
class PageDrawer {
public:
    PageDrawer(const ReportText& report, const std::vector<ReportPicture>& pictures,
               QPagedPaintDevice& device)
        : report_(report),
          device_(device),
          headerFont_(sized(QGuiApplication::font(), kHeaderSize)),
          headerHeight_(2.2 * QFontMetricsF(headerFont_, &device_).height()),
          pictures_(pictures, headerFont_, device_, {device.width() + 0.0, device.height() - headerHeight_}) {
        const double atUsual =
            QFontMetricsF(sized(reportFont(), kUsualPrint), &device).horizontalAdvance(' ');
        const PrintSize size =
            printSizeFor(widestLine(report.text), device.width() / (atUsual / kUsualPrint));
        font_ = sized(reportFont(), size.points);
        rowHeight_ = QFontMetricsF(font_, &device).lineSpacing();
        const int rowsOfPage = std::max(static_cast<int>((device.height() - headerHeight_) / rowHeight_), 1);
        pages_ = paginated(printedRows(report.text, size.columns), rowsOfPage);
    }

    bool draw() {
        QPainter painter;
        if (!painter.begin(&device_))
            return false;
        bool isFirst = true;
        for (int number = 1; number <= count(); ++number) {
            if (!isWanted(number))
                continue;
            if (!isFirst && !device_.newPage())
                return false;
            isFirst = false;
            drawHeader(painter, number);
            drawPage(painter, static_cast<std::size_t>(number - 1));
        }
        return painter.end();
    }

private:
    [[nodiscard]] int count() const { return static_cast<int>(pages_.size() + pictures_.count()); }
    [[nodiscard]] bool isWanted(int number) const {
        const QPageRanges ranges = device_.pageRanges();
        return ranges.isEmpty() || ranges.contains(number);
    }

    void drawHeader(QPainter& painter, int number) const {
        painter.setFont(headerFont_);
        const QFontMetricsF metrics(headerFont_, &device_);
        const QString page = QString("Page %1 of %2").arg(number).arg(count());
        const double room = device_.width() - metrics.horizontalAdvance(page) - metrics.height();
        const QString name = metrics.elidedText(report_.name(), Qt::ElideMiddle, room);
        const QRectF line(0, 0, device_.width(), metrics.height());
        painter.drawText(line, Qt::AlignLeft | Qt::TextSingleLine, name);
        painter.drawText(line, Qt::AlignRight | Qt::TextSingleLine, page);
        painter.setPen(QPen(Qt::black, metrics.lineWidth()));
        painter.drawLine(QPointF(0, line.bottom() * 1.25), QPointF(device_.width(), line.bottom() * 1.25));
    }

    void drawPage(QPainter& painter, std::size_t index) const {
        if (index < pages_.size()) {
            drawRows(painter, pages_[index]);
            return;
        }
        painter.translate(0, headerHeight_);
        pictures_.draw(painter, index - pages_.size());
        painter.translate(0, -headerHeight_);
    }

    void drawRows(QPainter& painter, const QStringList& rows) const {
        painter.setFont(font_);
        double baseline = headerHeight_ + QFontMetricsF(font_, &device_).ascent();
        for (const QString& row : rows) {
            painter.drawText(QPointF(0, baseline), row);
            baseline += rowHeight_;
        }
    }

    const ReportText& report_;
    QPagedPaintDevice& device_;
    QFont headerFont_;
    double headerHeight_;
    PicturePages pictures_;
    QFont font_;
    double rowHeight_;
    std::vector<QStringList> pages_;
};

}  // namespace

bool drawPages(const ReportText& report, const std::vector<ReportPicture>& pictures,
               QPagedPaintDevice& device) {
    return PageDrawer(report, pictures, device).draw();
}

void writePdf(const ReportText& report, const std::vector<ReportPicture>& pictures, const QPageSize& paper,
              const QString& file) {
    refuseDevice(QFileInfo(file));
    QSaveFile stream(file);
    if (!stream.open(QIODevice::WriteOnly))
        throw FileFailure(stream.errorString() + ".");
    QPdfWriter writer(&stream);
    writer.setTitle(report.name());
    writer.setCreator("Tallybrook");
    writer.setPageSize(paper);
    writer.setPageMargins(kPageMargins, QPageLayout::Millimeter);
    if (!drawPages(report, pictures, writer) || !stream.commit())
        throw FileFailure(stream.errorString() + ".");
}

}  // namespace tallybrook
