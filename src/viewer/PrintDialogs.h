#pragma once

#include "paper/ReportPrinter.h"

#include <optional>

class QWidget;

// The ways of a report to paper. Each asks first, and tells its failures in a box.
namespace tallybrook {

/// Asks for a printer and its settings, and prints.
void printReport(const ReportText& report, const std::vector<ReportPicture>& pictures, QWidget& window);

/// Shows the pages as they would be printed.
void previewReport(const ReportText& report, const std::vector<ReportPicture>& pictures, QWidget& window);

/// Asks for a file, and writes the pages into it as a PDF. Returns the file; nothing where none was written.
std::optional<QString> exportReport(const ReportText& report, const std::vector<ReportPicture>& pictures,
                                    QWidget& window);

}  // namespace tallybrook
