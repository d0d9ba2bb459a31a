#include "embedded/FormatterService.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/ConfigKeys.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer MostDecimals = 8;
constexpr Integer MostFloatDecimals = 15;
constexpr Integer AveragePriceDecimals = 3;
constexpr Integer AmountDecimals = 2;
constexpr Integer RatioDecimals = 4;
constexpr Integer CurrencyRatioDecimals = 6;
constexpr Integer PercentDecimals = 2;

// Cut behind the point to the decimals that are wanted.
constexpr StringView PlainPattern = u"0.###############";
constexpr StringView GroupedPattern = u"#,##0.########";

// At most this many decimals, without zeros at the end.
void AppendTrimmed(String& target, Double value, Integer decimals, bool grouping) {
    const StringView pattern = grouping ? GroupedPattern : PlainPattern;
    const std::size_t point = pattern.find(u'.');
    AppendPattern(target, value, pattern.substr(0, point + 1 + static_cast<std::size_t>(decimals)));
}

void AppendRounded(String& target, Double value, Integer decimals, bool grouping, bool fullLength) {
    if (fullLength) {
        AppendDecimals(target, value, decimals, grouping);
    } else {
        AppendTrimmed(target, value, decimals, grouping);
    }
}

} // namespace

TEmbeddedFormatter::TEmbeddedFormatter(TCustomConfigManager& config) : FConfig(config) {
    ReadSettings(nullptr, nullptr);
    FConfig.RegisterConfigCallback(MakeEvent<&TEmbeddedFormatter::ReadSettings>(this), &FOwner);
}

TEmbeddedFormatter::~TEmbeddedFormatter() {
    FConfig.RemoveConfigCallback(&FOwner);
}

String TEmbeddedFormatter::FormatInteger(Integer Value) const {
    return FormatDecimals(Value, 0, /*grouping=*/true);
}

String TEmbeddedFormatter::FormatFloat(Double Value, Integer Decimals, Boolean Flag) const {
    String text;
    if (Decimals < 0) {
        AppendTrimmed(text, Value, MostDecimals, /*grouping=*/false);
    } else {
        AppendRounded(text, Value, std::min(Decimals, MostFloatDecimals), /*grouping=*/false,
                      /*fullLength=*/!Flag);
    }
    return text;
}

String TEmbeddedFormatter::FormatValue(Double Value, TDisplayDataType DataType, StringView Symbol,
                                       Boolean Flag, Pointer) const {
    const auto isFull = [Flag](const TPrecision& kind) { return !Flag || kind.KeepZeros; };
    String text;
    switch (DataType) {
    case DisplayDataType::Whole: AppendDecimals(text, Value, 0, /*grouping=*/true); break;
    case DisplayDataType::AveragePrice:
        AppendAveragePrice(text, Value, Symbol, isFull(FAveragePrice));
        break;
    case DisplayDataType::Amount:
        AppendRounded(text, Value, FAmount.Decimals, /*grouping=*/true, isFull(FAmount));
        break;
    case DisplayDataType::Quantity: AppendQuantity(text, Value, isFull(FQuantity)); break;
    case DisplayDataType::Ratio:
        AppendDecimals(text, Value, RatioDecimals, /*grouping=*/false);
        break;
    case DisplayDataType::CurrencyRatio:
        AppendRounded(text, Value, FCurrencyRatio.Decimals, /*grouping=*/false,
                      isFull(FCurrencyRatio));
        break;
    case DisplayDataType::Percent:
        AppendDecimals(text, Value, PercentDecimals, /*grouping=*/false);
        text.push_back(u'%');
        break;
    case DisplayDataType::MarketPrice: AppendMarketPrice(text, Value, Symbol); break;
    default: AppendTrimmed(text, Value, MostDecimals, /*grouping=*/false);
    }
    return text;
}

void TEmbeddedFormatter::AppendAveragePrice(String& target, Double value, StringView symbol,
                                            bool fullLength) const {
    if (FBondPrices.Append(target, value, symbol)) return;
    const Integer decimals =
        FAveragePrice.IsSet ? FAveragePrice.Decimals
                            : std::max(AveragePriceDecimals, FPriceDecimals.Find(symbol, value));
    AppendRounded(target, value, decimals, /*grouping=*/false, fullLength);
}

void TEmbeddedFormatter::AppendMarketPrice(String& target, Double value, StringView symbol) const {
    if (FBondPrices.Append(target, value, symbol)) return;
    AppendPrice(target, value, FPriceDecimals.Find(symbol, value));
}

void TEmbeddedFormatter::AppendQuantity(String& target, Double value, bool fullLength) const {
    AppendRounded(target, value, FQuantity.Decimals, FGroupQuantity, FQuantity.IsSet && fullLength);
}

void TEmbeddedFormatter::ReadSettings(Pointer, Pointer) {
    using namespace ConfigKey;
    FAmount = ReadPrecision(AmountPrecision, AmountDecimal, AmountDecimals);
    FQuantity = ReadPrecision(QtyPrecision, QtyDecimal, MostDecimals);
    FAveragePrice = ReadPrecision(DefaultPrecision, DefaultDecimal, AveragePriceDecimals);
    FCurrencyRatio = ReadPrecision(CurrencyPrecision, CurrencyDecimal, CurrencyRatioDecimals);

    FBondPrices.ReadSettings(FConfig);

    const String& section = FConfig.GetCurrentSection();
    FGroupQuantity = FConfig.ReadString(section, QtyThousandPeriod).empty() ||
                     FConfig.ReadBool(section, QtyThousandPeriod);
}

TEmbeddedFormatter::TPrecision TEmbeddedFormatter::ReadPrecision(StringView precisionKey,
                                                                 StringView keepKey,
                                                                 Integer fallback) const {
    const String& section = FConfig.GetCurrentSection();
    TPrecision precision;
    precision.Decimals = ToIntegerOr(FConfig.ReadString(section, precisionKey), AllDecimals);
    precision.IsSet = precision.Decimals >= 0 && precision.Decimals <= MostDecimals;
    if (!precision.IsSet) precision.Decimals = fallback;
    precision.KeepZeros = FConfig.ReadBool(section, keepKey);
    return precision;
}

} // namespace quorin
