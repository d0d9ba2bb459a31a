#pragma once

namespace quorin {

// The steps of a look-up by hash, each of which reads where the next one is: the cell of the hash
// table, the entry that it names, the text of the entry's key. Who is about to look up many keys
// asks for the first step of all of them, then for the second, then for the third.
enum class TFetchStep { Cell, Entry, Key };
inline constexpr TFetchStep FetchSteps[] = {TFetchStep::Cell, TFetchStep::Entry, TFetchStep::Key};

// Tables with fewer entries are in reach anyway.
inline constexpr int FarTable = 4096;

// Asks for the memory at `address` before it is read, where waiting for it would be the cost: many
// objects, each touched once. Any address will do; what is there is not looked at.
inline void FetchSoon(const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
    asm volatile(""); // GCC drops calls of functions that do nothing but fetch
#else
    static_cast<void>(address);
#endif
}

} // namespace quorin
