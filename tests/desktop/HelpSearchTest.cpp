#include "manual/HelpSearch.h"
#include "manual/HelpWindow.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>
#include <map>
#include <vector>

#include <gtest/gtest.h>

// What a search over the help tells of the pages that it has found.
namespace tallybrook::test {

namespace {

struct Hit {
    QString page;
    QString title;
    QString excerpt;
};

std::vector<Hit> hitsOf(const QString& sought) {
    static const QRegularExpression kHit("<p><a href=\"([^\"]*)\">(.*?)</a><br>(.*?)</p>");
    std::vector<Hit> hits;
    for (auto places = kHit.globalMatch(HelpSearch(sought).resultPage()); places.hasNext();) {
        const QRegularExpressionMatch hit = places.next();
        hits.push_back({hit.captured(1), hit.captured(2), hit.captured(3)});
    }
    return hits;
}

/// A page as it is read.
struct Page {
    QString title;
    QString text;
};

Page read(const QString& name) {
    QFile file(":/help/" + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    QTextDocument page;
    page.setHtml(QString::fromUtf8(file.readAll()));
    return {page.metaInformation(QTextDocument::DocumentTitle), page.toPlainText().simplified()};
}

/// The words that lie within so many letters of a place, which they are to hold.
QString wordsAround(const QString& text, qsizetype place, qsizetype length) {
    constexpr qsizetype kAround = 80;
    QStringList words;
    qsizetype begin = 0;
    for (const QString& word : text.split(' ')) {
        const qsizetype end = begin + word.size();
        const bool isBehind = begin > place - kAround || place <= kAround;
        const bool isBefore = end <= place + kAround || text.size() <= place + kAround;
        if ((isBehind && isBefore) || (begin < place + length && end > place))
            words += word;
        begin = end + 1;
    }
    const QString around = words.join(' ');
    return (text.startsWith(around) ? "" : QString::fromUtf8("\u2026 ")) + around +
           (text.endsWith(around) ? "" : QString::fromUtf8(" \u2026"));
}

QString asText(QString html) {
    html.remove(QRegularExpression("</?b>"));
    return html.replace("&lt;", "<").replace("&gt;", ">").replace("&quot;", "\"").replace("&amp;", "&");
}

class HelpSearchTest : public testing::Test {
protected:
    HelpWindow help{"nowhere"};  // brings the pages along
};

}  // namespace

TEST_F(HelpSearchTest, TellsTheWordsAroundTheFirstPlace) {
    for (const char* const sought : {"tallybrook", "gutter", "backup", "a", "spare matrix", "&", "logbook"}) {
        for (const auto& [name, title, excerpt] : hitsOf(sought)) {
            const Page page = read(name);
            const qsizetype place = page.text.indexOf(sought, 0, Qt::CaseInsensitive);
            EXPECT_EQ(title, page.title);
            EXPECT_EQ(asText(excerpt).toStdString(),
                      wordsAround(page.text, place, QString(sought).size()).toStdString())
                << sought << " in " << name.toStdString();
        }
    }
}

TEST_F(HelpSearchTest, MarksEveryPlaceInItsWords) {
    for (const auto& [name, title, excerpt] : hitsOf("game frame")) {
        const qsizetype places = asText(excerpt).count("game", Qt::CaseInsensitive) +
                                 asText(excerpt).count("frame", Qt::CaseInsensitive);
        static const QRegularExpression kMarked("<b>(game|frame)</b>",
                                                QRegularExpression::CaseInsensitiveOption);
        EXPECT_GT(places, 0) << name.toStdString();
        EXPECT_EQ(excerpt.count(kMarked), places) << name.toStdString();
        EXPECT_EQ(excerpt.count("<b>"), places) << name.toStdString();
    }
}

TEST_F(HelpSearchTest, MarksSignsAsTheyStand) {
    const std::vector<Hit> hits = hitsOf(".");
    EXPECT_FALSE(hits.empty());
    for (const auto& [name, title, excerpt] : hits)
        EXPECT_EQ(excerpt.count("<b>"), asText(excerpt).count('.')) << name.toStdString();
}

/// Pages whose titles have the words come first, and otherwise all stand in the order of the contents.
TEST_F(HelpSearchTest, FindsAllPagesThatHaveTheWords) {
    for (const char* const sought : {"backup", "game", "contents", "tallybrook"}) {
        QStringList inTitle;
        QStringList inText;
        QFile contents(":/help/index.html");
        ASSERT_TRUE(contents.open(QIODevice::ReadOnly));
        QStringList names{"index.html"};
        static const QRegularExpression kLink("<a href=\"([a-z0-9-]+\\.html)");
        for (auto links = kLink.globalMatch(QString::fromUtf8(contents.readAll())); links.hasNext();)
            names += links.next().captured(1);
        names.removeDuplicates();
        for (const QString& name : names) {
            const Page page = read(name);
            if (page.text.contains(sought, Qt::CaseInsensitive))
                (page.title.contains(sought, Qt::CaseInsensitive) ? inTitle : inText) += name;
        }
        QStringList found;
        for (const Hit& hit : hitsOf(sought))
            found += hit.page;
        EXPECT_EQ(found.join(' ').toStdString(), (inTitle + inText).join(' ').toStdString()) << sought;
    }
}

TEST_F(HelpSearchTest, TellsWhatWasSought) {
    EXPECT_EQ(
        HelpSearch(" <no>  such ").resultPage().toStdString(),
        "<html><head><title>Nothing found</title></head><body><h1>Nothing found</h1><p>No page has "
        "<b>&lt;no&gt; "
        "such</b>. Try fewer or shorter words, or look through the <a href=\"index.html\">contents</a>.</p>"
        "</body></html>");
    EXPECT_TRUE(HelpSearch("PINS  entering")
                    .resultPage()
                    .startsWith(QString::fromUtf8(
                        "<html><head><title>Pages with \u201cPINS entering\u201d</title></head>"
                        "<body><h1>Pages with \u201cPINS entering\u201d</h1><p>")));
    EXPECT_TRUE(HelpSearch("  ").isEmpty());
}

}  // namespace tallybrook::test
