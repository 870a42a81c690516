#include "readers/ReportHead.h"

#include "readers/ReportLines.h"

#include <QList>
#include <array>

namespace tallybrook {

namespace {

/// A line that tells the kind of a report, and the label of what it is on.
struct KindOfReport {
    QStringView line;
    QStringView label;
    const char* title;
};

constexpr std::array<KindOfReport, 3> kKindsOfReport{{
    {u"Event Report - ", u"Event:", "Event Report"},
    {u"Statistical Report", u"Report Type:", "Statistical Report"},
    {u"Event Information", u"Event Name:", "Game Report"},
}};

QString titleIn(const ReportLines& lines) {
    for (const QStringView line : lines) {
        for (const KindOfReport& kind : kKindsOfReport) {
            if (!line.trimmed().startsWith(kind.line))
                continue;
            const QString subject = lines.field(kind.label).value_or(QStringView()).toString();
            return subject.isEmpty() ? QString(kind.title) : QString(kind.title) + " - " + subject;
        }
    }
    return {};
}

}  // namespace

ReportHead headOf(const ReportText& report) {
    constexpr qsizetype kLinesOfHead = 10;
    const QString head = report.text.section('\n', 0, kLinesOfHead - 1);
    const QList<QStringView> parts = QStringView(head).split('\n');
    const ReportLines lines{{parts.data(), static_cast<std::size_t>(parts.size())}};
    const QString title = titleIn(lines);
    if (title.isEmpty())
        return {report.name(), {}};
    return {title, lines.field(u"Report Date:").value_or(QStringView()).toString()};
}

}  // namespace tallybrook
