#include "desktop/QtText.h"

#include "runtime/TextCompare.h"

#include <QStringDecoder>
#include <QTextDocument>

namespace tallybrook {

QString toQt(const std::string& text) {
    // A mark of the byte order at the beginning is a character like any other.
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

QString linesToQt(const std::string& text) {
    return toQt(text).replace("\r\n", "\n").replace('\r', '\n');
}

QString inOneLine(const std::string& text, std::size_t most) {
    return linesToQt(std::string(firstCharacters(text, most))).replace('\n', ' ');
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
