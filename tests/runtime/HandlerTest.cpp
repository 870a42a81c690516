#include "runtime/EndProgram.h"
#include "runtime/Handler.h"
#include "runtime/InstanceLock.h"
#include "runtime/Value.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

class Reports : public FailureReporter {
public:
    void databaseError(const RunTimeError& failure, std::string_view module) override {
        shown.push_back(std::to_string(failure.number()) + " " + std::string(module));
    }
    void retrying(std::string_view, int tries) override {
        retries = tries;
        if (tries == 100)
            throw EndHandler{};
    }
    std::vector<std::string> shown;
    int retries = 0;
};

void fail(int number) {
    throw RunTimeError(number);
}

TEST(Handler, TellsThatMemoryIsShort) {
    Reports reports;
    const Handler step(reports, "Here, Proc.");
    EXPECT_FALSE(step([] { throw std::bad_alloc{}; }));
    EXPECT_TRUE(step.test([]() -> bool { throw std::bad_alloc{}; }));
    EXPECT_EQ(reports.shown, (std::vector<std::string>{"7 Here, Proc.", "7 Here, Proc."}));
}

TEST(Handler, GoesOnAfterAFailedStatement) {
    Reports reports;
    const Handler step(reports, "Here, Proc.");
    int done = 0;
    EXPECT_TRUE(step([&] { ++done; }));
    EXPECT_FALSE(step([] { fail(error::kTypeMismatch); }));
    EXPECT_FALSE(step([] { fail(error::kNoCurrentRow); }));
    EXPECT_TRUE(step([&] { ++done; }));
    EXPECT_EQ(done, 2);
    EXPECT_EQ(reports.shown, (std::vector<std::string>{"13 Here, Proc.", "3021 Here, Proc."}));
}

TEST(Handler, RetriesOnNoCurrentRowAlone) {
    Reports reports;
    const Handler step(reports, "Here, Proc.", Retry::OnNoCurrentRow);
    int tries = 0;
    EXPECT_TRUE(step([&] {
        if (++tries < 50)
            fail(error::kNoCurrentRow);
    }));
    EXPECT_EQ(tries, 50);
    EXPECT_TRUE(reports.shown.empty());
    EXPECT_FALSE(step([] { fail(error::kOverflow); }));
    EXPECT_EQ(reports.shown.size(), 1U);
    EXPECT_THROW(step([] { fail(error::kNoCurrentRow); }), EndHandler);
    EXPECT_EQ(reports.retries, 100);
}

TEST(Handler, TakesAFailedConditionAsTrue) {
    Reports reports;
    const Handler step(reports, "Here, Proc.");
    EXPECT_TRUE(step.test([] { return true; }));
    EXPECT_FALSE(step.test([] { return false; }));
    EXPECT_TRUE(step.test([]() -> bool { throw RunTimeError(error::kObjectNotSet); }));
}

TEST(Handler, LetsTheEndOfTheProgramPass) {
    Reports reports;
    const Handler step(reports, "Here, Proc.", Retry::OnNoCurrentRow);
    EXPECT_THROW(step([] { throw EndProgram{}; }), EndProgram);
    EXPECT_TRUE(reports.shown.empty());
}

TEST(RunTimeError, HasItsUsualWords) {
    EXPECT_STREQ(RunTimeError(6).what(), "Overflow");
    EXPECT_STREQ(RunTimeError(91).what(), "Object variable or With block variable not set");
    EXPECT_STREQ(RunTimeError(12345).what(), "Application-defined or object-defined error");
}

int numberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
    return 0;
}

TEST(Value, IsConverted) {
    EXPECT_EQ(toText(Null{}), "");
    EXPECT_EQ(toText(std::int64_t{-3}), "-3");
    EXPECT_EQ(toText(200.5), "200.5");
    EXPECT_EQ(toText(makeDate(2026, 11, 4)), "11/4/2026");
    EXPECT_EQ(toInt16(Value{"12 lanes"}), Int16(12));
    EXPECT_EQ(toInt16(Value{2.5}), Int16(2));
    EXPECT_EQ(toDate(Value{2.0}, 2026), makeDate(1900, 1, 1));
    EXPECT_EQ(toDate(Value{"3/4"}, 2026), makeDate(2026, 3, 4));
    EXPECT_EQ(toDouble(Value{makeDate(1900, 1, 1)}), 2.0);
    EXPECT_EQ(leadingNumberOf(Null{}), 0);
    EXPECT_EQ(leadingNumberOf(std::int64_t{-3}), -3);
    EXPECT_EQ(leadingNumberOf(2.5), 2.5);
    EXPECT_EQ(leadingNumberOf("12 lanes"), 12);
    EXPECT_EQ(leadingNumberOf("lanes"), 0);
    EXPECT_EQ(leadingNumberOf(makeDate(2026, 11, 4)), 11);
    EXPECT_EQ(numberOf([] { toInt16(Value{Null{}}); }), error::kInvalidUseOfNull);
    EXPECT_EQ(numberOf([] { toDate(Value{Null{}}, 2026); }), error::kInvalidUseOfNull);
    EXPECT_EQ(numberOf([] { toInt16(Value{"40000"}); }), error::kOverflow);
    EXPECT_EQ(numberOf([] { toDate(Value{"x"}, 2026); }), error::kTypeMismatch);
    EXPECT_EQ(numberOf([] { toDate(Value{1e300}, 2026); }), error::kOverflow);
}

TEST(Value, IsJustThisTextOrNot) {
    EXPECT_TRUE(isText("Kim", "Kim"));
    EXPECT_FALSE(isText("Kim", "kim"));
    EXPECT_TRUE(isText(std::int64_t{12}, "12"));
    EXPECT_TRUE(isText(std::string(), ""));
    EXPECT_FALSE(isText(Null{}, ""));
}

TEST(Value, IsADateOfTheYears100To9999) {
    EXPECT_EQ(toDate(Value{-657434.0}, 2026), makeDate(100, 1, 1));
    EXPECT_EQ(toDate(Value{2958465.5}, 2026), makeDate(9999, 12, 31) + std::chrono::hours{12});
    for (const double beyond : {-657434.5, 2958466.0, std::nan("")})
        EXPECT_EQ(numberOf([beyond] { toDate(Value{beyond}, 2026); }), error::kOverflow) << beyond;
}

}  // namespace

}  // namespace tallybrook
