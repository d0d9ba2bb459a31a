#include "tests/viewdata/OrderTrace.h"
#include "tests/viewdata/PositionViewFixture.h"
#include "viewdata/services/ChannelMessages.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TSide = TPositionSide;

struct TPositionViewClosesTest : TPositionViewTest, TOrderTrace {
    TPositionViewClosesTest() : TOrderTrace(Host()) {
        SetField(u"00700", Field::BestBid, 9.0);
        SetField(u"00700", Field::BestAsk, 11.0);
        SetField(u"00700", Field::LastPrice, 10.0);
        MakeView();
    }
    ~TPositionViewClosesTest() override { View.reset(); }

    void Confirm(bool on) { SetConfig(ConfigKey::ConfirmationClosePosition, on ? u"1" : u"0"); }
    // The record of a question; its list, if there is one, is the test's from here on.
    TOrderTakeActionRecord& Question(Pointer data, StringView message) {
        auto& record = *static_cast<TOrderTakeActionRecord*>(data);
        List.reset(ObjectAs<TCustomPositionDataControl>(record.Order));
        EXPECT_EQ(record.Action, OrderAction::Place);
        EXPECT_EQ(record.Source, 602);
        EXPECT_EQ(record.Message, message);
        EXPECT_FALSE(record.Result);
        return record;
    }
    // The one row, of that side and quantity.
    void ShowOne(TSide side, Double quantity) {
        Hold(u"A1", u"00700", {.Side = side, .Quantity = quantity});
        Show(u"");
        Show(u"A1");
    }

    std::unique_ptr<TCustomPositionDataControl> List;
};

constexpr StringView OneQuestion = u"Close this position?";
constexpr StringView AllQuestion = u"Close all of these positions at the market?";
constexpr StringView Tail = u"ClosePositionFlag=Y|take\n";

using TClose = Boolean (TPositionViewDataControl::*)(Integer);
constexpr struct {
    const char* Name;
    TClose Close;
} Closes[] = {{"best", &TPositionViewDataControl::CloseToBest},
              {"last", &TPositionViewDataControl::CloseToLast},
              {"market", &TPositionViewDataControl::CloseToMarket}};

TEST_F(TPositionViewClosesTest, OrdersOfEverySide) {
    constexpr struct {
        const char* Name;
        TSide Side;
        Double Quantity;
        StringView Way, Best, Number; // side of the order, price of the best, quantity
    } cases[] = {
        {"net long", TSide::Net, 300, u"sell", u"9", u"300"},
        {"net short", TSide::Net, -300, u"buy", u"11", u"300"},
        {"net short above the limit", TSide::Net, -3e9, u"buy", u"11", u"2000000000"},
        {"long", TSide::Long, 300, u"sell", u"9", u"300"},
        {"short", TSide::Short, 300, u"sell", u"9", u"300"},
        {"at the limit", TSide::Short, 2e9, u"sell", u"9", u"2000000000"},
        {"small", TSide::Long, 2e-7, u"sell", u"9", u"2E-7"},
    };
    for (const auto& row : cases) {
        ShowOne(row.Side, row.Quantity);
        const String way(row.Way);
        const String who = u"symbol 00700|account A1|";
        const String end = u"quantity " + String(row.Number) + u'|' + String(Tail);
        EXPECT_TRUE(View->CloseToBest(0)) << row.Name;
        EXPECT_EQ(TakeLog(), u"clear|" + way + u"|price " + String(row.Best) + u'|' + who + end);
        EXPECT_TRUE(View->CloseToLast(0)) << row.Name;
        EXPECT_EQ(TakeLog(), u"clear|" + way + u"|price 10|" + who + end) << row.Name;
        EXPECT_TRUE(View->CloseToMarket(0)) << row.Name;
        EXPECT_EQ(TakeLog(), u"clear|flags 5|" + way + u'|' + who + u"price 0|" + end) << row.Name;
        EXPECT_TRUE(View->CloseAllPositions()) << row.Name;
        EXPECT_EQ(TakeLog(), u"clear|flags 5|price 0|" + way + u'|' + who + end) << row.Name;
    }
    Actions.Answer = false;
    for (const auto& close : Closes) EXPECT_FALSE((View.get()->*close.Close)(0)) << close.Name;
    EXPECT_TRUE(View->CloseAllPositions()) << "a refusal stops nothing";
    TakeLog();
    for (const Integer row : {-1, 1, 2147483647}) {
        for (const auto& close : Closes) EXPECT_FALSE((View.get()->*close.Close)(row));
        EXPECT_TRUE(View->CheckClosePositionQty(row));
    }
    EXPECT_TRUE(View->CheckClosePositionQty(nullptr));
    EXPECT_EQ(TakeLog(), u"");
}

TEST_F(TPositionViewClosesTest, Confirmation) {
    Confirm(true);
    for (const bool answer : {false, true}) {
        InMessage = [this, answer](Integer number, Pointer data) {
            EXPECT_EQ(number, ChannelMessage::TakeOrderAction);
            TOrderTakeActionRecord& record = Question(data, OneQuestion);
            const auto* order = ObjectAs<TEmbeddedClientOrder>(record.Order);
            ASSERT_NE(order, nullptr);
            const String* flag = order->Values().ExtraValues.Find(ClosePositionFlagKey);
            EXPECT_TRUE(flag != nullptr && *flag == u"Y");
            record.Result = answer;
        };
        ShowOne(TSide::Short, 300);
        for (const auto& close : Closes) {
            EXPECT_EQ((View.get()->*close.Close)(0), answer) << close.Name;
            const String log = TakeLog();
            EXPECT_TRUE(log.ends_with(u"|ClosePositionFlag=Y|message 18011\n")) << ToUtf8(log);
        }
    }
}

TEST_F(TPositionViewClosesTest, BatchOfAllSides) {
    Hold(u"A1", u"00700", 300.0);
    Hold(u"A1", u"HSIF", {.Side = TSide::Long, .Quantity = 2});
    Hold(u"A1", u"AU12", {.Side = TSide::Short, .Quantity = 3});
    Hold(u"A1", u"TCHC", -4.0);
    Show(u"A1");
    EXPECT_TRUE(View->CloseAllPositions());
    const auto order = [](StringView way, StringView symbol, StringView quantity) {
        return u"clear|flags 5|price 0|" + String(way) + u"|symbol " + String(symbol) +
               u"|account A1|quantity " + String(quantity) + u'|' + String(Tail);
    };
    const String all = order(u"sell", u"00700", u"300") + order(u"sell", u"HSIF", u"2") +
                       order(u"sell", u"AU12", u"3") + order(u"buy", u"TCHC", u"4");
    EXPECT_EQ(TakeLog(), all);

    Confirm(true);
    for (const bool answer : {false, true}) {
        InMessage = [&](Integer number, Pointer data) {
            EXPECT_EQ(number, ChannelMessage::CloseAllPositions);
            Question(data, AllQuestion).Result = answer;
        };
        EXPECT_EQ(View->CloseAllPositions(), answer);
        EXPECT_EQ(TakeLog(), u"message 18012\n" + (answer ? all : String()));
        ASSERT_NE(ObjectAs<TPositionViewCloseAllPositionDataControl>(List.get()), nullptr);
        EXPECT_EQ(List->Account(), u"A1");
        EXPECT_EQ(List->Owner(), nullptr);
        EXPECT_EQ(List->GetCount(), 4);
        const TColumnList* columns = List->GetColList();
        ASSERT_TRUE(columns != nullptr && columns->Count() == 5);
        EXPECT_EQ(TPositionViewCloseAllPositionDataControl().GetColList(), columns) << "shared";
        EXPECT_NE(TCustomCloseAllPositionDataControl().GetColList(), columns) << "not with parents";
    }
}

TEST_F(TPositionViewClosesTest, BatchWithNothingToClose) {
    constexpr StringView message = u"There is no position to close.";
    Host().ExpectMessage(message);
    EXPECT_FALSE(View->CloseAllPositions());
    SetConfig(ConfigKey::DisplayZeroQty, u"1");
    Hold(u"A1", u"00700", u"buy=1 sell=1");
    Show(u"A1");
    EXPECT_EQ(View->Rows(), u"00700:0");
    Host().ExpectMessage(message);
    EXPECT_FALSE(View->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"");
    for (const auto& close : Closes) EXPECT_FALSE((View.get()->*close.Close)(0)) << close.Name;
    EXPECT_EQ(TakeLog().find(u"ClosePositionFlag"), String::npos) << "stopped before the mark";
}

TEST_F(TPositionViewClosesTest, SumsCloseInTheMasterAccount) {
    Hold(u"M1", u"00700", 300.0);
    Hold(u"S1", u"00700", 200.0);
    Hold(u"S1", u"TCHC", -7.0);
    Show(u"M1", /*aggregated=*/true);
    EXPECT_TRUE(View->CloseToMarket(0));
    const String first = u"|symbol 00700|account M1|";
    EXPECT_EQ(TakeLog(), u"clear|flags 5|sell" + first + u"price 0|quantity 500|" + String(Tail));
    Confirm(true);
    InMessage = [this](Integer, Pointer data) {
        Question(data, AllQuestion).Result = true;
        EXPECT_EQ(List->GetCount(), 1) << "the master's own";
        EXPECT_EQ(Kinded(List->GetValue(0, PositionAttribute::LongQuantity)), u"300");
    };
    EXPECT_TRUE(View->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"message 18012\nclear|flags 5|price 0|sell" + first + u"quantity 500|" +
                             String(Tail) + u"clear|flags 5|price 0|buy|symbol TCHC|account M1|" +
                             u"quantity 7|" + String(Tail));
}

// The rows go while the batch or the question still needs them.
TEST_F(TPositionViewClosesTest, ABatchClosesWhatItBeganWith) {
    const std::pair<const char*, std::function<void()>> blows[] = {
        {"rebuild", [this] { View->RefreshDataList(); }},
        {"update", [this] { Hold(u"S1", u"00700", 1.0), Deliver(); }},
        {"filter", [this] { View->SetFilterCurrency(u"XXX"); }},
        {"plain", [this] { View->SetAggregate(); }},
        {"account", [this] { View->SetAccount(u"A1"); }},
        {"away and back", [this] { View->SetAccount({}), View->SetAccount(u"M1"); }},
    };
    const String second = u"symbol HSIF|account M1|quantity 5|" + String(Tail);
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const auto& [name, blow] : blows) {
            Show(u"");
            View->SetFilterCurrency({});
            Hold(u"M1", u"00700", 300.0);
            Hold(u"S1", u"00700", 200.0);
            Hold(u"S1", u"HSIF", 5.0);
            Show(u"M1");
            if (!View->Aggregated()) View->SetAggregate();
            TakeLog();
            Actions.InTake = confirm ? nullptr : blow;
            InMessage = [&, &strike = blow](Integer, Pointer data) {
                Question(data, AllQuestion).Result = true;
                strike();
            };
            EXPECT_TRUE(View->CloseAllPositions()) << name;
            const String log = TakeLog();
            EXPECT_NE(log.find(u"symbol 00700|account M1|quantity 500|" + String(Tail)),
                      String::npos)
                << name << ToUtf8(log);
            EXPECT_NE(log.find(second), String::npos) << name << ToUtf8(log);
            View->CheckInvariants();
        }
    }
}

// As in any list, with one action more.
TEST_F(TPositionViewClosesTest, NoSecondActionWhileOneWaits) {
    ShowOne(TSide::Long, 300);
    Integer waits = 0;
    const auto tryOthers = [&] {
        const String before = Log;
        EXPECT_FALSE(View->CloseToMarket(0) || View->CloseAllPositions() || View->CopyOrder(0));
        View->CopySymbol(0);
        EXPECT_EQ(Log, before) << "the order that waits is left alone";
        ++waits;
    };
    InMessage = [&](Integer, Pointer) { tryOthers(); };
    Actions.InTake = tryOthers;
    View->CopySymbol(0);
    EXPECT_TRUE(View->CloseToMarket(0) && View->CloseAllPositions());
    EXPECT_EQ(waits, 3);
}

TEST_F(TPositionViewClosesTest, CopySymbol) {
    Confirm(true); // asks nothing all the same
    InMessage = [](Integer number, Pointer data) {
        EXPECT_EQ(number, ChannelMessage::CopyPrice);
        const auto& record = *static_cast<TCopyOrderRecord*>(data);
        EXPECT_NE(ObjectAs<TLoggedOrder>(record.Order), nullptr);
        EXPECT_EQ(record.Source, 602);
        EXPECT_EQ(record.GroupID, u"GROUP");
    };
    constexpr struct {
        const char* Name;
        StringView Figures, Quantity;
    } cases[] = {
        {"available", u"qty=300 psell=100", u"200"},
        {"below 0", u"qty=300 psell=400", u"0"},
        {"short", u"qty=-300", u"0"},
        {"large", u"qty=3e9", u"2000000000"},
        {"sided", u"short qty=300", u"300"},
    };
    const auto copied = [](StringView account, StringView quantity, StringView price) {
        return u"clear|sell|account " + String(account) + u"|symbol 00700|quantity " +
               String(quantity) + u"|price " + String(price) + u"|message 18016\n";
    };
    for (const auto& row : cases) {
        Hold(u"A1", u"00700", row.Figures);
        Show(u"");
        Show(u"A1");
        View->CopySymbol(0);
        EXPECT_EQ(TakeLog(), copied(u"A1", row.Quantity, u"10")) << row.Name;
    }
    for (const Integer row : {-1, 1}) View->CopySymbol(row);
    EXPECT_EQ(TakeLog(), u"");
    HoldBare(u"00700", u"qty=300");
    View->CopySymbol(0);
    EXPECT_EQ(TakeLog(), copied(u"A1", u"300", u"0")) << "no ticker, no price";
    Hold(u"M1", u"00700", 300.0);
    Hold(u"S1", u"00700", 200.0);
    Show(u"M1", /*aggregated=*/true);
    View->CopySymbol(0);
    EXPECT_EQ(TakeLog(), copied(u"M1", u"500", u"10"));
}

} // namespace
} // namespace quorin
