#pragma once

#include "figures/Comparison.h"
#include "pictures/ReportPicture.h"

// The pictures of seasons side by side.
namespace tallybrook {

/// The averages of seasons as bars; `names` has the seasons' own.
ReportPicture averagesPicture(const std::vector<PinsOverGames>& totals, const QStringList& names);

/// One thing in all seasons.
struct SharesRow {
    QString name;
    QString change;
    QString words;  ///< what the change says
    std::vector<Proportion> seasons;
};

/// What a picture of shares shows.
struct SharesShown {
    QString heading;
    std::vector<SharesRow> rows;
    QStringList names;  ///< of the seasons
};

/// A mark for each season's share between 0 and 100 percent, on a line for where chance alone may put it.
ReportPicture sharesPicture(const SharesShown& shown, const QString& summary, const PictureTable& table);

}  // namespace tallybrook
