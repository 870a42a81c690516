#include "carry/Messages.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::carry {

namespace {

Message again(const Message& message) {
    const std::string bytes = packed(message);
    if (sizeOfMessage(bytes) != bytes.size() - kMessageHead)
        throw NoMessage{};
    return unpacked(std::string_view(bytes).substr(kMessageHead));
}

TEST(Messages, ComeAsTheyWereSent) {
    const std::vector<Message> messages{
        TableBegins{.name = "tblEventInfo", .columns = {"a", "", "\u00fc"}, .toldRows = -1},
        RowFound{.cells = {Null{}, std::int64_t{-5}, 2.5, std::string("x\0y", 3), makeDate(2026, 11, 4),
                           Unreadable{"a picture"}}},
        RowFound{},
        TableEnds{.lostRows = 7},
        LinkedTable{.name = "t", .database = "D:\\x.mdb"},
        OtherTable{"Recipes"},
        ReadingFailed{"why"},
        ReadingEnds{}};
    for (const Message& message : messages)
        EXPECT_TRUE(again(message) == message) << message.index();
}

TEST(Messages, AreNoneWithoutTheirEndOrWithMore) {
    const std::string bytes =
        packed(RowFound{.cells = {std::string("text"), std::int64_t{1}}}).substr(kMessageHead);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_THROW(unpacked(bytes.substr(0, size)), NoMessage) << size;
    EXPECT_THROW(unpacked(bytes + 'x'), NoMessage);
    EXPECT_NO_THROW(unpacked(bytes));
}

TEST(Messages, HoldDatesOfFourDigitYears) {
    const auto sent = [](DateTime date) { return again(RowFound{.cells = {date}}); };
    const DateTime first = makeDate(1, 1, 1);
    const DateTime behindLast = makeDate(10000, 1, 1);
    for (const DateTime date : {first, behindLast - std::chrono::seconds{1}})
        EXPECT_TRUE(sent(date) == Message{RowFound{.cells = {date}}});
    EXPECT_THROW(sent(first - std::chrono::seconds{1}), NoMessage);
    EXPECT_THROW(sent(behindLast), NoMessage);
}

RC_GTEST_PROP(AnyBytes, AreAMessageOrNone, (const std::string& bytes)) {
    try {
        const Message message = unpacked(bytes);
        RC_ASSERT(packed(message).substr(kMessageHead) == bytes);
    } catch (const NoMessage&) {
        RC_SUCCEED("none");
    }
}

}  // namespace

}  // namespace tallybrook::carry
