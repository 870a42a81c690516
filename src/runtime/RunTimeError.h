#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace tallybrook {

/// The numbers of the failures that the program itself tells apart or raises.
namespace error {
inline constexpr int kInvalidProcedureCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kBadFileNameOrNumber = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEndOfFile = 62;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidUseOfNull = 94;
inline constexpr int kNoControlArrayElement = 340;
inline constexpr int kDialogCancelled = 32755;
// The store's own.
inline constexpr int kNoCurrentRow = 3021;
inline constexpr int kUnknownField = 3265;
inline constexpr int kObjectClosed = 3704;
inline constexpr int kObjectOpen = 3705;
inline constexpr int kStatementNotUnderstood = -2147217900;
inline constexpr int kUnknownColumn = -2147217904;
inline constexpr int kCriteriaOfWrongType = -2147217913;
inline constexpr int kValueNotTaken = -2147217887;
inline constexpr int kRowGone = -2147217864;
inline constexpr int kEngineFailure = -2147467259;
}  // namespace error

/// A failure of a statement: a number and a description, as the boxes show them.
class RunTimeError : public std::runtime_error {
public:
    /// A failure in its own usual words. A number without usual words says "Application-defined or
    /// object-defined error".
    explicit RunTimeError(int number);
    RunTimeError(int number, const std::string& description);

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] std::string description() const { return what(); }

private:
    int number_;
};

/// Carries something out; memory that it does not get is error 7.
template <typename Action>
decltype(auto) withMemoryErrors(Action&& action) {
    try {
        return std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        throw RunTimeError(error::kOutOfMemory);
    }
}

}  // namespace tallybrook
