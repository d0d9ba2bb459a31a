#include "terminal/console/ReplaySession.h"
#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quorin {
namespace {

constexpr const char* Header = "time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty\n";

// Files of one test, apart from those of others that run at the same time.
struct TReplaySessionTest : testing::Test {
    std::filesystem::path File(const char* name) {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        return std::filesystem::path(testing::TempDir()) /
               (std::string("quorin-") + test->name() + "-" + name);
    }
    void Record(const std::string& lines) {
        Options.Replay = File("recording.csv");
        std::ofstream(Options.Replay, std::ios::binary) << Header << lines;
    }
    std::unique_ptr<TReplaySession> Open() {
        return std::make_unique<TReplaySession>(Options, QUORIN_DATA_DIR, Errors);
    }
    static std::string Text(const std::vector<String>& lines) {
        std::string text;
        for (const String& line : lines) text += ToUtf8(line) + '\n';
        return text;
    }

    TConsoleOptions Options;
    std::ostringstream Errors;
};

constexpr const char* TwoSymbols = "34200.0,TINY,Q,,,10.00,500,10.02,300\n"
                                   "34200.1,TINY,T,10.02,1000,,,,\n"
                                   "34200.3,騰訊控股,Q,,,350.2,12000,350.4,100\n"
                                   "34200.4,TINY,T,10.00,200,9.98,400,10.02,300\n"
                                   "34201.0,TINY,T,10.00,50,9.98,350,10.02,300\n"
                                   "34201.1,騰訊控股,T,350.25,100,,,,\n";

TEST_F(TReplaySessionTest, FramesShowTheWatchAndTheTrades) {
    Record(TwoSymbols);
    auto session = Open();
    ASSERT_TRUE(session->Step());
    EXPECT_EQ(
        Text(session->Frame()),
        "SEHK  09:30:00.250  #1\n"
        "Symbol       Name                  Bid qty        Bid        Ask    Ask qty       Last    "
        "Prev. close     Change\n"
        "TINY         TINY                      500      10.00      10.02        300      10.02    "
        "      10.02       0.00 =\n"
        "騰訊控股     騰訊控股                    -          -          -          -          -    "
        "     350.25          -\n"
        "\n"
        "Trades TINY                                       Name: TINY\n"
        "Time               Qty       Price      Side      Symbol: TINY\n"
        "09:30:00          1000       10.02                Exchange: Hong Kong\n"
        "                                                  Currency: HKD\n"
        "\n"
        "\n"
        "\n");
    ASSERT_TRUE(session->Step());
    EXPECT_EQ(
        Text(session->Frame()),
        "SEHK  09:30:00.500  #2\n"
        "Symbol       Name                  Bid qty        Bid        Ask    Ask qty       Last    "
        "Prev. close     Change\n"
        "TINY         TINY                      400       9.98      10.02        300      10.00 ▼  "
        "      10.02      -0.02 ▼\n"
        "騰訊控股     騰訊控股               12,000     350.20     350.40        100          -    "
        "     350.25          -\n"
        "\n"
        "Trades TINY                                       Name: TINY\n"
        "Time               Qty       Price      Side      Symbol: TINY\n"
        "09:30:00           200       10.00         B      Exchange: Hong Kong\n"
        "09:30:00          1000       10.02                Currency: HKD\n"
        "\n"
        "\n"
        "\n");
    ASSERT_TRUE(session->Step());
    EXPECT_EQ(
        Text(session->Frame()),
        "SEHK  09:30:01.250  #3\n"
        "Symbol       Name                  Bid qty        Bid        Ask    Ask qty       Last    "
        "Prev. close     Change\n"
        "TINY         TINY                      350       9.98      10.02        300      10.00 =  "
        "      10.02      -0.02 ▼\n"
        "騰訊控股     騰訊控股               12,000     350.20     350.40        100     350.25 ▲  "
        "     350.25       0.00 =\n"
        "\n"
        "Trades TINY                                       Name: TINY\n"
        "Time               Qty       Price      Side      Symbol: TINY\n"
        "09:30:01            50       10.00                Exchange: Hong Kong\n"
        "09:30:00           200       10.00         B      Currency: HKD\n"
        "09:30:00          1000       10.02\n"
        "\n"
        "\n");
    EXPECT_FALSE(session->Step());
}

TEST_F(TReplaySessionTest, VisibleRowsAloneAreOnTheFrame) {
    Record(TwoSymbols);
    Options.Rows = 1;
    Options.TradesSymbol = u"騰訊控股";
    auto session = Open();
    while (session->Step()) {
    }
    const std::vector<String> lines = session->Frame();
    EXPECT_LE(static_cast<Integer>(lines.size()), FrameLinesBesideRows + 1);
    EXPECT_EQ(ToUtf8(lines[2]).substr(0, 5), "TINY ");
    EXPECT_EQ(ToUtf8(lines[3]), "");
    // The product is the one of the trades, also when its row is off screen.
    EXPECT_EQ(ToUtf8(lines[4]), "Trades 騰訊控股                                   Name: 騰訊控股");
    EXPECT_EQ(ToUtf8(lines[6]),
              "09:30:01           100      350.25                Exchange: Hong Kong");
}

TEST_F(TReplaySessionTest, RowThatComesOnScreenIsFollowedFromThatFrameOn) {
    Record(TwoSymbols);
    Options.Rows = 1;
    auto session = Open();
    ASSERT_TRUE(session->Step());
    session->Watch().View().SetVisibleRowCapacity(2);
    session->Frame();
    while (session->Step()) {
    }
    EXPECT_NE(ToUtf8(session->Frame()[3]).find("350.25 ▲"), std::string::npos);
}

TEST_F(TReplaySessionTest, SidesFileHasEveryTradeOnce) {
    Record("34200,A,Q,,,9.98,1,10.02,1\n"
           "34200,A,T,10.02,1,,,,\n"
           "34200.1,A,T,10,2,,,,\n"
           "34201,\"B,C\",T,5.5,1,,,,\n"
           "34201,A,T,9.98,3,,,,\n"
           "34201,A,T,10,4,,,,\n"
           "34202,A,T,1,1,,,,\n" // the oldest of six trades between two polls is lost
           "34202,A,T,10.02,2,,,,\n"
           "34202,A,T,10.03,3,,,,\n"
           "34202,A,T,9.97,4,,,,\n"
           "34202,A,T,10.01,5,,,,\n"
           "34202,A,T,10.01,5,,,,\n");
    Options.Sides = File("sides.csv");
    Options.PollInterval = 0.5;
    auto session = Open();
    while (session->Step()) {
    }
    EXPECT_TRUE(session->Close());
    std::ostringstream written;
    written << std::ifstream(Options.Sides, std::ios::binary).rdbuf();
    EXPECT_EQ(written.str(), "poll_time,symbol,time,qty,price,side\n"
                             "34200.5,A,09:30:00,1,10.02,\n"
                             "34200.5,A,09:30:00,2,10,\n"
                             "34201.5,A,09:30:01,3,9.98,B\n"
                             "34201.5,A,09:30:01,4,10,\n"
                             "34201.5,\"B,C\",09:30:01,1,5.5,\n"
                             "34202.5,A,09:30:02,2,10.02,A\n"
                             "34202.5,A,09:30:02,3,10.03,A\n"
                             "34202.5,A,09:30:02,4,9.97,B\n"
                             "34202.5,A,09:30:02,5,10.01,\n"
                             "34202.5,A,09:30:02,5,10.01,\n");
    EXPECT_EQ(SummaryText(session->Summary()), "deliveries 3\n"
                                               "lines 12, skipped 0\n"
                                               "trades 10: A 2, B 2, none 6\n"
                                               "symbols 2\n");
}

TEST_F(TReplaySessionTest, BadLinesAreReportedAndCountedAtTheEnd) {
    std::string lines = "34200,A,Q,,,1,1,2,1\n";
    for (int count = 0; count < 25; ++count) lines += "34200,A,X,,,,,,\n";
    Record(lines);
    auto session = Open();
    while (session->Step()) {
    }
    EXPECT_EQ(Errors.str(), "") << "nothing while a screen may be painted";
    EXPECT_TRUE(session->Close());
    const std::string errors = Errors.str();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 26);
    const std::string name = Options.Replay.string();
    EXPECT_EQ(errors.compare(0, name.size() + 4, name + ":3: "), 0) << errors;
    EXPECT_NE(errors.find(name + ": 25 lines skipped\n"), std::string::npos) << errors;
    EXPECT_EQ(session->Summary().Skipped, 25);
    EXPECT_EQ(session->Summary().Lines, 1);
}

TEST_F(TReplaySessionTest, OtherExchangeIsWarnedOfAndHasNoSides) {
    Record(TwoSymbols);
    Options.Exchange = u"XX";
    auto session = Open();
    while (session->Step()) {
    }
    EXPECT_NE(Errors.str().find("XX"), std::string::npos);
    EXPECT_EQ(session->Summary().Trades, 0);
}

} // namespace
} // namespace quorin
