// Walks over the logbook, in which rows are read ahead, against SQLite asked event by event.

#include "store/Recordset.h"
#include "store/file/Connection.h"
#include "store/reading/PackedRows.h"
#include "support/TemporaryFolder.h"

#include <limits>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

TEST(Packed, RowsGiveBackWhatWasPutIn) {
    const std::vector<Value> values{Null{},
                                    std::int64_t{0},
                                    std::int64_t{255},
                                    std::int64_t{256},
                                    std::int64_t{-1},
                                    std::numeric_limits<std::int64_t>::min(),
                                    0.1,
                                    makeDate(1899, 12, 30),
                                    "",
                                    "3-6-10",
                                    std::string(248, 'a'),
                                    std::string(249, 'b'),
                                    std::string(250, 'c'),
                                    std::string(70000, 'd')};
    Projection projection;
    for (std::size_t field = 0; field < values.size(); ++field) {
        projection.fields.push_back(field);
        projection.places.emplace_back(field);
    }
    PackedRows rows(std::make_shared<const Projection>(std::move(projection)));
    for (const std::int64_t key : {std::int64_t{7}, std::int64_t{-7}}) {
        rows.addRow(key);
        for (const Value& value : values)
            std::visit([&rows](const auto& one) { rows.add(one); }, value);
    }
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows.key(1), -7);
    for (std::size_t field = 0; field < values.size(); ++field)
        EXPECT_EQ(rows.value(1, field), values[field]) << field;
}

constexpr int kEvents = 20;

/// A logbook of frames, among them some whose event and game are no whole numbers.
class Frames {
public:
    Frames() { database().exec("PRAGMA synchronous = OFF"); }

    /// Puts others in the place of those there are.
    void replace() {
        const auto number =
            rc::gen::map(rc::gen::inRange(1, kEvents + 1), [](int n) { return std::to_string(n); });
        const auto odd = rc::gen::element<std::string>("NULL", "'7'", "'x'", "3.5", "8.0", "x'37'");
        const auto session = rc::gen::weightedOneOf<std::string>({{9, number}, {1, odd}});
        const auto game = rc::gen::weightedOneOf<std::string>(
            {{9, rc::gen::element<std::string>("1", "2", "3")}, {1, odd}});
        SQLite::Transaction transaction(database());
        database().exec("DELETE FROM tblFrameInfo");
        for (int i = 0; i < 80; ++i)
            database().exec(
                fmt::format("INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum, fldLineScore) "
                            "VALUES ({}, {}, {}, 'score {}')",
                            *session, *game, *rc::gen::inRange(1, 13), i));
        transaction.commit();
        store.connection().noteKey(*findTable("tblFrameInfo"), database().getLastInsertRowid());
    }

    SQLite::Database& database() { return store.connection().database(); }

    /// What SQLite itself finds.
    std::vector<std::string> expected(const std::string& criteria) {
        SQLite::Statement found(
            database(), "SELECT fldFrameKey || ' ' || fldLineScore FROM tblFrameInfo WHERE " + criteria +
                            " ORDER BY fldFrameNum, fldFrameKey");
        std::vector<std::string> rows;
        while (found.executeStep())
            rows.push_back(found.getColumn(0).getString());
        return rows;
    }
    std::vector<std::string> found(const std::string& criteria) {
        Recordset rows(store);
        rows.Open("SELECT * FROM tblFrameInfo WHERE " + criteria + " ORDER BY fldFrameNum");
        std::vector<std::string> texts;
        for (; !rows.Eof(); rows.MoveNext())
            texts.push_back(toText(rows["fldFrameKey"]) + " " + toText(rows["fldLineScore"]));
        return texts;
    }

    /// Changes, adds or deletes a row of an event.
    void disturb(int event) {
        Recordset rows(store);
        rows.Open(fmt::format("SELECT * FROM tblFrameInfo WHERE fldSessionNum = {}", event));
        const int how = *rc::gen::inRange(0, 3);
        if (how == 0 || rows.Eof()) {
            rows.AddNew();
            rows["fldSessionNum"] = std::int64_t{event};
            rows["fldGameNum"] = std::int64_t{2};
            rows["fldLineScore"] = "added";
            rows.Update();
        } else if (how == 1) {
            rows["fldLineScore"] = "changed";
            rows.Update();
        } else {
            rows.Delete();
        }
    }

private:
    test::TemporaryFolder folder_;
    SettableClock clock_{makeDate(2026, 11, 14)};

public:
    Store store{folder_.path() / "Tallybrook_DB.mdb", clock_};
};

std::string wholeNumbers(const std::string& column, int value) {
    return fmt::format("{0} = {1} AND typeof({0}) IN ('integer', 'real')", column, value);
}

TEST(ReadingAhead, ChangesNothingInWhatAWalkFinds) {
    Frames frames;
    EXPECT_TRUE(rc::check("walks find what single questions find", [&] {
        frames.replace();
        for (int walk = 0; walk < 2; ++walk) {
            for (int event = 1; event <= kEvents; event += *rc::gen::weightedElement<int>({{6, 1}, {1, 3}})) {
                if (*rc::gen::inRange(0, 25) == 0)
                    frames.disturb(*rc::gen::inRange(1, kEvents + 1));
                const std::string ofEvent = wholeNumbers("fldSessionNum", event);
                for (int game = 1; game <= 3; ++game)
                    RC_ASSERT(
                        frames.found(fmt::format("fldSessionNum = {} AND fldGameNum = {}", event, game)) ==
                        frames.expected(ofEvent + " AND " + wholeNumbers("fldGameNum", game)));
                RC_ASSERT(frames.found(fmt::format("fldSessionNum = {}", event)) == frames.expected(ofEvent));
            }
        }
    }));
}

TEST(ReadingAhead, ShowsRowsAsTheyWereAtTheOpening) {
    Frames frames;
    EXPECT_TRUE(rc::check("rows of a walk stay as they were when it came to them", [&] {
        frames.replace();
        for (int event = 1; event <= 10; ++event)
            static_cast<void>(frames.found(fmt::format("fldSessionNum = {}", event)));
        const std::vector<std::string> before = frames.expected(wholeNumbers("fldSessionNum", 11));
        Recordset rows(frames.store);
        rows.Open("SELECT * FROM tblFrameInfo WHERE fldSessionNum = 11 ORDER BY fldFrameNum");
        for (int i = 0; i < 5; ++i)
            frames.disturb(11);
        RC_ASSERT(static_cast<std::size_t>(rows.RecordCount()) == before.size());
        for (const std::string& row : before) {
            RC_ASSERT(toText(rows["fldFrameKey"]) + " " + toText(rows["fldLineScore"]) == row);
            rows.MoveNext();
        }
    }));
}

}  // namespace

}  // namespace tallybrook
