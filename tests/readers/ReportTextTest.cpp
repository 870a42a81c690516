#include "Files.h"
#include "readers/FileFailure.h"
#include "readers/ReportText.h"

#include <filesystem>

namespace tallybrook::test {

namespace {

/// The reason why a file cannot be read; empty if it can.
QString refusal(const QString& file) {
    try {
        readReport(file);
        return {};
    } catch (const FileFailure& failure) {
        EXPECT_EQ(failure.what(), failure.reason().toStdString());
        return failure.reason();
    }
}

}  // namespace

TEST(ReportText, IsReadAsUtf8) {
    EXPECT_EQ(textOf("Jos\xC3\xA9 \xE2\x80\x93 \xF0\x9F\x8E\xB3"), QString::fromUtf8("José – 🎳"));
    EXPECT_EQ(textOf(""), "");
}

TEST(ReportText, IsReadAsWindows1252WhereItIsNoUtf8) {
    EXPECT_EQ(textOf("Jos\xE9 \x96 \x80"), QString::fromUtf8("José – €"));
    EXPECT_EQ(textOf("Jos\xC3\xA9 \x96"), QString::fromUtf8("JosÃ© –"));
}

TEST(ReportText, PassesOverAByteOrderMark) {
    EXPECT_EQ(textOf("\xEF\xBB\xBFGame"), "Game");
    EXPECT_EQ(textOf("\xEF\xBB\xBFJos\xE9"), QString::fromUtf8("José"));
    EXPECT_EQ(textOf("\xEF\xBB\xBF"), "");
}

TEST(ReportText, EndsItsLinesInOneWay) {
    EXPECT_EQ(textOf("a\r\nb\nc\rd\r\n"), "a\nb\nc\nd\n");
    EXPECT_EQ(textOf("a\r\n\r\nb"), "a\n\nb");
    EXPECT_EQ(textOf("a\r\rb\n\nc"), "a\n\nb\n\nc");
    EXPECT_EQ(textOf("\n"), "\n");
    EXPECT_EQ(textOf("a\xE2\x80\xA8z\xE2\x80\xA9z"), "a\nz\nz");
}

TEST(ReportText, KeepsItsTabsAndBlanks) {
    EXPECT_EQ(textOf("1\t\t2 \xC2\xA0 3\t"), QString("1\t\t2 ") + QChar(0xA0) + " 3\t");
}

TEST(ReportText, ShowsWhatCannotBeShownAsSuch) {
    const QChar mark(QChar::ReplacementCharacter);
    EXPECT_EQ(textOf({"a\0b\x1B[1m\x7F", 8}), QString("a%1b%1[1m%1").arg(mark));
    EXPECT_EQ(textOf("\x81"), QString(mark));
    EXPECT_EQ(textOf("\xEF\xB7\x90\xEF\xB7\x91"), QString(2, mark));
}

TEST(ReportText, ShowsAllElse) {
    const QChar mark(QChar::ReplacementCharacter);
    const auto shown = [](int number) { return textOf(QString(QChar(number)).toStdString()); };
    for (const int number : {0x01, 0x08, 0x0B, 0x1F, 0x7F, 0x80, 0x9F, 0xFDD0, 0xFDD1})
        EXPECT_EQ(shown(number), QString(mark)) << number;
    for (const int number : {0x09, 0x20, 0x7E, 0xA0, 0xFDCF, 0xFDD2})
        EXPECT_EQ(shown(number), QString(QChar(number))) << number;
}

TEST(ReportText, IsATextAsLongAsFewOfItsBytesAreStray) {
    Files files;
    const auto isText = [&files](char stray, int count, int size) {
        return refusal(files.write("any.txt", QByteArray(count, stray) + QByteArray(size - count, 'x')))
            .isEmpty();
    };
    for (const char usual : {'\b', '\t', '\n', '\v', '\f', '\r', '\x1B', ' ', '\x7F', '\x80', '\xFF'})
        EXPECT_TRUE(isText(usual, 100, 100)) << static_cast<int>(usual);
    for (const char stray : {'\0', '\a', '\x0E', '\x1A', '\x1C', '\x1F'}) {
        EXPECT_FALSE(isText(stray, 2, 200)) << static_cast<int>(stray);
        EXPECT_TRUE(isText(stray, 2, 201)) << static_cast<int>(stray);
    }
    EXPECT_TRUE(isText('\0', 1, 0x10000)) << "that is as far as anybody looks";
    EXPECT_TRUE(
        refusal(files.write("any.txt", QByteArray(0x10000, 'x') + QByteArray(0x10000, '\0'))).isEmpty());
}

TEST(ReportText, ContinuesEndlessLines) {
    const std::string line(2 * kLongestLine, 'x');
    const QString whole(kLongestLine, 'x');
    EXPECT_EQ(textOf(line), whole + "\n" + whole);
    EXPECT_EQ(textOf(line.substr(kLongestLine) + "\r\n"), whole + "\n");
    const QString pair = textOf(line.substr(kLongestLine + 1) + "\xF0\x9F\x8E\xB3" + "y");
    EXPECT_EQ(pair.right(4), QString::fromUtf8("🎳\ny"));
}

TEST(ReportText, IsReadFromAFile) {
    Files files;
    const ReportText report = readReport(files.write("League Night.txt", "1\t2\r\n"));
    EXPECT_EQ(report.text, "1\t2\n");
    EXPECT_EQ(report.file, files.path("League Night.txt"));
    EXPECT_EQ(report.name(), "League Night.txt");
    EXPECT_EQ(readReport(files.write("empty.txt", "")).text, "");
}

TEST(ReportText, TellsWhyAFileCannotBeRead) {
    const Files files;
    EXPECT_EQ(refusal(files.path("missing.txt")), "There is no such file.");
    EXPECT_EQ(refusal(""), "There is no such file.");
    EXPECT_EQ(refusal(files.folder()), "It is a folder.");
    EXPECT_EQ(refusal(files.pipe("pipe")), "It is a device and not a file.");
    EXPECT_EQ(refusal("/dev/zero"), "It is a device and not a file.");
    EXPECT_EQ(refusal("/proc/self/mem"), "Input/output error.");
}

TEST(ReportText, IsNotReadWhereItIsTooLarge) {
    Files files;
    const QString file = files.write("large.txt", "");
    std::filesystem::resize_file(file.toStdString(), kLargestReport + 1);
    EXPECT_EQ(refusal(file), "The file is too large.");
}

}  // namespace tallybrook::test
