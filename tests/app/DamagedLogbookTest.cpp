// A logbook that is damaged inside opens, since nobody reads all of it at the start. Its screens then tell in
// boxes what they cannot read; where nothing takes the failure, its box ends the program. Nobody is left
// without a window.

#include "support/Play.h"
#include "support/SameText.h"
#include "support/StoredEvents.h"

#include <algorithm>
#include <fstream>
#include <optional>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPageSize = 4096;

/// Takes whatever comes, and presses the button that goes on.
class PatientDisplay : public TestDisplay {
public:
    std::vector<MessageBox> told;

    Answer messageBox(const MessageBox& box) override {
        told.push_back(box);
        EXPECT_FALSE(box.title.empty());
        EXPECT_FALSE(box.text.empty());
        for (const Answer answer : {Answer::Yes, Answer::OK, Answer::Cancel}) {
            if (std::ranges::count(answersOf(box.buttons), answer) > 0)
                return answer;
        }
        return box.defaultAnswer();
    }
    std::optional<std::string> inputBox(const InputBox&) override { return "1"; }
    std::optional<fs::path> fileDialog(const FileDialog&) override { return std::nullopt; }
};

class DamagedLogbook : public testing::Test {
protected:
    DamagedLogbook() {
        writeEvents(logbook, 200, clock);
        SQLite::Database rows(logbook.string(), SQLite::OPEN_READWRITE);
        rows.exec(
            "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) SELECT fldSessionNum, 1 FROM tblEventInfo;"
            "INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum) "
            "SELECT fldSessionNum, 1, 1 FROM tblEventInfo");
        std::ofstream(data.path() / "tbrkcfg.conf") << "HHTYPE=\"\"\r\nHHSYNCDIR=\"\"\r\n";
    }

    using Names = std::vector<std::string>;

    /// Starts the program and looks at one screen after another until there are none left, or until one ends
    /// the program; gives those left. Nothing if the logbook was refused.
    std::optional<Names> look(Names screens) {
        PatientDisplay display;
        Application application(display, clock, data.path());
        application.start();
        Program& program = application.program();
        if (display.told.front().text.starts_with("The logbook cannot be opened")) {
            EXPECT_NE(display.told.front().text.find(logbook.string()), std::string::npos);
            EXPECT_TRUE(program.hasEnded());
            return std::nullopt;
        }
        while (!screens.empty() && !program.hasEnded()) {
            visit(program, screens.back());
            screens.pop_back();
        }
        failures += std::ranges::count(display.told, "Database Error", &MessageBox::title);
        if (program.hasEnded()) {
            ++failures;
            const std::vector<std::string> ending(display.events().end() - 2, display.events().end());
            EXPECT_EQ(ending, (std::vector<std::string>{"run-time error -2147467259", "end program"}));
        }
        return screens;
    }
    /// Looks at all screens; whether the logbook was opened.
    bool lookAtAll() {
        std::optional<Names> left =
            Names{"frmSyncPDA", "frmDBTools",  "frmEventStats",  "frmFrame",        "frmGame",
                  "frmEvent",   "frmGameList", "frmSearchGames", "frmSearchEvents", "frmEventList"};
        while (left && !left->empty())
            left = look(*left);
        return left.has_value();
    }

    TemporaryFolder data;
    fs::path logbook = data.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
    std::ptrdiff_t failures = 0;  // told in boxes

private:
    /// Loads a screen, types into it, and leaves it.
    static void visit(Program& program, const std::string& name) {
        program.session.gSessionNum = 1;
        program.session.gGameNum = 1;
        program.perform([&] { program.screens.load(name); });
        for (const char* control : {"cmdDBStats", "cmdPrevious"}) {
            Screen* const front = program.screens.front();
            if (Control* const found = front != nullptr ? front->find(control) : nullptr)
                program.perform([&] { person::click(*found); });
        }
        EXPECT_EQ(program.screens.front() == nullptr, program.hasEnded()) << name;
        program.perform([&] { program.screens.startAfresh("frmMain"); });
    }
};

TEST_F(DamagedLogbook, IsToldInBoxesByEveryScreen) {
    ASSERT_TRUE(lookAtAll());
    const std::ptrdiff_t failuresOfASoundOne = std::exchange(failures, 0);  // of screens out of their order
    const std::string whole = bytesOf(logbook);
    const std::size_t pages = whole.size() / kPageSize;
    ASSERT_GT(pages, 10U);
    for (std::size_t page = 0; page < pages; ++page) {
        SCOPED_TRACE(page);
        fs::remove(logbook);
        std::ofstream(logbook, std::ios::binary)
            << std::string(whole).replace(page * kPageSize, kPageSize, kPageSize, '\x7f');
        EXPECT_EQ(lookAtAll(), page > 0);
    }
    EXPECT_GT(failures, failuresOfASoundOne * static_cast<std::ptrdiff_t>(pages));
}

TEST(DataFolder, ThatCannotBeUsedIsNamed) {
    const TemporaryFolder folder;
    const SettableClock clock(makeDate(2026, 11, 14));
    fs::create_directories(folder.path() / "used" / "Tallybrook.lock" / "x");
    std::ofstream(folder.path() / "file") << "a file where the folder should be";
    std::ofstream(folder.path() / "empty").flush();
    fs::create_symlink("nowhere", folder.path() / "link");
    for (const char* name : {"used", "file", "empty", "link", "file/below"}) {
        const fs::path data = folder.path() / name;
        TestDisplay display;
        display.expect({"Tallybrook", Answer::OK});
        Application program(display, clock, data);
        program.start();
        EXPECT_TRUE(program.program().hasEnded());
        EXPECT_NE(display.boxes().at(0).text.find(data.string()), std::string::npos) << name;
        EXPECT_NE(display.boxes().at(0).text.find("Please "), std::string::npos) << name;
    }
    EXPECT_FALSE(fs::exists(folder.path() / "nowhere"));
}

TEST(DataFolder, MayBeALink) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "elsewhere");
    fs::create_directory_symlink("elsewhere", folder.path() / "data");
    TestDisplay display;
    const SettableClock clock(makeDate(2026, 11, 14));
    Application program(display, clock, folder.path() / "data");
    expectFirstStart(display);
    program.start();
    EXPECT_TRUE(fs::exists(folder.path() / "elsewhere" / "Tallybrook_DB.mdb"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "data"));
    EXPECT_FALSE(program.program().hasEnded());
}

TEST(DataFolder, MayHaveAnyName) {
    const TemporaryFolder folder;
    for (const char* name :
         {"a b", "100 % sure?", "Ünïcödé", "記録 ボウリング", "журнал", "'q' \"t\"", "a#b"}) {
        TestDisplay display;
        const SettableClock clock(makeDate(2026, 11, 14));
        Application program(display, clock, folder.path() / name);
        expectFirstStart(display);
        program.start();
        EXPECT_TRUE(fs::exists(folder.path() / name / "Tallybrook_DB.mdb")) << name;
        EXPECT_FALSE(program.program().hasEnded());
    }
}

}  // namespace

}  // namespace tallybrook::test
