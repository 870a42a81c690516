#pragma once

#include "runtime/Progress.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

// People who give work up, and what else happens while it goes on.
namespace tallybrook::keeper {

/// Cancels after so many steps.
class Impatient : public Progress {
public:
    explicit Impatient(int steps) : steps_(steps) {}
    bool isCancelled() override { return steps_-- <= 0; }

protected:
    void show(std::string_view /*what*/, std::int64_t /*total*/) override {}
    void showStep(std::int64_t /*done*/) override {}

private:
    int steps_;
};

/// Does something as a stage begins.
class Meddling : public Progress {
public:
    Meddling(std::string stage, std::function<void()> act) : stage_(std::move(stage)), act_(std::move(act)) {}
    bool isCancelled() override { return false; }

protected:
    void show(std::string_view what, std::int64_t /*total*/) override {
        if (what == stage_)
            act_();
    }
    void showStep(std::int64_t /*done*/) override {}

private:
    std::string stage_;
    std::function<void()> act_;
};

}  // namespace tallybrook::keeper
