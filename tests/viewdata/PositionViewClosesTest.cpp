#include "tests/viewdata/PositionViewFixture.h"
#include "viewdata/services/ChannelMessages.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TSide = TPositionSide;

// Writes down every call that fills it.
class TLoggedOrder : public TEmbeddedClientOrder {
    QUORIN_CLASS(TLoggedOrder, TEmbeddedClientOrder)
public:
    explicit TLoggedOrder(String& log) : FLog(log) {}

    void SetAccount(StringView account) override {
        Log(u"account ", account);
        Inherited::SetAccount(account);
    }
    void SetSymbol(StringView symbol) override {
        Log(u"symbol ", symbol);
        Inherited::SetSymbol(symbol);
    }
    void SetQuantity(Double quantity) override {
        Log(u"quantity ", Variant(quantity).ToText());
        Inherited::SetQuantity(quantity);
    }
    void SetPrice(Double price) override {
        Log(u"price ", Variant(price).ToText());
        Inherited::SetPrice(price);
    }
    void SetBuySell(Integer side) override {
        Log(side == OrderSide::Sell ? u"sell" : u"buy", {});
        Inherited::SetBuySell(side);
    }
    void SetOrderFlags(Integer flags) override {
        Log(u"flags ", Variant(flags).ToText());
        Inherited::SetOrderFlags(flags);
    }
    void SetExtraValue(StringView key, StringView value) override {
        Log(key, u"=" + String(value));
        Inherited::SetExtraValue(key, value);
    }
    void Clear() override {
        Log(u"clear", {});
        Inherited::Clear();
        Inherited::SetOrderFlags(4); // an option of the order that no close may drop
    }

private:
    void Log(StringView what, StringView value) { FLog += String(what) + String(value) + u'|'; }
    String& FLog;
};

class TLoggedOrders : public TCustomOrderAdapter {
public:
    explicit TLoggedOrders(String& log) : FLog(log) {}
    std::unique_ptr<TCustomClientOrder> CreateClientOrder() override {
        return std::make_unique<TLoggedOrder>(FLog);
    }

private:
    String& FLog;
};

class TLoggedActions : public TCustomOrderActionManager {
public:
    explicit TLoggedActions(String& log) : FLog(log) {}
    Boolean TakeOrderAction(TObject* owner, TCustomClientOrder*, Integer action,
                            Boolean flag) override {
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(action, OrderAction::Place);
        EXPECT_TRUE(flag);
        FLog += u"take\n";
        if (InTake) InTake();
        return Answer;
    }
    Boolean Answer = true;
    std::function<void()> InTake;

private:
    String& FLog;
};

struct TPositionViewClosesTest : TPositionViewTest {
    TPositionViewClosesTest() {
        ServiceRegistry::Install(&Orders);
        ServiceRegistry::Install(&Actions);
        Host().SetReceiver(MakeEvent<&TPositionViewClosesTest::Received>(this));
        SetField(u"00700", Field::BestBid, 9.0);
        SetField(u"00700", Field::BestAsk, 11.0);
        SetField(u"00700", Field::LastPrice, 10.0);
        MakeView();
    }
    ~TPositionViewClosesTest() override {
        View.reset();
        ServiceRegistry::Install(RealOrders);
        ServiceRegistry::Install(RealActions);
    }
    void Confirm(bool on) { SetConfig(ConfigKey::ConfirmationClosePosition, on ? u"1" : u"0"); }
    String TakeLog() { return std::exchange(Log, {}); }
    Boolean Received(Integer number, Pointer data) {
        Log += u"message " + Variant(number).ToText() + u'\n';
        if (InMessage) InMessage(number, data);
        return true;
    }
    // The one row, of that side and quantity.
    void ShowOne(TSide side, Double quantity) {
        Hold(u"A1", u"00700", {.Side = side, .Quantity = quantity});
        Show(u"");
        Show(u"A1");
    }

    String Log;
    TLoggedOrders Orders{Log};
    TLoggedActions Actions{Log};
    TCustomOrderAdapter* RealOrders = TCustomOrderAdapter::GetInstance();
    TCustomOrderActionManager* RealActions = TCustomOrderActionManager::GetInstance();
    std::function<void(Integer, Pointer)> InMessage;
};

constexpr StringView LimitQuestion =
    u"The position is larger than the largest order, 2,000,000,000. Close 2,000,000,000 of it?";
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

TEST_F(TPositionViewClosesTest, SizeQuestion) {
    for (const Integer answer : {0, 1, 2}) {
        const bool goesOn = answer == 1;
        ShowOne(TSide::Long, 2000000001.0);
        TakeLog();
        for (const auto& close : Closes) {
            Host().ExpectQuestion(LimitQuestion, answer);
            EXPECT_EQ((View.get()->*close.Close)(0), goesOn) << close.Name;
        }
        Host().ExpectQuestion(LimitQuestion, answer);
        EXPECT_EQ(View->CloseAllPositions(), goesOn);
        const String log = TakeLog();
        EXPECT_EQ(log.empty(), !goesOn) << "a declined close fills no order";
        EXPECT_EQ(log.find(u"quantity 2000000000|") != String::npos, goesOn);
    }
    ShowOne(TSide::Net, -3e9); // takes the one check of a batch without a question
    Hold(u"A1", u"HSIF", 3e9);
    Deliver();
    EXPECT_TRUE(View->CloseAllPositions());
}

TEST_F(TPositionViewClosesTest, Confirmation) {
    Confirm(true);
    for (const bool answer : {false, true}) {
        InMessage = [answer](Integer number, Pointer data) {
            EXPECT_EQ(number, ChannelMessage::TakeOrderAction);
            auto& record = *static_cast<TOrderTakeActionRecord*>(data);
            const auto* order = ObjectAs<TEmbeddedClientOrder>(record.Order);
            ASSERT_NE(order, nullptr);
            const String* flag = order->Values().ExtraValues.Find(ClosePositionFlagKey);
            EXPECT_TRUE(flag != nullptr && *flag == u"Y");
            EXPECT_EQ(record.Action, OrderAction::Place);
            EXPECT_EQ(record.Source, 602);
            EXPECT_EQ(record.Message, u"Close this position?");
            EXPECT_FALSE(record.Result);
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
        std::unique_ptr<TPositionViewCloseAllPositionDataControl> list;
        InMessage = [&](Integer number, Pointer data) {
            EXPECT_EQ(number, ChannelMessage::CloseAllPositions);
            auto& record = *static_cast<TOrderTakeActionRecord*>(data);
            list.reset(ObjectAs<TPositionViewCloseAllPositionDataControl>(record.Order));
            EXPECT_EQ(record.Action, OrderAction::Place);
            EXPECT_EQ(record.Source, 602);
            EXPECT_EQ(record.Message, u"Close all of these positions at the market?");
            EXPECT_FALSE(record.Result);
            record.Result = answer;
        };
        EXPECT_EQ(View->CloseAllPositions(), answer);
        EXPECT_EQ(TakeLog(), u"message 18012\n" + (answer ? all : String()));
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->Account(), u"A1");
        EXPECT_EQ(list->Owner(), nullptr);
        EXPECT_EQ(list->GetCount(), 4);
        const TColumnList* columns = list->GetColList();
        ASSERT_NE(columns, nullptr);
        String text;
        for (const TColumnInfo* column : *columns) {
            text += Variant(column->ID()).ToText() + u' ' + column->ResourceKey() + u' ' +
                    Variant(column->Width()).ToText() + (column->Flag() ? u" Q|" : u"|");
            EXPECT_EQ(column->Key(), u"");
        }
        EXPECT_EQ(text, u"10 Res_Account 80|21 Res_SymbolName 150|4 Res_Long 70 Q|"
                        u"470 Res_Short 70 Q|0 Res_Symbol 80|");
        EXPECT_EQ(TPositionViewCloseAllPositionDataControl().GetColList(), columns) << "shared";
        EXPECT_NE(TCustomCloseAllPositionDataControl().GetColList(), columns) << "not with parents";
    }
}

TEST_F(TPositionViewClosesTest, BatchWithNothingToClose) {
    constexpr StringView message = u"There is no position to close.";
    Host().ExpectMessage(message);
    EXPECT_FALSE(View->CloseAllPositions());
    SetConfig(ConfigKey::DisplayZeroQty, u"1");
    Hold(u"A1", u"00700", {.Quantity = 0.0, .TodayBuyQty = 1, .TodaySellQty = 1});
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
    InMessage = [](Integer, Pointer data) {
        auto& record = *static_cast<TOrderTakeActionRecord*>(data);
        const std::unique_ptr<TCustomPositionDataControl> list(
            ObjectAs<TCustomPositionDataControl>(record.Order));
        EXPECT_EQ(list->GetCount(), 1) << "the master's own";
        EXPECT_EQ(Kinded(list->GetValue(0, PositionAttribute::LongQuantity)), u"300");
        record.Result = true;
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
        {"update",
         [this] {
             Hold(u"S1", u"00700", 1.0);
             Deliver();
         }},
        {"filter", [this] { View->SetFilterCurrency(u"XXX"); }},
        {"plain", [this] { View->SetAggregate(); }},
        {"account", [this] { View->SetAccount(u"A1"); }},
        {"twice",
         [this] {
             View->SetAccount({});
             View->SetAccount(u"M1");
             View->RefreshDataList();
         }},
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
                auto& record = *static_cast<TOrderTakeActionRecord*>(data);
                const std::unique_ptr<TObject> list(record.Order);
                strike();
                record.Result = true;
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

TEST_F(TPositionViewClosesTest, NoSecondActionWhileOneWaits) {
    ShowOne(TSide::Long, 300);
    const auto tryAll = [this] {
        const String before = Log;
        for (const auto& close : Closes) EXPECT_FALSE((View.get()->*close.Close)(0)) << close.Name;
        EXPECT_FALSE(View->CloseAllPositions());
        EXPECT_FALSE(View->CopyOrder(0));
        View->CopySymbol(0);
        EXPECT_EQ(Log, before) << "the order that waits is left alone";
    };
    InMessage = [&](Integer number, Pointer data) {
        tryAll();
        if (number == ChannelMessage::CopyPrice) return;
        auto& record = *static_cast<TOrderTakeActionRecord*>(data);
        const std::unique_ptr<TCustomPositionDataControl> list(
            ObjectAs<TCustomPositionDataControl>(record.Order));
        record.Result = true;
    };
    Actions.InTake = tryAll;
    View->CopySymbol(0);
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const auto& close : Closes) EXPECT_TRUE((View.get()->*close.Close)(0)) << close.Name;
        EXPECT_TRUE(View->CloseAllPositions());
    }
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
        TPositionFigures Figures;
        StringView Quantity;
    } cases[] = {
        {"available", {.Quantity = 300, .TodayPendSellQty = 100}, u"200"},
        {"below 0", {.Quantity = 300, .TodayPendSellQty = 400}, u"0"},
        {"short", {.Quantity = -300}, u"0"},
        {"above the limit", {.Quantity = 3e9}, u"2000000000"},
        {"sided", {.Side = TSide::Short, .Quantity = 300}, u"300"},
    };
    for (const auto& row : cases) {
        Hold(u"A1", u"00700", row.Figures);
        Show(u"");
        Show(u"A1");
        View->CopySymbol(0);
        EXPECT_EQ(TakeLog(), u"clear|sell|account A1|symbol 00700|quantity " +
                                 String(row.Quantity) + u"|price 10|message 18016\n")
            << row.Name;
    }
    for (const Integer row : {-1, 1}) View->CopySymbol(row);
    EXPECT_EQ(TakeLog(), u"");
    Services().Positions().FeedPosition(u"A1", u"00700", {.Quantity = 300}); // no ticker
    View->CopySymbol(0);
    EXPECT_EQ(TakeLog(), u"clear|sell|account A1|symbol 00700|quantity 300|price 0|"
                         u"message 18016\n");
    Hold(u"M1", u"00700", 300.0);
    Hold(u"S1", u"00700", 200.0);
    Show(u"M1", /*aggregated=*/true);
    View->CopySymbol(0);
    EXPECT_EQ(TakeLog(), u"clear|sell|account M1|symbol 00700|quantity 500|price 10|"
                         u"message 18016\n");
}

} // namespace
} // namespace quorin
