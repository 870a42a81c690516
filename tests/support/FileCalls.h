#pragma once

#include <functional>
#include <string>

namespace tallybrook::test {

/// A call of the C library that opens, reads, changes or removes a file, or brings it to the disk.
struct FileCall {
    enum class Kind { Open, Make, Read, Write, Rename, Remove, Sync, Close, Change };
    Kind kind;
    std::string path;
};

/// Whether files are others after the call. Who dies before one that changes nothing leaves what the next one
/// finds.
bool changesFiles(const FileCall& call);

/// While it lives every such call of this process, be it the program's, a library's or the engine's, is shown
/// to `before`, which returns the error (errno) that the call is to fail with, or 0. Of a write that fails
/// for want of room half reaches the file. The disk itself is spared: nothing is brought to it. There can be
/// one at a time; whoever uses it is linked with the object library test_file_calls.
class FileCalls {
public:
    explicit FileCalls(std::function<int(const FileCall&)> before);
    ~FileCalls();
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;

private:
    std::function<int(const FileCall&)> watchedBefore_;
    bool wasWatching_;
};

}  // namespace tallybrook::test
