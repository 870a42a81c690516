#include "runtime/TextFile.h"

#include "runtime/Clock.h"
#include "runtime/RegularFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/UnfinishedFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
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

/// Gives the bytes of a file to `take`, a part at a time; throws system_error.
template <typename Take>
void readParts(const RegularFile& file, Take take) {
    constexpr std::size_t kPart = std::size_t{1} << 16U;
    std::array<char, kPart> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    while (const std::size_t size = file.read(bytes.data(), bytes.size()))
        take(std::string_view(bytes.data(), size));
}

std::string bytesOf(const fs::path& file) {
    try {
        std::string bytes;
        readParts(RegularFile(file, O_RDONLY), [&](std::string_view part) { bytes += part; });
        return bytes;
    } catch (const std::system_error&) {
        throw RunTimeError(refusalToRead(file));
    }
}

void requireFile(const fs::path& file) {
    if (!fileExists(file))
        throw RunTimeError(error::kFileNotFound);
}

/// Whether a file of ours may take the place of what is there, if anything is.
bool canBeReplaced(const fs::path& file) {
    std::error_code ignored;
    return !fs::exists(file, ignored) || (fileExists(file) && access(file.c_str(), W_OK) == 0);
}

/// The number of a failure on the way: a full disk, or else the one given.
int numberOf(int why, int otherwise) {
    const bool isFull = why == ENOSPC || why == EFBIG || why == EDQUOT;
    return isFull ? error::kDiskFull : otherwise;
}

[[noreturn]] void writingFailed() {
    throw RunTimeError(numberOf(errno, error::kPathFileAccess));
}

/// Whether a name leads to a file that has another name too.
bool isLink(const fs::path& file) {
    std::error_code none;
    return fs::is_symlink(file, none) || (fileExists(file) && fs::hard_link_count(file, none) > 1);
}

/// Opens a file to be written from its beginning, or to be added to. A link gives way to a file of its own,
/// so that what it leads to stays as it is; there is no adding to one, since that is what it leads to.
RegularFile openedForWriting(const fs::path& file, TextWriter::Mode mode) {
    if (mode == TextWriter::Mode::Append)
        return {file, O_WRONLY | O_CREAT | O_APPEND};
    if (isLink(file) && canBeReplaced(file))
        fs::remove(file);
    return {file, O_WRONLY | O_CREAT | O_TRUNC};
}

std::FILE* streamFor(const fs::path& file, TextWriter::Mode mode) {
    try {
        RegularFile opened = openedForWriting(file, mode);
        std::FILE* const stream = fdopen(opened.descriptor(), mode == TextWriter::Mode::Append ? "ab" : "wb");
        if (stream == nullptr)
            throw RunTimeError(error::kOutOfMemory);
        static_cast<void>(opened.release());
        return stream;
    } catch (const std::system_error&) {
        throw RunTimeError(folderExists(file) ? error::kPathFileAccess : error::kPathNotFound);
    }
}

/// Where the first line of a text ends. Either sign may be nowhere in all of a long text.
std::size_t lineEndIn(std::string_view text) {
    constexpr std::size_t kAtOnce = 128;
    for (std::size_t at = 0; at < text.size(); at += kAtOnce) {
        const std::string_view part = text.substr(at, kAtOnce);
        if (const std::size_t end = std::min(part.find('\r'), part.find('\n')); end != std::string_view::npos)
            return at + end;
    }
    return text.size();
}

/// The text with CR LF for whatever ends its lines.
std::string withLineEnds(std::string_view text) {
    std::string lines;
    for (std::size_t end = lineEndIn(text); end < text.size(); end = lineEndIn(text)) {
        lines.append(text.substr(0, end)).append(kLineEnd);
        text.remove_prefix(end + (text.substr(end).starts_with(kLineEnd) ? kLineEnd.size() : 1));
    }
    return lines.append(text);
}

constexpr fs::perms kOwnersAlone = fs::perms::owner_read | fs::perms::owner_write;

/// What a file in the place of another is allowed; a link there tells nothing.
fs::perms permissionsAt(const fs::path& place) {
    const fs::file_status there = fs::symlink_status(place);
    return there.type() == fs::file_type::regular ? there.permissions() : kOwnersAlone;
}

void replaceByCopy(const fs::path& from, const fs::path& to) {
    const RegularFile source(from, O_RDONLY);
    const UnfinishedFile unfinished(to);
    const RegularFile copy(unfinished.path(), O_WRONLY);
    readParts(source, [&](std::string_view part) { copy.write(part); });
    fs::permissions(unfinished.path(), permissionsAt(to));
    unfinished.putInPlace();
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
    const std::size_t end = next_ + lineEndIn(std::string_view(bytes_).substr(next_));
    const std::string_view line = std::string_view(bytes_).substr(next_, end - next_);
    const bool bothSigns = std::string_view(bytes_).substr(end).starts_with(kLineEnd);
    next_ = end + (bothSigns ? kLineEnd.size() : 1);
    return decoded(line, encoding_);
}

TextWriter::TextWriter(const fs::path& file, Mode mode, Encoding encoding)
    : stream_(streamFor(file, mode)), encoding_(encoding) {}

void TextWriter::requireOpen() const {
    if (!stream_)
        throw RunTimeError(error::kBadFileNameOrNumber);
}

void TextWriter::write(std::string_view text) {
    requireOpen();
    if (lineEndIn(text) == text.size() && encoding_ == Encoding::Utf8)
        writeBytes(text.data(), text.size());
    else if (const std::string bytes = encoded(withLineEnds(text), encoding_); !bytes.empty())
        writeBytes(bytes.data(), bytes.size());
}

void TextWriter::writeLine(std::string_view line) {
    write(line);
    writeBytes(kLineEnd.data(), kLineEnd.size());
}

void TextWriter::writeBytes(const char* bytes, std::size_t count) {
    if (std::fwrite(bytes, 1, count, stream_.get()) != count)
        writingFailed();
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

bool fileExists(const fs::path& file) {
    std::error_code ignored;
    return fs::is_regular_file(file, ignored);
}

void replaceFile(const fs::path& file, const std::function<void(TextWriter&)>& write) {
    if (!folderExists(file))
        throw RunTimeError(error::kPathNotFound);
    if (!canBeReplaced(file))
        throw RunTimeError(error::kPathFileAccess);
    try {
        const UnfinishedFile unfinished(file);
        TextWriter writer(unfinished.path());
        write(writer);
        writer.close();
        unfinished.putInPlace();
    } catch (const std::system_error& failure) {
        throw RunTimeError(numberOf(failure.code().value(), error::kPathFileAccess));
    }
}

void copyFile(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    if (!fs::exists(from, ignored))
        throw RunTimeError(error::kFileNotFound);
    if (!folderExists(to))
        throw RunTimeError(error::kPathNotFound);
    if (!canBeReplaced(to) || fs::equivalent(from, to, ignored))
        throw RunTimeError(error::kPermissionDenied);
    try {
        replaceByCopy(from, to);
    } catch (const std::system_error& failure) {
        throw RunTimeError(numberOf(failure.code().value(), error::kPermissionDenied));
    }
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
