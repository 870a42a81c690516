#pragma once

#include "readers/ReportText.h"

namespace tallybrook {

/// What stands on top of each page.
struct ReportHead {
    QString title;  ///< as in "Statistical Report - All Events"; the file's name where the text tells none
    QString date;   ///< of the report; empty where the text tells none
};

ReportHead headOf(const ReportText& report);

}  // namespace tallybrook
