#pragma once

#include "controls/Display.h"

class QWidget;

// The dialogs that give back more than a button. They wait for their user.
namespace tallybrook {

/// The text that was given; nothing if the box was cancelled.
std::optional<std::string> askForText(const InputBox& box, QWidget* parent);

/// The file that was chosen; nothing if the dialog was cancelled. The process's current folder moves to that
/// of the file.
std::optional<std::filesystem::path> chooseFile(const FileDialog& dialog, QWidget* parent);

}  // namespace tallybrook
