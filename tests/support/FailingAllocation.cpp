#include "support/FailingAllocation.h"

#include <cstdlib>
#include <new>

namespace tallybrook::test {

namespace {

constexpr int kNever = -1;

thread_local int allocationsLeft = kNever;
thread_local bool struck = false;

void* allocated(std::size_t size) noexcept {
    if (allocationsLeft != kNever && allocationsLeft-- == 0) {
        struck = true;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

void* allocatedOrThrown(std::size_t size) {
    if (void* const memory = allocated(size))
        return memory;
    throw std::bad_alloc{};
}

}  // namespace

FailingAllocation::FailingAllocation(int allocationsBefore) {
    struck = false;
    allocationsLeft = allocationsBefore;
}

FailingAllocation::~FailingAllocation() {
    allocationsLeft = kNever;
}

bool FailingAllocation::hasStruck() {
    return struck;
}

}  // namespace tallybrook::test

using namespace tallybrook::test;

void* operator new(std::size_t size) {
    return allocatedOrThrown(size);
}
void* operator new[](std::size_t size) {
    return allocatedOrThrown(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
