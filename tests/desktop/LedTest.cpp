#include "OwnScreens.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableView>

namespace tallybrook::test {

/// What leads the eye on the program's own screens, and what hands expect of any list.
class LedTest : public OwnScreens {
protected:
    [[nodiscard]] QString foot() {
        const auto* const label = window().statusBar()->findChild<QLabel*>();
        return label->isVisible() ? label->text() : QString();
    }
    QTableView& list() { return dynamic_cast<QTableView&>(*window().widgetOf(control("dgdEventList"))); }
    [[nodiscard]] QRect place(const std::string& name) {
        const QWidget& shown = *window().widgetOf(control(name));
        return {shown.mapTo(&window(), QPoint()), shown.size()};
    }
    [[nodiscard]] QScrollArea& area() { return dynamic_cast<QScrollArea&>(*window().centralWidget()); }
    void listEvent() {
        beginEvent();
        beginFrames();
        click("cmdRetMain");
        click("mnuEditData", {Answer::OK});
    }
};

TEST_F(LedTest, EveryScreenHasOnePrimaryAction) {
    tour([this] {
        const Control* const primary = screen().primary();
        ASSERT_NE(primary, nullptr) << screen().name();
        if (primary->kind() != Control::Kind::Menu) {
            EXPECT_NE(window().widgetOf(*primary), nullptr) << screen().name();
        }
    });
}

TEST_F(LedTest, ExitStandsApart) {
    click("mnuAddFromForm");
    const int usual = place("cmdMain").top() - place("cmdPrevious").bottom();
    EXPECT_GT(place("cmdExit").top() - place("cmdMain").bottom(), usual + 5);
}

TEST_F(LedTest, DeleteStandsApart) {
    listEvent();
    const int usual = place("cmdMain").top() - place("cmdPrevious").bottom();
    EXPECT_GT(place("cmdDelRecord").top() - place("cmdMain").bottom(), 5 * usual);
    EXPECT_EQ(place("cmdExit").top() - place("cmdDelRecord").bottom(), usual);
    EXPECT_EQ(place("cmdExit").bottom(), place("dgdEventList").bottom());
}

TEST_F(LedTest, TitlesSayTheScreenAndTheProduct) {
    EXPECT_EQ(window().windowTitle(), "Main Menu - Tallybrook");
    click("mnuAbout");
    EXPECT_EQ(window().windowTitle(), "About Tallybrook");
}

TEST_F(LedTest, FootSaysWhenSomethingWasSaved) {
    EXPECT_EQ(foot(), "");
    clock.set(makeDate(2026, 11, 14) + std::chrono::hours{19} + std::chrono::minutes{42});
    click("mnuAddFromForm");
    EXPECT_EQ(foot(), "");
    fillEvent();
    EXPECT_EQ(foot(), "Saved 7:42 PM");
    beginFrames();
    EXPECT_EQ(foot(), "Saved 7:42 PM");
    click("optFirstYes");
    clock.set(makeDate(2026, 11, 15) + std::chrono::minutes{5});
    EXPECT_EQ(foot(), "Saved 7:42 PM");
    click("cmdNextFrame");
    EXPECT_EQ(foot(), "Saved 12:05 AM");
}

TEST_F(LedTest, DoubleClickRetrieves) {
    listEvent();
    QWidget& surface = *list().viewport();
    const QPoint row = list().visualRect(list().model()->index(0, 1)).center();
    QTest::mouseClick(&surface, Qt::LeftButton, Qt::NoModifier, row);
    answerNext(Answer::OK);  // the event is not complete
    QTest::mouseDClick(&surface, Qt::LeftButton, Qt::NoModifier, row);
    QTest::mouseRelease(&surface, Qt::LeftButton, Qt::NoModifier, row);
    EXPECT_EQ(screen().name(), "frmEvent");
}

TEST_F(LedTest, ReturnRetrieves) {
    listEvent();
    display.perform([this] { person::arrive(control("dgdEventList")); });
    answerNext(Answer::OK);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(screen().name(), "frmEvent");
}

TEST_F(LedTest, EnterOfTheNumberBlockRetrievesToo) {
    listEvent();
    display.perform([this] { person::arrive(control("dgdEventList")); });
    answerNext(Answer::OK);
    QTest::keyClick(&list(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen().name(), "frmEvent");
}

TEST_F(LedTest, RowIsCopied) {
    listEvent();
    display.perform([this] { person::arrive(control("dgdEventList")); });
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    const QStringList cells = QGuiApplication::clipboard()->text().split('\t');
    EXPECT_EQ(cells.value(1), "Thursday League");
    EXPECT_EQ(cells.size(), list().model()->columnCount());
}

TEST_F(LedTest, TextOfABoxIsCopied) {
    hands.expect([](QDialog& box) {
        EXPECT_TRUE(box.findChild<QLabel*>("qt_msgbox_label")
                        ->textInteractionFlags()
                        .testFlag(Qt::TextSelectableByMouse));
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
        box.done(0);
    });
    display.perform([this] { display.messageBox({.text = "Disk full.\r\nTry again?"}); });
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Disk full.\nTry again?");
}

TEST_F(LedTest, CommentTakesTheRoomThatIsLeft) {
    listEvent();
    window().resize(1900, 600);
    QTest::qWait(1);
    int used = 0;
    for (int column = 0; column < list().model()->columnCount(); ++column)
        used += list().columnWidth(column);
    EXPECT_EQ(used, list().viewport()->width());
    constexpr int kEventType = 8;
    EXPECT_GT(list().columnWidth(kEventType), list().fontMetrics().horizontalAdvance("TOURNAMENT") + 10);
}

TEST_F(LedTest, NamesGetRoomBesideTheComment) {
    listEvent();
    const int letter = list().fontMetrics().averageCharWidth();
    window().resize(1900, 600);
    QTest::qWait(1);
    for (const int name : {1, 3}) {
        EXPECT_GE(list().columnWidth(name), 45 * letter) << name;
        EXPECT_LE(list().columnWidth(name), 55 * letter) << name;  // no wider than names can be long
    }
    constexpr int kComment = 7;
    EXPECT_GT(list().columnWidth(kComment), list().columnWidth(1));
}

TEST_F(LedTest, NameOfTheEventIsReadInANarrowWindow) {
    beginEvent();
    beginFrames();
    window().resize(683, 500);
    QTest::qWait(1);
    const auto letters = [this] {
        return place("txtEventName").width() / window().fontMetrics().averageCharWidth();
    };
    EXPECT_GT(letters(), 50);
    EXPECT_GT(place("txtLanePair").top(), place("txtEventName").bottom());
    EXPECT_LT(place("txtDateBowled").left() - place("lblDateBowled").right(), 20);
    window().resize(1366, 700);
    QTest::qWait(1);
    EXPECT_EQ(place("txtLanePair").top(), place("txtEventName").top());
}

TEST_F(LedTest, RackGrowsWithItsWindow) {
    beginEvent();
    beginFrames();
    const int usual = place("chkFirstPinfall(7)").width();
    window().resize(3 * window().size());
    QTest::qWait(1);
    EXPECT_GT(place("chkFirstPinfall(7)").width(), usual * 5 / 4);
    EXPECT_GT(window().widgetOf(control("txtCount(1)"))->fontMetrics().height(),
              window().fontMetrics().height() * 3 / 2);
    window().resize(window().size() / 3);
    QTest::qWait(1);
    EXPECT_EQ(place("chkFirstPinfall(7)").width(), usual);
}

TEST_F(LedTest, RackFitsASmallDisplayWithLargeLetters) {
    beginEvent();
    beginFrames();
    window().resize(683, 340);  // 1366 by 768, where a pixel is as large as two
    QTest::qWait(1);
    EXPECT_EQ(area().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(window().widgetOf(control("lblLaneNum"))->font(), window().font());
    EXPECT_GT(place("fraFirstPinfall").top(), place("txtComment").bottom());
    window().resize(911, 480);  // and as large as one and a half
    QTest::qWait(1);
    EXPECT_EQ(area().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(area().verticalScrollBar()->maximum(), 0);
    EXPECT_GT(place("fraFirstPinfall").left(), place("txtComment").right());
}

TEST_F(LedTest, RackKeepsItsShapeWhereANarrowWindowIsMaximised) {
    beginEvent();
    beginFrames();
    window().resize(520, 400);  // where its parts stand below each other
    window().resize(1920, 1060);
    QTest::qWait(1);
    const QRect pin = place("chkFirstPinfall(7)");
    EXPECT_EQ(pin.width(), pin.height());
    EXPECT_GT(area().widget()->width(), 1700);
}

TEST_F(LedTest, RackStandsAlikeWhateverSizeItsWindowHadBefore) {
    beginEvent();
    beginFrames();
    const auto placesAfter = [this](QSize before, QSize now) {
        window().resize(before);
        QTest::qWait(1);
        window().resize(now);
        QTest::qWait(1);
        std::vector<QRect> places{area().widget()->rect()};
        for (const char* const part : {"chkFirstPinfall(7)", "txtComment", "cmdExit", "txtCount(10)"})
            places.push_back(place(part));
        return places;
    };
    constexpr int kRounded = 2;  // pixels
    for (int width = 800; width <= 1600; width += 40) {
        const QSize now(width, 2 * width / 3);
        const std::vector<QRect> grown = placesAfter({520, 400}, now);
        const std::vector<QRect> shrunk = placesAfter({1900, 1000}, now);
        for (std::size_t part = 0; part < grown.size(); ++part) {
            EXPECT_LE((grown[part].topLeft() - shrunk[part].topLeft()).manhattanLength(), kRounded) << width;
            EXPECT_LE((grown[part].bottomRight() - shrunk[part].bottomRight()).manhattanLength(), kRounded)
                << width << " " << part;
        }
    }
}

TEST_F(LedTest, RackStaysTogetherOnALargeDisplay) {
    beginEvent();
    beginFrames();
    window().resize(3000, 900);
    QTest::qWait(1);
    const QRect head = place("chkFirstPinfall(1)");
    EXPECT_LT(place("chkFirstPinfall(2)").bottom(), head.top());
    EXPECT_LT(head.top() - place("chkFirstPinfall(2)").bottom(), head.height() / 2);
    EXPECT_LT(place("chkFirstPinfall(8)").left() - place("chkFirstPinfall(7)").right(), head.width() / 2);
    EXPECT_LT(place("txtComment").width(), 2 * place("fraFirstPinfall").width());
}

TEST_F(LedTest, ButtonsBelowTheRestAreAsWideAsUsual) {
    click("mnuReports");
    click("mnuRptEvent");
    window().resize(1200, 600);
    QTest::qWait(1);
    const QRect usual = place("cmdSearch");
    window().resize(600, 600);
    QTest::qWait(1);
    EXPECT_GT(place("cmdSearch").top(), place("cboListField(4)").bottom());
    EXPECT_EQ(place("cmdSearch").size(), usual.size());
    EXPECT_EQ(place("cmdSearch").left(), place("cboListField(4)").left());
    window().resize(1200, 600);
    QTest::qWait(1);
    EXPECT_EQ(place("cmdSearch"), usual);
}

TEST_F(LedTest, GroupOfTheFocusIsSeenWhole) {
    beginEvent();
    window().resize(900, 330);
    QTest::qWait(1);
    EXPECT_GT(place("fraScoreType").bottom(), window().height());
    display.perform([this] { control("optScType(0)").focus(); });
    const QWidget& seen = *area().viewport();
    EXPECT_TRUE(QRect(seen.mapTo(&window(), QPoint()), seen.size()).contains(place("fraScoreType")));
}

TEST_F(LedTest, OptionsOfAGroupStandTogether) {
    click("mnuHHSetup");
    window().resize(1600, 900);
    QTest::qWait(1);
    EXPECT_LT(place("optHHType(1)").left() - place("optHHType(0)").right(), 30);
}

TEST_F(LedTest, FormsStayReadableInTheMiddle) {
    click("mnuAddFromForm");
    window().resize(2400, 1200);
    QTest::qWait(1);
    const int left = place("lblTitle").left() - place("imgLogo").width();
    const int right = window().width() - place("cmdExit").right();
    EXPECT_GT(left, 500);
    EXPECT_LT(std::abs(left - right), 60);
}

}  // namespace tallybrook::test
