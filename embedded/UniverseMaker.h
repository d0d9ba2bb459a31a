#pragma once

#include "platform/rtl/Types.h"

#include <cstdint>
#include <ostream>

namespace quorin {

// Writes a file for LoadUniverseList: shares, futures and options on four exchanges, as many as
// asked for, the same bytes for the same seed on every machine.
void WriteUniverseList(std::ostream& target, Int64 symbols, std::uint64_t seed);

} // namespace quorin
