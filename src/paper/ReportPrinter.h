#pragma once

#include "paper/Pages.h"
#include "pictures/ReportPicture.h"
#include "readers/ReportText.h"

#include <QMarginsF>
#include <optional>

class QPagedPaintDevice;
class QPageSize;

namespace tallybrook {

/// The margins of a page, in millimetres.
constexpr QMarginsF kPageMargins(15, 15, 15, 15);

/// What the pages of a report are called, for the outline of a PDF.
using Sections = std::vector<SectionPlace>;

/// Draws a report on pages, as many as it takes: above its title and date, below the file's name and the
/// page's number, between them the text in its fixed-width font, scaled down so that its widest line fits as
/// far as it stays readable. Comments are wrapped instead, and what belongs together stays on one page. The
/// pictures follow, on the last page of the text where there is room. Where the device has page ranges, only
/// those pages. Returns the sections, of which the pages count from 0; nothing where the device does not take
/// it.
std::optional<Sections> drawPages(const ReportText& report, const std::vector<ReportPicture>& pictures,
                                  QPagedPaintDevice& device);

/// Writes a report as a PDF with pages of a size, with a title and an outline of its sections. What the file
/// held before stays if anything fails; FileFailure then.
void writePdf(const ReportText& report, const std::vector<ReportPicture>& pictures, const QPageSize& paper,
              const QString& file);

}  // namespace tallybrook
