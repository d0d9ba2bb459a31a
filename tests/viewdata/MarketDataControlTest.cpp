#include "tests/viewdata/HollowMarket.h"
#include "tests/viewdata/MarketFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TMarketDataControlTest = TMarketTest;

TEST_F(TMarketDataControlTest, LoadsExchangesSeriesAndCategoriesInOrder) {
    const struct {
        const char* Name;
        String Exchange;
        Integer Category;
        String Rows;
    } cases[] = {
        {"one exchange", u"SEHK", -1, u"00005 00700"},
        {"exchange with several series", u"HKFE", -1, u"HSIF TCHC"},
        {"series of one category", u"HKFE", 3, u"TCHC"},
        {"category 0", u"QEX", 0, u"Z12"},
        {"category 0 is no wildcard", u"SEHK", 0, u""},
        {"unknown exchange", u"NONE", -1, u""},
        {"category of every exchange", u"", 2, u"HSIF"},
        {"category 0 of every exchange", u"", 0, u"Z12"},
        {"neither", u"", -1, u""},
        {"case counts", u"sehk", -1, u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Control->SetExchangeAndCategory(row.Exchange, row.Category);
        EXPECT_EQ(Control->Rows(), row.Rows);
        EXPECT_EQ(TakeSignals(), 1);
        Control->SetExchangeAndCategory(row.Exchange, row.Category); // the same again reloads
        EXPECT_EQ(Control->Rows(), row.Rows);
        EXPECT_EQ(TakeSignals(), 1);
    }
    EXPECT_EQ(Control->GetSymbol(-1), u"");
    EXPECT_EQ(Control->GetSymbol(2), u"");
}

TEST_F(TMarketDataControlTest, HolesAndDoublesOfTheUniverseMakeNoRows) {
    TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    THollowMarket hollow(market);
    ServiceRegistry::Install(&hollow);
    Load(u"", 2);
    EXPECT_EQ(Control->Rows(), u"HSIF");
    Load(u"HKFE");
    EXPECT_EQ(Control->Rows(), u"HSIF TCHC");
    Control->AddMarketData(nullptr);
    Control->AddMarketData(Services().Market().FindMarketData(u"00005"));
    Control->AddMarketData(Services().Market().FindMarketData(u"HSIF"));
    EXPECT_EQ(Control->Rows(), u"HSIF TCHC 00005");
    EXPECT_EQ(TakeSignals(), 0);
    Control->CheckInvariants();
    ServiceRegistry::Install(&market);
}

TEST_F(TMarketDataControlTest, ChoosingDoesNotLoad) {
    EXPECT_EQ(Control->GetCount(), 0);
    EXPECT_EQ(Services().RegistrationCount(), OwnRegistrations);
    Control->SetExchange(u"SEHK");
    Control->InitData(); // the category is 0 from the start
    EXPECT_EQ(Control->Rows(), u"");
    Control->SetCategory(-1);
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(Control->Rows(), u"");
    Control->InitData();
    EXPECT_EQ(Control->Rows(), u"00005 00700");
    Control->SetExchange(u"HKFE");
    Control->SetCategory(3);
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(Control->Rows(), u"00005 00700");
    EXPECT_EQ(Registered(), 0);
}

TEST_F(TMarketDataControlTest, UniverseThatIsNotReadyKeepsRowsAndSubscriptions) {
    Load(u"SEHK");
    Show({1});
    Services().Market().AddFavorite(u"HSIF");
    Services().Market().SetMarketDataReady(false);
    Control->SetExchangeAndCategory(u"HKFE", -1);
    EXPECT_EQ(Control->Rows(), u"00005 00700");
    EXPECT_EQ(TakeSignals(), 0);
    EXPECT_EQ(Followed(), u"00700");
    Control->SetExchangeAndCategory(FavoriteExchange, -1); // favourites do not wait
    EXPECT_EQ(Control->Rows(), u"HSIF");
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(Registered(), 0);
}

TEST_F(TMarketDataControlTest, ExactlyTheShownRowsAreSubscribed) {
    const struct {
        const char* Name;
        std::vector<Integer> Rows;
        bool Batch;
        String Followed;
    } steps[] = {
        {"two", {0, 1}, true, u"00005 HSIF"},
        {"none", {}, true, u""},
        {"backwards", {2, 0}, true, u"00005 GHOST"},
        {"indexes outside", {-1, 3, 2147483647, 1, -2147483647}, true, u"HSIF"},
        {"a row twice", {0, 0}, true, u"00005"},
        {"at once, each change", {0, 2}, false, u"00005 GHOST"},
        {"at once, a row twice", {1, 1}, false, u"HSIF"},
        {"in batches again", {0, 1, 2}, true, u"00005 HSIF GHOST"},
        {"at once, none", {}, false, u""},
    };
    LoadFavorites({u"00005", u"HSIF", u"GHOST"});
    for (const auto& step : steps) {
        SCOPED_TRACE(step.Name);
        Control->SetIsBatchMode(step.Batch);
        Show(step.Rows);
        EXPECT_EQ(TakeSignals(), 0);
        Control->Batches = Control->RealtimeUpdates = 0;
        for (const bool batch : {step.Batch, !step.Batch}) { // the mode is only for rows to come
            Control->SetIsBatchMode(batch);
            EXPECT_EQ(Followed(), step.Followed);
            EXPECT_EQ(Registered(), Control->SubscribedCount());
        }
        EXPECT_EQ(step.Batch ? Control->RealtimeUpdates : Control->Batches, 0);
    }
    for (const bool batch : {true, false}) {
        Control->SetIsBatchMode(batch);
        Show({0, 1});
        Control->SetIsBatchMode(!batch);
        Control->ClearAll();
        EXPECT_EQ(Registered(), 0);
        EXPECT_EQ(Control->GetCount(), 0);
        EXPECT_EQ(TakeSignals(), 0);
        Load(FavoriteExchange);
    }
}

TEST_F(TMarketDataControlTest, OneSignalPerBatchAndOnePerRealtimeItem) {
    Load(u"SEHK");
    Show({0, 1});
    Tick({u"00005", u"00700", u"HSIF"}, 5.0);
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(Control->Batches, 1);
    Tick({u"HSIF"}, 5.0);
    EXPECT_EQ(TakeSignals(), 0);
    Control->SetIsBatchMode(false);
    Show({0, 1});
    Tick({u"00005", u"00700", u"HSIF"}, 6.0);
    EXPECT_EQ(TakeSignals(), 2);
    EXPECT_EQ(Control->Batches, 1);
}

TEST_F(TMarketDataControlTest, UpdatesOfRowsThatAreNotFollowedLeaveEverythingAlone) {
    Load(u"SEHK");
    Show({0});
    Tick({u"00005"}, 5.0);
    Show({1});
    Signals = 0;
    TCustomSubItem* released = &Services().Items().Item(u"00005");
    SetField(u"00005", Field::LastPrice, 6.0);
    EXPECT_FALSE(Control->UpdateSymbolMessage(released));
    ASSERT_NE(Control->LastPrice(u"00005"), nullptr);
    EXPECT_EQ(*Control->LastPrice(u"00005"), 5.0);

    TSubItemDictionary batch;
    Control->SymbolUpdate(&batch, nullptr);
    batch.Add(u"00005", released);
    Control->SymbolUpdate(&batch, nullptr);
    Control->SymbolUpdate(nullptr, nullptr);
    Control->SymbolRealtimeUpdate(nullptr);
    Control->SymbolRealtimeUpdate(Control.get());
    Control->SymbolRealtimeUpdate(released);
    EXPECT_EQ(TakeSignals(), 0);
    batch.Add(u"00700", &Services().Items().Item(u"00700"));
    Control->SymbolUpdate(&batch, nullptr);
    EXPECT_EQ(TakeSignals(), 1);
    EXPECT_EQ(*Control->LastPrice(u"00005"), 5.0);
}

// Asking for a table that is not there makes the service fetch it: it comes with the next delivery.
TEST_F(TMarketDataControlTest, ReadyRowsWithATickTableAskForIt) {
    const struct {
        const char* Name;
        Integer Status;
        String Code;
        Integer Signals;
    } cases[] = {
        {"ready", ItemStatus::Ready, u"T1", 1},
        {"waiting", ItemStatus::Waiting, u"T2", 0},
        {"no data", ItemStatus::NoData, u"T3", 0},
        {"no code", ItemStatus::Ready, u"", 0},
    };
    static constexpr TSpreadBand bands[] = {{0.0, 10.0, 0.5}};
    TEmbeddedMarketAdapter& market = Services().Market();
    market.SetSpreadTablesAtOnce(false);
    Load(u"QEX");
    TEmbeddedSubItem& item = Services().Items().Item(u"Z12");
    for (const bool updated : {false, true}) {
        for (const auto& row : cases) {
            SCOPED_TRACE(row.Name);
            const String code = row.Code.empty() ? u"" : row.Code + (updated ? u"u" : u"v");
            if (!code.empty()) market.AddSpreadTable(code, bands);
            item.SetField(Field::SpreadCode, updated ? u"" : StringView(code));
            item.SetStatus(row.Status);
            Show({0});
            item.SetField(Field::SpreadCode, code);
            EXPECT_EQ(updated && Control->UpdateSymbolMessage(&item), updated);
            EXPECT_EQ(TakeSignals(), 0);
            market.Deliver();
            EXPECT_EQ(TakeSignals(), row.Signals);
        }
    }
    Control->SpreadUpdate(nullptr, nullptr);
    EXPECT_EQ(TakeSignals(), 1);
}

TEST_F(TMarketDataControlTest, MovesRowsAndKeepsTheirSubscriptions) {
    const struct {
        const char* Name;
        Integer From, To;
        String Rows;
    } cases[] = {
        {"down", 0, 2, u"HSIF GHOST 00005"},   {"up", 2, 0, u"GHOST 00005 HSIF"},
        {"by one", 1, 2, u"00005 GHOST HSIF"}, {"to itself", 1, 1, u""},
        {"from before the first", -1, 1, u""}, {"from behind the last", 3, 1, u""},
        {"to before the first", 1, -1, u""},   {"to behind the last", 1, 3, u""},
    };
    LoadFavorites({u"00005", u"HSIF", u"GHOST"});
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Load(FavoriteExchange);
        Show({0, 2});
        Control->MoveRecord(row.From, row.To);
        EXPECT_EQ(TakeSignals(), row.Rows.empty() ? 0 : 1);
        EXPECT_EQ(Control->Rows(), row.Rows.empty() ? u"00005 HSIF GHOST" : row.Rows);
        EXPECT_EQ(Followed(), u"00005 GHOST");
        EXPECT_EQ(Registered(), 2);
        Control->CheckInvariants();
    }
}

TEST_F(TMarketDataControlTest, FavoritesThatChangeWhileTheyAreShown) {
    const struct {
        const char* Name;
        bool IsShown;
        std::vector<Integer> Watched;
        StringView Removed, Added;
        String Rows, Followed;
        Integer Signals;
    } cases[] = {
        {"one more", true, {0, 1}, u"", u"HSIF", u"00005 00700 GHOST HSIF", u"", 1},
        {"one less", true, {0, 1}, u"00700", u"", u"00005 GHOST", u"", 1},
        {"another one", true, {0, 1}, u"00005", u"HSIF", u"00700 GHOST HSIF", u"00700", 1},
        {"the only watched goes", true, {0}, u"00005", u"HSIF", u"00700 GHOST HSIF", u"", 1},
        {"to the end", true, {2, 0}, u"00005", u"00005", u"00700 GHOST 00005", u"00005 GHOST", 1},
        {"an exchange is shown", false, {1}, u"00005", u"HSIF", u"00005 00700", u"00700", 0},
    };
    TEmbeddedMarketAdapter& market = Services().Market();
    for (const bool batch : {true, false}) {
        for (const auto& row : cases) {
            SCOPED_TRACE(std::string(row.Name) + (batch ? "" : ", realtime"));
            for (const StringView symbol : {u"00005", u"00700", u"GHOST", u"HSIF"}) {
                market.RemoveFavorite(symbol);
            }
            LoadFavorites({u"00005", u"00700", u"GHOST"});
            if (!row.IsShown) Load(u"SEHK");
            Control->SetIsBatchMode(batch);
            Show(row.Watched);
            if (!row.Removed.empty()) market.RemoveFavorite(row.Removed);
            if (!row.Added.empty()) market.AddFavorite(row.Added);
            EXPECT_EQ(TakeSignals(), 0);
            market.Deliver();
            EXPECT_EQ(TakeSignals(), row.Signals);
            EXPECT_EQ(Control->Rows(), row.Rows);
            EXPECT_EQ(Registered(), Control->SubscribedCount());
            EXPECT_EQ(Followed(), row.Followed);
        }
    }
}

TEST_F(TMarketDataControlTest, FollowsThePositionsOfItsAccountWhileTheyAreShown) {
    const struct {
        const char* Name;
        bool Login;
        StringView Account;
        bool ShowPosition;
        StringView Changed;
        Integer AccountSignals, Registered, Signals;
    } steps[] = {
        {"no account", true, u"", true, u"A1", 0, 0, 0},
        {"logged out", false, u"A2", true, u"A2", 1, 0, 0},
        {"unknown account", true, u"A9", true, u"A9", 0, 0, 0},
        {"not shown", true, u"A1", false, u"A1", 1, 1, 0},
        {"shown", true, u"A1", true, u"A1", 0, 1, 1},
        {"another account's", true, u"A1", true, u"A2", 0, 1, 0},
        {"unknown keeps the account", true, u"A9", true, u"A1", 0, 1, 1},
        {"moved", true, u"A2", true, u"A1", 1, 1, 0},
        {"moved, its own", true, u"A2", true, u"A2", 0, 1, 1},
        {"hidden", true, u"A2", false, u"A2", 0, 1, 0},
    };
    EXPECT_TRUE(Control->HasOrder());
    Double quantity = 0.0;
    for (const auto& step : steps) {
        SCOPED_TRACE(step.Name);
        Services().Login().SetLogin(step.Login);
        Control->SetShowPosition(step.ShowPosition);
        EXPECT_EQ(TakeSignals(), 0);
        Control->SetAccount(step.Account);
        EXPECT_EQ(TakeSignals(), step.AccountSignals);
        EXPECT_EQ(Registered(), step.Registered);
        quantity += 1.0;
        Services().Positions().FeedPosition(step.Changed, u"00005", {.Quantity = quantity});
        Services().Deliver();
        EXPECT_EQ(TakeSignals(), step.Signals);
        Control->CheckInvariants();
    }
    Control->SetShowPosition(true);
    Control->PositionUpdate(nullptr, nullptr);
    EXPECT_EQ(TakeSignals(), 0);
}

TEST_F(TMarketDataControlTest, EndsWithoutASignalOrARegistration) {
    const struct {
        const char* Name;
        bool Login;
        StringView Account;
        bool LoginAtTheEnd;
    } cases[] = {
        {"watching", true, u"A1", true},
        {"logged out", false, u"A1", false},
        {"another account after the log-out", false, u"A2", false},
        {"another account after the log-out, logged in again", false, u"A2", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Services().Login().SetLogin(true);
        MakeControl();
        Load(u"SEHK");
        Control->SetAccount(u"A1");
        Control->SetIsBatchMode(row.LoginAtTheEnd);
        Show({0, 1});
        EXPECT_EQ(Registered(), 3);
        Services().Login().SetLogin(row.Login);
        Control->SetAccount(row.Account);
        Services().Login().SetLogin(row.LoginAtTheEnd);
        Signals = 0;
        Control.reset();
        EXPECT_EQ(TakeSignals(), 0);
        EXPECT_EQ(Services().RegistrationCount(), 0);
    }
}

TEST_F(TMarketDataControlTest, BondStyleIsTheOnlySettingThatSignals) {
    SetConfig(ConfigKey::DenominatorModeValue, u"2");
    EXPECT_TRUE(TookSignals(1));
    SetConfig(ConfigKey::AmountPrecision, u"4");
    SetConfig(ConfigKey::ConfirmationPlaceOrd, u"Y");
    EXPECT_EQ(TakeSignals(), 0);
    MakeControl(); // what is stored counts from the start
    SetConfig(ConfigKey::AmountPrecision, u"5");
    EXPECT_EQ(TakeSignals(), 0);
    SetConfig(ConfigKey::DenominatorModeValue, u"");
    EXPECT_TRUE(TookSignals(1));
}

} // namespace
} // namespace quorin
