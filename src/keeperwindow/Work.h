#pragma once

#include "keeper/Outcome.h"
#include "runtime/Progress.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tallybrook::keeper {

/// How far a piece of work is.
struct Stage {
    std::string what;
    std::int64_t done = 0;
    std::int64_t total = 0;  // 0 where nobody knows it
};

/// Does one piece of work at a time on a thread of its own, and tells the window how far it is.
class Work : public QObject {
public:
    using Task = std::function<void(Progress& progress)>;
    using Then = std::function<void(const Outcome& outcome)>;

    Work();
    /// Cancels what is on its way, and waits for it.
    ~Work() override;

    /// Begins a task, which must not touch the window; nothing else may be on its way. `then` is called by
    /// the window's thread when it has ended.
    void begin(Task task, Then then);
    /// Lets a function be run by the window's thread, as soon as it can; for tasks.
    void tell(std::function<void()> function);
    [[nodiscard]] bool isBusy() const { return thread_.joinable(); }
    void cancel() { isCancelled_ = true; }

    /// Is called again and again while a task is on its way.
    std::function<void(const Stage& stage)> onStage;

private:
    class Watched;

    void look();
    void end(const Outcome& outcome, const Then& then);

    QTimer timer_;
    std::mutex mutex_;  // for stage_
    Stage stage_;
    std::atomic<std::int64_t> done_ = 0;
    std::atomic<bool> isCancelled_ = false;
    std::thread thread_;
};

}  // namespace tallybrook::keeper
