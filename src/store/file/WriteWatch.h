#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

#include <sqlite3.h>

namespace tallybrook {

/// Shows what stands in the file of a connection before the engine writes over it, as long as somebody wants
/// to see it. The connection must outlive this.
class WriteWatch {
public:
    /// Takes the bytes from a place of the file on, or none where they cannot be read; returns whether it
    /// wants to see more. Must raise no error.
    using Show = std::function<bool(std::int64_t at, std::string_view bytes)>;

    WriteWatch(sqlite3* connection, Show show);
    ~WriteWatch();
    WriteWatch(const WriteWatch&) = delete;
    WriteWatch& operator=(const WriteWatch&) = delete;

private:
    static constexpr int kLargestPage = 1 << 16;

    /// The methods of the file, with those replaced that change it.
    struct Methods : sqlite3_io_methods {
        WriteWatch* watch;
    };

    static int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at);
    static int truncate(sqlite3_file* file, sqlite3_int64 size);
    static WriteWatch& of(sqlite3_file* file) { return *static_cast<const Methods*>(file->pMethods)->watch; }
    void showPart(std::int64_t at, int count);

    sqlite3_file* file_ = nullptr;
    const sqlite3_io_methods* own_;
    Methods methods_;
    Show show_;
    std::array<char, kLargestPage> bytes_;
};

}  // namespace tallybrook
