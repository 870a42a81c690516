#include "support/Moments.h"

#include "support/DataFolder.h"
#include "support/FileCalls.h"

#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

void Moments::keep(const std::filesystem::path& folder, const std::function<void()>& act) {
    const FileCalls calls([&](const FileCall& next) {
        if (changesFiles(next)) {
            copies_.push_back(std::make_unique<TemporaryFolder>());
            copyDataFolder(folder, copies_.back()->path());
        }
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
        const FileCalls dying([&left](const FileCall& next) {
            if (changesFiles(next) && left-- == 0)
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
