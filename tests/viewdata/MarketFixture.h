#pragma once

#include "platform/rtl/Utf.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/ConfigKeys.h"

#include <array>
#include <utility>
#include <vector>

namespace quorin {

inline constexpr StringView WatchColumns = u"WatchColumns";

// A market watch as a form makes one, which can be looked into.
class TWatch : public TCustomMarketDataControl {
    QUORIN_CLASS(TWatch, TCustomMarketDataControl)

    explicit TWatch(TComponent* owner = nullptr) : TCustomMarketDataControl(owner) {
        EmptyDisplayText = u"--";
        FCustomColumnTagID = WatchColumns;
    }

    void SymbolUpdate(Pointer Sender, Pointer Data) override {
        if (!TFaultPlan::IsInFault()) ++Batches;
        Inherited::SymbolUpdate(Sender, Data);
    }
    void SymbolRealtimeUpdate(TObject* Sender) override {
        ++RealtimeUpdates;
        Inherited::SymbolRealtimeUpdate(Sender);
    }

    String Rows() {
        String text;
        for (Integer row = 0; row < GetCount(); ++row) {
            if (row > 0) text += u' ';
            text += GetSymbol(row);
        }
        return text;
    }
    Integer SubscribedCount() const { return FSubscribedDataList.Count(); }
    const Double* LastPrice(StringView symbol) const { return FLastPriceList.Find(symbol); }
    bool HasOrder() const { return FMyOrder != nullptr; }

    void CheckInvariants() const {
        TDictionary<String, bool> seen;
        for (const String& symbol : FDataList) EXPECT_TRUE(seen.Add(symbol, true)) << "row twice";
        for (const auto& item : FDataDictionary) {
            EXPECT_TRUE(seen.ContainsKey(item.Key)) << "record without a row";
            ASSERT_NE(item.Value, nullptr);
            EXPECT_EQ(item.Value->GetSymbol(), item.Key);
        }
        for (const auto& item : FSubscribedDataList) {
            ASSERT_NE(item.Value, nullptr);
            EXPECT_EQ(item.Value->GetKey(), item.Key);
        }
        EXPECT_EQ(FIsFavoriteExchange, FExchange == FavoriteExchange);
        EXPECT_EQ(FMonitoringPosition, FShowPosition && !FAccount.empty());
    }

    Integer Batches = 0;
    Integer RealtimeUpdates = 0;
};

// A market watch over the fixture's universe and one exchange more, without a translation: QEX,
// ZZZ, series ZERO of category 0 with the names "Zero", "Zero1", "Zero2" and the future Z12. The
// account A1 is known.
struct TMarketTest : TServicesFixture {
    using TServicesFixture::Services;
    using TServicesFixture::SetConfig;
    static constexpr Integer OwnRegistrations = 3; // settings, favourites, tick tables

    TMarketTest() {
        TEmbeddedMarketAdapter& market = Services().Market();
        market.AddExchange({.Code = u"QEX", .Currency = u"ZZZ", .MarketState = u"??"});
        market.AddSeries(
            {.Code = u"ZERO",
             .Exchange = u"QEX",
             .Names = {.Name = u"Zero", .Language1 = u"Zero1", .Language2 = u"Zero2"}});
        market.AddSymbol({.Symbol = u"Z12",
                          .Exchange = u"QEX",
                          .Series = u"ZERO",
                          .ProductType = ProductType::Futures,
                          .ExpiryMonth = u"202612"});
        Services().Accounts().FeedAccount(u"A1");
        Services().Accounts().FeedAccount(u"A2");
        Services().Deliver();
        MakeControl();
    }

    void MakeControl() {
        Control = CreateComponent<TWatch>();
        Control->SetOnDataChanged(MakeEvent<&TMarketTest::Signalled>(this));
    }
    void Signalled(TObject* sender) {
        ++(IsInFault() ? SignalsInFaults : Signals);
        EXPECT_EQ(sender, Control.get());
        Control->CheckInvariants();
    }
    // Without those that a fault has caused.
    Integer TakeSignals() {
        SignalsInFaults = 0;
        return std::exchange(Signals, 0);
    }
    // For signals that tell of a difference, which a fault may have told of before.
    testing::AssertionResult TookSignals(Integer expected) {
        const Integer inFaults = SignalsInFaults;
        const Integer signals = TakeSignals();
        if (signals <= expected && signals + inFaults >= expected) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << signals << " instead of " << expected;
    }

    void Load(StringView exchange, Integer category = -1) {
        Control->SetExchangeAndCategory(exchange, category);
        Signals = 0;
    }
    void LoadFavorites(std::initializer_list<StringView> symbols) {
        for (const StringView symbol : symbols) Services().Market().AddFavorite(symbol);
        Services().Deliver();
        Load(FavoriteExchange);
    }
    void Show(const std::vector<Integer>& rows) { EXPECT_TRUE(Control->ViewRecordChanged(rows)); }
    // One delivery in which the symbols' last price is that.
    void Tick(std::initializer_list<StringView> symbols, Double price) {
        for (const StringView symbol : symbols) SetField(symbol, Field::LastPrice, price);
        Services().Items().Deliver();
    }
    // The symbols whose ticks reach the view, each of them as one signal.
    String Followed() {
        String followed;
        for (const StringView symbol : {u"00005", u"00700", u"HSIF", u"TCHC", u"Z12", u"GHOST"}) {
            Signals = 0;
            Tick({symbol}, 1.0);
            if (Signals == 0) continue;
            EXPECT_EQ(Signals, 1) << ToUtf8(symbol);
            followed += (followed.empty() ? u"" : u" ") + String(symbol);
        }
        Signals = 0;
        return followed;
    }
    Integer Registered() { return Services().RegistrationCount() - OwnRegistrations; }

    std::unique_ptr<TWatch> Control;
    Integer Signals = 0;
    Integer SignalsInFaults = 0;
};

} // namespace quorin
