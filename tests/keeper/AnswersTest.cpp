// What the command line says, word by word: answers.txt is played and must come out as it stands. A line of
// it with a "$" calls the keeper, one with a ":" prepares something, and the lines below are what comes of
// it: "~" what was being done and how far it came, "!" a note, and the exit status where it is not 0.
// Environment variable TALLYBROOK_WRITE_EXPECTED writes it anew.

#include "SourceFolder.h"
#include "backup/Backups.h"
#include "keeper/Access.h"
#include "keeper/Keeper.h"
#include "keeper/Logbooks.h"
#include "runtime/InstanceLock.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tallybrook::keeper {

namespace {

namespace fs = std::filesystem;

/// Writes down each piece of work and how far it came.
class ToldProgress : public Progress {
public:
    bool isCancelled() override { return false; }
    std::string take() {
        end();
        return std::exchange(told_, {});
    }

protected:
    void show(std::string_view what, std::int64_t total) override {
        end();
        what_ = what;
        total_ = total;
    }
    void showStep(std::int64_t done) override { done_ = done; }

private:
    void end() {
        if (!what_.empty())
            told_ += total_ == 0 ? fmt::format("~ {}\n", what_)
                                 : fmt::format("~ {}: {} of {}\n", what_, done_, total_);
        what_.clear();
    }

    std::string told_;
    std::string what_;
    std::int64_t total_ = 0;
    std::int64_t done_ = 0;
};

std::string replaced(std::string text, const std::string& old, const std::string& fresh) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += fresh.size())
        text.replace(at, old.size(), fresh);
    return text;
}

std::string withMark(const std::string& mark, const std::string& text) {
    return text.empty() ? text : mark + replaced(text.substr(0, text.size() - 1), "\n", "\n" + mark) + "\n";
}

/// Plays the lines of the script on a data folder.
class Play {
public:
    std::string line(const std::string& line) {
        if (line.starts_with(": "))
            prepare(line.substr(2));
        return line + "\n" + (line.starts_with("$ ") ? answerTo(line.substr(2)) : "");
    }

private:
    std::string answerTo(const std::string& call) {
        std::istringstream words(replaced(call, "<data>", data_.string()));
        std::vector<std::string> arguments(std::istream_iterator<std::string>(words), {});
        if (call.find("--data") == std::string::npos)
            arguments.insert(arguments.end(), {"--data", data_.string()});
        std::ostringstream out;
        std::ostringstream notes;
        const ExitStatus status = runKeeper(arguments, clock_, progress_, out, notes);
        const std::string told =
            progress_.take() + out.str() + withMark("! ", notes.str()) +
            (status == ExitStatus::Done ? "" : fmt::format("exit status {}\n", static_cast<int>(status)));
        return replaced(told, data_.string(), "<data>");
    }

    void prepare(const std::string& line) {
        const std::size_t end = std::min(line.find(' '), line.size());
        preparations_.at(line.substr(0, end))(
            replaced(line.substr(std::min(end + 1, line.size())), "<newest>", newest()));
    }

    [[nodiscard]] std::string newest() const {
        const BackupFolder backups = backupsIn(data_);
        const std::vector<DateTime> times = backups.times();
        return times.empty() ? "" : backups.existing(times.back()).filename().string();
    }
    /// The place below the data folder before a " = ", and what stands behind it.
    [[nodiscard]] std::pair<fs::path, std::string> placeAndText(const std::string& line) const {
        const std::size_t sign = line.find(" = ");
        return {data_ / line.substr(0, sign), line.substr(sign + 3)};
    }
    void query(const std::string& words) const {
        const auto [file, statement] = placeAndText(words);
        SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec(statement);
    }
    void write(const std::string& words) const {
        const auto [file, text] = placeAndText(words);
        std::ofstream(file) << text << '\n';
    }
    void backUp() {
        backUpNow(logbookIn(data_), clock_);
        clock_.set(clock_.now() + std::chrono::minutes{1});
    }

    const std::map<std::string, std::function<void(const std::string&)>> preparations_{
        {"event", [this](const std::string& name) { test::addEvent(data_, name, 1); }},
        {"delete", [this](const std::string& key) { test::deleteEvent(data_, std::stoi(key)); }},
        {"sql", [this](const std::string& words) { query(words); }},
        {"write", [this](const std::string& words) { write(words); }},
        {"folder", [this](const std::string& name) { fs::create_directory(data_ / name); }},
        {"pipe", [this](const std::string& name) { ASSERT_EQ(mkfifo((data_ / name).c_str(), 0600), 0); }},
        {"remove", [this](const std::string& name) { fs::remove_all(data_ / name); }},
        {"cut", [this](const std::string& name) { fs::resize_file(data_ / name, 6000); }},
        {"back-up", [this](const std::string& /*nothing*/) { backUp(); }},
        {"running",
         [this](const std::string& /*nothing*/) {
             running_ = std::make_unique<InstanceLock>(lockIn(data_));
         }},
        {"ended", [this](const std::string& /*nothing*/) { running_.reset(); }},
    };

    test::TemporaryFolder folder_;
    fs::path data_ = folder_.path();
    SettableClock clock_{makeDate(2026, 11, 22) + std::chrono::hours{20}};
    ToldProgress progress_;
    std::unique_ptr<InstanceLock> running_;
};

TEST(KeeperAnswers, AreThoseThatPeopleKnow) {
    const fs::path file = fs::path(TALLYBROOK_SOURCE_DIR) / "tests/keeper/answers.txt";
    const std::string expected = test::bytesOf(file);
    std::istringstream script(expected);
    std::string played;
    Play play;
    for (std::string line; std::getline(script, line);) {
        if (line.starts_with("# "))
            played += "\n" + line + "\n";
        else if (line.starts_with("$ ") || line.starts_with(": "))
            played += play.line(line);
    }
    if (std::getenv("TALLYBROOK_WRITE_EXPECTED") != nullptr)
        std::ofstream(file, std::ios::binary) << played;
    EXPECT_TRUE(test::isSameText(played, expected));
}

}  // namespace

}  // namespace tallybrook::keeper
