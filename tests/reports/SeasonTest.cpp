#include "ReportPlay.h"
#include "SourceFolder.h"

#include <fstream>
#include <sstream>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

// A season of twelve events with its reports, which tests/models/write_season.py has worked out from the
// rules by itself.
class Season : public testing::Test {
protected:
    Season() {
        for (const char* table : {"tblEventInfo", "tblGameInfo", "tblFrameInfo"})
            fill(table);
    }

    void fill(const std::string& table) {
        std::ifstream lines(kFolder / (table + ".tsv"));
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        const std::vector<std::string> fields = cells(line);
        while (std::getline(lines, line)) {
            const std::vector<std::string> values = cells(line);
            ASSERT_EQ(values.size(), fields.size()) << line;
            ReportPlay::Fields row;
            for (std::size_t i = 1; i < fields.size(); ++i)  // the key is given by the store
                row.emplace_back(fields[i], values[i]);
            play.insert(table, row);
        }
    }
    static std::vector<std::string> cells(const std::string& line) {
        std::vector<std::string> found{""};
        for (const char c : line) {
            if (c == '\t')
                found.emplace_back();
            else
                found.back() += c;
        }
        return found;
    }
    static std::string expected(const char* report) {
        return bytesOf(kFolder / (std::string(report) + ".txt"));
    }
    static inline const fs::path kFolder = fs::path(TALLYBROOK_SOURCE_DIR) / "tests" / "reports" / "season";

    ReportPlay play;
};

TEST_F(Season, HasItsReports) {
    const auto event = [&](const char* kind) {
        return play.report({.kind = kind, .filter = "Season", .eventKey = 5});
    };
    EXPECT_TRUE(isSameText(event("Full"), expected("full")));
    EXPECT_TRUE(isSameText(event("Summary"), expected("summary")));
    EXPECT_TRUE(isSameText(play.statistics(), expected("statistics")));
    EXPECT_TRUE(isSameText(play.report({.kind = "Statistics", .evType = "League"}), expected("league")));
}

}  // namespace

}  // namespace tallybrook::test
