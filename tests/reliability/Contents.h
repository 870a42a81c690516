#pragma once

#include "reliability/WatchedVfs.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tallybrook::test {

/// The fields of a row.
using Fields = std::map<std::string, std::string>;
/// The rows of a logbook by table and key, as in "tblGameInfo 1".
using Contents = std::map<std::string, Fields>;

/// What a logbook holds that nobody has open; a save that was cut off is rolled back by the look. The file is
/// expected to be sound.
Contents contentsOf(const std::filesystem::path& logbook);

/// A line for each row.
std::string textOf(const Contents& contents);

/// Writes down what the logbook holds after each single save.
class SaveHistory : public DiskWatcher {
public:
    /// No save may be under way.
    explicit SaveHistory(std::filesystem::path logbook);

    void after(const DiskAccess& access) override;

    /// What it held at the start, and after each save.
    [[nodiscard]] const std::vector<Contents>& states() const { return states_; }
    [[nodiscard]] const Contents& atStart() const { return states_.front(); }
    [[nodiscard]] const Contents& atEnd() const { return states_.back(); }
    [[nodiscard]] std::size_t saves() const { return states_.size() - 1; }
    /// Whether a logbook can hold that where each of the saves was made or was not.
    [[nodiscard]] bool canLeave(const Contents& contents) const;
    /// The same where a save changes many rows: each field of each row is as it was at some time.
    [[nodiscard]] bool canLeaveInParts(const Contents& contents) const;

private:
    [[nodiscard]] std::set<Contents> endsOfAnySaves() const;
    [[nodiscard]] bool hasHeld(const std::string& row, const std::string& field,
                               const std::string& value) const;

    const std::filesystem::path logbook_;
    std::vector<Contents> states_;
    mutable std::set<Contents> possible_;  ///< Once it was asked for, until the next save.
};

}  // namespace tallybrook::test
