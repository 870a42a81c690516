#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace tallybrook {

/// What somebody looks for in the help: words, which a page must have all of, in any order and any case.
class HelpSearch {
public:
    /// `sought` is the text as typed; without a word in it nothing is found.
    explicit HelpSearch(const QString& sought = {});

    [[nodiscard]] bool isEmpty() const { return words_.isEmpty(); }
    /// The words with one blank between them.
    [[nodiscard]] QString phrase() const { return words_.join(' '); }
    /// Matches any of the words.
    [[nodiscard]] const QRegularExpression& places() const { return places_; }
    /// A page in HTML that lists the pages found, each with its title, which leads there, and the words with
    /// what stands around them. Pages with the words in their title come first.
    [[nodiscard]] QString resultPage() const;

private:
    [[nodiscard]] bool isIn(const QString& text) const;
    [[nodiscard]] QString excerptOf(const QString& text) const;
    [[nodiscard]] QString marked(const QString& text) const;

    QStringList words_;
    QRegularExpression places_;
};

}  // namespace tallybrook
