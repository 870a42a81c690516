#include "reliability/UnsyncedFiles.h"

#include "reliability/DiskFault.h"
#include "support/SameText.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

bool happens(std::mt19937& random) {
    return std::bernoulli_distribution()(random);
}

void put(std::string_view bytes, std::size_t at, std::string& contents) {
    contents.resize(std::max(contents.size(), at + bytes.size()));
    contents.replace(at, bytes.size(), bytes);
}

}  // namespace

UnsyncedFiles::UnsyncedFiles(const fs::path& logbook)
    : files_{{logbook.string(), {.onDisk = bytesOf(logbook)}},
             {logbook.string() + "-journal", {.isThere = false}}} {}

UnsyncedFiles::File* UnsyncedFiles::find(std::string_view path) {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

void UnsyncedFiles::note(const DiskAccess& access) {
    File* const file = find(access.file);
    if (file == nullptr)
        return;
    switch (access.call) {
        case DiskCall::Open:
            if (!file->isThere && access.makes)
                *file = {.onDisk = file->onDisk, .changes = {{.at = 0}}};
            break;
        case DiskCall::Write:
            file->changes.push_back({static_cast<std::size_t>(access.offset), std::string(access.bytes)});
            break;
        case DiskCall::Truncate:
            file->changes.push_back({static_cast<std::size_t>(access.offset)});
            break;
        case DiskCall::Sync:
            if (!file->onDisk)
                file->onDisk = "";
            for (const Change& change : std::exchange(file->changes, {}))
                make(change, *file->onDisk);
            break;
        case DiskCall::Delete:
            file->isThere = false;
            if (access.syncs)
                *file = {.isThere = false};
            break;
        case DiskCall::Read:
            break;
    }
}

void UnsyncedFiles::make(const Change& change, std::string& contents) {
    if (change.bytes)
        put(*change.bytes, change.at, contents);
    else
        contents.resize(change.at);
}

void UnsyncedFiles::makePart(const Change& change, std::string& contents, std::mt19937& random) {
    if (!change.bytes) {
        if (happens(random))
            contents.resize(change.at);
        return;
    }
    // The sectors are those of the disk, wherever in one the write begins.
    for (std::size_t from = 0; from < change.bytes->size();) {
        const std::size_t size =
            std::min(kSector - (change.at + from) % kSector, change.bytes->size() - from);
        if (happens(random))
            put(std::string_view(*change.bytes).substr(from, size), change.at + from, contents);
        from += size;
    }
}

std::optional<std::string> UnsyncedFiles::leftOf(const File& file, std::mt19937& random) {
    if (!file.onDisk && !(file.isThere && happens(random)))
        return std::nullopt;
    if (!file.isThere && happens(random))
        return std::nullopt;
    std::string contents = file.onDisk.value_or("");
    for (const Change& change : file.changes)
        makePart(change, contents, random);
    return contents;
}

void UnsyncedFiles::cut(const fs::path& folder, std::mt19937& random) const {
    for (const auto& [path, file] : files_) {
        if (const auto contents = leftOf(file, random))
            std::ofstream(folder / fs::path(path).filename(), std::ios::binary) << *contents;
    }
}

}  // namespace tallybrook::test
