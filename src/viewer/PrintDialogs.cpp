#include "viewer/PrintDialogs.h"

#include "viewer/Boxes.h"
#include "viewer/BusyPointer.h"
#include "viewer/FileFailure.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace tallybrook {

namespace {

/// Gets a printer ready for a report.
void setUp(QPrinter& printer, const ReportText& report) {
    printer.setDocName(report.name());
    printer.setCreator("Tallybrook");
    printer.setPageMargins(kPageMargins, QPageLayout::Millimeter);
}

bool drawBusily(const ReportText& report, Parts parts, QPrinter& printer) {
    const BusyPointer busy;
    return drawPages(report, parts, printer);
}

void drawOrTell(const ReportText& report, Parts parts, QPrinter& printer, QWidget& window) {
    if (!drawBusily(report, parts, printer))
        tellFailure(&window, "The report cannot be printed:", report.file, "The printer does not take it.");
}

QString pdfBeside(const QString& file) {
    const QFileInfo info(file);
    return info.dir().filePath(info.completeBaseName() + ".pdf");
}

}  // namespace

void printReport(const ReportText& report, Parts parts, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, report);
    QPrintDialog dialog(&printer, &window);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return;
    drawOrTell(report, parts, printer, window);
}

void previewReport(const ReportText& report, Parts parts, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, report);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowTitle("Print Preview - " + report.name());
    dialog.resize(window.size());
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&](QPrinter* paper) { drawOrTell(report, parts, *paper, dialog); });
    dialog.exec();
}

void exportReport(const ReportText& report, Parts parts, QWidget& window) {
    QFileDialog dialog(&window, "Export as PDF", {}, "PDF Files (*.pdf)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("pdf");
    dialog.selectFile(pdfBeside(report.file));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().value(0);
    try {
        const BusyPointer busy;
        writePdf(report, parts, file);
    } catch (const FileFailure& failure) {
        tellFailure(&window, "The report cannot be exported as a PDF:", file, failure.reason());
    }
}

}  // namespace tallybrook
