#include "player/CommandTable.h"

#include "player/Performer.h"

#include <algorithm>
#include <string>

namespace tallybrook {

namespace {

const std::vector<Command>& commands() {
    static const std::vector<Command> kCommands{
        {"start", {}, When::Once, &Performer::start},
        {"click", {Shape::Name}, When::Running, &Performer::click},
        {"type", {Shape::Name, Shape::Text}, When::Running, &Performer::type},
        {"focus", {Shape::Name}, When::Running, &Performer::focus},
        {"tab", {}, When::Running, &Performer::tab},
        {"backtab", {}, When::Running, &Performer::backtab},
        {"press", {Shape::Text}, When::Running, &Performer::press},
        {"pick", {Shape::Name, Shape::Item}, When::Running, &Performer::pick},
        {"row", {Shape::Name, Shape::Row}, When::Running, &Performer::row},
        {"close", {}, When::Running, &Performer::close},
        {"answer", {Shape::Name}, When::InBox, nullptr},
        {"reply", {Shape::Text}, When::InBox, nullptr},
        {"choose", {Shape::TextOrCancel}, When::InBox, nullptr},
        {"clock", {Shape::Text}, When::Always, &Performer::clock},
        {"show", {Shape::Names}, When::Running, &Performer::show},
        {"screens", {}, When::Running, &Performer::screens},
        {"rows", {Shape::Name}, When::Always, &Performer::rows},
        {"put", {Shape::Name, Shape::Fields}, When::Running, &Performer::put},
        {"change", {Shape::Name, Shape::Row, Shape::Fields}, When::Running, &Performer::change},
        {"write", {Shape::Text, Shape::Text}, When::Running, &Performer::write},
        {"shot", {Shape::Name}, When::Running, &Performer::shot},
        {"shot-report", {Shape::Name}, When::Running, &Performer::shotReport},
        {"note", {Shape::Text}, When::Always, &Performer::note},
    };
    return kCommands;
}

bool isNumber(std::string_view text, int least) {
    constexpr std::size_t kMostDigits = 9;
    return !text.empty() && text.size() <= kMostDigits &&
           text.find_first_not_of("0123456789") == std::string_view::npos &&
           std::stoi(std::string(text)) >= least;
}

bool fits(const Word& word, Shape shape) {
    switch (shape) {
        case Shape::Name:
        case Shape::Names:
            return !word.quoted;
        case Shape::Text:
            return word.quoted;
        case Shape::TextOrCancel:
            return word.quoted || word.text == "cancel";
        case Shape::Item:
            return word.quoted ||
                   (word.text.starts_with('#') && isNumber(std::string_view(word.text).substr(1), 0));
        case Shape::Fields:
            return true;
        case Shape::Row:
            break;
    }
    return !word.quoted && isNumber(word.text, 1);
}

bool fits(const ScriptLine& line, const std::vector<Shape>& shapes) {
    std::vector<Shape> wanted = shapes;
    const std::size_t given = line.words.size() - 1;
    if (!wanted.empty() && (wanted.back() == Shape::Names || wanted.back() == Shape::Fields))
        wanted.resize(std::max(given, wanted.size()), wanted.back());
    return std::equal(line.words.begin() + 1, line.words.end(), wanted.begin(), wanted.end(),
                      [](const Word& word, Shape shape) { return fits(word, shape); });
}

std::string_view described(Shape shape) {
    switch (shape) {
        case Shape::Name:
            return " NAME";
        case Shape::Names:
            return " NAME ...";
        case Shape::Text:
            return " \"TEXT\"";
        case Shape::TextOrCancel:
            return " \"TEXT\"|cancel";
        case Shape::Item:
            return " \"TEXT\"|#N";
        case Shape::Fields:
            return " FIELD VALUE ...";
        case Shape::Row:
            break;
    }
    return " N";
}

/// The command with its arguments, for people.
std::string form(const Command& command) {
    std::string form(command.name);
    for (const Shape shape : command.arguments)
        form += described(shape);
    return form;
}

}  // namespace

const Command& commandOf(const ScriptLine& line) {
    const auto found = std::ranges::find(commands(), line.command(), &Command::name);
    if (found == commands().end() || line.words.front().quoted)
        line.fail("there is no command " + inQuotes(line.command()));
    if (!fits(line, found->arguments))
        line.fail("the command is: " + form(*found));
    return *found;
}

std::string commandForms() {
    std::string forms;
    for (const Command& command : commands())
        forms += form(command) + "\n";
    return forms;
}

}  // namespace tallybrook
