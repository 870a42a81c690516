#include "desktop/QtText.h"

#include <QTextDocument>

namespace tallybrook {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

QString linesToQt(const std::string& text) {
    return toQt(text).replace("\r\n", "\n").replace('\r', '\n');
}

QString spoken(const std::string& caption) {
    QString text = toQt(caption).trimmed();
    for (qsizetype at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at + 1))
        text.remove(at, 1);  // of two in a row the second one stays
    return text;
}

QString unmarked(QString text) {
    return text.replace('&', "&&");
}

QString asTip(const std::string& text) {
    const QString plain = toQt(text);
    return Qt::mightBeRichText(plain) ? Qt::convertFromPlainText(plain) : plain;
}

}  // namespace tallybrook
