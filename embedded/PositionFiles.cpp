#include "embedded/AccountFileParts.h"
#include "embedded/PositionValuation.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <string>

namespace quorin {

namespace {

constexpr TCsvColumn PositionColumns[] = {
    {"account", true}, {"symbol", true},       {"side", true},     {"bod-quantity", true},
    {"bod-price"},     {"bod-short-quantity"}, {"short-quantity"}, {"buy-quantity"},
    {"buy-amount"},    {"sell-quantity"},      {"sell-amount"},    {"pending-buy"},
    {"pending-sell"},  {"withdrawn"},          {"deposited"},      {"covered"},
    {"custodian"},     {"pending-custodian"},  {"product-type"},
};
constexpr TCsvColumn MarginRatioColumns[] = {{"symbol", true}, {"account", true}, {"ratio", true}};
constexpr TCsvColumn MarginKeyColumns[] = {{"code", true}};

constexpr StringView NetSide = u"net";
constexpr StringView LongSide = u"long";
constexpr StringView ShortSide = u"short";

TPositionSide ReadSide(const TCsvTable& table) {
    const StringView side = table.Text("side");
    if (side == LongSide) return TPositionSide::Long;
    if (side == ShortSide) return TPositionSide::Short;
    if (side != NetSide) table.FailAt("side", "is none of net, long, short");
    return TPositionSide::Net;
}

void CheckSymbol(const TCsvTable& table, const TCustomMarketAdapter* universe) {
    const StringView symbol = table.Code("symbol");
    if (universe != nullptr && universe->FindMarketData(symbol) == nullptr) {
        table.FailAt("symbol", "is no symbol of the universe");
    }
}

void CheckTrades(const TCsvTable& table, std::string_view quantity, std::string_view amount) {
    if ((table.Quantity(quantity) > 0.0) != (table.Quantity(amount) > 0.0)) {
        table.Fail("of \"" + std::string(quantity) + "\" and \"" + std::string(amount) +
                   "\" only one is above 0");
    }
}

TPositionFigures ReadPosition(const TCsvTable& table) {
    TPositionFigures figures;
    figures.FollowsPrice = true;
    figures.Side = ReadSide(table);
    figures.BODQuantity = table.Number("bod-quantity");
    figures.BODPrice = table.Quantity("bod-price");
    figures.BODShortQuantity = table.Quantity("bod-short-quantity");
    figures.ShortQuantity = table.Quantity("short-quantity");
    figures.TodayBuyQty = table.Quantity("buy-quantity");
    figures.TodayBuyAmount = table.Quantity("buy-amount");
    figures.TodaySellQty = table.Quantity("sell-quantity");
    figures.TodaySellAmount = table.Quantity("sell-amount");
    figures.TodayPendBuyQty = table.Quantity("pending-buy");
    figures.TodayPendSellQty = table.Quantity("pending-sell");
    figures.WithdrawQty = table.Quantity("withdrawn");
    figures.DepositQty = table.Quantity("deposited");
    figures.CoveredQty = table.Quantity("covered");
    figures.CustodianQty = table.Quantity("custodian");
    figures.PendCustodianQty = table.Quantity("pending-custodian");
    figures.CostPrice = figures.BODPrice;
    figures.ProdType = table.Whole("product-type");
    figures.Quantity = QuantityFromDay(figures);
    CheckTrades(table, "buy-quantity", "buy-amount");
    CheckTrades(table, "sell-quantity", "sell-amount");
    if (figures.Side != TPositionSide::Net) {
        if (figures.BODQuantity < 0.0) table.FailAt("bod-quantity", "is below 0 in a sided record");
        if (figures.Quantity < 0.0) table.Fail("more was closed than there was");
    }
    return figures;
}

// The place of a column named by a margin field; MarginFigureCount for any other.
std::size_t MarginPlace(std::string_view name) {
    const Integer fieldNo = ToIntegerOr(FromUtf8(name), 0);
    const bool isField = fieldNo >= Field::FirstMargin && fieldNo <= Field::LastMargin &&
                         std::to_string(fieldNo) == name;
    return isField ? static_cast<std::size_t>(fieldNo - Field::FirstMargin) : MarginFigureCount;
}

bool IsMarginColumn(std::string_view name) {
    return MarginPlace(name) < MarginFigureCount;
}

TMarginFigures ReadMarginFigures(const TCsvTable& table) {
    TMarginFigures figures;
    bool isEmpty = true;
    for (const std::string& column : table.Columns()) {
        if (!IsMarginColumn(column) || !table.Has(column)) continue;
        figures[MarginPlace(column)] = table.Number(column);
        isEmpty = false;
    }
    if (isEmpty) table.FailAt("code", "has no figures");
    return figures;
}

} // namespace

void ReadPositions(const std::filesystem::path& path, const TAccountIndex& index,
                   const TCustomMarketAdapter* universe,
                   std::vector<TAccountFiles::TPositionRow>& positions) {
    TCsvTable table(path, PositionColumns);
    TDictionary<String, TDictionary<String, bool>> seen;
    while (table.Next()) {
        const StringView account = table.Code("account");
        if (!index.ContainsKey(account)) table.FailAt("account", "is no account");
        CheckSymbol(table, universe);
        const StringView symbol = table.Text("symbol");
        if (!seen.Obtain(account).Add(symbol, true)) {
            table.FailAt("symbol", "is there twice in one account");
        }
        TPositionFigures figures = ReadPosition(table);
        if (universe != nullptr) {
            figures.ProdType = universe->FindMarketData(symbol)->GetProductType();
        }
        positions.push_back({String(account), String(symbol), figures});
    }
}

void ReadMarginRatios(const std::filesystem::path& path, const TAccountIndex& index,
                      const TCustomMarketAdapter* universe,
                      std::vector<TAccountFiles::TMarginRatioRow>& ratios) {
    TCsvTable table(path, MarginRatioColumns);
    TDictionary<String, TDictionary<String, bool>> seen;
    while (table.Next()) {
        CheckSymbol(table, universe);
        const StringView symbol = table.Text("symbol");
        const StringView account = table.Text("account");
        if (!account.empty() && !index.ContainsKey(account)) {
            table.FailAt("account", "is no account");
        }
        std::optional<Double> ratio;
        if (table.Has("ratio")) ratio = table.Number("ratio");
        if (ratio.has_value() && *ratio <= 0.0) table.FailAt("ratio", "is not above 0");
        if (ratio.has_value() && *ratio > 1.0) table.FailAt("ratio", "is above 1");
        if (!seen.Obtain(symbol).Add(account, true)) table.FailAt("symbol", "is there twice");
        ratios.push_back({String(symbol), String(account), ratio});
    }
}

void ReadMargins(const std::filesystem::path& path,
                 std::vector<TAccountFiles::TMarginRow>& margins) {
    TCsvTable table(path, MarginKeyColumns, IsMarginColumn);
    TDictionary<String, bool> seen;
    while (table.Next()) {
        const StringView code = table.Code("code");
        if (!seen.Add(code, true)) table.FailAt("code", "is there twice");
        margins.push_back({String(code), ReadMarginFigures(table)});
    }
}

} // namespace quorin
