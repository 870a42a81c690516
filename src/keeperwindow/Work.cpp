#include "keeperwindow/Work.h"

#include <utility>

namespace tallybrook::keeper {

/// What a task tells of itself.
class Work::Watched : public Progress {
public:
    explicit Watched(Work& work) : work_(work) {}
    bool isCancelled() override { return work_.isCancelled_; }

protected:
    void show(std::string_view what, std::int64_t total) override {
        const std::scoped_lock lock(work_.mutex_);
        work_.stage_ = {.what = std::string(what), .total = total};
    }
    void showStep(std::int64_t done) override { work_.done_ = done; }

private:
    Work& work_;
};

Work::Work() {
    constexpr int kBetweenLooks = 100;  // milliseconds
    timer_.setInterval(kBetweenLooks);
    connect(&timer_, &QTimer::timeout, this, [this] { look(); });
}

Work::~Work() {
    cancel();
    if (thread_.joinable())
        thread_.join();
}

void Work::begin(Task task, Then then) {
    isCancelled_ = false;
    stage_ = {};
    done_ = 0;
    timer_.start();
    thread_ = std::thread([this, task = std::move(task), then = std::move(then)] {
        Watched progress(*this);
        const Outcome outcome = outcomeOf([&] { task(progress); });
        tell([this, outcome, then] { end(outcome, then); });
    });
}

void Work::tell(std::function<void()> function) {
    QMetaObject::invokeMethod(this, std::move(function), Qt::QueuedConnection);
}

void Work::look() {
    const std::scoped_lock lock(mutex_);
    stage_.done = done_;
    if (onStage)
        onStage(stage_);
}

void Work::end(const Outcome& outcome, const Then& then) {
    timer_.stop();
    thread_.join();
    then(outcome);
}

}  // namespace tallybrook::keeper
