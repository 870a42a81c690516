#include "figures/Trend.h"
#include "pictures/Pictures.h"
#include "pictures/SeasonsSideBySide.h"
#include "readers/FileFailure.h"
#include "readers/ReportText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iostream>
#include <string>

// Tells what the viewer's pictures show, for others to count again. Each line of the standard input names a
// report, or several between tabs that are to stand side by side; each line of the output is what is told of
// it, as JSON.
namespace tallybrook::test {

namespace {

QJsonArray toldOf(const PictureTable& table) {
    QJsonArray rows;
    for (const QStringList& row : table.rows)
        rows.append(QJsonArray::fromStringList(row));
    return rows;
}

/// A picture by its name: its words, and its table for each of its choices.
QJsonObject toldOf(const std::vector<ReportPicture>& pictures) {
    QJsonObject told;
    for (const ReportPicture& picture : pictures) {
        QJsonArray tables;
        for (int choice = 0; choice < std::max(static_cast<int>(picture.choices.size()), 1); ++choice)
            tables.append(picture.table ? toldOf(picture.table({0, 1, choice})) : QJsonArray());
        told[picture.name] = QJsonObject{{"summary", picture.summary},
                                         {"choices", QJsonArray::fromStringList(picture.choices)},
                                         {"tables", tables}};
    }
    return told;
}

/// The bounds between the shades of the calendar.
QJsonArray boundsOf(const BowledEvents& events) {
    constexpr std::size_t kShades = 5;
    QJsonArray bounds;
    for (const double bound : classBounds(nightsOf(events), kShades))
        bounds.append(bound);
    return bounds;
}

QJsonObject told(const QStringList& files) {
    if (files.size() > 1) {
        const SeasonsSideBySide seasons = readSeasons(files);
        return {{"text", seasons.text()}, {"pictures", toldOf(seasons.pictures())}};
    }
    const ReportFigures figures = readFigures(readReport(files.first()).text);
    return {{"pictures", toldOf(picturesOf(figures))}, {"bounds", boundsOf(figures.events.bowled)}};
}

}  // namespace

}  // namespace tallybrook::test

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        try {
            const auto told = tallybrook::test::told(QString::fromStdString(line).split('\t'));
            std::cout << QJsonDocument(told).toJson(QJsonDocument::Compact).toStdString() << std::endl;
        } catch (const tallybrook::FileFailure& failure) {
            std::cerr << line << ": " << failure.reason().toStdString() << '\n';
            return 1;
        }
    }
    return 0;
}
