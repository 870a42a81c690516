#pragma once

#include "runtime/Progress.h"

#include <cstdint>
#include <string>

namespace tallybrook::keeper {

/// Progress in one line of the terminal, where standard error is one. Ctrl+C cancels the work.
class TerminalProgress : public Progress {
public:
    /// From now on an interrupt is a wish to cancel, for the rest of the process.
    TerminalProgress();
    ~TerminalProgress() override;
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    bool isCancelled() override;

protected:
    void show(std::string_view what, std::int64_t total) override;
    void showStep(std::int64_t done) override;

private:
    void write(const std::string& line);

    bool isTerminal_;
    std::string what_;
    std::int64_t total_ = 0;
    std::int64_t percent_ = -1;
    std::size_t width_ = 0;  // of the line that stands there
};

}  // namespace tallybrook::keeper
