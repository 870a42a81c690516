#include "style/Colours.h"
#include "style/OutlinedStyle.h"
#include "support/TemporaryFolder.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// The toolkit's own light palette, and one as dark desktops have.
std::vector<QPalette> bothPalettes() {
    QPalette light = OutlinedStyle().standardPalette();
    QPalette dark = light;
    const QColor text(235, 235, 235);
    for (const auto& [role, colour] : std::initializer_list<std::pair<QPalette::ColorRole, QColor>>{
             {QPalette::Window, {36, 38, 43}},
             {QPalette::WindowText, text},
             {QPalette::Base, {27, 29, 33}},
             {QPalette::AlternateBase, {36, 38, 43}},
             {QPalette::Text, text},
             {QPalette::Button, {52, 55, 61}},
             {QPalette::ButtonText, text},
             {QPalette::ToolTipBase, {52, 55, 61}},
             {QPalette::ToolTipText, text},
             {QPalette::Highlight, {61, 143, 176}},
             {QPalette::HighlightedText, Qt::white}})
        dark.setColor(role, colour);
    return {light, dark};
}

/// An element as the style draws it on some ground.
QImage drawn(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& palette,
             QStyle::State state, QPalette::ColorRole ground) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(palette.color(ground));
    QStyleOptionFrame option;
    option.rect = image.rect();
    option.palette = palette;
    option.state = state;
    option.lineWidth = 1;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    painter.end();
    return image;
}

/// The middle of the upper edge of an element on a window.
QColor edgeColour(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& palette,
                  QStyle::State state) {
    return drawn(style, element, palette, state, QPalette::Window).pixelColor(20, 0);
}

}  // namespace

TEST(OutlinedStyle, OutlinesAreSeenOnAnyWindow) {
    const OutlinedStyle style;
    for (const QPalette& palette : bothPalettes()) {
        for (const QStyle::PrimitiveElement element :
             {QStyle::PE_PanelLineEdit, QStyle::PE_PanelButtonCommand, QStyle::PE_Frame}) {
            const QColor edge = edgeColour(style, element, palette, QStyle::State_Enabled);
            EXPECT_GE(contrast(edge, palette.color(QPalette::Window)), kShapeContrast) << element;
            EXPECT_GE(contrast(edge, palette.color(QPalette::Base)), kShapeContrast) << element;
        }
    }
}

TEST(OutlinedStyle, WhatIsOffOrCannotBeWrittenStepsBack) {
    const OutlinedStyle style;
    for (const QPalette& palette : bothPalettes()) {
        const QColor window = palette.color(QPalette::Window);
        const double usual =
            contrast(edgeColour(style, QStyle::PE_PanelLineEdit, palette, QStyle::State_Enabled), window);
        for (const QStyle::State quiet :
             {QStyle::State(QStyle::State_None), QStyle::State_Enabled | QStyle::State_ReadOnly})
            EXPECT_LT(contrast(edgeColour(style, QStyle::PE_PanelLineEdit, palette, quiet), window), usual);
    }
}

TEST(OutlinedStyle, MarksTheFocus) {
    const OutlinedStyle style;
    for (QPalette palette : bothPalettes()) {
        palette.setColor(QPalette::Highlight, QColor(10, 20, 200));  // is hard to see on a dark window
        for (const QStyle::PrimitiveElement element :
             {QStyle::PE_PanelLineEdit, QStyle::PE_PanelButtonCommand, QStyle::PE_Frame}) {
            const QColor edge =
                edgeColour(style, element, palette, QStyle::State_Enabled | QStyle::State_HasFocus);
            EXPECT_EQ(edge, focusColour(palette)) << element;
            EXPECT_GE(contrast(edge, palette.color(QPalette::Window)), kShapeContrast) << element;
            EXPECT_NE(edge, edgeColour(style, element, palette, QStyle::State_Enabled)) << element;
        }
    }
}

TEST(OutlinedStyle, MarksTheRowWithTheFocusAroundItsText) {
    const OutlinedStyle style;
    const QStyle::State inFocus = QStyle::State_Enabled | QStyle::State_Item | QStyle::State_HasFocus |
                                  QStyle::State_KeyboardFocusChange;
    for (const QPalette& palette : bothPalettes()) {
        for (const auto& [state, ground] :
             {std::pair{inFocus, QPalette::Base},
              std::pair{inFocus | QStyle::State_Selected, QPalette::Highlight}}) {
            const QImage row = drawn(style, QStyle::PE_FrameFocusRect, palette, state, ground);
            const QColor under = palette.color(ground);
            for (const QPoint edge : {QPoint(0, 0), QPoint(39, 0), QPoint(0, 19), QPoint(39, 19)})
                EXPECT_GE(contrast(row.pixelColor(edge), under), kShapeContrast) << ground;
            EXPECT_EQ(row.pixelColor(1, 1), under) << ground;
            EXPECT_EQ(row.pixelColor(38, 18), under) << ground;
            EXPECT_EQ(row.pixelColor(20, 10), under) << ground;
        }
    }
}

TEST(OutlinedStyle, TextsAreReadable) {
    struct Pair {
        QPalette::ColorRole text;
        QPalette::ColorRole ground;
    };
    for (QPalette palette : bothPalettes()) {
        OutlinedStyle().polish(palette);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            for (const Pair& pair :
                 std::initializer_list<Pair>{{QPalette::WindowText, QPalette::Window},
                                             {QPalette::Text, QPalette::Base},
                                             {QPalette::Text, QPalette::AlternateBase},
                                             {QPalette::ButtonText, QPalette::Button},
                                             {QPalette::PlaceholderText, QPalette::Base},
                                             {QPalette::HighlightedText, QPalette::Highlight},
                                             {QPalette::ToolTipText, QPalette::ToolTipBase},
                                             {QPalette::Link, QPalette::Base},
                                             {QPalette::LinkVisited, QPalette::Base}})
                EXPECT_GE(contrast(palette.color(group, pair.text), palette.color(group, pair.ground)),
                          kTextContrast)
                    << pair.text << " on " << pair.ground;
        }
        for (const Pair& pair : std::initializer_list<Pair>{{QPalette::WindowText, QPalette::Window},
                                                            {QPalette::Text, QPalette::Window},
                                                            {QPalette::ButtonText, QPalette::Button}})
            EXPECT_GE(contrast(palette.color(QPalette::Disabled, pair.text),
                               palette.color(QPalette::Disabled, pair.ground)),
                      kShapeContrast)
                << pair.text << " off";
    }
}

TEST(OutlinedStyle, WhatIsOffIsReadInBoxesOfAnyBrightness) {
    QPalette palette = OutlinedStyle().standardPalette();
    palette.setColor(QPalette::Base, QColor(170, 170, 170));
    OutlinedStyle().polish(palette);
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base})
        EXPECT_GE(contrast(palette.color(QPalette::Disabled, QPalette::Text),
                           palette.color(QPalette::Disabled, ground)),
                  kShapeContrast)
            << ground;
}

TEST(OutlinedStyle, EmptyBoxesAreReadableWhereTheDesktopTellsNoColour) {
    for (QPalette palette : bothPalettes()) {
        palette.setColor(QPalette::PlaceholderText, Qt::black);
        OutlinedStyle().polish(palette);
        EXPECT_GE(contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)),
                  kTextContrast);
        EXPECT_NE(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Text));
    }
}

TEST(OutlinedStyle, LetsListsDown) {
    EXPECT_EQ(OutlinedStyle().styleHint(QStyle::SH_ComboBox_Popup, nullptr, nullptr, nullptr), 0);
}

TEST(OutlinedStyle, ButtonsOfBoxesHaveNoPictures) {
    EXPECT_EQ(
        OutlinedStyle().styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, nullptr, nullptr), 0);
}

TEST(OutlinedStyle, IconsOfBoxesAreCrispInAnySizeAndDifferByMoreThanColour) {
    const OutlinedStyle style;
    for (const int side : {24, 32, 48, 64, 96, 128}) {
        std::vector<QImage> shapes;
        for (const QStyle::StandardPixmap icon :
             {QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxWarning,
              QStyle::SP_MessageBoxCritical}) {
            const QPixmap drawn = style.standardIcon(icon, nullptr, nullptr).pixmap(side);
            EXPECT_EQ(drawn.size(), QSize(side, side)) << icon;
            shapes.push_back(drawn.toImage().convertToFormat(QImage::Format_Mono, Qt::ThresholdDither));
            EXPECT_EQ(std::ranges::count(shapes, shapes.back()), 1) << icon;
        }
    }
    EXPECT_FALSE(style.standardIcon(QStyle::SP_DirIcon, nullptr, nullptr).isNull()) << "the toolkit's own";
}

TEST(OutlinedStyle, IconsOfBoxesAreTheDesktopsWhereItHasThem) {
    const TemporaryFolder folder;
    const QDir theme(QString::fromStdString((folder.path() / "own").string()));
    ASSERT_TRUE(theme.mkpath("32"));
    QFile index(theme.filePath("index.theme"));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=Own\nDirectories=32\n\n[32]\nSize=32\nType=Fixed\n");
    index.close();
    QImage red(32, 32, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(theme.filePath("32/dialog-warning.png")));

    const QStringList paths = QIcon::themeSearchPaths();
    const QString name = QIcon::themeName();
    QIcon::setThemeSearchPaths({QString::fromStdString(folder.path().string())});
    QIcon::setThemeName("own");
    const auto middleOf = [](QStyle::StandardPixmap icon) {
        const QImage drawn = OutlinedStyle().standardIcon(icon, nullptr, nullptr).pixmap(32).toImage();
        return drawn.pixelColor(drawn.rect().center());
    };
    EXPECT_EQ(middleOf(QStyle::SP_MessageBoxWarning), QColor(Qt::red));
    EXPECT_NE(middleOf(QStyle::SP_MessageBoxCritical), QColor(Qt::red)) << "which it does not have";
    QIcon::setThemeName(name);
    QIcon::setThemeSearchPaths(paths);
}

TEST(OutlinedStyle, MarksToTickGrowWithTheFont) {
    const OutlinedStyle style;
    QCheckBox box;
    QFont font = box.font();
    for (const QStyle::PixelMetric metric :
         {QStyle::PM_IndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_MessageBoxIconSize}) {
        font.setPixelSize(12);
        box.setFont(font);
        const int usual = style.pixelMetric(metric, nullptr, &box);
        EXPECT_GE(usual, 12) << metric;
        font.setPixelSize(40);
        box.setFont(font);
        EXPECT_GT(style.pixelMetric(metric, nullptr, &box), usual * 3 / 2) << metric;
        EXPECT_EQ(style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box),
                  style.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &box));
    }
}

}  // namespace tallybrook::test
