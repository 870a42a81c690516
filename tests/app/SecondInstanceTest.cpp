// Two starts at the same moment, in processes of their own: one has the logbook, the other one says so.

#include "app/Application.h"
#include "support/TemporaryFolder.h"
#include "support/TestDisplay.h"

#include <algorithm>
#include <array>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr char kRuns = 'r';
constexpr char kAlreadyRunning = 'a';
constexpr char kNeither = 'n';

/// A pipe of single letters.
class Letters {
public:
    Letters() {
        if (pipe(ends_.data()) != 0)
            throw std::runtime_error("no pipe");
    }
    ~Letters() {
        close(ends_[0]);
        close(ends_[1]);
    }
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

    void put(char letter) const { EXPECT_EQ(write(ends_[1], &letter, 1), 1); }
    [[nodiscard]] char take() const {
        char letter = 0;
        EXPECT_EQ(read(ends_[0], &letter, 1), 1);
        return letter;
    }

private:
    std::array<int, 2> ends_{};
};

/// Presses the default button of every box.
class TurnedAwayDisplay : public TestDisplay {
public:
    bool isTurnedAway = false;

    Answer messageBox(const MessageBox& box) override {
        isTurnedAway = isTurnedAway || box.title == "Already Running";
        return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
    }
};

/// Programs in processes of their own, which wait for the start and then tell what has become of them.
class Programs {
public:
    explicit Programs(fs::path data) : data_(std::move(data)) {}
    ~Programs() { killAll(); }
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;

    void prepare(int count) {
        for (int i = 0; i < count; ++i) {
            const pid_t child = fork();
            if (child == 0)
                run();
            children_.push_back(child);
        }
    }
    /// Starts all at once; what they tell, in ascending order.
    [[nodiscard]] std::string start() {
        for (std::size_t i = 0; i < children_.size(); ++i)
            go_.put('g');
        std::string told;
        for (std::size_t i = 0; i < children_.size(); ++i)
            told += told_.take();
        std::ranges::sort(told);
        return told;
    }
    void killAll() {
        for (const pid_t child : children_) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
        children_.clear();
    }

private:
    [[noreturn]] void run() {
        const SettableClock clock{makeDate(2026, 11, 14)};
        TurnedAwayDisplay display;
        Application program(display, clock, data_);
        static_cast<void>(go_.take());
        program.start();
        const bool runs = program.program().screens.find("frmMain") != nullptr;
        const bool isOne = runs != display.isTurnedAway;
        told_.put(!isOne ? kNeither : runs ? kRuns : kAlreadyRunning);
        while (true)
            pause();  // until it is killed
    }

    fs::path data_;
    Letters go_;
    Letters told_;
    std::vector<pid_t> children_;
};

TEST(SecondInstance, IsTurnedAwayInEveryRaceOfTwoStarts) {
    const TemporaryFolder folder;
    for (int race = 0; race < 100; ++race) {
        // Every other race is one for the first start of all.
        Programs programs(folder.path() / std::to_string(race / 2));
        programs.prepare(2);
        EXPECT_EQ(programs.start(), (std::string{kAlreadyRunning, kRuns})) << "race " << race;
    }
}

TEST(SecondInstance, MayStartWhenTheFirstWasKilled) {
    const TemporaryFolder folder;
    for (int round = 0; round < 10; ++round) {
        Programs first(folder.path() / "data");
        first.prepare(1);
        EXPECT_EQ(first.start(), std::string{kRuns});
        Programs second(folder.path() / "data");
        second.prepare(1);
        EXPECT_EQ(second.start(), std::string{kAlreadyRunning});
        first.killAll();
        Programs third(folder.path() / "data");
        third.prepare(1);
        EXPECT_EQ(third.start(), std::string{kRuns})
            << "the second one, which was turned away, is still there";
    }
}

}  // namespace

}  // namespace tallybrook::test
