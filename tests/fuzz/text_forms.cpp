// Whatever the text, it is read as a date and as a number by the rules or refused with the right error, and
// what was read, written down again, reads as the same.

#include "Require.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace tallybrook;
using test::require;

namespace {

constexpr int kYear = 2026;

/// Runs what may fail with that error and no other.
template <typename Work>
void attempt(int error, Work work) {
    try {
        work();
    } catch (const RunTimeError& failure) {
        require(failure.number() == error, "another error was expected");
    }
}

void readAsDate(std::string_view text) {
    attempt(error::kTypeMismatch, [&] {
        const DateTime when = readDate(text, kYear);
        require(readDate(dateText(when), kYear) == when, "the date reads as another one");
        require(readDate(shortDate(when) + " " + timeText(when), kYear) == when,
                "its parts read as another one");
    });
}

void readAsNumber(std::string_view text) {
    attempt(error::kOverflow, [&] {
        const double number = leadingNumber(text);
        require(std::isfinite(number), "the number is none");
        require(leadingNumber(doubleText(number)) == number, "the number reads as another one");
        require(leadingNumber(plainDecimal(number)) == number, "its plain form reads as another one");
        static_cast<void>(readFormatted(formatNumber(number, 2)));
        require(toInt32(number).value() == std::nearbyint(number), "it was rounded to another one");
        require(toInt16(number).value() == std::nearbyint(number), "it was rounded to another one");
    });
    attempt(error::kOverflow, [&] { static_cast<void>(readFormatted(text)); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    readAsDate(text);
    readAsNumber(text);
    return 0;
}
