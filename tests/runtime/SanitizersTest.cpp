// What looks on while tests run does look: each of these mistakes ends the program, and would pass unnoticed
// otherwise.
#if defined(TALLYBROOK_SANITIZED)

#include <cstdlib>
#include <limits>
#include <new>
#include <optional>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

int* volatile block = nullptr;
volatile int number = 0;
volatile double decimal = 0;

/// Many blocks, as the address of the last may still stand somewhere.
void loseBlocks() {
    constexpr int kBlocks = 100;
    for (int made = 0; made < kBlocks; ++made)
        block = new int(made);
    block = nullptr;
    std::exit(0);
}

void readFreedBlock() {
    block = new int(1);
    delete block;
    number = *block;  // cppcheck-suppress deallocuse
}

void readBehindBlock() {
    block = new int[2]{1, 2};
    number = block[2];
}

void countTooFar() {
    number = std::numeric_limits<int>::max();
    number = number + 1;
}

void divideByZero() {
    decimal = 1 / decimal;
}

void readEmptyOptional() {
    const std::optional<int> empty;
    number = *empty;
}

/// A mistake, and what is told of it.
struct Mistake {
    const char* name;
    void (*make)();
    const char* told;
};

class Sanitizers : public testing::TestWithParam<Mistake> {};

bool hasFailed(int status) {
    return !testing::ExitedWithCode(0)(status);
}

}  // namespace

TEST_P(Sanitizers, EndTheProgram) {
    EXPECT_EXIT(GetParam().make(), hasFailed, GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(Of, Sanitizers,
                         testing::Values(Mistake{"LostBlocks", loseBlocks, "detected memory leaks"},
                                         Mistake{"FreedBlock", readFreedBlock, "heap-use-after-free"},
                                         Mistake{"BehindBlock", readBehindBlock, "heap-buffer-overflow"},
                                         Mistake{"TooFar", countTooFar, "signed integer overflow"},
                                         Mistake{"ByZero", divideByZero, "division by zero"},
                                         Mistake{"EmptyOptional", readEmptyOptional, "_M_is_engaged"}),
                         [](const auto& mistake) { return std::string(mistake.param.name); });

}  // namespace tallybrook::test

#endif
