// A link stands where a file is written. What it leads to stays as it is: the name is replaced, and never the
// target.

#include "runtime/InstanceLock.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextFile.h"
#include "runtime/UnfinishedFile.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <ostream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

/// A second name for a file.
struct Link {
    const char* name;
    void (*make)(const fs::path& target, const fs::path& link);

    friend std::ostream& operator<<(std::ostream& out, const Link& link) { return out << link.name; }
};

class Links : public testing::TestWithParam<Link> {
protected:
    Links() {
        std::ofstream(target) << kTreasure;
        GetParam().make(target, link);
    }
    ~Links() override {
        EXPECT_EQ(bytesOf(target), kTreasure);
        EXPECT_FALSE(fs::exists(UnfinishedFile::nameFor(link)));
    }
    Links(const Links&) = delete;
    Links& operator=(const Links&) = delete;

    void expectReplacedBy(const std::string& bytes) const {
        EXPECT_EQ(bytesOf(link), bytes);
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(link)));
        EXPECT_FALSE(fs::equivalent(link, target));
    }
    static void writeOne(TextWriter& writer) { writer.writeLine("one"); }

    static inline const std::string kTreasure = "what must not be lost";
    TemporaryFolder folder;
    fs::path target = folder.path() / "treasure";
    fs::path link = folder.path() / "text.txt";
};

TEST_P(Links, GiveWayToAFileThatIsWritten) {
    TextWriter writer(link);
    writeOne(writer);
    writer.close();
    expectReplacedBy("one\r\n");
}

TEST_P(Links, GiveWayToAFileThatIsReplaced) {
    replaceFile(link, writeOne);
    expectReplacedBy("one\r\n");
}

TEST_P(Links, GiveWayToACopy) {
    const fs::path source = folder.path() / "source";
    std::ofstream(source) << "one";
    fs::permissions(target, fs::perms::owner_all);
    copyFile(source, link);
    expectReplacedBy("one");
}

TEST_P(Links, GiveWayUnderTheNameOfAnUnfinishedFile) {
    const fs::path file = folder.path() / "file";
    fs::rename(link, UnfinishedFile::nameFor(file));
    replaceFile(file, writeOne);
    EXPECT_EQ(bytesOf(file), "one\r\n");
    const fs::path copy = folder.path() / "copy";
    GetParam().make(target, UnfinishedFile::nameFor(copy));
    copyFile(file, copy);
    EXPECT_EQ(bytesOf(copy), "one\r\n");
}

TEST_P(Links, AreReadAsWhatTheyLeadTo) {
    EXPECT_EQ(TextReader(link).readLine(), kTreasure);
    copyFile(link, folder.path() / "copy");
    EXPECT_EQ(bytesOf(folder.path() / "copy"), kTreasure);
}

constexpr Link kLinks[] = {
    {"HardLink", [](const fs::path& target, const fs::path& link) { fs::create_hard_link(target, link); }},
    {"SymbolicLink", [](const fs::path& target, const fs::path& link) { fs::create_symlink(target, link); }}};

INSTANTIATE_TEST_SUITE_P(Of, Links, testing::ValuesIn(kLinks),
                         [](const auto& tested) { return tested.param.name; });

/// The number of what a call raises, or 0.
template <typename Call>
int faultOf(Call call) {
    try {
        call();
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
    return 0;
}

class SymbolicLink : public testing::Test {
protected:
    TemporaryFolder folder;
    fs::path link = folder.path() / "text.txt";
};

// Not even whether others may read what takes its place.
TEST_F(SymbolicLink, TellsNothingOfACopyInItsPlace) {
    const fs::path target = folder.path() / "treasure";
    const fs::path source = folder.path() / "source";
    for (const fs::path& file : {target, source})
        std::ofstream(file) << "one";
    fs::permissions(target, fs::perms::all);
    fs::create_symlink(target, link);
    copyFile(source, link);
    EXPECT_EQ(fs::symlink_status(link).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// What stood in the file must go on standing in front, so its name cannot be taken.
TEST_F(SymbolicLink, IsNotAddedTo) {
    const fs::path target = folder.path() / "treasure";
    std::ofstream(target) << "whole";
    fs::create_symlink(target, link);
    EXPECT_EQ(faultOf([&] { const TextWriter writer(link, TextWriter::Mode::Append); }),
              error::kPathFileAccess);
    EXPECT_EQ(bytesOf(target), "whole");
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(SymbolicLink, ToNothingMakesNothingElsewhere) {
    const fs::path nowhere = folder.path() / "nowhere";
    fs::create_symlink(nowhere, link);
    EXPECT_EQ(faultOf([&] { const TextWriter writer(link, TextWriter::Mode::Append); }),
              error::kPathFileAccess);
    TextWriter(link).writeLine("one");
    EXPECT_EQ(bytesOf(link), "one\r\n");
    EXPECT_FALSE(fs::is_symlink(link));
    EXPECT_FALSE(fs::exists(nowhere));
}

TEST_F(SymbolicLink, ToNothingIsNoLock) {
    fs::create_symlink(folder.path() / "nowhere", link);
    EXPECT_EQ(faultOf([&] { const InstanceLock lock(link); }), error::kPathFileAccess);
    EXPECT_FALSE(fs::exists(folder.path() / "nowhere"));
}

TEST_F(SymbolicLink, ToAFolderStays) {
    fs::create_directory_symlink(folder.path(), link);
    EXPECT_EQ(faultOf([&] { const TextWriter writer(link); }), error::kPathFileAccess);
    EXPECT_EQ(faultOf([&] { replaceFile(link, [](TextWriter&) {}); }), error::kPathFileAccess);
    EXPECT_TRUE(fs::is_symlink(link));
}

}  // namespace

}  // namespace tallybrook::test
