// What a person is told of whatever a piece of work ends with.

#include "keeper/Outcome.h"
#include "runtime/CommandLine.h"
#include "runtime/Progress.h"

#include <cerrno>
#include <new>
#include <ostream>
#include <stdexcept>
#include <system_error>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tallybrook::keeper {

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    return out << static_cast<int>(outcome.status) << ": " << outcome.why;
}
bool operator==(const Outcome& one, const Outcome& other) {
    return one.status == other.status && one.why == other.why;
}

namespace {

template <typename Failure>
Outcome outcomeAfter(const Failure& failure) {
    return outcomeOf([&failure] { throw failure; });
}

constexpr const char* kSeeDisk =
    "Please see that there is room on the disk, and that the folder can be written.";

TEST(OutcomeOfWork, TellsWhatIsWrongAndWhatCanBeDone) {
    EXPECT_EQ(outcomeOf([] {}), (Outcome{ExitStatus::Done, ""}));
    EXPECT_EQ(outcomeAfter(WrongUsage("There is no such command.")),
              (Outcome{ExitStatus::WrongUsage, "There is no such command."}));
    EXPECT_EQ(outcomeAfter(Cancelled()), (Outcome{ExitStatus::Cancelled, Cancelled().what()}));
    EXPECT_EQ(outcomeAfter(Refused(ExitStatus::Busy, "Tallybrook is running.")),
              (Outcome{ExitStatus::Busy, "Tallybrook is running."}));
    EXPECT_EQ(outcomeAfter(std::system_error(ENOSPC, std::generic_category())),
              (Outcome{ExitStatus::Failed, std::string("No space left on device. ") + kSeeDisk}));
    EXPECT_EQ(outcomeAfter(std::bad_alloc()), (Outcome{ExitStatus::Failed, "Out of memory"}));
    EXPECT_EQ(outcomeAfter(std::runtime_error("It was not like the backup.")),
              (Outcome{ExitStatus::Failed, "It was not like the backup."}));
}

TEST(OutcomeOfWork, TellsOfADatabaseThatIsDamagedOrHasNoRoom) {
    for (const int code : {SQLITE_CORRUPT, SQLITE_NOTADB})
        EXPECT_EQ(outcomeAfter(SQLite::Exception("torn", code)),
                  (Outcome{ExitStatus::BadInput,
                           "The database reports: torn. The file is damaged; please go back to a backup."}));
    EXPECT_EQ(outcomeAfter(SQLite::Exception("disk full", SQLITE_FULL)),
              (Outcome{ExitStatus::Failed, std::string("The database reports: disk full. ") + kSeeDisk}));
}

}  // namespace

}  // namespace tallybrook::keeper
