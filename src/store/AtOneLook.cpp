#include "store/AtOneLook.h"

#include "store/file/Connection.h"
#include "store/file/StoredValue.h"

#include <limits>
#include <type_traits>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// What `look` finds; nothing where something fails. A failure that has undone what was stored before must
/// not be passed over, and is raised.
template <typename Look>
std::invoke_result_t<Look> unlessItFails(Store& store, Look look) {
    store.noteWork();
    const Connection& connection = store.connection();
    const bool wasWithin = connection.isWithinTransaction();
    return onFile([&]() -> std::invoke_result_t<Look> {
        try {
            return look();
        } catch (const std::exception&) {
            // The failure has changed it meanwhile.
            // cppcheck-suppress incorrectLogicOperator
            if (wasWithin && !connection.isWithinTransaction())
                throw;
            return std::nullopt;
        }
    });
}

GameOverview gameIn(const Statement& row) {
    GameOverview game{.number = valueIn(row.column(0), FieldType::Number16),
                      .scoreType = valueIn(row.column(1), FieldType::Text),
                      .framesRecorded = valueIn(row.column(2), FieldType::Number16),
                      .frames = static_cast<int>(row.number(3)),
                      .firstBall = std::nullopt};
    if (game.frames > 0)
        game.firstBall = valueIn(row.column(4), FieldType::Text);
    return game;
}

/// As every statement compares a number: a value of another kind is no hit, whatever the column makes of it.
std::string isNumber(const std::string& column, const std::string& number) {
    return fmt::format("({0} = {1} AND typeof({0}) IN ('integer', 'real'))", column, number);
}

std::string framesOfGame(const std::string& what) {
    return fmt::format("(SELECT {} FROM tblFrameInfo AS frame WHERE {} AND {}", what,
                       isNumber("frame.fldSessionNum", "?1"),
                       isNumber("frame.fldGameNum", "+game.fldGameNum"));
}

}  // namespace

std::optional<int> rowsAllOfEvents(Store& store, const std::string& table) {
    return unlessItFails(store, [&]() -> std::optional<int> {
        const std::string sql = fmt::format(
            "SELECT sum(rows), sum(rows) FILTER (WHERE typeof(event) = 'integer' AND event BETWEEN -?1 - 1 "
            "AND ?1 AND "
            "EXISTS (SELECT 1 FROM tblEventInfo WHERE {})) FROM "
            "(SELECT fldSessionNum AS event, count(*) AS rows FROM {} GROUP BY fldSessionNum)",
            isNumber("fldSessionNum", "+event"), table);
        Statement::Use counts(store.connection().prepared(sql));
        counts->bind(1, std::int64_t{std::numeric_limits<std::int32_t>::max()});
        counts->executeStep();
        const auto rows = static_cast<int>(counts->number(0));
        return rows > 0 && rows == counts->number(1) ? std::optional(rows) : std::nullopt;
    });
}

std::optional<std::vector<GameOverview>> gamesAtOneLook(Store& store, Int32 eventKey) {
    return unlessItFails(store, [&]() -> std::optional<std::vector<GameOverview>> {
        static const std::string kSql = fmt::format(
            "SELECT fldGameNum, fldScoreType, fldFrmsRecorded, {}), {} ORDER BY fldFrameNum, fldFrameKey "
            "LIMIT 1) "
            "FROM tblGameInfo AS game WHERE {} ORDER BY fldGameNum, fldGameKey",
            framesOfGame("count(*)"), framesOfGame("fldFirstBallRes"), isNumber("fldSessionNum", "?1"));
        Statement::Use row(store.connection().prepared(kSql));
        row->bind(1, valueOf(eventKey));
        std::vector<GameOverview> games;
        while (row->executeStep())
            games.push_back(gameIn(*row));
        return games;
    });
}

}  // namespace tallybrook
