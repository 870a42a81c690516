#include "keeper/BackupCommands.h"

#include "keeper/Answer.h"
#include "keeper/BackupList.h"
#include "keeper/EventGames.h"
#include "keeper/ExitStatus.h"
#include "keeper/Restore.h"
#include "runtime/TextForms.h"
#include "store/sql/FieldValue.h"

#include <set>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

constexpr double kMegabyte = 1e6;

Json jsonOf(const Difference& difference) {
    return {{"words", inWords(difference)},
            {"added", jsonOf(difference.added)},
            {"deleted", jsonOf(difference.deleted)},
            {"changedEvents", difference.changed}};
}

Json jsonOf(const BackupEntry& entry) {
    Json json{
        {"name", BackupFolder::shortName(entry.time)}, {"file", entry.file.string()}, {"bytes", entry.size}};
    if (entry.summary) {
        json.update(jsonOf(entry.summary->counts));
        if (entry.summary->lastNight)
            json["lastNight"] = storedDate(*entry.summary->lastNight);
    }
    if (entry.difference)
        json["difference"] = jsonOf(*entry.difference);
    else
        json["trouble"] = entry.trouble;
    return json;
}

std::string lineOf(const BackupEntry& entry) {
    std::string line = BackupFolder::shortName(entry.time);
    if (entry.summary) {
        const Counts& counts = entry.summary->counts;
        line += fmt::format("  {:>6} events  {:>6} games  {:>7} frames  last night {}", counts.events,
                            counts.games, counts.frames,
                            entry.summary->lastNight ? shortDate(*entry.summary->lastNight) : "-");
    }
    return fmt::format("{}  {:.1f} MB\n    {}\n", line, static_cast<double>(entry.size) / kMegabyte,
                       entry.inWords());
}

/// The backup that the first word of a command names.
std::filesystem::path backupOf(const Errand& errand) {
    const BackupFolder folder = backupsIn(errand.options.data);
    return folder.existing(backupCalled(errand.options.words.front(), folder));
}

Json jsonOf(const EventSummary& event) {
    Json json{{"key", event.key}, {"name", event.name}, {"date", event.date}, {"center", event.center}};
    json["games"] = event.counts.games;
    json["frames"] = event.counts.frames;
    return json;
}

std::string lineOf(const EventSummary& event, const std::string& words) {
    return fmt::format("{:>6}  {:<10}  {}{}  ({}){}\n", event.key, event.date, event.name,
                       event.center.empty() ? "" : ", " + event.center,
                       inWords(Counts{.games = event.counts.games, .frames = event.counts.frames}),
                       words.empty() ? "" : "  " + words);
}

void showEvents(const Errand& errand, const SQLite::Database& backup) {
    std::string text;
    Json events = Json::array();
    for (const EventSummary& event : summaryOf(backup, errand.progress).events) {
        text += lineOf(event, "");
        events.push_back(jsonOf(event));
    }
    answer(errand, text, {{"events", events}});
}

Json jsonOf(const GameLook& game) {
    return {{"number", game.number}, {"score", game.score}, {"lanes", game.lanes}, {"frames", game.frames}};
}

void showGames(const Errand& errand, const SQLite::Database& backup, std::int64_t event) {
    const auto games = gamesOf(backup, event);
    if (!games)
        throw Refused(ExitStatus::BadInput, fmt::format("The backup has no event {}.", event));
    std::string text;
    Json json = Json::array();
    for (const GameLook& game : *games) {
        text += fmt::format("Game {}  score {}{}\n", game.number, game.score,
                            game.lanes.empty() ? "" : "  lanes " + game.lanes);
        for (const std::string& frame : game.frames)
            text += "    " + frame + "\n";
        json.push_back(jsonOf(game));
    }
    answer(errand, text, {{"event", event}, {"games", json}});
}

/// The events of one logbook that another one lacks or has otherwise.
std::string differingEvents(const Summary& one, const Difference& difference, Json& json) {
    std::string text;
    for (std::size_t place = 0; place < one.events.size(); ++place) {
        const Fate fate = difference.fates[place];
        if (fate == Fate::Same)
            continue;
        text += lineOf(one.events[place], inWords(fate));
        json.push_back(jsonOf(one.events[place]));
        json.back()["fate"] = inWords(fate);
    }
    return text;
}

}  // namespace

void listBackups(const Errand& errand) {
    const Today today = todayIn(errand.options.data, errand.clock, errand.progress);
    tellNote(errand, today.note);
    std::string text;
    Json backups = Json::array();
    for (const BackupEntry& entry : readBackups(errand.options.data, today, errand.progress)) {
        text += lineOf(entry);
        backups.push_back(jsonOf(entry));
    }
    answer(errand, text.empty() ? "There are no backups yet.\n" : text,
           {{"backups", backups}, {"note", today.note}});
}

void lookIntoBackup(const Errand& errand) {
    const SQLite::Database backup = openCopy(backupOf(errand));
    if (errand.options.words.size() > 1)
        showGames(errand, backup, numberIn(errand.options.words[1], "the event"));
    else
        showEvents(errand, backup);
}

void compareBackup(const Errand& errand) {
    const Summary backup = summaryOf(openCopy(backupOf(errand)), errand.progress);
    const ReadableLogbook logbook(errand.options.data, errand.clock);
    tellNote(errand, logbook.note());
    const Difference difference = differenceOf(backup, summaryOf(logbook.database(), errand.progress));
    Json events = Json::array();
    const std::string text = differingEvents(backup, difference, events);
    Json json = jsonOf(difference);
    json["events"] = events;
    answer(errand, inWords(difference) + "\n" + text, json);
}

void restoreBackup(const Errand& errand) {
    const std::filesystem::path backup = backupOf(errand);
    const HeldLogbook held(errand.options.data);
    const Restored restored = restoreAll(held, backup, errand.clock, errand.progress);
    std::string text =
        fmt::format("Restored, checked and compared: the logbook holds {}.\n", inWords(restored.counts));
    if (!restored.keptBefore.empty())
        text += fmt::format("The logbook from before is kept: {}\n", restored.keptBefore.string());
    answer(errand, text, {{"holds", jsonOf(restored.counts)}, {"keptBefore", restored.keptBefore.string()}});
}

void takeFromBackup(const Errand& errand) {
    const std::filesystem::path backup = backupOf(errand);
    std::set<std::int64_t> keys;  // one that is named twice is meant once
    for (std::size_t word = 1; word < errand.options.words.size(); ++word)
        keys.insert(numberIn(errand.options.words[word], "an event"));
    const HeldLogbook held(errand.options.data);
    const Counts added = takeEvents(held, backup, {keys.begin(), keys.end()}, errand.clock, errand.progress);
    answer(errand, fmt::format("Added to the logbook: {}.\n", inWords(added)), {{"added", jsonOf(added)}});
}

}  // namespace tallybrook::keeper
