#include "viewdata/market/MarketTradeSideDetector.h"
#include "embedded/SubscribeService.h"
#include "platform/rtl/Utf.h"
#include "tests/viewdata/TradeSideModel.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quorin {
namespace {

constexpr StringView Symbol = u"00700";

struct TDetectorTest : testing::Test {
    TEmbeddedSubscribeAdapter Adapter;
    std::unique_ptr<TMarketTradeSideDetector> Detector =
        CreateComponent<TMarketTradeSideDetector>();

    TDetectorTest() { ServiceRegistry::Install(&Adapter); }
    ~TDetectorTest() override {
        Detector.reset();
        TMarketTradeSideDetector::ReleaseInstance();
        EXPECT_EQ(Adapter.RegistrationCount(), 0);
        ServiceRegistry::Remove<TCustomSubscribeAdapter>();
    }

    TEmbeddedSubItem& Item() { return Adapter.Item(Symbol); }
    TSymbolMarketTrade& State() { return *Detector->GetSymbolMarketTrade(Symbol); }
    void Write(const TUpdate& update) {
        TEmbeddedSubItem& item = Item();
        item.SetField(Field::BestBid, update.Bid);
        item.SetField(Field::BestAsk, update.Ask);
        Integer field = Field::OldestTrade;
        for (const String& line : FiveLines(update.Lines)) item.SetField(field++, line);
        item.SetStatus(update.Status);
    }
    void Feed(const TUpdate& update) {
        Write(update);
        Adapter.Touch(Item());
        Adapter.Deliver();
    }
    void Restart() {
        Item().SetStatus(ItemStatus::Waiting);
        Detector = CreateComponent<TMarketTradeSideDetector>();
        Detector->AddSymbol(Symbol);
    }
    String Trades() {
        String text;
        for (Integer index = 0; index < State().Count(); ++index) {
            const TMarketDataTrade& trade = *State().GetTrade(index);
            if (index > 0) text += u',';
            text += TradeText(trade.Time(), trade.Qty(), trade.Price(), trade.Side());
        }
        return text;
    }
};

TEST_F(TDetectorTest, SideComesFromTheQuoteBeforeAndThenFromTheNewOne) {
    const struct {
        const char* Name;
        String LastBid, LastAsk, Bid, Ask, Price;
        String Side;
    } cases[] = {
        {"at the ask before", u"9.9", u"10.1", u"", u"", u"10.1", u"A"},
        {"at the bid before", u"9.9", u"10.1", u"", u"", u"9.9", u"B"},
        {"inside both", u"9.9", u"10.1", u"9.8", u"10.2", u"10", u""},
        {"inside before, at the new ask", u"9.9", u"10.1", u"9.9", u"10", u"10", u"A"},
        {"inside before, at the new bid", u"9.9", u"10.1", u"10", u"10.1", u"10", u"B"},
        {"ask before wins over new bid", u"9.9", u"10", u"10", u"10.1", u"10", u"A"},
        {"bid before wins over new ask", u"10", u"10.1", u"9.9", u"10", u"10", u"B"},
        {"bid and ask alike before", u"10", u"10", u"", u"", u"10", u"A"},
        {"no quote at all", u"", u"", u"", u"", u"10", u""},
        {"quotes that are no numbers", u"-", u"9x", u"10,0", u"1 0", u"10", u""},
        {"ask before no number, new ask", u"9", u"n/a", u"9", u"10", u"10", u"A"},
        {"bid before no number, new bid", u"n/a", u"11", u"10", u"11", u"10", u"B"},
        {"invalid ask does not count as 0", u"9", u"x", u"9", u"x", u"10", u""},
        {"invalid bid does not count as 0", u"x", u"11", u"x", u"11", u"-1", u""},
        {"bid 0 is a price", u" 0 ", u"5", u"", u"", u"-3", u"B"},
        // The quote is 0, so that the difference is the price itself, to the last bit.
        {"ask before, above", u"", u"0", u"", u"", u"-0.99999999e-8", u"A"},
        {"ask before, border", u"", u"0", u"", u"", u"-1e-8", u"A"},
        {"ask before, below", u"", u"0", u"", u"", u"-1.00000001e-8", u""},
        {"bid before, below", u"0", u"", u"", u"", u"0.99999999e-8", u"B"},
        {"bid before, border", u"0", u"", u"", u"", u"1e-8", u"B"},
        {"bid before, above", u"0", u"", u"", u"", u"1.00000001e-8", u""},
        {"new ask, border", u"", u"", u"", u"0", u"-1e-8", u"A"},
        {"new ask, below", u"", u"", u"", u"0", u"-1.00000001e-8", u""},
        {"new bid, border", u"", u"", u"0", u"", u"1e-8", u"B"},
        {"new bid, above", u"", u"", u"0", u"", u"1.00000001e-8", u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        Feed({u"", row.LastBid, row.LastAsk});
        Feed({u"09:30:00 100 " + row.Price, row.Bid, row.Ask});
        EXPECT_EQ(State().GetTrade(4)->Side(), row.Side);
    }
}

// The line is the newest of five; its record held "a 7 10" before.
TEST_F(TDetectorTest, ReadsALine) {
    const struct {
        const char* Name;
        String Line;
        String Trade;
    } cases[] = {
        {"hours to seconds", u"09:30:05 100 10.1", u"09:30:05 100 10.1 A"},
        {"hours and minutes", u"09:30 100 10.1", u"09:30 100 10.1 A"},
        {"many blanks", u"09:30:05    1.5K     10.1", u"09:30:05 1.5K 10.1 A"},
        {"blanks around", u"   09:30 100 10.1  ", u"09:30 100 10.1 A"},
        {"time takes nine characters", u"09:30:05P100 10.1", u"09:30:05P 100 10.1 A"},
        {"quantity touches", u"09:30:05100 10.1", u"09:30:051 00 10.1 A"},
        {"short time takes six", u"09:30P100 10.1", u"09:30P 100 10.1 A"},
        {"first blank right behind the cut", u"09:30:0512 10.1 1", u"09:30:051 2 0"},
        {"second colon too far", u"093:00:5 100 10.1", u"093:00 :5 0"},
        {"price no number", u"09:30:05 100 10.1x", u"09:30:05 100 0"},
        {"no price", u"09:30:05 100", u"09:30:05  0"},
        {"no blank keeps the record", u"09:30:05", u"a 7 10"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        const String rest = u"b 7 10,c 7 10,d 7 10,e 7 10";
        Feed({u"a 7 10," + rest});
        Feed({rest + u"," + row.Line, u"9", u"10.1"});
        EXPECT_EQ(Trades(), rest + u"," + row.Trade);
    }
}

// The quote is 9 to 11 unless a row says otherwise; the times are letters.
TEST_F(TDetectorTest, FindsTheNewTradesOfASequence) {
    const TUpdate known{u"a 1 10,b 1 10,c 1 10,d 1 10,e 1 10"};
    const struct {
        const char* Name;
        std::vector<TUpdate> Updates;
        String Trades;
    } cases[] = {
        {"none before the first valid update", {{u"a 1 11", u"9", u"11", ItemStatus::NoData}}, u""},
        {"empty day, then a trade", {{u""}, {u"a 1 11"}}, u"-,-,-,-,a 1 11 A"},
        {"known lines again", {known, {known.Lines, u"10", u"10"}}, known.Lines},
        {"sides stay with their trades",
         {{u"a 1 10"}, {u"a 1 10,b 1 11"}, {u"a 1 10,b 1 11,c 1 9"}, {u"a 1 10,b 1 11,c 1 9"}},
         u"-,-,a 1 10,b 1 11 A,c 1 9 B"},
        {"five new, those between are lost",
         {known, {u"p 1 11,q 1 9,r 1 10,s 1 11,t 1 9"}},
         u"p 1 11 A,q 1 9 B,r 1 10,s 1 11 A,t 1 9 B"},
        {"the newest again",
         {{u"a 1 9,b 1 11"}, {u"a 1 9,b 1 11,b 1 11"}},
         u"-,-,a 1 9,b 1 11,b 1 11 A"},
        {"four alike become five",
         {{u"a 1 9,b 1 11,b 1 11,b 1 11,b 1 11"}, {u"b 1 11,b 1 11,b 1 11,b 1 11,b 1 11"}},
         u"b 1 11,b 1 11,b 1 11,b 1 11,b 1 11 A"},
        {"a sixth alike cannot be told",
         {{u"b 1 11,b 1 11,b 1 11,b 1 11,b 1 11"}, {u"b 1 11,b 1 11,b 1 11,b 1 11,b 1 11"}},
         u"b 1 11,b 1 11,b 1 11,b 1 11,b 1 11"},
        {"the newest known as the oldest shown is old",
         {known, {u"e 1 10,f 1 11,g 1 11,h 1 11,i 1 9"}},
         u"e 1 10,f 1 11 A,g 1 11 A,h 1 11 A,i 1 9 B"},
        {"known line, unknown before it", {{u"a 1 11,,,,"}, {u"a 1 11"}}, u"-,-,-,-,a 1 11 A"},
        {"blank between",
         {{u"a 1 10"}, {u"a 1 10,b 1 11, ,c 1 9"}},
         u"-,-,b 1 11 A,a 1 10,c 1 9 B"},
        {"only blanks after trades", {known, {u"  , ,,,"}, {known.Lines}}, known.Lines},
        {"blank behind the first", {{u"a 1 11 "}, {u"a 1 11 "}}, u"-,-,-,a 1 11,a 1 11 A"},
        {"blank before the first", {{u" a 1 11"}}, u"-,-,-,-,-"},
        {"update that is not valid leaves the quote",
         {{u"a 1 10"}, {u"b 1 10", u"1", u"2", ItemStatus::Waiting}, {u"a 1 10,c 1 10"}},
         u"-,-,-,a 1 10,c 1 10"},
        {"a bad quote counts for this update and the next",
         {{u""}, {u"a 1 11", u"x", u"x"}, {u"b 1 10", u"x", u"x"}, {u"c 1 11"}},
         u"-,-,a 1 11 A,b 1 10,c 1 11 A"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        for (const TUpdate& update : row.Updates) {
            Write(update);
            State().ProcessTradeMessage(&Item());
        }
        EXPECT_EQ(Trades(), row.Trades);
    }
}

TEST_F(TDetectorTest, OneListenerHoweverManyFollow) {
    struct TStep {
        const char* Name;
        void (*Do)(TDetectorTest&);
        Integer Registrations;
    };
    const auto add = [](TDetectorTest& t) { t.Detector->AddSymbol(Symbol); };
    const auto remove = [](TDetectorTest& t) { t.Detector->RemoveSymbol(Symbol); };
    const auto clear = [](TDetectorTest& t) { t.State().ClearTrade(); };
    const TStep steps[] = {
        {"first", add, 1},
        {"second", add, 1},
        {"one leaves", remove, 1},
        {"last leaves", remove, 0},
        {"one too many", remove, 0},
        {"comes back", add, 1},
        {"another symbol", [](TDetectorTest& t) { t.Detector->AddSymbol(u"00005"); }, 2},
        {"unknown symbol leaves", [](TDetectorTest& t) { t.Detector->RemoveSymbol(u"1"); }, 2},
        {"second", add, 2},
        {"cleared", clear, 1},
        {"cleared again", clear, 1},
        {"a follower from before leaves", remove, 1},
        {"follows anew", add, 2},
        {"leaves", remove, 1},
    };
    EXPECT_EQ(Detector->GetSymbolMarketTrade(Symbol), nullptr);
    for (const TStep& step : steps) {
        step.Do(*this);
        EXPECT_EQ(Adapter.RegistrationCount(), step.Registrations) << step.Name;
    }
    EXPECT_EQ(State().Symbol(), Symbol);
    EXPECT_EQ(Detector->GetSymbolMarketTrade(u"1"), nullptr);
}

TEST_F(TDetectorTest, ReadyItemIsTakenInAtOnceAndComesBackWithoutSides) {
    Write({u"a 1 10"});
    Detector->AddSymbol(Symbol);
    EXPECT_EQ(Trades(), u"-,-,-,-,a 1 10");
    Detector->AddSymbol(Symbol); // what is known is not taken in again
    Feed({u"a 1 10,b 1 11"});
    EXPECT_EQ(Trades(), u"-,-,-,a 1 10,b 1 11 A");
    EXPECT_EQ(State().GetTrade(5), nullptr);
    EXPECT_EQ(State().GetCount(), 5);

    Detector->RemoveSymbol(Symbol);
    Detector->RemoveSymbol(Symbol);
    EXPECT_EQ(Trades(), u"");
    EXPECT_EQ(State().GetTrade(0), nullptr);
    Feed({u"a 1 10,b 1 11,c 1 9"});
    EXPECT_EQ(Trades(), u"");
    Detector->AddSymbol(Symbol);
    EXPECT_EQ(Trades(), u"-,-,a 1 10,b 1 11,c 1 9");
    State().SymbolUpdate(nullptr);
    State().SymbolUpdate(Detector.get());
    EXPECT_EQ(Trades(), u"-,-,a 1 10,b 1 11,c 1 9");
}

TEST_F(TDetectorTest, FirstValidUpdateDecidesOnTheExchangeForGood) {
    const struct {
        const char* Name;
        String First, Later;
        bool Detects;
    } cases[] = {
        {"watched", u"SEHK", u"SEHK", true},
        {"none", u"", u"", true},
        {"none, turns out to be another", u"", u"HKFE", true},
        {"another", u"HKFE", u"HKFE", false},
        {"another, then watched", u"HKFE", u"SEHK", false},
        {"blank counts", u" SEHK", u"SEHK", false},
    };
    for (const auto& row : cases) {
        for (const bool readyBefore : {false, true}) {
            SCOPED_TRACE(std::string(row.Name) + (readyBefore ? ", ready before" : ""));
            Detector = CreateComponent<TMarketTradeSideDetector>();
            Write({u"a 1 10"});
            Item().SetField(Field::Exchange, readyBefore ? row.First : String(u"none yet"));
            if (!readyBefore) Item().SetStatus(ItemStatus::Waiting);
            Detector->AddSymbol(Symbol);
            Item().SetField(Field::Exchange, row.First);
            Feed({u"a 1 10"});
            EXPECT_EQ(Adapter.RegistrationCount(), row.Detects ? 1 : 0);
            EXPECT_EQ(State().Count(), row.Detects ? 5 : 0);
            Item().SetField(Field::Exchange, row.Later);
            Detector->RemoveSymbol(Symbol);
            Detector->AddSymbol(Symbol);
            Detector->AddSymbol(Symbol);
            Feed({u"a 1 10,b 1 11"});
            EXPECT_EQ(Adapter.RegistrationCount(), row.Detects ? 1 : 0);
            EXPECT_EQ(Trades(), row.Detects ? u"-,-,-,a 1 10,b 1 11 A" : u"");
            Detector->RemoveSymbol(Symbol);
            Detector->RemoveSymbol(Symbol);
            EXPECT_EQ(Adapter.RegistrationCount(), 0);
        }
    }
}

struct TCallCounter : TObject {
    Integer Calls = 0;
    void Called(TObject*) { ++Calls; }
};

TEST_F(TDetectorTest, SwitchingOffInsideADeliveryLeavesTheOthersTheirCall) {
    TCallCounter before, after;
    Item().SetField(Field::Exchange, u"HKFE");
    Item().AddRealtimeListener(MakeEvent<&TCallCounter::Called>(&before), &before);
    Detector->AddSymbol(Symbol);
    Item().AddRealtimeListener(MakeEvent<&TCallCounter::Called>(&after), &after);
    Adapter.Touch(Item());
    Adapter.Deliver();
    EXPECT_EQ(before.Calls, 1);
    EXPECT_EQ(after.Calls, 1);
    EXPECT_EQ(Adapter.RegistrationCount(), 2);
    Item().RemoveRealtimeListener(&before);
    Item().RemoveRealtimeListener(&after);
}

TEST_F(TDetectorTest, ReleasingTheSharedDetectorLeavesNothingBehind) {
    TMarketTradeSideDetector* shared = TMarketTradeSideDetector::GetInstance();
    EXPECT_EQ(TMarketTradeSideDetector::GetInstance(), shared);
    shared->AddSymbol(Symbol);
    shared->AddSymbol(Symbol);
    shared->AddSymbol(u"00005");
    EXPECT_EQ(Adapter.RegistrationCount(), 2);
    TMarketTradeSideDetector::ReleaseInstance();
    EXPECT_EQ(Adapter.RegistrationCount(), 0);
    TMarketTradeSideDetector::ReleaseInstance();
    EXPECT_EQ(TMarketTradeSideDetector::GetInstance()->GetSymbolMarketTrade(Symbol), nullptr);
}

class TRandomTape {
public:
    explicit TRandomTape(unsigned seed) : FRandom(seed) {}
    bool OneIn(int count) { return Number(count) == 0; }
    int Number(int below) { return static_cast<int>(FRandom() % static_cast<unsigned>(below)); }
    TUpdate Next() {
        for (int trades = OneIn(6) ? Number(9) : Number(3); trades > 0; --trades) {
            FLines.push_back(OneIn(3) && !FLines.empty() ? FLines.back() : Line());
        }
        TUpdate update{u"", Quote(98), Quote(101)};
        const std::size_t shown = std::min(FLines.size(), LineCount);
        for (std::size_t index = FLines.size() - shown; index < FLines.size(); ++index) {
            if (index > FLines.size() - shown) update.Lines += u',';
            if (!OneIn(40)) update.Lines += FLines[index];
        }
        if (OneIn(12)) update.Status = ItemStatus::Waiting;
        return update;
    }

private:
    String Quote(int from) { return OneIn(8) ? String(u"n/a") : IntegerToText(from + Number(3)); }
    String Line() {
        static const StringView times[] = {u"09:30", u"09:31:05", u"10:00:00", u"11:15"};
        static const StringView gaps[] = {u" ", u"  ", u""};
        String line = String(times[Number(4)]) + String(gaps[Number(3)]);
        line += IntegerToText(1 + Number(3)) + u" " + IntegerToText(97 + Number(8));
        if (OneIn(25)) line += u"x";
        if (OneIn(25)) line += u" ";
        if (OneIn(25)) line.insert(0, u" ");
        if (OneIn(40)) line = u"?";
        return line;
    }

    std::mt19937 FRandom; // the same numbers everywhere
    std::vector<String> FLines;
};

TEST_F(TDetectorTest, AgreesWithThePlainModelOnRandomTapes) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        TRandomTape tape(seed);
        TPlainModel model;
        Item().SetField(Field::Exchange, u"SEHK");
        Restart();
        for (int step = 0; step < 60; ++step) {
            const TUpdate update = tape.Next();
            Write(update);
            State().SymbolUpdate(&Item());
            model.Take(update);
            ASSERT_EQ(Trades(), model.Trades())
                << "seed " << seed << ", step " << step << ": " << ToUtf8(update.Lines);
            if (!tape.OneIn(30)) continue;
            Detector->RemoveSymbol(Symbol);
            Detector->AddSymbol(Symbol);
            model.Clear();
            model.Take(update);
        }
    }
}

} // namespace
} // namespace quorin
