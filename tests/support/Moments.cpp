#include "support/Moments.h"

#include "support/DataFolder.h"
#include "support/FileCalls.h"

#include <csignal>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

/// Tells the calls of this thread that change files.
auto changesOfThisThread() {
    return [thread = std::this_thread::get_id()](const FileCall& call) {
        return std::this_thread::get_id() == thread && changesFiles(call);
    };
}

std::unique_ptr<TemporaryFolder> copyOf(const std::filesystem::path& folder) {
    auto copy = std::make_unique<TemporaryFolder>();
    copyDataFolder(folder, copy->path());
    return copy;
}

/// The call that another thread has begun may take a file away from under the first try.
std::unique_ptr<TemporaryFolder> copyBesideOthers(const std::filesystem::path& folder) {
    try {
        return copyOf(folder);
    } catch (const std::filesystem::filesystem_error&) {
        return copyOf(folder);
    }
}

}  // namespace

void Moments::keep(const std::filesystem::path& folder, const std::function<void()>& act) {
    const FileCalls calls([&, isChange = changesOfThisThread()](const FileCall& next) {
        if (isChange(next))
            copies_.push_back(copyBesideOthers(folder));
        return 0;
    });
    act();
}

const std::filesystem::path& Moments::operator[](std::size_t call) const {
    return copies_.at(call)->path();
}

void killBefore(std::size_t call, const std::function<void()>& act) {
    const pid_t child = fork();
    if (child == 0) {
        std::size_t left = call;
        const FileCalls dying([&left, isChange = changesOfThisThread()](const FileCall& next) {
            if (isChange(next) && left-- == 0)
                raise(SIGKILL);
            return 0;
        });
        act();
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it lived on, until " << status;
}

}  // namespace tallybrook::test
