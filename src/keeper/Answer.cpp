#include "keeper/Answer.h"

#include <charconv>

namespace tallybrook::keeper {

void answer(const Errand& errand, const std::string& text, const Json& json) {
    if (errand.options.json)
        errand.out << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
    else
        errand.out << text;
}

void tellNote(const Errand& errand, const std::string& note) {
    if (!note.empty())
        errand.notes << note << '\n';
}

Json jsonOf(const Counts& counts) {
    return {{"events", counts.events}, {"games", counts.games}, {"frames", counts.frames}};
}

std::int64_t numberIn(const std::string& text, const char* what) {
    std::int64_t number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size())
        throw WrongUsage(std::string(what) + " is a whole number, not " + text);
    return number;
}

}  // namespace tallybrook::keeper
