// Something else lies where the logbook should be, or it may not be used: the start is refused with a box
// that names it and says what to do, and what is there stays as it is, to the byte.

#include "app/Application.h"
#include "shell/Configuration.h"
#include "support/Anybody.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <fstream>
#include <functional>
#include <map>
#include <ostream>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/stat.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kLogbook = "Tallybrook_DB.mdb";
constexpr const char* kLock = "Tallybrook.lock";  // what every start leaves

/// What lies in the logbook's place, and what of the box tells it from the others.
struct Foreign {
    std::string name;
    std::function<void(const fs::path& file)> put;
    std::string why;

    friend std::ostream& operator<<(std::ostream& out, const Foreign& foreign) { return out << foreign.name; }
};

std::function<void(const fs::path&)> bytes(const std::string& bytes) {
    return [bytes](const fs::path& file) { std::ofstream(file, std::ios::binary) << bytes; };
}

std::function<void(const fs::path&)> database(const std::string& statements) {
    return [statements](const fs::path& file) {
        SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(statements);
    };
}

/// The first half of what lies there.
void cutShort(const fs::path& file) {
    database(
        "CREATE TABLE tblEventInfo (fldComment TEXT);"
        "INSERT INTO tblEventInfo VALUES (zeroblob(50000)); PRAGMA user_version = 1")(file);
    fs::resize_file(file, fs::file_size(file) / 2);
}

std::vector<Foreign> foreigners() {
    return {{"AnEmptyFile", bytes(""), "no logbook"},
            {"AText", bytes("Just a text.\r\n"), "no logbook"},
            {"AJetDatabase", bytes(std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, 'x')),
             "no logbook"},
            {"AnotherDatabase", database("CREATE TABLE recipes (name TEXT)"), "another program"},
            {"ANewerLogbook", database("CREATE TABLE tblEventInfo (fldName TEXT); PRAGMA user_version = 99"),
             "newer version"},
            {"HalfALogbook", cutShort, "damaged"},
            {"AFolder", [](const fs::path& file) { fs::create_directory(file); }, "something else"},
            {"ALinkToNothing", [](const fs::path& file) { fs::create_symlink("nowhere", file); },
             "a link to a file that is not there"}};
}

/// All that is in a folder, with what it holds; without the lock.
std::map<std::string, std::string> filesOf(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename() != kLock)
            files[entry.path().filename().string()] = entry.is_symlink() ? fs::read_symlink(entry).string()
                                                      : entry.is_regular_file() ? bytesOf(entry.path())
                                                                                : "a folder";
    }
    return files;
}

/// Starts the program, which is to be refused, and gives the text of the box.
std::string refusal(const fs::path& data) {
    TestDisplay display;
    const SettableClock clock(makeDate(2026, 11, 14));
    display.expect({"Tallybrook", Answer::OK});
    Application program(display, clock, data);
    program.start();
    EXPECT_TRUE(program.program().hasEnded());
    EXPECT_EQ(display.events(), std::vector<std::string>{"end program"});
    EXPECT_EQ(display.boxes().at(0).icon, Icon::Critical);
    return display.boxes().at(0).text;
}

class ForeignLogbook : public testing::TestWithParam<Foreign> {};

TEST_P(ForeignLogbook, IsRefusedByNameAndStaysAsItIs) {
    const TemporaryFolder folder;
    const fs::path data = folder.path() / "Ünïcödé 記録 журнал سجل";
    fs::create_directory(data);
    GetParam().put(data / kLogbook);
    const auto before = filesOf(data);
    const std::string text = refusal(data);
    EXPECT_NE(text.find((data / kLogbook).string()), std::string::npos) << text;
    EXPECT_NE(text.find(GetParam().why), std::string::npos) << text;
    EXPECT_NE(text.find("Please "), std::string::npos) << text;
    EXPECT_EQ(filesOf(data), before);
}

INSTANTIATE_TEST_SUITE_P(As, ForeignLogbook, testing::ValuesIn(foreigners()),
                         [](const auto& tested) { return tested.param.name; });

/// What would keep a program waiting that opens it as a file.
class NoFile : public testing::TestWithParam<const char*> {
protected:
    NoFile() {
        { const Store made(folder.path() / kLogbook, SettableClock(makeDate(2026, 11, 14))); }
        fs::remove(place);
        EXPECT_EQ(mkfifo(place.c_str(), S_IRUSR | S_IWUSR), 0);
    }

    TemporaryFolder folder;
    fs::path place = folder.path() / GetParam();
};

TEST_P(NoFile, BesideTheLogbookIsRefusedByName) {
    const std::string text = refusal(folder.path());
    EXPECT_NE(text.find(place.string() + "\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Please "), std::string::npos) << text;
    EXPECT_TRUE(fs::is_fifo(place));
}

INSTANTIATE_TEST_SUITE_P(As, NoFile,
                         testing::Values(kLogbook, "Tallybrook_DB.mdb-journal", "Tallybrook_DB.mdb-wal",
                                         "Tallybrook_DB.mdb-shm", kLock));

TEST(NoConfiguration, IsReadFromAFifoNorWrittenIntoOne) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "tbrkcfg.conf";
    ASSERT_EQ(mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
    TestDisplay display;
    const SettableClock clock(makeDate(2026, 11, 14));
    display.expect({"Tallybrook", Answer::OK});
    Application program(display, clock, folder.path());
    program.start();
    EXPECT_EQ(display.events(), (std::vector<std::string>{"run-time error 75", "end program"}));
    EXPECT_TRUE(fs::is_fifo(file));
}

TEST(WriteProtectedConfiguration, IsNotReplaced) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms::all);
    const fs::path data = folder.path() / "data";
    EXPECT_EQ(asAnybody([&] {
                  TestDisplay display;
                  const SettableClock clock(makeDate(2026, 11, 14));
                  expectFirstStart(display);
                  Application program(display, clock, data);
                  program.start();
                  fs::permissions(data / "tbrkcfg.conf", fs::perms::owner_read);
                  program.program().session.gHHSyncDir = "/elsewhere";
                  program.program().perform([&] { Write_Config(program.program()); });
                  return display.events().at(display.events().size() - 2);
              }),
              "run-time error 75");
    EXPECT_EQ(bytesOf(data / "tbrkcfg.conf").find("/elsewhere"), std::string::npos);
}

class KeptAway : public testing::Test {
protected:
    KeptAway() {
        fs::create_directory(data);
        fs::permissions(folder.path(), fs::perms::all);
        fs::permissions(data, fs::perms::all);
        { const Store made(logbook, SettableClock(makeDate(2026, 11, 14))); }
        fs::permissions(logbook, fs::perms::all);
    }
    /// Starts as somebody for whom a file has these permissions: it is named, and nothing changes.
    void expectNamed(const fs::path& closed, fs::perms permissions, const std::string& words) {
        const auto before = filesOf(data);
        fs::permissions(closed, permissions);
        const std::string text = asAnybody([this] { return refusal(data); });
        fs::permissions(closed, fs::perms::all);
        EXPECT_NE(text.find(words), std::string::npos) << text;
        EXPECT_NE(text.find("Please "), std::string::npos) << text;
        EXPECT_EQ(filesOf(data), before);
    }

    [[nodiscard]] std::string lockRefused() const {
        return "The folder of the logbook cannot be used, since this file cannot be opened:\r\n" +
               (data / kLock).string() + "\r\nPlease check the permissions of the folder and of the file.";
    }

    static constexpr fs::perms kRead = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    static constexpr fs::perms kEnter =
        fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;

    TemporaryFolder folder;
    fs::path data = folder.path() / "data";
    fs::path logbook = data / kLogbook;
};

TEST_F(KeptAway, IsSomebodyWhoMayNotWriteTheLogbook) {
    expectNamed(logbook, kRead, logbook.string() + "\r\n");
}

TEST_F(KeptAway, IsSomebodyWhoMayNotReadTheLogbook) {
    expectNamed(logbook, fs::perms::none, logbook.string() + "\r\n");
}

TEST_F(KeptAway, IsSomebodyWhoMayNotWriteTheDataFolder) {
    expectNamed(data, kRead | kEnter, lockRefused());
}

TEST_F(KeptAway, IsSomebodyWhoMayNotEnterTheDataFolder) {
    expectNamed(data, fs::perms::none, lockRefused());
}

TEST_F(KeptAway, IsSomebodyWhoMayNotMakeTheDataFolder) {
    const fs::path place = folder.path() / "place";
    fs::create_directory(place);
    fs::permissions(place, kRead | kEnter);
    const std::string text = asAnybody([&] { return refusal(place / "Tallybrook"); });
    EXPECT_NE(
        text.find("The folder of the logbook cannot be made:\r\n" + (place / "Tallybrook").string() +
                  "\r\nPermission denied\r\nPlease see that nothing else is in its place, and that you may "
                  "write where it belongs."),
        std::string::npos)
        << text;
    EXPECT_TRUE(fs::is_empty(place));
}

}  // namespace

}  // namespace tallybrook::test
