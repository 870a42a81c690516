#pragma once

#include "Golden.h"

#include <vector>

#include <rapidcheck.h>

namespace tallybrook::test {

/// Changes a text at a random place.
inline void mutate(QString& text) {
    static const std::vector<QString> kPieces{"\n",
                                              "\t",
                                              " ",
                                              "-",
                                              "%\t",
                                              "99999999999",
                                              "-1",
                                              "0",
                                              "X/X",
                                              "Line Score:\n",
                                              "\r\n",
                                              "7-10",
                                              ":",
                                              "   ",
                                              "Game 1   Game Score: 1   Starting Lane:\n",
                                              "Series (",
                                              " games):",
                                              QString(QChar(0xD800)),
                                              QString(QChar::Null),
                                              "٣"};
    const qsizetype at = *rc::gen::inRange<qsizetype>(0, text.size() + 1);
    const qsizetype length = *rc::gen::inRange<qsizetype>(0, 60);
    switch (*rc::gen::inRange(0, 4)) {
        case 0:
            text.remove(at, length);
            break;
        case 1:
            text.insert(at, *rc::gen::elementOf(kPieces));
            break;
        case 2:
            text.insert(*rc::gen::inRange<qsizetype>(0, text.size() + 1), text.mid(at, 8 * length));
            break;
        default:
            text.replace(at, 1, QChar(*rc::gen::arbitrary<char16_t>()));
    }
}

/// One of the program's reports, changed at some places and perhaps cut short.
inline QString mutatedReport() {
    static const std::vector<QString> kReports{goldenReport("statistics.txt"), goldenReport("league.txt"),
                                               goldenReport("full.txt"), goldenReport("summary.txt"),
                                               kGameReport};
    QString text = *rc::gen::elementOf(kReports);
    for (int count = *rc::gen::inRange(0, 30); count > 0; --count)
        mutate(text);
    return *rc::gen::inRange(0, 4) == 0 ? text.left(*rc::gen::inRange<qsizetype>(0, text.size() + 1)) : text;
}

}  // namespace tallybrook::test
