#pragma once

#include "runtime/Clock.h"
#include "runtime/Progress.h"
#include "store/Store.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

/// A logbook that is filled by statements.
class FilledLogbook {
public:
    FilledLogbook() { const Store made(path(), SettableClock(makeDate(2026, 11, 14))); }

    [[nodiscard]] std::filesystem::path folder() const { return folder_.path(); }
    [[nodiscard]] std::filesystem::path path() const { return folder_.path() / "Tallybrook_DB.mdb"; }
    [[nodiscard]] SQLite::Database open() const { return {path().string(), SQLite::OPEN_READWRITE}; }
    void fill(const std::string& sql) const { open().exec(sql); }

private:
    TemporaryFolder folder_;
};

/// Gives the work up after so many steps.
class ImpatientProgress : public Progress {
public:
    explicit ImpatientProgress(int steps) : left_(steps) {}

protected:
    void show(std::string_view /*what*/, std::int64_t /*total*/) override {}
    void showStep(std::int64_t /*done*/) override {}
    bool isCancelled() override { return left_-- == 0; }

private:
    int left_;
};

/// Keeps in words what it is told, a line for each piece of the work.
class ToldProgress : public Progress {
public:
    [[nodiscard]] std::string told() const { return told_ + "\n"; }
    bool isCancelled() override { return false; }

protected:
    void show(std::string_view what, std::int64_t total) override {
        told_ += (told_.empty() ? "" : "\n") + std::string(what) + " of " + std::to_string(total) + ":";
    }
    void showStep(std::int64_t done) override { told_ += " " + std::to_string(done); }

private:
    std::string told_;
};

}  // namespace tallybrook::test
