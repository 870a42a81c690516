#pragma once

#include <random>
#include <string>
#include <vector>

namespace tallybrook::test {

// The handheld's export files as its desktop side leaves them.

/// A record of the event file.
struct EventLine {
    std::string recordId = "E000000001";
    std::string eventId = "101";
    std::string status = "0x0000";
    std::string name = "Thursday League";
    std::string date = "11/12/2026";
    std::string type = "League";
    std::string centerName = "Rolling Lanes";
    std::string centerLoc = "Springfield";
    std::string comment = {};
    std::string games = "3";
    std::string average = "180.33";
    std::string total = "541";

    [[nodiscard]] std::string text() const {
        return recordId + "," + status + "," + eventId + ",\"" + name + "\",\"" + date + "\",\"" + type +
               "\",\"" + centerName + "\",\"" + centerLoc + "\",\"" + comment + "\"," + games + "," +
               average + "," + total;
    }
};

/// A record of the game file.
struct GameLine {
    std::string recordId = "G000000001";
    std::string gameId = "201";
    std::string eventId = "101";
    std::string number = "1";
    std::string status = "0x0000";
    std::string score = "187";
    std::string unused = "0";
    std::string leftLane = "13";
    std::string rightLane = "14";
    std::string startLane = "13";
    std::string lanePair = "13-14";
    std::string scoreType = "P";
    std::string laneCond = "dry";
    std::string comment = {};

    [[nodiscard]] std::string text() const {
        return recordId + "," + status + "," + gameId + "," + eventId + "," + number + "," + score + "," +
               unused + "," + leftLane + "," + rightLane + "," + startLane + ",\"" + lanePair + "\",\"" +
               scoreType + "\",\"" + laneCond + "\",\"" + comment + "\"";
    }
};

/// A record of the frame file.
struct FrameLine {
    std::string recordId = "F000000001";
    std::string frameId = "301";
    std::string eventId = "101";
    std::string gameId = "201";
    std::string number = "1";
    std::string gameNumber = "1";
    std::string status = "0x0000";
    std::string lane = "13";
    std::string ball = "Blue";
    std::string foot = "20";
    std::string target = "10";
    std::string first = "X";
    std::string second = {};
    std::string fill = {};
    std::string lineScore = "X";
    std::string comment = {};

    [[nodiscard]] std::string text() const {
        return recordId + "," + status + "," + frameId + "," + eventId + "," + gameId + "," + number + "," +
               gameNumber + "," + lane + ",\"" + ball + "\",\"" + foot + "\",\"" + target + "\",\"" + first +
               "\",\"" + second + "\",\"" + fill + "\",\"" + lineScore + "\",\"" + comment + "\"";
    }
};

/// The header line that counts the records.
inline std::string countLine(int records) {
    return "# RECCNT=" + std::to_string(records);
}

using Lines = std::vector<std::string>;

/// The lines of the three export files.
struct Exports {
    Lines events;
    Lines games;
    Lines frames;
};

/// One event with one game of one frame.
inline Exports smallExports() {
    return {.events = {"# tblEvent", countLine(1), EventLine{}.text()},
            .games = {"# tblGame", countLine(1), GameLine{}.text()},
            .frames = {"# tblFrame", countLine(1), FrameLine{}.text()}};
}

/// Makes export files as years of bowling leave them, always the same ones from one seed: leagues with three
/// games of ten frames, some of them without frames or as line scores, some records deleted on the handheld.
class ExportMaker {
public:
    explicit ExportMaker(unsigned seed) : random_(seed) {}

    Exports make(int events) {
        Exports files;
        for (int event = 1; event <= events; ++event)
            addEvent(files, event);
        for (Lines* const lines : {&files.events, &files.games, &files.frames})
            lines->insert(lines->begin(),
                          {"# Tallybrook for the hand", countLine(static_cast<int>(lines->size()))});
        return files;
    }

private:
    int pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
    bool happensOnceIn(int times) { return pick(1, times) == 1; }
    const std::string& oneOf(const Lines& choice) {
        return choice[static_cast<std::size_t>(pick(0, static_cast<int>(choice.size()) - 1))];
    }
    static std::string recordId(char kind, int number) {
        const std::string digits = std::to_string(number);
        return kind + std::string(9 - digits.size(), '0') + digits;
    }
    std::string status() { return happensOnceIn(30) ? "0x0002" : happensOnceIn(4) ? "0x0001" : "0x0000"; }

    void addEvent(Exports& files, int number) {
        const int games = pick(1, 4);
        EventLine line{
            .recordId = recordId('E', number),
            .eventId = std::to_string(1000 + number),
            .status = status(),
            .name = oneOf({"Thursday League", "Bill's Open", "Practice, alone", "Z\u00fcrich Cup"}),
            .date = std::to_string(pick(1, 12)) + "/" + std::to_string(pick(1, 28)) + "/" +
                    std::to_string(pick(1998, 2026)),
            .type = oneOf({"LEAGUE", "League", "tournament", "PRACTICE"}),
            .comment = oneOf({"", "fresh oil", "left early, sore knee"}),
            .games = std::to_string(games)};
        int total = 0;
        for (int game = 1; game <= games; ++game)
            total += addGame(files, line.eventId, game);
        line.total = std::to_string(total);
        line.average = std::to_string(total / games) + oneOf({"", ".5", ".33"});
        files.events.push_back(line.text());
    }

    int addGame(Exports& files, const std::string& eventId, int number) {
        const int serial = ++games_;
        const int lane = 2 * pick(0, 15) + 1;
        const int score = pick(90, 279);
        const std::string pair = std::to_string(lane) + "-" + std::to_string(lane + 1);
        const std::string type = oneOf({"P", "P", "P", "L", "N"});
        files.games.push_back(GameLine{.recordId = recordId('G', serial),
                                       .gameId = std::to_string(50000 + serial),
                                       .eventId = eventId,
                                       .number = std::to_string(number),
                                       .status = status(),
                                       .score = std::to_string(score),
                                       .leftLane = std::to_string(lane),
                                       .rightLane = std::to_string(lane + 1),
                                       .startLane = std::to_string(lane + pick(0, 1)),
                                       .lanePair = pair,
                                       .scoreType = type,
                                       .laneCond = oneOf({"", "dry", "wet, then dry"})}
                                  .text());
        for (int frame = 1; type != "N" && frame <= 10; ++frame)
            addFrame(files, eventId, serial, number, lane, frame, type == "P");
        return score;
    }

    void addFrame(Exports& files, const std::string& eventId, int game, int gameNumber, int lane, int frame,
                  bool withPins) {
        struct Bowled {
            const char* first;
            const char* second;
            const char* lineScore;
        };
        static constexpr Bowled kWays[] = {{"X", "", "X"},
                                           {"10", "/", "9/"},
                                           {"7-10", "10", "81"},
                                           {"2-4-5", "/", "7/"},
                                           {"1-2-4-7", "7", "63"}};
        const Bowled& way = kWays[pick(0, 4)];
        files.frames.push_back(FrameLine{.recordId = recordId('F', ++frames_),
                                         .frameId = std::to_string(900000 + frames_),
                                         .eventId = eventId,
                                         .gameId = std::to_string(50000 + game),
                                         .number = std::to_string(frame),
                                         .gameNumber = std::to_string(gameNumber),
                                         .status = status(),
                                         .lane = std::to_string(lane + (frame + 1) % 2),
                                         .ball = oneOf({"Blue", "Red, 15 lb", ""}),
                                         .first = withPins ? way.first : "",
                                         .second = withPins ? way.second : "",
                                         .lineScore = way.lineScore}
                                   .text());
    }

    std::mt19937 random_;
    int games_ = 0;
    int frames_ = 0;
};

}  // namespace tallybrook::test
