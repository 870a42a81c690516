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
protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override {
        if (name.scheme() == "qrc" || name.isRelative())
            QTextBrowser::doSetSource(name, type);
    }
};

}  // namespace

HelpWindow::HelpWindow() : pages_(new OwnPages), sought_(new QLineEdit) {
    setObjectName("help");
    setWindowTitle("Tallybrook Help");
    pages_->document()->setDocumentMargin(18);
    setCentralWidget(pages_);

    auto* const bar = addToolBar("Help");
    bar->setMovable(false);
    const auto addAction = [&](const QString& caption, auto run) {
        return bar->addAction(caption, this, run);
    };
    addAction("Contents", [this] { pages_->setSource(pageOf(HelpTopic::Contents)); });
    QAction* const back = addAction("Back", [this] { pages_->backward(); });
    QAction* const forward = addAction("Forward", [this] { pages_->forward(); });
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(pages_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(pages_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    sought_->setPlaceholderText("Find on this page");
    sought_->setClearButtonEnabled(true);
    sought_->setMaximumWidth(240);
    auto* const room = new QWidget;
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(room);
    bar->addWidget(sought_);
    connect(sought_, &QLineEdit::returnPressed, this, [this] { findNext(); });
    resize(760, 640);
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
