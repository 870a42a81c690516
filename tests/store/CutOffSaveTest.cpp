// A save was cut off, and its journal, by which it is undone, or the logbook itself is damaged: both stay as
// they are, to the byte, unless what comes of them is sound.

#include "store/CutOffASave.h"
#include "store/Store.h"
#include "store/file/CutOffSave.h"
#include "store/file/Journal.h"
#include "support/Rounds.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <cstdint>
#include <map>
#include <random>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace tallybrook {

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

class CutOffSave : public testing::Test {
protected:
    CutOffSave() {
        { const Store made(file, clock); }
        SQLite::Database(file.string(), SQLite::OPEN_READWRITE)
            .exec(
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200) "
                "INSERT INTO tblEventInfo (fldEventName, fldDateBowled, fldCenterName, fldComment) "
                "SELECT 'Event ' || i, '2026-11-04', 'Lanes ' || i, printf('%.200c', 'a') FROM n");
        whole = test::bytesOf(file);
        test::cutOffASave(file,
                          "UPDATE tblEventInfo SET fldComment = 'changed', fldCenterName = 'Elsewhere'");
        changed = test::bytesOf(file);
        journal = test::bytesOf(journalOf(file));
        EXPECT_NE(changed, whole);
        EXPECT_GT(journal.size(), 10000U);
    }

    void put(const std::string& logbook, const std::string& journalBytes) const {
        std::ofstream(file, std::ios::binary) << logbook;
        std::ofstream(journalOf(file), std::ios::binary) << journalBytes;
    }
    [[nodiscard]] Files files() const {
        Files found;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            found[entry.path().filename().string()] = test::bytesOf(entry.path());
        return found;
    }
    [[nodiscard]] std::string refusal() const {
        try {
            const Store store(file, clock);
        } catch (const LogbookRefused& refused) {
            return refused.what();
        }
        return "";
    }
    /// Where the last records begin that the engine had counted; those behind may not be needed.
    [[nodiscard]] std::size_t lastHead() const { return journal.rfind("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7"); }
    /// Opens what lies there: it is undone to the last byte, or refused and left alone. True if it was
    /// refused.
    [[nodiscard]] bool isLeftAlone() const {
        const Files before = files();
        const std::string text = refusal();
        if (text.empty()) {
            EXPECT_EQ(files(), (Files{{file.filename().string(), whole}}));
            return false;
        }
        EXPECT_NE(text.find(file.string()), std::string::npos) << text;
        EXPECT_NE(text.find("Please "), std::string::npos) << text;
        EXPECT_TRUE(files() == before) << text;
        return true;
    }

    /// The same where a wrong byte may come back that no checksum counts: what is opened is sound in itself.
    [[nodiscard]] bool isSoundOrLeftAlone() const {
        const Files before = files();
        const std::string text = refusal();
        if (!text.empty()) {
            EXPECT_TRUE(files() == before) << text;
            return false;
        }
        EXPECT_EQ(files().size(), 1U) << "a journal or a trial is left behind";
        SQLite::Database opened(file.string());
        EXPECT_EQ(opened.execAndGet("PRAGMA integrity_check").getString(), "ok");
        EXPECT_GE(opened.execAndGet("SELECT COUNT(*) FROM tblEventInfo").getInt(), 0);
        return true;
    }

    test::TemporaryFolder folder;
    fs::path file = folder.path() / "Tallybrook_DB.mdb";
    SettableClock clock{makeDate(2026, 11, 14)};
    std::string whole;    // as the last save left it
    std::string changed;  // as the next one was cut off
    std::string journal;
};

/// Where a record's page is looked at for its checksum: every 200 bytes from its end on.
bool isSummed(std::size_t atInPage, std::size_t pageSize) {
    return atInPage > 0 && (pageSize - atInPage) % 200 == 0;
}

TEST_F(CutOffSave, IsUndoneWithoutLitter) {
    EXPECT_FALSE(isLeftAlone());
}

TEST_F(CutOffSave, IsLeftAloneWhereItsJournalIsDamagedSoThatItShows) {
    constexpr std::size_t kSector = 512;
    constexpr std::size_t kPage = 4096;
    int refused = 0;
    // The first head: its mark, the records it counts, their nonce, the pages, the sizes.
    for (const std::size_t at :
         {0U, 1U, 7U, 8U, 9U, 10U, 11U, 12U, 15U, 16U, 17U, 18U, 19U, 20U, 21U, 22U, 23U, 24U, 26U}) {
        std::string bytes = journal;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x21);
        put(changed, bytes);
        EXPECT_TRUE(isLeftAlone()) << at;
        ++refused;
    }
    // The first record: its page's number, what counts of its contents, its checksum.
    for (std::size_t at = 0; at < kPage + 8; ++at) {
        if (at >= 4 && at < kPage + 4 && !isSummed(at - 4, kPage))
            continue;
        std::string bytes = journal;
        bytes[kSector + at] = static_cast<char>(bytes[kSector + at] ^ 0x10);
        put(changed, bytes);
        EXPECT_TRUE(isLeftAlone()) << at;
        ++refused;
    }
    EXPECT_EQ(refused, 19 + 8 + 20);
}

TEST_F(CutOffSave, IsLeftAloneWhereItsJournalIsCutShort) {
    for (std::size_t size = 600; size < journal.size(); size += 2931) {
        put(changed, journal.substr(0, size));
        EXPECT_TRUE(isLeftAlone() || size > lastHead()) << size;
    }
}

TEST_F(CutOffSave, IsLeftAloneWhereAPageOfItsJournalIsNonsense) {
    constexpr std::size_t kPage = 4096;
    for (std::size_t at = 0; at < journal.size(); at += kPage) {
        const std::size_t count = std::min(kPage, journal.size() - at);
        put(changed, std::string(journal).replace(at, count, count, '\x7f'));
        EXPECT_TRUE(isLeftAlone() || at > lastHead()) << at;
    }
}

TEST_F(CutOffSave, IsUndoneOrLeftAloneWhereverAByteOfTheJournalsHeadsIsWrong) {
    constexpr int kRounds = 60;
    std::mt19937 random(20261114);
    int refused = 0;
    for (int round = 0; round < kRounds; ++round) {
        std::string bytes = journal;
        const std::size_t at = random() % 28;
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
        put(changed, bytes);
        refused += isLeftAlone() ? 1 : 0;
    }
    EXPECT_GT(refused, kRounds / 2);  // few bits of a head may be wrong and nothing come of it
}

TEST_F(CutOffSave, IsLeftAloneWhereTheLogbookIsDamagedToo) {
    // A page that the save had not changed, so that the journal does not bring it back.
    constexpr std::size_t kPage = 4096;
    const std::size_t last = changed.size() / kPage - 1;
    int refused = 0;
    for (std::size_t page = 1; page <= last; ++page) {
        put(std::string(changed).replace(page * kPage, kPage, kPage, '\x7f'), journal);
        refused += isLeftAlone() ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
}

/// Ways in which a file comes to harm.
using Damage = void (*)(std::string& bytes, std::mt19937& random);

constexpr std::size_t kHarmedPage = 4096;

std::size_t placeIn(const std::string& bytes, std::mt19937& random) {
    return random() % bytes.size();
}

constexpr Damage kDamages[] = {
    [](std::string& bytes, std::mt19937& random) {
        const std::size_t at = placeIn(bytes, random);
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
    },
    [](std::string& bytes, std::mt19937& random) {
        bytes.replace(placeIn(bytes, random), 1 + random() % 64, 1 + random() % 64,
                      static_cast<char>(random()));
    },
    [](std::string& bytes, std::mt19937& random) {
        const std::size_t at = placeIn(bytes, random) / kHarmedPage * kHarmedPage;
        const std::size_t count = std::min(kHarmedPage, bytes.size() - at);
        bytes.replace(at, count, count, static_cast<char>(random()));
    },
    [](std::string& bytes, std::mt19937& random) {
        const std::string page =
            bytes.substr(placeIn(bytes, random) / kHarmedPage * kHarmedPage, kHarmedPage);
        bytes.replace(placeIn(bytes, random) / kHarmedPage * kHarmedPage, page.size(), page);
    },
    [](std::string& bytes, std::mt19937& random) { bytes.resize(1 + placeIn(bytes, random)); },
    [](std::string& bytes, std::mt19937& random) {
        bytes.append(1 + random() % 9000, static_cast<char>(random()));
    },
};

TEST_F(CutOffSave, IsUndoneSoundlyOrLeftAloneHoweverBothAreDamaged) {
    std::mt19937 random(test::seedOr(20261122));
    int refused = 0;
    const int rounds = test::roundsOr(60);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Files harmed{{"logbook", changed}, {"journal", journal}};
        for (std::size_t count = 1 + random() % 3; count > 0; --count)
            kDamages[random() % std::size(kDamages)](harmed[random() % 2 == 0 ? "logbook" : "journal"],
                                                     random);
        put(harmed["logbook"], harmed["journal"]);
        refused += isSoundOrLeftAlone() ? 0 : 1;
    }
    EXPECT_GT(refused, rounds / 4);
    EXPECT_LT(refused, rounds) << "nothing is undone";
}

TEST_F(CutOffSave, IsUndoneThoughAnEarlierTrialWasCutOff) {
    for (const fs::path& copy : copiesForTrial(file))
        std::ofstream(copy, std::ios::binary) << "half a copy";
    EXPECT_FALSE(isLeftAlone());
}

TEST_F(CutOffSave, LeavesNoTrialBehindWhereTheJournalIsGone) {
    fs::remove(journalOf(file));
    std::ofstream(file, std::ios::binary) << whole;
    for (const fs::path& copy : copiesForTrial(file))
        std::ofstream(copy, std::ios::binary) << "half a copy";
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(files(), (Files{{file.filename().string(), whole}}));
}

TEST_F(CutOffSave, OfAProgramThatDoesNotWaitForTheDiskIsUndone) {
    fs::remove(journalOf(file));
    std::ofstream(file, std::ios::binary) << whole;
    test::cutOff(file, "-journal", "PRAGMA synchronous = OFF; PRAGMA cache_size = 0; BEGIN",
                 "UPDATE tblEventInfo SET fldComment = 'changed'");
    ASSERT_EQ(test::bytesOf(journalOf(file)).substr(8, 4), "\xff\xff\xff\xff") << "its records are counted";
    EXPECT_NE(test::bytesOf(file), whole);
    EXPECT_FALSE(isLeftAlone());
}

TEST_F(CutOffSave, ThatHadNotReachedTheDiskIsNone) {
    // As the engine leaves it before the logbook itself is touched: mark and count are not written yet.
    put(whole, std::string(12, '\0') + journal.substr(12));
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(test::bytesOf(file), whole);
}

TEST_F(CutOffSave, IsNotUndoneWithoutRoomForTheTrial) {
    fs::create_directory(copiesForTrial(file).front());
    std::ofstream(copiesForTrial(file).front() / "in the way").flush();
    const std::string text = refusal();
    EXPECT_NE(text.find("room on the disk"), std::string::npos) << text;
    EXPECT_EQ(test::bytesOf(file), changed);
    EXPECT_EQ(test::bytesOf(journalOf(file)), journal);
    EXPECT_FALSE(fs::exists(copiesForTrial(file).at(1))) << "the copy of the journal is left behind";
}

class ChangesOfOthers : public CutOffSave {
protected:
    ChangesOfOthers() {
        fs::remove(journalOf(file));
        std::ofstream(file, std::ios::binary) << whole;
    }
};

TEST_F(ChangesOfOthers, AreTakenIn) {
    test::cutOffOtherProgram(file, "DELETE FROM tblEventInfo WHERE fldSessionNum > 7");
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(files().size(), 1U);
    EXPECT_EQ(SQLite::Database(file.string()).execAndGet("SELECT COUNT(*) FROM tblEventInfo").getInt(), 7);
}

TEST_F(ChangesOfOthers, ThatPutAViewInATablesPlaceAreRefused) {
    test::cutOffOtherProgram(file,
                             "DROP TABLE tblFrameInfo; CREATE VIEW tblFrameInfo AS WITH RECURSIVE n(i) AS "
                             "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i AS fldSessionNum FROM n");
    EXPECT_TRUE(isLeftAlone());
}

TEST_F(ChangesOfOthers, OfANewerSchemaAreRefused) {
    test::cutOffOtherProgram(file, "PRAGMA user_version = 99");
    const Files before = files();
    EXPECT_NE(refusal().find("newer"), std::string::npos) << refusal();
    EXPECT_TRUE(files() == before);
}

TEST_F(ChangesOfOthers, ThatAreDamagedTooAreLeftAlone) {
    test::cutOffOtherProgram(file, "UPDATE tblEventInfo SET fldComment = 'changed'");
    std::string bytes = test::bytesOf(file);
    std::ofstream(file, std::ios::binary) << bytes.substr(0, bytes.size() - 4096);
    std::string changes = test::bytesOf(writeAheadOf(file));
    std::ofstream(writeAheadOf(file), std::ios::binary) << changes.replace(4096, 4096, 4096, '\x7f');
    const Files before = files();
    EXPECT_NE(refusal(), "");
    EXPECT_TRUE(files() == before);
}

}  // namespace

}  // namespace tallybrook
