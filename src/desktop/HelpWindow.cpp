#include "desktop/HelpWindow.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextBrowser>
#include <QToolBar>

namespace tallybrook {

namespace {

QUrl pageOf(HelpTopic topic) {
    const QString name = topic == HelpTopic::Contents ? "index" : QString::number(static_cast<int>(topic));
    return "qrc:/help/" + name + ".html";
}

/// A browser that follows links among the program's own pages and nowhere else.
class OwnPages : public QTextBrowser {
public:
    QVariant loadResource(int type, const QUrl& name) override {
        return isOwn(name) ? QTextBrowser::loadResource(type, name) : QVariant();
    }

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override {
        if (isOwn(name))
            QTextBrowser::doSetSource(name, type);
    }

private:
    static bool isOwn(const QUrl& name) { return name.scheme() == "qrc" || name.isRelative(); }
};

}  // namespace

HelpWindow::HelpWindow() : pages_(new OwnPages), sought_(new QLineEdit) {
    setObjectName("help");
    setWindowTitle("Tallybrook Help");
    pages_->document()->setDocumentMargin(18);
    setCentralWidget(pages_);
    QToolBar* const bar = addToolBar("Help");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    addPageActions(*bar);
    addSearch(*bar);
    const int line = fontMetrics().height();
    resize(line * 48, line * 40);
}

void HelpWindow::addPageActions(QToolBar& bar) {
    const auto add = [&](const QString& caption, const QKeySequence& key, auto run) {
        QAction* const action = bar.addAction(caption, this, run);
        action->setShortcut(key);
        return action;
    };
    add("Contents", Qt::ALT | Qt::Key_Home, [this] { pages_->setSource(pageOf(HelpTopic::Contents)); });
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
    sought_->setPlaceholderText("Find on this page");
    sought_->setAccessibleName(sought_->placeholderText());
    sought_->setClearButtonEnabled(true);
    sought_->setMaximumWidth(fontMetrics().averageCharWidth() * 32);
    bar.addWidget(sought_);
    connect(sought_, &QLineEdit::returnPressed, this, [this] { findNext(); });

    auto* const find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, this, [this] {
        sought_->setFocus();
        sought_->selectAll();
    });
    addAction(find);
}

void HelpWindow::open(HelpTopic topic) {
    pages_->setSource(pageOf(topic));
    show();
    raise();
    activateWindow();
}

void HelpWindow::findNext() {
    if (pages_->find(sought_->text()))
        return;
    pages_->moveCursor(QTextCursor::Start);  // once more from the top
    pages_->find(sought_->text());
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

}  // namespace tallybrook
