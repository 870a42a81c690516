#include "carry/JetValue.h"

#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace tallybrook::carry {

namespace {

template <typename Number>
std::string bytesOf(Number number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

Cell date(double stored) {
    return cellOf(JetType::Date, bytesOf(stored), 0);
}

TEST(JetText, IsReadInBothForms) {
    using namespace std::string_literals;
    EXPECT_EQ(jetText("A\0\xFC\0"s), "A\u00fc");
    EXPECT_EQ(jetText("\xFF\xFE"s), "");
    EXPECT_EQ(jetText("\xFF\xFE"
                      "A\xFC"s),
              "A\u00fc");
    EXPECT_EQ(jetText("\xFF\xFE"
                      "A\0\xAC\x20\0B"s),
              "A\u20acB");
    EXPECT_EQ(jetText(""), "");
}

TEST(JetText, KeepsLettersBeyondTheBasicPlane) {
    using namespace std::string_literals;
    EXPECT_EQ(jetText("\x3C\xD8\xB3\xDF"s), "\U0001F3B3");
    EXPECT_EQ(jetText("\x3C\xD8"s), "\uFFFD");
    EXPECT_EQ(jetText("\xB3\xDF\x3C\xD8\x41\0"s), "\uFFFD\uFFFDA");
    EXPECT_EQ(jetText("A\0\0\0B\0"s), "A\0B"s);
    EXPECT_EQ(jetText("A\0B"s), "A");  // half a letter
}

TEST(JetDate, CountsForwardBeforeItsZero) {
    EXPECT_EQ(date(0), Cell{kZeroDate});
    EXPECT_EQ(date(1.5), Cell{makeDate(1899, 12, 31) + std::chrono::hours{12}});
    EXPECT_EQ(date(-1.25), Cell{makeDate(1899, 12, 29) + std::chrono::hours{6}});
    EXPECT_EQ(date(46330), Cell{makeDate(2026, 11, 4)});
    EXPECT_EQ(date(-657434), Cell{makeDate(100, 1, 1)});
    EXPECT_EQ(date(2958465), Cell{makeDate(9999, 12, 31)});
    EXPECT_EQ(date(37622.99999999), Cell{makeDate(2003, 1, 2)});
}

TEST(JetDate, IsNoneOutsideOfTheCalendar) {
    for (const double stored : {-657435.0, 2958466.0, 1e300, -1e300, std::nan(""),
                                std::numeric_limits<double>::infinity(), 2958465.9999999})
        EXPECT_TRUE(std::holds_alternative<Unreadable>(date(stored))) << stored;
}

TEST(JetValue, IsANumberOfEachKind) {
    EXPECT_EQ(cellOf(JetType::Byte, "\xFF", 0), Cell{std::int64_t{255}});
    EXPECT_EQ(cellOf(JetType::Integer16, bytesOf(std::int16_t{-2}), 0), Cell{std::int64_t{-2}});
    EXPECT_EQ(cellOf(JetType::Integer32, bytesOf(std::int32_t{-3}), 0), Cell{std::int64_t{-3}});
    EXPECT_EQ(cellOf(JetType::Currency, bytesOf(std::int64_t{-15000}), 0), Cell{-1.5});
    EXPECT_EQ(cellOf(JetType::Single, bytesOf(0.5F), 0), Cell{0.5});
    EXPECT_EQ(cellOf(JetType::Double, bytesOf(200.33), 0), Cell{200.33});
    const std::string twelve = '\x80' + bytesOf(std::uint32_t{0}) + bytesOf(std::uint32_t{0}) +
                               bytesOf(std::uint32_t{0}) + bytesOf(std::uint32_t{1250});
    EXPECT_EQ(cellOf(JetType::Decimal, twelve, 2), Cell{-12.5});
    const std::string large = '\0' + bytesOf(std::uint32_t{0}) + bytesOf(std::uint32_t{0}) +
                              bytesOf(std::uint32_t{1}) + bytesOf(std::uint32_t{0});
    EXPECT_EQ(cellOf(JetType::Decimal, large, 0), Cell{4294967296.0});
}

TEST(JetValue, IsNoneWithTooFewBytes) {
    for (const JetType type : {JetType::Byte, JetType::Integer16, JetType::Integer32, JetType::Currency,
                               JetType::Single, JetType::Double, JetType::Date, JetType::Decimal})
        EXPECT_EQ(cellOf(type, "", 0), Cell(Unreadable{"a damaged value"}));
    EXPECT_EQ(cellOf(JetType::Object, "x", 0), Cell(Unreadable{"a picture or another object"}));
    for (const int other : {9, 15, 99})
        EXPECT_EQ(cellOf(static_cast<JetType>(other), "x", 0), Cell(Unreadable{"bytes of no meaning here"}));
}

}  // namespace

}  // namespace tallybrook::carry
