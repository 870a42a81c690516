#include "runtime/Ascii.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

namespace tallybrook {

namespace {

using std::chrono::floor;

std::chrono::year_month_day dayOf(DateTime when) {
    return std::chrono::year_month_day{floor<std::chrono::days>(when)};
}

constexpr std::array<std::string_view, 12> kMonths{"january",   "february", "march",    "april",
                                                   "may",       "june",     "july",     "august",
                                                   "september", "october",  "november", "december"};

/// A run of digits, a run of letters (in lower case), or one other character. Blanks part tokens and are
/// dropped.
struct Token {
    enum class Kind { Number, Word, Sign };
    Kind kind;
    std::string text;

    [[nodiscard]] bool isSign(char sign) const { return kind == Kind::Sign && text[0] == sign; }
};

Token::Kind kindOf(char c) {
    if (isDigit(c))
        return Token::Kind::Number;
    return isLetter(c) ? Token::Kind::Word : Token::Kind::Sign;
}

std::vector<Token> tokensOf(std::string_view text) {
    std::vector<Token> tokens;
    bool joins = false;  // whether the next character may belong to the last token
    for (const char c : text) {
        if (c == ' ' || c == '\t') {
            joins = false;
            continue;
        }
        const Token::Kind kind = kindOf(c);
        if (joins && kind != Token::Kind::Sign && tokens.back().kind == kind)
            tokens.back().text += toLower(c);
        else
            tokens.push_back({kind, std::string(1, toLower(c))});
        joins = true;
    }
    return tokens;
}

/// A number of at most `digits` digits; nothing otherwise.
std::optional<int> numberOf(const Token& token, std::size_t digits) {
    if (token.kind != Token::Kind::Number || token.text.size() > digits)
        return std::nullopt;
    int number = 0;
    std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
    return number;
}

/// The month, from 1, that a word names by its whole name or its first three letters.
std::optional<int> monthOf(const Token& token) {
    if (token.kind != Token::Kind::Word)
        return std::nullopt;
    const auto* const found = std::ranges::find_if(kMonths, [&](std::string_view month) {
        return token.text == month || token.text == month.substr(0, 3);
    });
    if (found == kMonths.end())
        return std::nullopt;
    return static_cast<int>(found - kMonths.begin()) + 1;
}

/// A year as written: two digits are 1930 to 2029, four stand for themselves.
std::optional<int> yearOf(const Token& token) {
    const std::optional<int> number = numberOf(token, 4);
    if (token.text.size() == 4)
        return number;
    if (!number || token.text.size() != 2)
        return std::nullopt;
    return *number + (*number < 30 ? 2000 : 1900);
}

using MaybeDate = std::optional<DateTime>;

MaybeDate checkedDate(std::optional<int> year, std::optional<int> month, std::optional<int> day) {
    if (!year || !month || !day || *year < 100)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{*year},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)}};
    return date.ok() ? MaybeDate{DateTime{std::chrono::local_days{date}}} : std::nullopt;
}

/// Month and day in this order, swapped where the first number cannot be a month.
MaybeDate monthAndDay(std::optional<int> year, std::optional<int> first, std::optional<int> second) {
    return first && *first > 12 ? checkedDate(year, second, first) : checkedDate(year, first, second);
}

/// Numbers with one kind of sign between them: month/day/year, month/day, year-month-day.
MaybeDate numericDate(const std::vector<Token>& tokens, int currentYear) {
    if (tokens.size() != 3 && tokens.size() != 5)
        return std::nullopt;
    const char sign = tokens[1].text[0];
    for (std::size_t at = 1; at < tokens.size(); at += 2) {
        if (!tokens[at].isSign(sign))
            return std::nullopt;
    }
    if (sign != '/' && sign != '-' && sign != '.')
        return std::nullopt;
    if (tokens.size() == 3)
        return monthAndDay(currentYear, numberOf(tokens[0], 2), numberOf(tokens[2], 2));
    if (tokens[0].text.size() == 4 && sign != '.')
        return checkedDate(yearOf(tokens[0]), numberOf(tokens[2], 2), numberOf(tokens[4], 2));
    return monthAndDay(yearOf(tokens[4]), numberOf(tokens[0], 2), numberOf(tokens[2], 2));
}

bool isJoint(const Token& token) {
    return token.isSign(',') || token.isSign('-');
}

/// Whether commas and hyphens stand only between two parts, one at a time.
bool partsAreJoined(const std::vector<Token>& tokens) {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (isJoint(tokens[at]) && (at == 0 || at + 1 == tokens.size() || isJoint(tokens[at - 1])))
            return false;
    }
    return true;
}

/// A month's name among one or two numbers: the day, and perhaps the year behind it or in front of all.
MaybeDate namedDate(std::vector<Token> tokens, int currentYear) {
    if (!partsAreJoined(tokens))
        return std::nullopt;
    std::erase_if(tokens, isJoint);
    const auto name =
        std::ranges::find_if(tokens, [](const Token& token) { return monthOf(token).has_value(); });
    if (name == tokens.end())
        return std::nullopt;
    const std::optional<int> month = monthOf(*name);
    tokens.erase(name);
    if (tokens.size() == 1)
        return checkedDate(currentYear, month, numberOf(tokens[0], 2));
    if (tokens.size() != 2)
        return std::nullopt;
    const bool yearFirst = tokens[0].text.size() == 4;
    return checkedDate(yearOf(tokens[yearFirst ? 0 : 1]), month, numberOf(tokens[yearFirst ? 1 : 0], 2));
}

using MaybeTime = std::optional<std::chrono::seconds>;

/// hour:minute, perhaps :second, perhaps AM or PM.
MaybeTime timeOf(const std::vector<Token>& tokens) {
    std::array<int, 3> parts{};
    std::size_t at = 0;
    std::size_t count = 0;
    while (true) {
        const std::optional<int> number = at < tokens.size() ? numberOf(tokens[at], 2) : std::nullopt;
        if (!number || count == parts.size())
            return std::nullopt;
        parts[count++] = *number;
        if (++at == tokens.size() || !tokens[at].isSign(':'))
            break;
        ++at;
    }
    const std::string half = at < tokens.size() ? tokens[at++].text : "";
    if (count < 2 || at != tokens.size() || (!half.empty() && half != "am" && half != "pm"))
        return std::nullopt;
    if (parts[0] > (half.empty() ? 23 : 12) || parts[1] > 59 || parts[2] > 59 ||
        (!half.empty() && parts[0] == 0))
        return std::nullopt;
    const int hour = half.empty() ? parts[0] : parts[0] % 12 + (half == "pm" ? 12 : 0);
    return std::chrono::hours{hour} + std::chrono::minutes{parts[1]} + std::chrono::seconds{parts[2]};
}

/// Where the time begins: at the number before the first colon; the end if there is none.
std::size_t startOfTime(const std::vector<Token>& tokens) {
    const auto colon = std::ranges::find_if(tokens, [](const Token& token) { return token.isSign(':'); });
    return colon == tokens.end() || colon == tokens.begin()
               ? tokens.size()
               : static_cast<std::size_t>(colon - tokens.begin()) - 1;
}

}  // namespace

std::string shortDate(DateTime when) {
    const auto day = dayOf(when);
    return fmt::format("{}/{}/{:04}", unsigned{day.month()}, unsigned{day.day()}, int{day.year()});
}

namespace {

/// A time with its hour, and what stands between its minute and AM or PM.
std::string timeText(std::chrono::hh_mm_ss<std::chrono::seconds> time, const std::string& seconds) {
    const auto hour = time.hours().count();
    return fmt::format("{}:{:02}{} {}", hour % 12 == 0 ? 12 : hour % 12, time.minutes().count(), seconds,
                       hour < 12 ? "AM" : "PM");
}

std::chrono::hh_mm_ss<std::chrono::seconds> timeOf(DateTime when) {
    return std::chrono::hh_mm_ss{when - floor<std::chrono::days>(when)};
}

}  // namespace

std::string timeText(DateTime when) {
    return timeText(timeOf(when), fmt::format(":{:02}", timeOf(when).seconds().count()));
}

std::string timeOfDay(DateTime when) {
    return timeText(timeOf(when), "");
}

std::string dateText(DateTime when) {
    if (dateOnly(when) == kZeroDate)
        return timeText(when);
    return when == dateOnly(when) ? shortDate(when) : shortDate(when) + " " + timeText(when);
}

DateTime withoutSeconds(DateTime when) {
    return floor<std::chrono::minutes>(when);
}

DateTime readDate(std::string_view text, int currentYear) {
    const std::vector<Token> tokens = tokensOf(text);
    const auto split = tokens.begin() + static_cast<std::ptrdiff_t>(startOfTime(tokens));
    const std::vector<Token> dateTokens(tokens.begin(), split);
    const std::vector<Token> timeTokens(split, tokens.end());

    MaybeDate date = numericDate(dateTokens, currentYear);
    if (!date)
        date = namedDate(dateTokens, currentYear);
    const MaybeTime time = timeTokens.empty() ? MaybeTime{std::chrono::seconds{0}} : timeOf(timeTokens);
    if (!date || !time)
        throw RunTimeError(error::kTypeMismatch);
    return *date + *time;
}

}  // namespace tallybrook
