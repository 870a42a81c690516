#include "style/Settings.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

class Settings : public testing::Test {
protected:
    Settings() {
        qputenv("XDG_CONFIG_HOME", folder.path().c_str());
        fs::create_directory(file.parent_path());
    }

    /// What is kept lasts as long as the settings, at least.
    static void expectKept(const char* value) {
        const std::unique_ptr<QSettings> settings = settingsOf("Windows");
        settings->setValue("place", value);
        settings->sync();
        EXPECT_EQ(settings->value("place").toString(), value);
    }
    [[nodiscard]] Files filesThere() const {
        Files found;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
            if (entry.is_regular_file())
                found[entry.path().lexically_relative(folder.path()).string()] = bytesOf(entry.path());
        }
        return found;
    }

    TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook" / "Windows.conf";
};

TEST_F(Settings, LastLongerThanTheProgram) {
    expectKept("left");
    EXPECT_EQ(settingsOf("Windows")->value("place").toString(), "left");
}

TEST_F(Settings, MayLieElsewhere) {
    fs::create_directory(folder.path() / "kept");
    fs::create_symlink(folder.path() / "kept" / "Windows.conf", file);
    std::ofstream(folder.path() / "kept" / "Windows.conf").flush();
    expectKept("right");
    EXPECT_EQ(bytesOf(folder.path() / "kept" / "Windows.conf"), "[General]\nplace=right\n");
}

TEST_F(Settings, WriteOverNoOtherFile) {
    const fs::path logbook = folder.path() / "Tallybrook_DB.mdb";
    std::ofstream(logbook) << "thirty years";
    fs::create_symlink(logbook, file);
    expectKept("left");
    EXPECT_EQ(filesThere(),
              (Files{{"Tallybrook_DB.mdb", "thirty years"}, {"Tallybrook/Windows.conf", "thirty years"}}));
}

TEST_F(Settings, MakeNothingWhereALinkLeadsNowhere) {
    fs::create_symlink(folder.path() / "nowhere", file);
    expectKept("left");
    EXPECT_EQ(filesThere(), Files{});
}

TEST_F(Settings, DoNotWaitForAFifo) {
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    expectKept("left");
    EXPECT_EQ(fs::status(file).type(), fs::file_type::fifo);
}

}  // namespace

}  // namespace tallybrook::test
