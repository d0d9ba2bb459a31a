#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t Allocations = 0;
}

void* operator new(std::size_t size) {
    ++Allocations;
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
// The library's own would do; a sanitizer's would not agree with the delete below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++Allocations;
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace quorin {

std::size_t AllocationCount() {
    return Allocations;
}

} // namespace quorin
