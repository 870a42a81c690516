#include "player/Places.h"

#include <algorithm>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

bool isBlank(char letter) {
    return letter == ' ' || static_cast<unsigned char>(letter) < ' ';
}

/// Whether the letter can stand in the name of a folder without ending it in a sentence.
bool continuesName(char letter) {
    constexpr std::string_view kEnds = "/\\\"',;:!?()[]{}<>|=";
    return !isBlank(letter) && kEnds.find(letter) == std::string_view::npos;
}

bool startsPath(std::string_view before) {
    return before.empty() || (!continuesName(before.back()) && before.back() != '/' && before.back() != '\\');
}

/// Whether a folder's name is over where this rest of the text begins. A full stop is the end of a sentence
/// where nothing or a blank follows.
bool endsName(std::string_view rest) {
    if (rest.starts_with('.'))
        return rest.size() == 1 || isBlank(rest[1]);
    return rest.empty() || !continuesName(rest.front());
}

}  // namespace

Places::Places(const fs::path& data, const fs::path& start) {
    add(data, "<data>");
    add(start, "<cwd>");
    std::ranges::stable_sort(places_, std::ranges::greater{},
                             [](const Place& place) { return place.first.size(); });
}

void Places::add(const fs::path& folder, std::string_view name) {
    const fs::path plain = plainPath(folder);
    if (plain.has_relative_path())
        places_.emplace_back(plain.string(), name);
}

const Places::Place* Places::placeAt(std::string_view text, std::size_t at) const {
    if (!startsPath(text.substr(0, at)))
        return nullptr;
    const auto found = std::ranges::find_if(places_, [rest = text.substr(at)](const Place& place) {
        return rest.starts_with(place.first) && endsName(rest.substr(place.first.size()));
    });
    return found == places_.end() ? nullptr : &*found;
}

std::string Places::named(std::string_view text) const {
    std::string written;
    for (std::size_t at = 0; at < text.size();) {
        if (const Place* const place = placeAt(text, at); place != nullptr) {
            written += place->second;
            at += place->first.size();
        } else {
            written += text[at++];
        }
    }
    return written;
}

std::string Places::meant(std::string_view text) const {
    const auto found =
        std::ranges::find_if(places_, [text](const Place& place) { return text.starts_with(place.second); });
    if (found == places_.end())
        return std::string(text);
    return found->first + std::string(text.substr(found->second.size()));
}

fs::path plainPath(const fs::path& folder) {
    const fs::path plain = fs::absolute(folder).lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

}  // namespace tallybrook
