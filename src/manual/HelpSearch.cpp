#include "manual/HelpSearch.h"

#include <QFile>
#include <QTextDocument>
#include <algorithm>
#include <utility>
#include <vector>

namespace tallybrook {

namespace {

constexpr const char* kContents = "index.html";

struct Page {
    QString name;
    QString title;
    QString text;
};

QString htmlOf(const QString& name) {
    QFile file(":/help/" + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The contents, and the pages that they name, in their order.
QStringList pageNames() {
    QStringList names{kContents};
    static const QRegularExpression kLink("href=\"([^\"#]+)");
    for (auto links = kLink.globalMatch(htmlOf(kContents)); links.hasNext();)
        names += links.next().captured(1);
    names.removeDuplicates();
    return names;
}

std::vector<Page> readPages() {
    std::vector<Page> pages;
    for (const QString& name : pageNames()) {
        QTextDocument page;
        page.setHtml(htmlOf(name));
        pages.push_back({name, page.metaInformation(QTextDocument::DocumentTitle), page.toPlainText()});
    }
    return pages;
}

const std::vector<Page>& pages() {
    static const std::vector<Page> kPages = readPages();
    return kPages;
}

QString asPage(const QString& title, const QString& body) {
    return QString("<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>").arg(title, body);
}

}  // namespace

HelpSearch::HelpSearch(const QString& sought) : words_(sought.simplified().split(' ', Qt::SkipEmptyParts)) {
    QStringList escaped;
    std::ranges::transform(words_, std::back_inserter(escaped),
                           [](const QString& word) { return QRegularExpression::escape(word); });
    places_ = QRegularExpression(escaped.join('|'), QRegularExpression::CaseInsensitiveOption);
}

bool HelpSearch::isIn(const QString& text) const {
    return !isEmpty() && std::ranges::all_of(words_, [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

QString HelpSearch::resultPage() const {
    QStringList inTitle;
    QStringList inText;
    for (const Page& page : pages()) {
        if (isIn(page.text))
            (isIn(page.title) ? inTitle : inText) += QString("<p><a href=\"%1\">%2</a><br>%3</p>")
                                                         .arg(page.name, page.title, excerptOf(page.text));
    }
    const QString sought = phrase().toHtmlEscaped();
    const QStringList hits = inTitle + inText;
    if (hits.isEmpty())
        return asPage("Nothing found",
                      QString("<p>No page has <b>%1</b>. Try fewer or shorter words, or look "
                              "through the <a href=\"%2\">contents</a>.</p>")
                          .arg(sought, kContents));
    return asPage(QString("Pages with \u201c%1\u201d").arg(sought), hits.join('\n'));
}

/// The words as they were typed, or else the first of them, with whole words around.
QString HelpSearch::excerptOf(const QString& text) const {
    constexpr qsizetype kAround = 80;
    const QString line = text.simplified();
    const qsizetype asTyped = line.indexOf(phrase(), 0, Qt::CaseInsensitive);
    const qsizetype place = asTyped >= 0 ? asTyped : line.indexOf(places_);
    qsizetype begin = std::max(place - kAround, qsizetype{0});
    qsizetype end = std::min(place + kAround, line.size());
    if (begin > 0)
        begin = std::min(line.indexOf(' ', begin) + 1, place);
    if (end < line.size())
        end = std::max(line.lastIndexOf(' ', end), place + phrase().size());
    return (begin > 0 ? "\u2026 " : "") + marked(line.mid(begin, end - begin)) +
           (end < line.size() ? " \u2026" : "");
}

QString HelpSearch::marked(const QString& text) const {
    QString html;
    qsizetype done = 0;
    for (auto places = places_.globalMatch(text); places.hasNext();) {
        const QRegularExpressionMatch place = places.next();
        html += text.mid(done, place.capturedStart() - done).toHtmlEscaped() + "<b>" +
                place.captured().toHtmlEscaped() + "</b>";
        done = place.capturedEnd();
    }
    return html + text.mid(done).toHtmlEscaped();
}

}  // namespace tallybrook
