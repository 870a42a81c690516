#pragma once

#include "runtime/RunTimeError.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

class Screen;

/// The product's name: the title of every box that has none of its own.
inline constexpr std::string_view kProductName = "Tallybrook";

enum class Icon { None, Question, Information, Warning, Critical };
enum class Answer { OK, Cancel, Yes, No, Retry };
enum class Buttons { OK, OKCancel, YesNo, RetryCancel };

/// The answers that a set of buttons offers, in their order from left to right.
const std::vector<Answer>& answersOf(Buttons buttons);

/// A box with a text. Lines of the text are joined by carriage return and line feed.
struct MessageBox {
    std::string text;
    std::string title{kProductName};
    Buttons buttons = Buttons::OK;
    Icon icon = Icon::None;
    std::optional<Answer> preset = std::nullopt;  // the default button; the first where none is told

    [[nodiscard]] Answer defaultAnswer() const { return preset.value_or(answersOf(buttons).front()); }
};

struct InputBox {
    std::string text;
    std::string title{kProductName};
};

/// A file dialog. The filter has the form "Text files (*.txt)|*.txt|All files (*.*)|*.*".
struct FileDialog {
    enum class Purpose { Open, Save };
    Purpose purpose = Purpose::Open;
    std::string title = {};
    std::string folder = {};
    std::string filter = {};
    std::string name = {};
};

enum class Pointer { Default, Busy };

/// A page of the help: its contents, or one of the topics that a screen opens by number.
enum class HelpTopic { Contents = 0, PinfallEntry = 232, LineScoreEntry = 233 };

/// All that the screens ask of the outside. One implementation draws windows, another plays scripts; tests
/// give the answers in advance. Calls come on the program's one thread.
class Display {
public:
    virtual ~Display() = default;

    /// Shows the box and returns the button pressed.
    virtual Answer messageBox(const MessageBox& box) = 0;
    /// Shows the input box and returns the text given; nothing if it was cancelled.
    virtual std::optional<std::string> inputBox(const InputBox& box) = 0;
    /// Shows the dialog and returns the file chosen; nothing if it was cancelled.
    virtual std::optional<std::filesystem::path> fileDialog(const FileDialog& dialog) = 0;

    // What became of a screen. It is drawn from its own state: shown() and hidden() find it as it then is.
    virtual void loaded(Screen& screen) = 0;
    virtual void shown(Screen& screen) = 0;
    virtual void hidden(Screen& screen) = 0;
    virtual void unloaded(Screen& screen) = 0;
    /// The screen, visible already, was brought to the front.
    virtual void raised(Screen& screen) = 0;

    virtual void pointer(Pointer pointer) = 0;
    virtual void help(HelpTopic topic) = 0;
    /// Starts the platform's viewer on a text file.
    virtual void startViewer(const std::filesystem::path& file) = 0;

    /// What was entered has been stored.
    virtual void saved() {}

    /// A statement of the procedure `module` found no current row and is about to be tried again; `tries`
    /// counts from 1. Gives the display the thread for a moment. May give the procedure up by throwing
    /// EndHandler, or end the program by throwing EndProgram.
    virtual void retrying(std::string_view module, int tries) = 0;

    /// Something is being done that may take long; comes often. A display may show that, and draw its
    /// windows.
    virtual void atWork() {}

    /// Shows a failure that nothing has caught. The program ends after it.
    virtual void runTimeError(const RunTimeError& failure) = 0;
    /// The program has ended: no screen is left.
    virtual void ended() = 0;
};

}  // namespace tallybrook
