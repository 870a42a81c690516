#pragma once

#include "controls/Display.h"
#include "player/Places.h"

#include <ostream>
#include <string>
#include <string_view>

namespace tallybrook {

/// The name of an answer as scripts and transcripts write it: the words on its button.
std::string_view nameOf(Answer answer);

/// Why a command did not happen.
enum class Refusal { Disabled, Hidden, Kept };

/// What a play writes: all that a person would have seen, one line for each.
class Transcript {
public:
    Transcript(std::ostream& out, Places places) : out_(out), places_(std::move(places)) {}

    /// A line as it stands.
    void line(std::string_view text);
    /// The path that a text of the script means, which may begin with "<data>" or "<cwd>".
    [[nodiscard]] std::string meant(std::string_view path) const { return places_.meant(path); }
    /// A text in its quoted form, with the folders named by what they are.
    [[nodiscard]] std::string text(std::string_view text) const;

    void command(std::string_view asItStands) { line("> " + std::string(asItStands)); }
    /// `event` is "load", "show", "hide" or "unload".
    void screen(std::string_view event, std::string_view name);
    void box(const MessageBox& box);
    void input(const InputBox& box);
    void dialog(const FileDialog& dialog);
    void pointer(Pointer pointer);
    void help(HelpTopic topic);
    void viewer(std::string_view commandLine) { line("viewer " + text(commandLine)); }
    /// Where the focus has come to rest: the control's name, or "none".
    void focus(std::string_view control) { line("focus " + std::string(control)); }
    void refused(std::string_view control, Refusal why);
    void retrying(std::string_view module) { line("retrying " + text(module)); }
    void runTimeError(const RunTimeError& failure);
    void endProgram() { line("end program"); }

private:
    std::ostream& out_;
    Places places_;
};

}  // namespace tallybrook
