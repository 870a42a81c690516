#pragma once

#include "desktop/DesktopDisplay.h"
#include "player/BoxHands.h"
#include "player/Stage.h"

#include <QApplication>
#include <filesystem>
#include <functional>
#include <optional>

namespace tallybrook {

/// The real windows: whatever the hands do becomes mouse and key events on their widgets. There must be a
/// QApplication.
class DesktopStage : public Stage {
public:
    /// `shots` is the folder for pictures; none are taken without one.
    explicit DesktopStage(std::optional<std::filesystem::path> shots = std::nullopt);

    Display& display() override { return display_; }
    void attach(Program& program) override { display_.attach(program); }
    void plan(Planned answer) override { boxes_.plan(std::move(answer)); }

    Arrival click(Control& control) override;
    Arrival type(TextBox& box, const std::string& text) override;
    Arrival focus(Control& control) override;
    Arrival pick(ItemList& list, const std::function<int()>& index) override;
    Arrival pickFolder(FolderList& list, const std::function<std::string()>& path) override;
    Arrival selectRow(Grid& grid, const std::function<int()>& row) override;
    Arrival tab(Screen& screen, bool backwards) override;
    Arrival press(Screen& screen, const std::string& key) override;
    void close(Screen& screen) override;
    void takePicture(Screen& screen, const std::string& name) override;
    void takeReportPicture(const std::filesystem::path& report, const std::string& name) override;

private:
    [[nodiscard]] QWidget& widgetOf(const Control& control) const;
    [[nodiscard]] QWidget& windowOf(const Screen& screen) const;
    /// Does something with the mouse or the keyboard, lets the windows follow, and raises what has escaped
    /// from the program meanwhile.
    Arrival act(const std::function<void()>& action);
    /// Moves the focus to the control, and does something there if it can be used.
    Arrival use(const Control& control, const std::function<void(QWidget& widget)>& action);
    void settle();

    void save(QWidget& window, const std::string& name) const;

    std::optional<std::filesystem::path> shots_;
    DesktopDisplay display_{{.hasOwnKeys = false}};
    BoxHands boxes_;
};

}  // namespace tallybrook
