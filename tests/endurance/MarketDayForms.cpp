#include "terminal/forms/MarketWatchForm.h"
#include "terminal/forms/ProductForm.h"
#include "terminal/forms/TradesForm.h"
#include "terminal/forms/UnderlyerForm.h"
#include "tests/endurance/ViewUser.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>
#include <optional>

namespace quorin {

namespace {

constexpr Integer MostFavorites = 40;

// A market list of either kind.
template <class Form>
class TMarketDayForm : public TDayForm {
public:
    explicit TMarketDayForm(TDay& day) : TDayForm(day) {
        FForm.View().SetVisibleRowCapacity(ScreenRows);
    }

    void Use(bool mayOrder) override {
        FForm.NoteShown();
        const Integer record = FForm.ActionRecord(Day.Random.Pick(FForm.RowCount() + 1));
        TCustomMarketDataControl& list = FForm.List();
        if (mayOrder) return Order();
        switch (Day.Random.Pick(8)) {
        case 0: return list.CopyPrice(record, MarketAttribute::LastPrice);
        case 1: return FForm.ShowPositions(Day.Random.OneIn(2));
        case 2: return list.SetIsBatchMode(Day.Random.OneIn(2));
        case 3: return list.MoveRecord(record, Day.Random.Pick(list.GetCount() + 1));
        case 4: list.GetProductInfo(record); return;
        case 5: return ChangeFavorites(record);
        default: return UseGrid(Day, FForm);
        }
    }
    void Paint() override {
        FForm.FollowVisibleRows();
        PaintShown(FForm, FForm.View().TopRow());
        for (Integer row = 0; row < FForm.View().VisibleRowCount(); ++row) {
            FForm.Mark(FForm.View().TopRow() + row, MarketAttribute::LastPrice);
        }
    }
    void Check() override {
        CheckGrid(Day, FForm, FForm.List());
        const TList<String> symbols = CheckSymbols(Day, FForm, FForm.List());
        const std::optional<TList<String>> expected = ExpectedSymbols();
        if (Day.IsAllReady && expected.has_value()) {
            Day.Findings.Require(AreSame(symbols, *expected),
                                 "the rows are not the symbols of the service");
        }
        if (!symbols.IsEmpty()) CheckLook(symbols);
    }

protected:
    // Nothing where the service alone does not say.
    virtual std::optional<TList<String>> ExpectedSymbols() = 0;

    TList<String> SymbolsOf(StringView exchange) {
        TList<String> symbols;
        const auto* records = Day.Services.Market().Universe().FindRecords(exchange, {});
        if (records == nullptr) return symbols;
        for (const TEmbeddedMarketData* record : *records) symbols.Add(record->GetSymbol());
        return symbols;
    }

    Form FForm;

private:
    void Order() {
        TCustomMarketDataControl& list = FForm.List();
        const Integer record = FForm.Rows().RowOf(Day.AnySymbol());
        switch (Day.Random.Pick(6)) {
        case 0: list.BuyMarketOrder(record); return;
        case 1: list.SellMarketOrder(record); return;
        case 2: list.BuyLastOrder(record); return;
        case 3: list.SellLastOrder(record); return;
        case 4: list.BuyBestAskOrder(record); return;
        default: list.SellBestBidOrder(record); return;
        }
    }
    void ChangeFavorites(Integer record) {
        TCustomMarketDataControl& list = FForm.List();
        if (Day.Services.Market().GetFavoriteCount() < MostFavorites && Day.Random.OneIn(2)) {
            list.AddToFavorite(record);
        } else if (Day.Random.OneIn(50)) {
            list.ClearAllFavoritePrice();
        } else {
            list.RemoveFavoritePrice(record);
        }
    }
    // One row by all its look-ups.
    void CheckLook(const TList<String>& symbols) {
        TFindings& findings = Day.Findings;
        TCustomMarketDataControl& list = FForm.List();
        const Integer record = Day.Random.Pick(symbols.Count());
        const String& symbol = symbols[record];
        findings.Require(list.GetSymbol(record) == symbol, "GetSymbol is another", symbol);
        findings.Require(FForm.Rows().RowOf(symbol) == record, "the symbol's row is another",
                         symbol);
        findings.Require(list.GetSymbol(-1).empty() && list.GetSymbol(symbols.Count()).empty(),
                         "a row outside has a symbol");
        const TEmbeddedSubItem* item = Day.Services.Items().FindItem(symbol);
        if (item == nullptr || !item->HasField(Field::LastPrice)) return;
        const Variant price = list.GetValue(record, MarketAttribute::LastPrice);
        findings.Require(price == Variant(item->GetFieldDouble(Field::LastPrice)),
                         "the last price is not the live one", symbol);
    }
};

class TWatchDayForm final : public TMarketDayForm<TMarketWatchForm> {
public:
    explicit TWatchDayForm(TDay& day) : TMarketDayForm(day) { Switch(); }

    void Switch() override {
        FForm.ShowAccount(Day.AnyAccount());
        switch (Day.Random.Pick(4)) {
        case 0: return Show(String(FavoriteExchange));
        case 1: return ShowChosen();
        default: return Show(Day.AnyExchange());
        }
    }
    void Use(bool mayOrder) override {
        if (Day.Random.OneIn(8)) {
            TProductForm product(FForm.Control());
            product.SetSymbol(FForm.Symbol(Day.Random.Pick(FForm.RowCount())));
            product.Lines();
        }
        TMarketDayForm::Use(mayOrder);
    }

private:
    void Show(const String& exchange) {
        FExchange = exchange;
        FForm.ShowMarket(exchange);
    }
    void ShowChosen() {
        FExchange.clear();
        FChosen.Clear();
        FForm.ShowMarket({});
        TList<String> symbols;
        for (Integer count = Day.Random.Pick(ScreenRows * 2); count > 0; --count) {
            symbols.Add(Day.AnySymbol());
            if (!FChosen.Contains(symbols.Last())) FChosen.Add(symbols.Last());
        }
        symbols.Add(u"GHOST");
        FForm.ShowSymbols(symbols);
    }
    std::optional<TList<String>> ExpectedSymbols() override {
        if (FExchange.empty()) return FChosen;
        if (FExchange != FavoriteExchange) return SymbolsOf(FExchange);
        TList<String> symbols;
        const TEmbeddedMarketAdapter& market = Day.Services.Market();
        for (Integer index = 0; index < market.GetFavoriteCount(); ++index) {
            symbols.Add(market.GetFavoriteSymbol(index));
        }
        return symbols;
    }

    String FExchange; // empty: FChosen
    TList<String> FChosen;
};

class TUnderlyerDayForm final : public TMarketDayForm<TUnderlyerForm> {
public:
    explicit TUnderlyerDayForm(TDay& day) : TMarketDayForm(day) { Switch(); }

    void Switch() override {
        static constexpr TUnderlyerPriceDisplayMode modes[] = {udmFutures, udmOptions,
                                                               udmSpreadFutures, udmSpreadOptions};
        static constexpr TOptionsType types[] = {otAll, otCall, otPut};
        FForm.ShowAccount(Day.AnyAccount());
        FForm.ChooseExchange(Day.AnyExchange());
        const TList<String> series = FForm.SeriesCodes();
        const String code = series.IsEmpty() ? String() : series[Day.Random.Pick(series.Count())];
        FForm.Control().SetSeries(code);
        const TList<String> months = FForm.Months();
        const String month = months.IsEmpty() ? String() : months[Day.Random.Pick(months.Count())];
        FForm.Show(
            {FForm.Exchange(), code, Day.Random.OneOf(modes), month, Day.Random.OneOf(types)});
    }

private:
    // Those of the series that are of the right kind; of a series without futures none.
    std::optional<TList<String>> ExpectedSymbols() override {
        TList<String> symbols;
        const auto* records = Day.Services.Market().Universe().FindRecords(
            FForm.Exchange(), FForm.Control().Series());
        if (records == nullptr) return std::nullopt;
        for (Integer row = 0; row < FForm.List().GetCount(); ++row) {
            const String symbol = FForm.List().GetSymbol(row);
            const bool isThere =
                std::any_of(records->begin(), records->end(),
                            [&](const auto* record) { return record->GetSymbol() == symbol; });
            Day.Findings.Require(isThere, "a row is not of the series", symbol);
        }
        return std::nullopt;
    }
};

class TTradesDayForm final : public TDayForm {
public:
    explicit TTradesDayForm(TDay& day) : TDayForm(day) { Switch(); }

    void Switch() override { FForm.SetSymbol(Day.Random.OneIn(5) ? String() : Day.AnySymbol()); }
    void Use(bool) override { Switch(); }
    void Paint() override {
        for (Integer index = 0; index < FForm.Count(); ++index) {
            FForm.PriceText(*FForm.Trade(index));
        }
    }
    void Check() override {
        constexpr Integer MostTrades = 5;
        Day.Findings.Require(FForm.Count() <= MostTrades, "more trades than are kept");
        Day.Findings.Require(FForm.Trade(-1) == nullptr && FForm.Trade(FForm.Count()) == nullptr,
                             "there is a trade outside");
        for (Integer index = 0; index < FForm.Count(); ++index) {
            const TMarketDataTrade* trade = FForm.Trade(index);
            Day.Findings.Require(trade != nullptr && trade->Price() > 0.0, "a trade has no price",
                                 FForm.Symbol());
        }
    }

private:
    TTradesForm FForm;
};

} // namespace

std::unique_ptr<TDayForm> MakeMarketDayForm(TDayFormKind kind, TDay& day) {
    if (kind == TDayFormKind::Watch) return std::make_unique<TWatchDayForm>(day);
    if (kind == TDayFormKind::Underlyer) return std::make_unique<TUnderlyerDayForm>(day);
    return std::make_unique<TTradesDayForm>(day);
}

} // namespace quorin
