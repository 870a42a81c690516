#include "browse/SearchField.h"

#include <set>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

bool holds(const std::string& condition) {
    SQLite::Database engine(":memory:");
    return engine.execAndGet("SELECT " + condition).getInt() != 0;
}

/// What the words of an operator for dates and numbers say of values below, at and above the one that is
/// looked for.
struct Kept {
    explicit Kept(std::string_view words)
        : below(words.find("less") != std::string_view::npos ||
                words.find("before") != std::string_view::npos),
          above(words.find("greater") != std::string_view::npos ||
                words.find("after") != std::string_view::npos),
          same((!below && !above) || words.find(" or ") != std::string_view::npos) {}
    bool below;
    bool above;
    bool same;
};

}  // namespace

TEST(SearchField, KeepsOfDatesAndNumbersWhatTheWordsSay) {
    for (const FieldKind kind : {FieldKind::Date, FieldKind::Number}) {
        const std::vector<std::string> offered = operatorWords(kind);
        EXPECT_EQ(std::set(offered.begin(), offered.end()).size(), 5U);
        for (const std::string& words : offered) {
            const Kept kept(words);
            const std::string sql = " " + sqlOperator(words) + " ";
            EXPECT_EQ(holds("'20261113'" + sql + "'20261114'"), kept.below) << words;
            EXPECT_EQ(holds("'20261114'" + sql + "'20261114'"), kept.same) << words;
            EXPECT_EQ(holds("'20261115'" + sql + "'20261114'"), kept.above) << words;
        }
    }
}

TEST(SearchField, KeepsOfTextsWhatTheWordsSay) {
    for (const FieldKind kind :
         {FieldKind::Text, FieldKind::FreeText, FieldKind::EventType, FieldKind::LanePair}) {
        for (const std::string& words : operatorWords(kind)) {
            const std::string sql = " " + sqlOperator(words) + " ";
            EXPECT_TRUE(holds("'League'" + sql + (words == "contains" ? "'%eagu%'" : "'League'"))) << words;
            EXPECT_FALSE(holds("'League'" + sql + "'League night'")) << words;
        }
    }
}

TEST(SearchField, TakesWordsOfNoListForNoOperator) {
    EXPECT_EQ(sqlOperator(""), "");
    EXPECT_EQ(sqlOperator("is not"), "");
}

}  // namespace tallybrook::test
