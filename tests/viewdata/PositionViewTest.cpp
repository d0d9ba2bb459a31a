#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorin {
namespace {

using TSide = TPositionSide;
using TAct = std::function<void()>;

// M1 holds 100 of 00700, traded, and 5 HSIF; S1 the opposite of 00700, and 400 of 00005; S2 2 HSIF.
struct TPositionViewEventsTest : TPositionViewTest {
    TPositionViewEventsTest() {
        Hold(u"M1", u"00700", {.Quantity = 100, .TodayBuyQty = 100});
        Hold(u"M1", u"HSIF", 5.0);
        Hold(u"S1", u"00700", -100.0);
        Hold(u"S1", u"00005", 400.0);
        Hold(u"S2", u"HSIF", 2.0);
        Hold(u"M2", u"00005", 800.0);
        Hold(u"T1", u"TCHC", 3.0);
        Hold(u"A1", u"00005", 40.0);
        Hold(u"S3", u"TCHC", 9.0); // nobody's sub-account yet
        Hold(u"S3", u"HSIF", 1.0);
        Deliver();
    }
    Integer PositionRegistrations() {
        return Services().Positions().RegistrationCount() - 1; // prices are followed from the start
    }
    static constexpr StringView PlainM1 = u"00700:100 HSIF:5";
    static constexpr StringView SumM1 = u"HSIF:7 00005:400"; // 00700 adds up to nothing
};

TEST_F(TPositionViewEventsTest, NewView) {
    EXPECT_FALSE(View->Aggregated());
    EXPECT_EQ(View->Account() + View->FilterCurrency() + View->Rows(), u"");
    EXPECT_EQ(View->ConvertCurrency(), u"HKD");
    EXPECT_EQ(PositionRegistrations(), 0);
    const Integer registered = Services().RegistrationCount();
    View.reset();
    // Settings, prices, tick tables, ratios of currencies and of margin, details, sub-accounts.
    EXPECT_EQ(Services().RegistrationCount(), registered - 7);
}

TEST_F(TPositionViewEventsTest, Modes) {
    const auto toggle = [this] { View->SetAggregate(); };
    const auto account = [this](StringView code) {
        return [this, code] { View->SetAccount(code); };
    };
    const struct {
        const char* Name;
        StringView Start;
        bool IsAggregated;
        TAct Event;
        bool Next;
        StringView Rows, SubAccounts, Signals;
        Integer Registrations; // -1 where they do not matter
    } cases[] = {
        {"plain, toggle master", u"M1", false, toggle, true, SumM1, u"S1 S2", u"R", 2},
        {"plain, toggle other", u"A1", false, toggle, false, u"00005:40", u"", u"", 1},
        {"plain, toggle sub", u"S2", false, toggle, false, u"HSIF:2", u"", u"", 1},
        {"plain, toggle unknown", u"S3", false, toggle, false, u"TCHC:9 HSIF:1", u"", u"", 1},
        {"plain, toggle none", u"", false, toggle, false, u"", u"", u"", 0},
        {"plain, master", u"A1", false, account(u"M1"), false, PlainM1, u"", u"R", 1},
        {"plain, same", u"M1", false, account(u"M1"), false, PlainM1, u"", u"", 1},
        {"sum, toggle", u"M1", true, toggle, false, PlainM1, u"", u"R", 1},
        {"sum, master", u"M1", true, account(u"M2"), true, u"00005:800 TCHC:3", u"T1", u"R", 2},
        {"sum, same", u"M1", true, account(u"M1"), true, SumM1, u"S1 S2", u"", 2},
        {"sum, other", u"M1", true, account(u"A1"), false, u"00005:40", u"", u"R", 1},
        {"sum, sub", u"M1", true, account(u"S1"), false, u"00700:-100 00005:400", u"", u"R", 1},
        {"sum, unknown", u"M1", true, account(u"S3"), false, u"TCHC:9 HSIF:1", u"", u"R", 1},
        {"sum, nobody", u"M1", true, account(u"NOBODY"), false, u"", u"", u"R", 1},
        {"sum, none", u"M1", true, account(u""), true, u"", u"", u"R", -1},
        {"sum, none, toggle", u"M1", true,
         [&] {
             account(u"")();
             toggle();
         },
         true, u"", u"", u"R", -1},
        {"sum, none, master", u"M1", true,
         [&] {
             account(u"")();
             account(u"M2")();
         },
         true, u"00005:800 TCHC:3", u"T1", u"RR", 2},
        {"there and back", u"M1", false,
         [&] {
             toggle();
             toggle();
         },
         false, PlainM1, u"", u"RR", 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        MakeView();
        Show(row.Start, row.IsAggregated);
        EXPECT_EQ(View->Aggregated(), row.IsAggregated);
        row.Event();
        EXPECT_EQ(View->Aggregated(), row.Next);
        EXPECT_EQ(View->Rows(), row.Rows);
        EXPECT_EQ(View->SubAccounts(), row.SubAccounts);
        ExpectSignals(row.Signals);
        if (row.Registrations >= 0) {
            EXPECT_EQ(PositionRegistrations(), row.Registrations);
        }
        View.reset();
        EXPECT_EQ(Services().Positions().RegistrationCount(), 0);
    }
}

TEST_F(TPositionViewEventsTest, Events) {
    const auto hold = [this](StringView account, StringView symbol, Double quantity) {
        return [=, this] {
            Hold(account, symbol, quantity);
            Deliver();
        };
    };
    const auto move = [this](StringView symbol) {
        return [=, this] { SetField(symbol, Field::LastPrice, 3.0), Deliver(); };
    };
    const auto set = [this](StringView key) { return [=, this] { SetConfig(key, u"1"); }; };
    const struct {
        const char* Name;
        TAct Event;
        StringView Plain, PlainSignals, Sum, SumSignals;
    } cases[] = {
        {"master's position", hold(u"M1", u"00700", 150), u"00700:150 HSIF:5", u"RS",
         u"00700:50 HSIF:7 00005:400", u"RS"},
        {"master's new position", hold(u"M1", u"TCHC", 1), u"00700:100 HSIF:5 TCHC:1", u"RS",
         u"HSIF:7 TCHC:1 00005:400", u"RS"},
        {"master's closed position", hold(u"M1", u"HSIF", 0), u"00700:100", u"RS",
         u"HSIF:2 00005:400", u"RS"},
        {"sub-account's position", hold(u"S1", u"00005", 900), PlainM1, u"", u"HSIF:7 00005:900",
         u"RS"},
        {"another account's position", hold(u"A1", u"00700", 900), PlainM1, u"", SumM1, u""},
        {"master's market data", move(u"00700"), PlainM1, u"R", SumM1, u"R"},
        {"sub-account's market data", move(u"00005"), PlainM1, u"", SumM1, u"R"},
        {"other market data", move(u"TCHC"), PlainM1, u"", SumM1, u""},
        {"sub-account loaded",
         [this] {
             Services().Accounts().FeedAccount(u"S3", {.MasterAccount = u"M1"});
             Deliver();
         },
         PlainM1, u"", u"HSIF:8 00005:400 TCHC:9", u"R"},
        {"another master's sub-account loaded",
         [this] {
             Services().Accounts().FeedAccount(u"S3", {.MasterAccount = u"M2"});
             Deliver();
         },
         PlainM1, u"", SumM1, u""},
        {"margin ratio",
         [this] {
             Services().Products().FeedProduct(u"AU12", {}).SetMarginRatio(0.5);
             Services().Products().Deliver();
         },
         PlainM1, u"RS", SumM1, u"RS"},
        {"zero quantities", set(ConfigKey::DisplayZeroQty), PlainM1, u"R",
         u"00700:0 HSIF:7 00005:400", u"R"},
        {"bond style", set(ConfigKey::DenominatorModeValue), PlainM1, u"R", SumM1, u"R"},
        {"another setting", set(ConfigKey::MiddlePLPrice), PlainM1, u"", SumM1, u""},
        {"filter", [this] { View->SetFilterCurrency(u"cny"); }, u"", u"R", u"", u"R"},
        {"same filter", [this] { View->SetFilterCurrency({}); }, PlainM1, u"", SumM1, u""},
        {"own currency", [this] { View->SetFilterCurrency(u"hKd"); }, PlainM1, u"R", SumM1, u"R"},
        {"currency ratio",
         [this] {
             Services().Currencies().FeedRatio(u"USD", 8.0);
             Deliver();
         },
         PlainM1, u"R", SumM1, u"R"},
        {"target currency", [this] { View->SetConvertCurrency(u"USD"); }, PlainM1, u"R", SumM1,
         u"R"},
        {"China Connect", [this] { View->SetShowChinaConnect(u"CNY"); }, PlainM1, u"", SumM1, u""},
        {"nothing named",
         [this] {
             TAccountPositionDictionary positions;
             TAccountDictionary accounts;
             for (void* const sender : {Pointer(), Pointer(&positions)}) {
                 View->PositionUpdate(sender, nullptr);
                 View->PositionMarketDataUpdate(sender, nullptr);
             }
             for (void* const sender : {Pointer(), Pointer(&accounts)}) {
                 View->SubAccountLoadUpdate(sender, nullptr);
                 View->AccountInfoLoadUpdate(sender, nullptr);
             }
         },
         PlainM1, u"", SumM1, u""},
    };
    // Each case begins with a world of its own.
    const auto reset = [this] {
        View.reset();
        for (const StringView key : {ConfigKey::DisplayZeroQty, ConfigKey::DenominatorModeValue,
                                     ConfigKey::MiddlePLPrice}) {
            SetConfig(key, u"");
        }
        Services().Accounts().FeedAccount(u"S3", {});
        Hold(u"M1", u"00700", {.Quantity = 100, .TodayBuyQty = 100});
        Hold(u"M1", u"HSIF", 5.0);
        Hold(u"M1", u"TCHC", 0.0);
        Hold(u"S1", u"00005", 400.0);
        Hold(u"A1", u"00700", 0.0);
        Deliver();
        MakeView();
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        for (const bool isSum : {false, true}) {
            reset();
            Show(u"M1", isSum);
            row.Event();
            EXPECT_EQ(View->Rows(), isSum ? row.Sum : row.Plain) << isSum;
            ExpectSignals(isSum ? row.SumSignals : row.PlainSignals);
        }
    }
    reset();
    Show(u"NOBODY");
    TAccountPositionDictionary sender;
    TPositionDictionary none;
    sender.Add(u"NOBODY", &none);
    View->PositionMarketDataUpdate(&sender, nullptr);
    View->PositionUpdate(&sender, nullptr);
    ExpectSignals(u"");
}

TEST_F(TPositionViewEventsTest, WhatIsDisplayed) {
    constexpr struct {
        const char* Name;
        Double Quantity, Bought, Sold;
        bool Plain, WithZero;
    } cases[] = {
        {"0.0", 0.0, 0.0, 0.0, false, false},        {"5e-8", 5e-8, 0.0, 0.0, false, false},
        {"1e-7", 1e-7, 0.0, 0.0, false, false},      {"2e-7", 2e-7, 0.0, 0.0, true, true},
        {"-1e-7", -1e-7, 0.0, 0.0, false, false},    {"-2e-7", -2e-7, 0.0, 0.0, true, true},
        {"0, bought", 0.0, 5e-8, 0.0, false, true},  {"0, sold", 0.0, 0.0, 1.0, false, true},
        {"1e-7, both", 1e-7, 1.0, 1.0, false, true}, {"2e-7, both", 2e-7, 1.0, 1.0, true, true},
    };
    for (const bool withZero : {false, true}) {
        SetConfig(ConfigKey::DisplayZeroQty, withZero ? u"1" : u"0");
        for (const auto& row : cases) {
            TEmbeddedPositionData record(u"GHOST", u"A1");
            TPositionFigures figures{
                .Quantity = row.Quantity, .TodayBuyQty = row.Bought, .TodaySellQty = row.Sold};
            const bool shown = withZero ? row.WithZero : row.Plain;
            record.SetFigures(figures);
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            View->SetFilterCurrency(u"hkd"); // lets those without a ticker pass
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            figures.Ticker = &Item(u"00700");
            record.SetFigures(figures);
            EXPECT_EQ(View->IsDisplayPosition(&record), shown) << row.Name;
            figures.Ticker = &Item(u"AU12");
            record.SetFigures(figures);
            EXPECT_FALSE(View->IsDisplayPosition(&record)) << row.Name;
            View->SetFilterCurrency({});
        }
    }
    EXPECT_FALSE(View->IsDisplayPosition(nullptr));
}

TEST_F(TPositionViewEventsTest, ACurrencyThatComesLateBringsTheRowBack) {
    Hold(u"A1", u"GHOST", 7.0);
    Show(u"A1");
    View->SetFilterCurrency(u"HKD");
    EXPECT_EQ(View->Rows(), u"00005:40");
    SetField(u"GHOST", Field::Currency, u"HKD");
    Services().Items().Deliver();
    EXPECT_EQ(View->Rows(), u"00005:40");
    Hold(u"A1", u"GHOST", 8.0);
    Deliver();
    EXPECT_EQ(View->Rows(), u"00005:40 GHOST:8");
}

TEST_F(TPositionViewEventsTest, ASumHasTheSideOfTheFirst) {
    Hold(u"M2", u"AU12", {.Side = TSide::Long, .Quantity = 100});
    Hold(u"T1", u"AU12", {.Side = TSide::Short, .Quantity = 100});
    Hold(u"T1", u"HSIF", {.Side = TSide::Short, .Quantity = 6});
    Show(u"M2", /*aggregated=*/true);
    EXPECT_EQ(View->Rows(), u"00005:800 AU12:200 TCHC:3 HSIF:6");
    EXPECT_EQ(View->Record(1)->GetSide(), TSide::Long);
    EXPECT_EQ(View->Record(3)->GetSide(), TSide::Short);
    View->SetFilterCurrency(u"CNY"); // hides rows, not sums
    EXPECT_EQ(View->Rows(), u"AU12:200");
    EXPECT_EQ(View->FAggregatePositionList.Count(), 4);
}

TEST_F(TPositionViewEventsTest, RowsThatStayKeepTheirOrder) {
    const auto hold = [this](StringView account, StringView symbol, Double quantity) {
        Hold(account, symbol, quantity);
        Deliver();
    };
    Hold(u"M1", u"00005", 4.0);
    Show(u"M1");
    EXPECT_EQ(View->Rows(), u"00700:100 HSIF:5 00005:4");
    hold(u"M1", u"00700", 0.0);
    hold(u"M1", u"00700", 9.0);
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:4 00700:9");
    View->SetFilterCurrency(u"HKD");
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:4 00700:9") << "a rebuild of the plain list";
    View->SetFilterCurrency({});
    Show(u"M2", /*aggregated=*/true);
    EXPECT_EQ(View->Rows(), u"00005:800 TCHC:3");
    hold(u"M2", u"TCHC", 5.0);
    hold(u"M2", u"00005", 0.0);
    hold(u"T1", u"00005", 6.0);
    hold(u"M2", u"TCHC", 0.0);
    EXPECT_EQ(View->Rows(), u"TCHC:3 00005:6");
}

TEST_F(TPositionViewEventsTest, SubAccountsThatVanish) {
    Show(u"M1", /*aggregated=*/true);
    Services().Accounts().FeedAccount(u"S2", {.MasterAccount = u"M2"});
    Deliver();
    Hold(u"S1", u"00005", 500.0);
    Deliver();
    View->CheckInvariants();
    TAccountDictionary loaded;
    loaded.Add(u"S1", TCustomAccountAdapter::GetInstance()->GetAccount(u"S1", false));
    View->SubAccountLoadUpdate(&loaded, nullptr);
    EXPECT_EQ(View->SubAccounts(), u"S1");
    EXPECT_EQ(View->Rows(), u"HSIF:5 00005:500");
    Services().Accounts().FeedAccount(u"M1", {.IsAggregate = false}); // the master, too
    Deliver();
    View->SubAccountLoadUpdate(&loaded, nullptr);
    Hold(u"S1", u"00005", 600.0);
    Deliver();
    View->CheckInvariants();
    View->SetAccount(u"A1");
    EXPECT_EQ(View->Rows(), u"00005:40");
}

// Something in the middle of a request or a rebuild changes what is shown.
TEST_F(TPositionViewEventsTest, ChangesFromInside) {
    SpyOnFormatter();
    Services().Products().FeedProduct(u"00005", {}).SetMarginRatio(0.5);
    SetField(u"00005", Field::LastPrice, 2.0);
    const std::pair<const char*, TAct> changes[] = {
        {"rebuild", [this] { View->RefreshDataList(); }},
        {"update", [this] { Hold(u"S1", u"TCHC", 1.0), Deliver(); }},
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
                if (calls > 0) check();
            }
        }
        begin();
        calls = 0;
        Positions.InMarketValue = once;
        View->GetTotalMarketValue();
        check();

        begin();
        calls = 0;
        OnRows = once;
        Hold(u"S1", u"00005", 410.0);
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
TEST_F(TPositionViewEventsTest, TheViewMayDieInItsSignals) {
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
TEST_F(TPositionViewEventsTest, DiesWithAnEmptyList) {
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
