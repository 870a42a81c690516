#include "JetWriter.h"
#include "carry/JetHeader.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::carry {

namespace {

JetKind kindWith(const test::JetHeaderText& header) {
    const std::string file = test::jetFile({}, header);
    return kindOf(std::string_view(file).substr(0, kPageSize), file.size());
}

TEST(JetHeader, TellsWhatAFileIs) {
    EXPECT_EQ(kindWith({}), JetKind::Readable);
    EXPECT_EQ(kindWith({.version = 0}), JetKind::Jet3);
    EXPECT_EQ(kindWith({.version = 2}), JetKind::Access2007);
    EXPECT_EQ(kindWith({.mark = "Standard ACE DB", .version = 3}), JetKind::Access2007);
    EXPECT_EQ(kindWith({.mark = "MSISAM Database"}), JetKind::OtherVariant);
    EXPECT_EQ(kindWith({.mark = "Another DB"}), JetKind::NoDatabase);
    EXPECT_EQ(kindWith({.key = 0x12345678}), JetKind::Encoded);
    EXPECT_EQ(kindWith({.password = u"strike"}), JetKind::Password);
    EXPECT_EQ(kindWith({.key = 1, .password = u"x"}), JetKind::Encoded);
}

TEST(JetHeader, TellsAFileWithoutItsEnd) {
    const std::string file = test::jetFile({});
    EXPECT_EQ(kindOf(std::string_view(file).substr(0, kPageSize), file.size() - 1), JetKind::CutOff);
    EXPECT_EQ(kindOf(std::string_view(file).substr(0, 100), 100), JetKind::CutOff);
    EXPECT_EQ(kindOf(std::string_view(file).substr(0, 10), 10), JetKind::NoDatabase);
    EXPECT_EQ(kindOf({}, 0), JetKind::NoDatabase);
    EXPECT_EQ(kindOf(std::string_view(file).substr(0, kPageSize), std::uintmax_t{1} << 33U),
              JetKind::TooLarge);
}

TEST(JetHeader, SaysWhatCanBeDone) {
    const std::vector<std::pair<JetKind, std::string>> refusals{
        {JetKind::Readable, ""},
        {JetKind::NoDatabase,
         "The file is no Access database. Please choose the old logbook, whose name ends in .mdb."},
        {JetKind::OtherVariant,
         "The file is a database of another program (MSISAM), not an Access database."},
        {JetKind::Access2007,
         "The file is an Access database of 2007 or later (ACE). Please save it in Access as a database of "
         "Access 2000 or of Access 2002-2003 (.mdb), and carry that over."},
        {JetKind::Jet3,
         "The file is an Access database of 97 or earlier (Jet 3). Please save it in Access as a database of "
         "Access 2000 or of Access 2002-2003 (.mdb), and carry that over."},
        {JetKind::Encoded, "The file is encrypted. Please decrypt it in Access, and carry that over."},
        {JetKind::Password,
         "The file is protected by a password. Please remove the password in Access, and carry that over."},
        {JetKind::CutOff, "The end of the file is missing. Please look for another copy of it."},
        {JetKind::TooLarge,
         "The file is larger than an Access database can be. Please look for another copy of it."}};
    for (const auto& [kind, words] : refusals)
        EXPECT_EQ(refusalOf(kind), words);
}

/// The mask of all such files, as it has been told of them.
TEST(JetHeader, IsMaskedAsThoseFilesAre) {
    const std::string file = test::jetFile({});
    EXPECT_EQ(file.substr(0x3E, 4), "\xFB\x8A\xBC\x4E");
}

}  // namespace

}  // namespace tallybrook::carry
