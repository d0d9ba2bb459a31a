#include "viewdata/market/MarketTradeSideDetector.h"
#include "embedded/SubscribeService.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace quorin {
namespace {

constexpr StringView Symbol = u"00700";
constexpr std::size_t LineCount = 5;

// What one update of the feed says. Lines are parted by ",", the last one is the newest.
struct TUpdate {
    String Bid;
    String Ask;
    String Lines;
    Integer Status = ItemStatus::Ready;
};

std::vector<String> FiveLines(const String& lines) {
    std::vector<String> five(1);
    for (const Char c : lines) {
        if (c == u',')
            five.emplace_back();
        else
            five.back() += c;
    }
    while (five.size() < LineCount) five.insert(five.begin(), String());
    return five;
}

String TradeText(const String& time, const String& qty, Double price, const String& side) {
    if (time.empty()) return side.empty() ? u"-" : u"- " + side;
    const String text = time + u" " + qty + u" " + DoubleToText(price);
    return side.empty() ? text : text + u" " + side;
}

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
            if (index > 0) text += u", ";
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
        {"above the ask before", u"9.9", u"10.1", u"", u"", u"10.2", u"A"},
        {"at the bid before", u"9.9", u"10.1", u"", u"", u"9.9", u"B"},
        {"below the bid before", u"9.9", u"10.1", u"", u"", u"9.8", u"B"},
        {"inside both", u"9.9", u"10.1", u"9.8", u"10.2", u"10", u""},
        {"inside before, at the new ask", u"9.9", u"10.1", u"9.9", u"10", u"10", u"A"},
        {"inside before, at the new bid", u"9.9", u"10.1", u"10", u"10.1", u"10", u"B"},
        {"ask before wins over new bid", u"9.9", u"10", u"10", u"10.1", u"10", u"A"},
        {"bid before wins over new ask", u"10", u"10.1", u"9.9", u"10", u"10", u"B"},
        {"bid and ask alike before", u"10", u"10", u"", u"", u"10", u"A"},
        {"bid and ask alike now", u"", u"", u"10", u"10", u"10", u"A"},
        {"no quote at all", u"", u"", u"", u"", u"10", u""},
        {"quotes that are no numbers", u"-", u"9x", u"10,0", u"1 0", u"10", u""},
        {"ask before no number, new ask", u"9", u"n/a", u"9", u"10", u"10", u"A"},
        {"bid before no number, new bid", u"n/a", u"11", u"10", u"11", u"10", u"B"},
        {"invalid ask does not count as 0", u"9", u"x", u"9", u"x", u"10", u""},
        {"invalid bid does not count as 0", u"x", u"11", u"x", u"11", u"-1", u""},
        {"ask 0 is a price", u"", u"0", u"", u"", u"0", u"A"},
        {"bid 0 is a price", u"0", u"5", u"", u"", u"-3", u"B"},
        {"blanks around the quote", u" 9.9 ", u" 10.1 ", u"", u"", u"10.1", u"A"},
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
        {"price no number", u"9.9", u"10.1", u"9.9", u"10.1", u"10.1x", u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        Feed({row.LastBid, row.LastAsk, u""});
        Feed({row.Bid, row.Ask, u"09:30:00 100 " + row.Price});
        EXPECT_EQ(State().GetTrade(4)->Side(), row.Side);
    }
}

// The line is the newest of five; its record held "09:00 7 10 " before.
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
        {"first blank at the cut", u"09:30:05P 100 10.1", u"09:30:05P 100 10.1 A"},
        {"second colon too far", u"093:00:5 100 10.1", u"093:00 :5 0"},
        {"no colon", u"093005 100 10.1", u"093005 100 10.1 A"},
        {"price no number", u"09:30:05 100 10.1x", u"09:30:05 100 0"},
        {"price in two parts", u"09:30:05 100 10.1 9", u"09:30:05 100 0"},
        {"no price", u"09:30:05 100", u"09:30:05  0"},
        {"negative price", u"09:30:05 100 -3.5", u"09:30:05 100 -3.5 B"},
        {"no blank keeps the record", u"09:30:05", u"09:00 7 10"},
        {"garbage keeps the record", u"###", u"09:00 7 10"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        Restart();
        Feed({u"9.9", u"10.1", u"09:00 7 10,09:01 7 10,09:02 7 10,09:03 7 10,09:04 7 10"});
        const String rest = u"09:01 7 10,09:02 7 10,09:03 7 10,09:04 7 10,";
        Feed({u"9.9", u"10.1", rest + row.Line});
        EXPECT_EQ(Trades(), u"09:01 7 10, 09:02 7 10, 09:03 7 10, 09:04 7 10, " + row.Trade);
    }
}

TEST_F(TDetectorTest, FindsTheNewTradesOfASequence) {
    const TUpdate known{u"9", u"11", u"09:01 1 10,09:02 1 10,09:03 1 10,09:04 1 10,09:05 1 10"};
    const struct {
        const char* Name;
        std::vector<TUpdate> Updates;
        String Trades;
    } cases[] = {
        {"nothing before the first valid update",
         {{u"9", u"11", u"09:01 1 11", ItemStatus::NoData}},
         u""},
        {"first update sets no side",
         {{u"9", u"11", u"09:01 1 11,09:02 2 9"}},
         u"-, -, -, 09:01 1 11, 09:02 2 9"},
        {"empty day, then a trade",
         {{u"9", u"11", u""}, {u"9", u"11", u"09:01 1 11"}},
         u"-, -, -, -, 09:01 1 11 A"},
        {"known lines again change nothing",
         {known, {u"10", u"10", known.Lines}},
         u"09:01 1 10, 09:02 1 10, 09:03 1 10, 09:04 1 10, 09:05 1 10"},
        {"sides stay with their trades",
         {{u"9", u"11", u"09:01 1 10"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11,09:03 1 9"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11,09:03 1 9"}},
         u"-, -, 09:01 1 10, 09:02 1 11 A, 09:03 1 9 B"},
        {"two new lines, the oldest go",
         {known, {u"9", u"11", u"09:03 1 10,09:04 1 10,09:05 1 10,09:06 2 11,09:07 3 9"}},
         u"09:03 1 10, 09:04 1 10, 09:05 1 10, 09:06 2 11 A, 09:07 3 9 B"},
        {"five new ones, those between are lost",
         {known, {u"9", u"11", u"09:11 1 11,09:12 1 9,09:13 1 10,09:14 1 11,09:15 1 9"}},
         u"09:11 1 11 A, 09:12 1 9 B, 09:13 1 10, 09:14 1 11 A, 09:15 1 9 B"},
        {"the newest once more is new",
         {{u"9", u"11", u"09:01 1 10,09:02 1 11"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11,09:02 1 11"}},
         u"-, -, 09:01 1 10, 09:02 1 11, 09:02 1 11 A"},
        {"the newest twice more",
         {{u"9", u"11", u"09:01 1 10,09:02 1 11"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11,09:02 1 11,09:02 1 11"}},
         u"-, 09:01 1 10, 09:02 1 11, 09:02 1 11 A, 09:02 1 11 A"},
        {"four alike become five",
         {{u"9", u"11", u"09:01 1 9,09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11"},
          {u"9", u"11", u"09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11"}},
         u"09:02 1 11, 09:02 1 11, 09:02 1 11, 09:02 1 11, 09:02 1 11 A"},
        {"a sixth alike cannot be told",
         {{u"9", u"11", u"09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11"},
          {u"9", u"11", u"09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11,09:02 1 11"}},
         u"09:02 1 11, 09:02 1 11, 09:02 1 11, 09:02 1 11, 09:02 1 11"},
        {"known newest line alone in front is old",
         {known, {u"9", u"11", u"09:05 1 10,09:06 1 11,09:07 1 11,09:08 1 11,09:09 1 9"}},
         u"09:05 1 10, 09:06 1 11 A, 09:07 1 11 A, 09:08 1 11 A, 09:09 1 9 B"},
        {"an older known line that returns is new",
         {known, {u"9", u"11", u"09:02 1 10,09:03 1 10,09:04 1 10,09:05 1 10,09:01 1 10"}},
         u"09:02 1 10, 09:03 1 10, 09:04 1 10, 09:05 1 10, 09:01 1 10"},
        {"known line with nothing known before it",
         {{u"9", u"11", u"09:01 1 11,,,,"}, {u"9", u"11", u"09:01 1 11"}},
         u"-, -, -, -, 09:01 1 11 A"},
        {"blank line between",
         {{u"9", u"11", u"09:01 1 10"}, {u"9", u"11", u"09:01 1 10,09:02 1 11, ,09:03 1 9"}},
         u"-, -, 09:02 1 11 A, 09:01 1 10, 09:03 1 9 B"},
        {"only blanks after trades change nothing",
         {known, {u"9", u"11", u"  , ,,,"}, {u"9", u"11", known.Lines}},
         u"09:01 1 10, 09:02 1 10, 09:03 1 10, 09:04 1 10, 09:05 1 10"},
        {"first line is known as it stands, with its blank",
         {{u"9", u"11", u"09:01 1 11 "}, {u"9", u"11", u"09:01 1 11 "}},
         u"-, -, -, 09:01 1 11, 09:01 1 11 A"},
        {"first line that begins with a blank is not read",
         {{u"9", u"11", u" 09:01 1 11"}},
         u"-, -, -, -, -"},
        {"an update that is not valid leaves the quote",
         {{u"9", u"11", u"09:01 1 10"},
          {u"1", u"2", u"09:02 1 10", ItemStatus::Waiting},
          {u"9", u"11", u"09:01 1 10,09:03 1 10"}},
         u"-, -, -, 09:01 1 10, 09:03 1 10"},
        {"a bad quote counts for the next update only",
         {{u"9", u"11", u""},
          {u"x", u"x", u"09:01 1 10"},
          {u"9", u"11", u"09:01 1 10,09:02 1 11"},
          {u"", u"", u"09:01 1 10,09:02 1 11,09:03 1 11"},
          {u"", u"", u"09:01 1 10,09:02 1 11,09:03 1 11,09:04 1 11"}},
         u"-, 09:01 1 10, 09:02 1 11 A, 09:03 1 11 A, 09:04 1 11"},
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
    Write({u"9", u"11", u"09:01 1 10"});
    Detector->AddSymbol(Symbol);
    EXPECT_EQ(Trades(), u"-, -, -, -, 09:01 1 10");
    Detector->AddSymbol(Symbol); // what is known is not taken in again
    Feed({u"9", u"11", u"09:01 1 10,09:02 1 11"});
    EXPECT_EQ(Trades(), u"-, -, -, 09:01 1 10, 09:02 1 11 A");
    EXPECT_EQ(State().GetTrade(5), nullptr);
    EXPECT_EQ(State().GetCount(), 5);

    Detector->RemoveSymbol(Symbol);
    Detector->RemoveSymbol(Symbol);
    EXPECT_EQ(Trades(), u"");
    EXPECT_EQ(State().GetTrade(0), nullptr);
    Feed({u"9", u"11", u"09:01 1 10,09:02 1 11,09:03 1 9"});
    EXPECT_EQ(Trades(), u"");
    Detector->AddSymbol(Symbol);
    EXPECT_EQ(Trades(), u"-, -, 09:01 1 10, 09:02 1 11, 09:03 1 9");
    State().SymbolUpdate(nullptr);
    State().SymbolUpdate(Detector.get());
    EXPECT_EQ(Trades(), u"-, -, 09:01 1 10, 09:02 1 11, 09:03 1 9");
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
        {"watched, then another", u"SEHK", u"HKFE", true},
        {"another", u"HKFE", u"HKFE", false},
        {"another, then watched", u"HKFE", u"SEHK", false},
        {"case counts", u"sehk", u"SEHK", false},
        {"blank counts", u" SEHK", u"SEHK", false},
    };
    for (const auto& row : cases) {
        for (const bool readyBefore : {false, true}) {
            SCOPED_TRACE(std::string(row.Name) + (readyBefore ? ", ready before" : ""));
            Detector = CreateComponent<TMarketTradeSideDetector>();
            Write({u"9", u"11", u"09:01 1 10"});
            Item().SetField(Field::Exchange, readyBefore ? row.First : String(u"none yet"));
            if (!readyBefore) Item().SetStatus(ItemStatus::Waiting);
            Detector->AddSymbol(Symbol);
            Item().SetField(Field::Exchange, row.First);
            Feed({u"9", u"11", u"09:01 1 10"});
            EXPECT_EQ(Adapter.RegistrationCount(), row.Detects ? 1 : 0);
            EXPECT_EQ(State().Count(), row.Detects ? 5 : 0);
            Item().SetField(Field::Exchange, row.Later);
            Detector->RemoveSymbol(Symbol);
            Detector->AddSymbol(Symbol);
            Detector->AddSymbol(Symbol);
            Feed({u"9", u"11", u"09:01 1 10,09:02 1 11"});
            EXPECT_EQ(Adapter.RegistrationCount(), row.Detects ? 1 : 0);
            EXPECT_EQ(Trades(), row.Detects ? u"-, -, -, 09:01 1 10, 09:02 1 11 A" : u"");
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

// The detector's rules once more, told step by step over plain vectors; slow and without
// cleverness.
class TPlainModel {
public:
    void Clear() { *this = TPlainModel(); }
    void Take(const TUpdate& update) {
        if (update.Status != ItemStatus::Ready) return;
        TSide bid, ask;
        bid.Valid = TryParseDouble(update.Bid, bid.Price);
        ask.Valid = TryParseDouble(update.Ask, ask.Price);
        const std::vector<String> current = FiveLines(update.Lines);
        if (FInit) {
            TakeLater(current, bid, ask);
        } else {
            for (const String& line : current) {
                FLast.push_back(line);
                FTrades.emplace_back();
                if (!line.empty()) Parse(line, FTrades.back());
            }
        }
        FBid = bid;
        FAsk = ask;
        FInit = true;
    }
    String Trades() const {
        String text;
        for (const TTrade& trade : FTrades) {
            if (&trade != FTrades.data()) text += u", ";
            text += TradeText(trade.Time, trade.Qty, trade.Price, trade.Side);
        }
        return text;
    }

private:
    struct TSide {
        Double Price = 0.0;
        bool Valid = false;
    };
    struct TTrade {
        String Time, Qty, Side;
        Double Price = 0.0;
    };

    static String Trimmed(const String& text) {
        const std::size_t first = text.find_first_not_of(u' ');
        if (first == String::npos) return String();
        return text.substr(first, text.find_last_not_of(u' ') + 1 - first);
    }
    static bool IsNew(const std::vector<String>& current, const std::vector<String>& last,
                      int index, int anchor) {
        if (Trimmed(current[static_cast<std::size_t>(index)]) !=
            last[static_cast<std::size_t>(anchor)]) {
            return true;
        }
        for (int k = index - 1, j = anchor - 1; k >= 0; --k, --j) {
            if (j < 0) return true;
            if (current[static_cast<std::size_t>(k)] != last[static_cast<std::size_t>(j)]) {
                return true;
            }
        }
        return false;
    }
    void TakeLater(const std::vector<String>& current, const TSide& bid, const TSide& ask) {
        int anchor = 4;
        while (anchor > 0 && Trimmed(FLast[static_cast<std::size_t>(anchor)]).empty()) --anchor;
        std::vector<String> latest;
        for (int index = 4; index >= 0; --index) {
            const String line = Trimmed(current[static_cast<std::size_t>(index)]);
            if (line.empty()) continue;
            if (!IsNew(current, FLast, index, anchor)) break;
            TTrade trade = FTrades.front();
            FTrades.erase(FTrades.begin());
            const String price = Parse(line, trade);
            trade.Side = SideOf(price, bid, ask);
            FTrades.insert(FTrades.begin() + index, trade);
            latest.insert(latest.begin(), line);
        }
        if (latest.empty()) return;
        for (std::size_t old = FLast.size(); old > 0 && latest.size() < LineCount; --old) {
            latest.insert(latest.begin(), FLast[old - 1]);
        }
        FLast = latest;
    }
    String SideOf(const String& text, const TSide& bid, const TSide& ask) const {
        constexpr Double tolerance = 1e-8;
        Double price = 0.0;
        if (!TryParseDouble(text, price)) return u"";
        if (FAsk.Valid && price - FAsk.Price >= -tolerance) return u"A";
        if (FBid.Valid && price - FBid.Price <= tolerance) return u"B";
        if (ask.Valid && price - ask.Price >= -tolerance) return u"A";
        if (bid.Valid && price - bid.Price <= tolerance) return u"B";
        return u"";
    }
    static String Parse(const String& line, TTrade& trade) {
        const std::size_t blank = line.find(u' ');
        if (blank == String::npos) return u"";
        std::size_t cut = 6;
        const std::size_t colon = line.find(u':');
        if (colon != String::npos && line.find(u':', colon + 1) < 6) cut = 9;
        const std::size_t end = std::min(blank, cut);
        const String rest = Trimmed(line.substr(end));
        const std::size_t second = rest.find(u' ');
        String qty, price;
        if (second != String::npos) {
            qty = rest.substr(0, second);
            price = rest.substr(second);
        }
        if (end > 0) {
            trade.Time = Trimmed(line.substr(0, end));
            trade.Qty = Trimmed(qty);
            trade.Price = ToDoubleOr(Trimmed(price), 0.0);
        }
        return price;
    }

    std::vector<TTrade> FTrades;
    std::vector<String> FLast;
    TSide FBid, FAsk;
    bool FInit = false;
};

class TRandomTape {
public:
    explicit TRandomTape(unsigned seed) : FRandom(seed) {}
    bool OneIn(int count) { return Number(count) == 0; }
    int Number(int below) { return static_cast<int>(FRandom() % static_cast<unsigned>(below)); }
    TUpdate Next() {
        for (int trades = OneIn(6) ? Number(9) : Number(3); trades > 0; --trades) {
            FLines.push_back(OneIn(3) && !FLines.empty() ? FLines.back() : Line());
        }
        TUpdate update{Quote(98), Quote(101), u""};
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
