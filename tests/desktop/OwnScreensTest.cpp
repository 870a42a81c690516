#include "Fonts.h"
#include "OwnScreens.h"
#include "style/Colours.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <set>

namespace tallybrook::test {

using OwnScreensTest = OwnScreens;

namespace {

/// How wide a widget must be for all of its caption to be read; 0 for one without a caption.
int widthOfCaption(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return label->sizeHint().width();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return button->minimumSizeHint().width();
    if (const auto* const box = qobject_cast<const QGroupBox*>(&widget))
        return box->fontMetrics().horizontalAdvance(box->title());
    return 0;
}

void expectWholeHeaders(const QWidget& widget) {
    const auto* const table = qobject_cast<const QTableView*>(&widget);
    for (int column = 0; table != nullptr && column < table->horizontalHeader()->count(); ++column)
        EXPECT_GE(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column)) << column;
}

void expectNothingCutOff(const Screen& screen, ScreenWindow& window) {
    const auto& area = dynamic_cast<const QScrollArea&>(*window.centralWidget());
    const QRect display = window.screen()->availableGeometry();
    EXPECT_TRUE(display.contains(window.geometry())) << screen.name();
    constexpr int kFrame = 40;  // what the window leaves free for its title bar
    if (window.height() < display.height() - kFrame && window.width() < display.width() - kFrame) {
        EXPECT_EQ(area.verticalScrollBar()->maximum(), 0)
            << screen.name() << " hint " << area.widget()->sizeHint().height() << " is "
            << area.widget()->height() << " viewport " << area.viewport()->height() << " bar "
            << window.menuBar()->height() << " bar hint " << window.menuBar()->sizeHint().height();
        EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0) << screen.name();
        EXPECT_FALSE(area.verticalScrollBar()->isVisible()) << screen.name();
    }
    for (const Control* const control : screen.controls()) {
        const QWidget* const shown = window.widgetOf(*control);
        if (shown == nullptr || !shown->isVisibleTo(&window))
            continue;
        SCOPED_TRACE(screen.name() + "." + control->name());
        EXPECT_GE(shown->width(), widthOfCaption(*shown));
        EXPECT_GE(shown->width(), shown->minimumSizeHint().width());
        EXPECT_GE(shown->height(), shown->minimumSizeHint().height());
        EXPECT_TRUE(area.widget()->rect().contains({shown->mapTo(area.widget(), QPoint()), shown->size()}));
        expectWholeHeaders(*shown);
    }
}

/// What a screen reader stops at, and must have something to say of.
bool isTold(const QAccessibleInterface& part) {
    const std::set<QAccessible::Role> silent{
        QAccessible::Client,   QAccessible::Pane,      QAccessible::ScrollBar,
        QAccessible::Cell,     QAccessible::Row,       QAccessible::ListItem,
        QAccessible::TreeItem, QAccessible::Separator, QAccessible::LayeredPane};
    return !silent.contains(part.role()) && !part.state().invisible;
}

/// Adds the unnamed parts to a list, by their roles and the names of their widgets.
void collectUnnamed(QAccessibleInterface* part, std::vector<std::string>& unnamed, int& named) {
    if (part == nullptr || part->state().invisible || part->role() == QAccessible::ScrollBar)
        return;
    const bool hasName = !part->text(QAccessible::Name).isEmpty();
    named += hasName ? 1 : 0;
    if (isTold(*part) && !hasName)
        unnamed.push_back(std::to_string(part->role()) + " " +
                          (part->object() == nullptr ? "?"
                                                     : part->object()->objectName().toStdString() + " " +
                                                           part->object()->metaObject()->className()));
    for (int child = 0; child < part->childCount(); ++child)
        collectUnnamed(part->child(child), unnamed, named);
}

QImage pictureOf(QWidget& widget) {
    return widget.grab().toImage();
}

/// How many pixels of the mark of the focus there are at the left edge of a widget.
int thicknessOfFocus(QWidget& widget) {
    const QImage picture = pictureOf(widget);
    const QRgb mark = focusColour(widget.palette()).rgb();
    int pixels = 0;
    while (pixels < picture.width() && picture.pixel(pixels, picture.height() / 2) == mark)
        ++pixels;
    return pixels;
}

/// Whether a control has its mark of the focus around it: the others have it beside their text, or inside.
bool isMarkedAround(const Control& control) {
    return control.hasRows() || control.kind() == Control::Kind::TextBox ||
           (control.kind() == Control::Kind::Button && control.screen().primary() != &control);
}

}  // namespace

TEST_F(OwnScreensTest, NothingIsCutOff) {
    tour([this] { expectNothingCutOff(screen(), window()); });
}

/// The program on a desktop with large fonts from the start.
class LargeScreensTest : private LargeFonts, public OwnScreens {};

TEST_F(LargeScreensTest, NothingIsCutOff) {
    tour([this] { expectNothingCutOff(screen(), window()); });
}

TEST_F(LargeScreensTest, FramesNeedNoMoreThanASmallLaptop) {
    beginEvent();
    beginFrames();
    const QWidget& content = *dynamic_cast<const QScrollArea&>(*window().centralWidget()).widget();
    constexpr int kWidth = 113;  // of the display, in characters of twice the usual size
    EXPECT_LE(content.minimumSizeHint().width(), kWidth * window().fontMetrics().averageCharWidth());
}

/// The program with fonts of so many points, with which all screens find room on a small display. A pixel
/// that is rounded away shows with some of them alone.
class SmallFonts : public testing::WithParamInterface<int>, private Fonts, public OwnScreens {
protected:
    SmallFonts() : Fonts(inPoints(GetParam())) {}
    [[nodiscard]] QScrollArea& area() { return dynamic_cast<QScrollArea&>(*window().centralWidget()); }
};

TEST_P(SmallFonts, NeedNoScrolling) {
    tour([this] {
        window().tellSaved(clock.now());
        QTest::qWait(1);
        EXPECT_FALSE(area().verticalScrollBar()->isVisible()) << screen().name();
        EXPECT_FALSE(area().horizontalScrollBar()->isVisible()) << screen().name();
    });
}

TEST_P(SmallFonts, AreTheSameOnTheFrameScreen) {
    beginEvent();
    beginFrames();
    EXPECT_EQ(area().widget()->font().pointSizeF(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Of, SmallFonts, testing::Values(5, 6));

TEST_F(OwnScreensTest, FocusIsSeenOnEveryControl) {
    tour([this] {
        for (const Control* const one : screen().controls()) {
            QWidget* const shown = window().widgetOf(*one);
            if (shown == nullptr || !one->canTakeFocus())
                continue;
            // The toolkit's focus alone: the screen keeps its own, and its handlers do not run.
            shown->setFocus(Qt::TabFocusReason);
            const QImage with = pictureOf(*shown);
            shown->clearFocus();
            EXPECT_NE(pictureOf(*shown), with) << screen().name() << "." << one->name();
        }
        QTest::qWait(0);  // puts the focus back
    });
}

TEST_F(OwnScreensTest, FocusIsMarkedAlikeAroundBoxesListsAndButtons) {
    int looked = 0;
    tour([this, &looked] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        for (const Control* const one : screen().controls()) {
            QWidget* const shown = window().widgetOf(*one);
            if (shown == nullptr || !one->canTakeFocus() || !isMarkedAround(*one))
                continue;
            shown->setFocus(Qt::TabFocusReason);
            EXPECT_EQ(thicknessOfFocus(*shown), 2) << screen().name() << "." << one->name();
            ++looked;
        }
        QTest::qWait(0);  // puts the focus back
    });
    EXPECT_GT(looked, 100);
}

TEST_F(OwnScreensTest, EverythingIsReadAloud) {
    tour([this] {
        std::vector<std::string> unnamed;
        int named = 0;
        collectUnnamed(QAccessible::queryAccessibleInterface(&window()), unnamed, named);
        EXPECT_EQ(unnamed, std::vector<std::string>{}) << screen().name();
        EXPECT_GT(named, 5) << screen().name();
    });
}

TEST_F(OwnScreensTest, MenuPageLeadsWhereTheMenusLead) {
    QPushButton* found = nullptr;
    for (QPushButton* const button : window().findChildren<QPushButton*>())
        found = button->text() == "Add From Form" ? button : found;
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->toolTip(), "Alt+D, A, O");
    QTest::mouseClick(found, Qt::LeftButton);
    EXPECT_EQ(screen().name(), "frmEvent");
    EXPECT_EQ(program.session.gMode, 1);
}

TEST_F(OwnScreensTest, MenusShowTheLettersThatReachNothingElse) {
    beginEvent();
    beginFrames();
    EXPECT_EQ(display.actionOf(control("mnuNextFrame"))->text(), "&Next Frame\tAlt+N");
    EXPECT_EQ(display.actionOf(control("mnuPrevious"))->text(), "&Previous Screen");  // as Previous Frame
    EXPECT_EQ(display.actionOf(control("mnuTBKHelp"))->text(), "Tallybrook Help\tF1");
}

TEST_F(OwnScreensTest, PanelAndFrameInHandStandOut) {
    beginEvent();
    beginFrames();
    QWidget& panel = *display.widgetOf(control("fraFirstPinfall"));
    const QImage before = pictureOf(panel);
    click("optFirstYes");
    click("txtBallUsed");
    const QImage left = pictureOf(panel);
    click("optFirstYes");
    EXPECT_NE(pictureOf(panel), left);
    EXPECT_NE(before, left);
    const auto look = [this](int frame) {
        return dynamic_cast<Label&>(control("lblFraNum(" + std::to_string(frame) + ")")).look();
    };
    EXPECT_EQ(look(1), LabelLook::Current);
    const QWidget& number = *display.widgetOf(control("lblFraNum(1)"));
    EXPECT_EQ(number.foregroundRole(), QPalette::HighlightedText);
    EXPECT_EQ(number.backgroundRole(), QPalette::Highlight);
    click("cmdNextFrame");
    EXPECT_NE(number.foregroundRole(), QPalette::HighlightedText);
    EXPECT_NE(number.backgroundRole(), QPalette::Highlight);
    EXPECT_EQ(look(1), LabelLook::Plain);
    EXPECT_EQ(look(2), LabelLook::Current);
}

}  // namespace tallybrook::test
