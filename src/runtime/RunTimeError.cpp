#include "runtime/RunTimeError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tallybrook {

namespace {

using namespace error;

/// The usual words of each number.
constexpr std::array<std::pair<int, const char*>, 24> kWords{{
    {kInvalidProcedureCall, "Invalid procedure call or argument"},
    {kOverflow, "Overflow"},
    {kOutOfMemory, "Out of memory"},
    {kSubscriptOutOfRange, "Subscript out of range"},
    {kTypeMismatch, "Type mismatch"},
    {kBadFileNameOrNumber, "Bad file name or number"},
    {kFileNotFound, "File not found"},
    {kDiskFull, "Disk full"},
    {kInputPastEndOfFile, "Input past end of file"},
    {kPermissionDenied, "Permission denied"},
    {kPathFileAccess, "Path/File access error"},
    {kPathNotFound, "Path not found"},
    {kObjectNotSet, "Object variable or With block variable not set"},
    {kInvalidUseOfNull, "Invalid use of Null"},
    {kDialogCancelled, "Cancel was selected."},
    {kNoCurrentRow,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
     "current record."},
    {kUnknownField, "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {kObjectClosed, "Operation is not allowed when the object is closed."},
    {kObjectOpen, "Operation is not allowed when the object is open."},
    {kStatementNotUnderstood, "The statement is not understood."},
    {kUnknownColumn, "The statement names a column that does not exist."},
    {kCriteriaOfWrongType, "Data type mismatch in criteria expression."},
    {kValueNotTaken, "The field cannot take this value."},
    {kRowGone, "The row to be updated is gone."},
}};

std::string usualWords(int number) {
    const auto* const found = std::ranges::find(kWords, number, &std::pair<int, const char*>::first);
    return found == kWords.end() ? "Application-defined or object-defined error" : found->second;
}

}  // namespace

RunTimeError::RunTimeError(int number) : RunTimeError(number, usualWords(number)) {}

RunTimeError::RunTimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

}  // namespace tallybrook
