#pragma once

#include <filesystem>

namespace tallybrook {

/// A file that is written under another name, and put in its place when it is whole: what stands there is the
/// old file or all of the new one. It goes away again where it does not come to that.
class UnfinishedFile {
public:
    /// Makes it, empty and for its owner alone, beside its place; whatever bears that name goes away, be it a
    /// link or what a run that was cut off has left. Throws system_error.
    explicit UnfinishedFile(std::filesystem::path place);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// Where it lies until it is whole.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] static std::filesystem::path nameFor(const std::filesystem::path& place) {
        return place.string() + ".new";
    }

    /// Brings it to the disk and puts it in its place, which is a link no more if it was one; throws
    /// system_error.
    void putInPlace() const;

private:
    std::filesystem::path place_;
    std::filesystem::path path_;
};

}  // namespace tallybrook
