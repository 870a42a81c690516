// Whatever pin strings and line scores stand in the logbook, the frame screen shows them frame after frame,
// and each report and the check walk them to their end: what fails is told in boxes, and nothing ends the
// program. The first byte chooses the type of the game; the rest is its frames with a record separator (1E)
// between them, the first, second and fill ball and the line score of each with a unit separator (1F) between
// them.

#include "Require.h"
#include "app/Application.h"
#include "browse/frmSearchGames.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"
#include "maintenance/modDBUtils.h"
#include "reports/modTBKReports.h"
#include "shell/TBK_Globals.h"
#include "store/file/Connection.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace tallybrook;
using test::require;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostFrames = 12;  // two more than a game has
constexpr std::array<const char*, 4> kTypes{"P", "L", "N", ""};

std::vector<std::string_view> parts(std::string_view text, char separator, std::size_t most) {
    std::vector<std::string_view> found;
    while (found.size() + 1 < most && text.find(separator) != std::string_view::npos) {
        found.push_back(text.substr(0, text.find(separator)));
        text.remove_prefix(found.back().size() + 1);
    }
    found.push_back(text);
    return found;
}

Answer answerTo(const MessageBox& box) {
    return box.buttons == Buttons::YesNo && box.title == "Database Check" ? Answer::No : box.defaultAnswer();
}

/// Answers every box, and chooses the same file in every dialog.
class ChoosingDisplay : public test::AnsweringDisplay {
public:
    explicit ChoosingDisplay(fs::path file) : AnsweringDisplay(answerTo), file_(std::move(file)) {}

    std::optional<fs::path> fileDialog(const FileDialog&) override { return file_; }

private:
    fs::path file_;
};

/// The program over one logbook, whose only game gets new frames for each input.
class Walk {
public:
    Walk() {
        application_.start();
        database().exec("PRAGMA synchronous = OFF");  // no power is cut here
    }

    void over(const char* type, std::string_view frames) {
        store(type, frames);
        showFrames();
        for (const char* const kind : {"Full", "Summary", "Statistics"})
            writeReport(kind);
        writeGameReport();
        check();
        require(!display_.asked, "it asked for more than an answer");
        display_.boxes.clear();
    }

private:
    Program& program() { return application_.program(); }
    SQLite::Database& database() { return program().store().connection().database(); }

    void perform(const std::function<void()>& action) {
        program().perform(action);
        require(!display_.uncaught && !program().hasEnded(), "it has ended the program");
    }

    void store(const char* type, std::string_view frames) {
        SQLite::Database& logbook = database();
        logbook.exec("DELETE FROM tblEventInfo; DELETE FROM tblGameInfo; DELETE FROM tblFrameInfo");
        logbook.exec(
            "INSERT INTO tblEventInfo (fldSessionNum, fldEventName, fldDateBowled, fldEventType, "
            "fldNumGames, "
            "fldGmsRecorded) VALUES (1, 'Thursday League', '2026-11-12', 'LEAGUE', 1, 1)");
        SQLite::Statement game(
            logbook,
            "INSERT INTO tblGameInfo (fldGameKey, fldSessionNum, fldGameNum, fldStartLane, "
            "fldLeftLane, fldRightLane, fldLanePair, fldScoreType) "
            "VALUES (1, 1, 1, 13, 13, 14, '13-14', ?)");
        game.bind(1, type);
        game.exec();
        int number = 0;
        for (const std::string_view frame : parts(frames, '\x1E', kMostFrames))
            storeFrame(logbook, ++number, frame);
    }

    static void storeFrame(SQLite::Database& logbook, int number, std::string_view frame) {
        SQLite::Statement row(
            logbook,
            "INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum, fldLaneBowled, "
            "fldFirstBallRes, fldSecondBallRes, fldFillBallRes, fldLineScore) VALUES (1, 1, ?, 13, ?, ?, ?, "
            "?)");
        int column = 0;
        row.bind(++column, number);
        for (const std::string_view text : parts(frame, '\x1F', 4))
            row.bind(++column, std::string(text));
        row.exec();
    }

    void showFrames() {
        program().session.gMode = Int16(2);
        program().session.gSessionNum = Int32(1);
        program().session.gGameNum = Int16(1);
        perform([&] { program().screens.load("frmFrame"); });
        for (std::size_t frame = 0; frame < kMostFrames; ++frame)
            for (const char* const button : {"cmdFirstDone", "cmdSecondDone", "cmdFillDone", "cmdNextFrame"})
                click(button);
        click("cmdResetPinfall");
        perform([&] {
            if (Screen* const screen = program().screens.find("frmFrame"); screen != nullptr)
                program().screens.unload(*screen);
        });
    }

    void click(const char* button) {
        perform([&] {
            if (Screen* const screen = program().screens.find("frmFrame"); screen != nullptr)
                person::click(*screen->find(button));
        });
    }

    void writeReport(const char* kind) {
        fs::remove(report_);
        perform([&] {
            Write_Report(program(),
                         {.kind = kind, .evType = "All Events", .eventKey = 1, .file = report_.string()});
        });
        require(fs::exists(report_), "a report was not written");
    }

    void writeGameReport() {
        fs::remove(report_);
        perform([&] { program().screens.load("frmSearchGames"); });
        auto& search = static_cast<frmSearchGames&>(*program().screens.find("frmSearchGames"));
        search.adoTBKGame.setRecordSource("SELECT * FROM tblGameInfo");
        perform([&] { program().screens.load("frmGameList"); });
        perform([&] { person::click(*program().screens.find("frmGameList")->find("cmdGetRecord")); });
        require(fs::exists(report_), "the game report was not written");
        perform([&] { returnToMain(program()); });
    }

    void check() {
        perform([&] { DB_Check(program()); });
        require(display_.boxes.back().title == "Check Complete", "the check has not come to its end");
        fs::remove(program().dataFolder / "DB_Report.txt");  // or it grows with each input
    }

    test::TemporaryFolder folder_;
    const fs::path report_ = folder_.path() / "report.txt";
    SettableClock clock_{makeDate(2026, 11, 14)};
    ChoosingDisplay display_{report_};
    Application application_{display_, clock_, folder_.path() / "data"};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static Walk walk;
    walk.over(kTypes.at(data[0] % kTypes.size()), {reinterpret_cast<const char*>(data) + 1, size - 1});
    return 0;
}
