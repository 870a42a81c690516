#include "runtime/Value.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

namespace tallybrook {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

constexpr double kSecondsPerDay = 86400;

double daysSinceZero(DateTime when) {
    return static_cast<double>((when - kZeroDate).count()) / kSecondsPerDay;
}

DateTime fromDays(double days) {
    constexpr double kFirst = -657434;  // 1/1/100
    constexpr double kLast = 2958466;   // the day after 12/31/9999
    if (!(days >= kFirst && days < kLast))
        throw RunTimeError(error::kOverflow);
    return kZeroDate + std::chrono::seconds{static_cast<std::int64_t>(days * kSecondsPerDay)};
}

}  // namespace

bool isText(const Value& value, std::string_view text) {
    const auto* const stored = std::get_if<std::string>(&value);
    return stored != nullptr ? *stored == text : !isNull(value) && toText(value) == text;
}

std::string toText(const Value& value) {
    return std::visit(Overloaded{[](Null) { return std::string{}; },
                                 [](std::int64_t number) { return std::to_string(number); },
                                 [](double number) { return doubleText(number); },
                                 [](const std::string& text) { return text; },
                                 [](DateTime when) { return dateText(when); }},
                      value);
}

const std::string& toText(const Value& value, std::string& made) {
    if (const auto* const text = std::get_if<std::string>(&value); text != nullptr)
        return *text;
    made = toText(value);
    return made;
}

double toDouble(const Value& value) {
    return std::visit(Overloaded{[](Null) -> double { throw RunTimeError(error::kInvalidUseOfNull); },
                                 [](std::int64_t number) { return static_cast<double>(number); },
                                 [](double number) { return number; },
                                 [](const std::string& text) { return leadingNumber(text); },
                                 [](DateTime when) { return daysSinceZero(when); }},
                      value);
}

double leadingNumberOf(const Value& value) {
    const auto* const whole = std::get_if<std::int64_t>(&value);
    return whole != nullptr ? static_cast<double>(*whole) : leadingNumber(toText(value));
}

Int16 toInt16(const Value& value) {
    return toInt16(toDouble(value));
}

Int32 toInt32(const Value& value) {
    return toInt32(toDouble(value));
}

DateTime toDate(const Value& value, int currentYear) {
    if (const auto* const when = std::get_if<DateTime>(&value))
        return *when;
    if (const auto* const text = std::get_if<std::string>(&value))
        return readDate(*text, currentYear);
    return fromDays(toDouble(value));
}

}  // namespace tallybrook
