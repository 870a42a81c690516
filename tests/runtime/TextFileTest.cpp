#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "support/TemporaryFolder.h"

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
    std::string bytes() const {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
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

TEST_F(TextFiles, FailByNumber) {
    const fs::path nowhere = folder.path() / "none" / "text.txt";
    EXPECT_EQ(faultOf([&] { TextReader reader(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { TextReader reader(nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { TextReader reader(folder.path()); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { TextWriter writer(nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { TextWriter writer(folder.path()); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { copyFile(file, folder.path() / "copy"); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { deleteFile(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { fileLength(file); }), error::kFileNotFound);
    EXPECT_EQ(faultOf([&] { fileDate(file); }), error::kFileNotFound);
    put("one\n");
    EXPECT_EQ(faultOf([&] { copyFile(file, nowhere); }), error::kPathNotFound);
    EXPECT_EQ(faultOf([&] { copyFile(file, folder.path()); }), error::kPermissionDenied);
    TextReader reader(file);
    reader.readLine();
    EXPECT_EQ(faultOf([&] { reader.readLine(); }), error::kInputPastEndOfFile);
    reader.close();
    EXPECT_EQ(faultOf([&] { static_cast<void>(reader.atEnd()); }), error::kBadFileNameOrNumber);
    TextWriter writer(file);
    writer.close();
    EXPECT_EQ(faultOf([&] { writer.writeLine("late"); }), error::kBadFileNameOrNumber);
}

TEST_F(TextFiles, TellOfAFullDisk) {
    if (!fs::exists("/dev/full"))
        FAIL() << "this machine has no device that is always full";
    TextWriter writer("/dev/full");
    EXPECT_EQ(faultOf([&] {
                  writer.writeLine("no room");
                  writer.close();
              }),
              error::kDiskFull);
}

TEST_F(TextFiles, AreCopiedMeasuredAndDeleted) {
    put("12345");
    const fs::path copy = folder.path() / "copy";
    copyFile(file, copy);
    EXPECT_EQ(fileLength(copy), 5U);
    EXPECT_GT(fileDate(copy), makeDate(2020, 1, 1));
    EXPECT_TRUE(fileExists(copy));
    EXPECT_FALSE(fileExists(folder.path()));
    deleteFile(copy);
    EXPECT_FALSE(fileExists(copy));
}

}  // namespace

}  // namespace tallybrook
