#include "viewer/FindBar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tallybrook {

namespace {

void call(const std::function<void()>& handler) {
    if (handler)
        handler();
}

}  // namespace

FindBar::FindBar()
    : text_(new QLineEdit),
      previous_(new QPushButton("&Previous")),
      next_(new QPushButton("&Next")),
      matchCase_(new QCheckBox("Match &case")),
      words_(new QLabel) {
    text_->setPlaceholderText("Find in the report");
    text_->setAccessibleName(text_->placeholderText());
    text_->setClearButtonEnabled(true);
    text_->setMaximumWidth(fontMetrics().horizontalAdvance('x') * 40);
    previous_->setToolTip("Find the previous one (Shift+F3)");
    next_->setToolTip("Find the next one (F3)");
    words_->setTextFormat(Qt::PlainText);
    auto* const close = new QPushButton("Close");
    close->setToolTip("Close the find bar (Escape)");

    auto* const row = new QHBoxLayout(this);
    row->addWidget(text_, 3);
    for (QWidget* const widget : {static_cast<QWidget*>(previous_), static_cast<QWidget*>(next_),
                                  static_cast<QWidget*>(matchCase_), static_cast<QWidget*>(words_)})
        row->addWidget(widget);
    row->addStretch(1);
    row->addWidget(close);

    connect(text_, &QLineEdit::textChanged, this, [this] { call(onChanged); });
    connect(matchCase_, &QCheckBox::toggled, this, [this] { call(onChanged); });
    connect(previous_, &QPushButton::clicked, this, [this] { call(onPrevious); });
    connect(next_, &QPushButton::clicked, this, [this] { call(onNext); });
    connect(close, &QPushButton::clicked, this, [this] { call(onClose); });
}

QString FindBar::sought() const {
    return text_->text();
}

void FindBar::setSought(const QString& text) {
    text_->setText(text);
}

Qt::CaseSensitivity FindBar::sensitivity() const {
    return matchCase_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

void FindBar::tell(const QString& words) {
    words_->setText(words);
    text_->setAccessibleDescription(words);  // heard where the text is typed
}

void FindBar::focusText() {
    text_->setFocus();
    text_->selectAll();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        call(event->modifiers().testFlag(Qt::ShiftModifier) ? onPrevious : onNext);
    else
        QWidget::keyPressEvent(event);
}

}  // namespace tallybrook
