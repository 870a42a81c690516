#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

/// Runs something in a process that may do no more than others may, and gives what it tells.
inline std::string asAnybody(const std::function<std::string()>& run) {
    constexpr uid_t kNobody = 65534;
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        const bool isAnybody = geteuid() != 0 || setresuid(kNobody, kNobody, kNobody) == 0;
        const std::string told = isAnybody ? run() : "not allowed to become anybody";
        _exit(write(ends[1], told.data(), told.size()) < 0 ? 1 : 0);
    }
    close(ends[1]);
    std::string told(1000, '\0');
    const ssize_t size = ::read(ends[0], told.data(), told.size());
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return told.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

}  // namespace tallybrook::test
