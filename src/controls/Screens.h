#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tallybrook {

class Display;
class Screen;

/// The loaded screens, in the order of loading, which is the way back. A screen is addressed by its name and
/// is created on first use; there is one of each.
class Screens {
public:
    using Factory = std::function<std::unique_ptr<Screen>()>;

    explicit Screens(Display& display);
    ~Screens();
    Screens(const Screens&) = delete;
    Screens& operator=(const Screens&) = delete;

    /// What shows them.
    [[nodiscard]] Display& display() const { return display_; }

    /// Tells how a screen of that name is made.
    void add(const std::string& name, Factory factory) { factories_[name] = std::move(factory); }

    /// Creates the screen and runs its on-load handler; does nothing if it is loaded.
    void load(const std::string& name);
    /// Shows the screen, in front of the others. Nothing if it has been unloaded.
    void show(Screen& screen);
    void hide(Screen& screen);
    /// Removes the screen; the object lives on until the running handlers have returned.
    void unload(Screen& screen);
    /// Shows the screen that was loaded last.
    void showLast();
    /// Previous Screen: unloads the screen and shows the one loaded last among those left.
    void goBackFrom(Screen& screen);
    /// Unloads every screen, from the last loaded to the first, and loads the one of that name afresh.
    void startAfresh(const std::string& name);

    /// The loaded screens in the order of loading.
    [[nodiscard]] std::vector<Screen*> loaded() const;
    /// The loaded screen of that name; nullptr if it is not loaded.
    [[nodiscard]] Screen* find(const std::string& name) const;
    /// The screen in front: the last one shown that is not hidden; nullptr if there is none.
    [[nodiscard]] Screen* front() const;

    /// Drops the screens unloaded meanwhile: to be called when no handler runs.
    void dropUnloaded();
    /// Drops every screen without a word: the program has ended.
    void dropAll();

private:
    Display& display_;
    std::map<std::string, Factory> factories_;
    std::vector<std::unique_ptr<Screen>> loaded_;
    std::vector<std::unique_ptr<Screen>> unloaded_;
    std::vector<Screen*> shown_;  // in the order of being shown, the last in front
};

}  // namespace tallybrook
