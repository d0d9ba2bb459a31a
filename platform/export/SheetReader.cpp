#include "platform/export/SheetReader.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer MinWidth = 8;
constexpr Integer MaxWidth = 60;
constexpr Integer WidthPadding = 2;
constexpr Char FirstWideUnit = 0x1100; // from here on most scripts take two digits' room
constexpr std::size_t BlanksPerLevel = 2;

constexpr Char Ellipsis = 0x2026;
constexpr Char Replacement = 0xFFFD;
constexpr Char FirstSurrogate = 0xD800;
constexpr Char FirstLowSurrogate = 0xDC00;
constexpr Char BehindSurrogates = 0xE000;

bool IsHighSurrogate(Char unit) {
    return unit >= FirstSurrogate && unit < FirstLowSurrogate;
}
bool IsLowSurrogate(Char unit) {
    return unit >= FirstLowSurrogate && unit < BehindSurrogates;
}

void CutToCell(String& text) {
    constexpr std::size_t MaxUnits = MaxCellText;
    if (text.size() <= MaxUnits) return;
    std::size_t kept = MaxUnits - 1;
    if (IsHighSurrogate(text[kept - 1]) && IsLowSurrogate(text[kept])) --kept;
    text.resize(kept);
    text.push_back(Ellipsis);
}

// NUL, half a surrogate pair and U+FFFE, U+FFFF have no place in either workbook.
void ReplaceWhatIsNoCharacter(String& text) {
    const auto mayBe = [](Char unit) { return unit == 0 || unit >= FirstSurrogate; };
    if (std::none_of(text.begin(), text.end(), mayBe)) return;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool hasNext = i + 1 < text.size();
        if (IsHighSurrogate(text[i]) && hasNext && IsLowSurrogate(text[i + 1])) {
            ++i;
        } else if (text[i] == 0 || text[i] > Replacement ||
                   (text[i] >= FirstSurrogate && text[i] < BehindSurrogates)) {
            text[i] = Replacement;
        }
    }
}

Int64 KeyOf(const TNumberShape& shape) {
    Int64 key = shape.Sign;
    key = key << 8 | shape.Decimals;
    key = key << 8 | shape.ExponentDigits;
    key = key << 1 | shape.ExponentPlus;
    key = key << 1 | shape.Grouped;
    return key << 1 | shape.HasWhole;
}

} // namespace

TSheetReader::TSheetReader(TExportTable& table, const TTableSize& size, Integer maxIndent)
    : FTable(table), FMaxIndent(maxIndent),
      FWidths(static_cast<std::size_t>(size.Columns), MinWidth) {
    FStyles.resize(TextStyle + 1);
    FStyles[CaptionStyle].IsCaption = true;
}

Integer TSheetReader::ColumnWidth(Integer column) const {
    return FWidths[static_cast<std::size_t>(column)];
}

TSheetCell TSheetReader::ReadCaption(Integer column) {
    FTable.GetCaption(column, FText);
    Measure(column, 0);
    StoreText(0);
    return {FText.empty() ? TCellKind::Blank : TCellKind::Text, 0.0, CaptionStyle};
}

TSheetCell TSheetReader::Read(Integer row, Integer column) {
    FTable.GetCellText(row, column, FText);
    const TCellValue value = ReadCell(FText);
    if (value.Kind == TCellKind::Blank) return {TCellKind::Blank, 0.0, TextStyle};
    const Integer depth = column == 0 ? std::max(FTable.Depth(row), 0) : 0;
    const Integer indent = std::min(depth, FMaxIndent);
    Measure(column, indent);
    if (value.Kind == TCellKind::Number && FTable.HasNumbers()) {
        const Integer style = StyleOf(TCellKind::Number, value.Shape, indent);
        if (style >= 0) return {TCellKind::Number, value.Number, style};
    }
    StoreText(depth - indent);
    return {TCellKind::Text, 0.0, StyleOf(TCellKind::Text, {}, indent)};
}

// Below 0 for a number whose format has no place any more.
Integer TSheetReader::StyleOf(TCellKind kind, const TNumberShape& shape, Integer indent) {
    if (kind == TCellKind::Text && indent == 0) return TextStyle;
    const Int64 shapeKey = kind == TCellKind::Number ? KeyOf(shape) : -1;
    const Int64 key = shapeKey * (FMaxIndent + 1) + indent;
    if (const Integer* known = FStyleNumbers.Find(key)) return *known;
    if (kind == TCellKind::Number && !TakeFormat(shapeKey)) return -1;
    const auto style = static_cast<Integer>(FStyles.size());
    FStyles.push_back({kind, shape, indent, false});
    FStyleNumbers.Add(key, style);
    return style;
}

bool TSheetReader::TakeFormat(Int64 shapeKey) {
    if (FFormats.ContainsKey(shapeKey)) return true;
    if (FFormats.Count() == MaxNumberFormats) return false;
    return FFormats.Add(shapeKey, true);
}

void TSheetReader::StoreText(Integer deeper) {
    FText.insert(0, static_cast<std::size_t>(deeper) * BlanksPerLevel, u' ');
    CutToCell(FText);
    ReplaceWhatIsNoCharacter(FText);
}

void TSheetReader::Measure(Integer column, Integer indent) {
    Integer& width = FWidths[static_cast<std::size_t>(column)];
    if (width == MaxWidth) return;
    Integer own = WidthPadding + indent;
    for (const Char unit : FText) {
        own += unit < FirstWideUnit ? 1 : 2;
        if (own >= MaxWidth) break;
    }
    width = std::clamp(own, width, MaxWidth);
}

} // namespace quorin
