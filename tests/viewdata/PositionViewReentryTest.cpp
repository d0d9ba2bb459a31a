#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TAct = std::function<void()>;

// The aggregated view of M1: two rows, 00700 of the master and 00005 of S1 last.
struct TPositionViewReentryTest : TPositionViewTest {
    TPositionViewReentryTest() {
        Hold(u"M1", u"00700", 100.0);
        Hold(u"S1", u"00005", u"qty=400 sqty=5 buy=10 paid=20 cover=3");
        Hold(u"A1", u"00005", 40.0);
        Deliver();
    }
};

// Something in the middle of a request or a rebuild changes what is shown.
TEST_F(TPositionViewReentryTest, ChangesFromInside) {
    SpyOnFormatter();
    Services().Products().FeedProduct(u"00005", {}).SetMarginRatio(0.5);
    SetField(u"00005", Field::LastPrice, 2.0);
    const std::pair<const char*, TAct> changes[] = {
        {"rebuild", [this] { View->RefreshDataList(); }},
        {"update", [this] { Hold(u"S1", u"00700", 1.0), Deliver(); }},
        {"filter", [this] { View->SetFilterCurrency(u"CNY"); }},
        {"toggle", [this] { View->SetAggregate(); }},
        {"account", [this] { View->SetAccount(u"A1"); }},
        {"no account", [this] { View->SetAccount({}); }},
        {"and back", [this] { View->SetAccount({}), View->SetAccount(u"M1"); }},
    };
    const auto begin = [this] {
        Positions.InMarketValue = Positions.InRemoveMarketData = Spy.InFormatValue = nullptr;
        Positions.InPositionList = nullptr;
        OnRows = nullptr;
        MakeView();
        Show(u"M1", /*aggregated=*/true);
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        Integer calls = 0;
        const TAct once = [&calls, &what = change] {
            if (calls++ == 0) what();
        };
        const auto check = [&] {
            EXPECT_GT(calls, 0) << "nothing has called";
            View->CheckInvariants();
            const String rows = View->Rows();
            Positions.InPositionList = nullptr;
            OnRows = nullptr;
            View->RefreshDataList();
            EXPECT_EQ(rows, View->Rows()) << "what the events left is what a rebuild finds";
        };
        Integer reentered = 0;
        for (const Integer column :
             {0, 10, 11, 51, 95, 101, 405, 406, 479, 504, 896, 1105, 10001}) {
            for (const bool isText : {false, true}) {
                begin();
                calls = 0;
                Positions.InMarketValue = once;
                Spy.InFormatValue = once;
                const Integer row = View->GetCount() - 1;
                if (isText) {
                    View->GetDisplayValue(row, column);
                } else {
                    View->GetValue(row, column);
                }
                if (calls == 0) continue; // a value that nobody else has a hand in
                ++reentered;
                check();
            }
        }
        EXPECT_GE(reentered, FaultsOn() ? 6 : 10); // faults drop rows and bring them back elsewhere
        begin();
        calls = 0;
        Positions.InMarketValue = once;
        View->GetTotalMarketValue();
        check();

        begin();
        calls = 0;
        OnRows = once;
        Hold(u"S1", u"00005", u"qty=410 sqty=5 buy=10 paid=20 cover=3");
        Deliver();
        check();

        // A record that calls back while it is added up.
        struct TCallingPosition : TEmbeddedPositionData {
            using TEmbeddedPositionData::TEmbeddedPositionData;
            TAct InQuantity;
            Double GetQuantity() const override {
                if (InQuantity) InQuantity();
                return 12.0;
            }
        } calling(u"AU12", u"S1");
        begin();
        calls = 0;
        Positions.InPositionList = [&](StringView account, TPositionDictionary& list) {
            if (account == u"S1") list.Add(u"AU12", &calling);
        };
        calling.InQuantity = once;
        View->RefreshDataList();
        View->CheckInvariants();
        EXPECT_GT(calls, 0);
        calls = 0;
        Positions.InPositionList = [&](StringView, TPositionDictionary&) { once(); };
        View->RefreshDataList();
        check();
    }
}

// The form closes while it hears of a change.
TEST_F(TPositionViewReentryTest, TheViewMayDieInItsSignals) {
    WithoutCallsInside("the caller would be freed");
    const std::pair<const char*, TAct> events[] = {
        {"position", [this] { Hold(u"M1", u"00700", 7.0), Deliver(); }},
        {"sub-account's position", [this] { Hold(u"S1", u"00700", 7.0), Deliver(); }},
        {"margin ratios", [this] { View->ProductMarginRatioUpdate(nullptr, nullptr); }},
        {"zero quantities", [this] { SetConfig(ConfigKey::DisplayZeroQty, u"1"); }},
        {"filter", [this] { View->SetFilterCurrency(u"CNY"); }},
        {"toggle", [this] { View->SetAggregate(); }},
        {"account", [this] { View->SetAccount(u"A1"); }},
        {"details",
         [this] {
             Services().Accounts().FeedAccount(
                 u"M1", {.MarginType = 1, .IsAggregate = true, .GroupID = u"G5"});
             TAccountDictionary loaded;
             loaded.Add(u"M1", TCustomAccountAdapter::GetInstance()->GetAccount(u"M1", false));
             View->AccountInfoLoadUpdate(&loaded, nullptr);
         }},
    };
    OnRows = OnInfo = [this] { View.reset(); };
    for (const auto& [name, event] : events) {
        SetConfig(ConfigKey::DisplayZeroQty, u"");
        OnRows = nullptr;
        MakeView();
        Show(u"M1", /*aggregated=*/true);
        OnRows = OnInfo;
        event();
        EXPECT_EQ(View, nullptr) << name << " has signalled nothing";
        ExpectSignals(u"R");
    }
}

// Whoever is still asked at the very end finds an empty list, not rows that are gone.
TEST_F(TPositionViewReentryTest, DiesWithAnEmptyList) {
    Show(u"M1", /*aggregated=*/true);
    TCustomPositionDataControl* const base = View.get();
    EXPECT_EQ(base->GetCount(), 2);
    Integer left = -1;
    Positions.InRemoveMarketData = [&] { left = base->GetCount(); };
    View.reset();
    EXPECT_EQ(left, 0);
}

} // namespace
} // namespace quorin
