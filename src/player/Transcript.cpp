#include "player/Transcript.h"

#include "player/Words.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

std::string_view nameOf(Icon icon) {
    switch (icon) {
        case Icon::None:
            return "none";
        case Icon::Question:
            return "question";
        case Icon::Information:
            return "information";
        case Icon::Warning:
            return "warning";
        case Icon::Critical:
            break;
    }
    return "critical";
}

std::string_view nameOf(Refusal why) {
    switch (why) {
        case Refusal::Disabled:
            return "disabled";
        case Refusal::Hidden:
            return "hidden";
        case Refusal::Kept:
            break;
    }
    return "kept";
}

/// The names of the buttons from left to right, with a bar between them.
std::string namesOf(Buttons buttons) {
    std::string names;
    for (const Answer answer : answersOf(buttons))
        names.append(names.empty() ? "" : "|").append(nameOf(answer));
    return names;
}

}  // namespace

std::string_view nameOf(Answer answer) {
    switch (answer) {
        case Answer::OK:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Yes:
            return "Yes";
        case Answer::No:
            return "No";
        case Answer::Retry:
            break;
    }
    return "Retry";
}

void Transcript::line(std::string_view text) {
    out_ << text << '\n' << std::flush;
}

std::string Transcript::text(std::string_view text) const {
    return inQuotes(places_.named(text));
}

void Transcript::screen(std::string_view event, std::string_view name) {
    line(fmt::format("{} {}", event, name));
}

void Transcript::box(const MessageBox& box) {
    line(fmt::format("box title={} icon={} buttons={} default={} text={}", text(box.title), nameOf(box.icon),
                     namesOf(box.buttons), nameOf(box.defaultAnswer()), text(box.text)));
}

void Transcript::input(const InputBox& box) {
    line(fmt::format("input title={} text={}", text(box.title), text(box.text)));
}

void Transcript::dialog(const FileDialog& dialog) {
    const bool opens = dialog.purpose == FileDialog::Purpose::Open;
    line(fmt::format("dialog {} title={} folder={} filter={} name={}", opens ? "open" : "save",
                     text(dialog.title), text(dialog.folder), text(dialog.filter), text(dialog.name)));
}

void Transcript::pointer(Pointer pointer) {
    line(pointer == Pointer::Busy ? "pointer busy" : "pointer default");
}

void Transcript::help(HelpTopic topic) {
    line(topic == HelpTopic::Contents ? "help contents" : fmt::format("help {}", static_cast<int>(topic)));
}

void Transcript::refused(std::string_view control, Refusal why) {
    line(fmt::format("refused {} {}", control, nameOf(why)));
}

void Transcript::runTimeError(const RunTimeError& failure) {
    line(fmt::format("run-time error {} {}", failure.number(), text(failure.description())));
}

}  // namespace tallybrook
