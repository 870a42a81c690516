#include "desktop/DesktopDisplay.h"
#include "manual/HelpBrowser.h"
#include "style/Colours.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QImage>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>

#include <gtest/gtest.h>

namespace tallybrook::test {

class HelpTest : public testing::Test {
protected:
    HelpBrowser& pages() { return *help.findChild<HelpBrowser*>(); }
    QLineEdit& sought() { return *help.findChild<QLineEdit*>(); }
    /// The pages of the help that the display shows.
    static HelpBrowser* shown() {
        for (QWidget* const top : QApplication::topLevelWidgets()) {
            if (top->objectName() == "help" && top->isVisible())
                return top->findChild<HelpBrowser*>();
        }
        return nullptr;
    }
    [[nodiscard]] std::string page() { return pages().source().fileName().toStdString(); }
    [[nodiscard]] std::string heading() { return pages().documentTitle().toStdString(); }
    QAction* action(const QString& caption) {
        for (QAction* const one : help.findChildren<QAction*>()) {
            if (one->text() == caption)
                return one;
        }
        return nullptr;
    }
    void open(const QString& name) {
        help.open(name);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&help)) << "keys need it";
    }
    void search(const QString& words) {
        sought().setText(words);
        QTest::keyClick(&sought(), Qt::Key_Return);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&pages(), key, modifiers);
    }
    /// The titles of the pages that a search has found, in the order in which they are listed.
    std::vector<std::string> found() {
        std::vector<std::string> titles;
        for (QTextBlock block = pages().document()->begin(); block.isValid(); block = block.next()) {
            if (block.begin() != block.end() && block.begin().fragment().charFormat().isAnchor())
                titles.push_back(block.text().section(QChar::LineSeparator, 0, 0).toStdString());
        }
        return titles;
    }

    DesktopDisplay display;  // brings the pages along
    HelpWindow help;
};

TEST_F(HelpTest, EveryTopicHasItsPage) {
    const std::vector<std::pair<HelpTopic, std::string>> topics{{HelpTopic::Contents, "index.html"},
                                                                {HelpTopic::PinfallEntry, "232.html"},
                                                                {HelpTopic::LineScoreEntry, "233.html"}};
    for (const auto& [topic, name] : topics) {
        display.help(topic);
        ASSERT_NE(shown(), nullptr) << name;
        EXPECT_EQ(shown()->source().fileName().toStdString(), name);
        EXPECT_GT(shown()->toPlainText().size(), 100) << name;
    }
}

/// What the bar offers, with the keys and what is told of them.
TEST_F(HelpTest, BarSaysWhatItDoes) {
    QStringList told;
    for (QAction* const one : help.findChild<QToolBar*>()->actions()) {
        if (!one->text().isEmpty())
            told += one->text() + ", " + one->shortcut().toString(QKeySequence::PortableText) + ": " +
                    one->toolTip();
    }
    EXPECT_EQ(told.join('\n').toStdString(),
              "Contents, Alt+Home: Contents (Alt+Home)\nBack, Alt+Left: Back (Alt+Left)\n"
              "Forward, Alt+Right: Forward (Alt+Right)");
    for (QAction* const one : {action("Contents"), action("Back"), action("Forward")})
        EXPECT_EQ(help.findChild<QToolBar*>()->widgetForAction(one)->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(sought().placeholderText(), "Find in the help");
    EXPECT_EQ(sought().accessibleName(), "Find in the help");
    EXPECT_EQ(sought().toolTip(),
              "Words to find on any page, then Return (Ctrl+F). F3 leads from place to place.");
    EXPECT_TRUE(sought().isClearButtonEnabled());
    EXPECT_EQ(sought().maximumWidth(), 32 * help.fontMetrics().averageCharWidth());
    EXPECT_EQ(pages().accessibleName(), "Help page");
    EXPECT_EQ(help.windowTitle(), "Tallybrook Help");
    EXPECT_EQ(help.findChild<QToolBar*>()->windowTitle(), "Help");
    EXPECT_FALSE(help.findChild<QToolBar*>()->isMovable());
    EXPECT_EQ(help.findChild<QToolBar*>()->contextMenuPolicy(), Qt::PreventContextMenu);
    const int line = help.fontMetrics().height();
    EXPECT_EQ(help.size(), QSize(52 * line, 46 * line).boundedTo(help.screen()->availableSize()));
}

/// Keys and heads of tables stand on a ground that is a little darker than the page, or brighter.
TEST_F(HelpTest, PagesFollowTheColours) {
    open("233");
    const auto groundOfKeys = [this] {
        return pages().document()->find("score Tab").charFormat().background().color().name().toStdString();
    };
    QPalette colours = pages().palette();
    colours.setColor(QPalette::Base, Qt::black);
    colours.setColor(QPalette::Text, Qt::white);
    EXPECT_NE(groundOfKeys(), "#141414");
    pages().setPalette(colours);
    EXPECT_EQ(
        pages().document()->defaultStyleSheet().toStdString(),
        "h1 { font-size: x-large; } h2 { font-size: large; margin-top: 18px; } "
        "p, li, td, th { line-height: 120%; } p.picture { line-height: 100%; } li { margin-bottom: 3px; } "
        "kbd { background-color: #141414; } th { background-color: #141414; text-align: left; } "
        "table { margin-top: 6px; border-collapse: collapse; border-style: solid; border-color: #595959; }");
    EXPECT_EQ(groundOfKeys(), "#141414");
    EXPECT_EQ(pages().document()->documentMargin(), 18);
}

TEST_F(HelpTest, BackAndForwardAreOnWhereTheyLead) {
    help.open("index");
    help.open("232");
    const auto areOn = [this] {
        return std::pair(action("Back")->isEnabled(), action("Forward")->isEnabled());
    };
    EXPECT_EQ(areOn(), std::pair(true, false));
    action("Back")->trigger();
    EXPECT_EQ(areOn(), std::pair(false, true));
}

TEST_F(HelpTest, LinkToTheDataFolderOpensIt) {
    HelpBrowser browser;
    int asked = 0;
    browser.whenFolderAsked = [&asked] { ++asked; };
    browser.setSource(QUrl("qrc:/help/moving.html"));
    browser.setSource(QUrl("folder:"));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(browser.source(), QUrl("qrc:/help/moving.html"));
    EXPECT_TRUE(browser.toHtml().contains("href=\"folder:\""));
}

TEST_F(HelpTest, DataFolderIsOpenedAsTheDesktopDoes) {
    HelpWindow window("/home/kim/my books");
    QTextBrowser desktop;  // which takes the folder as the desktop's own program would
    QDesktopServices::setUrlHandler("file", &desktop, "setSource");
    window.findChild<HelpBrowser*>()->setSource(QUrl("folder:"));
    QDesktopServices::unsetUrlHandler("file");
    EXPECT_EQ(desktop.source(), QUrl("file:///home/kim/my%20books"));
}

TEST_F(HelpTest, GoesBackAndForwardAndToTheContents) {
    help.open("232");
    EXPECT_FALSE(action("Back")->isEnabled());
    action("Contents")->trigger();
    EXPECT_EQ(page(), "index.html");
    action("Back")->trigger();
    EXPECT_EQ(page(), "232.html");
    action("Forward")->trigger();
    EXPECT_EQ(page(), "index.html");
}

TEST_F(HelpTest, EscapeClosesIt) {
    help.open("index");
    press(Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpTest, LoadsNothingFromElsewhere) {
    help.open("index");
    for (const char* const elsewhere : {"https://tallybrook.example/", "file:///etc/passwd"}) {
        pages().setSource(QUrl(elsewhere));
        EXPECT_EQ(page(), "index.html");
        EXPECT_FALSE(pages().loadResource(QTextDocument::HtmlResource, QUrl(elsewhere)).isValid());
        EXPECT_FALSE(pages().loadResource(QTextDocument::ImageResource, QUrl(elsewhere)).isValid());
    }
}

TEST_F(HelpTest, DisplayOpensOneWindow) {
    const auto windows = [] {
        qsizetype count = 0;
        for (const QWidget* const top : QApplication::topLevelWidgets())
            count += top->objectName() == "help" && top->isVisible() ? 1 : 0;
        return count;
    };
    display.help(HelpTopic::PinfallEntry);
    display.help(HelpTopic::Contents);
    EXPECT_EQ(windows(), 1);
}

// --- The search --------------------------------------------------------------------------------------------

TEST_F(HelpTest, PageAfterAnotherLeadsBackToIt) {
    display.help(HelpTopic::PinfallEntry);
    display.help(HelpTopic::LineScoreEntry);
    ASSERT_NE(shown(), nullptr);
    EXPECT_TRUE(shown()->isBackwardAvailable());
}

TEST_F(HelpTest, FindsOverAllPages) {
    help.open("index");
    search("gutter");
    EXPECT_EQ(heading(), "Pages with \u201cgutter\u201d");
    EXPECT_EQ(found(),
              (std::vector<std::string>{"Entering pins", "Entering a line score", "How a game is scored"}));
    EXPECT_TRUE(pages().toPlainText().contains("For a ball in the gutter tick all ten"));
}

TEST_F(HelpTest, FindsPagesWithAllWordsInAnyCaseTitlesFirst) {
    help.open("index");
    search("  NAMED   folder backup ");
    EXPECT_EQ(found(), (std::vector<std::string>{}));
    search("PINS entering");
    ASSERT_FALSE(found().empty());
    EXPECT_EQ(found().front(), "Entering pins");
    search("machine");
    EXPECT_EQ(found().front(), "Moving to another machine");
}

TEST_F(HelpTest, SaysSoWhereNothingIsFound) {
    help.open("index");
    search("<b>xyzzy</b>");
    EXPECT_EQ(heading(), "Nothing found");
    EXPECT_TRUE(pages().toPlainText().contains("No page has <b>xyzzy</b>."));
    press(Qt::Key_Return);  // its only link
    EXPECT_EQ(page(), "index.html");
}

TEST_F(HelpTest, TakesSignsAsTheyAre) {
    help.open("index");
    for (const char* const signs : {".*", "(", "7/X", "50%", "%41", "a&b=c#d", "+"}) {
        search(signs);
        EXPECT_EQ(heading(), QString(signs) == "7/X" || QString(signs) == "50%" || QString(signs) == "+" ||
                                     QString(signs) == "("
                                 ? "Pages with \u201c" + std::string(signs) + "\u201d"
                                 : "Nothing found")
            << signs;
    }
}

TEST_F(HelpTest, NothingSoughtIsNoSearch) {
    help.open("index");
    search("   ");
    EXPECT_EQ(page(), "index.html");
}

TEST_F(HelpTest, KeysLeadToAHitAndBack) {
    open("index");
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(help.focusWidget(), &sought());
    search("gutter");
    EXPECT_EQ(help.focusWidget(), &pages());
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(page(), "233.html");
    EXPECT_EQ(pages().textCursor().selectedText().toLower(), "gutter");
    const auto marks = pages().extraSelections();
    ASSERT_FALSE(marks.isEmpty());
    EXPECT_EQ(marks.size(), pages().toPlainText().count("gutter", Qt::CaseInsensitive));
    EXPECT_EQ(
        marks.front().format.background().color(),
        between(pages().palette().color(QPalette::Base), pages().palette().color(QPalette::Highlight), 0.3));
    action("Back")->trigger();
    EXPECT_EQ(found().size(), 3);
    EXPECT_TRUE(pages().extraSelections().isEmpty());
}

TEST_F(HelpTest, ShowsWordsThatStandTogether) {
    open("index");
    search("SPARE matrix");
    EXPECT_EQ(found(), (std::vector<std::string>{"What the figures mean"}));
    EXPECT_TRUE(pages().toPlainText().contains("Spare matrix"));
    press(Qt::Key_Return);
    EXPECT_EQ(pages().textCursor().selectedText().toLower(), "spare matrix");
}

TEST_F(HelpTest, FindsRoundAndRoundOnAPage) {
    open("232");
    search("pin");
    action("Back")->trigger();
    pages().moveCursor(QTextCursor::Start);
    press(Qt::Key_F3);
    const int first = pages().textCursor().position();
    EXPECT_EQ(pages().textCursor().selectedText().toLower(), "pin");
    press(Qt::Key_F3);
    EXPECT_GT(pages().textCursor().position(), first);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(pages().textCursor().position(), first);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_GT(pages().textCursor().position(), first) << "round to the last one";
    press(Qt::Key_F3);
    EXPECT_EQ(pages().textCursor().position(), first);
}

TEST_F(HelpTest, AnEmptyBoxMarksNothing) {
    open("232");
    search("pin");
    action("Back")->trigger();
    EXPECT_FALSE(pages().extraSelections().isEmpty());
    sought().clear();
    EXPECT_TRUE(pages().extraSelections().isEmpty());
    search("pin");
    sought().setText("pi");
    action("Back")->trigger();
    EXPECT_FALSE(pages().extraSelections().isEmpty()) << "other letters seek nothing yet";
    sought().clear();
    const int before = pages().textCursor().position();
    press(Qt::Key_F3);
    EXPECT_EQ(pages().textCursor().position(), before);
}

TEST_F(HelpTest, PicturesFitThePage) {
    open("index");
    help.resize(500, 500);
    QApplication::processEvents();
    const auto picture =
        pages().loadResource(QTextDocument::ImageResource, QUrl("qrc:/help/pictures/report.png"));
    EXPECT_GT(picture.value<QImage>().width(), 300);
    EXPECT_LT(picture.value<QImage>().width(), pages().viewport()->width());
}

TEST_F(HelpTest, PicturesFollowTheWindow) {
    open("232");
    for (const int width : {900, 420, 650}) {
        help.resize(width, 500);
        QApplication::processEvents();
        const auto shown = pages()
                               .document()
                               ->resource(QTextDocument::ImageResource, QUrl("qrc:/help/pictures/pins.png"))
                               .value<QImage>();
        EXPECT_EQ(shown.width(), pages().viewport()->width() - 2 * 18) << width;
        EXPECT_EQ(pages().horizontalScrollBar()->maximum(), 0) << width;
    }
}

TEST_F(HelpTest, SmallPicturesStayAsTheyAre) {
    open("232");
    const auto shown =
        pages()
            .loadResource(QTextDocument::ImageResource, QUrl("qrc:/help/pictures/main-menu.png"))
            .value<QImage>();
    EXPECT_EQ(shown.size(), QImage(":/help/pictures/main-menu.png").size());
}

}  // namespace tallybrook::test
