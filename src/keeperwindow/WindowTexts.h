#pragma once

#include "keeper/BackupList.h"

#include <QString>

// What the window writes.
namespace tallybrook::keeper {

/// A text of the core, which is UTF-8 and has lines that end in CR LF or LF.
QString shown(const std::string& text);

/// As much of a text as any display has room for in a row.
QString inRow(const std::string& text);

/// As in "Sunday, November 22, 2026, 8:15 PM".
QString momentText(DateTime time);

/// As in "52 events · 153 games · last night 5/31/2026 · 1.2 MB".
QString contentsText(const BackupEntry& entry);

/// The first letter as a capital, and a full stop behind.
QString sentence(const std::string& text);

}  // namespace tallybrook::keeper
