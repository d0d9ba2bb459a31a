#pragma once

#include <cstdint>
#include <filesystem>

namespace quorin {

// Whether the workbook's container is complete and its first sheet has at least this size unpacked,
// by the container's own directory.
bool HoldsSheet(const std::filesystem::path& container, std::int64_t size);

} // namespace quorin
