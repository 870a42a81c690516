#include "monkey/Life.h"

#include "app/Application.h"
#include "monkey/Home.h"
#include "monkey/Invariants.h"
#include "monkey/Monkey.h"
#include "monkey/ScriptLines.h"
#include "player/DesktopStage.h"
#include "player/ModelStage.h"
#include "player/PlayStopped.h"
#include "player/Player.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kLongestLife = 120;  // seconds of processor time, after which it is taken to hang

// What a life leaves in its folder.
constexpr const char* kScript = "script";
constexpr const char* kTranscript = "transcript";
constexpr const char* kWrong = "wrong";
constexpr const char* kErrors = "errors";

/// Stands between the player and the one who says what is done next, and looks at what comes of it.
class Watch {
public:
    Watch(const fs::path& home, NextLine next)
        : next_(std::move(next)), script_(home / kScript), transcript_(home / kTranscript) {}

    [[nodiscard]] std::ostream& transcript() { return written_; }
    void attach(Program& program) { program_ = &program; }

    /// The next line; nothing once something is wrong.
    std::optional<std::string> next() {
        look();
        if (wrong_)
            return std::nullopt;
        auto line = next_(asked_, *program_);
        if (line)
            script_ << *line << '\n' << std::flush;
        if (const Screen* const front = program_->screens.front(); front != nullptr && asked_.empty())
            where_ = front->name();
        return line;
    }

    /// Looks at what the last line has come to, and gives what is wrong.
    const std::optional<std::string>& look() {
        readTranscript();
        if (!asked_.empty() || program_->screens.loaded().empty() || wrong_)
            return wrong_;
        if (!invariants_)
            invariants_.emplace(*program_);
        wrong_ = pointer_ == "pointer busy" ? "the pointer has stayed busy" : invariants_->broken();
        return wrong_;
    }

private:
    void readTranscript() {
        asked_.clear();
        std::istringstream lines(written_.str());
        written_.str({});
        for (std::string line; std::getline(lines, line);) {
            transcript_ << line << '\n' << std::flush;
            if (!wrong_)
                wrong_ = wrongInTranscript(line, where_);
            const bool asks =
                line.starts_with("box ") || line.starts_with("input ") || line.starts_with("dialog ");
            asked_ = asks ? line : "";
            if (line.starts_with("pointer "))
                pointer_ = line;
        }
    }

    NextLine next_;
    std::ofstream script_;
    std::ofstream transcript_;
    std::ostringstream written_;
    Program* program_ = nullptr;
    std::string asked_;
    std::string pointer_;
    std::string where_;  // the screen that was in front when the last action began
    std::optional<Invariants> invariants_;
    std::optional<std::string> wrong_;
};

std::string bytesIn(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return (std::ostringstream() << stream.rdbuf()).str();
}

/// Plays to the end, and gives what was wrong.
std::string play(const fs::path& home, const NextLine& next, Stage& stage) {
    Watch watch(home, next);
    ScriptLines lines([&] { return watch.next(); });
    std::istream script(&lines);
    script.exceptions(std::ios::badbit);  // what goes wrong in the thinking is no end of the script
    std::ostringstream errors;
    const fs::path data = plainPath(home / "data");
    Player player(script, watch.transcript(), stage, Places(data, fs::current_path()), Options().clock);
    Application application(player.display(), player.clock(), data);
    watch.attach(application.program());
    const int ended = player.play(
        application.program(), [&] { application.start(); }, errors);
    // A statement that is tried again without end is how the program waits for a row; it is in the middle of
    // something then.
    if (ended == status::kRetrying)
        return "";
    if (const auto& wrong = watch.look())
        return *wrong;
    return ended == status::kPlayed ? "" : errors.str();
}

std::string playOnModel(const fs::path& home, const NextLine& next) {
    ModelStage stage;
    return play(home, next, stage);
}

std::string playAtWindows(const fs::path& home, const NextLine& next) {
    int count = 1;
    std::string name = "monkey";
    std::array<char*, 2> arguments{name.data(), nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments.data());
    DesktopStage stage;
    return play(home, next, stage);
}

/// What is wrong with a logbook that nobody has open.
std::string brokenLogbook(const fs::path& file) {
    for (const char* const beside : {"-journal", "-wal", "-shm"})
        if (fs::exists(file.string() + beside))
            return fmt::format("the logbook has left its {} file", beside);
    SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
    const std::string check = database.execAndGet("PRAGMA integrity_check").getString();
    return check == "ok" ? "" : "the logbook is damaged: " + check;
}

[[noreturn]] void liveHere(const fs::path& home, Options::Where where, const Begin& begin) {
    const rlimit limit{kLongestLife, kLongestLife};
    setrlimit(RLIMIT_CPU, &limit);
    setenv("HOME", home.c_str(), 1);
    if (std::freopen((home / kErrors).c_str(), "w", stderr) == nullptr)
        std::abort();
    std::string wrong;
    try {
        wrong = (where == Options::Where::Desktop ? playAtWindows : playOnModel)(home, begin(home));
        if (wrong.empty())
            wrong = brokenLogbook(home / "data" / "Tallybrook_DB.mdb");
    } catch (const std::exception& failure) {
        wrong = failure.what();
    }
    std::ofstream(home / kWrong) << wrong;
    std::exit(0);
}

std::vector<std::string> linesIn(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// What was wrong with a life that has left its traces in `home`.
std::string wrongWith(const fs::path& home, int waited) {
    if (WIFEXITED(waited) && WEXITSTATUS(waited) == 0)
        return bytesIn(home / kWrong);
    const std::string how = WIFSIGNALED(waited) ? fmt::format("killed by signal {}", WTERMSIG(waited))
                                                : fmt::format("exit status {}", WEXITSTATUS(waited));
    return how + "\n" + bytesIn(home / kErrors);
}

Ending liveOnce(const Life& life, const Begin& begin) {
    const TemporaryFolder folder;
    const fs::path& home = folder.path();
    makeHome(life.seed, home / "data");
    fs::create_directories(home / "started" / "here");
    fs::current_path(home / "started" / "here");
    std::cout.flush();  // or the child writes it too
    const pid_t child = fork();
    if (child == 0)
        liveHere(home, life.where, begin);
    int waited = 0;
    if (child < 0 || waitpid(child, &waited, 0) != child)
        throw std::runtime_error("no process");
    fs::current_path("/");
    return {.wrong = wrongWith(home, waited),
            .script = linesIn(home / kScript),
            .transcript = bytesIn(home / kTranscript)};
}

Begin scripted(const std::vector<std::string>& script) {
    return [&](const fs::path&) -> NextLine {
        return [&, at = std::size_t{0}](std::string_view, Program&) mutable {
            return at < script.size() ? std::optional(script[at++]) : std::nullopt;
        };
    };
}

/// The next line of a transcript, but for the time of the logbook's file, which no script decides.
bool nextLine(std::istream& transcript, std::string& line) {
    const bool isMore = static_cast<bool>(std::getline(transcript, line));
    line.erase(std::min(line.find("Last modified: "), line.size()));
    return isMore;
}

/// The first lines in which the transcripts differ; empty where they are the same.
std::string difference(const std::string& model, const std::string& windows) {
    std::istringstream modelLines(model);
    std::istringstream windowLines(windows);
    for (std::string one, other;;) {
        const bool isMore = nextLine(modelLines, one);
        if (nextLine(windowLines, other) != isMore || one != other)
            return fmt::format("the displays differ\nmodel:   {}\nwindows: {}", one, other);
        if (!isMore)
            return "";
    }
}

}  // namespace

Ending live(const Life& life, const Begin& begin) {
    Ending ending = liveOnce(life, begin);
    if (life.where == Options::Where::Desktop && ending.wrong.empty())
        ending.wrong =
            difference(liveOnce({.seed = life.seed}, scripted(ending.script)).transcript, ending.transcript);
    return ending;
}

Ending liveAsMonkey(const Life& life, int actions) {
    return live(life, [=](const fs::path& home) -> NextLine {
        const auto monkey = std::make_shared<Monkey>(life.seed, home);
        return
            [=, done = -1](std::string_view asked, Program& program) mutable -> std::optional<std::string> {
                if (!asked.empty())
                    return monkey->answer(asked);
                if (++done == 0)
                    return "start";
                const Screen* const front = program.screens.front();
                return front == nullptr || done > actions ? std::nullopt : std::optional(monkey->act(*front));
            };
    });
}

Ending liveAgain(const Life& life, const std::vector<std::string>& script) {
    return live(life, scripted(script));
}

}  // namespace tallybrook::test
