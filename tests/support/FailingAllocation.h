#pragma once

#include <new>

namespace tallybrook::test {

/// While it lives one allocation of this thread fails: that which comes after so many others. There can be
/// one at a time; whoever uses it is linked with the object library test_allocations.
class FailingAllocation {
public:
    explicit FailingAllocation(int allocationsBefore);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether it has come to that.
    [[nodiscard]] static bool hasStruck();
};

/// Runs something until it runs clean, with its first, second, third … allocation failing. Gives how often it
/// told so.
template <typename Run>
int failuresOfEachAllocation(Run run) {
    int failures = 0;
    bool hasStruck = true;
    for (int before = 0; hasStruck; ++before) {
        const FailingAllocation failing(before);
        try {
            run();
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        hasStruck = FailingAllocation::hasStruck();
    }
    return failures;
}

}  // namespace tallybrook::test
