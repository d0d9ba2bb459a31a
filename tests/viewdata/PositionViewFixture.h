#pragma once

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "tests/support/ServicesFixture.h"
#include "tests/viewdata/Kinded.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"

#include <functional>
#include <utility>

namespace quorin {

struct TNamedFigure {
    StringView Name;
    Double TPositionFigures::*Figure;
    Double (TCustomPositionData::*Getter)() const;
};
#define QUORIN_FIGURE(NAME, FIGURE)                                                                \
    { NAME, &TPositionFigures::FIGURE, &TCustomPositionData::Get##FIGURE }
// The quantities and amounts of a position, then what can't be summed.
inline constexpr TNamedFigure Quantities[] = {
    QUORIN_FIGURE(u"qty", Quantity),          QUORIN_FIGURE(u"start", BODQuantity),
    QUORIN_FIGURE(u"sqty", ShortQuantity),    QUORIN_FIGURE(u"sstart", BODShortQuantity),
    QUORIN_FIGURE(u"buy", TodayBuyQty),       QUORIN_FIGURE(u"paid", TodayBuyAmount),
    QUORIN_FIGURE(u"sell", TodaySellQty),     QUORIN_FIGURE(u"got", TodaySellAmount),
    QUORIN_FIGURE(u"pbuy", TodayPendBuyQty),  QUORIN_FIGURE(u"psell", TodayPendSellQty),
    QUORIN_FIGURE(u"out", WithdrawQty),       QUORIN_FIGURE(u"in", DepositQty),
    QUORIN_FIGURE(u"cover", CoveredQty),      QUORIN_FIGURE(u"held", CustodianQty),
    QUORIN_FIGURE(u"pheld", PendCustodianQty)};
inline constexpr TNamedFigure Prices[] = {
    QUORIN_FIGURE(u"at", BODPrice),       QUORIN_FIGURE(u"nominal", Nominal),
    QUORIN_FIGURE(u"close", PClose),      QUORIN_FIGURE(u"init", InitPL),
    QUORIN_FIGURE(u"real", RealPL),       QUORIN_FIGURE(u"exe", ExePL),
    QUORIN_FIGURE(u"fifn", AvgPriceFIFN), QUORIN_FIGURE(u"mixed", AvgPriceMixed),
    QUORIN_FIGURE(u"avgin", AvgPriceIn)};
#undef QUORIN_FIGURE

// "long qty=300 start=100 at=10": a side, the product type behind "type" and figures by name.
inline TPositionFigures Figures(StringView text) {
    TPositionFigures figures;
    for (const StringView word : Split(text, u' ')) {
        const std::size_t sign = word.find(u'=');
        const StringView name = word.substr(0, sign);
        const Double value = sign < word.size() ? ToDoubleOr(word.substr(sign + 1), -7e77) : 0.0;
        bool isKnown = name == u"long" || name == u"short" || name == u"type" || word.empty();
        if (name == u"long") figures.Side = TPositionSide::Long;
        if (name == u"short") figures.Side = TPositionSide::Short;
        if (name == u"type") figures.ProdType = static_cast<Integer>(value);
        const auto take = [&](const TNamedFigure& figure) {
            if (figure.Name != name) return;
            figures.*figure.Figure = value;
            isKnown = true;
        };
        for (const TNamedFigure& figure : Quantities) take(figure);
        for (const TNamedFigure& figure : Prices) take(figure);
        EXPECT_TRUE(isKnown) << ToUtf8(word);
    }
    return figures;
}

// The position service of the test: the embedded one, or what the test's own hooks put before it.
class TRelayedPositions : public TCustomPositionAdapter {
public:
    explicit TRelayedPositions(TCustomPositionAdapter& inner) : Inner(inner) {}

    // Called inside the operations of these names, before they answer.
    std::function<void()> InMarketValue;
    std::function<void(StringView account, TPositionDictionary& list)> InPositionList;
    std::function<void()> InRemoveMarketData;

    void ChangePositionAccount(StringView account, const TDataCallbackEvent& event, TObject* owner,
                               StringView previous) override {
        Inner.ChangePositionAccount(account, event, owner, previous);
    }
    void RemovePositionCallback(StringView account, TObject* owner) override {
        Inner.RemovePositionCallback(account, owner);
    }
    void AddPositionMarketDataCallback(const TDataCallbackEvent& event, TObject* owner) override {
        Inner.AddPositionMarketDataCallback(event, owner);
    }
    void RemovePositionMarketDataCallback(TObject* owner) override {
        if (InRemoveMarketData) InRemoveMarketData();
        Inner.RemovePositionMarketDataCallback(owner);
    }
    void AddAggregatePositionCallback(StringView account, const TDataCallbackEvent& event,
                                      TObject* owner, Pointer reserved) override {
        EXPECT_EQ(reserved, nullptr);
        Inner.AddAggregatePositionCallback(account, event, owner, reserved);
    }
    void RemoveAggregatePositionCallback(StringView account, TObject* owner) override {
        Inner.RemoveAggregatePositionCallback(account, owner);
    }
    void GetPositionList(StringView account, TPositionDictionary& list) const override {
        if (InPositionList) InPositionList(account, list);
        Inner.GetPositionList(account, list);
    }
    TCustomPositionData* GetPosition(StringView account, StringView symbol) const override {
        return Inner.GetPosition(account, symbol);
    }
    Boolean GetMarketValue(StringView symbol, Double quantity, Double& value) const override {
        if (InMarketValue) InMarketValue();
        return Inner.GetMarketValue(symbol, quantity, value);
    }

private:
    TCustomPositionAdapter& Inner;
};

// Writes what it was asked for: "12 2/00700/T" is 12 as kind 2, for 00700, with the flag. "$"
// stands for the row's symbol in the tables.
class TSpyFormatter : public TCustomFormatter {
public:
    std::function<void()> InFormatValue;

    String FormatInteger(Integer value) const override { return u"i" + Variant(value).ToText(); }
    String FormatFloat(Double value, Integer, Boolean) const override {
        return Variant(value).ToText();
    }
    String FormatValue(Double value, TDisplayDataType type, StringView symbol, Boolean flag,
                       Pointer reserved) const override {
        EXPECT_EQ(reserved, nullptr);
        if (InFormatValue) InFormatValue();
        return Variant(value).ToText() + u' ' + Variant(Integer{type}).ToText() + u'/' +
               String(symbol) + (flag ? u"/T" : u"/F");
    }
};

// The value of a cell, and " | " with its text where that says something else. What the spy adds to
// the number follows it; "$" stands for the symbol of the row's record there.
inline String CellOf(TBaseDataControl& control, Integer row, Integer attribute,
                     const TCustomPositionData* record) {
    // The record may go while the cell is asked for.
    const String symbol = record != nullptr ? u'/' + record->GetSymbol() + u'/' : String();
    const Variant value = control.GetValue(row, attribute);
    String text = control.GetDisplayValue(row, attribute);
    const std::size_t place = symbol.empty() ? String::npos : text.find(symbol);
    if (place != String::npos) text.replace(place, symbol.size(), u"/$/");
    const String plain = value.ToText();
    if (text == plain) return Kinded(value);
    if (text.starts_with(plain + u' ')) return Kinded(value) + text.substr(plain.size());
    return Kinded(value) + u" | " + text;
}

// A list of positions that can be looked into.
template <class Base>
class TOpenRows : public Base {
    QUORIN_CLASS(TOpenRows, Base)

    explicit TOpenRows(TComponent* owner = nullptr) : Base(owner) {
        this->EmptyDisplayText = u"--";
        this->GroupID = u"GROUP";
    }
    // "00700:100 HSIF:5", the symbols with their quantities.
    String Rows() const {
        String text;
        for (const String& symbol : this->FDataList) {
            TCustomPositionData* const* record = this->FDataDictionary.Find(symbol);
            text += (text.empty() ? u"" : u" ") + symbol + u':';
            text += record != nullptr ? Variant((*record)->GetQuantity()).ToText() : u"?";
        }
        return text;
    }
    void CheckInvariants() const {
        EXPECT_EQ(this->FDataList.Count(), this->FDataDictionary.Count());
        for (const String& symbol : this->FDataList) {
            TCustomPositionData* const* record = this->FDataDictionary.Find(symbol);
            ASSERT_NE(record, nullptr) << ToUtf8(symbol) << " has no record";
            ASSERT_NE(*record, nullptr);
            EXPECT_EQ((*record)->GetSymbol(), symbol);
            EXPECT_EQ((*record)->GetAccount(), this->FAccount);
        }
    }
};

// A position view that can be looked into.
class TView : public TOpenRows<TPositionViewDataControl> {
    QUORIN_CLASS(TView, TOpenRows<TPositionViewDataControl>)

    using Inherited::Inherited;
    using TPositionViewDataControl::FAggregatePositionList;

    std::function<void(Integer row, Integer attribute, Variant& value)> InGetValue;
    Variant GetValue(Integer row, Integer attribute) override {
        Variant value = Inherited::GetValue(row, attribute);
        if (InGetValue) InGetValue(row, attribute, value);
        return value;
    }
    TCustomPositionData* Record(Integer row) const { return RecordAt(row); }
    TCustomPositionData* Record(const String& symbol) const {
        TCustomPositionData* const* record = FDataDictionary.Find(symbol);
        return record != nullptr ? *record : nullptr;
    }
    String SubAccounts() const {
        String text;
        for (const auto& item : FSubAccountList) text += (text.empty() ? u"" : u" ") + item.Key;
        return text;
    }
    void CheckInvariants() const {
        Inherited::CheckInvariants();
        if (TFaultPlan::IsInFault()) return; // a call may come while the rows are changing
        for (const String& symbol : FDataList) {
            const auto* sum = FAggregatePositionList.Find(symbol);
            EXPECT_EQ(FAggregated, sum != nullptr && sum->get() == Record(symbol))
                << ToUtf8(symbol);
        }
        if (!FAggregated) {
            EXPECT_TRUE(FAggregatePositionList.IsEmpty());
            EXPECT_TRUE(FSubAccountList.IsEmpty());
        }
    }
};

// Positions over the fixture's universe and AU12, a future on SHFE (CNY, size 1000).
template <class Relay>
struct TPositionWorld : TServicesFixture {
    using TServicesFixture::Services;
    using TServicesFixture::SetConfig;

    TPositionWorld() {
        ServiceRegistry::Install(&Positions);
        TEmbeddedMarketAdapter& market = Services().Market();
        market.AddExchange(
            {.Code = u"SHFE", .Currency = u"CNY", .MarketState = u"CT", .MarketStatus = 1});
        market.AddSeries({.Code = u"AU", .Exchange = u"SHFE", .Names = {.Name = u"Gold"}});
        market.AddSymbol({.Symbol = u"AU12",
                          .Exchange = u"SHFE",
                          .Series = u"AU",
                          .Names = {.Name = u"Gold future"},
                          .ProductType = ProductType::Futures,
                          .ContractSize = 1000.0});
    }
    ~TPositionWorld() override {
        ServiceRegistry::Install(RealFormatter);
        ServiceRegistry::Install(RealPositions);
    }

    // Cells then show what the formatter was asked for.
    void SpyOnFormatter() { ServiceRegistry::Install(&Spy); }
    TEmbeddedSubItem& Item(StringView symbol) { return Services().Items().Item(symbol); }
    void Deliver() { Services().Deliver(); }

    TCustomFormatter* RealFormatter = TCustomFormatter::GetInstance();
    TCustomPositionAdapter* RealPositions = TCustomPositionAdapter::GetInstance();
    Relay Positions{*RealPositions};
    TSpyFormatter Spy;
};

// A position view and these accounts: the masters M1 (margin, of S1 and S2) and M2 (of T1), A1
// (margin) and A2.
struct TPositionViewTest : TPositionWorld<TRelayedPositions> {
    TPositionViewTest() {
        const auto feed = [this](StringView code, const TAccountDetails& details) {
            Services().Accounts().FeedAccount(code, details);
        };
        feed(u"M1", {.MarginType = 1, .PrincipalType = u"S", .IsAggregate = true});
        feed(u"M2", {.IsAggregate = true});
        feed(u"S1", {.MasterAccount = u"M1"});
        feed(u"S2", {.MasterAccount = u"M1"});
        feed(u"T1", {.MasterAccount = u"M2"});
        feed(u"A1", {.MarginType = 1, .PrincipalType = u"S"});
        feed(u"A2", {});
        Services().Deliver();
        MakeView();
    }
    ~TPositionViewTest() override { View.reset(); }

    void MakeView() {
        View.reset();
        View = CreateComponent<TView>();
        View->SetOnDataChanged(MakeEvent<&TPositionViewTest::RowsSignalled>(this));
        View->SetOnSummaryDataChanged(MakeEvent<&TPositionViewTest::SummarySignalled>(this));
        View->SetOnAccountInfoUpdate(MakeEvent<&TPositionViewTest::InfoSignalled>(this));
        Signals.clear();
    }
    void Show(StringView account, bool aggregated = false) {
        View->SetAccount(account);
        if (aggregated) View->SetAggregate();
        Signals.clear();
    }

    // Counts at once; what follows Deliver is told.
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, TPositionFigures figures) {
        figures.Ticker = &Item(symbol);
        return Services().Positions().FeedPosition(account, symbol, figures);
    }
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, StringView figures) {
        return Hold(account, symbol, Figures(figures));
    }
    TEmbeddedPositionData& Hold(StringView account, StringView symbol, Double quantity) {
        return Hold(account, symbol, TPositionFigures{.Quantity = quantity});
    }
    // Without a ticker.
    TEmbeddedPositionData& HoldBare(StringView symbol, StringView figures) {
        return Services().Positions().FeedPosition(u"A1", symbol, Figures(figures));
    }

    String Cell(Integer row, Integer attribute) {
        return CellOf(*View, row, attribute, View->Record(row));
    }

    // The signals since the last time, in order: R rows, S summary, I account information.
    void ExpectSignals(StringView expected) {
        const String came = std::exchange(Signals, {});
        if (!FaultsOn()) {
            EXPECT_EQ(came, expected);
        }
        if (View != nullptr) View->CheckInvariants();
    }
    void RowsSignalled(TObject* sender) {
        EXPECT_EQ(sender, View.get());
        View->CheckInvariants();
        Signals += u'R';
        if (OnRows) OnRows();
    }
    void SummarySignalled(TObject* sender) {
        EXPECT_EQ(sender, View.get());
        Signals += u'S';
    }
    void InfoSignalled(TObject* sender) {
        EXPECT_EQ(sender, nullptr);
        Signals += u'I';
        if (OnInfo) OnInfo();
    }

    std::unique_ptr<TView> View;
    String Signals;
    std::function<void()> OnRows;
    std::function<void()> OnInfo;
};

} // namespace quorin
