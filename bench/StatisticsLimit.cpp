#include "StatisticsLimit.h"

#include "Session.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

namespace tallybrook::bench {

namespace {

struct Event {
    std::string date;  // as it is printed
    int games = 0;
    int total = 0;
};

struct Bin {
    const char* label;
    int first;
    int last;
    int games = 0;
};

struct Series {
    int high = -1;
    std::string highDate = {};
    int low = 0;
    std::string lowDate = {};
};

struct Spares {
    std::string leave;
    int attempts = 0;
    int conversions = 0;
};

/// "2026-05-31" as 5/31/2026.
std::string printedDate(std::string_view stored) {
    const auto number = [&](std::size_t at) { return (stored[at] - '0') * 10 + (stored[at + 1] - '0'); };
    return fmt::format("{}/{}/{}", number(5), number(8), stored.substr(0, 4));
}

int digitOf(char mark) {
    return mark >= '0' && mark <= '9' ? mark - '0' : 0;
}

double percentage(int part, int whole) {
    return whole > 0 ? readFormatted(formatNumber(static_cast<double>(part) / whole * 100, 1)) : 0;
}

int perGame(int count, int games) {
    return games == 0 ? 0 : static_cast<int>(std::nearbyint(static_cast<double>(count) / games));
}

class Statistics {
public:
    explicit Statistics(PlainDatabase& logbook) : logbook_(logbook) {}

    std::string report() {
        readEvents();
        readGames();
        readFrames();
        writeHeader();
        text_ += listing_;
        writeGames();
        writeSeries();
        writeSpares();
        return std::move(text_);
    }

private:
    template <typename... Values>
    void print(fmt::format_string<Values...> format, Values&&... values) {
        fmt::format_to(std::back_inserter(text_), format, std::forward<Values>(values)...);
        text_ += "\r\n";
    }

    void readEvents() {
        PlainStatement rows(logbook_,
                            "SELECT fldSessionNum, fldEventName, fldDateBowled, fldEventType, fldNumGames, "
                            "fldSeriesTot, fldSeriesAvg, fldComment FROM tblEventInfo");
        while (rows.step()) {
            const auto key = static_cast<std::size_t>(rows.number(0));
            events_.resize(std::max(events_.size(), key + 1));
            events_[key] = {
                .date = printedDate(rows.text(2)), .games = rows.number(4), .total = rows.number(5)};
            fmt::format_to(std::back_inserter(listing_),
                           "Event: {}\t\tDate Bowled: {}\r\nEvent Type: {}\r\n"
                           "Games Bowled: {}\t\tPinfall: {}\tEvent Average: {}\r\nComment: {}\r\n\r\n",
                           rows.text(1), events_[key].date, rows.text(3), rows.number(4), rows.number(5),
                           rows.real(6), rows.text(7));
            ++eventCount_;
            plannedGames_ += rows.number(4);
            pinfall_ += rows.number(5);
            countSeries(events_[key]);
        }
        firstGame_.resize(events_.size());
    }

    void countSeries(const Event& event) {
        const auto games = static_cast<std::size_t>(event.games);
        while (series_.size() <= games)
            series_.push_back({.low = static_cast<int>(series_.size()) * 300 + 1});
        Series& row = series_[games];
        if (event.total > row.high) {
            row.high = event.total;
            row.highDate = event.date;
        }
        if (event.total < row.low) {
            row.low = event.total;
            row.lowDate = event.date;
        }
    }

    void readGames() {
        PlainStatement rows(logbook_,
                            "SELECT fldSessionNum, fldGameNum, fldGameScore, fldScoreType FROM tblGameInfo");
        while (rows.step()) {
            const auto key = static_cast<std::size_t>(rows.number(0));
            if (rows.number(1) == 1)
                firstGame_[key] = types_.size();
            const char type = rows.text(3)[0];
            types_.push_back(type);
            ++(type == 'P' ? pinfallGames_ : type == 'L' ? lineScoreGames_ : scoreOnlyGames_);
            countGame(rows.number(2), events_[key].date);
        }
    }

    void countGame(int score, const std::string& date) {
        if (score > highGame_) {
            highGame_ = score;
            highGameDate_ = date;
        } else if (score < lowGame_) {
            lowGame_ = score;
            lowGameDate_ = date;
        }
        for (Bin& bin : bins_) {
            if (score >= bin.first && score <= bin.last)
                ++bin.games;
        }
    }

    void readFrames() {
        PlainStatement rows(
            logbook_,
            "SELECT fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes, fldSecondBallRes, "
            "fldFillBallRes, fldLineScore FROM tblFrameInfo");
        while (rows.step()) {
            const std::size_t game = firstGame_[static_cast<std::size_t>(rows.number(0))] +
                                     static_cast<std::size_t>(rows.number(1)) - 1;
            const bool isPinfall = types_[game] == 'P';
            if (rows.number(2) < 10)
                countFrame(rows.text(3), rows.text(4), rows.text(6), isPinfall);
            else
                countTenth(rows.text(3), rows.text(4), rows.text(5), rows.text(6), isPinfall);
        }
    }

    void countFrame(std::string_view first, std::string_view second, std::string_view marks, bool isPinfall) {
        ++racks_;
        ++firstBalls_;
        if (first == "X") {
            ++strikes_;
            pins_ += 10;
            return;
        }
        ++chances_;
        ++(second == "/" ? spares_ : open_);
        const bool converted = marks.size() > 1 && marks[1] == '/';
        pins_ += digitOf(marks[0]);
        if (marks[0] == '9') {
            ++singlePins_;
            singlePinsConverted_ += converted ? 1 : 0;
        }
        countLeave(first, converted, isPinfall);
    }

    void countTenth(std::string_view first, std::string_view second, std::string_view fill,
                    std::string_view marks, bool isPinfall) {
        if (marks == "XXX")
            return countStrikes(3, 3, 30);
        if (first == "X" && second == "X")
            return countStrikes(3, 2, 20 + digitOf(marks[2]));
        if (first == "X" && fill == "/") {
            countStrikes(2, 1, 10 + digitOf(marks[1]));
            countSpare();
            return countLeave(second, true, isPinfall);
        }
        if (first != "X" && second == "/") {
            countStrikes(2, fill == "X" ? 1 : 0, digitOf(marks[0]) + (fill == "X" ? 10 : digitOf(marks[2])));
            countSpare();
            return countLeave(first, true, isPinfall);
        }
        if (first != "X") {
            ++racks_;
            ++chances_;
            ++open_;
        }
    }

    void countStrikes(int balls, int strikes, int pins) {
        racks_ += balls;
        firstBalls_ += balls;
        strikes_ += strikes;
        pins_ += pins;
    }

    void countSpare() {
        ++chances_;
        ++spares_;
    }

    void countLeave(std::string_view leave, bool converted, bool isPinfall) {
        if (!isPinfall)
            return;
        const auto [place, isNew] = places_.try_emplace(std::string(leave), matrix_.size());
        if (isNew)
            matrix_.push_back({.leave = std::string(leave)});
        Spares& row = matrix_[place->second];
        ++row.attempts;
        row.conversions += converted ? 1 : 0;
    }

    void writeHeader() {
        const double average = readFormatted(formatNumber(static_cast<double>(pinfall_) / plannedGames_, 2));
        print("{:23}Tallybrook 2.0\r\n{:23}Statistical Report\r\n\r\nReport Date: {}, {}", "", "",
              shortDate(kNow), timeText(kNow));
        print("Report Type: All Events\r\n\r\nFound {} matching events.", eventCount_);
        print(
            "\r\nScoring Mode Summary: \r\nPinfall Mode: {} games,   Line Score: {} games,   "
            "Game Score only: {} games.",
            pinfallGames_, lineScoreGames_, scoreOnlyGames_);
        print("\r\nEvent Summary\r\n-------------\r\nTotal Games: {}\t\tTotal Pinfall: {}\tAverage: {}",
              plannedGames_, pinfall_, doubleText(average));
        print("\r\nEvent Listing ({} events found):\r\n{:->59}", eventCount_, "");
    }

    void writeGames() {
        print("Game Statistics\r\n---------------");
        for (const Bin& bin : bins_)
            print("{}{}", bin.label, bin.games);
        print("\r\nHigh Game: {}\tDate Bowled: {}", highGame_, highGameDate_);
        print("Low Game: {}\tDate Bowled: {}", lowGame_, lowGameDate_);
    }

    void writeSeries() {
        print("\r\nSeries Summary\r\n--------------");
        for (std::size_t games = 1; games < series_.size(); ++games) {
            const Series& row = series_[games];
            if (row.high <= -1)
                continue;
            print("High Series ({} games): {}\r\nDate Bowled: {}", games, row.high, row.highDate);
            print("Low Series ({} games): {}\r\nDate Bowled: {}", games, row.low, row.lowDate);
        }
    }

    void writeSpares() {
        const int games = pinfallGames_ + lineScoreGames_;
        print("\r\nStrike / Spare Summary Statistics\r\n---------------------------------");
        print("(Based on {} games recorded in 'Pinfall' mode, {} games recorded in 'Line Score' mode)",
              pinfallGames_, lineScoreGames_);
        print("\r\nStrikes: {}\tStrike Percentage: {}%\tAvg / Game: {}", strikes_,
              doubleText(percentage(strikes_, racks_)), perGame(strikes_, games));
        print("\r\nSpares: {}\tSpare Percentage: {}%\t\tAvg / Game: {}", spares_,
              doubleText(percentage(spares_, chances_)), perGame(strikes_, games));
        print("\r\nOpen Frames: {}\tAvg / Game: {}", open_, perGame(open_, games));
        print("\r\nSingle Pin Spares\r\n-----------------");
        print("Attempts: {}\t\tConversions: {}\tPercentage: {}%\tAvg / game: {}", singlePins_,
              singlePinsConverted_, doubleText(percentage(singlePinsConverted_, singlePins_)),
              perGame(singlePins_, games));
        print("\r\nFirst Ball Average: {}", perGame(pins_, firstBalls_));
        print("\r\nSpare Statistics (based on {} games in 'Pinfall' mode):\r\n{:->75}", pinfallGames_, "");
        print("\r\n{:5}\t\t\t{:8}\t{:11}\tConversion", "", "", "");
        print("Spare\t\t\tAttempts\tConversions\tPercentage\tAvg / Game");
        print("-----\t\t\t--------\t-----------\t----------\t----------");
        for (const Spares& row : matrix_)
            print("{:24} {:<16}  {:<15} {}%\t{}", row.leave, row.attempts, row.conversions,
                  formatNumber(100.0 * row.conversions / row.attempts, 2),
                  formatNumber(static_cast<double>(row.attempts) / pinfallGames_, 1));
    }

    PlainDatabase& logbook_;
    std::string text_;
    std::string listing_;
    std::vector<Event> events_;           // by their keys
    std::vector<std::size_t> firstGame_;  // of each event, an index of types_
    std::vector<char> types_;
    int eventCount_ = 0;
    int plannedGames_ = 0;
    int pinfall_ = 0;
    int pinfallGames_ = 0;
    int lineScoreGames_ = 0;
    int scoreOnlyGames_ = 0;
    int highGame_ = 0;
    int lowGame_ = 301;
    std::string highGameDate_;
    std::string lowGameDate_;
    std::vector<Series> series_;
    int racks_ = 0;  // on which a strike was possible
    int strikes_ = 0;
    int chances_ = 0;  // of a spare
    int spares_ = 0;
    int open_ = 0;
    int singlePins_ = 0;
    int singlePinsConverted_ = 0;
    int firstBalls_ = 0;
    int pins_ = 0;
    std::vector<Spares> matrix_;
    std::unordered_map<std::string, std::size_t> places_;
    std::array<Bin, 14> bins_{{{"Games under 100: ", 0, 99},
                               {"100 - 119: ", 100, 119},
                               {"120 - 139: ", 120, 139},
                               {"140 - 159: ", 140, 159},
                               {"160 - 179: ", 160, 179},
                               {"180 - 199: ", 180, 199},
                               {"200 - 219: ", 200, 219},
                               {"220 - 239: ", 220, 239},
                               {"240 - 259: ", 240, 259},
                               {"260 - 279: ", 260, 279},
                               {"280 - 297: ", 1, 0},
                               {"298 Games: ", 298, 298},
                               {"299 Games: ", 299, 299},
                               {"300 Games: ", 300, 300}}};
};

}  // namespace

void writeStatistics(PlainDatabase& logbook, const std::filesystem::path& file) {
    const std::string report = Statistics(logbook).report();
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "wb"), std::fclose);
    if (!stream || std::fwrite(report.data(), 1, report.size(), stream.get()) != report.size())
        throw std::runtime_error("cannot write " + file.string());
}

}  // namespace tallybrook::bench
