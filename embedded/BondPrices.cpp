#include "embedded/BondPrices.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/MarketAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Integer DashForm = 1;
constexpr Integer BlankForm = 2;
constexpr Integer Denominators[] = {2, 4, 8, 16, 32, 64};
constexpr StringView DefaultBondCategories = u"6";

constexpr Double FractionTolerance = 1e-6; // in fractions: the noise of a price that was worked out
constexpr Double MostFractions = 9e15;     // below this every whole number of them is a Double

bool IsDenominator(Integer number) {
    return std::find(std::begin(Denominators), std::end(Denominators), number) !=
           std::end(Denominators);
}

} // namespace

void TBondPrices::ReadSettings(const TCustomConfigManager& config) {
    const String& section = config.GetCurrentSection();
    const Integer form = config.ReadInteger(section, ConfigKey::DenominatorModeValue);
    const Integer denominator =
        ToIntegerOr(config.ReadString(section, ConfigKey::BondPriceDenominator), 0);
    const bool inFractions = (form == DashForm || form == BlankForm) && IsDenominator(denominator);
    FDenominator = inFractions ? denominator : 0;
    FSeparator = form == BlankForm ? u' ' : u'-';

    String categories = config.ReadString(section, BondCategoriesKey);
    if (categories.empty()) categories = DefaultBondCategories;
    FCategories.clear();
    for (const StringView part : Split(categories, u',')) {
        Integer category = 0;
        if (TryParseInteger(part, category)) FCategories.push_back(category);
    }
}

bool TBondPrices::Append(String& target, Double price, StringView symbol) const {
    if (FDenominator == 0 || !IsBond(symbol)) return false;
    const Double fractions = std::fabs(price) * FDenominator;
    const Double nearest = std::nearbyint(fractions);
    const bool isFraction =
        nearest < MostFractions && std::fabs(fractions - nearest) <= FractionTolerance;
    if (!isFraction) return false;

    const Int64 count = static_cast<Int64>(nearest);
    const Int64 whole = count / FDenominator;
    const Int64 numerator = count % FDenominator;
    if (price < 0.0 && count != 0) target.push_back(u'-');
    if (whole != 0 || numerator == 0) AppendInteger(target, whole);
    if (numerator == 0) return true;
    if (whole != 0) target.push_back(FSeparator);
    AppendInteger(target, numerator);
    target.push_back(u'/');
    AppendInteger(target, FDenominator);
    return true;
}

bool TBondPrices::IsBond(StringView symbol) const {
    const TCustomMarketAdapter* market = TCustomMarketAdapter::GetInstance();
    if (market == nullptr || symbol.empty()) return false;
    const TCustomMarketData* record = market->FindMarketData(symbol);
    const TCustomSeriesData* series =
        record != nullptr ? market->FindSeries(record->GetSeries()) : nullptr;
    return series != nullptr && std::find(FCategories.begin(), FCategories.end(),
                                          series->GetCategoryID()) != FCategories.end();
}

} // namespace quorin
