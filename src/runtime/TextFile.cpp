#include "runtime/TextFile.h"

#include "runtime/Clock.h"
#include "runtime/RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";

bool folderExists(const fs::path& file) {
    std::error_code ignored;
    const fs::path folder = file.parent_path();
    return folder.empty() || fs::is_directory(folder, ignored);
}

/// Why a file could not be opened for reading.
int refusalToRead(const fs::path& file) {
    std::error_code ignored;
    if (!folderExists(file))
        return error::kPathNotFound;
    return fs::exists(file, ignored) ? error::kPathFileAccess : error::kFileNotFound;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !fileExists(file))
        throw RunTimeError(refusalToRead(file));
    try {
        return {std::istreambuf_iterator<char>(stream), {}};
    } catch (const std::ios_base::failure&) {
        throw RunTimeError(error::kPathFileAccess);
    }
}

void requireFile(const fs::path& file) {
    if (!fileExists(file))
        throw RunTimeError(error::kFileNotFound);
}

/// Whether a copy of a file may take the place of what is at the target, if anything is.
bool canBeReplacedBy(const fs::path& from, const fs::path& target) {
    std::error_code ignored;
    return !fs::exists(target, ignored) || (fileExists(target) && !fs::equivalent(from, target, ignored) &&
                                            access(target.c_str(), W_OK) == 0);
}

fs::path unfinishedName(const fs::path& file) {
    return file.string() + ".new";
}

/// Gives a finished file its name: what stands there is the old file or the whole new one.
void putInPlace(const fs::path& unfinished, const fs::path& target, std::error_code& failure) {
    failure = bringToDisk(unfinished);
    if (!failure)
        fs::rename(unfinished, target, failure);
    std::error_code ignored;
    if (failure)
        fs::remove(unfinished, ignored);
    else
        bringToDisk(
            fs::absolute(target).parent_path());  // not every file system can; the file is whole either way
}

constexpr fs::perms kOwnersAlone = fs::perms::owner_read | fs::perms::owner_write;

/// Makes the copy under another name, and puts it in its place when all of it is on the disk.
void replaceByCopy(const fs::path& from, const fs::path& target, std::error_code& failure) {
    const fs::path unfinished = unfinishedName(target);
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    fs::copy_file(from, unfinished, failure);
    if (!failure)
        fs::permissions(unfinished, fileExists(target) ? fs::status(target).permissions() : kOwnersAlone,
                        failure);
    if (failure)
        fs::remove(unfinished, ignored);
    else
        putInPlace(unfinished, target, failure);
}

[[noreturn]] void writingFailed() {
    throw RunTimeError(errno == ENOSPC ? error::kDiskFull : error::kPathFileAccess);
}

std::FILE* openForWriting(const fs::path& file, TextWriter::Mode mode) {
    const bool appends = mode == TextWriter::Mode::Append;
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (appends ? O_APPEND : O_TRUNC),
                                S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        throw RunTimeError(folderExists(file) ? error::kPathFileAccess : error::kPathNotFound);
    std::FILE* const stream = fdopen(descriptor, appends ? "ab" : "wb");
    if (stream == nullptr) {
        ::close(descriptor);
        throw RunTimeError(error::kOutOfMemory);
    }
    return stream;
}

}  // namespace

TextReader::TextReader(const fs::path& file) : bytes_(bytesOf(file)), encoding_(encodingOf(bytes_)) {
    if (bytes_.starts_with(kByteOrderMark))
        next_ = kByteOrderMark.size();
}

void TextReader::requireOpen() const {
    if (!isOpen_)
        throw RunTimeError(error::kBadFileNameOrNumber);
}

bool TextReader::atEnd() const {
    requireOpen();
    return next_ >= bytes_.size();
}

std::string TextReader::readLine() {
    if (atEnd())
        throw RunTimeError(error::kInputPastEndOfFile);
    const std::size_t end = std::min(bytes_.find_first_of(kLineEnd, next_), bytes_.size());
    const std::string_view line = std::string_view(bytes_).substr(next_, end - next_);
    const bool bothSigns = std::string_view(bytes_).substr(end).starts_with(kLineEnd);
    next_ = end + (bothSigns ? kLineEnd.size() : 1);
    return decoded(line, encoding_);
}

TextWriter::TextWriter(const fs::path& file, Mode mode, Encoding encoding)
    : stream_(openForWriting(file, mode)), encoding_(encoding) {}

void TextWriter::requireOpen() const {
    if (!stream_)
        throw RunTimeError(error::kBadFileNameOrNumber);
}

void TextWriter::write(std::string_view text) {
    requireOpen();
    const std::string bytes = encoded(text, encoding_);
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream_.get()) != bytes.size())
        writingFailed();
}

void TextWriter::writeLine(std::string_view line) {
    write(line);
    write(kLineEnd);
}

void TextWriter::flush() {
    requireOpen();
    if (std::fflush(stream_.get()) != 0)
        writingFailed();
}

void TextWriter::close() {
    if (stream_ && std::fclose(stream_.release()) != 0)
        writingFailed();
}

std::error_code bringToDisk(const fs::path& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool done = descriptor >= 0 && fsync(descriptor) == 0;
    const std::error_code failure =
        done ? std::error_code{} : std::error_code(errno, std::generic_category());
    if (descriptor >= 0)
        ::close(descriptor);
    return failure;
}

bool fileExists(const fs::path& file) {
    std::error_code ignored;
    return fs::is_regular_file(file, ignored);
}

void replaceFile(const fs::path& file, const std::function<void(TextWriter&)>& write) {
    const fs::path unfinished = unfinishedName(file);
    TextWriter writer(unfinished);
    std::error_code failure;
    try {
        write(writer);
        writer.close();
    } catch (const RunTimeError&) {
        fs::remove(unfinished, failure);
        throw;
    }
    putInPlace(unfinished, file, failure);
    if (failure)
        throw RunTimeError(error::kPathFileAccess);
}

void copyFile(const fs::path& from, const fs::path& to) {
    requireFile(from);
    if (!folderExists(to))
        throw RunTimeError(error::kPathNotFound);
    std::error_code failure;
    const fs::path target = fs::weakly_canonical(to, failure);
    if (failure || !canBeReplacedBy(from, target))
        throw RunTimeError(error::kPermissionDenied);
    replaceByCopy(from, target, failure);
    if (failure)
        throw RunTimeError(failure == std::errc::no_space_on_device ? error::kDiskFull
                                                                    : error::kPermissionDenied);
}

void deleteFile(const fs::path& file) {
    requireFile(file);
    std::error_code failure;
    fs::remove(file, failure);
    if (failure)
        throw RunTimeError(error::kPermissionDenied);
}

std::uintmax_t fileLength(const fs::path& file) {
    requireFile(file);
    return fs::file_size(file);
}

DateTime fileDate(const fs::path& file) {
    struct stat status {};
    if (!fileExists(file) || stat(file.c_str(), &status) != 0)
        throw RunTimeError(error::kFileNotFound);
    return localTime(status.st_mtime);
}

}  // namespace tallybrook
