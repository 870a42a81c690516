// What the help's pages say, held against the program: links and pictures lead somewhere, and captions, keys
// and names of files are those of the sources.

#include "SourceFolder.h"
#include "manual/HelpWindow.h"

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QKeySequence>
#include <QRegularExpression>
#include <QSet>
#include <map>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

const QString kSources = TALLYBROOK_SOURCE_DIR;

QString contentOf(const QString& file) {
    QFile opened(file);
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(opened.readAll());
}

QStringList capturesOf(const QString& pattern, const QString& text) {
    QStringList captures;
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        captures += matches.next().captured(1);
    return captures;
}

/// What stands between the tags of an element, without line breaks.
QStringList elementsOf(const QString& name, const QString& html) {
    QStringList texts;
    for (const QString& text : capturesOf(QString("<%1>(.*?)</%1>").arg(name), html))
        texts += text.simplified();
    return texts;
}

/// All literal texts of the sources, as they read on the screen: without the marks of letters.
QSet<QString> literals() {
    QSet<QString> texts;
    for (QDirIterator files(kSources + "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        for (QString text : capturesOf(R"_("((?:[^"\\\n]|\\.)*)")_", contentOf(files.next())))
            texts += text.remove('&');
    }
    return texts;
}

}  // namespace

class HelpPagesTest : public testing::Test {
protected:
    HelpPagesTest() {
        for (const QString& name : QDir(":/help").entryList({"*.html"}))
            pages[name] = contentOf(":/help/" + name);
    }

    /// Fails where one of the elements of a name, on any page, is not as it should be.
    template <typename IsGood>
    void expectAll(const QString& element, qsizetype atLeast, IsGood isGood) {
        qsizetype count = 0;
        for (const auto& [name, html] : pages) {
            for (const QString& text : elementsOf(element, html)) {
                EXPECT_TRUE(isGood(text)) << name.toStdString() << ": " << text.toStdString();
                ++count;
            }
        }
        EXPECT_GE(count, atLeast);
    }

    HelpWindow help;  // brings the pages along
    std::map<QString, QString> pages;
    const QSet<QString> known = literals();
};

TEST_F(HelpPagesTest, AreAllThere) {
    const QStringList files = QDir(kSources + "/help").entryList({"*.html"});
    EXPECT_EQ(QDir(":/help").entryList({"*.html"}), files);
    EXPECT_GE(files.size(), 14);
}

TEST_F(HelpPagesTest, HaveTheirTitleForAHeading) {
    for (const auto& [name, html] : pages)
        EXPECT_EQ(elementsOf("title", html), elementsOf("h1", html)) << name.toStdString();
}

TEST_F(HelpPagesTest, EveryLinkLeadsToAPageAndAPlaceOnIt) {
    for (const auto& [name, html] : pages) {
        for (const QString& link : capturesOf("href=\"([^\"]*)\"", html)) {
            if (link == "folder:")
                continue;  // which opens the data folder
            const QString target = link.section('#', 0, 0);
            const QString place = link.section('#', 1);
            ASSERT_TRUE(pages.contains(target)) << name.toStdString() << ": " << link.toStdString();
            EXPECT_TRUE(place.isEmpty() || pages[target].contains("id=\"" + place + "\""))
                << name.toStdString() << ": " << link.toStdString();
        }
    }
}

TEST_F(HelpPagesTest, EveryPageIsReachedFromTheContentsAndLeadsBack) {
    const QStringList named = capturesOf("href=\"([^\"]*)\"", pages["index.html"]);
    for (const auto& [name, html] : pages) {
        if (name == "index.html")
            continue;
        EXPECT_EQ(named.count(name), 1) << name.toStdString();
        EXPECT_TRUE(html.contains("<a href=\"index.html\">Contents</a>")) << name.toStdString();
    }
}

TEST_F(HelpPagesTest, EveryPictureIsThereAndUsed) {
    QStringList shown;
    for (const auto& [name, html] : pages) {
        for (const QString& picture : capturesOf("<img src=\"([^\"]*)\" alt=\"[^\"]+\">", html)) {
            EXPECT_FALSE(QImage(":/help/" + picture).isNull())
                << name.toStdString() << ": " << picture.toStdString();
            shown += picture.section('/', 1);
        }
        EXPECT_EQ(html.count("<img"), capturesOf("<img src=\"([^\"]*)\" alt=\"[^\"]+\">", html).size())
            << name.toStdString() << " has a picture without words for it";
    }
    shown.sort();
    EXPECT_EQ(shown, QDir(kSources + "/help/pictures").entryList(QDir::Files));
}

// <b> is for what stands on the screens, <kbd> for keys, <tt> for files and addresses; <i> is free.

TEST_F(HelpPagesTest, EveryCaptionIsOneOfTheProgram) {
    const QSet<QString> ofTheToolkit{"OK", "Cancel"};
    expectAll("b", 100, [&](const QString& caption) {
        return known.contains(caption) || ofTheToolkit.contains(caption);
    });
}

TEST_F(HelpPagesTest, EveryKeyIsOne) {
    expectAll("kbd", 20, [](const QString& key) {
        return QKeySequence(key, QKeySequence::PortableText).toString(QKeySequence::PortableText) == key;
    });
}

TEST_F(HelpPagesTest, EveryFileIsOneOfTheProgram) {
    expectAll("tt", 10, [&](const QString& file) {
        return known.contains(file) || known.contains(file.section('.', 0, -2));
    });
}

}  // namespace tallybrook::test
