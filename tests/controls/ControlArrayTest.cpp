#include "controls/Control.h"

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(ControlArrays, HaveTheElementsFromTheFirstToTheLast) {
    const ControlArray<std::string> array(
        "optOne", 2, 4, [](int, std::string name) { return std::make_unique<std::string>(std::move(name)); });
    EXPECT_EQ(array.lastIndex(), 4);
    EXPECT_EQ(array(2), "optOne(2)");
    EXPECT_EQ(array(4), "optOne(4)");
    for (const int index : {-1, 0, 1, 5}) {
        try {
            static_cast<void>(array(index));
            ADD_FAILURE() << index;
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kNoControlArrayElement) << index;
        }
    }
}

}  // namespace

}  // namespace tallybrook
