#pragma once

#include <cstddef>

namespace quorin {

// How many times this program has asked for memory so far; for tests of paths that must not.
std::size_t AllocationCount();

} // namespace quorin
