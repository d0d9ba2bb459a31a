#include "embedded/ReplayFeed.h"
#include "embedded/DataError.h"
#include "embedded/UniverseFile.h"
#include "tests/embedded/BreakingBuffer.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace quorin;

namespace {

const std::string Header = "time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty\n";
constexpr Int64 HalfSecond = NanosPerSecond / 2;

std::string Narrow(StringView text) {
    return {text.begin(), text.end()};
}

class ReplayFeedTest : public testing::Test {
protected:
    TReplayFeed& Play(const std::string& lines, Int64 poll = NanosPerSecond) {
        Feed.reset();
        Stream.str(Header + lines);
        Stream.clear();
        Feed = std::make_unique<TReplayFeed>(Items, Market, Stream, "day.csv",
                                             TReplayOptions{poll, u"SEHK"});
        Feed->SetReport([this](Int64 line, std::string_view reason) {
            Reports.append(std::to_string(line)).append(" ").append(reason).append("; ");
        });
        Feed->Open();
        return *Feed;
    }
    std::string Fields(StringView symbol, std::initializer_list<Integer> fields) {
        std::string all;
        for (const Integer field : fields) {
            const TEmbeddedSubItem& item = Items.Item(symbol);
            all += item.HasField(field) ? Narrow(item.FieldText(field)) : "-";
            all += " | ";
        }
        return all.substr(0, all.size() - 3);
    }
    std::string Quote(StringView symbol) {
        return Fields(symbol, {Field::BestBid, Field::BestBidQuantity, Field::BestAsk,
                               Field::BestAskQuantity});
    }
    std::string Prices(StringView symbol) {
        return Fields(symbol, {Field::LastPrice, Field::Volume, Field::OpenPrice, Field::HighPrice,
                               Field::LowPrice});
    }
    std::string Trades(StringView symbol) { return Fields(symbol, {110, 111, 112, 113, 114}); }

    TEmbeddedSubscribeAdapter Items;
    TEmbeddedMarketAdapter Market{Items};
    std::stringstream Stream;
    std::unique_ptr<TReplayFeed> Feed;
    std::string Reports;
};

// Notes the time and the symbols of each delivery.
class TWatcher : public TObject {
public:
    TWatcher(TEmbeddedSubscribeAdapter& items, TReplayFeed& feed) : FItems(items), FFeed(feed) {
        for (const String& symbol : feed.Symbols()) {
            items.Subscribe(items.GetSubItem(symbol, LiveDataType, true),
                            MakeEvent<&TWatcher::Hear>(this), this);
        }
    }
    ~TWatcher() override {
        for (const String& symbol : FFeed.Symbols()) {
            FItems.Unsubscribe(FItems.GetSubItem(symbol, LiveDataType, false), this);
        }
        EXPECT_EQ(FItems.RegistrationCount(), 0);
    }
    std::string Heard;

private:
    void Hear(Pointer sender, Pointer) {
        Heard += std::to_string(FFeed.PollTimeNanos()) + ":";
        for (const auto& item : *static_cast<TSubItemDictionary*>(sender))
            Heard += Narrow(item.Key);
        Heard += " ";
    }
    TEmbeddedSubscribeAdapter& FItems;
    TReplayFeed& FFeed;
};

TEST_F(ReplayFeedTest, DeliversAtWholeMultiples) {
    const struct {
        const char* name;
        Int64 poll;
        std::string times; // of the symbols A, B, C in turn
        std::string deliveries;
    } cases[] = {
        {"below the boundary", NanosPerSecond, "10.1 10.2 10.999999999", "11000000000:ABC "},
        {"exactly on it", NanosPerSecond, "10 11 11.0", "11000000000:A 12000000000:BC "},
        {"a nanosecond below", HalfSecond, "9.499999999 9.5", "9500000000:A 10000000000:B "},
        {"nine digits count", HalfSecond, "9.4999999999 9.50000000001",
         "9500000000:A 10000000000:B "},
        {"quiet time", HalfSecond, "1 3600.25 86399.75",
         "1500000000:A 3600500000000:B 86400000000000:C "},
        {"midnight", NanosPerSecond, "0 0.0 .5", "1000000000:ABC "},
        {"no whole second", 300000000, "0.29 0.3 0.6", "300000000:A 600000000:B 900000000:C "},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        std::istringstream times(row.times);
        std::string lines;
        char symbol = 'A';
        for (std::string time; times >> time; ++symbol) {
            lines += time + "," + symbol + ",Q,,,1,1,2,2\n";
        }
        TReplayFeed& feed = Play(lines, row.poll);
        EXPECT_EQ(feed.PollTimeNanos(), 0);
        TWatcher watcher(Items, feed);
        while (feed.Step()) {
        }
        EXPECT_EQ(watcher.Heard, row.deliveries);
        EXPECT_FALSE(feed.Step());
        EXPECT_EQ(Reports, "");
    }
}

TEST_F(ReplayFeedTest, QuotesReplaceWhole) {
    TReplayFeed& feed = Play("1,A,Q,,,10.5,100,11,200\n"
                             "2,A,Q,,,,,11.50,300\n"
                             "3,A,T,11.5,100,,,,\n"
                             "4,A,T,11.5,100,11,,,\n"
                             "5,A,Q,,,,,,\n"
                             "6,A,Q,,,-0.5,0,0,0.5\n");
    EXPECT_EQ(Quote(u"A"), "- | - | - | -");
    EXPECT_EQ(Items.Item(u"A").GetStatus(), ItemStatus::Waiting);
    for (const char* quote : {"10.5 | 100 | 11 | 200", "- | - | 11.5 | 300", "- | - | 11.5 | 300",
                              "11 | - | - | -", "- | - | - | -", "-0.5 | 0 | 0 | 0.5"}) {
        ASSERT_TRUE(feed.Step());
        EXPECT_EQ(Quote(u"A"), quote);
        EXPECT_EQ(Items.Item(u"A").GetStatus(), ItemStatus::Ready);
    }
    EXPECT_FALSE(feed.Step());
}

TEST_F(ReplayFeedTest, TradesAddUpBetweenDeliveries) {
    TReplayFeed& feed = Play("34200.1,A,Q,,,9,1,10,1\n"
                             "34201.5,A,T,10.50,100,,,,\n"
                             "34201.5,A,T,12,2.5,,,,\n"
                             "34201.9,A,T,9.0,1e2,,,,\n"
                             "34202.1,A,T,11,007,,,,\n"
                             "36000,A,T,1,1,,,,\n"
                             "36000.1,A,T,2,1,,,,\n"
                             "36000.2,A,T,2,1,,,,\n"
                             "36000.3,A,T,4,1,,,,\n"
                             "36000.4,A,T,5,1,,,,\n"
                             "36000.5,A,T,6,1,,,,\n");
    feed.Step();
    EXPECT_EQ(Prices(u"A"), "- | - | - | - | -");
    EXPECT_EQ(Trades(u"A"), "- | - | - | - | -");
    feed.Step();
    EXPECT_EQ(Reports, "5 bad quantity; ");
    EXPECT_EQ(Prices(u"A"), "12 | 102.5 | 10.5 | 12 | 10.5");
    EXPECT_EQ(Trades(u"A"), "- | - | - | 09:30:01 100 10.50 | 09:30:01 2.5 12");
    feed.Step();
    EXPECT_EQ(Trades(u"A"), "- | - | 09:30:01 100 10.50 | 09:30:01 2.5 12 | 09:30:02 007 11");
    feed.Step();
    EXPECT_EQ(Prices(u"A"), "6 | 115.5 | 10.5 | 12 | 1");
    EXPECT_EQ(Trades(u"A"), "10:00:00 1 2 | 10:00:00 1 2 | 10:00:00 1 4 | 10:00:00 1 5 | "
                            "10:00:00 1 6");
    EXPECT_EQ(Quote(u"A"), "9 | 1 | 10 | 1");
    EXPECT_EQ(feed.ReportedLines(), 1);
    EXPECT_EQ(feed.PlayedLines(), 10);
}

TEST_F(ReplayFeedTest, BadLinesAreToldOfAndSkipped) {
    const struct {
        const char* name;
        std::string line;
        std::string reason;
    } cases[] = {
        {"too few fields", "5,A,Q,,,1,1,2", "wrong number of fields"},
        {"too many fields", "5,A,Q,,,1,1,2,2,", "wrong number of fields"},
        {"empty line", "", "wrong number of fields"},
        {"event", "5,A,X,,,1,1,2,2", "unknown event"},
        {"event in lower case", "5,A,q,,,1,1,2,2", "unknown event"},
        {"no time", ",A,Q,,,1,1,2,2", "bad time"},
        {"time of day", "09:30:00,A,Q,,,1,1,2,2", "bad time"},
        {"time below 0", "-5,A,Q,,,1,1,2,2", "bad time"},
        {"time beyond the day", "86400,A,Q,,,1,1,2,2", "bad time"},
        {"endless time", "99999999999999999999999,A,Q,,,1,1,2,2", "bad time"},
        {"point alone", ".,A,Q,,,1,1,2,2", "bad time"},
        {"no symbol", "5,,Q,,,1,1,2,2", "no symbol"},
        {"symbol not UTF-8", "5,\xFF,Q,,,1,1,2,2", "the symbol is not UTF-8"},
        {"trade without price", "5,A,T,,100,1,1,2,2", "bad price"},
        {"trade without quantity", "5,A,T,1,,1,1,2,2", "bad quantity"},
        {"quantity below 0", "5,A,T,1,-1,1,1,2,2", "bad quantity"},
        {"price nan", "5,A,T,nan,1,1,1,2,2", "bad price"},
        {"price hexadecimal", "5,A,T,0x10,1,1,1,2,2", "bad price"},
        {"price with exponent", "5,A,T,1e5,1,1,1,2,2", "bad price"},
        {"price with blanks", "5,A,T, 1,1,1,1,2,2", "bad price"},
        {"price with two signs", "5,A,T,--1,1,1,1,2,2", "bad price"},
        {"price infinite", "5,A,T," + std::string(400, '9') + ",1,1,1,2,2", "bad price"},
        {"bid", "5,A,Q,,,x,1,2,2", "bad bid"},
        {"bid quantity", "5,A,Q,,,1,-1,2,2", "bad bid quantity"},
        {"ask", "5,A,Q,,,1,1,2..5,2", "bad ask"},
        {"ask quantity", "5,A,Q,,,1,1,2,inf", "bad ask quantity"},
        {"open quote", "5,\"A,Q,,,1,1,2,2", "a quote is not closed"},
        {"earlier", "4.999999999,A,Q,,,1,1,2,2", "earlier than the line before"},
        {"binary", std::string("\x00\x01\xFE,\x7F", 5), "wrong number of fields"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Reports.clear();
        TReplayFeed& feed = Play("5,A,Q,,,7,7,8,8\n" + row.line + "\n5,A,T,7.5,3,,,,\n");
        while (feed.Step()) {
        }
        EXPECT_EQ(Reports, "3 " + row.reason + "; ");
        EXPECT_EQ(feed.ReportedLines(), 1);
        EXPECT_EQ(Quote(u"A"), "7 | 7 | 8 | 8");
        EXPECT_EQ(Trades(u"A"), "- | - | - | - | 00:00:05 3 7.5");
    }
}

TEST_F(ReplayFeedTest, ALineThatIsSkippedSetsNoTime) {
    TReplayFeed& feed = Play("5,A,Q,,,1,1,2,2\n9,A,Q,,,x,1,2,2\n6,A,Q,,,1,1,2,3\n");
    while (feed.Step()) {
    }
    EXPECT_EQ(Reports, "3 bad bid; ");
    EXPECT_EQ(feed.PollTimeNanos(), 7 * NanosPerSecond);
}

TEST_F(ReplayFeedTest, SymbolsAreListedBeforeTheFirstDelivery) {
    Market.AddExchange({u"SEHK", u"HKD", u"CT", MarketOpen});
    Market.AddCategory({1, {u"Shares"}});
    Market.AddSeries({u"FIN", u"SEHK", 1, {u"Finance"}});
    TSymbolRecord known;
    known.Symbol = u"00005";
    known.Exchange = u"SEHK";
    known.Series = u"FIN";
    known.PreviousClose = 100.4;
    Market.AddSymbol(known);
    known.Symbol = u"00006";
    known.PreviousClose = 0.0;
    Market.AddSymbol(known);
    known.Symbol = u"00007";
    Market.AddSymbol(known);

    TReplayFeed& feed = Play("1,NEW,Q,,,10,1,11,1\n1,00005,Q,,,99,1,98,1\n1,ASK,Q,,,,,8,1\n"
                             "2,00006,T,50,1,,,,\n2,BAD,X,,,,,,\n2,NEW,Q,,,1,1,1,1\n"
                             "3,TRADED,Q,,,5,1,6,1\n3,TRADED,T,6,1,,,,\n3,\xE9\xA8\xB0,Q,,,,,,\n");
    std::string symbols;
    for (const String& symbol : feed.Symbols()) symbols += Narrow(symbol) + " ";
    EXPECT_EQ(symbols, "NEW 00005 ASK 00006 TRADED " + Narrow(u"騰") + " ");
    EXPECT_EQ(Market.FindMarketData(u"BAD"), nullptr);
    ASSERT_NE(Market.FindMarketData(u"NEW"), nullptr);
    EXPECT_EQ(Market.FindMarketData(u"NEW")->GetExchange(), u"SEHK");
    EXPECT_NE(Market.FindSeries(Market.FindMarketData(u"NEW")->GetSeries()), nullptr);
    EXPECT_EQ(Market.FindMarketData(u"00005")->GetSeries(), u"FIN");

    const struct {
        const char* name;
        StringView symbol;
        StringView close;
    } cases[] = {
        {"of the universe", u"00005", u"100.4"},  {"first trade", u"00006", u"50"},
        {"middle of the quote", u"NEW", u"10.5"}, {"one side of it", u"ASK", u"8"},
        {"trade before quote", u"TRADED", u"6"},  {"nothing to take it from", u"騰", u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Items.Item(row.symbol).FieldText(Field::PreviousClose), row.close);
        EXPECT_EQ(Items.Item(row.symbol).GetStatus(), ItemStatus::Waiting);
    }

    for (const StringView key : {u"00007", u"NEW", u"SPAN_NEW", u"?"}) {
        Items.GetSubItem(key, LiveDataType, true);
    }
    Items.Deliver();
    EXPECT_EQ(Items.Item(u"00007").GetStatus(), ItemStatus::Ready) << "shows its record";
    EXPECT_EQ(Items.Item(u"NEW").GetStatus(), ItemStatus::Waiting) << "comes with its lines";
    EXPECT_EQ(Items.Item(u"SPAN_NEW").GetStatus(), ItemStatus::NoData);
    EXPECT_EQ(Items.Item(u"?").GetStatus(), ItemStatus::NoData);
}

TEST_F(ReplayFeedTest, MakesTheExchangeThatIsMissing) {
    Play("1,NEW,Q,,,10,1,11,1\n");
    ASSERT_EQ(Market.GetExchangeCount(), 1);
    EXPECT_EQ(Market.GetExchangeCode(0), u"SEHK");
    EXPECT_EQ(Market.GetMarketDataCount(u"SEHK", Market.GetSeriesCode(u"SEHK", 0)), 1);
}

TEST_F(ReplayFeedTest, RefusesARecordingThatBreaksOff) {
    for (const std::string& content : {Header + "1,A,T,5,1,,,,\n2,A,T,5,1,,,", std::string()}) {
        TBreakingBuffer buffer(content, true);
        std::istream stream(&buffer);
        TReplayFeed feed(Items, Market, stream, "day.csv", {});
        try {
            feed.Open();
            ADD_FAILURE() << "opened";
        } catch (const EDataError& error) {
            EXPECT_STREQ(error.what(), "day.csv: cannot be read");
        }
    }
}

TEST_F(ReplayFeedTest, APriceTooSmallForItsKindIsZero) {
    TReplayFeed& feed = Play("1,A,T,0." + std::string(400, '0') + "1,1,,,,\n");
    feed.Step();
    EXPECT_EQ(Reports, "");
    EXPECT_EQ(Items.Item(u"A").GetFieldDouble(Field::LastPrice), 0.0);
    EXPECT_EQ(Items.Item(u"A").GetFieldDouble(Field::Volume), 1.0);
}

TEST_F(ReplayFeedTest, RefusesWhatIsNoRecording) {
    const struct {
        const char* name;
        std::string content;
        std::string message;
    } cases[] = {
        {"empty", "",
         "day.csv:1: the header is not time,symbol,event,price,qty,bid,bid_qty,ask,"
         "ask_qty"},
        {"other header", "time,symbol\n1,A\n",
         "day.csv:1: the header is not time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty"},
        {"header alone", Header, "day.csv: no line of the file can be read"},
        {"no good line", Header + "x\n\xFF\xFE\n",
         "day.csv:2: wrong number of fields; no line of the file can be read"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        std::istringstream stream(row.content);
        TReplayFeed feed(Items, Market, stream, "day.csv", {});
        try {
            feed.Open();
            ADD_FAILURE() << "opened";
        } catch (const EDataError& error) {
            EXPECT_EQ(error.what(), row.message);
        }
        EXPECT_FALSE(feed.Step());
    }
    TReplayFeed missing(Items, Market, std::filesystem::path("/nowhere/day.csv"), {});
    EXPECT_THROW(missing.Open(), EDataError);
    TReplayFeed folder(Items, Market, std::filesystem::path(QUORIN_DATA_DIR), {});
    EXPECT_THROW(folder.Open(), EDataError);
}

TEST_F(ReplayFeedTest, TakesMarksReturnsAndQuotes) {
    Stream.str("\xEF\xBB\xBFtime,symbol,event,price,qty,bid,bid_qty,ask,ask_qty\r\n"
               "\"1\",\"A,B\",T,\"2.50\",1,,,,\r\n");
    Feed = std::make_unique<TReplayFeed>(Items, Market, Stream, "day.csv", TReplayOptions{});
    Feed->Open();
    EXPECT_TRUE(Feed->Step());
    EXPECT_EQ(Trades(u"A,B"), "- | - | - | - | 00:00:01 1 2.50");
}

TEST_F(ReplayFeedTest, PlaysTheShippedRecording) {
    LoadUniverse(std::filesystem::path(QUORIN_DATA_DIR) / "universe", Market);
    const Integer listed = Market.Universe().SymbolCount();
    TReplayFeed feed(Items, Market,
                     std::filesystem::path(QUORIN_DATA_DIR) / "recordings/sample.csv", {});
    feed.Open();
    Market.SetSpreadTablesAtOnce(true);
    int deliveries = 0;
    while (feed.Step()) {
        ++deliveries;
        for (const String& symbol : feed.Symbols()) {
            const TEmbeddedSubItem& item = Items.Item(symbol);
            if (item.GetStatus() != ItemStatus::Ready) continue;
            const Double bid = item.GetFieldDouble(Field::BestBid);
            const Double ask = item.GetFieldDouble(Field::BestAsk);
            ASSERT_LT(bid, ask);
            const auto* table = Market.FindSpreadTable(item.FieldText(Field::SpreadCode));
            ASSERT_EQ(table->MovePrice(table->MovePrice(ask, 1), -1), ask) << "off the ticks";
        }
    }
    EXPECT_EQ(feed.ReportedLines(), 0);
    EXPECT_EQ(Market.Universe().SymbolCount(), listed) << "all symbols are of the universe";
    EXPECT_GT(deliveries, 500);
    EXPECT_GT(feed.PollTimeNanos(), (34200 + 550) * NanosPerSecond);
}

} // namespace
