#include "runtime/Clock.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "support/Anybody.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <chrono>
#include <ctime>
#include <fstream>
#include <functional>
#include <iterator>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class TextFiles : public testing::Test {
protected:
    void put(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }
    std::string bytes() const { return test::bytesOf(file); }
    std::vector<std::string> lines() const {
        std::vector<std::string> read;
        for (TextReader reader(file); !reader.atEnd();)
            read.push_back(reader.readLine());
        return read;
    }
    static int faultOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& failure) {
            return failure.number();
        }
        return 0;
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "text.txt";
};

using Lines = std::vector<std::string>;

TEST_F(TextFiles, AreReadWhateverEndsTheirLines) {
    put("one\r\ntwo\nthree\rfour\n\n\r\nlast");
    EXPECT_EQ(lines(), (Lines{"one", "two", "three", "four", "", "", "last"}));
    put("ended\r\n");
    EXPECT_EQ(lines(), Lines{"ended"});
    put("");
    EXPECT_TRUE(lines().empty());
    put("\xEF\xBB\xBFmarked\n");
    EXPECT_EQ(lines(), Lines{"marked"});
}

TEST_F(TextFiles, AreReadAsTheyAreEncoded) {
    put("Z\xC3\xBCrich\n");
    EXPECT_EQ(lines(), Lines{"Z\u00fcrich"});
    EXPECT_EQ(TextReader(file).encoding(), Encoding::Utf8);
    put("Z\xFCrich \x80 \x99\n");
    EXPECT_EQ(lines(), Lines{"Z\u00fcrich \u20ac \u2122"});
    EXPECT_EQ(TextReader(file).encoding(), Encoding::Windows1252);
}

TEST_F(TextFiles, KeepEveryByteOfWindows1252) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(encoded(decoded(all, Encoding::Windows1252), Encoding::Windows1252), all);
    EXPECT_EQ(encoded("\u4e2d", Encoding::Windows1252), "?");
    EXPECT_EQ(encoded("\u0080\u009f\u00a0", Encoding::Windows1252), "??\xA0");
}

TEST_F(TextFiles, AreWrittenWithTheirLineEnds) {
    TextWriter writer(file);
    writer.writeLine("one");
    writer.write("t");
    writer.writeLine("wo");
    writer.close();
    writer.close();
    EXPECT_EQ(bytes(), "one\r\ntwo\r\n");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    TextWriter more(file, TextWriter::Mode::Append, Encoding::Windows1252);
    more.writeLine("\u00fc");
    more.close();
    EXPECT_EQ(bytes(), "one\r\ntwo\r\n\xFC\r\n");
    TextWriter(file).close();
    EXPECT_EQ(bytes(), "");
}

// A comment of several lines.
TEST_F(TextFiles, EndTheLinesWithinATextAsAllOthers) {
    TextWriter writer(file);
    writer.writeLine("one\ntwo\rthree\r\nfour\n\rfive\n");
    writer.writeLine("\r\nsix");
    writer.close();
    EXPECT_EQ(bytes(), "one\r\ntwo\r\nthree\r\nfour\r\n\r\nfive\r\n\r\n\r\nsix\r\n");
}

TEST_F(TextFiles, AreReadByOthersWhileTheyAreOpenOnceFlushed) {
    TextWriter writer(file);
    writer.writeLine("one");
    writer.flush();
    EXPECT_EQ(bytes(), "one\r\n");
    writer.writeLine("two");
    writer.close();
    EXPECT_EQ(bytes(), "one\r\ntwo\r\n");
}

TEST_F(TextFiles, ReadBackWhatWasWritten) {
    EXPECT_TRUE(rc::check([this](const std::vector<std::string>& wanted) {
        Lines written;
        TextWriter writer(file);
        for (const std::string& line : wanted) {
            std::string clean = decoded(line, Encoding::Windows1252);
            std::erase_if(clean, [](char c) { return c == '\r' || c == '\n'; });
            writer.writeLine(clean);
            written.push_back(clean);
        }
        writer.close();
        RC_ASSERT(lines() == written);
    }));
}

TEST(Characters, AreTakenOneByOne) {
    const std::string text = "a\u00fc\u20ac\U0001F3B3";
    EXPECT_EQ(charactersOf(text), U"a\u00fc\u20ac\U0001F3B3");
    EXPECT_EQ(textOf(charactersOf(text)), text);
    EXPECT_EQ(charactersOf("x\xFFy"), U"x\uFFFDy");
    EXPECT_EQ(charactersOf(std::string(1, '\0')), std::u32string(1, U'\0'));
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        const std::string clean = decoded(bytes, Encoding::Windows1252);
        RC_ASSERT(charactersOf(clean).size() == bytes.size());
        RC_ASSERT(textOf(charactersOf(clean)) == clean);
    }));
}

TEST_F(TextFiles, FailByNumber) {
    const fs::path nowhere = folder.path() / "none" / "text.txt";
    EXPECT_EQ(faultOf([&] { TextReader reader(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { TextReader reader("a name that no file has"); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { TextReader reader(nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { TextReader reader(folder.path()); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { TextWriter writer(nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { TextWriter writer(folder.path()); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { copyFile(file, folder.path() / "copy"); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { copyFile(file, nowhere); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { deleteFile(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { fileLength(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { fileDate(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { fileDate(folder.path()); }), error::kFileNotFound);
    put("one\n");
    EXPECT_EQ(faultOf([&] { copyFile(file, nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { copyFile(file, folder.path()); }), error::kPermissionDenied);
    for (const fs::path& same : {file, folder.path() / "." / file.filename()})
        EXPECT_EQ(faultOf([&] { copyFile(file, same); }), error::kPermissionDenied) << same;
    EXPECT_EQ(lines(), Lines{"one"});
    TextReader reader(file);
    reader.readLine();
    EXPECT_EQ(faultOf([&] { reader.readLine(); }), error::kInputPastEndOfFile);
    reader.close();
    EXPECT_EQ(faultOf([&] { static_cast<void>(reader.atEnd()); }), error::kBadFileNameOrNumber);
    TextWriter writer(file);
    writer.close();
    EXPECT_EQ(faultOf([&] { writer.writeLine("late"); }), error::kBadFileNameOrNumber);
    EXPECT_EQ(faultOf([&] { writer.flush(); }), error::kBadFileNameOrNumber);
}

TEST_F(TextFiles, TellOfAFullDisk) {
    put("some text");
    const fs::path other = folder.path() / "other.txt";
    const auto writeOne = [](TextWriter& writer) { writer.writeLine("no room"); };
    for (const int why : {ENOSPC, EFBIG, EDQUOT}) {
        const test::FileCalls full(
            [why](const test::FileCall& call) { return call.kind == test::FileCall::Kind::Write ? why : 0; });
        for (const auto bring : {&TextWriter::flush, &TextWriter::close}) {
            TextWriter writer(other);
            writeOne(writer);
            EXPECT_EQ(faultOf([&] { (writer.*bring)(); }), error::kDiskFull);
        }
        EXPECT_EQ(faultOf([&] { copyFile(file, other); }), error::kDiskFull);
        EXPECT_EQ(faultOf([&] { replaceFile(file, writeOne); }), error::kDiskFull);
    }
    EXPECT_EQ(bytes(), "some text");
}

TEST_F(TextFiles, AreCopiedMeasuredAndDeleted) {
    put("12345");
    const fs::path copy = folder.path() / "copy";
    fs::permissions(file, fs::perms::group_read | fs::perms::others_read, fs::perm_options::add);
    copyFile(file, copy);
    EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fileLength(copy), 5U);
    EXPECT_GT(fileDate(copy), makeDate(2020, 1, 1));
    EXPECT_TRUE(fileExists(copy));
    EXPECT_FALSE(fileExists(folder.path()));
    deleteFile(copy);
    EXPECT_FALSE(fileExists(copy));
}

TEST_F(TextFiles, AreReadAndCopiedToTheirEnd) {
    const std::string text(200'000, 'x');
    put(text + "\r\nlast");
    const fs::path copy = folder.path() / "copy";
    copyFile(file, copy);
    for (const fs::path& read : {file, copy}) {
        TextReader lines(read);
        EXPECT_EQ(lines.readLine(), text);
        EXPECT_EQ(lines.readLine(), "last");
    }
}

TEST_F(TextFiles, BearTheDateOnWhichTheyWereWritten) {
    put("old");
    constexpr std::time_t kWritten = 1'000'000'000;
    const auto written = std::chrono::system_clock::from_time_t(kWritten);
    fs::last_write_time(file, std::chrono::file_clock::from_sys(written));
    EXPECT_EQ(fileDate(file), localTime(kWritten));
}

TEST_F(TextFiles, AreReplacedByACopyWhole) {
    put("the new one");
    const fs::path target = folder.path() / "target";
    std::ofstream(target) << "a longer one that was there before";
    fs::permissions(target, fs::perms::owner_all | fs::perms::group_read);
    copyFile(file, target);
    EXPECT_EQ(TextReader(target).readLine(), "the new one");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_all | fs::perms::group_read);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);  // and nothing unfinished
}

TEST_F(TextFiles, LeaveWhatWasThereWhereACopyFails) {
    put("the new one");
    const fs::path target = folder.path() / "target";
    std::ofstream(target) << "what was there";
    fs::create_directories(folder.path() / "target.new" / "in the way");
    EXPECT_EQ(faultOf([&] { copyFile(file, target); }), error::kPermissionDenied);
    EXPECT_EQ(TextReader(target).readLine(), "what was there");
}

// In a folder of others, what bears the name of an unfinished file may be theirs, and stays.
TEST_F(TextFiles, AreNotWrittenIntoWhatCannotBeRemoved) {
    const fs::path inTheWay = file.string() + ".new";
    std::ofstream(inTheWay) << "somebody's";
    fs::permissions(inTheWay, fs::perms::all);
    constexpr auto kRead = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    constexpr auto kEnter = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(folder.path(), kRead | kEnter);
    EXPECT_EQ(test::asAnybody([this] {
                  return std::to_string(faultOf(
                      [&] { replaceFile(file, [](TextWriter& writer) { writer.writeLine("one"); }); }));
              }),
              std::to_string(error::kPathFileAccess));
    EXPECT_EQ(TextReader(inTheWay).readLine(), "somebody's");
    fs::permissions(folder.path(), fs::perms::owner_all);
}

}  // namespace

}  // namespace tallybrook
