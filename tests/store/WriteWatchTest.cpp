// What stands in a logbook's file is seen before it is written over.

#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "support/SameText.h"
#include "support/StoredEvents.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

class WriteWatches : public testing::Test {
protected:
    /// Opens the logbook; its saves do not wait for the disk.
    Store& open() {
        store.emplace(logbook, clock);
        store->connection().database().exec("PRAGMA synchronous = OFF");
        return *store;
    }
    /// Puts what is shown back into the bytes of the file as they are afterwards.
    [[nodiscard]] std::function<bool(std::int64_t, std::string_view)> collecting() {
        return [this](std::int64_t at, std::string_view bytes) {
            shown.emplace_back(static_cast<std::size_t>(at), bytes);
            return true;
        };
    }
    [[nodiscard]] std::string fileBefore(std::size_t size) const {
        std::string bytes = test::bytesOf(logbook);
        bytes.resize(std::max(bytes.size(), size));
        std::for_each(shown.rbegin(), shown.rend(), [&bytes](const auto& part) {
            bytes.replace(part.first, part.second.size(), part.second);
        });
        return bytes.substr(0, size);
    }
    void changeEvents() {
        Recordset events(*store);
        events.Open("SELECT * FROM tblEventInfo");
        for (; !events.Eof(); events.MoveNext()) {
            events["fldComment"] = std::string(50, 'x');
            events.Update();
        }
    }

    test::TemporaryFolder data;
    fs::path logbook = data.path() / "Tallybrook_DB.mdb";
    SystemClock clock;
    std::optional<Store> store;
    std::vector<std::pair<std::size_t, std::string>> shown;
};

TEST_F(WriteWatches, ShowWhatEverySaveWritesOver) {
    test::writeEvents(logbook, 300, clock);
    const std::string before = test::bytesOf(logbook);
    open().beforeOverwriting(collecting());
    changeEvents();
    EXPECT_FALSE(shown.empty());
    EXPECT_NE(test::bytesOf(logbook).substr(0, before.size()), before);
    EXPECT_EQ(fileBefore(before.size()), before);
}

/// A file that another program has told to give room back gets shorter with a save.
TEST_F(WriteWatches, ShowWhatIsCutOff) {
    test::writeEvents(logbook, 1000, clock);
    {
        SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA auto_vacuum = FULL");
        database.exec("VACUUM");
    }
    const std::string before = test::bytesOf(logbook);
    open().beforeOverwriting(collecting());
    Recordset events(*store);
    events.Open("SELECT * FROM tblEventInfo");
    for (int event = 0; event < 500; ++event) {
        events.Delete();
        events.MoveNext();
    }
    EXPECT_LT(fs::file_size(logbook), before.size());
    EXPECT_EQ(fileBefore(before.size()), before);
}

TEST_F(WriteWatches, EndWhenNoMoreIsWanted) {
    test::writeEvents(logbook, 3, clock);
    int calls = 0;
    open().beforeOverwriting([&calls](std::int64_t, std::string_view) { return ++calls < 2; });
    changeEvents();
    EXPECT_EQ(calls, 2);
    store->beforeOverwriting(collecting());
    store->beforeOverwriting({});
    changeEvents();
    EXPECT_TRUE(shown.empty());
}

}  // namespace

}  // namespace tallybrook
