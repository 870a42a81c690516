#include "readers/Days.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(Days, AreOfMonthsThatAreCalledAsEverywhere) {
    for (int month = 1; month <= 12; ++month) {
        const std::chrono::year_month one =
            std::chrono::year{2026} / std::chrono::month{static_cast<unsigned>(month)};
        EXPECT_EQ(monthText(one).toStdString(),
                  QLocale::c().monthName(month, QLocale::ShortFormat).toStdString() + " 2026");
    }
}

}  // namespace

}  // namespace tallybrook
