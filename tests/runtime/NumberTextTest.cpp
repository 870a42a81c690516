#include "runtime/TextForms.h"

#include <limits>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

TEST(LeadingNumber, ReadsWhatATextBeginsWith) {
    const std::vector<std::pair<std::string, double>> cases{
        {"", 0},         {"abc", 0},
        {"12", 12},      {" 1 2 3 ", 123},
        {"-7", -7},      {"+7", 7},
        {"12.5x", 12.5}, {".5", 0.5},
        {"5.", 5},       {"1e3", 1000},
        {"1e", 1},       {"1.2.3", 1.2},
        {"3 games", 3},  {"--5", 0},
        {"-", 0},        {"inf", 0},
        {"nan", 0},      {"1,234", 1},
        {"0x10", 0},     {"1e-400", 0},
        {"1E-400", 0},   {"0." + std::string(400, '0') + "1", 0},
        {"\t4\n2", 42},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(leadingNumber(text), number) << text;
    EXPECT_THROW(leadingNumber("1e999"), RunTimeError);
    EXPECT_THROW(leadingNumber(std::string(1000, '9')), RunTimeError);
}

TEST(WholeNumber, RoundsHalvesToEven) {
    const std::vector<std::pair<double, int>> cases{
        {0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4, 2}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto& [number, whole] : cases)
        EXPECT_EQ(toInt16(number), Int16(whole)) << number;
    for (const double outside :
         {32767.5, 32768.0, -32769.0, 1e30, -1e30, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        try {
            toInt16(outside);
            ADD_FAILURE() << outside;
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kOverflow);
        }
    }
    EXPECT_EQ(toInt32(2147483647.0), Int32(2147483647));
    EXPECT_THROW(toInt32(2147483648.0), RunTimeError);
}

TEST(NumberFormat, RoundsTheDecimalTextHalfAwayFromZero) {
    struct Case {
        double number;
        int decimals;
        std::string text;
    };
    const std::vector<Case> cases{
        {23.0 / 80 * 100, 1, "28.8"},
        {100.335, 2, "100.34"},
        {301.0 / 3, 2, "100.33"},
        {200.5, 2, "200.50"},
        {0, 2, "0.00"},
        {0.5, 0, "1"},
        {1.5, 0, "2"},
        {-0.5, 0, "-1"},
        {-0.004, 2, "0.00"},
        {0.005, 2, "0.01"},
        {1234567.891, 2, "1,234,567.89"},
        {999.995, 2, "1,000.00"},
        {-1234.5, 1, "-1,234.5"},
        {1e15, 0, "1,000,000,000,000,000"},
        {1e-9, 3, "0.000"},
        {0.1 + 0.2, 1, "0.3"},
        {2.675, 2, "2.68"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(formatNumber(one.number, one.decimals), one.text) << one.number;
}

TEST(NumberFormat, IsReadBackWithinItsRounding) {
    EXPECT_TRUE(rc::check([](int thousandths) {
        const double number = thousandths / 1000.0;
        RC_ASSERT(std::abs(readFormatted(formatNumber(number, 2)) - number) <= 0.005 + 1e-9);
        RC_ASSERT(formatNumber(readFormatted(formatNumber(number, 2)), 2) == formatNumber(number, 2));
    }));
}

TEST(DoubleText, IsTheShortestThatReadsBack) {
    EXPECT_EQ(doubleText(0), "0");
    EXPECT_EQ(doubleText(-0.0), "0");
    EXPECT_EQ(doubleText(200), "200");
    EXPECT_EQ(doubleText(200.5), "200.5");
    EXPECT_EQ(doubleText(0.1), "0.1");
    EXPECT_EQ(doubleText(-100.33), "-100.33");
    EXPECT_EQ(doubleText(1e16), "1e+16");
    EXPECT_TRUE(rc::check([](double number) { RC_ASSERT(leadingNumber(doubleText(number)) == number); }));
}

TEST(PlainDecimal, HasNoExponent) {
    EXPECT_EQ(plainDecimal(0), "0");
    EXPECT_EQ(plainDecimal(-0.0), "0");
    EXPECT_EQ(plainDecimal(200), "200");
    EXPECT_EQ(plainDecimal(180.5), "180.5");
    EXPECT_EQ(plainDecimal(-0.1), "-0.1");
    EXPECT_EQ(plainDecimal(1e16), "10000000000000000");
    EXPECT_EQ(plainDecimal(1e-7), "0.0000001");
    EXPECT_EQ(plainDecimal(std::numeric_limits<double>::max()).size(), 309U);
    for (const double number : {std::numeric_limits<double>::min(), -1e-308, -1e308})
        EXPECT_EQ(leadingNumber(plainDecimal(number)), number);
    EXPECT_EQ(plainDecimal(-std::numeric_limits<double>::denorm_min()).find('e'), std::string::npos);
    EXPECT_TRUE(rc::check([](double number) {
        const std::string text = plainDecimal(number);
        RC_ASSERT(text.find_first_not_of("-.0123456789") == std::string::npos);
        RC_ASSERT(leadingNumber(text) == number);
    }));
}

TEST(Integer, OverflowsAsError6) {
    EXPECT_TRUE(rc::check([](std::int16_t a, std::int16_t b) {
        const auto agrees = [](int wide, auto narrow) {
            const bool fits = wide >= -32768 && wide <= 32767;
            try {
                return narrow() == Int16(wide) && fits;
            } catch (const RunTimeError& failure) {
                return !fits && failure.number() == error::kOverflow;
            }
        };
        const Int16 x = a;
        const Int16 y = b;
        RC_ASSERT(agrees(a + b, [&] { return x + y; }));
        RC_ASSERT(agrees(a - b, [&] { return x - y; }));
        RC_ASSERT(agrees(a * b, [&] { return x * y; }));
        RC_ASSERT((x < y) == (a < b));
    }));
    Int16 full = 32767;
    EXPECT_THROW(++full, RunTimeError);
    EXPECT_EQ(full, Int16(32767));
    EXPECT_THROW(Int16(70000), RunTimeError);
    EXPECT_EQ(text(Int32(-5)), "-5");
}

}  // namespace

}  // namespace tallybrook
