#include "BenchDisplay.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tallybrook::bench {

namespace {

struct Reply {
    std::string_view title;
    Answer answer;
    std::string_view begin = {};  // of the text, where two boxes have the same title
};

constexpr std::array<Reply, 14> kReplies{{{"Tallybrook", Answer::OK},
                                          {"Database Check", Answer::No, "Check database"},
                                          {"Database Check", Answer::Yes, "This will"},
                                          {"Check Complete", Answer::OK},
                                          {"Report Complete", Answer::OK},
                                          {"Tallybrook - Search Results", Answer::OK},
                                          {"PDA Sync", Answer::OK},
                                          {"Delete PDA Data", Answer::No},
                                          {"Sync Complete", Answer::OK},
                                          {"Save Event", Answer::Yes},
                                          {"Add New Event", Answer::No},
                                          {"Update Games", Answer::Yes},
                                          {"Update Frames", Answer::Yes},
                                          {"Incomplete event.", Answer::OK}}};

}  // namespace

Answer answerTo(const MessageBox& box) {
    const auto* const reply = std::ranges::find_if(kReplies, [&](const Reply& known) {
        return known.title == box.title && box.text.starts_with(known.begin);
    });
    if (reply == kReplies.end())
        throw std::runtime_error("unexpected box \"" + box.title + "\": " + box.text);
    return reply->answer;
}

std::optional<std::string> BenchDisplay::inputBox(const InputBox& box) {
    throw std::runtime_error("unexpected input box: " + box.text);
}

void BenchDisplay::retrying(std::string_view module, int) {
    throw std::runtime_error("no current row in " + std::string(module));
}

void BenchDisplay::runTimeError(const RunTimeError& failure) {
    throw std::runtime_error("run-time error: " + failure.description());
}

}  // namespace tallybrook::bench
