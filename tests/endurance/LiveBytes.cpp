#include "tests/endurance/LiveBytes.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {

std::size_t Live = 0;

void* Taken(std::size_t size) noexcept {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) Live += malloc_usable_size(memory);
    return memory;
}

void* TakenAligned(std::size_t size, std::align_val_t alignment) noexcept {
    const auto step = static_cast<std::size_t>(alignment);
    void* memory = std::aligned_alloc(step, (size + step - 1) / step * step);
    if (memory != nullptr) Live += malloc_usable_size(memory);
    return memory;
}

void* OrThrow(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void GiveBack(void* memory) noexcept {
    if (memory != nullptr) Live -= malloc_usable_size(memory);
    std::free(memory);
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
    return OrThrow(TakenAligned(size, alignment));
}
void operator delete(void* memory, std::align_val_t) noexcept {
    GiveBack(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    GiveBack(memory);
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
