#include "keeper/Help.h"

#include "keeper/Command.h"

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

constexpr std::string_view kBeginning = R"(NAME
    tallybrook-keeper - keeps a logbook safe, and carries it in and out

SYNOPSIS
    tallybrook-keeper [--window] [--data DIR]
    tallybrook-keeper COMMAND [WORDS] [--data DIR] [--json]
    tallybrook-keeper --help | --version

    Without a command the window opens, which does the same things.

COMMANDS
)";

constexpr std::string_view kEnding = R"(
    BACKUP is the beginning of a backup's date and time as they are listed, such
    as "2026-11-21" or "2026-11-21 20.15.03", or newest. EVENT is the number
    of an event, as look and look-archive list it.
    While Tallybrook runs, the keeper shows and exports, and changes nothing.

OPTIONS
    --data DIR
        The folder of the logbook, if it is not the usual one.
    --same keep|take|both
        What read-archive does with an event that is in the logbook already, by
        its name, date and center: keeps the logbook's and passes the archive's
        over (which is usual), takes the archive's in its place, or adds it
        beside it.
    --event EVENT=keep|take|both
        The same for one event, by its number in the archive; may be repeated.
    --verbatim
        Lets csv write every text as it is. Otherwise one that a spreadsheet
        would take for a formula, such as =1+1, gets an apostrophe in front.
    --json
        Writes the answer for a program, as one line of JSON.
    --help, --version
        Writes this text, or the number of the version.

EXIT STATUS
    0   Done.
    1   It could not be done; a message says why. The logbook is as it was.
    2   Wrong usage.
    3   Tallybrook or another keeper is using the logbook.
    4   A file that was to be read is damaged, or is of another kind.
    5   Cancelled, as by Ctrl+C. The logbook is as it was.
)";

}  // namespace

std::string helpText() {
    std::string text(kBeginning);
    for (const Command& command : commands())
        text += fmt::format("    {}{}{}\n        {}\n", command.name, command.words.empty() ? "" : " ",
                            command.words, command.summary);
    return text.append(kEnding);
}

}  // namespace tallybrook::keeper
