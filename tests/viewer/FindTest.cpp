#include "Window.h"

#include <QCheckBox>
#include <QPushButton>

namespace tallybrook::test {

class FindTest : public Window {
protected:
    void find(const QString& text) {
        press(Qt::Key_F, Qt::ControlModifier);
        type(text);
    }
    void click(const QString& caption) {
        for (QPushButton* const button : findBar().findChildren<QPushButton*>()) {
            if (button->text().remove('&') == caption)
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    int place() { return view().selected().begin; }
};

TEST_F(FindTest, BarOpensAndCloses) {
    EXPECT_FALSE(findBar().isVisible());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(findBar().isVisible());
    EXPECT_TRUE(part<QLineEdit>().hasFocus());
    EXPECT_EQ(words(), "");
    press(Qt::Key_Escape);
    EXPECT_FALSE(findBar().isVisible());
    EXPECT_TRUE(view().hasFocus());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FindTest, FindsWhileItIsTyped) {
    find("str");
    EXPECT_EQ(words(), "1 of 3");
    EXPECT_EQ(selected(), "Str");
    type("ike");
    EXPECT_EQ(words(), "1 of 3");
    EXPECT_EQ(selected(), "Strike");
    EXPECT_EQ(view().marked().count(), 3);
}

TEST_F(FindTest, TellsWhatIsNotFound) {
    find("spares");
    EXPECT_EQ(words(), "Not found");
    EXPECT_EQ(selected(), "");
    press(Qt::Key_Return);
    EXPECT_EQ(words(), "Not found");
    press(Qt::Key_Backspace);
    EXPECT_EQ(words(), "1 of 2");
    EXPECT_EQ(selected(), "Spare");
}

TEST_F(FindTest, GoesOnAndRoundTheEnd) {
    find("strike");
    press(Qt::Key_Return);
    EXPECT_EQ(words(), "2 of 3");
    EXPECT_EQ(selected(), "strike");
    press(Qt::Key_F3);
    EXPECT_EQ(words(), "3 of 3");
    click("Next");
    EXPECT_EQ(words(), "1 of 3, from the top again");
    EXPECT_EQ(place(), 0);
}

TEST_F(FindTest, EnterOfTheKeypadGoesOnToo) {
    find("strike");
    press(Qt::Key_Enter);
    EXPECT_EQ(words(), "2 of 3");
    press(Qt::Key_Enter, Qt::ShiftModifier);
    EXPECT_EQ(words(), "1 of 3");
}

TEST_F(FindTest, GoesBackAndRoundTheBeginning) {
    find("strike");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(words(), "3 of 3, from the end again");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(words(), "2 of 3");
    click("Previous");
    EXPECT_EQ(words(), "1 of 3");
    EXPECT_EQ(place(), 0);
}

TEST_F(FindTest, MindsTheCaseWhereToldTo) {
    find("strike");
    part<QCheckBox>().setChecked(true);
    EXPECT_EQ(words(), "1 of 1");
    EXPECT_EQ(selected(), "strike");
    type("S");
    EXPECT_EQ(words(), "Not found");
    part<QCheckBox>().setChecked(false);
    EXPECT_EQ(words(), "Not found");
    press(Qt::Key_Backspace);
    EXPECT_EQ(words(), "2 of 3");
}

TEST_F(FindTest, NextWithoutATextAsksForOne) {
    press(Qt::Key_F3);
    EXPECT_TRUE(findBar().isVisible());
    EXPECT_TRUE(part<QLineEdit>().hasFocus());
}

TEST_F(FindTest, NextGoesOnAfterTheBarWasClosed) {
    find("strike");
    click("Close");
    EXPECT_EQ(view().marked().count(), 0);
    press(Qt::Key_F3);
    EXPECT_TRUE(findBar().isVisible());
    EXPECT_TRUE(view().hasFocus());
    EXPECT_EQ(words(), "2 of 3");
    EXPECT_EQ(view().marked().count(), 3);
}

TEST_F(FindTest, BeginsWithWhatIsSelected) {
    view().select(7, 5);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(part<QLineEdit>().text(), "Spare");
    EXPECT_EQ(part<QLineEdit>().selectedText(), "Spare");
    EXPECT_EQ(words(), "1 of 2");
}

TEST_F(FindTest, DoesNotSeekMoreThanALine) {
    view().selectAll();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(part<QLineEdit>().text(), "");
    EXPECT_EQ(selected().size(), view().text().size());  // and leaves it selected
}

TEST_F(FindTest, OpeningAgainKeepsTheText) {
    find("spare");
    press(Qt::Key_Escape);
    view().select(0, 0);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(words(), "1 of 2");
    type("strike");  // in its place
    EXPECT_EQ(part<QLineEdit>().text(), "strike");
}

TEST_F(FindTest, EmptyTextMarksNothing) {
    find("s");
    press(Qt::Key_Backspace);
    EXPECT_EQ(words(), "");
    EXPECT_EQ(view().marked().count(), 0);
}

TEST_F(FindTest, CountsAnewInAnotherReport) {
    find("strike");
    ASSERT_TRUE(window->open(files.write("other.txt", "a strike")));
    EXPECT_EQ(words(), "1 of 1");
    EXPECT_EQ(selected(), "strike");
    press(Qt::Key_Escape);
    ASSERT_TRUE(window->open(files.write("third.txt", "strike, strike")));
    EXPECT_EQ(view().marked().count(), 0);
}

TEST_F(FindTest, FindsBehindTabsAndForeignLetters) {
    start("foreign.txt", "\t\xF0\x9F\x8E\xB3\tM\xC3\xBCller\r\n\tm\xC3\xBCller\r\n");
    find("");
    part<QLineEdit>().setText(QString::fromUtf8("Müller"));
    EXPECT_EQ(words(), "1 of 2");
    EXPECT_EQ(selected(), QString::fromUtf8("Müller"));
    press(Qt::Key_Return);
    EXPECT_EQ(selected(), QString::fromUtf8("müller"));
}

TEST_F(FindTest, ControlsHaveNames) {
    EXPECT_EQ(part<QLineEdit>().accessibleName(), "Find in the report");
    find("strike");
    EXPECT_EQ(part<QLineEdit>().accessibleDescription(), "1 of 3");
    for (const QPushButton* const button : findBar().findChildren<QPushButton*>())
        EXPECT_FALSE(button->text().isEmpty());
}

}  // namespace tallybrook::test
