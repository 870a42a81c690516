#include "carry/ReadingProcess.h"

#include "carry/Reading.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::carry {

namespace {

void require(int failure) {
    if (failure != 0)
        throw std::system_error(failure, std::generic_category());
}

/// How the descriptors of the process are made of those of this one.
class FileActions {
public:
    FileActions() { require(posix_spawn_file_actions_init(&actions_)); }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void give(int descriptor, int as) {
        require(posix_spawn_file_actions_adddup2(&actions_, descriptor, as));
    }
    void throwAway(int descriptor) {
        require(posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_WRONLY, 0));
    }
    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

/// What a file can make its reader say, in bytes: each value of it is told once, in a form that is wider in
/// some places. More comes of damage alone.
std::uint64_t mostSaid(std::uint64_t fileSize) {
    constexpr std::uint64_t kWider = 64;
    return (fileSize + std::uint64_t{1 << 16}) * kWider;
}

pid_t spawn(const std::filesystem::path& program, const FileActions& actions) {
    std::string name = program.string();
    std::string command = kReadingCommand;
    std::string locale = "LC_ALL=C";
    std::array<char*, 3> arguments{name.data(), command.data(), nullptr};
    std::array<char*, 2> environment{locale.data(), nullptr};  // nothing that the library would heed
    pid_t process = -1;
    require(
        posix_spawn(&process, name.c_str(), actions.get(), nullptr, arguments.data(), environment.data()));
    return process;
}

}  // namespace

ReadingProcess::ReadingProcess(const RegularFile& file, std::uint64_t size, const ReadingRules& rules)
    : longestSilence_(rules.longestSilence), bytesLeft_(mostSaid(size)) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        require(errno);
    output_ = ends[0];
    const std::shared_ptr<void> input(nullptr, [&](void*) { close(ends[1]); });
    try {
        FileActions actions;
        actions.give(file.descriptor(), STDIN_FILENO);
        actions.give(ends[1], STDOUT_FILENO);
        actions.throwAway(STDERR_FILENO);
        process_ = spawn(rules.program, actions);
    } catch (const std::system_error&) {
        close(output_);
        throw;
    }
}

ReadingProcess::~ReadingProcess() {
    close(output_);
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

Message ReadingProcess::next(Progress& progress, std::int64_t done) {
    try {
        requireBytes(kMessageHead, progress, done);
        const std::uint64_t size = sizeOfMessage(std::string_view(bytes_).substr(taken_));
        if (size > bytesLeft_)
            throw ReadingBroken{};
        bytesLeft_ -= size;
        taken_ += kMessageHead;
        requireBytes(size, progress, done);
        Message message = unpacked(std::string_view(bytes_).substr(taken_, size));
        taken_ += size;
        return message;
    } catch (const NoMessage&) {
        throw ReadingBroken{};
    }
}

void ReadingProcess::requireBytes(std::size_t count, Progress& progress, std::int64_t done) {
    while (bytes_.size() - taken_ < count) {
        bytes_.erase(0, taken_);
        taken_ = 0;
        waitForBytes(progress, done);
        readBytes();
    }
}

/// Looks now and then whether the work is to be given up.
void ReadingProcess::waitForBytes(Progress& progress, std::int64_t done) const {
    constexpr std::chrono::milliseconds kBetweenLooks{50};
    for (std::chrono::milliseconds waited{0}; waited < longestSilence_; waited += kBetweenLooks) {
        pollfd awaited{.fd = output_, .events = POLLIN, .revents = 0};
        if (poll(&awaited, 1, static_cast<int>(kBetweenLooks.count())) > 0)
            return;
        progress.reach(done);
    }
    throw ReadingBroken{};
}

void ReadingProcess::readBytes() {
    constexpr std::size_t kPart = std::size_t{1} << 18U;
    const std::size_t before = bytes_.size();
    bytes_.resize(before + kPart);
    const ssize_t count = read(output_, bytes_.data() + before, kPart);
    bytes_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0 || (count < 0 && errno != EINTR))
        throw ReadingBroken{};
}

}  // namespace tallybrook::carry
