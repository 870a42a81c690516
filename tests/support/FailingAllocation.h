#pragma once

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

}  // namespace tallybrook::test
