#pragma once

#include <cstddef>

namespace quorin {

// What this program holds on the heap, by its own count of what was asked for and given back.
std::size_t LiveBytes();

} // namespace quorin
