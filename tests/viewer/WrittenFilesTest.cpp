// What the viewer writes takes the name that a person chose, and nothing else: what a link leads to, logbooks
// and what is no file stay as they are.

#include "Window.h"
#include "readers/Golden.h"
#include "runtime/OwnFiles.h"
#include "runtime/UnfinishedFile.h"
#include "viewer/PictureWidget.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollArea>
#include <ostream>

#include <sys/resource.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const QByteArray kLogbook = QByteArray("SQLite format 3\0", 16) + "thirty years of bowling";

/// A way in which the viewer writes a file.
struct Way {
    const char* name;
    const char* file;     ///< what it writes
    const char* action;   ///< the entry of the menu
    const char* field;    ///< of the dialog, for the file
    const char* failure;  ///< what begins the box
    const char* start;    ///< of what is written

    [[nodiscard]] bool isPrint() const { return std::string_view(field) == "filename"; }

    friend std::ostream& operator<<(std::ostream& out, const Way& way) { return out << way.name; }
};

constexpr Way kPrint{"Print", "a.pdf", "Print...", "filename", "The report cannot be printed:", "%PDF"};
constexpr Way kWays[] = {
    {"Pdf", "a.pdf", "Export as PDF...", "fileNameEdit", "The report cannot be exported as a PDF:", "%PDF"},
    kPrint,
    {"Svg", "a.svg", "Save Picture...", "fileNameEdit", "The picture cannot be saved:", "<?xml"},
    {"Png", "a.png", "Save Picture...", "fileNameEdit", "The picture cannot be saved:", "\x89PNG"}};

/// The viewer on a report with pictures, one of them with the focus.
class WritingWindow : public Window {
protected:
    WritingWindow() {
        start("night.txt", goldenReport("statistics.txt").toUtf8());
        for (QWidget* const widget : window->findChild<QScrollArea*>()->findChildren<QWidget*>()) {
            if (dynamic_cast<PictureWidget*>(widget) != nullptr)
                widget->setFocus();
        }
    }
    [[nodiscard]] fs::path pathOf(const QString& name) const { return files.path(name).toStdString(); }

    /// Chooses a file in the dialog that comes up, and confirms that one is written over, which the dialog of
    /// a print asks only who presses its button.
    void choose(const Way& way, bool isConfirmed) {
        hands.expect([file = files.path(way.file), way](QDialog& dialog) {
            if (auto* const printers = dialog.findChild<QComboBox*>("printers"); way.isPrint())
                printers->setCurrentIndex(printers->findText("Print to File (PDF)"));
            dialog.findChild<QLineEdit*>(way.field)->setText(file);
            QMetaObject::invokeMethod(&dialog, &QDialog::accept, Qt::QueuedConnection);  // which may ask
        });
        if (isConfirmed && !way.isPrint()) {
            hands.expect([](QDialog& question) {
                dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
            });
        }
    }
    void write(const Way& way) { action(way.action)->trigger(); }
    void expectRefusal(const Way& way, const QString& reason) {
        const QString told = files.path(way.isPrint() ? "night.txt" : way.file);
        expectBox(QString(way.failure) + "\n\n" + told + "\n\n" + reason);
    }
};

class WrittenFile : public WritingWindow, public testing::WithParamInterface<Way> {
protected:
    void writeConfirmed() {
        choose(GetParam(), true);
        write(GetParam());
    }
    void refuse(const QString& reason, bool isConfirmed = true) {
        choose(GetParam(), isConfirmed);
        expectRefusal(GetParam(), reason);
        write(GetParam());
    }
    void expectWritten() const {
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(pathOf(GetParam().file))));
        EXPECT_TRUE(Files::read(files.path(GetParam().file)).startsWith(GetParam().start));
    }
    void expectLogbook(const QString& name) const { EXPECT_EQ(Files::read(files.path(name)), kLogbook); }
    void TearDown() override { EXPECT_FALSE(fs::exists(UnfinishedFile::nameFor(pathOf(GetParam().file)))); }
};

constexpr const char* kStays = " is a logbook, or a backup of one, and stays as it is. Choose another name.";

}  // namespace

TEST_P(WrittenFile, TakesTheNameOfALinkAndLeavesWhatItLedTo) {
    files.write("logbook.mdb", kLogbook);
    fs::create_symlink("logbook.mdb", pathOf(GetParam().file));
    writeConfirmed();
    expectLogbook("logbook.mdb");
    expectWritten();
}

TEST_P(WrittenFile, TakesTheNameOfALinkToNothing) {
    fs::create_symlink("nowhere", pathOf(GetParam().file));
    choose(GetParam(), false);
    write(GetParam());
    EXPECT_FALSE(fs::exists(pathOf("nowhere")));
    expectWritten();
}

TEST_P(WrittenFile, KeepsThePermissionsOfTheOneBefore) {
    files.write(GetParam().file, "before");
    const auto forAll = fs::perms{0644};
    fs::permissions(pathOf(GetParam().file), forAll);
    writeConfirmed();
    expectWritten();
    EXPECT_EQ(fs::status(pathOf(GetParam().file)).permissions(), forAll);
}

TEST_P(WrittenFile, TakesNoPermissionsFromWhatALinkLedTo) {
    choose(GetParam(), false);
    write(GetParam());
    const fs::path written = pathOf(GetParam().file);
    const fs::perms usual = fs::status(written).permissions();
    fs::remove(written);
    files.write("other.txt", "for all");
    fs::permissions(pathOf("other.txt"), fs::perms{0666});
    fs::create_symlink("other.txt", written);
    writeConfirmed();
    expectWritten();
    EXPECT_EQ(fs::status(written).permissions(), usual);
}

TEST_P(WrittenFile, IsWrittenOverNoLogbook) {
    files.write(GetParam().file, kLogbook);
    refuse(GetParam().file + QString(kStays));
    expectLogbook(GetParam().file);
}

TEST_P(WrittenFile, IsWrittenOverNoOtherNameOfALogbook) {
    files.write("logbook.mdb", kLogbook);
    fs::create_hard_link(pathOf("logbook.mdb"), pathOf(GetParam().file));
    refuse(GetParam().file + QString(kStays));
    expectLogbook("logbook.mdb");
    EXPECT_TRUE(fs::equivalent(pathOf("logbook.mdb"), pathOf(GetParam().file)));
}

TEST_P(WrittenFile, IsMadeUnderNoNameOfALogbook) {
    const QString name = QString(GetParam().file) + ".new";
    files.write(name, kLogbook);
    refuse(name + kStays, false);
    expectLogbook(name);
    EXPECT_FALSE(fs::exists(pathOf(GetParam().file)));
    fs::remove(pathOf(name));
}

TEST_P(WrittenFile, IsWrittenIntoNoPipe) {
    const QString pipe = files.pipe(GetParam().file);
    refuse("It is a device and not a file.");
    EXPECT_TRUE(isPipe(pipe));
}

INSTANTIATE_TEST_SUITE_P(As, WrittenFile, testing::ValuesIn(kWays),
                         [](const auto& tested) { return tested.param.name; });

using PrintedFile = WritingWindow;

TEST_F(PrintedFile, StaysAsItWasWhereTheDiskIsFull) {
    start("night.txt", "one page, of which the printer tells no failure");
    files.write(kPrint.file, "before");
    choose(kPrint, true);
    expectRefusal(kPrint, "The file could not be written to its end. Is the disk full?");
    outliveLargeFiles();
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit full{.rlim_cur = 1000, .rlim_max = usual.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    write(kPrint);
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &usual), 0);
    EXPECT_EQ(Files::read(files.path(kPrint.file)), "before");
}

}  // namespace tallybrook::test
