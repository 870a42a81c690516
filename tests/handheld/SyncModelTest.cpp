#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"
#include "handheld/ExportFiles.h"
#include "handheld/SyncModel.h"
#include "store/Recordset.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kNames{"tblEvent", "tblGame", "tblFrame"};

/// The program itself, over the same files.
class RealSync {
public:
    RealSync(const std::map<std::string, std::string>& files, bool deletes,
             const std::vector<bool>& takeDuplicates)
        : display_([this, deletes, takeDuplicates](const MessageBox& box) {
              return answerTo(box, deletes, takeDuplicates);
          }),
          application_(display_, clock_, folder_.path() / "data") {
        application_.start();
        program().session.gHHType = "PPC";
        program().session.gHHSyncDir = "anywhere";
        for (const auto& [name, bytes] : files)
            std::ofstream(working() / (name + ".cdb"), std::ios::binary) << bytes;
    }

    void run() {
        program().perform([&] { program().screens.load("frmSyncPDA"); });
        display_.boxes.clear();
        program().perform([&] { person::click(*program().screens.find("frmSyncPDA")->find("cmdAddPDA")); });
    }

    /// The boxes of the readers and the last one, as the model tells them.
    [[nodiscard]] std::vector<std::string> boxes() const {
        std::vector<std::string> told;
        for (const MessageBox& box : display_.boxes) {
            const std::size_t module = box.text.find("Module: Sync PDA, ");
            if (box.title == "Database Error" && module != std::string::npos) {
                const std::string number = box.text.substr(14, box.text.find('\r') - 14);
                const std::string procedure = box.text.substr(module + 18);
                told.push_back(number + " " + procedure.substr(0, procedure.size() - 1));
            } else if (box.title == "Sync Complete") {
                told.push_back(box.text.starts_with("Sync is") ? box.title : box.text);
            } else if (box.title == "Duplicate Record ID") {
                told.push_back(box.text);
            }
        }
        return told;
    }
    /// The run's log from the reading of the events on.
    [[nodiscard]] std::string runLog() const {
        const std::string log = bytesOf(working() / "PDA DB Archive" / "PDA_SyncLog-11-14-2026-2155.txt");
        const std::size_t start = log.find("11/14/2026 9:55:00 PM: Reading events\r\n");
        return start == std::string::npos ? "" : log.substr(start);
    }
    [[nodiscard]] std::string cdb(const std::string& name) const {
        return bytesOf(working() / (name + ".cdb"));
    }
    [[nodiscard]] std::optional<int> uncaught() const { return display_.uncaught; }

    std::vector<std::string> rows(const std::string& table, const std::vector<std::string>& fields) {
        Recordset rows(program().store());
        rows.Open("SELECT * FROM " + table);
        std::vector<std::string> found;
        for (; !rows.Eof(); rows.MoveNext()) {
            std::vector<std::string> values;
            for (const std::string& field : fields)
                values.push_back(toText(rows[field]));
            found.push_back(rowText(values));
        }
        return found;
    }

private:
    Program& program() { return application_.program(); }
    [[nodiscard]] fs::path working() const { return folder_.path() / "data" / "TBRK"; }

    Answer answerTo(const MessageBox& box, bool deletes, const std::vector<bool>& takeDuplicates) {
        if (box.title == "Delete PDA Data")
            return deletes ? Answer::Yes : Answer::No;
        if (box.title == "Duplicate Record ID")
            return takeDuplicates[asked_++ % takeDuplicates.size()] ? Answer::Yes : Answer::No;
        return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
    }

    TemporaryFolder folder_;
    SettableClock clock_{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55}};
    std::size_t asked_ = 0;
    AnsweringDisplay display_;
    Application application_;
};

void expectAlike(const std::map<std::string, std::string>& files, bool deletes,
                 const std::vector<bool>& takeDuplicates) {
    SyncModel model(files, deletes, takeDuplicates);
    model.run();
    RealSync real(files, deletes, takeDuplicates);
    real.run();

    EXPECT_EQ(real.boxes(), model.boxes);
    EXPECT_EQ(real.uncaught(), model.uncaught);
    EXPECT_TRUE(isSameText(real.runLog(), model.runLog));
    for (const std::string& name : kNames)
        EXPECT_TRUE(isSameText(real.cdb(name), model.cdb[name])) << name;
    EXPECT_EQ(real.rows("tblEventInfo",
                        {"fldEventName", "fldDateBowled", "fldCenterName", "fldCenterLoc", "fldEventType",
                         "fldNumGames", "fldSeriesTot", "fldSeriesAvg", "fldComment", "fldHHRecordID"}),
              model.events);
    EXPECT_EQ(real.rows("tblGameInfo", {"fldSessionNum", "fldGameNum", "fldStartLane", "fldLeftLane",
                                        "fldRightLane", "fldLanePair", "fldGameScore", "fldLaneCond",
                                        "fldComment", "fldHHRecordID", "fldBowlHand"}),
              model.games);
    EXPECT_EQ(real.rows("tblFrameInfo",
                        {"fldSessionNum", "fldGameNum", "fldFrameNum", "fldLaneBowled", "fldBallUsed",
                         "fldFootPos", "fldLaneTgt", "fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes",
                         "fldComment", "fldLineScore", "fldHHRecordID"}),
              model.frames);
}

/// Files as they come, and what can have happened to them.
class Damage {
public:
    explicit Damage(unsigned seed) : random_(seed) {}

    std::map<std::string, std::string> files(int faults) {
        Exports exports = ExportMaker(static_cast<unsigned>(random_())).make(pick(1, 3));
        Lines* const all[] = {&exports.events, &exports.games, &exports.frames};
        for (int fault = 0; fault < faults; ++fault)
            harm(*all[pick(0, 2)]);
        std::map<std::string, std::string> files;
        for (std::size_t at = 0; at < kNames.size(); ++at)
            files[kNames[at]] = bytesOfLines(*all[at]);
        return files;
    }
    bool coin() { return pick(0, 1) == 1; }
    int pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

private:
    std::string bytesOfLines(const Lines& lines) {
        static const std::string kEnds[] = {"\r\n", "\r\n", "\n", "\r"};
        const std::string& end = kEnds[pick(0, 3)];
        std::string bytes;
        for (const std::string& line : lines)
            bytes += line + end;
        // Some files end without a line end.
        return !lines.empty() && pick(0, 4) == 0 && !lines.back().empty()
                   ? bytes.substr(0, bytes.size() - end.size())
                   : bytes;
    }

    void harm(Lines& lines) {
        if (lines.empty())
            return;
        const auto at = static_cast<std::size_t>(pick(0, static_cast<int>(lines.size()) - 1));
        std::string& line = lines[at];
        switch (pick(0, 8)) {
            case 0:
                line.resize(static_cast<std::size_t>(pick(0, static_cast<int>(line.size()))));
                break;
            case 1:
                lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), std::string(lines[at]));
                break;
            case 2:
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
                break;
            case 3:
                lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), "");
                break;
            case 4:
                lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), countLine(pick(0, 3)));
                break;
            default:
                harmCharacter(line);
        }
    }

    void harmCharacter(std::string& line) {
        static constexpr std::string_view kSigns = R"(",",",#  -.059eZ)";
        const char sign = kSigns[static_cast<std::size_t>(pick(0, static_cast<int>(kSigns.size()) - 1))];
        const auto at = static_cast<std::size_t>(pick(0, static_cast<int>(line.size())));
        switch (pick(0, 2)) {
            case 0:
                line.insert(at, 1, sign);
                break;
            case 1:
                if (at < line.size())
                    line.erase(at, 1);
                break;
            default:
                if (at < line.size())
                    line[at] = sign;
        }
    }

    std::mt19937 random_;
};

void compare(unsigned seed, int faults) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Damage damage(seed);
    const auto files = damage.files(faults);
    expectAlike(files, damage.coin(), {damage.coin(), damage.coin(), damage.coin()});
}

TEST(SyncModel, AgreesOnSoundFiles) {
    for (unsigned seed = 1; seed <= 10; ++seed)
        compare(seed, 0);
}

TEST(SyncModel, AgreesOnOneFault) {
    for (unsigned seed = 1; seed <= 150; ++seed)
        compare(1000 + seed, 1);
}

TEST(SyncModel, AgreesOnManyFaults) {
    for (unsigned seed = 1; seed <= 60; ++seed)
        compare(2000 + seed, static_cast<int>(seed % 12) + 2);
}

}  // namespace

}  // namespace tallybrook::test
