#include "runtime/RunTimeError.h"

#include <new>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

/// What people read beside each number.
const std::vector<std::pair<int, std::string>> kUsualWords{
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {13, "Type mismatch"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {94, "Invalid use of Null"},
    {32755, "Cancel was selected."},
    {3021,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
     "current "
     "record."},
    {3265, "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {3704, "Operation is not allowed when the object is closed."},
    {3705, "Operation is not allowed when the object is open."},
    {-2147217900, "The statement is not understood."},
    {-2147217904, "The statement names a column that does not exist."},
    {-2147217913, "Data type mismatch in criteria expression."},
    {-2147217887, "The field cannot take this value."},
    {-2147217864, "The row to be updated is gone."},
    {1, "Application-defined or object-defined error"},
    {340, "Application-defined or object-defined error"},
};

TEST(RunTimeErrors, SayTheUsualWordsOfTheirNumber) {
    for (const auto& [number, words] : kUsualWords) {
        EXPECT_EQ(RunTimeError(number).description(), words);
        EXPECT_EQ(RunTimeError(number).number(), number);
    }
}

TEST(RunTimeErrors, SayWordsOfTheirOwnWhereTheyAreGiven) {
    const RunTimeError failure(6, "too high a score");
    EXPECT_EQ(failure.number(), 6);
    EXPECT_EQ(failure.description(), "too high a score");
}

TEST(RunTimeErrors, TellOfMemoryThatIsNotThere) {
    EXPECT_EQ(withMemoryErrors([] { return 3; }), 3);
    try {
        withMemoryErrors([] { throw std::bad_alloc(); });
        ADD_FAILURE() << "no error";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), 7);
    }
}

}  // namespace

}  // namespace tallybrook
