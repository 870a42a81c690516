// What people are told of a logbook that cannot be opened, word by word.

#include "CutOffASave.h"
#include "store/Store.h"
#include "store/file/CutOffSave.h"
#include "store/file/Journal.h"
#include "store/file/LogbookRefused.h"
#include "support/Anybody.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <fstream>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

const std::string kGoBack =
    "Please go back to a backup with the Tallybrook Keeper, or put a copy of your logbook in its place; "
    "the folder Backups beside it may hold some.";

class RefusedLogbook : public testing::Test {
protected:
    void make(const std::string& further = "") const {
        fs::remove(file);
        { const Store made(file, clock); }
        SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec(further);
    }
    void write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

    [[nodiscard]] std::string refusal(const Upgrade& upgrade = {}) const {
        try {
            const Store store(file, clock, upgrade);
            return "";
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
    }
    void expectRefused(const std::string& why, const Upgrade& upgrade = {}) const {
        EXPECT_EQ(refusal(upgrade), "The logbook cannot be opened:\r\n" + file.string() + "\r\n" + why);
    }
    void expectRefusedToAnybody(const std::string& why) const {
        EXPECT_EQ(test::asAnybody([this] { return refusal(); }),
                  "The logbook cannot be opened:\r\n" + file.string() + "\r\n" + why);
    }

    test::TemporaryFolder folder;
    const fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
};

TEST_F(RefusedLogbook, ThatIsNoFile) {
    const std::string somethingElse =
        "There is something else of that name where the file should be. Please move it away.";
    fs::create_symlink(folder.path() / "nowhere", file);
    expectRefused(
        "It is a link to a file that is not there. Please bring that file back, or remove the link.");
    fs::remove(file);
    fs::create_directory(file);
    expectRefused(somethingElse);
    fs::remove(file);
    make();
    fs::create_directory(journalOf(file));
    EXPECT_EQ(refusal(),
              "The logbook cannot be opened:\r\n" + journalOf(file).string() +
                  "\r\nThere is something else where a file of the logbook belongs. Please move it away.");
}

// What a link leads to is another's, and must not be undone or emptied as if it were the logbook's own.
TEST_F(RefusedLogbook, BesideWhichALinkStandsForAFileOfItsOwn) {
    const fs::path elsewhere = folder.path() / "elsewhere";
    std::ofstream(elsewhere) << "somebody's";
    for (const fs::path& companion : companionsOf(file)) {
        make();
        fs::create_symlink(elsewhere, companion);
        EXPECT_EQ(
            refusal(),
            "The logbook cannot be opened:\r\n" + companion.string() +
                "\r\nThere is something else where a file of the logbook belongs. Please move it away.");
        fs::remove(companion);
    }
    EXPECT_EQ(test::bytesOf(elsewhere), "somebody's");
}

TEST_F(RefusedLogbook, ThatIsNoLogbook) {
    write("Dear Aunt");
    expectRefused("The file is no logbook of this program. " + kGoBack);
    write(std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4076, '\0'));
    expectRefused(
        "The file is no logbook of this program yet: it is an Access database, in which older logbooks "
        "were kept. Tallybrook Keeper can carry it over to a new logbook, and keeps the old file. Please "
        "start the keeper, and choose Carry Over an Old Logbook.");
    make("PRAGMA user_version = 99");
    expectRefused("The logbook was written by a newer version of Tallybrook. Please update the program.");
    make("PRAGMA user_version = 0");
    expectRefused("The file belongs to another program. Please move it away.");
    make("DROP TABLE tblFrameInfo");
    expectRefused("The file belongs to another program, or is damaged. " + kGoBack);
}

TEST_F(RefusedLogbook, ThatIsDamaged) {
    make();
    const std::string whole = test::bytesOf(file);
    write(whole.substr(0, whole.size() - 1));
    expectRefused("The logbook is damaged: its end is missing. " + kGoBack);
    write(whole.substr(0, 100) + std::string(3000, '\x7f') + whole.substr(3100));
    expectRefused("The logbook is damaged. " + kGoBack);
}

TEST_F(RefusedLogbook, ThatIsKeptFromUs) {
    using enum fs::perms;
    const std::string notWritten =
        "The file or its folder cannot be written. Please check their permissions.";
    {
        const Store other(file, clock);
        expectRefused("Another program is using it. Please close that program first.");
    }
    fs::permissions(folder.path(), all);
    fs::permissions(file, owner_read | group_read | others_read);
    expectRefusedToAnybody(notWritten);
    fs::permissions(file, fs::perms::none);
    expectRefusedToAnybody("The file cannot be read. Please check its permissions.");
    fs::permissions(file, all);
    fs::permissions(folder.path(), owner_all | group_read | group_exec | others_read | others_exec);
    expectRefusedToAnybody(notWritten);
    fs::permissions(folder.path(), owner_all);
    expectRefusedToAnybody("Permission denied. Please check the permissions of its folder.");
}

// The journal is kept beside the file itself, not beside a link to it.
TEST_F(RefusedLogbook, ThatLiesWhereNothingCanBeWritten) {
    using enum fs::perms;
    const fs::path elsewhere = folder.path() / "elsewhere";
    make();
    fs::create_directory(elsewhere);
    fs::rename(file, elsewhere / "night.mdb");
    fs::create_symlink(elsewhere / "night.mdb", file);
    fs::permissions(folder.path(), all);
    fs::permissions(elsewhere / "night.mdb", all);
    fs::permissions(elsewhere, owner_read | owner_exec | group_read | group_exec | others_read | others_exec);
    expectRefusedToAnybody("The file or its folder cannot be written. Please check their permissions.");
    fs::permissions(elsewhere, all);
}

TEST_F(RefusedLogbook, ThatIsTooOldToBeUsedAsItIs) {
    const std::string before =
        "It was written by an older version of Tallybrook and could not be brought up to date; what it "
        "holds is unchanged.\r\n";
    const std::string after = "\r\nPlease see that there is room on the disk, and start the program again.";
    const auto succeed = [](const fs::path& /*logbook*/) {};
    make();
    expectRefused(before + "There is no backup of it." + after, {.steps = {{"ANALYZE"}}});
    expectRefused(before + "The logbook would lack a column." + after,
                  {.backUp = succeed, .steps = {{"ALTER TABLE tblGameInfo DROP COLUMN fldComment"}}});
}

TEST_F(RefusedLogbook, InWhichASaveWasCutOff) {
    make();
    test::cutOffASave(file, "INSERT INTO tblEventInfo (fldComment) SELECT printf('%.9000c', 'x')");
    const std::string journal = test::bytesOf(journalOf(file));
    std::ofstream(journalOf(file), std::ios::binary) << journal.substr(0, 600) << std::string(3000, '\x7f');
    expectRefused(
        "A save was cut off, and cannot be undone, since the logbook or its journal is damaged. Both are "
        "left as they "
        "are. Please go back to a backup with the Tallybrook Keeper, which puts them away "
        "together.\r\nJournal: " +
        journalOf(file).string());
    std::ofstream(journalOf(file), std::ios::binary) << journal;
    fs::create_directories(copiesForTrial(file).front() / "in the way");
    expectRefused(
        "A save was cut off, and cannot be undone yet: Invalid argument. Please see that there is room on "
        "the "
        "disk for a "
        "copy of the logbook.");
}

TEST_F(RefusedLogbook, BesideWhichAnotherProgramHasLeftChanges) {
    make("INSERT INTO tblEventInfo (fldComment) VALUES ('mine')");
    test::cutOffOtherProgram(file, "UPDATE tblEventInfo SET fldComment = 'changed'");
    const std::string bytes = test::bytesOf(file);
    write(bytes.substr(0, 100) + std::string(3000, '\x7f') + bytes.substr(3100));
    expectRefused(
        "Another program has left changes beside the logbook, and they or the logbook are damaged. Both are "
        "left as "
        "they are. Please go back to a backup with the Tallybrook Keeper, which puts them away "
        "together.\r\nChanges: " +
        writeAheadOf(file).string());
    write(bytes);
    fs::create_directories(copiesForTrial(file).front() / "in the way");
    expectRefused(
        "Another program has left changes beside the logbook, and they cannot be taken in yet: Invalid "
        "argument. "
        "Please see "
        "that there is room on the disk for a copy of the logbook.");
}

}  // namespace

}  // namespace tallybrook
