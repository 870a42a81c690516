// Where the program keeps its files, where it puts those that are not whole yet, and where volumes begin.

#include "runtime/DataHome.h"
#include "runtime/MountedVolumes.h"
#include "runtime/UnfinishedFile.h"
#include "support/FileCalls.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

/// A variable of the environment with another value, or with none, as long as the object lives.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* const before = std::getenv(name))
            before_ = before;
        set(value);
    }
    ~Variable() { set(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value) const {
        if (value != nullptr)
            setenv(name_, value, 1);
        else
            unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

TEST(DataHome, IsBelowTheUsersDataHomeOrHome) {
    const Variable home("HOME", "/home/kim");
    const auto folderWith = [](const char* dataHome) {
        const Variable variable("XDG_DATA_HOME", dataHome);
        return defaultDataFolder();
    };
    EXPECT_EQ(folderWith("/data/kim"), "/data/kim/Tallybrook");
    for (const char* none : {static_cast<const char*>(nullptr), "", "data/kim"})
        EXPECT_EQ(folderWith(none), "/home/kim/.local/share/Tallybrook");
    const Variable homeless("HOME", nullptr);
    EXPECT_EQ(folderWith(nullptr), "./.local/share/Tallybrook");
}

TEST(DataHome, NamesTheFilesOfAFolder) {
    EXPECT_EQ(logbookIn("/a"), "/a/Tallybrook_DB.mdb");
    EXPECT_EQ(lockIn("/a"), "/a/Tallybrook.lock");
    EXPECT_EQ(configurationIn("/a"), "/a/tbrkcfg.conf");
}

TEST(UnfinishedFiles, GoAwayUnlessTheyArePutInPlace) {
    const TemporaryFolder folder;
    const fs::path place = folder.path() / "report.txt";
    const fs::path beside = folder.path() / "report.txt.new";
    std::ofstream(place) << "old";
    std::ofstream(beside) << "of a run that was cut off";
    {
        const UnfinishedFile given(place);
        EXPECT_EQ(given.path(), beside);
        EXPECT_EQ(bytesOf(beside), "");
        std::ofstream(beside) << "half";
    }
    EXPECT_FALSE(fs::exists(beside));
    EXPECT_EQ(bytesOf(place), "old");
    {
        const UnfinishedFile given(place);
        std::ofstream(beside) << "whole";
        given.putInPlace();
    }
    EXPECT_FALSE(fs::exists(beside));
    EXPECT_EQ(bytesOf(place), "whole");
}

TEST(UnfinishedFiles, LeaveNothingOpen) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const TemporaryFolder folder;
    const auto before = openFiles();
    UnfinishedFile(folder.path() / "report.txt").putInPlace();
    EXPECT_EQ(openFiles(), before);
}

TEST(UnfinishedFiles, AreOnTheDiskBeforeTheyGetTheirNameAndTheirNameIsAfterwards) {
    const TemporaryFolder folder;
    const fs::path place = folder.path() / "report.txt";
    const UnfinishedFile unfinished(place);
    std::string calls;
    {
        const FileCalls watching([&calls](const FileCall& call) {
            if (call.kind == FileCall::Kind::Sync)
                calls += "sync " + call.path + "\n";
            if (call.kind == FileCall::Kind::Rename)
                calls += "rename " + call.path + "\n";
            return 0;
        });
        unfinished.putInPlace();
    }
    const std::string made = unfinished.path().string();
    EXPECT_EQ(calls, "sync " + made + "\nrename " + made + "\nsync " + folder.path().string() + "\n");
}

TEST(UnfinishedFiles, GetTheirNameOnTheDiskInTheCurrentFolderToo) {
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    std::string last;
    {
        const FileCalls watching([&last](const FileCall& call) {
            if (call.kind == FileCall::Kind::Sync)
                last = call.path;
            return 0;
        });
        UnfinishedFile("report.txt").putInPlace();
    }
    fs::current_path(before);
    EXPECT_EQ(last, folder.path().string());
}

TEST(Volumes, AreWhatLiesOnDevicesAndServers) {
    const TemporaryFolder folder;
    const std::string base = folder.path().string();
    for (const char* name : {"disk", "a stick", "server", "share", "proc", "back\\slash", "blank ", "cut\\"})
        fs::create_directory(folder.path() / name);
    std::istringstream table("/dev/sdb1 " + base + "/disk ext4 rw 0 0\n" +            //
                             "/dev/sdc1 " + base + "/a\\040stick vfat rw 0 0\n" +     //
                             "/dev/sdd1 " + base + "/back\\134slash vfat rw 0 0\n" +  //
                             "/dev/sdf1 " + base + "/blank\\040 vfat rw 0 0\n" +      //
                             "/dev/sdg1 " + base + "/cut\\ vfat rw 0 0\n" +           //
                             "host:/home " + base + "/server nfs rw 0 0\n" +          //
                             "//host/share " + base + "/share cifs rw 0 0\n" +        //
                             "/dev/sdb1 " + base + "/disk ext4 ro 0 0\n" +            //
                             "proc " + base + "/proc proc rw 0 0\n" +                 //
                             "/dev/sde1 " + base + "/gone ext4 rw 0 0\n");
    EXPECT_EQ(volumesIn(table),
              (std::vector<std::string>{"/", base + "/a stick", base + "/back\\slash", base + "/blank ",
                                        base + "/cut\\", base + "/disk", base + "/server", base + "/share"}));
}

TEST(Volumes, AreReadWhereTheSystemTellsOfThem) {
    std::vector<std::string> read;
    {
        const FileCalls calls([&read](const FileCall& call) {
            if (call.kind == FileCall::Kind::Open)
                read.push_back(call.path);
            return 0;
        });
        mountedVolumes();
    }
    EXPECT_EQ(read, std::vector<std::string>{"/proc/self/mounts"});
    std::ifstream table("/proc/self/mounts");
    EXPECT_EQ(mountedVolumes(), volumesIn(table));
}

}  // namespace

}  // namespace tallybrook::test
