#include "tests/viewdata/PositionFixture.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/ResourceKeys.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorin {
namespace {

const Double Limit = 2e9;
const Double AboveLimit = std::nextafter(Limit, 3e9);

constexpr StringView LimitQuestion =
    u"The position is larger than the largest order, 2,000,000,000. Close 2,000,000,000 of it?";
constexpr StringView NothingToClose = u"There is no position to close.";

// Logs the checks of sizes among the calls.
class TCloseList : public TPositionList {
    QUORIN_CLASS(TCloseList, TPositionList)

    explicit TCloseList(TComponent* owner = nullptr) : TPositionList(owner) {}

    using TPositionList::CheckClosePositionQty;
    Boolean CheckClosePositionQty(TCustomPositionData* position) override {
        if (Log != nullptr && position != nullptr) *Log += u"check " + position->GetSymbol() + u'|';
        if (InCheck) InCheck();
        return !Declines && Inherited::CheckClosePositionQty(position);
    }

    String* Log = nullptr;
    std::function<void()> InCheck;
    bool Declines = false;
};

struct TClosePositionsTest : TPositionOrderTest {
    TClosePositionsTest() { MakeCloseList(); }

    void MakeCloseList() {
        Closing = &MakeList<TCloseList>();
        Closing->Log = &Log;
    }
    // One order of a batch.
    static String BatchOrder(StringView way, StringView symbol, StringView quantity) {
        return u"clear|flags 5|price 0|" + String(way) + u"|symbol " + String(symbol) +
               u"|account A1|quantity " + String(quantity) + u"|take\n";
    }

    TCloseList* Closing = nullptr;
};

using C = TCustomPositionDataControl;
using TClose = Boolean (C::*)(Integer);
constexpr struct {
    const char* Name;
    TClose Close;
} Closes[] = {{"best", &C::CloseToBest}, {"last", &C::CloseToLast}, {"market", &C::CloseToMarket}};

TEST_F(TClosePositionsTest, AvailableQuantity) {
    const TPositionFigures stock =
        Figures(u"qty=300 start=200 buy=11 sell=13 psell=19 out=23 in=29");
    constexpr Integer none = -1;
    const struct {
        const char* Name;
        StringView Markets; // of T+1
        StringView Symbol;
        Integer Type, Status; // none: no ticker
        StringView TickerExchange;
        Double Plain, WithMoves;
    } cases[] = {
        {"elsewhere", u"SSE", u"00700", 1, none, u"", 281, 281},
        {"no markets", u"", u"00700", 1, none, u"", 281, 281},
        {"T+1", u"SEHK", u"00700", 1, none, u"", 168, 174},
        {"T+1 among others, blanks, case", u"SSE, sehk ,X", u"00700", 1, none, u"", 168, 174},
        {"part of a name", u"SEHKX", u"00700", 1, none, u"", 281, 281},
        {"future", u"SEHK", u"00700", 2, none, u"", 300, 300},
        {"option", u"SEHK", u"00700", 3, none, u"", 300, 300},
        {"type 4", u"SEHK", u"00700", 4, none, u"", 168, 174},
        {"live ticker goes first", u"SSE", u"00700", 1, 1, u"sse", 168, 174},
        {"ticker without data too", u"SSE", u"00700", 1, 2, u"SSE", 168, 174},
        {"waiting ticker does not", u"SSE", u"00700", 1, 0, u"SSE", 281, 281},
        {"ticker without an exchange", u"SEHK", u"00700", 1, 1, u"", 168, 174},
        {"ticker elsewhere", u"SEHK", u"00700", 1, 1, u"SSE", 281, 281},
        {"nowhere", u"SEHK", u"Z", 1, none, u"", 281, 281},
        {"nowhere, no markets", u"", u"Z", 1, none, u"", 281, 281},
        {"nowhere, comma at the end", u"SEHK,", u"Z", 1, none, u"", 281, 281},
        {"nowhere, empty piece inside", u"SEHK,,SSE", u"Z", 1, none, u"", 168, 174},
        {"nowhere, empty piece first", u",SEHK", u"Z", 1, none, u"", 168, 174},
        {"nowhere, blank piece", u"SEHK, ,SSE", u"Z", 1, none, u"", 168, 174},
    };
    for (const bool moves : {false, true}) {
        SetConfig(ConfigKey::IncludeStockSIMaxSell, moves ? u"1" : u"0");
        for (const auto& row : cases) {
            SetConfig(ConfigKey::T1Market, row.Markets);
            MakeList();
            SetConfig(ConfigKey::T1Market, u"SEHK,SSE,X"); // the list goes by what it was made with
            TEmbeddedSubItem& ticker = Item(u"TICKER");
            ticker.SetStatus(row.Status);
            ticker.SetField(Field::Exchange, row.TickerExchange);
            TPositionFigures figures = stock;
            figures.ProdType = row.Type;
            TCustomPositionData& record =
                Hold(u"A1", row.Symbol, figures, row.Status == none ? nullptr : &ticker);
            EXPECT_EQ(List->GetAvailableQty(&record), moves ? row.WithMoves : row.Plain)
                << row.Name;
        }
    }
    EXPECT_EQ(List->GetAvailableQty(nullptr), 0.0);
}

TEST_F(TClosePositionsTest, OrderOfEachClose) {
    constexpr struct {
        StringView Figures;
        StringView Way, Best, Number; // no way: no order
    } cases[] = {
        {u"qty=300", u"sell", u"9", u"300"},         {u"qty=-300", u"buy", u"11", u"300"},
        {u"qty=1e-9", u"sell", u"9", u"1E-9"},       {u"qty=2e9", u"sell", u"9", u"2000000000"},
        {u"qty=-3e9", u"buy", u"11", u"2000000000"}, {u"long qty=300", u"", u"", u""},
        {u"short qty=300", u"", u"", u""},
    };
    Item(u"TICKER").SetField(Field::BestBid, 77.0); // no close looks at a record's own ticker
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const bool answer : {true, false}) {
            Actions.Answer = answer;
            InMessage = [&](Integer, Pointer data) {
                auto& record = *static_cast<TOrderTakeActionRecord*>(data);
                EXPECT_NE(ObjectAs<TLoggedOrder>(record.Order), nullptr);
                EXPECT_EQ(record.Action, 1);
                EXPECT_EQ(record.Source, 602);
                EXPECT_EQ(record.Message, u"Close this position?");
                EXPECT_FALSE(record.Result);
                record.Result = answer;
            };
            for (const auto& row : cases) {
                SCOPED_TRACE(ToUtf8(row.Figures));
                ShowOne(row.Figures, &Item(u"TICKER"));
                const bool fills = !row.Way.empty();
                const auto expected = [&](StringView flags, StringView before, StringView after) {
                    const String start = u"check 00700|clear|" + String(flags);
                    if (!fills) return start;
                    return start + String(row.Way) + u'|' + String(before) +
                           u"symbol 00700|account A1|" + String(after) + u"quantity " +
                           String(row.Number) + (confirm ? u"|message 18011\n" : u"|take\n");
                };
                EXPECT_EQ(List->CloseToBest(0), fills && answer);
                EXPECT_EQ(TakeLog(), expected(u"", u"price " + String(row.Best) + u'|', u""));
                EXPECT_EQ(List->CloseToLast(0), fills && answer);
                EXPECT_EQ(TakeLog(), expected(u"", u"price 10|", u""));
                EXPECT_EQ(List->CloseToMarket(0), fills && answer);
                EXPECT_EQ(TakeLog(), expected(u"flags 5|", u"", u"price 0|"));
            }
        }
    }
    InMessage = nullptr;
    IsHandled = false;
    ShowOne(u"qty=300");
    EXPECT_FALSE(List->CloseToBest(0)) << "nobody confirms";
}

TEST_F(TClosePositionsTest, ClosesThatStop) {
    ShowOne(u"qty=300");
    for (const auto& close : Closes) {
        for (const Integer row : {-1, 1, 2147483647}) {
            EXPECT_FALSE((List.get()->*close.Close)(row)) << close.Name << ' ' << row;
        }
    }
    EXPECT_EQ(TakeLog(), u"");

    Items.ActedOn.clear();
    Items.AnswersNil = true;
    EXPECT_FALSE(List->CloseToBest(0));
    EXPECT_FALSE(List->CloseToLast(0));
    EXPECT_EQ(TakeLog().find(u"take"), String::npos) << "without an item";
    EXPECT_EQ(Items.ActedOn, u"00700 00700 ");
    EXPECT_TRUE(List->CloseToMarket(0)) << "needs no item";
    Items.AnswersNil = false;
    TakeLog();

    Closing->Declines = true;
    for (const auto& close : Closes) EXPECT_FALSE((List.get()->*close.Close)(0)) << close.Name;
    EXPECT_EQ(TakeLog(), u"check 00700|check 00700|check 00700|");

    SetField(u"00700", Field::BestBid, 0.0); // no bid
    Closing->Declines = false;
    EXPECT_TRUE(List->CloseToBest(0));
    EXPECT_TRUE(TakeLog().find(u"|price 0|") != String::npos);

    ServiceRegistry::Remove<TCustomOrderAdapter>();
    MakeCloseList();
    Show(u"A1");
    for (const auto& close : Closes) EXPECT_FALSE((List.get()->*close.Close)(0)) << close.Name;
    EXPECT_FALSE(List->CloseAllPositions());
    EXPECT_FALSE(List->CopyOrder(0));
    EXPECT_EQ(TakeLog().find(u'\n'), String::npos) << "without an order service";
    ServiceRegistry::Install(&Orders);
}

TEST_F(TClosePositionsTest, QuestionAboutTheSize) {
    EXPECT_TRUE(List->CheckClosePositionQty(nullptr));
    EXPECT_TRUE(List->CheckClosePositionQty(0)) << "a bad row";
    for (const Double quantity : {300.0, Limit, -Limit, -3e9}) {
        EXPECT_TRUE(List->CheckClosePositionQty(&Hold(u"A1", u"00700", quantity))) << quantity;
    }
    for (const StringView side : {u"", u"long ", u"short "}) {
        ShowOne(String(side) + u"qty=2000000000.0000003");
        for (const Integer answer : {0, 1, 2}) {
            Host().ExpectQuestion(LimitQuestion, answer);
            EXPECT_EQ(List->CheckClosePositionQty(0), answer == 1);
        }
    }
    ShowOne(u"qty=3e9");
    for (const auto& close : Closes) {
        for (const Integer answer : {0, 1}) {
            TakeLog();
            Host().ExpectQuestion(LimitQuestion, answer);
            EXPECT_EQ((List.get()->*close.Close)(0), answer == 1) << close.Name;
            const String log = TakeLog();
            EXPECT_EQ(log == u"check 00700|", answer == 0) << ToUtf8(log);
            EXPECT_EQ(log.find(u"quantity 2000000000|take") != String::npos, answer == 1);
        }
    }
    Services().Language().SetText(TAppLanguage::English, Const_ResourceStringTag,
                                  ResourceKey::Res_MaxOrdQty, u"%2s<%1s>%1s%2s %3s %1");
    SpyOnFormatter();
    Host().ExpectQuestion(u"i2000000000<i2000000000>i2000000000i2000000000 %3s %1", 0);
    EXPECT_FALSE(List->CheckClosePositionQty(0));
}

TEST_F(TClosePositionsTest, BatchInTheOrderOfTheDictionary) {
    Hold(u"A1", u"HSIF", -2.0); // rows are sorted, the batch is not
    Hold(u"A1", u"00700", u"long qty=1");
    Hold(u"A1", u"TCHC", 3.0);
    Hold(u"A1", u"00005", -3e9);
    Show(u"A1");
    EXPECT_EQ(List->Rows(), u"00005:-3000000000 00700:1 HSIF:-2 TCHC:3");
    const String all = BatchOrder(u"buy", u"HSIF", u"2") + BatchOrder(u"sell", u"TCHC", u"3") +
                       BatchOrder(u"buy", u"00005", u"2000000000");
    for (const bool answer : {true, false}) {
        Actions.Answer = answer;
        EXPECT_TRUE(List->CloseAllPositions()) << "whatever becomes of the orders";
        EXPECT_EQ(TakeLog(), u"check 00005|" + all);
    }
    // What comes and goes meanwhile changes nothing.
    Actions.InTake = [this] {
        List->SetAccount({});
        Hold(u"A1", u"AU12", 1.0);
        Deliver();
        List->SetAccount(u"A1");
    };
    EXPECT_TRUE(List->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"check 00005|" + all);
    Actions.InTake = nullptr;
    Hold(u"A1", u"AU12", 0.0);
    Show(u"A1");
    Closing->InCheck = [this] { List->SetAccount({}); };
    EXPECT_TRUE(List->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"check 00005|" + all) << "rows gone while the size is in question";
}

TEST_F(TClosePositionsTest, BatchChecksOneSizeAndWhetherThereIsAny) {
    const struct {
        const char* Name;
        Double First, Second; // quantities of HSIF and 00700
        StringView Log;
        bool Asks;
    } cases[] = {
        {"at the limit", Limit, -Limit, u"", false},
        {"above it", 1.0, AboveLimit, u"check 00700|", true},
        {"both", 3e9, 4e9, u"check HSIF|", true},
        {"short first", -3e9, 3e9, u"check HSIF|", false},
        {"short second", 3e9, -3e9, u"check HSIF|", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Hold(u"A1", u"HSIF", row.First);
        Hold(u"A1", u"00700", row.Second);
        Show(u"A1");
        for (const Integer answer : {1, 0}) {
            if (row.Asks) Host().ExpectQuestion(LimitQuestion, answer);
            const bool goesOn = answer == 1 || !row.Asks;
            EXPECT_EQ(List->CloseAllPositions(), goesOn);
            const String log = TakeLog();
            EXPECT_TRUE(goesOn ? log.starts_with(String(row.Log) + u"clear|") : log == row.Log)
                << ToUtf8(log);
        }
    }
    Confirm(true);
    Hold(u"A1", u"HSIF", 3e9);
    Host().ExpectQuestion(LimitQuestion, 0);
    EXPECT_FALSE(List->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"check HSIF|") << "declined before the confirmation";

    Hold(u"A1", u"HSIF", 0.0); // closed, and the list has not heard of it
    Hold(u"A1", u"00700", 0.0);
    for (const StringView account : {u"A1", u"A2", u""}) {
        List->SetAccount(account);
        Host().ExpectMessage(NothingToClose);
        EXPECT_FALSE(List->CloseAllPositions());
    }
    EXPECT_EQ(TakeLog(), u"");
    Confirm(false);
    ShowOne(u"short qty=1");
    EXPECT_TRUE(List->CloseAllPositions()) << "a sided record counts, and stays open";
    EXPECT_EQ(TakeLog(), u"");
}

TEST_F(TClosePositionsTest, BatchConfirmation) {
    Hold(u"A1", u"HSIF", -2.0);
    Hold(u"A1", u"00700", 300.0);
    Show(u"A1");
    Confirm(true);
    for (const bool answer : {true, false}) {
        std::unique_ptr<TCustomCloseAllPositionDataControl> list;
        InMessage = [&](Integer, Pointer data) {
            auto& record = *static_cast<TOrderTakeActionRecord*>(data);
            list.reset(ObjectAs<TCustomCloseAllPositionDataControl>(record.Order));
            EXPECT_EQ(record.Action, 1);
            EXPECT_EQ(record.Source, 602);
            EXPECT_EQ(record.Message, u"");
            EXPECT_FALSE(record.Result);
            record.Result = answer;
        };
        EXPECT_EQ(List->CloseAllPositions(), answer);
        EXPECT_EQ(TakeLog(),
                  u"message 18012\n" + (answer ? BatchOrder(u"buy", u"HSIF", u"2") +
                                                     BatchOrder(u"sell", u"00700", u"300")
                                               : String()));
        ASSERT_NE(list, nullptr);
        EXPECT_STREQ(list->ClassName(), "TCustomCloseAllPositionDataControl");
        EXPECT_EQ(list->Owner(), nullptr);
        EXPECT_EQ(list->Account(), u"A1");
        String text;
        ASSERT_NE(list->GetColList(), nullptr);
        for (const TColumnInfo* column : *list->GetColList()) {
            text += Variant(column->ID()).ToText() + u' ' + column->ResourceKey() + u' ' +
                    Variant(column->Width()).ToText() + column->Key() +
                    (column->Flag() ? u" Q|" : u"|");
        }
        EXPECT_EQ(text, u"10 Res_Account 80|21 Res_SymbolName 150|4 Res_Long 70 Q|"
                        u"470 Res_Short 70 Q|0 Res_Symbol 80|");
        EXPECT_EQ(TCustomCloseAllPositionDataControl().GetColList(), list->GetColList());
        EXPECT_EQ(Kinded(list->GetValue(0, 4)), u"300") << "sorted as any list";
        Hold(u"A1", u"00700", answer ? 0.0 : 300.0);
        Deliver();
        EXPECT_EQ(list->GetCount(), answer ? 1 : 2) << "follows its account";
        Hold(u"A1", u"00700", 300.0);
        Deliver();
        Show(u"A1");
    }
    // Nobody takes the list in.
    InMessage = nullptr;
    IsHandled = false;
    const Integer registered = Services().RegistrationCount();
    EXPECT_FALSE(List->CloseAllPositions());
    EXPECT_EQ(TakeLog(), u"message 18012\n");
    EXPECT_EQ(Services().RegistrationCount(), registered);
}

TEST_F(TClosePositionsTest, NoSecondActionWhileOneWaits) {
    ShowOne(u"qty=300");
    const auto tryAll = [this] {
        const String before = Log;
        for (const auto& close : Closes) EXPECT_FALSE((List.get()->*close.Close)(0)) << close.Name;
        EXPECT_FALSE(List->CloseAllPositions());
        EXPECT_FALSE(List->CopyOrder(0));
        EXPECT_EQ(Log, before) << "the order that waits is left alone";
    };
    Actions.InTake = tryAll;
    InMessage = [&](Integer number, Pointer data) {
        tryAll();
        if (number == ChannelMessage::CopyOrder) return;
        auto& record = *static_cast<TOrderTakeActionRecord*>(data);
        const std::unique_ptr<TCustomPositionDataControl> list(
            ObjectAs<TCustomPositionDataControl>(record.Order));
        record.Result = true;
    };
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const auto& close : Closes) EXPECT_TRUE((List.get()->*close.Close)(0)) << close.Name;
        EXPECT_TRUE(List->CloseAllPositions());
        EXPECT_TRUE(List->CopyOrder(0));
    }
    Closing->InCheck = [&] { // the question about the size waits as well
        Closing->InCheck = nullptr;
        EXPECT_FALSE(List->CopyOrder(0));
        EXPECT_FALSE(List->CloseToMarket(0));
    };
    EXPECT_TRUE(List->CloseToMarket(0));
}

} // namespace
} // namespace quorin
