#pragma once

#include "controls/Display.h"
#include "desktop/ActionTaker.h"
#include "desktop/DesktopHabits.h"
#include "desktop/RetryNotice.h"
#include "desktop/ScreenWindow.h"
#include "manual/HelpWindow.h"
#include "shell/Program.h"

#include <QElapsedTimer>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tallybrook {

/// The program on the real desktop: each screen in a window of its own. It draws any screen and knows none.
/// There must be a QApplication.
class DesktopDisplay : public Display, private ActionTaker {
public:
    explicit DesktopDisplay(const DesktopHabits& habits = {});
    ~DesktopDisplay() override;
    DesktopDisplay(const DesktopDisplay&) = delete;
    DesktopDisplay& operator=(const DesktopDisplay&) = delete;

    /// The program whose screens are shown; to be told before its start.
    void attach(Program& program) { program_ = &program; }

    /// Runs what a person did. No exception leaves it, since none may pass through the toolkit: what the
    /// program itself does not take is kept for takeFailure(), and ends the event loop.
    void perform(const std::function<void()>& action) override;
    /// What has escaped from a perform() since the last call; nullptr if nothing has.
    [[nodiscard]] std::exception_ptr takeFailure() { return std::exchange(failure_, nullptr); }

    /// The window of a loaded screen; nullptr if there is none.
    [[nodiscard]] ScreenWindow* windowOf(const Screen& screen) const;
    /// The widget of a control; nullptr for menus and for what the layout leaves out.
    [[nodiscard]] QWidget* widgetOf(const Control& control) const;
    /// The action of a menu or an entry; nullptr for other controls.
    [[nodiscard]] QAction* actionOf(const Control& control) const;

    /// What became of the focus by the last press of the mouse or a key.
    [[nodiscard]] Arrival lastArrival() const { return lastArrival_; }
    void noteArrival(Arrival arrival) override { lastArrival_ = arrival; }
    WindowMemory& memory() override { return memory_; }
    [[nodiscard]] bool hasOwnKeys() const override { return habits_.hasOwnKeys; }

    Answer messageBox(const MessageBox& box) override;
    std::optional<std::string> inputBox(const InputBox& box) override;
    std::optional<std::filesystem::path> fileDialog(const FileDialog& dialog) override;
    void loaded(Screen& screen) override;
    void shown(Screen& screen) override;
    void hidden(Screen& screen) override;
    void unloaded(Screen& screen) override;
    void raised(Screen& screen) override;
    void pointer(Pointer pointer) override;
    void saved() override { hasSaved_ = true; }
    void help(HelpTopic topic) override;
    void startViewer(const std::filesystem::path& file) override;
    void atWork() override;
    void retrying(std::string_view module, int tries) override;
    void runTimeError(const RunTimeError& failure) override;
    void ended() override;

private:
    void refreshAll();
    void letGo(ScreenWindow& window);
    void deleteGone();
    void tellSaved();
    void endWork();
    /// Gets everything ready for a box: what it may be about is seen. Returns the window that it belongs to.
    QWidget* prepareForBox();
    [[nodiscard]] QWidget* frontWindow() const;
    void giveUpWaiting();
    [[nodiscard]] Screen* waitingScreen() const;

    DesktopHabits habits_;
    WindowMemory memory_;
    Program* program_ = nullptr;
    std::map<const Screen*, ScreenWindow*> windows_;
    std::vector<ScreenWindow*> gone_;  // those of unloaded screens, which an action may still come from
    std::unique_ptr<HelpWindow> help_;
    std::unique_ptr<RetryNotice> notice_;
    QElapsedTimer waiting_;
    std::exception_ptr failure_;
    Arrival lastArrival_ = Arrival::Arrived;
    QElapsedTimer working_;  // since the action began, or the last box in it was answered
    QElapsedTimer redrawn_;  // since the windows were drawn during work
    bool isRedrawing_ = false;
    bool hasSaved_ = false;  // whether the running action has stored anything
    bool isBusy_ = false;    // whether the pointer is busy because the work takes long
    int performing_ = 0;     // how many actions are running, one within the other
};

}  // namespace tallybrook
