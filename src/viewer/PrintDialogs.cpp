#include "viewer/PrintDialogs.h"

#include "paper/Paper.h"
#include "paper/WholeFile.h"
#include "readers/FileFailure.h"
#include "viewer/Boxes.h"
#include "viewer/BusyPointer.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <vector>

namespace tallybrook {

namespace {

/// Gets a printer ready for a report. Printers know their paper; without one it is the user's.
void setUp(QPrinter& printer, const ReportText& report) {
    if (printer.printerName().isEmpty())
        printer.setPageSize(usersPaper());
    printer.setDocName(report.name());
    printer.setCreator("Tallybrook");
    printer.setPageMargins(kPageMargins, QPageLayout::Millimeter);
}

void draw(const ReportText& report, const std::vector<ReportPicture>& pictures, QPrinter& printer) {
    const BusyPointer busy;
    if (!drawPages(report, pictures, printer))
        throw FileFailure("The printer does not take it.");
}

/// A printer keeps to itself that a disk is full.
void requireWholePdf(const QString& name) {
    constexpr qint64 kLongestEnd = 8;
    QFile pdf(name);
    pdf.open(QIODevice::ReadOnly);
    pdf.seek(std::max<qint64>(pdf.size() - kLongestEnd, 0));
    if (!pdf.readAll().trimmed().endsWith("%%EOF"))
        throw FileFailure("The file could not be written to its end. Is the disk full?");
}

/// Draws into the printer's file under the name that the file has until it is whole.
void drawIntoFile(const ReportText& report, const std::vector<ReportPicture>& pictures, QPrinter& printer) {
    const QString file = printer.outputFileName();
    writeWhole(file, [&](const QString& name) {
        printer.setOutputFileName(name);
        draw(report, pictures, printer);
        requireWholePdf(name);
    });
}

void drawOrTell(const ReportText& report, const std::vector<ReportPicture>& pictures, QPrinter& printer,
                QWidget& window) {
    try {
        const auto print = printer.outputFileName().isEmpty() ? draw : drawIntoFile;
        print(report, pictures, printer);
    } catch (const FileFailure& failure) {
        tellFailure(&window, "The report cannot be printed:", report.file, failure.reason());
    }
}

/// Tells the paper in a line above the buttons of a print dialog, for the printer that is chosen there.
void addPaperLine(QPrintDialog& dialog) {
    auto* const rows = qobject_cast<QBoxLayout*>(dialog.layout());
    const auto* const printers = dialog.findChild<QComboBox*>("printers");
    if (rows == nullptr || printers == nullptr)
        return;  // a dialog of the desktop, which tells the paper itself
    auto* const line = new QLabel;
    line->setObjectName("paper");
    const auto tell = [&dialog, line] {
        line->setText("Paper: " + nameOf(dialog.printer()->pageLayout().pageSize()) +
                      ", or what is chosen under Properties.");
    };
    tell();
    QObject::connect(printers, &QComboBox::currentIndexChanged, line, tell);
    rows->insertWidget(rows->count() - 1, line);
}

/// The toolkit leaves the parts of its preview without names to be read aloud.
void nameParts(const QPrintPreviewDialog& dialog) {
    for (QLineEdit* const edit : dialog.findChildren<QLineEdit*>())
        edit->setAccessibleName(qobject_cast<QComboBox*>(edit->parent()) == nullptr ? "Page" : "Zoom");
    for (QComboBox* const box : dialog.findChildren<QComboBox*>())
        box->setAccessibleDescription("Zoom");  // its name is what it shows
    for (QToolBar* const bar : dialog.findChildren<QToolBar*>())
        bar->setAccessibleName("Tools");
    for (QGraphicsView* const pages : dialog.findChildren<QGraphicsView*>())
        pages->setAccessibleName("Pages");
}

/// A kind of file for each paper, the user's first, so that the dialog tells it and offers the other.
struct PdfKind {
    QPageSize paper;
    QString filter;
};

std::vector<PdfKind> pdfKinds() {
    std::vector<PdfKind> kinds;
    for (const QPageSize& paper : {QPageSize(QPageSize::A4), QPageSize(QPageSize::Letter)}) {
        const auto place = paper == usersPaper() ? kinds.begin() : kinds.end();
        kinds.insert(place, {paper, QString("PDF Files, Paper: %1 (*.pdf)").arg(nameOf(paper))});
    }
    return kinds;
}

QString pdfBeside(const QString& file) {
    const QFileInfo info(file);
    return info.absoluteDir().filePath(info.completeBaseName() + ".pdf");
}

}  // namespace

void printReport(const ReportText& report, const std::vector<ReportPicture>& pictures, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, report);
    QPrintDialog dialog(&printer, &window);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (auto* const choose = dialog.findChild<QToolButton*>("fileBrowser"); choose != nullptr)
        choose->setAccessibleName("Choose Output File");
    addPaperLine(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    drawOrTell(report, pictures, printer, window);
}

void previewReport(const ReportText& report, const std::vector<ReportPicture>& pictures, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, report);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowTitle("Print Preview - " + report.name());
    dialog.resize(window.size());
    nameParts(dialog);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&](QPrinter* paper) { drawOrTell(report, pictures, *paper, dialog); });
    dialog.exec();
}

std::optional<QString> exportReport(const ReportText& report, const std::vector<ReportPicture>& pictures,
                                    QWidget& window) {
    const std::vector<PdfKind> kinds = pdfKinds();
    QStringList filters;
    for (const PdfKind& kind : kinds)
        filters += kind.filter;
    QFileDialog dialog(&window, "Export as PDF");
    dialog.setNameFilters(filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("pdf");
    dialog.selectFile(pdfBeside(report.file));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const auto kind = std::ranges::find(kinds, dialog.selectedNameFilter(), &PdfKind::filter);
    const QString file = dialog.selectedFiles().value(0);
    try {
        const BusyPointer busy;
        writePdf(report, pictures, kind == kinds.end() ? usersPaper() : kind->paper, file);
        return file;
    } catch (const FileFailure& failure) {
        tellFailure(&window, "The report cannot be exported as a PDF:", file, failure.reason());
        return std::nullopt;
    }
}

}  // namespace tallybrook
