#pragma once

#include <QPageSize>
#include <QString>

class QLocale;

// What reports are printed on.
namespace tallybrook {

/// The paper that people use where a locale is: Letter in much of America, A4 everywhere else.
QPageSize paperOf(const QLocale& locale);

/// The paper where the user is: by what the environment says about paper, and otherwise by the system's
/// locale.
QPageSize usersPaper();

/// A paper's short name, as in "A4" or "Letter".
QString nameOf(const QPageSize& paper);

}  // namespace tallybrook
