#pragma once

#include "figures/Comparison.h"
#include "pictures/ReportPicture.h"
#include "readers/ReportFigures.h"
#include "readers/ReportText.h"

namespace tallybrook {

/// A statistical report that is compared with others.
struct ComparedReport {
    QString name;  ///< the file's own name
    ReportFigures figures;
};

/// Statistical reports side by side, those of earlier events first.
class SeasonsSideBySide {
public:
    /// Takes two reports or more.
    explicit SeasonsSideBySide(std::vector<ComparedReport> reports);

    /// A text of its own, with a table of all that is compared, to be read, printed and searched.
    [[nodiscard]] QString text() const;
    [[nodiscard]] std::vector<ReportPicture> pictures() const;

private:
    std::vector<ComparedReport> reports_;
    Comparison comparison_;
};

/// Whether figures are those of a statistical report, which others can be compared with.
bool isStatistical(const ReportFigures& figures);

/// Whether all files can be read as statistical reports.
bool areStatistical(const QStringList& files);

/// Reads the reports in files. FileFailure where one of them cannot be read or is no statistical report.
SeasonsSideBySide readSeasons(const QStringList& files);

/// What a difference says in plain words, as in "24 of 40 against 15 of 38: more than chance would do".
QString chanceTold(const ComparedShare& share);

}  // namespace tallybrook
