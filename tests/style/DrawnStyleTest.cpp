#include "style/Colours.h"
#include "style/OutlinedStyle.h"
#include "support/Drawing.h"
#include "support/WrittenDown.h"

#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTableView>
#include <QTreeView>
#include <vector>

#include <gtest/gtest.h>

// How the style draws and measures, down to the last line. After a wanted change write it down anew with
// TALLYBROOK_WRITE_EXPECTED, and read the difference.
namespace tallybrook::test {

namespace {

struct Named {
    const char* name;
    QPalette palette;
};

std::vector<Named> palettes() {
    QPalette dark(QColor(52, 55, 61), QColor(36, 38, 43));
    dark.setColor(QPalette::Base, QColor(27, 29, 33));
    dark.setColor(QPalette::Highlight, QColor(10, 20, 200));
    QPalette pale = OutlinedStyle().standardPalette();
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::Link,
                            QPalette::LinkVisited, QPalette::Highlight})
        pale.setColor(role, QColor(170, 190, 210));
    return {{"light", OutlinedStyle().standardPalette()}, {"dark", dark}, {"pale", pale}};
}

/// The last thing that is drawn, which is the style's own.
std::string lastOf(const Drawing& drawing) {
    const QStringList lines = QString::fromStdString(drawing.told()).trimmed().split('\n');
    return lines.last().toStdString() + "\n";
}

std::string coloursOf(const QPalette& palette) {
    std::string text;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role :
             {QPalette::PlaceholderText, QPalette::Link, QPalette::LinkVisited, QPalette::Highlight,
              QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
            text += " " + palette.color(group, role).name().toStdString();
        text += "\n";
    }
    return text + " outline " + outlineColour(palette).name().toStdString() + ", focus " +
           focusColour(palette).name().toStdString() + "\n";
}

std::string outlinesOf(const QPalette& palette) {
    const OutlinedStyle style;
    std::string text;
    for (const auto element : {QStyle::PE_PanelLineEdit, QStyle::PE_PanelButtonCommand, QStyle::PE_Frame,
                               QStyle::PE_FrameFocusRect, QStyle::PE_IndicatorCheckBox,
                               QStyle::PE_IndicatorRadioButton, QStyle::PE_FrameGroupBox}) {
        for (const QStyle::State state : {QStyle::State(), QStyle::State(QStyle::State_Enabled),
                                          QStyle::State_Enabled | QStyle::State_HasFocus,
                                          QStyle::State_Enabled | QStyle::State_ReadOnly}) {
            Drawing drawing;
            QPainter painter(&drawing);
            QStyleOptionFrame option;
            option.rect = QRect(10, 20, 40, 18);
            option.palette = palette;
            option.state = state;
            style.drawPrimitive(element, &option, &painter, nullptr);
            painter.end();
            text += std::to_string(element) + " " + std::to_string(state) + " " + lastOf(drawing);
        }
    }
    for (const QStyle::State state :
         {QStyle::State(QStyle::State_Enabled), QStyle::State_Enabled | QStyle::State_HasFocus}) {
        Drawing drawing;
        QPainter painter(&drawing);
        QStyleOptionComboBox option;
        option.rect = QRect(10, 20, 80, 18);
        option.palette = palette;
        option.state = state;
        style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
        painter.end();
        text += "combo box " + std::to_string(state) + " " + lastOf(drawing);
    }
    return text;
}

std::string measures() {
    const OutlinedStyle style;
    QCheckBox box;
    QTableView table;
    QTreeView tree;
    QPlainTextEdit lines;
    QLabel label;
    std::string text;
    for (QWidget* const widget : std::vector<QWidget*>{&box, &table, &tree, &lines, &label}) {
        widget->setFont(Drawing::font(30));
        text += widget->metaObject()->className();
        for (const auto metric :
             {QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight, QStyle::PM_ExclusiveIndicatorWidth,
              QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_MessageBoxIconSize,
              QStyle::PM_DefaultFrameWidth, QStyle::PM_FocusFrameHMargin, QStyle::PM_HeaderMargin,
              QStyle::PM_SmallIconSize})
            text += " " + std::to_string(style.pixelMetric(metric, nullptr, widget));
        text += "\n";
    }
    return text;
}

std::string icons() {
    const OutlinedStyle style;
    std::string text;
    for (const auto picture : {QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxInformation,
                               QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
        Drawing drawing;
        QPainter painter(&drawing);
        painter.setFont(Drawing::font(9));
        style.standardIcon(picture, nullptr, nullptr).paint(&painter, QRect(7, 5, 40, 50));
        painter.end();
        text += drawing.told();
    }
    return text;
}

}  // namespace

TEST(DrawnStyle, IsAsItWasWanted) {
    std::string all = measures() + icons();
    for (auto& [name, palette] : palettes()) {
        OutlinedStyle().polish(palette);
        all += std::string(name) + "\n" + coloursOf(palette) + outlinesOf(palette);
    }
    EXPECT_TRUE(isAsWrittenDown(all, "style/drawn.txt"));
}

/// Items of lists have some room around them, and nothing else is larger than the toolkit has it.
TEST(DrawnStyle, GivesItemsRoom) {
    const OutlinedStyle style;
    const QStyleOption option;
    const QSize contents(100, 20);
    for (const auto type : {QStyle::CT_ItemViewItem, QStyle::CT_ProgressBar})
        EXPECT_EQ(style.sizeFromContents(type, &option, contents, nullptr) -
                      style.baseStyle()->sizeFromContents(type, &option, contents, nullptr),
                  (type == QStyle::CT_ItemViewItem ? QSize(0, 4) : QSize(0, 0)))
            << type;
}

}  // namespace tallybrook::test
