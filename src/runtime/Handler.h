#pragma once

#include "runtime/RunTimeError.h"

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace tallybrook {

/// What handlers ask of the outside. Implemented over the display; the store knows only this.
class FailureReporter {
public:
    virtual ~FailureReporter() = default;

    /// Shows the "Database Error" box for a failure in `module`, as in "Game Information, Update_Game.".
    virtual void databaseError(const RunTimeError& failure, std::string_view module) = 0;

    /// Called before a statement that found no current row is tried again; `tries` counts from 1. May end
    /// the handler or the program by throwing EndHandler or EndProgram.
    virtual void retrying(std::string_view module, int tries) = 0;
};

/// What a handler does after a failed statement.
enum class Recovery { GoOn, TryAgain };

/// What a handler does about error 3021 (no current row).
enum class Retry { Never, OnNoCurrentRow };

/// A procedure's handler. Each statement of the procedure is run through it: one that fails, be it for want
/// of memory, is reported or tried again, and the procedure goes on with its next statement either way.
///
///     Handler step = handler("Game Information, Update_Game.", Retry::OnNoCurrentRow);
///     step([&] { rs["fldSessionNum"] = session.gSessionNum; });
class Handler {
public:
    /// Decides what to do about a failure; `tries` is how often this statement has failed, from 1.
    using Decision = std::function<Recovery(const RunTimeError& failure, int tries)>;

    explicit Handler(Decision decide) : decide_(std::move(decide)) {}

    /// A handler with the general box and, with Retry::OnNoCurrentRow, the silent retry without limit.
    Handler(FailureReporter& reporter, std::string module, Retry retry = Retry::Never)
        : Handler([&reporter, module = std::move(module), retry](const RunTimeError& failure, int tries) {
              if (retry == Retry::OnNoCurrentRow && failure.number() == error::kNoCurrentRow) {
                  reporter.retrying(module, tries);
                  return Recovery::TryAgain;
              }
              reporter.databaseError(failure, module);
              return Recovery::GoOn;
          }) {}

    /// Runs one statement; true if it succeeded in the end.
    template <typename Statement>
    bool operator()(Statement&& statement) const {
        for (int tries = 1;; ++tries) {
            try {
                withMemoryErrors(statement);
                return true;
            } catch (const RunTimeError& failure) {
                if (decide_(failure, tries) == Recovery::GoOn)
                    return false;
            }
        }
    }

    /// Evaluates the condition of an If or the head of a loop. One that fails counts as true, since the
    /// statement after it is the first one inside.
    template <typename Condition>
    [[nodiscard]] bool test(Condition&& condition) const {
        bool holds = true;
        (*this)([&] { holds = condition(); });
        return holds;
    }

private:
    Decision decide_;
};

}  // namespace tallybrook
