#pragma once

#include "viewer/ReportPicture.h"
#include "viewer/ReportText.h"

#include <QMarginsF>

class QPagedPaintDevice;
class QPageSize;

namespace tallybrook {

/// The margins of a page, in millimetres.
constexpr QMarginsF kPageMargins(15, 15, 15, 15);

/// Draws a report on pages, as many as it takes: a header with the file's name and the page's number, below
/// it the text in its fixed-width font, scaled down so that the widest line fits as far as it stays readable.
/// The pictures follow. Where the device has page ranges, only those
/// pages. Returns false where the device does not take it.
bool drawPages(const ReportText& report, const std::vector<ReportPicture>& pictures,
               QPagedPaintDevice& device);

/// Writes a report as a PDF with pages of a size. What the file held before stays if anything fails;
/// FileFailure then.
void writePdf(const ReportText& report, const std::vector<ReportPicture>& pictures, const QPageSize& paper,
              const QString& file);

}  // namespace tallybrook
