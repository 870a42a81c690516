#include "player/RecordingDisplay.h"

#include "controls/Screen.h"
#include "player/PlayStopped.h"

#include <utility>

namespace tallybrook {

Answer RecordingDisplay::messageBox(const MessageBox& box) {
    transcript_.box(box);
    stage_.plan(answers_.answerTo(box));
    return stage_.display().messageBox(box);
}

std::optional<std::string> RecordingDisplay::inputBox(const InputBox& box) {
    transcript_.input(box);
    stage_.plan(Reply{answers_.replyTo(box)});
    return stage_.display().inputBox(box);
}

std::optional<std::filesystem::path> RecordingDisplay::fileDialog(const FileDialog& dialog) {
    transcript_.dialog(dialog);
    stage_.plan(Choice{answers_.choiceFor(dialog)});
    return stage_.display().fileDialog(dialog);
}

void RecordingDisplay::loaded(Screen& screen) {
    transcript_.screen("load", screen.name());
    stage_.display().loaded(screen);
}

void RecordingDisplay::shown(Screen& screen) {
    transcript_.screen("show", screen.name());
    stage_.display().shown(screen);
}

void RecordingDisplay::hidden(Screen& screen) {
    transcript_.screen("hide", screen.name());
    stage_.display().hidden(screen);
}

void RecordingDisplay::unloaded(Screen& screen) {
    transcript_.screen("unload", screen.name());
    stage_.display().unloaded(screen);
}

void RecordingDisplay::raised(Screen& screen) {
    stage_.display().raised(screen);
}

void RecordingDisplay::saved() {
    stage_.display().saved();
}

void RecordingDisplay::pointer(Pointer pointer) {
    if (std::exchange(pointer_, pointer) != pointer)
        transcript_.pointer(pointer);
    stage_.display().pointer(pointer);
}

void RecordingDisplay::help(HelpTopic topic) {
    transcript_.help(topic);
    stage_.display().help(topic);
}

void RecordingDisplay::startViewer(const std::filesystem::path& file) {
    transcript_.viewer("notepad.exe " + file.string());
    if (onReport)
        onReport(file);
}

void RecordingDisplay::retrying(std::string_view module, int tries) {
    if (tries < kMostTries)
        return;
    transcript_.retrying(module);
    stopAt(answers_.lineNumber(), "the program tries a statement without end", status::kRetrying);
}

void RecordingDisplay::runTimeError(const RunTimeError& failure) {
    transcript_.runTimeError(failure);
}

void RecordingDisplay::ended() {
    transcript_.endProgram();
    stage_.display().ended();
}

}  // namespace tallybrook
