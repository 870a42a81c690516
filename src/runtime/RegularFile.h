#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace tallybrook {

/// A regular file that is open; it is closed with the object. The program opens its files here, so that none
/// of them keeps it waiting: a FIFO, a device or a socket in the place of a file is refused at once.
class RegularFile {
public:
    /// Opens a file with the flags of open(); a new one is its owner's alone. A link is followed for reading,
    /// and never for writing. Throws system_error.
    RegularFile(const std::filesystem::path& file, int flags);
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }
    /// Gives the descriptor away; whoever takes it closes it.
    [[nodiscard]] int release();

    /// Reads some bytes; returns how many, 0 at the end. Throws system_error.
    [[nodiscard]] std::size_t read(char* bytes, std::size_t most) const;
    /// Writes all the bytes; throws system_error.
    void write(std::string_view bytes) const;
    /// Brings what was written to the disk; throws system_error.
    void bringToDisk() const;

private:
    int descriptor_;
};

}  // namespace tallybrook
