#include "UsersLocale.h"
#include "paper/Paper.h"
#include "readers/Printing.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(Paper, IsThatOfTheTerritory) {
    for (const char* const locale : {"en_US", "en_CA", "fr_CA", "es_MX", "es_CL", "en_PH", "es_PR"})
        EXPECT_EQ(nameOf(paperOf(QLocale(locale))), "Letter") << locale;
    for (const char* const locale : {"de_DE", "en_GB", "es_ES", "pt_BR", "ja_JP", "C"})
        EXPECT_EQ(nameOf(paperOf(QLocale(locale))), "A4") << locale;
}

TEST(Paper, IsThatOfTheUser) {
    const auto paperWith = [](const UsersLocale::Variables& variables) {
        const UsersLocale user(variables);
        return nameOf(usersPaper());
    };
    EXPECT_EQ(paperWith({{"LANG", "en_US.UTF-8"}}), "Letter");
    EXPECT_EQ(paperWith({{"LANG", "en_US.UTF-8"}, {"LC_PAPER", "de_DE.UTF-8"}}), "A4");
    EXPECT_EQ(paperWith({{"LC_PAPER", "de_DE.UTF-8"}, {"LC_ALL", "en_US.UTF-8"}}), "Letter");
    for (const char* const plain : {"C", "C.UTF-8", "POSIX", "no locale", "de_AT@euro"})
        EXPECT_EQ(paperWith({{"LC_ALL", plain}}), "A4") << plain;
    EXPECT_EQ(paperWith({}), nameOf(paperOf(QLocale::system())));
}

TEST(Paper, HasAName) {
    EXPECT_EQ(nameOf(QPageSize(QPageSize::A5)), "A5");
    EXPECT_EQ(nameOf(QPageSize(QPageSize::Letter)), "Letter");
}

}  // namespace tallybrook::test
