#include "sample/Options.h"

#include "sample/Career.h"

#include <charconv>
#include <functional>

namespace tallybrook::sample {

const std::string_view kUsage = "usage: tallybrook-sample --events N [--seed S] --data DIR [--cdb]";

const std::string_view kHelp = R"(NAME
    tallybrook-sample - makes up a logbook of any size

SYNOPSIS
    tallybrook-sample --events N [--seed S] --data DIR [--cdb]
    tallybrook-sample --help

DESCRIPTION
    Makes a logbook in the folder DIR, as a bowler leaves one after up to thirty
    years: leagues in their seasons, practice and tournaments in several
    centers, an average that rises and falls, games with every pin, as line
    scores and with nothing but the score, comments, and now and then an event
    that lacks a game or a game that was broken off. All scores are true.

    The same N and S make the same rows on every machine.

OPTIONS
    --events N
        The number of events, 1 to 1000000. An event has about three games of
        ten frames; thirty years of bowling are about 5000 events.

    --seed S
        Which of the many logbooks of that size to make: a whole number, 0 to
        18446744073709551615. Without it 1.

    --data DIR
        The folder. It is made where there is none. A folder that holds a
        logbook already is refused.

    --cdb
        Writes the same content also as the export files of a handheld.

    --help
        Writes this text.

FILES
    DIR/Tallybrook_DB.mdb
        The logbook.

    DIR/TBRK/PDA DB Archive/
        The folders that an import needs, empty.

    DIR/tblEvent.cdb, DIR/tblGame.cdb, DIR/tblFrame.cdb
        The export files, with --cdb; files of these names are replaced. To
        import them into another logbook, choose DIR as the synchronization
        directory of a Palm under File, Handheld Setup.

EXIT STATUS
    0   The logbook was made.
    1   It could not be made; a message says why. DIR holds no logbook that it
        did not hold before.
    2   Wrong usage.

EXAMPLE
    Thirty years for the player's screens:

        tallybrook-sample --events 5000 --data /tmp/thirty-years
        tallybrook-play --display desktop --data /tmp/thirty-years script.txt
)";

namespace {

/// A whole number as a whole text.
template <typename Number>
Number numberIn(const std::string& text, Number least, Number most, const char* what) {
    Number number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size() || number < least || number > most)
        throw WrongUsage(std::string(what) + " is a whole number from " + std::to_string(least) + " to " +
                         std::to_string(most));
    return number;
}

void setEvents(Options& options, const std::string& value) {
    options.events = numberIn(value, 1, kMostEvents, "the number of events");
}

void setSeed(Options& options, const std::string& value) {
    options.seed = numberIn(value, std::uint64_t{0}, UINT64_MAX, "the seed");
}

void setData(Options& options, const std::string& value) {
    if (value.empty())
        throw WrongUsage("the data folder has no name");
    options.data = value;
}

void requireAll(const Options& options) {
    if (options.events == 0)
        throw WrongUsage("--events is missing");
    if (options.data.empty())
        throw WrongUsage("--data is missing");
}

}  // namespace

Options readOptions(std::span<const std::string> arguments) {
    Options options;
    const auto to = std::ref(options);
    const CommandLine line(
        {{"--events", std::bind_front(setEvents, to)},
         {"--seed", std::bind_front(setSeed, to)},
         {"--data", std::bind_front(setData, to)}},
        {{"--cdb", [&] { options.cdb = true; }}, {"--help", [&] { options.help = true; }}});
    line.read(arguments);
    if (!options.help)
        requireAll(options);
    return options;
}

}  // namespace tallybrook::sample
