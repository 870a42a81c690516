#include "keeper/ArchiveCommands.h"

#include "keeper/Answer.h"
#include "keeper/ArchiveIntake.h"
#include "keeper/ExitStatus.h"
#include "runtime/DataHome.h"

#include <array>
#include <filesystem>
#include <memory>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

struct SameName {
    std::string_view name;
    Same same;
};
constexpr std::array<SameName, 3> kSameNames{
    {{"keep", Same::Keep}, {"take", Same::Take}, {"both", Same::Both}}};

Same sameCalled(std::string_view name) {
    for (const SameName& known : kSameNames) {
        if (known.name == name)
            return known.same;
    }
    throw WrongUsage("the choice is keep, take or both, not " + std::string(name));
}

/// What --same and --event say.
Choices choicesIn(const Options& options) {
    Choices choices;
    if (!options.same.empty())
        choices.usual = sameCalled(options.same);
    for (const std::string& event : options.events) {
        const std::size_t sign = event.find('=');
        if (sign == std::string::npos)
            throw WrongUsage("--event takes an event and a choice, as in 12=take");
        choices.ofEvents[numberIn(event.substr(0, sign), "an event")] = sameCalled(event.substr(sign + 1));
    }
    return choices;
}

Json jsonOf(const ArchivedEvent& event) {
    Json json{{"key", event.key}, {"name", event.name}, {"date", event.date}, {"center", event.center}};
    json["inLogbookAs"] = event.present ? Json(*event.present) : Json(nullptr);
    return json;
}

std::string inWords(const Intake& intake) {
    std::string text = fmt::format(
        "{}: {}.\n", intake.isNew ? "A new logbook was made" : "Added to the logbook", inWords(intake.added));
    if (intake.replaced != 0)
        text += fmt::format("Of these events {} took the place of the logbook's own.\n", intake.replaced);
    if (intake.passedOver != 0)
        text +=
            fmt::format("Events passed over, since the logbook has them already: {}.\n", intake.passedOver);
    if (intake.strays != 0)
        text +=
            fmt::format("Games and frames passed over, since they belong to no event: {}.\n", intake.strays);
    return text;
}

}  // namespace

void lookIntoArchive(const Errand& errand) {
    ArchiveReader archive(errand.options.words.front());
    const bool isThere = fs::exists(logbookIn(errand.options.data));
    const auto logbook =
        isThere ? std::make_unique<ReadableLogbook>(errand.options.data, errand.clock) : nullptr;
    const std::string note = logbook ? logbook->note() : std::string();
    tellNote(errand, note);
    const ArchiveContents contents =
        checkArchive(archive, logbook ? &logbook->database() : nullptr, errand.progress);
    std::string text = fmt::format("The archive is sound. It holds {}.\n", inWords(contents.counts));
    Json events = Json::array();
    for (const ArchivedEvent& event : contents.events) {
        text += fmt::format("{:>6}  {:<10}  {}{}{}\n", event.key, event.date, event.name,
                            event.center.empty() ? "" : ", " + event.center,
                            event.present ? "  (in the logbook already)" : "");
        events.push_back(jsonOf(event));
    }
    answer(errand, text, {{"holds", jsonOf(contents.counts)}, {"events", events}, {"note", note}});
}

void readArchiveFile(const Errand& errand) {
    const Choices choices = choicesIn(errand.options);
    ArchiveReader archive(errand.options.words.front());
    const HeldLogbook held(errand.options.data);
    const Intake intake = takeInArchive(held, archive, choices, errand.clock, errand.progress);
    answer(errand, inWords(intake),
           {{"newLogbook", intake.isNew},
            {"added", jsonOf(intake.added)},
            {"replaced", intake.replaced},
            {"passedOver", intake.passedOver},
            {"withoutEvent", intake.strays}});
}

}  // namespace tallybrook::keeper
