#pragma once

#include "manual/HelpSearch.h"

#include <QTextBrowser>
#include <functional>

namespace tallybrook {

/// Shows the program's own pages, and what a search over them has found; follows links among them, and one
/// that leads to the data folder, and nowhere else.
class HelpBrowser : public QTextBrowser {
public:
    HelpBrowser();

    /// Shows the pages that have what is sought; on each of them it is marked from now on.
    void showFound(const QString& sought);
    /// Looks for the next or previous place of what is sought on this page, round and round.
    void findNext(bool backwards);
    /// Seeks nothing any more.
    void clearSearch();

    /// Called when a link to the data folder was followed.
    std::function<void()> whenFolderAsked = [] {};

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool isOwn(const QUrl& name) const { return source().resolved(name).scheme() == "qrc"; }
    [[nodiscard]] int roomForPictures() const;
    [[nodiscard]] QVariant fitting(const QImage& picture) const;
    void fitPictures();
    void styleAnew();
    void arrived(const QUrl& page);
    void markPlaces();

    HelpSearch search_;
    bool isShowingFound_ = false;  // the page that a search has made
};

}  // namespace tallybrook
