#include "runtime/OwnFiles.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "support/TemporaryFolder.h"

#include <fstream>

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

/// Makes a file and a folder as other libraries do.
[[noreturn]] void makeOwn(const std::filesystem::path& file, const std::filesystem::path& inner) {
    setUpFiles();
    std::ofstream(file) << "mine";
    std::filesystem::create_directory(inner);
    _exit(0);
}

TEST(OwnFiles, AreTheirUsersAlone) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "file";
    const auto inner = folder.path() / "inner";
    EXPECT_EXIT(makeOwn(file, inner), testing::ExitedWithCode(0), "");
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(file).permissions(), perms::owner_read | perms::owner_write);
    EXPECT_EQ(std::filesystem::status(inner).permissions(), perms::owner_all);
}

}  // namespace

}  // namespace tallybrook
