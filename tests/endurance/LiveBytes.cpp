#include "tests/endurance/LiveBytes.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::size_t Live = 0;

constexpr std::size_t UsualAlignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

// The size that was asked for stands before the memory: what malloc rounds it up to hangs on what
// was there before.
void* Taken(std::size_t size, std::size_t alignment = UsualAlignment) noexcept {
    const std::size_t whole = (size + 2 * alignment - 1) / alignment * alignment;
    auto* memory = static_cast<std::byte*>(std::aligned_alloc(alignment, whole));
    if (memory == nullptr) return nullptr;
    std::memcpy(memory, &size, sizeof size);
    Live += size;
    return memory + alignment;
}

void* OrThrow(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void GiveBack(void* memory, std::size_t alignment = UsualAlignment) noexcept {
    if (memory == nullptr) return;
    std::byte* whole = static_cast<std::byte*>(memory) - alignment;
    std::size_t size = 0;
    std::memcpy(&size, whole, sizeof size);
    Live -= size;
    std::free(whole);
}

} // namespace

// All of them: a sanitizer's own would not agree with the others.
void* operator new(std::size_t size) {
    return OrThrow(Taken(size));
}
void* operator new[](std::size_t size) {
    return OrThrow(Taken(size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return OrThrow(Taken(size, static_cast<std::size_t>(alignment)));
}
void operator delete(void* memory, std::align_val_t alignment) noexcept {
    GiveBack(memory, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory, std::size_t, std::align_val_t alignment) noexcept {
    GiveBack(memory, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Taken(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Taken(size);
}
void operator delete(void* memory) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory) noexcept {
    GiveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    GiveBack(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    GiveBack(memory);
}

namespace quorin {

std::size_t LiveBytes() {
    return Live;
}

} // namespace quorin
