#include "runtime/OwnFiles.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tallybrook {

namespace {

/// Writes more into a file than the process may, and exits with the number of the failure.
[[noreturn]] void writeTooMuch(const std::filesystem::path& file) {
    setUpFiles();
    const rlimit limit{.rlim_cur = 1000, .rlim_max = 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
        TextWriter writer(file);
        writer.writeLine(std::string(2000, 'x'));
        writer.close();
    } catch (const RunTimeError& failure) {
        _exit(failure.number());
    }
    _exit(0);
}

TEST(LargeFile, FailsLikeAFullDisk) {
    const test::TemporaryFolder folder;
    EXPECT_EXIT(writeTooMuch(folder.path() / "text.txt"), testing::ExitedWithCode(error::kDiskFull), "");
}

}  // namespace

}  // namespace tallybrook
