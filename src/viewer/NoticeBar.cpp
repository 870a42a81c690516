#include "viewer/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::chrono::seconds kReadingTime{8};

}  // namespace

NoticeBar::NoticeBar() : words_(new QLabel), offered_(new QPushButton), going_(new QTimer(this)) {
    setObjectName("notice");
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    auto* const close = new QPushButton("Close");
    close->setToolTip("Close the notice (Escape)");
    auto* const row = new QHBoxLayout(this);
    row->addWidget(words_, 1);
    row->addWidget(offered_);
    row->addWidget(close);
    going_->setSingleShot(true);
    going_->setInterval(kReadingTime);
    connect(going_, &QTimer::timeout, this, [this] { hide(); });
    connect(offered_, &QPushButton::clicked, this, [this] { run_(); });
    connect(close, &QPushButton::clicked, this, [this] { hide(); });
    hide();
}

void NoticeBar::tell(const QString& words) {
    offered_->hide();
    showWords(words);
    going_->start();
}

void NoticeBar::offer(const QString& words, const QString& caption, std::function<void()> run) {
    run_ = std::move(run);
    offered_->setText(caption);
    offered_->show();
    showWords(words);
    going_->stop();
}

bool NoticeBar::close() {
    const bool wasShown = isVisible();
    hide();
    return wasShown;
}

void NoticeBar::showWords(const QString& words) {
    words_->setText(words);
    setAccessibleName(words);
    show();
    QAccessibleEvent heard(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&heard);
}

}  // namespace tallybrook
