// What stood in a file before it was written over, against a copy of the file.

#include "backup/OldPages.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook {

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kSectors = 20;

/// A file of several sectors, each of one letter.
std::string newFile() {
    std::string file;
    for (std::size_t sector = 0; sector < kSectors; ++sector)
        file.append(kSector, static_cast<char>('a' + sector));
    return file;
}

/// Writes over some sectors, which are kept before; the file grows where it is too small.
void write(std::string& file, OldPages& old, std::size_t from, std::size_t count) {
    const std::size_t at = from * kSector;
    const std::string_view there = at < file.size() ? std::string_view(file).substr(at, count * kSector) : "";
    old.keep(static_cast<std::int64_t>(at), there);
    file.resize(std::max(file.size(), at + count * kSector));
    std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(at), count * kSector, '!');
}

/// Reads some bytes of the file as it was.
std::string asItWas(const std::string& file, const OldPages& old, std::size_t at, std::size_t count) {
    std::string bytes = file.substr(at, count);
    old.restore(bytes, static_cast<std::int64_t>(at));
    return bytes;
}

RC_GTEST_PROP(OldPages, RestoreEveryPartOfTheFile, ()) {
    const std::string before = newFile();
    std::string file = before;
    OldPages old(std::ssize(before));
    for (int writes = *rc::gen::inRange(0, 20); writes > 0; --writes)
        write(file, old, *rc::gen::inRange<std::size_t>(0, kSectors + 3),
              *rc::gen::inRange<std::size_t>(1, 9));
    const auto at = *rc::gen::inRange<std::size_t>(0, before.size());
    const auto count = *rc::gen::inRange<std::size_t>(0, before.size() - at + 1);
    RC_ASSERT(asItWas(file, old, at, count) == before.substr(at, count));
}

TEST(OldPages, KeepNothingBehindTheEndOfTheFile) {
    const std::string before = newFile();
    std::string file = before;
    OldPages old(std::ssize(before));
    write(file, old, kSectors, 4);
    EXPECT_EQ(asItWas(file, old, 0, file.size()), file);
}

TEST(OldPages, RestoreNothingOnceSomethingCouldNotBeRead) {
    std::string bytes = newFile();
    OldPages old(std::ssize(bytes));
    old.keep(kSector, {});
    old.keep(0, std::string_view(bytes).substr(0, kSector));  // one that can be read makes it no better
    try {
        old.restore(bytes, 0);
        ADD_FAILURE() << "it was restored";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "The logbook was written while it was copied.");
    }
}

}  // namespace

}  // namespace tallybrook
