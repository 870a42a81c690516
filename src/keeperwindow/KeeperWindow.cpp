#include "keeperwindow/KeeperWindow.h"

#include "keeper/OldLogbook.h"
#include "keeper/Restore.h"
#include "keeperwindow/ArchiveDialog.h"
#include "keeperwindow/WindowTexts.h"
#include "keeperwindow/WordsDialog.h"
#include "runtime/DataHome.h"
#include "runtime/TextForms.h"
#include "style/PlainBox.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTitle = "Tallybrook Keeper";

fs::path pathOf(const QString& file) {
    return QFile::encodeName(file).toStdString();
}

QString shownPath(const fs::path& file) {
    return QDir::toNativeSeparators(QFile::decodeName(file.c_str()));
}

QLabel* heading(const QString& text) {
    auto* const label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setWordWrap(true);  // lest large letters make the window wide
    return label;
}

void takeAnyText(QLabel& label) {
    label.setWordWrap(true);
    label.setTextFormat(Qt::PlainText);  // the name of a folder may look like markup
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    label.setFocusPolicy(Qt::NoFocus);
}

QString inWordsOf(const Intake& intake) {
    QString text = (intake.isNew ? "A new logbook was made: " : "Added to the logbook: ") +
                   shown(inWords(intake.added)) + ".";
    if (intake.passedOver != 0)
        text += QString(" Passed over, since the logbook has them: %1.").arg(intake.passedOver);
    if (intake.strays != 0)
        text += QString(" Without an event, and passed over: %1.").arg(intake.strays);
    return text;
}

}  // namespace

KeeperWindow::KeeperWindow(fs::path dataFolder, const Clock& clock)
    : dataFolder_(std::move(dataFolder)), clock_(clock), tools_(addToolBar("Tools")) {
    setWindowTitle(kTitle);
    tools_->setMovable(false);
    tools_->setContextMenuPolicy(Qt::PreventContextMenu);
    tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addMenu();
    addCentre();
    work_.onStage = [this](const Stage& stage) { showStage(stage); };
    backups_->onChosen = [this] { showChosen(); };
    events_->onTicked = [this] { showButtons(); };
    events_->onTrouble = [this](const QString& why) { tellFailure("The games cannot be shown.", why); };
    resize(QSize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 38)
               .boundedTo(screen()->availableSize()));
    refresh();
    backups_->setFocus();
}

// --- Menus and parts ---------------------------------------------------------------------------------------

void KeeperWindow::addMenu() {
    menuBar()->setAccessibleName("Menu");
    QMenu& menu = *menuBar()->addMenu("&File");
    addAction(menu, "Write &Archive...", Qt::CTRL | Qt::Key_S, "Write Archive", [this] { writeArchive(); });
    addAction(menu, "Write &Spreadsheet...", Qt::CTRL | Qt::Key_E, "Write Spreadsheet",
              [this] { writeWorkbook(); });
    addAction(menu, "Write &CSV Files...", {}, {}, [this] { writeCsv(); });
    menu.addSeparator();
    addAction(menu, "&Read Archive...", Qt::CTRL | Qt::Key_O, "Read Archive", [this] { readArchive(); });
    addAction(menu, "Carry Over an &Old Logbook...", {}, {}, [this] { carryOver(); });
    menu.addSeparator();
    addAction(menu, "Read &Backups Again", Qt::Key_F5, {}, [this] { refresh(); });
    QAction* const leave = menu.addAction("&Close");
    leave->setShortcut(Qt::CTRL | Qt::Key_W);
    connect(leave, &QAction::triggered, this, [this] { close(); });
}

/// Adds an entry that waits until work is done; `tool` is what its button in the tool bar bears, if it has
/// one.
void KeeperWindow::addAction(QMenu& menu, const QString& caption, const QKeySequence& keys,
                             const QString& tool, std::function<void()> run) {
    QAction* const action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, std::move(run));
    actions_.push_back(action);
    if (tool.isEmpty())
        return;
    action->setIconText(tool);
    action->setToolTip(tool + " (" + keys.toString(QKeySequence::NativeText) + ")");
    tools_->addAction(action);
    tools_->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    tools_->widgetForAction(action)->setAccessibleName(tool);
}

void KeeperWindow::addCentre() {
    auto* const centre = new QWidget;
    auto* const column = new QVBoxLayout(centre);
    takeAnyText(*today_);
    takeAnyText(*note_);
    column->addWidget(heading("Your logbook"));
    column->addWidget(today_);
    column->addWidget(note_);
    column->addSpacing(fontMetrics().height() / 2);
    auto* const sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(backupsSide());
    sides->addWidget(eventsSide());
    sides->setStretchFactor(0, 1);
    sides->setStretchFactor(1, 2);
    column->addWidget(sides, 1);
    column->addWidget(progressStrip());
    setCentralWidget(centre);
}

QWidget* KeeperWindow::backupsSide() {
    auto* const side = new QWidget;
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(heading("Its backups, the newest first"));
    column->addWidget(backups_, 1);
    return side;
}

QWidget* KeeperWindow::eventsSide() {
    auto* const side = new QWidget;
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    takeAnyText(*backup_);
    backup_->setMinimumHeight(2 * backup_->fontMetrics().lineSpacing());  // the splitter asks for no more
    backup_->setAlignment(Qt::AlignTop);
    column->addWidget(heading("Events of the chosen backup"));
    column->addWidget(backup_);
    column->addWidget(events_, 1);
    auto* const row = new QHBoxLayout;
    row->addWidget(take_);
    row->addStretch();
    row->addWidget(restore_);
    column->addLayout(row);
    connect(take_, &QPushButton::clicked, this, [this] { takeTicked(); });
    connect(restore_, &QPushButton::clicked, this, [this] { restoreChosen(); });
    return side;
}

QWidget* KeeperWindow::progressStrip() {
    strip_ = new QWidget;
    auto* const row = new QHBoxLayout(strip_);
    row->setContentsMargins(0, 0, 0, 0);
    takeAnyText(*stage_);
    bar_->setTextVisible(false);
    bar_->setAccessibleName("Progress");
    row->addWidget(stage_, 3);
    row->addWidget(bar_, 2);
    row->addWidget(cancel_);
    strip_->setMinimumHeight(cancel_->sizeHint().height());
    connect(cancel_, &QPushButton::clicked, this, [this] { work_.cancel(); });
    bar_->hide();
    cancel_->hide();
    return strip_;
}

// --- Work --------------------------------------------------------------------------------------------------

/// Lets a task run on its thread, and then a function here if it was done.
void KeeperWindow::run(const QString& failed, const Work::Task& task, const std::function<void()>& then) {
    if (work_.isBusy())
        return;
    done_.clear();
    stage_->clear();
    showBusy(true);
    work_.begin(task, [this, failed, then](const Outcome& outcome) {
        showBusy(false);
        stage_->clear();
        if (outcome.status == ExitStatus::Done)
            then();
        else if (outcome.status == ExitStatus::Cancelled)
            stage_->setText(shown(outcome.why));
        else
            tellFailure(failed, shown(outcome.why));
    });
}

/// Does what changes or carries out the logbook, and shows what came of it.
void KeeperWindow::perform(const QString& failed, const Deed& deed) {
    const auto done = std::make_shared<QString>();
    run(
        failed, [deed, done](Progress& progress) { *done = deed(progress); },
        [this, done] {
            done_ = *done;
            refresh();
            tellDone();
        });
}

/// Has what was done read aloud wherever the focus is.
void KeeperWindow::tellDone() {
    QAccessibleEvent heard(stage_, QAccessible::Alert);
    QAccessible::updateAccessibility(&heard);
}

void KeeperWindow::showStage(const Stage& stage) {
    stage_->setText(shown(stage.what) + "...");
    bar_->setRange(0, stage.total > 0 ? 1000 : 0);
    if (stage.total > 0)
        bar_->setValue(static_cast<int>(std::min(stage.done, stage.total) * 1000 / stage.total));
    bar_->show();
    cancel_->show();
}

void KeeperWindow::showBusy(bool isBusy) {
    for (QAction* const action : actions_)
        action->setEnabled(!isBusy);
    if (!isBusy) {
        bar_->hide();
        cancel_->hide();
    }
    showButtons();
}

void KeeperWindow::closeEvent(QCloseEvent* event) {
    work_.cancel();
    QMainWindow::closeEvent(event);
}

void KeeperWindow::tellFailure(const QString& failed, const QString& why) {
    PlainBox box(QMessageBox::Critical, kTitle, failed + "\n\n" + why, this);
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
    box.exec();
}

// --- The backups -------------------------------------------------------------------------------------------

void KeeperWindow::refresh() {
    const BackupFolder folder = backupsIn(dataFolder_);
    std::vector<BackupEntry> entries;
    for (const DateTime time : newestFirst(folder))
        entries.push_back({.time = time, .file = folder.existing(time)});
    backups_->show(entries);
    backups_->setCurrentRow(entries.empty() ? -1 : 0);
    showChosen();
    if (work_.isBusy())
        return;
    stage_->setText(done_);
    showBusy(true);
    const auto task = [this, folder, entries](Progress& progress) {
        const Today today = todayIn(dataFolder_, clock_, progress);
        work_.tell([this, today] { showToday(today); });
        for (std::size_t place = 0; place < entries.size(); ++place) {
            const BackupEntry entry = readBackup(folder, entries[place].time, today, progress);
            work_.tell([this, place, entry] { backups_->update(place, entry); });
        }
    };
    work_.begin(task, [this](const Outcome& outcome) {
        showBusy(false);
        stage_->setText(done_);
        if (outcome.status != ExitStatus::Done)
            today_->setText(shown(outcome.why));
    });
}

void KeeperWindow::showToday(const Today& today) {
    note_->setText(shown(today.note));
    note_->setVisible(!today.note.empty());
    if (!today.summary) {
        today_->setText("It cannot be read.");
        return;
    }
    QString text = "It holds " + shown(inWords(today.summary->counts)) + ".";
    if (today.summary->lastNight)
        text += " Last night bowled: " + shown(shortDate(*today.summary->lastNight)) + ".";
    today_->setText(text);
}

void KeeperWindow::showChosen() {
    const BackupEntry* const entry = backups_->chosen();
    events_->show(entry);
    if (entry == nullptr)
        backup_->setText("There are no backups yet. Tallybrook makes the first at its next start.");
    else if (entry->summary)
        backup_->setText(
            "Tick the events that you want back. They are added to your logbook, and nothing there is "
            "changed.");
    else
        backup_->setText(sentence(entry->trouble));
    showButtons();
}

void KeeperWindow::showButtons() {
    const std::size_t count = events_->ticked().size();
    take_->setText(count == 0   ? QString("&Add Ticked Events")
                   : count == 1 ? QString("&Add 1 Ticked Event")
                                : QString("&Add %1 Ticked Events").arg(count));
    const BackupEntry* const entry = backups_->chosen();
    take_->setEnabled(!work_.isBusy() && count > 0);
    restore_->setEnabled(!work_.isBusy() && entry != nullptr && entry->summary.has_value());
}

void KeeperWindow::takeTicked() {
    const fs::path backup = backups_->chosen()->file;
    const std::vector<std::int64_t> keys = events_->ticked();
    perform("The events could not be added.", [this, backup, keys](Progress& progress) {
        const Counts added = takeEvents(HeldLogbook(dataFolder_), backup, keys, clock_, progress);
        return "Added to the logbook: " + shown(inWords(added)) + ".";
    });
}

void KeeperWindow::restoreChosen() {
    const BackupEntry entry = *backups_->chosen();
    PlainBox box(QMessageBox::Question, kTitle,
                 "Put this backup in the place of your logbook?\n\n" + momentText(entry.time) + "\n" +
                     contentsText(entry) + "\n" + sentence(entry.inWords()) +
                     "\n\nYour present logbook is backed up first, so you can come back to it.",
                 this);
    const QPushButton* const restore = box.addButton("&Restore", QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() != restore)
        return;
    perform("The backup could not be restored.", [this, entry](Progress& progress) {
        const Restored restored = restoreAll(HeldLogbook(dataFolder_), entry.file, clock_, progress);
        return "Restored, checked and compared: the logbook holds " + shown(inWords(restored.counts)) + ".";
    });
}

// --- Out and in --------------------------------------------------------------------------------------------

void KeeperWindow::carryOut(const QString& failed, const QString& place, const Export& write) {
    if (place.isEmpty())
        return;
    perform(failed, [path = pathOf(place), write](Progress& progress) {
        const Exported exported = write(path, progress);
        const QString note = exported.note.empty() ? "" : " " + shown(exported.note);
        return "Written to " + shownPath(path) + ": " + shown(inWords(exported.counts)) + "." + note;
    });
}

void KeeperWindow::writeArchive() {
    carryOut(
        "The archive could not be written.",
        QFileDialog::getSaveFileName(this, "Write Archive", QDir::homePath() + "/Tallybrook logbook.jsonl",
                                     "Archives (*.jsonl);;All files (*)"),
        [this](const fs::path& file, Progress& progress) {
            return exportArchive(dataFolder_, file, clock_, progress);
        });
}

void KeeperWindow::writeWorkbook() {
    carryOut(
        "The spreadsheet could not be written.",
        QFileDialog::getSaveFileName(this, "Write Spreadsheet", QDir::homePath() + "/Tallybrook logbook.xlsx",
                                     "Spreadsheets (*.xlsx);;All files (*)"),
        [this](const fs::path& file, Progress& progress) {
            return exportWorkbook(dataFolder_, file, clock_, progress);
        });
}

void KeeperWindow::writeCsv() {
    carryOut("The CSV files could not be written.",
             QFileDialog::getExistingDirectory(this, "Write CSV Files into a Folder", QDir::homePath()),
             [this](const fs::path& folder, Progress& progress) {
                 return exportCsv(dataFolder_, folder, sheets::Formulas::Guarded, clock_, progress);
             });
}

void KeeperWindow::readArchive() {
    const QString chosen = QFileDialog::getOpenFileName(this, "Read Archive", QDir::homePath(),
                                                        "Archives (*.jsonl);;All files (*)");
    if (chosen.isEmpty())
        return;
    struct Checked {
        ArchiveContents contents;
        bool isNew = false;
    };
    const fs::path file = pathOf(chosen);
    const auto checked = std::make_shared<Checked>();
    run(
        "The archive could not be read.",
        [this, file, checked](Progress& progress) {
            const HeldLogbook held(dataFolder_);
            ArchiveReader archive(file);
            const std::unique_ptr<Connection> logbook = held.exists() ? held.open(clock_) : nullptr;
            checked->contents = checkArchive(archive, logbook ? &logbook->database() : nullptr, progress);
            checked->isNew = !logbook || countsOf(logbook->database()).all() == 0;
        },
        [this, file, checked] {
            if (checked->isNew)
                return takeIn(file, {});
            ArchiveDialog dialog(checked->contents, this);
            if (dialog.exec() == QDialog::Accepted)
                takeIn(file, dialog.choices());
        });
}

/// An old logbook may lie in the place of the new one.
void KeeperWindow::carryOver() {
    const fs::path place = logbookIn(dataFolder_);
    const QString chosen = QFileDialog::getOpenFileName(
        this, "Carry Over an Old Logbook",
        carry::looksLikeOldLogbook(place) ? QFile::decodeName(place.c_str()) : QDir::homePath(),
        "Old logbooks (*.mdb);;All files (*)");
    if (chosen.isEmpty())
        return;
    const auto words = std::make_shared<QString>();
    run(
        "The old logbook could not be carried over.",
        [this, file = pathOf(chosen), words](Progress& progress) {
            const HeldLogbook held(dataFolder_);
            *words = shown(inWords(takeInOldLogbook(held, file, clock_, progress)));
        },
        [this, words] {
            done_ = words->section('\n', 0, 0);
            refresh();
            WordsDialog("What Was Carried Over", *words, this).exec();
        });
}

void KeeperWindow::takeIn(const fs::path& file, const Choices& choices) {
    perform("The archive could not be read.", [this, file, choices](Progress& progress) {
        const HeldLogbook held(dataFolder_);
        ArchiveReader archive(file);
        return inWordsOf(takeInArchive(held, archive, choices, clock_, progress));
    });
}

}  // namespace tallybrook::keeper
