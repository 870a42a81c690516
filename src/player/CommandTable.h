#pragma once

#include "player/Script.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

class Performer;

/// What an argument of a command looks like.
enum class Shape {
    Name,          // a bare word
    Names,         // one bare word or more
    Text,          // a text in double quotes
    TextOrCancel,  // a text, or the word "cancel"
    Item,          // a text, or "#" and a position from 0
    Row,           // a whole number from 1
    Fields,        // pairs of a field's name and its value: a text, a bare number or date, or null
};

/// When a command can be carried out.
enum class When {
    Once,     // to start the program
    Running,  // from the start of the program to its end
    InBox,    // while a box, input box or dialog is up
    Always,
};

struct Command {
    std::string_view name;
    std::vector<Shape> arguments;
    When when;
    void (Performer::*carryOut)(const ScriptLine& line);
};

/// The command that a line gives. Stops the play at a line whose first word names none, or whose arguments
/// are not those of its command.
const Command& commandOf(const ScriptLine& line);

/// All commands with their arguments, each on a line of its own.
std::string commandForms();

}  // namespace tallybrook
