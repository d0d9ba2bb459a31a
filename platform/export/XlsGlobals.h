#pragma once

#include "platform/export/BiffRecords.h"
#include "platform/export/SharedStrings.h"
#include "platform/export/SheetReader.h"

#include <vector>

namespace quorin {

enum class TSubstream : unsigned { Globals = 0x0005, Sheet = 0x0010 };

void AppendBof(TBytes& bytes, TSubstream kind);
void AppendEof(TBytes& bytes);

// The part of a binary workbook that stands before its one sheet: fonts, formats, styles, texts.
TBytes XlsGlobals(const std::vector<TCellStyle>& styles, const TSharedStrings& texts);

// The number that cells of the style carry.
unsigned XfOfStyle(Integer style);

// Of a cell in no style of ours.
inline constexpr unsigned DefaultXf = 15;

} // namespace quorin
