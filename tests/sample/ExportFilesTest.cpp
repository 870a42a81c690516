#include "Made.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextEncoding.h"
#include "support/FileCalls.h"

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace tallybrook::test {

namespace {

const Made& exportSample() {
    static const Made kMade(300, 21, true);
    return kMade;
}

/// The lines of a file as text in memory; each must end in CR LF.
std::vector<std::string> linesOf(const std::string& table) {
    const std::string text = decoded(exportSample().exportFile(table), Encoding::Windows1252);
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find("\r\n", at);
        EXPECT_NE(end, std::string::npos);
        lines.push_back(text.substr(at, end - at));
        EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
        at = end + 2;
    }
    return lines;
}

struct Layout {
    const char* file;
    const char* table;
    const char* form;  // of its records
};

/// The form of the fields of a record behind record ID and status: "n" for a number, "t" for a text between
/// quotes, "?" for anything else.
std::string formOf(std::string_view fields) {
    std::string form;
    while (!fields.empty()) {
        const bool isQuoted = fields.starts_with('"');
        const std::size_t end = isQuoted ? fields.find('"', 1) : fields.find(',');
        const std::string_view field = fields.substr(0, end);
        const bool isNumber =
            !field.empty() && field.find_first_not_of("0123456789.") == std::string_view::npos;
        form += isQuoted ? 't' : isNumber ? 'n' : '?';
        fields.remove_prefix(std::min(fields.size(), field.size() + (isQuoted ? 1 : 0)));
        if (!fields.empty() && !fields.starts_with(','))
            return form + "?";
        fields.remove_prefix(fields.empty() ? 0 : 1);
    }
    return form;
}

class ExportFile : public testing::TestWithParam<Layout> {};

TEST_P(ExportFile, HasItsHeaderAndARecordForEachRow) {
    const std::vector<std::string> lines = linesOf(GetParam().file);
    const int rows = exportSample().number(std::string("SELECT count(*) FROM ") + GetParam().table);
    ASSERT_EQ(static_cast<int>(lines.size()), rows + 2);
    EXPECT_EQ(lines[0], std::string("# ") + GetParam().file);
    EXPECT_EQ(lines[1].substr(0, 9), "# RECCNT=");
    EXPECT_EQ(lines[1].substr(9), std::to_string(rows));  // from column 10 on
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const auto& line) { return line[0] == '#'; }), 2);
}

TEST_P(ExportFile, HoldsRecordsOfOneForm) {
    const std::vector<std::string> lines = linesOf(GetParam().file);
    for (std::size_t i = 2; i < lines.size(); ++i) {
        ASSERT_EQ(lines[i].find_first_not_of("EGF0123456789ABCDEF"), 10U) << lines[i];
        ASSERT_EQ(lines[i].substr(10, 8), ",0x0000,") << lines[i];
        ASSERT_EQ(formOf(std::string_view(lines[i]).substr(18)), GetParam().form) << lines[i];
    }
}

// The reader takes a comma at the end of a text for the delimiter of the number behind it.
TEST_P(ExportFile, HasNoTextThatEndsInAComma) {
    EXPECT_EQ(exportSample().exportFile(GetParam().file).find(",\","), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(All, ExportFile,
                         testing::Values(Layout{"tblEvent", "tblEventInfo", "nttttttnnn"},
                                         Layout{"tblGame", "tblGameInfo", "nnnnnnnntttt"},
                                         Layout{"tblFrame", "tblFrameInfo", "nnnnnntttttttt"}),
                         [](const auto& layout) { return std::string(layout.param.file); });

TEST(ExportFiles, AreWrittenInTheHandheldsEncoding) {
    const std::string bytes = exportSample().exportFile("tblEvent");
    EXPECT_EQ(encodingOf(bytes), Encoding::Windows1252);
    EXPECT_NE(bytes.find("Bowlhaus Z\xFCrich"), std::string::npos);
}

TEST(ExportFiles, AreNotWrittenUnasked) {
    const Made made(3);
    for (const char* file : {"tblEvent.cdb", "tblGame.cdb", "tblFrame.cdb"})
        EXPECT_FALSE(std::filesystem::exists(made.folder() / file));
}

TEST(ExportFiles, ThatFindNoRoomLeaveNoLogbook) {
    const TemporaryFolder folder;
    const FileCalls full([](const FileCall& call) {
        return call.kind == FileCall::Kind::Write && call.path.ends_with("tblFrame.cdb") ? ENOSPC : 0;
    });
    EXPECT_THROW(sample::makeSample({.events = 1, .data = folder.path(), .cdb = true}), RunTimeError);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Tallybrook_DB.mdb"));
}

}  // namespace

}  // namespace tallybrook::test
