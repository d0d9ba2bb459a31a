#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/market/MarketTexts.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {

namespace R = ResourceKey;

constexpr Integer UnknownProductType = -1;
constexpr StringView LineEnd = u"\r\n";
constexpr StringView UnknownCategory = u"--";

// The product of one row. Its record answers where there is one, its live item otherwise.
struct TProduct {
    const String& Symbol;
    const TCustomMarketData* Record;
    const TCustomSubItem& Item;

    Integer Type() const {
        return Record != nullptr
                   ? Record->GetProductType()
                   : ToIntegerOr(Item.FieldText(Field::ProductType), UnknownProductType);
    }
    String Code(const String& (TCustomMarketData::*recordCode)() const, Integer field) const {
        return Record != nullptr ? (Record->*recordCode)() : Item.FieldText(field);
    }
};

String Category(const TProduct& product) {
    if (product.Record == nullptr) return String(UnknownCategory);
    const TCustomSeriesData* series = Market().FindSeries(product.Record->GetSeries());
    if (series == nullptr) return String(UnknownCategory);
    const TCustomCategoryData* category = Market().FindCategory(series->GetCategoryID());
    return category != nullptr ? NameInLanguage(*category) : String(UnknownCategory);
}

String Expiry(const TProduct& product) {
    String expiry = product.Code(&TCustomMarketData::GetExpiryMonth, Field::Expiry);
    return expiry.empty() ? product.Item.FieldText(Field::Expiry) : expiry;
}

String StrikePrice(const TProduct& product) {
    const Double strike = product.Record != nullptr
                              ? ToDoubleOr(product.Record->GetStrikePrice(), 0.0)
                              : product.Item.GetFieldDouble(Field::StrikePrice);
    return TCustomFormatter::GetInstance()->FormatValue(strike, DisplayDataType::MarketPrice,
                                                        product.Symbol, /*Flag=*/true, nullptr);
}

// Lines "label: value".
class TInfoText {
public:
    void Add(StringView labelKey, StringView value) {
        if (!FText.empty()) FText += LineEnd;
        FText += FormatText(u"%s: %s", {ResourceText(Const_ResourceStringTag, labelKey), value});
    }
    void AddIfAny(StringView labelKey, StringView value) {
        if (!value.empty()) Add(labelKey, value);
    }
    String Take() { return std::move(FText); }

private:
    String FText;
};

} // namespace

String TCustomMarketDataControl::GetProductInfo(Integer RecordIndex) {
    if (!FDataList.Has(RecordIndex)) return String();
    const String symbol = FDataList[RecordIndex];
    TCustomMarketData* const* record = FDataDictionary.Find(symbol);
    const TProduct product{
        symbol, record != nullptr ? *record : nullptr,
        *TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true)};
    const Integer type = product.Type();
    const Boolean isOption = type == ProductType::Options;
    const Boolean isDerivative = type == ProductType::Futures || isOption;
    const TCustomSubItem& item = product.Item;

    // clang-format off
    TInfoText info;
    info.Add(R::Res_SymbolName, SymbolName(symbol));
    info.Add(R::Res_Symbol,     symbol);
    info.Add(R::Res_Exchange,   TranslatedCode(ResourceTag::Exchange, product.Code(&TCustomMarketData::GetExchange, Field::Exchange)));
    if (isDerivative) info.Add     (R::Res_ProdType,       Category(product));
    if (isDerivative) info.AddIfAny(R::Res_ExpiryDate,     Expiry(product));
    info.Add(R::Res_Currency,   TranslatedCode(ResourceTag::Currency, product.Code(&TCustomMarketData::GetCurrency, Field::Currency)));
    if (isDerivative) info.Add     (R::Res_TradingType,    ResourceText(Const_ResourceStringTag, isOption ? R::Res_Options : R::Res_Futures));
    if (isOption)     info.Add     (R::Res_StrikePrice,    StrikePrice(product));
    if (isDerivative) info.AddIfAny(R::Res_LastTradingDay, item.FieldText(Field::LastTradingDay));
    if (isDerivative) info.AddIfAny(R::Res_SettlDay,       item.FieldText(Field::SettlementDay));
    if (isDerivative) info.AddIfAny(R::Res_ContractSize,   item.FieldText(Field::ContractSize));
    if (isDerivative) info.AddIfAny(R::Res_TickSize,       item.FieldText(Field::TickSize));
    // clang-format on
    return info.Take();
}

} // namespace quorin
