#pragma once

#include <QString>

namespace tallybrook {

class ReportView;

/// From the first call on assistive programs take every view of a report for a text that they can read.
void announceHeardReports();

/// Tells them that a view has another text than before.
void tellOfText(ReportView& view, const QString& before);
/// Tells them that the caret of a view, or what is selected in it, has changed.
void tellOfSelection(ReportView& view);

}  // namespace tallybrook
