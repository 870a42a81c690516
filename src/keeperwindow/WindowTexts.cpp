#include "keeperwindow/WindowTexts.h"

#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

namespace tallybrook::keeper {

namespace {

QDateTime dateTimeOf(DateTime time) {
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(time)};
    const auto seconds = (time - std::chrono::floor<std::chrono::days>(time)).count();
    return {QDate(int{day.year()}, static_cast<int>(unsigned{day.month()}),
                  static_cast<int>(unsigned{day.day()})),
            QTime(0, 0).addSecs(static_cast<int>(seconds))};
}

}  // namespace

QString shown(const std::string& text) {
    return QString::fromStdString(text).replace("\r\n", "\n");
}

QString inRow(const std::string& text) {
    constexpr std::size_t kMostSeen = 2000;  // characters
    return shown(std::string(firstCharacters(text, kMostSeen)));
}

QString momentText(DateTime time) {
    return QLocale(QLocale::English, QLocale::UnitedStates)
        .toString(dateTimeOf(time), "dddd, MMMM d, yyyy, h:mm AP");
}

QString contentsText(const BackupEntry& entry) {
    QStringList parts;
    if (entry.summary) {
        const Counts& counts = entry.summary->counts;
        parts << shown(
            inWords(Counts{.events = counts.events, .games = counts.games, .frames = counts.frames}));
        if (entry.summary->lastNight)
            parts << "last night bowled " + shown(shortDate(*entry.summary->lastNight));
    }
    parts << QLocale(QLocale::English)
                 .formattedDataSize(static_cast<qint64>(entry.size), 1, QLocale::DataSizeSIFormat);
    return parts.join(" \u00b7 ");
}

QString sentence(const std::string& text) {
    QString written = shown(text);
    return written.isEmpty() ? written : written.at(0).toUpper() + written.mid(1) + ".";
}

}  // namespace tallybrook::keeper
