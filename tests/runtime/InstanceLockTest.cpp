#include "runtime/InstanceLock.h"
#include "runtime/RunTimeError.h"
#include "support/TemporaryFolder.h"

#include <cstdio>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook {

namespace {

TEST(InstanceLock, IsHeldByOneAtATime) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "lock";
    {
        const InstanceLock first(file);
        EXPECT_TRUE(first.held());
        EXPECT_FALSE(InstanceLock(file).held());
    }
    EXPECT_TRUE(InstanceLock(file).held());
}

TEST(InstanceLock, DiesWithItsProcess) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "lock";
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock lock(file);
        _exit(lock.held() ? 0 : 1);  // without letting go of it
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(InstanceLock(file).held());
}

TEST(InstanceLock, IsNotHeldByAProgramThatWasStarted) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "lock";
    std::FILE* started = nullptr;
    {
        const InstanceLock lock(file);
        EXPECT_TRUE(lock.held());
        started = popen("read line", "w");  // goes on until it is told something
        ASSERT_NE(started, nullptr);
    }
    EXPECT_TRUE(InstanceLock(file).held());
    pclose(started);
}

TEST(InstanceLock, NeedsItsFolder) {
    const test::TemporaryFolder folder;
    try {
        const InstanceLock lock(folder.path() / "none" / "lock");
        ADD_FAILURE();
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kPathNotFound);
    }
}

}  // namespace

}  // namespace tallybrook
