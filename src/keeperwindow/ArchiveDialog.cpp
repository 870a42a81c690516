#include "keeperwindow/ArchiveDialog.h"

#include "keeperwindow/Columns.h"
#include "keeperwindow/WindowTexts.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace tallybrook::keeper {

namespace {

enum ArchiveColumn { kNameColumn, kDateColumn, kCenterColumn, kChoiceColumn };

constexpr int kArchiveKey = Qt::UserRole;

struct ChoiceWords {
    Same choice;
    const char* caption;
    const char* words;
};
constexpr std::array<ChoiceWords, 3> kChoices{
    {{Same::Keep, "&Keep the Logbook's", "the logbook's stays"},
     {Same::Take, "&Take the Archive's", "the archive's takes its place"},
     {Same::Both, "Keep &Both", "both are kept"}}};

QString introduction(const ArchiveContents& contents) {
    const auto present = std::ranges::count_if(
        contents.events, [](const ArchivedEvent& event) { return event.present.has_value(); });
    QString text = "The archive holds " + shown(inWords(contents.counts)) + ". ";
    if (present == 0)
        return text + "None of its events is in your logbook yet; all of them are added.";
    return text + QString(
                      "Events that are in your logbook already: %1. Choose what is to be done with these; "
                      "all others are added.")
                      .arg(present);
}

}  // namespace

ArchiveDialog::ArchiveDialog(const ArchiveContents& contents, QWidget* parent)
    : QDialog(parent), events_(new QTreeWidget) {
    setWindowTitle("Read Archive");
    auto* const column = new QVBoxLayout(this);
    auto* const words = new QLabel(introduction(contents));
    words->setWordWrap(true);
    column->addWidget(words);

    events_->setHeaderLabels({"Event", "Date", "Center", "What is done"});
    events_->setAccessibleName("Events that are in the logbook already");
    events_->setRootIsDecorated(false);
    events_->setUniformRowHeights(true);
    events_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const ArchivedEvent& event : contents.events) {
        if (!event.present)
            continue;
        auto* const item =
            new QTreeWidgetItem(events_, {inRow(event.name), inRow(event.date), inRow(event.center)});
        item->setData(kNameColumn, kArchiveKey, QVariant::fromValue<qlonglong>(event.key));
    }
    events_->selectAll();
    choose(Same::Keep);
    for (int each = kNameColumn; each < kChoiceColumn; ++each)
        fitColumn(*events_, each);
    column->addWidget(events_, 1);

    auto* const row = new QHBoxLayout;
    row->addWidget(new QLabel("For the chosen ones:"));
    for (const ChoiceWords& choice : kChoices) {
        auto* const button = new QPushButton(choice.caption);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, &choice] { choose(choice.choice); });
        row->addWidget(button);
    }
    row->addStretch();
    column->addLayout(row);

    const bool hasChoice = events_->topLevelItemCount() > 0;
    events_->setVisible(hasChoice);
    for (int each = 0; each < row->count(); ++each) {
        if (QWidget* const widget = row->itemAt(each)->widget(); widget != nullptr)
            widget->setVisible(hasChoice);
    }

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    QPushButton* const read = buttons->addButton("&Read Archive", QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    read->setDefault(true);  // which the dialog takes only from a button that it has
    if (hasChoice)
        resize(usualSize().boundedTo(screen()->availableSize()));
}

/// With room for all columns, whatever is chosen: the last one says what is done.
QSize ArchiveDialog::usualSize() const {
    int wide = 0;
    for (const ChoiceWords& choice : kChoices)
        wide = std::max(wide, fontMetrics().horizontalAdvance(choice.words));
    for (int each = kNameColumn; each < kChoiceColumn; ++each)
        wide += events_->columnWidth(each);
    const int letter = fontMetrics().averageCharWidth();
    return {std::max(wide + 10 * letter, 100 * letter), fontMetrics().height() * 26};
}

void ArchiveDialog::choose(Same choice) {
    const auto words = std::ranges::find(kChoices, choice, &ChoiceWords::choice);
    for (QTreeWidgetItem* const item : events_->selectedItems()) {
        item->setText(kChoiceColumn, words->words);
        choices_.ofEvents[item->data(kNameColumn, kArchiveKey).toLongLong()] = choice;
    }
}

}  // namespace tallybrook::keeper
