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

void* TakenOrThrow(std::size_t size) {
    void* memory = Taken(size);
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
    return TakenOrThrow(size);
}
void* operator new[](std::size_t size) {
    return TakenOrThrow(size);
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
