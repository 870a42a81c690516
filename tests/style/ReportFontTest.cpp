#include "style/ReportFont.h"

#include <QFontDatabase>
#include <QStringList>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// Columns stand below each other in it, whatever font the desktop has.
TEST(ReportFont, IsTheDesktopsFixedOne) {
    const QFont font = reportFont();
    EXPECT_EQ(font.families(), QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    EXPECT_EQ(font.styleHint(), QFont::TypeWriter);
    EXPECT_TRUE(font.fixedPitch());
    EXPECT_FALSE(font.kerning());
}

}  // namespace tallybrook::test
