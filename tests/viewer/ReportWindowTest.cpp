#include "Window.h"
#include "desktop/WindowPlan.h"
#include "paper/Media.h"
#include "paper/Paper.h"
#include "paper/UsersLocale.h"
#include "readers/Golden.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGraphicsView>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>

namespace tallybrook::test {

using ReportWindowTest = Window;

namespace {

/// Chooses a file in the dialog that comes up.
void choose(ModalHands& hands, const QString& title, const QString& file) {
    hands.expect([title, file](QDialog& window) {
        EXPECT_EQ(window.windowTitle(), title);
        window.findChild<QLineEdit*>("fileNameEdit")->setText(file);
        window.accept();
    });
}

}  // namespace

TEST_F(ReportWindowTest, ShowsTheReportUnderItsName) {
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
    EXPECT_EQ(view().text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
    EXPECT_TRUE(view().hasFocus());
    EXPECT_EQ(view().caret(), 0);
}

TEST_F(ReportWindowTest, IsAsItWasWanted) {
    settings.clear();
    start("League Night.txt", Files::read(goldenFile("statistics.txt")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return part<QComboBox>().isVisible(); }));
    press(Qt::Key_F, Qt::ControlModifier);
    type("game");
    for (const QAction* const menu : window->menuBar()->actions())
        emit menu->menu()->aboutToShow();
    for (QMenu* const recent : window->findChildren<QMenu*>())
        emit recent->aboutToShow();
    press(Qt::Key_F5);
    expectPlan(*window, "viewer/plans/window.txt", files.folder());
}

TEST_F(ReportWindowTest, ShowsNamesAsTheyStand) {
    start("a[*]b <i>.txt", "");
    EXPECT_EQ(window->windowTitle(), "a[*][*]b <i>.txt - Tallybrook Report");  // shown as a[*]b
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(ReportWindowTest, RefusesABinaryFileAndKeepsTheReport) {
    QByteArray bytes;
    for (int i = 0; i < 65536; ++i)
        bytes += static_cast<char>(i % 3 == 0 ? i >> 8 : i);
    const QString binary = files.write("binary.txt", bytes);
    expectBox("The report cannot be shown:\n\n" + binary + "\n\nIt is no text, and a report is one.");
    EXPECT_FALSE(window->open(binary));
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
}

TEST_F(ReportWindowTest, ShowsATextWithAStrayCharacter) {
    start("stray.txt", QByteArray("Strike\0Spare\r\n", 14) + QByteArray(200, 'x'));
    EXPECT_EQ(view().text().left(7), QString("Strike") + QChar(QChar::ReplacementCharacter));
    EXPECT_FALSE(window->grab().isNull());
}

TEST_F(ReportWindowTest, TellsWhatCannotBeShownAndKeepsTheReport) {
    const QString missing = files.path("no <b>such</b>.txt");
    expectBox("The report cannot be shown:\n\n" + missing + "\n\nThere is no such file.");
    EXPECT_FALSE(window->open(missing));
    expectBox("The report cannot be shown:\n\n" + files.folder() + "\n\nIt is a folder.");
    EXPECT_FALSE(window->open(files.folder()));
    const QString pipe = files.pipe("pipe");
    expectBox("The report cannot be shown:\n\n" + pipe + "\n\nIt is a device and not a file.");
    EXPECT_FALSE(window->open(pipe));
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
    EXPECT_EQ(view().text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// --- File --------------------------------------------------------------------------------------------------

TEST_F(ReportWindowTest, OpensAnotherReport) {
    choose(hands, "Open Report", files.write("other.txt", "another"));
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(window->windowTitle(), "other.txt - Tallybrook Report");
    EXPECT_EQ(view().text(), "another");
}

TEST_F(ReportWindowTest, OpeningBeginsInTheReportsFolderAndMayBeCancelled) {
    hands.expect([this](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().absolutePath(), files.folder());
        dialog.reject();
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(window->windowTitle(), "League Night.txt - Tallybrook Report");
}

TEST_F(ReportWindowTest, CloseAndEscapeClose) {
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ReportWindowTest, PrintsToAFile) {
    const QString paper = files.path("paper.pdf");
    hands.expect([&paper](QDialog& opened) {
        auto& dialog = dynamic_cast<QPrintDialog&>(opened);
        EXPECT_EQ(dialog.printer()->docName(), "League Night.txt");
        EXPECT_TRUE(dialog.testOption(QAbstractPrintDialog::PrintPageRange));
        auto& printers = *dialog.findChild<QComboBox*>("printers");
        printers.setCurrentIndex(printers.findText("Print to File (PDF)"));
        dialog.findChild<QLineEdit*>("filename")->setText(paper);
        dialog.accept();
    });
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(Files::read(paper).startsWith("%PDF"));
}

TEST_F(ReportWindowTest, PrintsOnTheUsersPaperAndTellsIt) {
    const QString paper = files.path("paper.pdf");
    for (const auto& [locale, id] :
         {std::pair("en_US.UTF-8", QPageSize::Letter), std::pair("de_DE.UTF-8", QPageSize::A4)}) {
        const UsersLocale user(UsersLocale::Variables{{"LC_ALL", locale}});
        hands.expect([&paper, id = id](QDialog& dialog) {
            auto& printers = *dialog.findChild<QComboBox*>("printers");
            printers.setCurrentIndex(printers.findText("Print to File (PDF)"));
            dialog.findChild<QLineEdit*>("filename")->setText(paper);
            EXPECT_EQ(dialog.findChild<QToolButton*>("fileBrowser")->accessibleName(), "Choose Output File");
            EXPECT_EQ(dialog.findChild<QLabel*>("paper")->text(),
                      "Paper: " + nameOf(QPageSize(id)) + ", or what is chosen under Properties.");
            dialog.accept();
        });
        action("Print...")->trigger();
        EXPECT_TRUE(isOnPaper(Files::read(paper), id)) << locale;
        QFile::remove(paper);
    }
}

TEST_F(ReportWindowTest, PrintsIntoNoPipe) {
    hands.expect([this](QDialog& dialog) {
        auto& printers = *dialog.findChild<QComboBox*>("printers");
        printers.setCurrentIndex(printers.findText("Print to File (PDF)"));
        dialog.findChild<QLineEdit*>("filename")->setText(files.pipe("pipe"));
        expectBox("The report cannot be printed:\n\n" + files.path("League Night.txt") +
                  "\n\nIt is a device and not a file.");
        dialog.accept();
    });
    action("Print...")->trigger();
    EXPECT_TRUE(isPipe(files.path("pipe")));
}

TEST_F(ReportWindowTest, PrintingMayBeCancelled) {
    hands.expect([](QDialog& dialog) { dynamic_cast<QPrintDialog&>(dialog).reject(); });
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportWindowTest, ShowsThePagesBeforehand) {
    hands.expect([](QDialog& opened) {
        auto& dialog = dynamic_cast<QPrintPreviewDialog&>(opened);
        EXPECT_EQ(dialog.windowTitle(), "Print Preview - League Night.txt");
        dialog.grab();
        EXPECT_EQ(dialog.printer()->docName(), "League Night.txt");
        dialog.reject();
    });
    action("Print Preview")->trigger();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportWindowTest, PartsOfThePreviewAreReadAloud) {
    hands.expect([](QDialog& opened) {
        const auto nameOf = [](QObject* part) {
            return QAccessible::queryAccessibleInterface(part)->text(QAccessible::Name);
        };
        QStringList edits;
        for (QLineEdit* const edit : opened.findChildren<QLineEdit*>())
            edits << nameOf(edit);
        edits.sort();
        EXPECT_EQ(edits, (QStringList{"Page", "Zoom"}));
        EXPECT_EQ(opened.findChild<QComboBox*>()->accessibleDescription(), "Zoom");
        EXPECT_EQ(nameOf(opened.findChild<QToolBar*>()), "Tools");
        EXPECT_EQ(nameOf(opened.findChild<QGraphicsView*>()), "Pages");
        opened.reject();
    });
    action("Print Preview")->trigger();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window->menuBar())->text(QAccessible::Name), "Menu");
}

TEST_F(ReportWindowTest, ExportsAPdfBesideTheReport) {
    hands.expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Export as PDF");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "League Night.pdf");
        dialog.accept();
    });
    action("Export as PDF...")->trigger();
    EXPECT_TRUE(Files::read(files.path("League Night.pdf")).startsWith("%PDF"));
    auto& notice = *window->findChild<QFrame*>("notice");
    EXPECT_EQ(notice.accessibleName(), "The PDF is written: " + files.path("League Night.pdf"));
    EXPECT_TRUE(notice.isVisible());

    QTextBrowser desktop;  // which takes the folder as the desktop's own program would
    QDesktopServices::setUrlHandler("file", &desktop, "setSource");
    notice.findChild<QPushButton*>()->click();
    EXPECT_EQ(notice.findChild<QPushButton*>()->text(), "Open Folder");
    EXPECT_EQ(desktop.source(), QUrl::fromLocalFile(files.folder()));
    QDesktopServices::unsetUrlHandler("file");
}

TEST_F(ReportWindowTest, PdfTakesTheWholeNameOfItsReport) {
    ASSERT_TRUE(window->open(files.write("2026.11.14.txt", "notes")));
    hands.expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "2026.11.14.pdf");
        dialog.reject();
    });
    action("Export as PDF...")->trigger();
}

TEST_F(ReportWindowTest, FolderOfThePdfIsOpenedWhereverTheReportLies) {
    const Files others;
    choose(hands, "Export as PDF", others.path("night.pdf"));
    action("Export as PDF...")->trigger();
    QTextBrowser desktop;
    QDesktopServices::setUrlHandler("file", &desktop, "setSource");
    window->findChild<QFrame*>("notice")->findChild<QPushButton*>()->click();
    EXPECT_EQ(desktop.source(), QUrl::fromLocalFile(others.folder()));
    QDesktopServices::unsetUrlHandler("file");
}

TEST_F(ReportWindowTest, ExportsTheUsersPaperAndOffersTheOther) {
    const QStringList a4AndLetter{"PDF Files, Paper: A4 (*.pdf)", "PDF Files, Paper: Letter (*.pdf)"};
    const auto exported = [this](const QStringList& filters, const QString& chosen) {
        hands.expect([=](QDialog& opened) {
            auto& dialog = dynamic_cast<QFileDialog&>(opened);
            EXPECT_EQ(dialog.nameFilters(), filters);
            EXPECT_EQ(dialog.selectedNameFilter(), filters.front());
            dialog.selectNameFilter(chosen);
            opened.accept();
        });
        action("Export as PDF...")->trigger();
        QByteArray bytes = Files::read(files.path("League Night.pdf"));
        QFile::remove(files.path("League Night.pdf"));
        return bytes;
    };
    const UsersLocale german(UsersLocale::Variables{{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_TRUE(isOnPaper(exported(a4AndLetter, a4AndLetter[0]), QPageSize::A4));
    EXPECT_TRUE(isOnPaper(exported(a4AndLetter, a4AndLetter[1]), QPageSize::Letter));
    const UsersLocale american(UsersLocale::Variables{{"LC_ALL", "en_US.UTF-8"}});
    const QStringList letterAndA4{a4AndLetter[1], a4AndLetter[0]};
    EXPECT_TRUE(isOnPaper(exported(letterAndA4, letterAndA4[0]), QPageSize::Letter));
}

TEST_F(ReportWindowTest, ExportAddsTheEndingToAName) {
    choose(hands, "Export as PDF", files.path("night"));
    action("Export as PDF...")->trigger();
    EXPECT_TRUE(Files::read(files.path("night.pdf")).startsWith("%PDF"));
}

TEST_F(ReportWindowTest, TellsWhatCannotBeExported) {
    const QString closed = kClosedFolder + "/night.pdf";
    choose(hands, "Export as PDF", closed);
    hands.expect([closed](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_TRUE(box.text().startsWith("The report cannot be exported as a PDF:\n\n" + closed + "\n\n"))
            << box.text().toStdString();
        box.accept();
    });
    action("Export as PDF...")->trigger();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportWindowTest, ExportsBesideAReportThatIsNamedFromHere) {
    ASSERT_TRUE(window->open(QDir::current().relativeFilePath(files.path("League Night.txt"))));
    hands.expect([this](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().path(), files.folder());
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "League Night.pdf");
        dialog.accept();
    });
    action("Export as PDF...")->trigger();
    EXPECT_TRUE(Files::read(files.path("League Night.pdf")).startsWith("%PDF"));
}

TEST_F(ReportWindowTest, ExportMayBeCancelled) {
    hands.expect([](QDialog& dialog) { dialog.reject(); });
    action("Export as PDF...")->trigger();
    EXPECT_FALSE(QFile::exists(files.path("League Night.pdf")));
}

// --- Edit --------------------------------------------------------------------------------------------------

TEST_F(ReportWindowTest, SelectsAllAndCopies) {
    EXPECT_FALSE(action("Copy")->isEnabled());
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(action("Copy")->isEnabled());
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
}

TEST_F(ReportWindowTest, MenuSelectsAndCopiesToo) {
    QApplication::clipboard()->clear();
    action("Select All")->trigger();
    action("Copy")->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "Strike\tSpare\nstrike\tspare\nSTRIKE\n");
}

TEST_F(ReportWindowTest, KeysOfTheFindBarsTextStayThere) {
    press(Qt::Key_F, Qt::ControlModifier);
    type("spare");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "spare");
    EXPECT_EQ(selected(), "Spare");
}

// --- View --------------------------------------------------------------------------------------------------

TEST_F(ReportWindowTest, ZoomsWithKeys) {
    const auto percentAfter = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        press(key, modifiers);
        EXPECT_EQ(action("Actual Size")->iconText(), QString("%1%").arg(view().zoom().percent()));
        return view().zoom().percent();
    };
    EXPECT_EQ(percentAfter(Qt::Key_Plus), 110);
    EXPECT_EQ(percentAfter(Qt::Key_Equal), 125);
    EXPECT_EQ(percentAfter(Qt::Key_Minus), 110);
    EXPECT_EQ(percentAfter(Qt::Key_0), 100);
    EXPECT_EQ(percentAfter(Qt::Key_Minus), 90);
}

TEST_F(ReportWindowTest, MenusHaveTheirKeys) {
    const std::vector<std::pair<const char*, const char*>> keys{
        {"Open...", "Ctrl+O"},         {"Print...", "Ctrl+P"}, {"Print Preview", ""},
        {"Export as PDF...", ""},      {"Close", "Ctrl+W"},    {"Copy", "Ctrl+C"},
        {"Select All", "Ctrl+A"},      {"Find...", "Ctrl+F"},  {"Find Next", "F3"},
        {"Find Previous", "Shift+F3"}, {"Zoom In", "Ctrl++"},  {"Zoom Out", "Ctrl+-"},
        {"Actual Size", "Ctrl+0"},     {"Pictures", "F9"},     {"Reload", "F5"},
        {"Reading a Report", "F1"},    {"Contents", ""}};
    for (const auto& [caption, key] : keys) {
        ASSERT_NE(action(caption), nullptr) << caption;
        EXPECT_EQ(action(caption)->shortcut().toString(), key) << caption;
    }
    QStringList menus;
    for (const QAction* const menu : window->menuBar()->actions())
        menus += menu->text();
    EXPECT_EQ(menus, (QStringList{"&File", "&Edit", "&View", "&Help"}));
}

TEST_F(ReportWindowTest, LettersOfAMenuAreItsOwn) {
    for (const QAction* const menu : window->menuBar()->actions()) {
        QStringList letters;
        for (const QAction* const entry : menu->menu()->actions()) {
            if (const qsizetype mark = entry->text().indexOf('&'); mark >= 0)
                letters += entry->text().at(mark + 1).toUpper();
        }
        EXPECT_GT(letters.size(), 1) << menu->text().toStdString();
        EXPECT_EQ(letters.removeDuplicates(), 0) << menu->text().toStdString();
    }
}

TEST_F(ReportWindowTest, ToolsHaveNames) {
    auto& tools = part<QToolBar>();
    QStringList names;
    for (QAction* const tool : tools.actions()) {
        if (!tool->text().isEmpty())
            names += tools.widgetForAction(tool)->accessibleName();
    }
    EXPECT_EQ(names, (QStringList{"Open", "Print", "Find", "Zoom Out", "Actual Size", "Zoom In"}));
    EXPECT_EQ(action("Find...")->toolTip(), "Find (Ctrl+F)");
}

// --- From one time to the next -----------------------------------------------------------------------------

TEST_F(ReportWindowTest, RemembersItsSizeAndZoom) {
    window->resize(640, 420);
    press(Qt::Key_Plus, Qt::ControlModifier);
    window->close();
    start("other.txt", "");
    EXPECT_EQ(window->size(), QSize(640, 420));
    EXPECT_EQ(view().zoom().percent(), 110);
    EXPECT_EQ(action("Actual Size")->iconText(), "110%");
    EXPECT_FALSE(window->isMaximized());
}

TEST_F(ReportWindowTest, HasRoomForTheWidestLinesAndTheirPictures) {
    const QFontMetrics metrics(view().font());
    const QSize usual(154 * metrics.horizontalAdvance('x'), 40 * metrics.lineSpacing());
    EXPECT_EQ(window->size(), usual.boundedTo(window->screen()->availableSize()));
    EXPECT_EQ(window->minimumHeight(), (usual / 4).height());
    auto& splitter = part<QSplitter>();
    const int parts = splitter.minimumSizeHint().width() + splitter.handleWidth();
    EXPECT_EQ(window->minimumWidth(), std::max(usual.width() / 4, parts));
    start("statistics.txt", Files::read(goldenFile("statistics.txt")));
    const QList<int> sizes = part<QSplitter>().sizes();
    EXPECT_NEAR(sizes[0] * 62, sizes[1] * 92, 2 * 92);
    EXPECT_FALSE(part<QSplitter>().childrenCollapsible());
}

TEST_F(ReportWindowTest, RemembersTheSizeThatItHadBeforeItWasMaximised) {
    window->resize(700, 500);
    window->showMaximized();
    QTest::qWait(1);
    ASSERT_NE(window->size(), QSize(700, 500));
    window->close();
    EXPECT_EQ(settings.value("window/size").toSize(), QSize(700, 500));
}

TEST_F(ReportWindowTest, RemembersThatItWasMaximised) {
    window->resize(640, 420);
    window->showMaximized();
    window->close();
    start("other.txt", "");
    EXPECT_TRUE(window->isMaximized());
    EXPECT_EQ(window->normalGeometry().size(), QSize(640, 420));
}

TEST_F(ReportWindowTest, TakesNoNonsenseFromItsSettings) {
    for (const QSize& size : {QSize(100000, 100000), QSize(-5, -5), QSize(1, 1)}) {
        settings.setValue("window/size", size);
        settings.setValue("view/zoom", "huge");
        start("other.txt", "");
        EXPECT_GE(window->width(), 200);
        EXPECT_LE(window->width(), window->screen()->availableSize().width());
        EXPECT_EQ(view().zoom().percent(), 50);
    }
}

}  // namespace tallybrook::test
