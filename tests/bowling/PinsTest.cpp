#include "PinsOfBits.h"
#include "bowling/Pins.h"
#include "runtime/RunTimeError.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(Pins, AreASet) {
    Pins pins{3, 6, 10};
    EXPECT_EQ(pins.count(), 3);
    EXPECT_TRUE(pins.has(3) && pins.has(6) && pins.has(10));
    EXPECT_FALSE(pins.has(1) || pins.has(9));
    pins.remove(6);
    pins.add(10);
    EXPECT_EQ(pins, (Pins{10, 3}));
    pins |= Pins{1};
    EXPECT_EQ(pins, (Pins{1, 3, 10}));
    EXPECT_EQ(Pins::all().count(), kPins);
    EXPECT_TRUE(Pins().isEmpty());
    EXPECT_FALSE(pins.isEmpty());
}

TEST(Pins, StandInARackOfFourRows) {
    std::vector<int> pins;
    for (const std::vector<int>& row : rackRows()) {
        EXPECT_TRUE(std::ranges::is_sorted(row));
        pins.insert(pins.end(), row.begin(), row.end());
    }
    EXPECT_EQ(rackRows().back(), std::vector<int>{1});
    std::ranges::sort(pins);
    EXPECT_EQ(pins, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(PinString, NamesThePinsLeftInOrder) {
    EXPECT_EQ(pinString({}), "");
    EXPECT_EQ(pinString({7}), "7");
    EXPECT_EQ(pinString({10}), "10");
    EXPECT_EQ(pinString({10, 7}), "7-10");
    EXPECT_EQ(pinString({6, 3, 10}), "3-6-10");
    EXPECT_EQ(pinString(Pins::all()), "1-2-3-4-5-6-7-8-9-10");
}

TEST(PinString, IsReadBack) {
    for (unsigned mask = 1; mask < 1024; ++mask) {
        const Pins pins = pinsOfBits(mask);
        EXPECT_EQ(pins.count(), std::ranges::count(pinString(pins), '-') + 1);
        Pins named;
        addNamedPins(pinString(pins), named);
        EXPECT_EQ(named, pins);
        EXPECT_EQ(readPins(pinString(pins)), pins);
    }
}

TEST(PinString, RefusesNumbersThatAreNoPins) {
    for (const char* text : {"0", "11", "3-11", "a", "3--5", "-3", "99999", "3-99999"}) {
        Pins pins;
        try {
            addNamedPins(text, pins);
            ADD_FAILURE() << text << " was taken";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kSubscriptOutOfRange) << text;
        }
        EXPECT_EQ(readPins(text), std::nullopt) << text;
    }
    Pins pins;
    EXPECT_THROW(addNamedPins("3-11-5", pins), RunTimeError);
    EXPECT_EQ(pinString(pins), "3");  // what stood before the fault is added
}

TEST(PinString, IsTakenByItsLeadingNumbersWhereItIsStored) {
    Pins pins;
    addNamedPins("3x- 6 -10-", pins);
    EXPECT_EQ(pins, (Pins{3, 6, 10}));
    addNamedPins("", pins);
    EXPECT_EQ(pins.count(), 3);
    for (const char* text : {"", "3x", "3- 6", "7-", "+7", "7,10", "99999999999999", "X", "/"})
        EXPECT_EQ(readPins(text), std::nullopt) << text;
}

}  // namespace

}  // namespace tallybrook::test
