#include "tests/viewdata/PositionFixture.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/SpreadTable.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

struct TPositionDataControlTest : TPositionTest {
    // What the service would tell of these records of one account.
    void Tell(void (TCustomPositionDataControl::*handler)(Pointer, Pointer), StringView account,
              std::initializer_list<TCustomPositionData*> records) {
        TPositionDictionary positions;
        for (TCustomPositionData* record : records) {
            positions.AddOrSetValue(record->GetSymbol(), record);
        }
        TAccountPositionDictionary sender;
        sender.Add(account, &positions);
        (List.get()->*handler)(&sender, nullptr);
    }
};

using C = TCustomPositionDataControl;
constexpr auto Update = &C::PositionUpdate;
constexpr auto PriceUpdate = &C::PositionMarketDataUpdate;

TEST_F(TPositionDataControlTest, RowsOfAnAccount) {
    Hold(u"A1", u"HSIF", -2.0);
    Hold(u"A1", u"A10", 1.0);
    Hold(u"A1", u"A9", 3.0);
    Hold(u"A1", u"00700", u"qty=0 buy=1 sell=1"); // still listed
    Hold(u"A1", u"00005", 1e-7);
    Hold(u"A2", u"TCHC", 4.0);
    Deliver();
    constexpr StringView first = u"00005:1E-7 A9:3 A10:1 HSIF:-2";
    constexpr struct {
        const char* Name;
        StringView Account, Rows;
        Integer Signals;
    } cases[] = {
        {"first", u"A1", first, 1},      {"same", u"A1", first, 0},
        {"another case", u"a1", u"", 1}, {"back", u"A1", first, 1},
        {"other", u"A2", u"TCHC:4", 1},  {"none", u"", u"", 1},
        {"none again", u"", u"", 0},     {"from none", u"A2", u"TCHC:4", 1},
    };
    EXPECT_EQ(Services().RegistrationCount(), OwnRegistrations);
    for (const auto& row : cases) {
        RowsAtSignal = row.Rows;
        List->SetAccount(row.Account);
        EXPECT_EQ(List->Rows(), row.Rows) << row.Name;
        EXPECT_EQ(RowsAtSignal, row.Rows) << row.Name << ": complete before the signal";
        EXPECT_EQ(List->Account(), row.Account) << row.Name;
        ExpectSignals(row.Signals, row.Name);
        EXPECT_EQ(Services().RegistrationCount(), OwnRegistrations + (row.Account.empty() ? 0 : 1))
            << row.Name;
    }
    EXPECT_EQ(List->GetCount(), 1);
    Pointer value = List.get();
    EXPECT_FALSE(List->GetRowValue(0, value));
    EXPECT_FALSE(List->GetColValue(0, value));
    EXPECT_EQ(value, List.get()) << "left alone";
}

TEST_F(TPositionDataControlTest, PositionsComeAndGo) {
    Hold(u"A1", u"00005", 100.0);
    Hold(u"A1", u"00700", 300.0);
    Hold(u"A1", u"HSIF", 2.0);
    Deliver();
    Show(u"A1");
    const auto hold = [this](StringView account, StringView symbol, Double quantity) {
        return [=, this] { Hold(account, symbol, quantity); };
    };
    const struct {
        const char* Name;
        std::function<void()> Step;
        StringView Rows;
        Integer Signals;
    } cases[] = {
        {"new at the end", hold(u"A1", u"00001", 7), u"00005:100 00700:300 HSIF:2 00001:7", 1},
        {"same account", [this] { List->SetAccount(u"A1"); }, u"00005:100 00700:300 HSIF:2 00001:7",
         0},
        {"tiny stays", hold(u"A1", u"HSIF", 1e-7), u"00005:100 00700:300 HSIF:1E-7 00001:7", 1},
        {"middle closed", hold(u"A1", u"HSIF", 0), u"00005:100 00700:300 00001:7", 1},
        {"first closed", hold(u"A1", u"00005", 0), u"00700:300 00001:7", 1},
        {"closed that has no row", hold(u"A1", u"TCHC", 0), u"00700:300 00001:7", 1},
        {"another account", hold(u"A2", u"00700", 9), u"00700:300 00001:7", 0},
        {"open again", hold(u"A1", u"00005", -5), u"00700:300 00001:7 00005:-5", 1},
        {"last closed", hold(u"A1", u"00005", 0), u"00700:300 00001:7", 1},
        {"nothing", [] {}, u"00700:300 00001:7", 0},
        {"sorted anew", [this] { Show(u"A1"); }, u"00001:7 00700:300", 0},
        {"all closed",
         [this] {
             Hold(u"A1", u"00001", 0.0);
             Hold(u"A1", u"00700", 0.0);
         },
         u"", 1},
    };
    for (const auto& row : cases) {
        row.Step();
        Deliver();
        EXPECT_EQ(List->Rows(), row.Rows) << row.Name;
        ExpectSignals(row.Signals, row.Name);
    }
}

TEST_F(TPositionDataControlTest, WhatAnUpdateNames) {
    TEmbeddedPositionData& known = Hold(u"A1", u"00700", 300.0);
    Deliver();
    Show(u"A1");
    TEmbeddedPositionData twin(u"00700", u"A1"), other(u"HSIF", u"A1"), closed(u"00700", u"A1");
    twin.SetFigures(Figures(u"qty=5"));
    other.SetFigures(Figures(u"qty=6"));

    List->PositionUpdate(nullptr, nullptr);
    Tell(Update, u"A2", {&twin});
    Tell(Update, u"a1", {&closed});
    Tell(Update, u"A1", {});
    ExpectSignals(0, "names nothing of the account");
    Tell(Update, u"A1", {&twin, &other});
    EXPECT_EQ(List->Rows(), u"00700:300 HSIF:6") << "a known record is kept";
    EXPECT_EQ(List->RecordAt(0), &known);
    ExpectSignals(1, "two symbols");
    Tell(Update, u"A1", {&closed});
    EXPECT_EQ(List->Rows(), u"HSIF:6");
    ExpectSignals(1, "closed");
    other.SetFigures({});
    Tell(Update, u"A1", {&other});
    EXPECT_EQ(List->GetCount(), 0);
}

TEST_F(TPositionDataControlTest, PricesSignalWhereThereAreRows) {
    TEmbeddedPositionData& record = Hold(u"A1", u"00700", 300.0);
    Hold(u"A2", u"HSIF", 1.0);
    Deliver();
    Signals = 0;
    Tell(PriceUpdate, u"", {&record});
    ExpectSignals(0, "no account");
    List->SetAccount(u"A1");
    Signals = 0;
    List->PositionMarketDataUpdate(nullptr, nullptr);
    Tell(PriceUpdate, u"A2", {&record});
    ExpectSignals(0, "not the account's");
    Tell(PriceUpdate, u"A1", {});
    ExpectSignals(1, "the account alone");
    SetField(u"00700", Field::LastPrice, 11.0);
    Deliver();
    ExpectSignals(1, "delivered");
    SetField(u"HSIF", Field::LastPrice, 11.0);
    Deliver();
    ExpectSignals(0, "delivered for another account");
    EXPECT_EQ(List->Rows(), u"00700:300");
    Hold(u"A1", u"00700", 0.0);
    Deliver();
    Signals = 0;
    Tell(PriceUpdate, u"A1", {&record});
    ExpectSignals(0, "no rows");
}

TEST_F(TPositionDataControlTest, TickTablesOfTheRows) {
    Item(u"TICKER").SetField(Field::SpreadCode, u"X1");
    const auto tell = [this](std::initializer_list<StringView> codes) {
        TSpreadDictionary sender;
        for (const StringView code : codes) sender.Add(code, nullptr);
        List->SpreadUpdate(&sender, nullptr);
    };
    Hold(u"A1", u"HSIF", u"qty=1", &Item(u"HSIF")); // without a table
    Hold(u"A1", u"00700", 1.0);                     // HK by its live item
    Hold(u"A1", u"00005", u"qty=1", &Item(u"TICKER"));
    Deliver();
    Signals = 0;
    tell({u"HK"});
    ExpectSignals(0, "no rows");
    Show(u"A1");
    List->SpreadUpdate(nullptr, nullptr);
    tell({});
    tell({u"hk", u"XX"});
    ExpectSignals(0, "nobody's table");
    tell({u"X1"});
    ExpectSignals(1, "of a ticker");
    Items.ActedOn.clear();
    tell({u"HK"});
    ExpectSignals(1, "of a live item");
    EXPECT_EQ(Items.ActedOn, u"00700 ") << "asked for where no ticker is";
    tell({u"HK", u"X1"});
    ExpectSignals(1, "of two rows");
    Items.AnswersNil = true;
    tell({u"HK"});
    ExpectSignals(0, "no item");
    tell({u"X1"});
    ExpectSignals(1, "no item, and then a ticker");
    Items.AnswersNil = false;

    TEmbeddedMarketAdapter& market = Services().Market();
    static constexpr TSpreadBand bands[] = {{0.0, 10.0, 1.0}};
    market.SetSpreadTablesAtOnce(false);
    market.AddSpreadTable(u"X1", bands);
    market.FindSpreadTable(u"X1");
    Deliver();
    ExpectSignals(1, "delivered");
    Hold(u"A1", u"00700", 0.0);
    Deliver();
    Signals = 0;
    tell({u"HK"}); // of the item of 00005, but not of its ticker
    ExpectSignals(0, "the ticker goes first");
}

TEST_F(TPositionDataControlTest, RatiosSignalWhereACurrencyIsSet) {
    TCurrencyRatioDictionary ratios;
    const auto ratioUpdate = [&](const char* name, Integer expected) {
        List->CurrencyRatioUpdate(nullptr, nullptr);
        ExpectSignals(0, "nil");
        List->CurrencyRatioUpdate(&ratios, nullptr);
        ExpectSignals(expected, name);
    };
    ratioUpdate("no currency", 0);
    constexpr struct {
        StringView Currency;
        Integer Signals;
    } cases[] = {{u"", 0}, {u"USD", 1}, {u"USD", 0}, {u"usd", 1}, {u"", 1}, {u"USD", 1}};
    for (const auto& row : cases) {
        List->SetConvertCurrency(row.Currency);
        EXPECT_EQ(List->ConvertCurrency(), row.Currency);
        ExpectSignals(row.Signals, ToUtf8(row.Currency).c_str());
        ratioUpdate("currency", row.Currency.empty() ? 0 : 1);
    }
    Services().Currencies().FeedRatio(u"CNY", 1.1);
    Deliver();
    ExpectSignals(1, "delivered, and of any currency");
    SetConfig(ConfigKey::PVAvgPriceMode, u"2");
    ExpectSignals(0, "settings do not signal");
}

TEST_F(TPositionDataControlTest, TheCallbackMovesBeforeTheAccountIsStored) {
    List->SetAccount(u"A1");
    Positions.InChangeAccount = [this] { EXPECT_EQ(List->Account(), u"A1"); };
    List->SetAccount(u"A2");
    Positions.InChangeAccount = nullptr;
}

// A move to another account is told of old and new rows before it is over, and moved on from.
TEST_F(TPositionDataControlTest, CallsInsideAMoveLeaveTheNewRows) {
    TEmbeddedPositionData& old = Hold(u"A1", u"00700", 300.0);
    TEmbeddedPositionData& next = Hold(u"A2", u"00700", 5.0);
    Hold(u"A2", u"00005", 6.0);
    Deliver();
    Show(u"A1");
    Positions.InChangeAccount = [&] {
        EXPECT_EQ(List->GetCount(), 0);
        Tell(Update, u"A1", {&old});
        Tell(Update, u"A2", {&next});
    };
    List->SetAccount(u"A2");
    Positions.InChangeAccount = nullptr;
    EXPECT_EQ(List->Rows(), u"00005:6 00700:5");
    List->CheckInvariants();

    OnSignal = [this] { List->SetAccount(u"A1"); };
    Hold(u"A2", u"HSIF", 1.0);
    Deliver();
    EXPECT_EQ(List->Rows(), u"00700:300");
    OnSignal = nullptr;
}

TEST_F(TPositionDataControlTest, FavouritesOfARow) {
    Hold(u"A1", u"00700", 300.0);
    Deliver();
    Show(u"A1");
    for (const Integer row : {-1, 1, 2147483647}) {
        EXPECT_FALSE(List->AddToFavorite(row)) << row;
        EXPECT_FALSE(List->Watchable(row)) << row;
    }
    EXPECT_EQ(Services().Market().GetFavoriteCount(), 0);
    EXPECT_TRUE(List->Watchable(0));
    EXPECT_TRUE(List->AddToFavorite(0));
    EXPECT_TRUE(Services().Market().IsFavorite(u"00700"));
    EXPECT_FALSE(List->Watchable(0));
    EXPECT_FALSE(List->AddToFavorite(0)) << "the adapter's answer";

    TEmbeddedPositionData nameless(u"", u"A1");
    nameless.SetFigures(Figures(u"qty=1"));
    Tell(Update, u"A1", {&nameless});
    EXPECT_FALSE(List->Watchable(1)) << "a row without a symbol";
}

TEST_F(TPositionOrderTest, CopyOrderHandsOverTheClosingOrder) {
    InMessage = [](Integer, Pointer data) {
        const auto& record = *static_cast<TCopyOrderRecord*>(data);
        EXPECT_NE(ObjectAs<TLoggedOrder>(record.Order), nullptr);
        EXPECT_EQ(record.Source, 602);
        EXPECT_EQ(record.GroupID, u"GROUP");
    };
    constexpr struct {
        StringView Figures, Way, Number;
    } cases[] = {
        {u"qty=300", u"sell|", u"300"},        {u"qty=-300", u"buy|", u"300"},
        {u"long qty=300", u"", u"300"},        {u"short qty=-300", u"", u"300"},
        {u"qty=3e9", u"sell|", u"3000000000"}, {u"qty=1e-9", u"sell|", u"1E-9"},
    };
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const bool handled : {false, true}) {
            IsHandled = handled;
            for (const auto& row : cases) {
                ShowOne(row.Figures);
                EXPECT_TRUE(List->CopyOrder(0)) << ToUtf8(row.Figures);
                EXPECT_EQ(TakeLog(), u"clear|" + String(row.Way) +
                                         u"symbol 00700|account A1|price 0|quantity " +
                                         String(row.Number) + u"|message 18010\n")
                    << ToUtf8(row.Figures);
            }
        }
    }
    Hold(u"A1", u"00700", 0.0); // closed, and the list has not heard of it
    EXPECT_FALSE(List->CopyOrder(0));
    EXPECT_EQ(TakeLog(), u"clear|buy|symbol 00700|account A1|price 0|quantity 0|");
    for (const Integer row : {-1, 1}) EXPECT_FALSE(List->CopyOrder(row)) << row;
    EXPECT_EQ(TakeLog(), u"");
}

} // namespace
} // namespace quorin
