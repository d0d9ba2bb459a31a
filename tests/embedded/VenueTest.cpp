#include "tests/embedded/VenueMarket.h"

using namespace quorin;

namespace {

constexpr Int64 Steps = 400;

void Play(TVenueMarket& market, TVenue& venue, Int64 steps = Steps) {
    for (Int64 step = 0; step < steps; ++step) {
        venue.Step();
        market.Services().Deliver();
    }
}

// Every field of every symbol, in the middle of a morning.
std::string Played(TVenueOptions options) {
    options.StartNanos = TimeOf(10, 0);
    TVenueMarket market;
    const auto venue = market.Open(options);
    market.AskForAll();
    Play(market, *venue);
    return market.Everything();
}

TEST(VenueTest, TheSeedDecidesEverything) {
    const std::string first = Played({.Seed = 7});
    EXPECT_EQ(Played({.Seed = 7}), first);
    EXPECT_NE(Played({.Seed = 8}), first);
    EXPECT_NE(Played({.Seed = 0}), Played({.Seed = std::uint64_t{1} << 63}));
    EXPECT_NE(first.find("114="), std::string::npos);
}

// Who looks on, and since when, changes nothing for others; a late request finds all there is.
TEST(VenueTest, RequestsDoNotTouchTheMarket) {
    TVenueMarket everybody;
    const auto first = everybody.Open({.Seed = 3, .StartNanos = TimeOf(10, 0)});
    everybody.AskForAll();
    Play(everybody, *first);
    TVenueMarket nobody;
    const auto second = nobody.Open({.Seed = 3, .StartNanos = TimeOf(10, 0)});
    Play(nobody, *second);
    EXPECT_EQ(nobody.Items().ItemCount(), 0) << "items for symbols that nobody asked for";
    nobody.AskForAll();
    EXPECT_EQ(nobody.Everything(), everybody.Everything());
    EXPECT_EQ(second->UpdateCount(), first->UpdateCount());
}

TEST(VenueTest, AnotherVenueGoesOnWithWhatWasAskedFor) {
    TVenueMarket market;
    auto venue = market.Open({.Seed = 3, .StartNanos = TimeOf(10, 0)});
    market.AskForAll();
    Play(market, *venue);
    venue.reset();
    const std::string before = market.Everything();
    venue = market.Open({.Seed = 4, .StartNanos = TimeOf(10, 0)});
    Play(market, *venue);
    EXPECT_NE(market.Everything(), before);
}

TEST(VenueTest, CountsStepsAndTime) {
    TVenueMarket market;
    const auto venue = market.Open({.StepNanos = NanosPerSecond / 4, .UpdatesPerStep = 5});
    EXPECT_EQ(venue->StepNumber(), 0);
    EXPECT_EQ(venue->TimeNanos(), TimeOf(9, 0));
    Play(market, *venue, 9);
    EXPECT_EQ(venue->StepNumber(), 9);
    EXPECT_EQ(venue->TimeNanos(), TimeOf(9, 0) + 9 * NanosPerSecond / 4);
    EXPECT_GT(venue->UpdateCount(), 0);
    EXPECT_LE(venue->UpdateCount(), 9 * 5);
}

TEST(VenueTest, StatesChangeAtTheirStep) {
    const struct {
        const char* name;
        StringView symbol;
        Int64 start;
        StringView before;
        Integer statusBefore;
        StringView after;
        Integer statusAfter;
    } rows[] = {
        {"opening", u"00700", TimeOf(9, 30), u"PO", 0, u"CT", MarketOpen},
        {"lunch", u"00700", TimeOf(12, 0), u"CT", MarketOpen, u"LB", 0},
        {"afternoon", u"HSIX6", TimeOf(13, 0), u"LB", 0, u"CT", MarketOpen},
        {"close into a gap", u"cu2612", TimeOf(15, 0), u"CT", MarketOpen, u"CL", 0},
        {"a gap before the first session", u"600519", TimeOf(9, 30), u"CL", 0, u"CT", MarketOpen},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TVenueMarket market;
        constexpr Int64 step = NanosPerSecond / 4;
        const auto venue = market.Open({.StepNanos = step, .StartNanos = row.start - 2 * step});
        market.AskForAll();
        const TEmbeddedSubItem& item = market.Items().Item(row.symbol);
        const String exchange = item.FieldText(Field::Exchange);
        const auto expect = [&](StringView state, Integer status) {
            EXPECT_EQ(ToUtf8(item.FieldText(Field::MarketState)), ToUtf8(state));
            EXPECT_EQ(market.Market().GetMarketStatus(exchange), status);
        };
        expect(row.before, row.statusBefore);
        Play(market, *venue, 1);
        expect(row.before, row.statusBefore);
        Play(market, *venue, 1);
        expect(row.after, row.statusAfter);
    }
}

TEST(VenueTest, QuotesComeWithTheFirstSessionAndStayAfterTheLast) {
    const struct {
        const char* name;
        Int64 start;
        bool isQuoted;
        bool moves;
    } rows[] = {
        {"night", TimeOf(8, 0), false, false},
        {"pre-opening", TimeOf(9, 10), true, true},
        {"morning", TimeOf(10, 0), true, true},
        {"lunch", TimeOf(12, 30), false, false}, // the morning was not played
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TVenueMarket market;
        const auto venue = market.Open({.StartNanos = row.start});
        market.AskForAll();
        const std::string before = market.Fields(u"00005");
        EXPECT_EQ(market.Items().Item(u"00005").HasField(Field::BestBid), row.isQuoted);
        Play(market, *venue);
        EXPECT_EQ(market.Fields(u"00005") != before, row.moves);
    }
    TVenueMarket market;
    const auto venue = market.Open({.StartNanos = TimeOf(15, 59)});
    market.AskForAll();
    Play(market, *venue, 250);
    const std::string atClose = market.Fields(u"00005");
    EXPECT_NE(atClose.find(" 114="), std::string::npos);
    Play(market, *venue, 1000);
    EXPECT_EQ(market.Fields(u"00005"), atClose);
}

// Answers for margin items.
class TMarginFeed : public TItemFeed {
public:
    void Requested(TEmbeddedSubItem& item) override { Keys.push_back(item.GetKey()); }
    std::vector<String> Keys;
};

TEST(VenueTest, AnswersKeysByWhatTheyAre) {
    const auto statusOf = [](TVenueMarket& market, StringView key) {
        TCustomSubItem* item = market.Items().GetSubItem(key, LiveDataType, /*Flag=*/true);
        EXPECT_EQ(item->GetStatus(), ItemStatus::Waiting) << "answered inside the look-up";
        market.Services().Deliver();
        return item->GetStatus();
    };
    TVenueMarket market;
    TMarginFeed margins;
    const auto venue = market.Open({});
    EXPECT_EQ(statusOf(market, u"00700"), ItemStatus::Ready);
    EXPECT_EQ(statusOf(market, u"NOSUCH"), ItemStatus::NoData);
    EXPECT_EQ(statusOf(market, u"SPAN_HSIX6"), ItemStatus::NoData);
    EXPECT_EQ(statusOf(market, u"SPAN"), ItemStatus::NoData);
    venue->SetMarginFeed(&margins);
    EXPECT_EQ(statusOf(market, u"SPAN_HSIZ6"), ItemStatus::Waiting);
    EXPECT_EQ(statusOf(market, u"HSIX6/HSIZ6"), ItemStatus::Ready);
    EXPECT_EQ(margins.Keys, std::vector<String>{u"SPAN_HSIZ6"});
    EXPECT_EQ(market.Market().FindMarketData(u"NOSUCH"), nullptr);
    EXPECT_EQ(venue->Worth(u"NOSUCH"), 0.0);
}

// What a universe of one's own may lack or have too much of.
TEST(VenueTest, MakesUpWhatTheUniverseLacks) {
    TVenueMarket market;
    TSymbolRecord record{.Exchange = u"SEHK", .Series = u"SEHK.1"};
    record.Symbol = u"BARE";
    market.Market().AddSymbol(record);
    record.Symbol = u"HUGE";
    record.PreviousClose = 1e14;
    market.Market().AddSymbol(record);
    record = {.Symbol = u"C150",
              .Exchange = u"HKFE",
              .Series = u"HKFE.1",
              .ProductType = ProductType::Options,
              .Underlyer = u"GHOST"};
    record.StrikePrice = u"150";
    record.CallPut = u"C";
    market.Market().AddSymbol(record);
    record.Symbol = u"NOSTRIKE";
    record.StrikePrice = u"";
    market.Market().AddSymbol(record);
    const auto venue = market.Open({.StartNanos = TimeOf(10, 0)});
    for (const StringView symbol : {u"BARE", u"HUGE", u"C150", u"NOSTRIKE"}) {
        market.Items().GetSubItem(symbol, LiveDataType, true);
    }
    market.Services().Deliver();
    const auto has = [&](StringView symbol, Integer field) {
        return market.Items().Item(symbol).HasField(field);
    };
    EXPECT_TRUE(has(u"BARE", Field::BestBid) && has(u"BARE", Field::PreviousClose));
    EXPECT_TRUE(has(u"C150", Field::BestAsk));
    EXPECT_LT(venue->Worth(u"C150"), 50.0);
    EXPECT_TRUE(has(u"NOSTRIKE", Field::BestBid)) << "no option without a strike";
    EXPECT_FALSE(has(u"HUGE", Field::BestBid));
    EXPECT_EQ(market.Items().Item(u"HUGE").GetStatus(), ItemStatus::Ready);
    Play(market, *venue);
}

TEST(VenueTest, NeedsNoUniverse) {
    TEmbeddedSubscribeAdapter items;
    TEmbeddedMarketAdapter market{items};
    {
        TVenue venue(items, market, {});
        for (int step = 0; step < 10; ++step) venue.Step();
        EXPECT_EQ(venue.UpdateCount(), 0);
        EXPECT_EQ(items.Feed(), &venue);
    }
    EXPECT_EQ(items.Feed(), nullptr);
}

} // namespace
