#pragma once

#include "platform/export/ReplacingFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorin {

// Most bytes that a stream of the compound file holds.
inline constexpr std::uint64_t MaxCompoundStream = 0x7FFFFFFF;

// Writes a compound file, version 3, with one stream "Workbook" that consists of the pieces. A
// stream shorter than a mini stream's limit is filled up with zeros, which stand behind the
// workbook's last record.
void WriteCompoundFile(TReplacingFile& file, const std::vector<std::string>& pieces);

} // namespace quorin
