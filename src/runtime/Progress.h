#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

namespace tallybrook {

/// Work was given up because somebody asked for it. It leaves everything as it was before.
class Cancelled : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "Cancelled. Nothing was changed."; }
};

/// Tells somebody who waits what is being done and how far it is, and lets them give it up. Work that can
/// last longer than a moment takes one.
class Progress {
public:
    virtual ~Progress() = default;

    /// Begins a piece of the work; `what` is a text for people such as "Reading the frames", and `total` the
    /// number of its steps, 0 where nobody knows it. Throws Cancelled.
    void begin(std::string_view what, std::int64_t total = 0) {
        show(what, total);
        reach(0);
    }
    /// So many steps of the piece at hand are done. May be called for each row: it costs little. Throws
    /// Cancelled.
    void reach(std::int64_t done) {
        showStep(done);
        if (isCancelled())
            throw Cancelled{};
    }
    /// Whether the work is to be given up; for those who cannot be left by a throw.
    [[nodiscard]] virtual bool isCancelled() = 0;

protected:
    virtual void show(std::string_view what, std::int64_t total) = 0;
    virtual void showStep(std::int64_t done) = 0;
};

/// For work that nobody waits for.
class NoProgress : public Progress {
public:
    bool isCancelled() override { return false; }

protected:
    void show(std::string_view /*what*/, std::int64_t /*total*/) override {}
    void showStep(std::int64_t /*done*/) override {}
};

}  // namespace tallybrook
