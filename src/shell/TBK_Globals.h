#pragma once

#include "controls/Display.h"
#include "runtime/RunTimeError.h"

#include <initializer_list>
#include <string>
#include <string_view>

// What all screens share: the confirmations, and the boxes of the failures.
namespace tallybrook {

class Program;

/// Joins the lines of a box by carriage return and line feed.
std::string lines(std::initializer_list<std::string_view> parts);

/// The lines that tell a failure in `module`: its number, its description, and where it happened.
std::string failureText(const RunTimeError& failure, std::string_view module);

/// The "Database Error" box for a failure in `module`, as in "Game Information, Update_Game.".
MessageBox databaseErrorBox(const RunTimeError& failure, std::string_view module);

/// A question with Yes and No.
MessageBox question(std::string text, std::string title, Icon icon = Icon::Question);

/// Asks whether to leave the program; on Yes it ends at once (EndProgram) and nothing is saved by this.
void Exit_Confirm(Program& program);

/// Asks whether to reset the form. Resets nothing itself.
Answer Reset_Confirm(Program& program);

/// Opens the about box, in front of the screen that asks for it.
void showAbout(Program& program);

/// Asks whether to return to the main menu.
Answer Main_Confirm(Program& program);

/// Return to Main: unloads every screen, from the last loaded to the first, and loads frmMain afresh.
void returnToMain(Program& program);

}  // namespace tallybrook
