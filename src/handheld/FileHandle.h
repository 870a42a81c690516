#pragma once

#include "runtime/RunTimeError.h"

#include <optional>
#include <utility>

namespace tallybrook {

/// A text file that is open or not: a TextReader or a TextWriter.
template <typename File>
class FileHandle {
public:
    /// Opens a file; errors as the file's own constructor raises them.
    template <typename... Arguments>
    void open(Arguments&&... arguments) {
        file_.emplace(std::forward<Arguments>(arguments)...);
    }

    /// The open file; error 52 where none is open.
    File& operator*() {
        if (!file_)
            throw RunTimeError(error::kBadFileNameOrNumber);
        return *file_;
    }
    File* operator->() { return &**this; }

    /// Lets what was written be read; errors as the file's own flush() raises them. Does nothing where none
    /// is open.
    void flush() {
        if (file_)
            file_->flush();
    }

    /// Closes the file; errors as its own close() raises them. Does nothing where none is open.
    void close() {
        if (file_)
            file_->close();
        file_.reset();
    }

    /// Closes the file whatever becomes of what was written last.
    void abandon() { file_.reset(); }

private:
    std::optional<File> file_;
};

}  // namespace tallybrook
