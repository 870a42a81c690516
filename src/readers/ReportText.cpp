#include "readers/ReportText.h"

#include "readers/Device.h"
#include "readers/FileFailure.h"
#include "runtime/TextEncoding.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <string>

#include <fcntl.h>

namespace tallybrook {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr QChar kReplacement(QChar::ReplacementCharacter);

QString decodedText(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    const auto asText = [](std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    };
    const Encoding encoding = encodingOf(bytes);
    return encoding == Encoding::Utf8 ? asText(bytes) : asText(decoded(bytes, encoding));
}

bool isLineEnd(QChar character) {
    return character == '\n' || character == '\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// Control characters, and the two characters that the toolkit keeps for itself.
bool cannotBeShown(QChar character) {
    const char16_t number = character.unicode();
    const bool isControl = number < 0x20 || (number >= 0x7F && number <= 0x9F);
    return (isControl && character != '\t') || number == 0xFDD0 || number == 0xFDD1;
}

/// Makes a text one that can be shown, with one kind of line ends, in the memory that it has.
void makeShowable(QString& text) {
    qsizetype end = 0;
    QChar before;
    for (QChar& one : text) {
        const QChar character = one;
        const bool isEndedAlready = character == '\n' && before == '\r';
        before = character;
        if (!isEndedAlready)
            text[end++] = isLineEnd(character)       ? QChar('\n')
                          : cannotBeShown(character) ? kReplacement
                                                     : character;
    }
    text.truncate(end);
}

/// Where a line that is too long is continued on the next one, from a place on; -1 where none is.
qsizetype breakAfter(const QString& text, qsizetype from) {
    qsizetype begin = from;
    for (qsizetype at = from; at < text.size(); ++at) {
        if (text[at] == '\n')
            begin = at + 1;
        else if (at - begin >= kLongestLine && !text[at].isLowSurrogate())
            return at;
    }
    return -1;
}

void breakLongLines(QString& text) {
    qsizetype from = 0;
    QString broken;
    for (qsizetype at = breakAfter(text, 0); at >= 0; at = breakAfter(text, at)) {
        broken += QStringView(text).sliced(from, at - from);
        broken += '\n';
        from = at;
    }
    if (from > 0)
        text = broken + text.mid(from);
}

/// Whether bytes are no text: one in a hundred, or more, is of a kind that texts do not have.
bool isBinary(QByteArrayView bytes) {
    constexpr qsizetype kLooked = qsizetype{64} * 1024;
    constexpr qsizetype kTextsOfStray = 100;
    const QByteArrayView looked = bytes.first(std::min(bytes.size(), kLooked));
    const auto strays = std::ranges::count_if(looked, [](char one) {
        return (one >= 0 && one < '\b') || (one > '\r' && one < ' ' && one != '\x1B');
    });
    return strays > 0 && strays * kTextsOfStray >= looked.size();
}

void requireReadable(const QFileInfo& file) {
    if (!file.exists())
        throw FileFailure("There is no such file.");
    if (file.isDir())
        throw FileFailure("It is a folder.");
    refuseDevice(file);
    if (file.size() > kLargestReport)
        throw FileFailure("The file is too large.");
}

/// Opens a file without waiting: a pipe may have taken its place since it was looked at.
void open(QFile& stream) {
    const QByteArray name = QFile::encodeName(stream.fileName());
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        throw FileFailure(qt_error_string() + ".");
    stream.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle);
    if (stream.isSequential())
        throw FileFailure("It is a device and not a file.");
}

}  // namespace

QString ReportText::name() const {
    return QFileInfo(file).fileName();
}

QString textOf(std::string_view bytes) {
    QString text = decodedText(bytes);
    makeShowable(text);
    breakLongLines(text);
    return text;
}

ReportText readReport(const QString& file) {
    requireReadable(QFileInfo(file));
    QFile stream(file);
    open(stream);
    const QByteArray bytes = stream.readAll();
    if (stream.error() != QFileDevice::NoError)
        throw FileFailure(stream.errorString() + ".");
    if (isBinary(bytes))
        throw FileFailure("It is no text, and a report is one.");
    return {file, textOf({bytes.constData(), static_cast<std::size_t>(bytes.size())})};
}

}  // namespace tallybrook
