#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallybrook {

/// The folders that a transcript names by what they are, not by where they lie.
class Places {
public:
    Places() = default;
    /// `data` is the data folder, `start` the folder that the play was started in.
    Places(const std::filesystem::path& data, const std::filesystem::path& start);

    /// The text with "<data>" and "<cwd>" wherever it holds the path of these folders, alone or at the
    /// beginning of a longer path.
    [[nodiscard]] std::string named(std::string_view text) const;

    /// The path that a text means which begins with one of these names; any other text as it is.
    [[nodiscard]] std::string meant(std::string_view text) const;

private:
    using Place = std::pair<std::string, std::string_view>;  // a path, and what is written for it

    void add(const std::filesystem::path& folder, std::string_view name);
    [[nodiscard]] const Place* placeAt(std::string_view text, std::size_t at) const;

    std::vector<Place> places_;  // the longest path first
};

/// The folder as an absolute path without "." and "..", and without a separator at its end.
std::filesystem::path plainPath(const std::filesystem::path& folder);

}  // namespace tallybrook
