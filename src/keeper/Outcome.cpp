#include "keeper/Outcome.h"

#include "runtime/CommandLine.h"
#include "runtime/Progress.h"
#include "runtime/RunTimeError.h"

#include <new>
#include <system_error>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook::keeper {

namespace {

constexpr const char* kSeeDisk =
    "Please see that there is room on the disk, and that the folder can be written.";

Outcome outcomeOf(const SQLite::Exception& failure) {
    const bool isDamage = failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB;
    return {isDamage ? ExitStatus::BadInput : ExitStatus::Failed,
            fmt::format("The database reports: {}. {}", failure.what(),
                        isDamage ? "The file is damaged; please go back to a backup." : kSeeDisk)};
}

}  // namespace

Outcome outcomeOf(const std::function<void()>& work) {
    try {
        work();
        return {};
    } catch (const WrongUsage& wrong) {
        return {ExitStatus::WrongUsage, wrong.what()};
    } catch (const Cancelled& cancelled) {
        return {ExitStatus::Cancelled, cancelled.what()};
    } catch (const Refused& refused) {
        return {refused.status(), refused.what()};
    } catch (const SQLite::Exception& failure) {
        return outcomeOf(failure);
    } catch (const std::system_error& failure) {
        return {ExitStatus::Failed, failure.code().message() + ". " + kSeeDisk};
    } catch (const std::bad_alloc&) {
        return {ExitStatus::Failed, RunTimeError(error::kOutOfMemory).what()};
    } catch (const std::exception& failure) {
        return {ExitStatus::Failed, failure.what()};
    }
}

}  // namespace tallybrook::keeper
