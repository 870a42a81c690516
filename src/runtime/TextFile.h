#pragma once

#include "runtime/DateTime.h"
#include "runtime/TextEncoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

// Text files read and written in sequence, with the run time's error numbers.
namespace tallybrook {

/// A text file read line by line, from its beginning to its end.
class TextReader {
public:
    /// Opens the file. Error 53 where it is missing, 76 where its folder is, 75 for any other refusal.
    explicit TextReader(const std::filesystem::path& file);

    /// Whether there is no further line; error 52 when closed.
    [[nodiscard]] bool atEnd() const;
    /// The next line, as UTF-8, without its end: CR LF, LF or CR. Error 62 past the end, 52 when closed.
    std::string readLine();
    /// How the file is written.
    [[nodiscard]] Encoding encoding() const { return encoding_; }
    void close() { isOpen_ = false; }

private:
    void requireOpen() const;

    std::string bytes_;
    std::size_t next_ = 0;
    Encoding encoding_;
    bool isOpen_ = true;
};

/// A text file written line by line. Every line ends in CR LF, whatever ends the lines of a text within.
class TextWriter {
public:
    enum class Mode { Overwrite, Append };

    /// Opens the file, for its owner alone where it is new. A link that is written over gives way to a file
    /// of its own; one that is added to is refused. Error 76 where the folder is missing, 75 for any other
    /// refusal.
    explicit TextWriter(const std::filesystem::path& file, Mode mode = Mode::Overwrite,
                        Encoding encoding = Encoding::Utf8);

    /// Error 61 where the disk is full, 75 for any other failure, 52 when closed.
    void writeLine(std::string_view line);
    /// The same without an end of line.
    void write(std::string_view text);
    /// Lets all that was written be read by others while the file stays open; errors as writeLine().
    void flush();
    /// Brings all that was written to the file; errors as writeLine(). Does nothing when closed.
    void close();

private:
    void requireOpen() const;
    void writeBytes(const char* bytes, std::size_t count);

    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    std::unique_ptr<std::FILE, Closer> stream_;
    Encoding encoding_;
};

/// Whether there is a file, not a folder, of that name.
bool fileExists(const std::filesystem::path& file);

/// Writes a text file anew. It takes the place of the old one, or of a link, when it is whole and on the
/// disk. Errors as TextWriter raises them.
void replaceFile(const std::filesystem::path& file, const std::function<void(TextWriter&)>& write);

/// Copies a file over what is there, whole or not at all, and so that it is on the disk afterwards. A file
/// keeps its permissions; a new one, and one in the place of a link, is its user's alone. Error 53 where
/// there is no source, 76 where the target's folder is missing, 61 where the disk is full, 70 for any other
/// refusal.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes a file. Error 53 where there is none, 70 for any other refusal.
void deleteFile(const std::filesystem::path& file);

/// The file's length in bytes; error 53 where there is none.
std::uintmax_t fileLength(const std::filesystem::path& file);

/// When the file was written last, in local time; error 53 where there is none.
DateTime fileDate(const std::filesystem::path& file);

}  // namespace tallybrook
