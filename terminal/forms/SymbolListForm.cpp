#include "terminal/forms/SymbolListForm.h"

#include "viewdata/frame/ServiceTexts.h"

#include <array>

namespace quorin {

namespace {

enum TSymbolColumn : Integer { SymbolCode, SymbolCurrency, SymbolTitle };

} // namespace

TSymbolListForm::TSymbolListForm(TComponent* owner)
    : TFieldListForm(owner, std::to_array<TColumn>({{ResourceKey::Res_Symbol, 110},
                                                    {ResourceKey::Res_Currency, 60},
                                                    {ResourceKey::Res_SymbolName, 240}})) {
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TSymbolListForm::EntriesChanged>(this), this);
}

TSymbolListForm::~TSymbolListForm() {
    BeginDestruction();
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
}

void TSymbolListForm::Collect(std::vector<TObject*>& entries) const {
    for (Integer exchange = 0; exchange < Market().GetExchangeCount(); ++exchange) {
        const String& code = Market().GetExchangeCode(exchange);
        const Integer seriesCount = Market().GetSeriesCount(code);
        for (Integer series = 0; series < seriesCount; ++series) {
            const String& name = Market().GetSeriesCode(code, series);
            const Integer count = Market().GetMarketDataCount(code, name);
            for (Integer index = 0; index < count; ++index) {
                TCustomMarketData* data = Market().GetMarketDataAt(code, name, index);
                if (data != nullptr) entries.push_back(data);
            }
        }
    }
}

const String& TSymbolListForm::CodeOf(const TObject& entry) const {
    return static_cast<const TCustomMarketData&>(entry).GetSymbol();
}

String TSymbolListForm::CellOf(const TObject& entry, Integer column) const {
    const auto& data = static_cast<const TCustomMarketData&>(entry);
    switch (column) {
    case SymbolCode: return data.GetSymbol();
    case SymbolCurrency: return data.GetCurrency();
    case SymbolTitle: return Market().GetSymbolName(data.GetSymbol(), TAppLanguage::None);
    default: return {};
    }
}

} // namespace quorin
