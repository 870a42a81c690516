// Something that is no file stands where one is read or written. Each of these would keep a program waiting
// that opens it as a file; a test that fails does not come to its end.

#include "runtime/InstanceLock.h"
#include "runtime/RegularFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <functional>
#include <ostream>
#include <system_error>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

struct Other {
    const char* name;
    void (*put)(const fs::path& place);

    friend std::ostream& operator<<(std::ostream& out, const Other& other) { return out << other.name; }
};

void putFifo(const fs::path& place) {
    ASSERT_EQ(mkfifo(place.c_str(), S_IRUSR | S_IWUSR), 0);
}

void putSocket(const fs::path& place) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(place.string().size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, place.c_str());
    const int made = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(made);
}

class NoFile : public testing::TestWithParam<Other> {
protected:
    NoFile() { GetParam().put(place); }

    static int faultOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& failure) {
            return failure.number();
        }
        return 0;
    }
    [[nodiscard]] int faultOfWriting(TextWriter::Mode mode) const {
        return faultOf([&] { const TextWriter writer(place, mode); });
    }

    TemporaryFolder folder;
    fs::path place = folder.path() / "place";
};

TEST_P(NoFile, IsRefusedAtOnce) {
    for (const int flags : {O_RDONLY, O_WRONLY, O_RDWR, O_WRONLY | O_CREAT | O_TRUNC})
        EXPECT_THROW(RegularFile(place, flags), std::system_error) << flags;
}

TEST_P(NoFile, IsNotKeptOpen) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = openFiles();
    EXPECT_THROW(RegularFile(place, O_RDONLY), std::system_error);
    EXPECT_EQ(openFiles(), before);
}

TEST_P(NoFile, IsNotRead) {
    EXPECT_EQ(faultOf([&] { const TextReader reader(place); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { copyFile(place, folder.path() / "copy"); }), error::kPermissionDenied);
    EXPECT_FALSE(fs::exists(folder.path() / "copy"));
}

TEST_P(NoFile, IsNotWrittenNorReplaced) {
    const fs::file_type type = fs::status(place).type();
    const fs::path source = folder.path() / "source";
    std::ofstream(source) << "one";
    EXPECT_EQ(faultOfWriting(TextWriter::Mode::Overwrite), error::kPathFileAccess);
    EXPECT_EQ(faultOfWriting(TextWriter::Mode::Append), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { replaceFile(place, [](TextWriter&) {}); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { copyFile(source, place); }), error::kPermissionDenied);
    EXPECT_EQ(faultOf([&] { const InstanceLock lock(place); }), error::kPathFileAccess);
    EXPECT_EQ(fs::status(place).type(), type);
}

constexpr Other kOthers[] = {
    {"Fifo", putFifo},
    {"Socket", putSocket},
    {"LinkToADevice", [](const fs::path& place) { fs::create_symlink("/dev/zero", place); }},
    {"Folder", [](const fs::path& place) { fs::create_directory(place); }}};

INSTANTIATE_TEST_SUITE_P(As, NoFile, testing::ValuesIn(kOthers),
                         [](const auto& tested) { return tested.param.name; });

TEST(Device, IsRefusedAtOnce) {
    EXPECT_THROW(RegularFile("/dev/zero", O_RDONLY), std::system_error);
    EXPECT_THROW(RegularFile("/dev/null", O_WRONLY), std::system_error);
}

/// Every call is interrupted twice. An errno that is left behind by those does not count.
TEST(InterruptedCalls, AreRepeatedUntilTheyAreDone) {
    const TemporaryFolder folder;
    const fs::path place = folder.path() / "text";
    int calls = 0;
    const FileCalls watched([&](const FileCall& call) {
        if (call.path != place || call.kind == FileCall::Kind::Close)
            return 0;
        ++calls;
        return calls > 15 ? EIO : calls % 3 != 0 ? EINTR : 0;
    });
    RegularFile(place, O_WRONLY | O_CREAT).write("abc");
    const RegularFile file(place, O_RDONLY);
    std::array<char, 8> bytes{};
    EXPECT_EQ(file.read(bytes.data(), bytes.size()), 3U);
    EXPECT_EQ(std::string(bytes.data()), "abc");
    EXPECT_EQ(file.read(bytes.data(), bytes.size()), 0U);
    EXPECT_EQ(calls, 15);
    try {
        static_cast<void>(file.read(bytes.data(), bytes.size()));
        ADD_FAILURE() << "it was read";
    } catch (const std::system_error& failure) {
        EXPECT_EQ(failure.code(), std::errc::io_error);
    }
}

}  // namespace

}  // namespace tallybrook::test
