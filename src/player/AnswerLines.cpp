#include "player/AnswerLines.h"

#include "player/CommandTable.h"
#include "player/PlayStopped.h"
#include "runtime/TextCompare.h"

#include <algorithm>

namespace tallybrook {

namespace {

/// The button that the line presses, of those that there are.
Answer pressed(const ScriptLine& line, std::string_view title, const std::vector<Answer>& buttons) {
    const auto found =
        std::ranges::find(buttons, line.argument(1), [](Answer answer) { return nameOf(answer); });
    if (found == buttons.end())
        line.fail("box " + inQuotes(title) + " has no button " + inQuotes(line.argument(1)));
    return *found;
}

}  // namespace

ScriptLine AnswerLines::next(std::string_view title, std::initializer_list<std::string_view> commands) {
    const std::string unanswered = "unanswered box " + inQuotes(title);
    std::optional<ScriptLine> line = script_.next();
    if (!line)
        stopAt(script_.lineNumber(), unanswered);
    if (std::ranges::find(commands, line->command()) == commands.end())
        line->fail(unanswered);
    commandOf(*line);
    return *line;
}

Answer AnswerLines::answerTo(const MessageBox& box) {
    const ScriptLine line = next(box.title, {"answer"});
    const Answer answer = pressed(line, box.title, answersOf(box.buttons));
    transcript_.command(line.text);
    return answer;
}

std::optional<std::string> AnswerLines::replyTo(const InputBox& box) {
    const ScriptLine line = next(box.title, {"reply", "answer"});
    std::optional<std::string> reply = line.argument(1);
    if (line.command() == "answer") {
        const Answer answer = pressed(line, box.title, answersOf(Buttons::OKCancel));
        reply = answer == Answer::OK ? std::optional<std::string>{""} : std::nullopt;
    }
    if (reply && reply->find_first_of("\r\n") != std::string::npos)
        line.fail("an input box takes one line only");
    transcript_.command(line.text);
    if (reply)
        reply = asWritten(*reply);
    return reply;
}

std::optional<std::filesystem::path> AnswerLines::choiceFor(const FileDialog& dialog) {
    const ScriptLine line = next(dialog.title, {"choose"});
    transcript_.command(line.text);
    if (!line.words.at(1).quoted)
        return std::nullopt;
    return plainPath(startFolder_ / transcript_.meant(line.argument(1)));
}

}  // namespace tallybrook
