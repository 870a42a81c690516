#pragma once

#include "BenchDisplay.h"
#include "app/Application.h"
#include "controls/Control.h"
#include "controls/Grid.h"

#include <filesystem>
#include <functional>
#include <string>

#include <sqlite3.h>

namespace tallybrook::bench {

/// The time of the measured program.
inline constexpr DateTime kNow = makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55};

/// Where events or games are searched: the screen, and the list that the field is picked from.
struct SearchScreen {
    const char* name;
    const char* fields;
};

inline constexpr SearchScreen kEventSearch{"frmSearchEvents", "cboListField(0)"};
inline constexpr SearchScreen kGameSearch{"frmSearchGames", "cboSearchFld(0)"};

/// What is searched for, in the words of the screen.
struct Criterion {
    const char* field;
    const char* comparison;
    const char* value;
};

/// Whether the backup that begins with the program is waited for, so that it does not disturb what follows.
enum class AtStart { AwaitBackup, GoOn };

/// The program on a data folder, from its start to its end, used as a person uses it. Of its backups one
/// stays.
class Session {
public:
    explicit Session(const std::filesystem::path& dataFolder, AtStart atStart = AtStart::AwaitBackup);

    BenchDisplay display;

    [[nodiscard]] SessionState& state() { return program().session; }
    /// The list on the screen in front.
    [[nodiscard]] const Grid& list() { return grid(); }
    /// The program's own connection.
    [[nodiscard]] sqlite3* connection();

    void click(const std::string& control);
    /// The click that is measured; by this name a profiler tells what it costs from what leads there.
    void measuredClick(const std::string& control);
    void type(const std::string& control, const std::string& text);
    void pick(const std::string& control, const std::string& item);
    void selectRow(int row);
    /// Takes what a window shows of the list.
    void drawList();
    /// Loads a screen as another one that hands over does.
    void handOverTo(const std::string& screen);
    /// Goes to a search screen, up to the click on Search.
    void prepareSearch(const SearchScreen& search, const Criterion& criterion);
    /// Unloads every screen, and shows the main menu afresh.
    void returnToMain();

private:
    [[nodiscard]] Program& program() { return application_.program(); }
    [[nodiscard]] Screen& screen() { return *program().screens.front(); }
    [[nodiscard]] Control& control(const std::string& name);
    [[nodiscard]] Grid& grid() { return dynamic_cast<Grid&>(control("dgdEventList")); }
    void perform(const std::function<void()>& action) { program().perform(action); }

    SettableClock clock_{kNow};
    Application application_;
};

}  // namespace tallybrook::bench
