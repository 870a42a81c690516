#pragma once

#include <QByteArray>
#include <QList>
#include <QPageSize>
#include <QSize>

namespace tallybrook::test {

/// Whether the pages of a PDF have the size of a paper.
inline bool isOnPaper(const QByteArray& pdf, QPageSize::PageSizeId paper) {
    const QByteArray begin = "/MediaBox [";
    const qsizetype at = pdf.indexOf(begin) + begin.size();
    const QList<QByteArray> sides = pdf.mid(at, pdf.indexOf(']', at) - at).simplified().split(' ');
    return QSizeF(sides.value(2).toDouble(), sides.value(3).toDouble()) ==
           QSizeF(QPageSize::sizePoints(paper));
}

}  // namespace tallybrook::test
