#include "Desktop.h"

namespace tallybrook::test {

using FocusTest = Desktop;

TEST_F(FocusTest, BeginsWhereTheScreenPutsIt) {
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(FocusTest, IsNotTakenByWhatHoldsTheControls) {
    EXPECT_EQ(window().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(window().centralWidget()->focusPolicy(), Qt::NoFocus);
}

TEST_F(FocusTest, IsSeenWhereverItIs) {
    for (Control* const control :
         std::initializer_list<Control*>{&screen().cmdGo, &screen().txtShort, &screen().txtLines,
                                         &screen().optYes, &screen().chkPlain, &screen().chkPin}) {
        const QImage without = widget(*control).grab().toImage();
        display.perform([&] { control->focus(); });
        EXPECT_NE(widget(*control).grab().toImage(), without) << control->name();
    }
}

TEST_F(FocusTest, LeavingRunsBeforeTheClick) {
    click(screen().cmdGo);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
    EXPECT_EQ(display.lastArrival(), Arrival::Arrived);
    EXPECT_EQ(window().focusWidget(), &widget(screen().cmdGo));
}

TEST_F(FocusTest, KeptFocusEatsTheClick) {
    screen().txtName.onLostFocus = [this] { screen().txtName.focus(); };
    for (const Control* const target : std::initializer_list<const Control*>{
             &screen().cmdGo, &screen().optYes, &screen().chkPlain, &screen().chkPin}) {
        log();
        click(*target);
        EXPECT_EQ(log(), Lines{"got txtName"}) << target->name();
        EXPECT_EQ(display.lastArrival(), Arrival::Kept);
        EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
    }
    EXPECT_FALSE(screen().optYes.value());
    EXPECT_FALSE(widget<QAbstractButton>(screen().optYes).isChecked());
    EXPECT_FALSE(screen().chkPin.value());
    EXPECT_FALSE(widget<QAbstractButton>(screen().cmdGo).isDown());
}

TEST_F(FocusTest, ClickStillHappensWhenTheFocusRestsElsewhere) {
    screen().txtName.onLostFocus = [this] { screen().txtShort.focus(); };
    click(screen().chkPlain);
    EXPECT_EQ(display.lastArrival(), Arrival::Elsewhere);
    EXPECT_EQ(log(), (Lines{"got txtShort", "click chkPlain"}));
    EXPECT_TRUE(screen().chkPlain.value());
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtShort));
}

TEST_F(FocusTest, TypingGoesWhereTheFocusRests) {
    screen().txtName.onLostFocus = [this] { screen().txtShort.focus(); };
    click(screen().txtLines);
    type("ab");
    EXPECT_EQ(screen().txtShort.text(), "ab");
    EXPECT_EQ(screen().txtLines.text(), "");
}

TEST_F(FocusTest, DisabledControlTakesNoClick) {
    click(screen().cmdOff);
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(display.lastArrival(), Arrival::Refused);
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(FocusTest, ControlThatIsDisabledHandsItOn) {
    display.perform([this] { screen().txtName.setEnabled(false); });
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtShort));
    EXPECT_EQ(log(), Lines{"got txtShort"});
    display.perform([this] { screen().txtShort.setVisible(false); });
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtLines));
}

TEST_F(FocusTest, CodeMovesIt) {
    display.perform([this] { screen().cmdStop.focus(); });
    EXPECT_EQ(window().focusWidget(), &widget(screen().cmdStop));
}

TEST_F(FocusTest, WhateverElseMovesItIsPutRight) {
    widget(screen().cmdGo).setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
    EXPECT_EQ(log(), Lines{});
}

TEST_F(FocusTest, WindowHandsItOnToTheControlThatHasIt) {
    window().setFocus(Qt::ActiveWindowFocusReason);
    EXPECT_EQ(window().focusWidget(), &window());
    QCoreApplication::processEvents();
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(FocusTest, NoControlHasItWhereTheScreenSaysSo) {
    display.perform([this] {
        for (Control* const control : screen().controls())
            control->setEnabled(false);
    });
    EXPECT_EQ(window().focusWidget(), &window());
    window().activateWindow();
    QTest::qWait(1);
    EXPECT_EQ(window().focusWidget(), &window());
}

TEST_F(FocusTest, HidingAndShowingIsNotLeaving) {
    display.perform([this] { screen().cmdGo.focus(); });
    log();
    display.perform([this] {
        program.screens.hide(screen());
        program.screens.load("frmOther");
    });
    EXPECT_FALSE(window().isVisible());
    display.perform([this] { program.screens.show(screen()); });
    EXPECT_EQ(window().focusWidget(), &widget(screen().cmdGo));
    EXPECT_EQ(log(), Lines{});
}

TEST_F(FocusTest, ScreenReadersPressTakesTheFocusFirst) {
    widget<QAbstractButton>(screen().cmdGo).click();
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
}

TEST_F(FocusTest, LeavingThatUnloadsTheScreenEndsTheClick) {
    load("frmOther");
    screen().txtName.onLostFocus = [this] { program.screens.unload(screen()); };
    const QPointer<QWidget> going = &window();
    const QPointer<QWidget> target = &widget(screen().cmdGo);
    click(screen().cmdGo);
    EXPECT_EQ(program.screens.find("frmMain"), nullptr);
    ASSERT_FALSE(target.isNull());  // it goes only when its events have been handled
    QTest::mouseRelease(target, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(going.isNull());
}

}  // namespace tallybrook::test
