#pragma once

#include "player/PlannedDisplay.h"
#include "player/Stage.h"

#include <functional>

namespace tallybrook {

/// The screens' own model, without any toolkit: nothing is drawn, and the hands act on the controls.
class ModelStage : public Stage {
public:
    Display& display() override { return display_; }
    void attach(Program& program) override { program_ = &program; }
    void plan(Planned answer) override { display_.plan(std::move(answer)); }

    Arrival click(Control& control) override;
    Arrival type(TextBox& box, const std::string& text) override;
    Arrival focus(Control& control) override;
    Arrival pick(ItemList& list, const std::function<int()>& index) override;
    Arrival pickFolder(FolderList& list, const std::function<std::string()>& path) override;
    Arrival selectRow(Grid& grid, const std::function<int()>& row) override;
    Arrival tab(Screen& screen, bool backwards) override;
    Arrival press(Screen& screen, const std::string& key) override;
    void close(Screen& screen) override;
    void takePicture(Screen&, const std::string&) override {}  // there is nothing to be seen
    void takeReportPicture(const std::filesystem::path&, const std::string&) override {}

private:
    /// Moves the focus to the control, and goes on with what that has come to.
    Arrival moveFocus(Control& control, const std::function<void(Arrival)>& then);
    /// Moves the focus to the control, and uses it if it can be used there.
    Arrival use(Control& control, const std::function<void()>& action);
    Arrival perform(const std::function<Arrival()>& action);

    PlannedDisplay display_;
    Program* program_ = nullptr;
};

}  // namespace tallybrook
