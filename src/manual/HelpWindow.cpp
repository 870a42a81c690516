#include "manual/HelpWindow.h"

#include "manual/HelpBrowser.h"

#include <QAction>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QToolBar>

static void initPages() {
    Q_INIT_RESOURCE(manual);
}

namespace tallybrook {

namespace {

QUrl urlOf(const QString& page) {
    return "qrc:/help/" + page + ".html";
}

}  // namespace

HelpWindow::HelpWindow(const QString& dataFolder) : pages_(new HelpBrowser), sought_(new QLineEdit) {
    pages_->whenFolderAsked = [dataFolder] { QDesktopServices::openUrl(QUrl::fromLocalFile(dataFolder)); };
    initPages();
    setObjectName("help");
    setWindowTitle("Tallybrook Help");
    setCentralWidget(pages_);
    QToolBar* const bar = addToolBar("Help");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    addPageActions(*bar);
    addSearch(*bar);
    const int line = fontMetrics().height();
    resize(QSize(line * 52, line * 46).boundedTo(screen()->availableSize()));
}

void HelpWindow::addPageActions(QToolBar& bar) {
    const auto add = [&](const QString& caption, const QKeySequence& key, auto run) {
        QAction* const action = bar.addAction(caption, this, run);
        action->setShortcut(key);
        action->setToolTip(caption + " (" + key.toString(QKeySequence::NativeText) + ")");
        bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    add("Contents", Qt::ALT | Qt::Key_Home, [this] { pages_->setSource(urlOf("index")); });
    QAction* const back = add("Back", QKeySequence::Back, [this] { pages_->backward(); });
    QAction* const forward = add("Forward", QKeySequence::Forward, [this] { pages_->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(pages_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(pages_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::addSearch(QToolBar& bar) {
    auto* const room = new QWidget;
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(room);
    sought_->setPlaceholderText("Find in the help");
    sought_->setAccessibleName(sought_->placeholderText());
    sought_->setToolTip("Words to find on any page, then Return (Ctrl+F). F3 leads from place to place.");
    sought_->setClearButtonEnabled(true);
    sought_->setMaximumWidth(fontMetrics().averageCharWidth() * 32);
    bar.addWidget(sought_);
    connect(sought_, &QLineEdit::returnPressed, this, [this] {
        if (!sought_->text().trimmed().isEmpty())
            pages_->showFound(sought_->text());
    });
    connect(sought_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty())
            pages_->clearSearch();
    });

    const auto addKey = [this](const QKeySequence& key, auto run) {
        auto* const action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, run);
        addAction(action);
    };
    addKey(Qt::CTRL | Qt::Key_F, [this] {
        sought_->setFocus();
        sought_->selectAll();
    });
    addKey(Qt::Key_F3, [this] { pages_->findNext(false); });
    addKey(Qt::SHIFT | Qt::Key_F3, [this] { pages_->findNext(true); });
}

void HelpWindow::open(const QString& page) {
    pages_->setSource(urlOf(page));
    show();
    pages_->setFocus();
    raise();
    activateWindow();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

}  // namespace tallybrook
