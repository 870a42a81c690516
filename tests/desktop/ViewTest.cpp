#include "Desktop.h"

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>

namespace tallybrook::test {

class ViewTest : public Desktop {
protected:
    bool isChecked(const Control& control) { return widget<QAbstractButton>(control).isChecked(); }
};

TEST_F(ViewTest, CaptionsAreShownAsTyped) {
    auto& title = widget<QLabel>(screen().lblTitle);
    EXPECT_EQ(title.textFormat(), Qt::PlainText);
    EXPECT_EQ(title.text(), "Bowling  <b>more</b>");  // the mark of a letter is not shown
    display.perform([this] {
        screen().lblTitle.setCaption("Fish && Chips");
        screen().cmdGo.setCaption("Go &On");
        screen().fraAnswers.setCaption("A&nswers");
        screen().mnuHelp.setCaption("&Aid");
    });
    EXPECT_EQ(title.text(), "Fish & Chips");
    EXPECT_EQ(widget<QAbstractButton>(screen().cmdGo).text(), "Go &On");
    EXPECT_EQ(widget<QGroupBox>(screen().fraAnswers).title(), "A&nswers");
    EXPECT_EQ(display.actionOf(screen().mnuHelp)->text(), "&Aid\tF1");
}

TEST_F(ViewTest, TipsAreShownAsTyped) {
    EXPECT_EQ(widget(screen().txtName).toolTip(), "Say \"Hello\"");
    EXPECT_TRUE(widget(screen().cmdStop).toolTip().contains("&lt;b&gt;Ends&lt;/b&gt;"));
}

TEST_F(ViewTest, EnabledAndVisibleFollowTheScreen) {
    EXPECT_FALSE(widget(screen().cmdOff).isEnabled());
    display.perform([this] {
        screen().cmdOff.setEnabled(true);
        screen().chkPlain.setVisible(false);
        screen().mnuHelp.setEnabled(false);
        screen().mnuMore.setVisible(false);
    });
    EXPECT_TRUE(widget(screen().cmdOff).isEnabled());
    EXPECT_FALSE(widget(screen().chkPlain).isVisible());
    EXPECT_FALSE(display.actionOf(screen().mnuHelp)->isEnabled());
    EXPECT_FALSE(display.actionOf(screen().mnuMore)->isVisible());
}

TEST_F(ViewTest, DisabledFrameDisablesAllInIt) {
    display.perform([this] { screen().fraAnswers.setEnabled(false); });
    EXPECT_FALSE(widget(screen().optYes).isEnabled());
    click(screen().optYes);
    EXPECT_FALSE(screen().optYes.value());
    display.perform([this] { screen().fraAnswers.setEnabled(true); });
    EXPECT_TRUE(widget(screen().optYes).isEnabled());
}

TEST_F(ViewTest, OptionsAreTheScreens) {
    EXPECT_FALSE(isChecked(screen().optYes) || isChecked(screen().optNo));
    click(screen().optYes);
    EXPECT_TRUE(screen().optYes.value() && isChecked(screen().optYes));
    log();
    click(screen().optYes);  // is on already
    EXPECT_EQ(log(), Lines{});
    EXPECT_TRUE(isChecked(screen().optYes));
    click(screen().optNo);
    EXPECT_FALSE(isChecked(screen().optYes));
    display.perform([this] { screen().optNo.setValue(false); });
    EXPECT_FALSE(isChecked(screen().optYes) || isChecked(screen().optNo));
}

TEST_F(ViewTest, OptionThatTheScreenRefusesStaysOff) {
    screen().optYes.onClick = [this] { screen().optYes.setValue(false); };
    click(screen().optYes);
    EXPECT_FALSE(isChecked(screen().optYes));
}

TEST_F(ViewTest, CheckBoxesToggle) {
    for (const CheckBox* const box : {&screen().chkPlain, &screen().chkPin}) {
        click(*box);
        EXPECT_TRUE(box->value() && isChecked(*box));
        click(*box);
        EXPECT_FALSE(box->value() || isChecked(*box));
    }
}

TEST_F(ViewTest, ClickIsOneClickInTheEndToo) {
    for (const Control* const control :
         std::initializer_list<const Control*>{&screen().chkPlain, &screen().chkPin, &screen().optYes}) {
        click(*control);
        QCoreApplication::processEvents();
        EXPECT_EQ(std::ranges::count(log(), "click " + control->name()), 1) << control->name();
        EXPECT_TRUE(isChecked(*control)) << control->name();
    }
}

TEST_F(ViewTest, EverythingHasANameToBeReadAloud) {
    EXPECT_EQ(widget(screen().chkPin).accessibleName(), "7");
    display.perform([this] { screen().chkPin.setSpokenName("Pin 7, standing"); });
    EXPECT_EQ(widget(screen().chkPin).accessibleName(), "Pin 7, standing");
    EXPECT_EQ(widget(screen().cmdGo).accessibleName(), "Go");
    EXPECT_EQ(widget(screen().txtName).accessibleName(), "Name");
    EXPECT_EQ(widget(screen().txtShort).accessibleName(), "Three at most");
    EXPECT_EQ(widget<QLabel>(screen().lblName).buddy(), &widget(screen().txtName));
}

TEST_F(ViewTest, PinsLookDifferentInEveryState) {
    QWidget& pin = widget(screen().chkPin);
    std::vector<QImage> looks;
    for (const bool isOn : {false, true}) {
        for (const bool isEnabled : {false, true}) {
            display.perform([&] {
                screen().chkPin.setValue(isOn);
                screen().chkPin.setEnabled(isEnabled);
            });
            looks.push_back(pin.grab().toImage());
        }
    }
    for (std::size_t i = 0; i < looks.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(looks[i], looks[j]) << i << " and " << j;
    }
}

TEST_F(ViewTest, PictureHasItsSize) {
    EXPECT_EQ(widget(screen().imgLogo).size(), QSize(40, 40));
    const QImage picture = widget(screen().imgLogo).grab().toImage();
    EXPECT_NE(picture.pixel(20, 20), picture.pixel(0, 0));
}

TEST_F(ViewTest, WhatTheLayoutLeavesOutHasNoWidget) {
    EXPECT_EQ(display.widgetOf(screen().txtNowhere), nullptr);
    EXPECT_EQ(display.widgetOf(screen().mnuHelp), nullptr);
    EXPECT_EQ(display.actionOf(screen().cmdGo), nullptr);
    display.perform([this] { screen().txtNowhere.focus(); });
    EXPECT_EQ(window().focusWidget(), &window());
}

TEST_F(ViewTest, MenusNestAsTheScreens) {
    const QMenu* const file = display.actionOf(screen().mnuFile)->menu();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->actions().size(), 2);
    EXPECT_EQ(file->actions()[0], display.actionOf(screen().mnuHelp));
    EXPECT_EQ(display.actionOf(screen().mnuMore)->menu()->actions()[0], display.actionOf(screen().mnuInner));
}

TEST_F(ViewTest, NewPaletteIsTaken) {
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    QTest::qWait(1);
    EXPECT_EQ(widget(screen().txtShown).palette().color(QPalette::Base), QColor(Qt::black));
    EXPECT_EQ(widget(screen().txtShown).palette().color(QPalette::Text), QColor(Qt::white));
    QApplication::setPalette(before);
}

}  // namespace tallybrook::test
