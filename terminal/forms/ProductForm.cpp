#include "terminal/forms/ProductForm.h"

#include "platform/rtl/Text.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {
constexpr StringView LineEnd = u"\r\n";
}

std::vector<String> TProductForm::Lines() {
    std::vector<String> lines;
    const Integer row = FControl.RowOf(FSymbol);
    if (row < 0) return lines;
    const String info = FControl.GetProductInfo(row);
    for (std::size_t start = 0; start <= info.size();) {
        const std::size_t end = std::min(info.find(LineEnd, start), info.size());
        lines.push_back(info.substr(start, end - start));
        start = end + LineEnd.size();
    }
    AddCell(lines, row, TerminalKey::Res_RequiredMargin, MarketAttribute::RequiredMargin);
    AddCell(lines, row, ResourceKey::Res_Long, MarketAttribute::LongPosition);
    AddCell(lines, row, ResourceKey::Res_Short, MarketAttribute::ShortPosition);
    return lines;
}

void TProductForm::AddCell(std::vector<String>& lines, Integer row, StringView captionKey,
                           Integer attribute) const {
    const String text = FControl.GetDisplayValue(row, attribute);
    if (text == FControl.EmptyText()) return;
    const String caption = TCustomLanguageManager::GetInstance()->GetResourceString(
        Const_ResourceStringTag, captionKey, TAppLanguage::None, 0, nullptr);
    lines.push_back(FormatText(u"%s: %s", {caption, text}));
}

} // namespace quorin
