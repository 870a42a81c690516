#include "store/file/PackedValues.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(Packed, ValuesComeOutAsTheyWereAdded) {
    const std::vector<Value> values{Null{},
                                    std::int64_t{0},
                                    std::int64_t{255},
                                    std::int64_t{256},
                                    std::int64_t{-1},
                                    std::numeric_limits<std::int64_t>::min(),
                                    0.1,
                                    makeDate(1899, 12, 30),
                                    "",
                                    "3-6-10",
                                    std::string(248, 'a'),
                                    std::string(249, 'b'),
                                    std::string(250, 'c'),
                                    std::string(70000, 'd')};
    PackedValues packed;
    packed.add(std::int64_t{7});
    const std::size_t start = packed.size();
    for (const Value& value : values)
        packed.addValue(value);
    for (std::size_t place = 0; place < values.size(); ++place) {
        PackedValues::Reader reader(packed, start);
        for (std::size_t before = 0; before < place; ++before)
            reader.skip();
        EXPECT_EQ(reader.take(), values[place]) << place;
    }
}

}  // namespace

}  // namespace tallybrook
