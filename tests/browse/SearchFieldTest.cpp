#include "browse/SearchField.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(SearchField, OffersTheOperatorsOfItsKind) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(operatorWords(FieldKind::Date),
              (Words{"is on", "is on or before", "is on or after", "is before", "is after"}));
    EXPECT_EQ(operatorWords(FieldKind::Number),
              (Words{"is equal to", "is less or equal to", "is greater or equal to", "is less than",
                     "is greater than"}));
    EXPECT_EQ(operatorWords(FieldKind::Text), (Words{"is", "contains"}));
    EXPECT_EQ(operatorWords(FieldKind::FreeText), Words{"contains"});
    EXPECT_EQ(operatorWords(FieldKind::EventType), Words{"is"});
    EXPECT_EQ(operatorWords(FieldKind::LanePair), Words{"is"});
}

TEST(SearchField, TranslatesOperatorsByTheirWordsAlone) {
    const std::vector<std::pair<std::string, std::string>> cases{{"is equal to", "="},
                                                                 {"is", "="},
                                                                 {"is on", "="},
                                                                 {"is on or before", "<="},
                                                                 {"is less or equal to", "<="},
                                                                 {"is on or after", ">="},
                                                                 {"is greater or equal to", ">="},
                                                                 {"is less than", "<"},
                                                                 {"is before", "<"},
                                                                 {"is after", ">"},
                                                                 {"is greater than", ">"},
                                                                 {"contains", "LIKE"},
                                                                 {"", ""},
                                                                 {"is not", ""}};
    for (const auto& [words, sql] : cases)
        EXPECT_EQ(sqlOperator(words), sql) << words;
}

}  // namespace

}  // namespace tallybrook::test
