#include "keeper/TerminalProgress.h"

#include <algorithm>
#include <csignal>
#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

namespace tallybrook::keeper {

namespace {

volatile std::sig_atomic_t wasInterrupted = 0;

void noteInterrupt(int /*signal*/) {
    wasInterrupted = 1;
}

}  // namespace

TerminalProgress::TerminalProgress() : isTerminal_(isatty(STDERR_FILENO) != 0) {
    wasInterrupted = 0;
    std::signal(SIGINT, noteInterrupt);
    std::signal(SIGTERM, noteInterrupt);
}

TerminalProgress::~TerminalProgress() {
    write("");
}

void TerminalProgress::show(std::string_view what, std::int64_t total) {
    what_ = what;
    total_ = total;
    percent_ = -1;
}

void TerminalProgress::showStep(std::int64_t done) {
    const std::int64_t percent = total_ > 0 ? std::min(done, total_) * 100 / total_ : 0;
    if (percent == percent_)
        return;
    percent_ = percent;
    write(total_ > 0 ? fmt::format("{}: {}%", what_, percent) : what_ + "...");
}

bool TerminalProgress::isCancelled() {
    return wasInterrupted != 0;
}

/// Writes over the line before.
void TerminalProgress::write(const std::string& line) {
    if (!isTerminal_ || (line.empty() && width_ == 0))
        return;
    fmt::print(stderr, "\r{:<{}}\r{}", "", width_, line);
    std::fflush(stderr);
    width_ = line.size();
}

}  // namespace tallybrook::keeper
