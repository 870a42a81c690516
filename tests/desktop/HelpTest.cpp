#include "desktop/DesktopDisplay.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace tallybrook::test {

class HelpTest : public testing::Test {
protected:
    QTextBrowser& pages() { return *help.findChild<QTextBrowser*>(); }
    [[nodiscard]] std::string page() { return pages().source().fileName().toStdString(); }
    QAction* action(const QString& caption) {
        for (QAction* const one : help.findChildren<QAction*>()) {
            if (one->text() == caption)
                return one;
        }
        return nullptr;
    }

    DesktopDisplay display;  // brings the pages along
    HelpWindow help;
};

TEST_F(HelpTest, EveryTopicHasItsPage) {
    const std::vector<std::pair<HelpTopic, std::string>> topics{{HelpTopic::Contents, "index.html"},
                                                                {HelpTopic::PinfallEntry, "232.html"},
                                                                {HelpTopic::LineScoreEntry, "233.html"}};
    for (const auto& [topic, name] : topics) {
        help.open(topic);
        EXPECT_TRUE(help.isVisible());
        EXPECT_EQ(page(), name);
        EXPECT_GT(pages().toPlainText().size(), 100) << name;
    }
}

TEST_F(HelpTest, EveryLinkLeadsToAPage) {
    help.open(HelpTopic::Contents);
    const QString contents = pages().toHtml();
    int links = 0;
    for (qsizetype at = contents.indexOf("href=\""); at >= 0; at = contents.indexOf("href=\"", at + 1)) {
        const QString target = contents.mid(at + 6).section('"', 0, 0);
        pages().setSource(QUrl("qrc:/help/" + target));
        EXPECT_GT(pages().toPlainText().size(), 100) << target.toStdString();
        ++links;
    }
    EXPECT_GE(links, 4);
}

TEST_F(HelpTest, GoesBackAndForwardAndToTheContents) {
    help.open(HelpTopic::PinfallEntry);
    EXPECT_FALSE(action("Back")->isEnabled());
    action("Contents")->trigger();
    EXPECT_EQ(page(), "index.html");
    action("Back")->trigger();
    EXPECT_EQ(page(), "232.html");
    action("Forward")->trigger();
    EXPECT_EQ(page(), "index.html");
}

TEST_F(HelpTest, FindsRoundAndRound) {
    help.open(HelpTopic::Contents);
    auto& sought = *help.findChild<QLineEdit*>();
    sought.setText("pin");
    QTest::keyClick(&sought, Qt::Key_Return);
    const int first = pages().textCursor().position();
    EXPECT_EQ(pages().textCursor().selectedText().toLower(), "pin");
    int position = 0;
    for (int i = 0; i < 100 && position != first; ++i) {
        QTest::keyClick(&sought, Qt::Key_Return);
        position = pages().textCursor().position();
    }
    EXPECT_EQ(position, first);
}

TEST_F(HelpTest, EscapeClosesIt) {
    help.open(HelpTopic::Contents);
    QTest::keyClick(&pages(), Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpTest, LoadsNothingFromElsewhere) {
    help.open(HelpTopic::Contents);
    for (const char* const elsewhere : {"https://tallybrook.example/", "file:///etc/passwd"}) {
        pages().setSource(QUrl(elsewhere));
        EXPECT_EQ(page(), "index.html");
        EXPECT_FALSE(pages().loadResource(QTextDocument::HtmlResource, QUrl(elsewhere)).isValid());
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

}  // namespace tallybrook::test
