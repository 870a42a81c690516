#include "viewer/ReportText.h"

#include "runtime/TextEncoding.h"
#include "viewer/Device.h"
#include "viewer/FileFailure.h"

#include <QFile>
#include <QFileInfo>
#include <string>

#include <fcntl.h>

namespace tallybrook {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr QChar kReplacement(QChar::ReplacementCharacter);

QString decodedText(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    const std::string text = decoded(bytes, encodingOf(bytes));
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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

/// Writes a text character by character, as it is to be shown.
class Shown {
public:
    explicit Shown(qsizetype length) { text_.reserve(length); }

    void endLine() {
        text_ += '\n';
        length_ = 0;
    }
    void append(QChar character) {
        if (length_ >= kLongestLine && !character.isLowSurrogate())
            endLine();
        text_ += cannotBeShown(character) ? kReplacement : character;
        ++length_;
    }
    QString take() { return std::move(text_); }

private:
    QString text_;
    qsizetype length_ = 0;  // of the line that is being written
};

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
    const QString text = decodedText(bytes);
    Shown shown(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isLineEnd(text[at]))
            shown.append(text[at]);
        else if (text[at] != '\n' || at == 0 || text[at - 1] != '\r')  // the CR has ended the line already
            shown.endLine();
    }
    return shown.take();
}

ReportText readReport(const QString& file) {
    requireReadable(QFileInfo(file));
    QFile stream(file);
    open(stream);
    const QByteArray bytes = stream.readAll();
    if (stream.error() != QFileDevice::NoError)
        throw FileFailure(stream.errorString() + ".");
    return {file, textOf({bytes.constData(), static_cast<std::size_t>(bytes.size())})};
}

}  // namespace tallybrook
