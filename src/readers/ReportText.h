#pragma once

#include <QString>
#include <string_view>

namespace tallybrook {

/// Files beyond this many bytes are refused: no report is that long, and the toolkit would need many times
/// the memory.
constexpr qint64 kLargestReport = qint64{256} * 1024 * 1024;

/// A line is continued on the next one after so many characters, since the toolkit takes endless time over a
/// line without end. No report has such lines, other files may.
constexpr qsizetype kLongestLine = 10'000;

/// A tab leads to the next multiple of so many columns.
constexpr int kTabWidth = 8;

/// A report in memory.
struct ReportText {
    QString file;
    QString text;

    /// The file's own name, without its folders.
    [[nodiscard]] QString name() const;
};

/// The text of a report's bytes: UTF-8 where they are valid UTF-8 as a whole, Windows-1252 otherwise, without
/// a byte order mark. Every line end, CR LF, LF or CR, is a "\n"; a character that cannot be shown is U+FFFD.
QString textOf(std::string_view bytes);

/// Reads a report. FileFailure where it is missing, a folder, too large, no text or cannot be
/// read.
ReportText readReport(const QString& file);

}  // namespace tallybrook
