#include "paper/Paper.h"

#include <QLocale>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

constexpr std::array kLetterTerritories{
    QLocale::Belize,      QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
    QLocale::ElSalvador,  QLocale::Guatemala,  QLocale::Mexico,       QLocale::Nicaragua, QLocale::Panama,
    QLocale::Philippines, QLocale::PuertoRico, QLocale::UnitedStates, QLocale::Venezuela};

/// What names the locale for paper, the strongest first.
constexpr std::array kVariables{"LC_ALL", "LC_PAPER", "LANG"};

}  // namespace

QPageSize paperOf(const QLocale& locale) {
    const bool isLetter =
        std::ranges::find(kLetterTerritories, locale.territory()) != kLetterTerritories.end();
    return {isLetter ? QPageSize::Letter : QPageSize::A4};
}

QPageSize usersPaper() {
    for (const char* const variable : kVariables) {
        if (const QString name = qEnvironmentVariable(variable); !name.isEmpty())
            return paperOf(QLocale(name));
    }
    return paperOf(QLocale::system());
}

QString nameOf(const QPageSize& paper) {
    return paper.id() == QPageSize::Letter ? QString("Letter") : paper.name();
}

}  // namespace tallybrook
