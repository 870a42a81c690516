#include "JetWriter.h"
#include "carry/JetHeader.h"

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
    EXPECT_EQ(refusalOf(JetKind::Readable), "");
    for (const JetKind kind : {JetKind::NoDatabase, JetKind::OtherVariant, JetKind::Access2007, JetKind::Jet3,
                               JetKind::Encoded, JetKind::Password, JetKind::CutOff, JetKind::TooLarge})
        EXPECT_TRUE(refusalOf(kind).ends_with('.'));
}

/// The mask of all such files, as it has been told of them.
TEST(JetHeader, IsMaskedAsThoseFilesAre) {
    const std::string file = test::jetFile({});
    EXPECT_EQ(file.substr(0x3E, 4), "\xFB\x8A\xBC\x4E");
}

}  // namespace

}  // namespace tallybrook::carry
