#include "player/Performer.h"

#include "player/ControlState.h"
#include "player/FocusMark.h"
#include "player/KeyNames.h"
#include "player/Moment.h"
#include "player/StoredRows.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// Why a command that goes to the control cannot happen, as things stand.
std::optional<Refusal> refusalOf(const Control& control) {
    if (!control.isVisible() || !control.screen().isVisible())
        return Refusal::Hidden;
    if (!control.isEnabled())
        return Refusal::Disabled;
    return std::nullopt;
}

/// Whether a click on the control happens even where a third one got the focus.
bool isPressed(const Control& control) {
    return control.kind() != Control::Kind::TextBox && !control.hasRows();
}

Arrival clickArrival(bool isPressed, Arrival arrival) {
    return isPressed && arrival == Arrival::Elsewhere ? Arrival::Arrived : arrival;
}

/// The position that a word like "#3" gives; nothing for a text.
std::optional<std::size_t> positionIn(const Word& word) {
    return word.quoted ? std::nullopt : std::optional<std::size_t>(std::stoul(word.text.substr(1)));
}

/// The position, from 0, of the item that a line names. Stops the play where the list has no such item.
int itemIn(const ItemList& list, const ScriptLine& line) {
    const Word& word = line.words[2];
    const std::vector<std::string>& items = list.items();
    const auto named = std::ranges::find(items, word.text) - items.begin();
    const std::size_t item = positionIn(word).value_or(static_cast<std::size_t>(named));
    if (item >= items.size())
        line.fail(line.argument(1) + " has no item " + (word.quoted ? inQuotes(word.text) : word.text));
    return static_cast<int>(item);
}

/// The folder that a line names, which need not be one of the items. Stops the play where there is none.
std::string folderIn(const FolderList& list, const ScriptLine& line) {
    const Word& word = line.words[2];
    if (!word.quoted)
        return list.items()[static_cast<std::size_t>(itemIn(list, line))];
    if (!FolderList::isFolder(word.text))
        line.fail(line.argument(1) + " has no folder " + inQuotes(word.text));
    return word.text;
}

/// The row that a line names. Stops the play where the grid has no such row.
int rowIn(const Grid& grid, const ScriptLine& line) {
    const int row = std::stoi(line.argument(2));
    if (row > grid.rowCount())
        line.fail(line.argument(1) + " has no row " + line.argument(2));
    return row;
}

/// The text as keys give it: each line end is one press of Return.
std::string asTyped(std::string_view text) {
    std::string typed;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool endsLine = text[at] == '\r';
        typed += endsLine ? '\n' : text[at];
        if (endsLine && text.substr(at + 1).starts_with('\n'))
            ++at;
    }
    return typed;
}

/// The pairs of a field's name and its value, from that argument on.
std::vector<FieldText> fieldsFrom(const ScriptLine& line, std::size_t argument) {
    std::vector<FieldText> fields;
    for (; argument + 1 < line.words.size(); argument += 2) {
        const Word& value = line.words[argument + 1];
        fields.push_back({line.argument(argument),
                          value.quoted || value.text != "null" ? std::optional(value.text) : std::nullopt});
    }
    if (argument < line.words.size())
        line.fail("the field " + line.argument(argument) + " has no value");
    return fields;
}

/// Works on the logbook past the screens; a failure there stops the play.
void tryOnStore(const ScriptLine& line, const std::function<void()>& work) {
    try {
        work();
    } catch (const RunTimeError& failure) {
        line.fail(failure.description());
    }
}

std::string describe(const Screen& screen) {
    return screen.name() + (screen.isVisible() ? "(shown)" : "(hidden)");
}

}  // namespace

Performer::Performer(Program& program, std::function<void()> start, Stage& stage, SettableClock& clock,
                     Transcript& transcript)
    : program_(program), start_(std::move(start)), stage_(stage), clock_(clock), transcript_(transcript) {}

void Performer::carryOut(const ScriptLine& line) {
    const Command& command = commandOf(line);
    checkTime(command, line);
    transcript_.command(line.text);

    const FocusMark before = FocusMark::of(program_.screens);
    (this->*command.carryOut)(line);
    const FocusMark now = FocusMark::of(program_.screens);
    if (!program_.hasEnded() && now.differsFrom(before))
        transcript_.focus(now.control.empty() ? "none" : now.control);
}

void Performer::checkTime(const Command& command, const ScriptLine& line) const {
    if (command.when == When::Always)
        return;
    if (program_.hasEnded())
        line.fail("the program has ended");
    if (command.when == When::InBox)
        line.fail("no box is up");
    if (command.when == When::Once && started_)
        line.fail("the program has been started before");
    if (command.when == When::Running && !started_)
        line.fail("the program has not been started");
}

void Performer::start(const ScriptLine&) {
    started_ = true;
    start_();
}

void Performer::click(const ScriptLine& line) {
    Control& target = control(line);
    act(target, line.argument(1),
        [&, pressed = isPressed(target)] { return clickArrival(pressed, stage_.click(target)); });
}

void Performer::type(const ScriptLine& line) {
    Control& target = control(line);
    if (target.kind() != Control::Kind::TextBox)
        line.fail(line.argument(1) + " is no text box");
    auto& box = static_cast<TextBox&>(target);
    if (!box.options().multiline && line.argument(2).find_first_of("\r\n") != std::string::npos)
        line.fail(line.argument(1) + " takes one line only");
    act(box, line.argument(1), [&] { return stage_.type(box, asTyped(line.argument(2))); });
}

void Performer::focus(const ScriptLine& line) {
    Control& target = control(line);
    if (!target.isFocusable())
        line.fail(line.argument(1) + " cannot take the focus");
    act(target, line.argument(1), [&] { return stage_.focus(target); });
}

void Performer::tab(const ScriptLine& line) {
    moveOn(line, false);
}

void Performer::backtab(const ScriptLine& line) {
    moveOn(line, true);
}

void Performer::moveOn(const ScriptLine& line, bool backwards) {
    Screen& screen = front(line);
    const std::string name = screen.name();
    refuseKept(name, stage_.tab(screen, backwards));
}

void Performer::press(const ScriptLine& line) {
    if (!isKey(line.argument(1)))
        line.fail("there is no key " + inQuotes(line.argument(1)));
    Screen& screen = front(line);
    const std::string name = screen.name();
    refuseKept(name, stage_.press(screen, line.argument(1)));
}

void Performer::pick(const ScriptLine& line) {
    Control& target = control(line);
    if (!target.isList())
        line.fail(line.argument(1) + " is no list");
    if (target.kind() == Control::Kind::FolderList)
        return pickFolder(static_cast<FolderList&>(target), line);
    auto& list = static_cast<ItemList&>(target);
    act(list, line.argument(1), [&] { return stage_.pick(list, [&] { return itemIn(list, line); }); });
}

void Performer::pickFolder(FolderList& list, const ScriptLine& line) {
    act(list, line.argument(1),
        [&] { return stage_.pickFolder(list, [&] { return folderIn(list, line); }); });
}

void Performer::row(const ScriptLine& line) {
    Control& target = control(line);
    if (target.kind() != Control::Kind::Grid)
        line.fail(line.argument(1) + " is no grid");
    auto& grid = static_cast<Grid&>(target);
    act(grid, line.argument(1), [&] { return stage_.selectRow(grid, [&] { return rowIn(grid, line); }); });
}

void Performer::close(const ScriptLine& line) {
    stage_.close(front(line));
}

void Performer::clock(const ScriptLine& line) {
    const std::optional<DateTime> moment = readMoment(line.argument(1));
    if (!moment)
        line.fail("a time is \"YYYY-MM-DD HH:MM:SS\"");
    clock_.set(*moment);
}

void Performer::show(const ScriptLine& line) {
    for (std::size_t argument = 1; argument < line.words.size(); ++argument) {
        const Control& shown = control(line, argument);
        const bool hasFocus = shown.hasFocus() && program_.screens.front() == &shown.screen();
        transcript_.line(line.argument(argument) + " " + stateOf(shown, hasFocus, transcript_));
        for (const std::string& row : rowsOf(shown, transcript_))
            transcript_.line("  " + row);
    }
}

void Performer::screens(const ScriptLine&) {
    std::string written;
    for (const Screen* screen : program_.screens.loaded())
        written += " " + describe(*screen);
    transcript_.line("screens" + (written.empty() ? " none" : written));
}

void Performer::rows(const ScriptLine& line) {
    const std::string& table = line.argument(1);
    if (Store::fieldNames(table).empty())
        line.fail("there is no table " + table);
    const std::vector<std::string> written = storedRows(program_.store(), table, transcript_);
    transcript_.line(fmt::format("rows {} {}", table, written.size()));
    for (const std::string& row : written)
        transcript_.line("  " + row);
}

void Performer::put(const ScriptLine& line) {
    tryOnStore(line, [&] { addRow(program_.store(), line.argument(1), fieldsFrom(line, 2)); });
}

void Performer::change(const ScriptLine& line) {
    tryOnStore(line,
               [&] { changeRow(program_.store(), line.argument(1), line.argument(2), fieldsFrom(line, 3)); });
}

void Performer::write(const ScriptLine& line) {
    const std::filesystem::path file = program_.dataFolder / line.argument(1);
    std::ofstream stream(file, std::ios::binary);
    stream << line.argument(2);
    stream.close();
    if (!stream)
        line.fail(inQuotes(line.argument(1)) + " cannot be written");
}

void Performer::shot(const ScriptLine& line) {
    stage_.takePicture(front(line), line.argument(1));
}

void Performer::shotReport(const ScriptLine& line) {
    if (!report_)
        line.fail("no report has been opened");
    stage_.takeReportPicture(*report_, line.argument(1));
}

void Performer::note(const ScriptLine& line) {
    transcript_.line(transcript_.text(line.argument(1)));
}

Screen& Performer::front(const ScriptLine& line) const {
    Screen* const screen = program_.screens.front();
    if (screen == nullptr)
        line.fail("no screen is in front");
    return *screen;
}

Control& Performer::control(const ScriptLine& line, std::size_t argument) const {
    const std::string& word = line.argument(argument);
    const std::size_t point = word.find('.');
    const std::string name = point == std::string::npos ? word : word.substr(point + 1);
    Screen* const screen =
        point == std::string::npos ? &front(line) : program_.screens.find(word.substr(0, point));
    if (screen == nullptr)
        line.fail(word.substr(0, point) + " is not loaded");
    Control* const found = screen->find(name);
    if (found == nullptr)
        line.fail("there is no control " + name + " on " + screen->name());
    return *found;
}

void Performer::act(Control& target, const std::string& word, const std::function<Arrival()>& action) {
    if (const std::optional<Refusal> refusal = refusalOf(target); refusal) {
        transcript_.refused(word, *refusal);
        return;
    }
    // Copies, since the action may take the control away.
    const std::string screen = target.screen().name();  // NOLINT(performance-unnecessary-copy-initialization)
    const std::string name = target.name();             // NOLINT(performance-unnecessary-copy-initialization)
    const Arrival arrival = action();
    if (arrival == Arrival::Arrived || program_.hasEnded())
        return;
    const Screen* const left = program_.screens.find(screen);
    if (const Control* const missed = left == nullptr ? nullptr : left->find(name); missed != nullptr)
        transcript_.refused(word, refusalOf(*missed).value_or(Refusal::Kept));
}

void Performer::refuseKept(const std::string& name, Arrival arrival) {
    const Screen* const screen = program_.screens.find(name);
    if (arrival == Arrival::Kept && screen != nullptr && screen->focused() != nullptr)
        transcript_.refused(screen->focused()->name(), Refusal::Kept);
}

}  // namespace tallybrook
