#include "store/reading/PackedRows.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(Packed, RowsGiveBackWhatWasPutIn) {
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
    Projection projection;
    for (std::size_t field = 0; field < values.size(); ++field) {
        projection.fields.push_back(field);
        projection.places.emplace_back(field);
    }
    PackedRows rows(std::make_shared<const Projection>(std::move(projection)));
    for (const std::int64_t key : {std::int64_t{7}, std::int64_t{-7}}) {
        rows.addRow(key);
        for (const Value& value : values)
            rows.add(value);
    }
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows.key(1), -7);
    for (std::size_t field = 0; field < values.size(); ++field)
        EXPECT_EQ(rows.value(1, field), values[field]) << field;
}

}  // namespace

}  // namespace tallybrook
