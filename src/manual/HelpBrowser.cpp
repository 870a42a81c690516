#include "manual/HelpBrowser.h"

#include "style/Colours.h"

#include <QEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrlQuery>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr const char* kFound = "qrc:/help/found.html";
constexpr const char* kFolder = "folder";  // what a link to the data folder begins with
constexpr int kMargin = 18;

QUrl foundUrl(const QString& sought) {
    QUrl url(kFound);
    QUrlQuery query;
    query.addQueryItem("sought", QString::fromLatin1(QUrl::toPercentEncoding(sought)));
    url.setQuery(query);
    return url;
}

bool isFound(const QUrl& url) {
    return url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment) == QUrl(kFound);
}

QString soughtIn(const QUrl& url) {
    return QUrlQuery(url).queryItemValue("sought", QUrl::FullyDecoded);
}

}  // namespace

HelpBrowser::HelpBrowser() {
    setAccessibleName("Help page");
    document()->setDocumentMargin(kMargin);
    styleAnew();
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) { arrived(page); });
}

void HelpBrowser::showFound(const QString& sought) {
    search_ = HelpSearch(sought);
    setSource(foundUrl(sought));
    setFocus();
    moveCursor(QTextCursor::Start);
    focusNextPrevChild(true);  // to the first link, so that Return follows it
}

void HelpBrowser::findNext(bool backwards) {
    if (search_.isEmpty())
        return;
    const QTextDocument::FindFlags way = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(search_.places(), way))
        return;
    moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    find(search_.places(), way);
}

void HelpBrowser::clearSearch() {
    search_ = HelpSearch();
    markPlaces();
}

// --- Pages -------------------------------------------------------------------------------------------------

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (!isOwn(name))
        return {};
    if (isFound(name))
        return HelpSearch(soughtIn(name)).resultPage();
    const QVariant resource = QTextBrowser::loadResource(type, name);
    return type == QTextDocument::ImageResource ? fitting(QImage::fromData(resource.toByteArray()))
                                                : resource;
}

/// How wide a picture can be, beside the scroll bar that there may be.
int HelpBrowser::roomForPictures() const {
    return width() - 2 * (frameWidth() + kMargin) - verticalScrollBar()->sizeHint().width();
}

/// A picture no wider than the page, with all of its points that the display can show.
QVariant HelpBrowser::fitting(const QImage& picture) const {
    const int room = roomForPictures();
    if (picture.width() <= room || room <= 0)
        return picture;
    const int points = std::min(picture.width(), static_cast<int>(room * devicePixelRatioF()));
    QImage fitting = picture.scaledToWidth(points, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(static_cast<double>(points) / room);
    return fitting;
}

/// Fits the pictures of the page anew, where it lies.
void HelpBrowser::fitPictures() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat image = part.fragment().charFormat().toImageFormat();
            if (!image.isValid())
                continue;
            const QUrl name = source().resolved(QUrl(image.name()));
            document()->addResource(QTextDocument::ImageResource, name,
                                    loadResource(QTextDocument::ImageResource, name));
        }
    }
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    if (event->size().width() != event->oldSize().width())
        fitPictures();
    QTextBrowser::resizeEvent(event);
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (name.scheme() == kFolder)
        return whenFolderAsked();
    if (!isOwn(name))
        return;
    QTextBrowser::doSetSource(name, type);
}

/// On a page that a search has led to, what is sought is in sight: the words as they were typed, or else the
/// first.
void HelpBrowser::arrived(const QUrl& page) {
    const bool comesFromFound = isShowingFound_;
    isShowingFound_ = isFound(page);
    markPlaces();
    if (comesFromFound && !isShowingFound_ && !find(search_.phrase()))
        findNext(false);
}

void HelpBrowser::markPlaces() {
    QList<QTextEdit::ExtraSelection> marks;
    if (!search_.isEmpty() && !isShowingFound_) {
        QTextCharFormat look;
        look.setBackground(
            between(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.3));
        for (QTextCursor place = document()->find(search_.places()); !place.isNull();
             place = document()->find(search_.places(), place))
            marks.append({place, look});
    }
    setExtraSelections(marks);
}

// --- Looks -------------------------------------------------------------------------------------------------

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        styleAnew();
        reload();
    }
}

void HelpBrowser::styleAnew() {
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    document()->setDefaultStyleSheet(
        QString(
            "h1 { font-size: x-large; } "
            "h2 { font-size: large; margin-top: 18px; } "
            "p, li, td, th { line-height: 120%; } "
            "p.picture { line-height: 100%; } "
            "li { margin-bottom: 3px; } "
            "kbd { background-color: %1; } "
            "th { background-color: %1; text-align: left; } "
            "table { margin-top: 6px; border-collapse: collapse; border-style: solid; border-color: %2; }")
            .arg(between(ground, ink, 0.08).name(), between(ground, ink, 0.35).name()));
}

}  // namespace tallybrook
