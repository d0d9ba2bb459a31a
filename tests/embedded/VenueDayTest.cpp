#include "tests/embedded/VenueChecker.h"
#include "tests/embedded/VenueMarket.h"

#include "embedded/UniverseFile.h"
#include "viewdata/market/MarketTradeSideDetector.h"

#include <cmath>
#include <set>

using namespace quorin;

namespace {

constexpr Double LimitShare = 0.1;

// How two rows of numbers go together, from -1 to 1.
class TCorrelation {
public:
    void Add(Double x, Double y) {
        ++FCount;
        FX += x;
        FY += y;
        FXX += x * x;
        FYY += y * y;
        FXY += x * y;
    }
    Double Value() const {
        const Double spreadX = FXX - FX * FX / FCount;
        const Double spreadY = FYY - FY * FY / FCount;
        return (FXY - FX * FY / FCount) / std::sqrt(spreadX * spreadY);
    }

private:
    Double FCount = 0.0;
    Double FX = 0.0, FY = 0.0, FXX = 0.0, FYY = 0.0, FXY = 0.0;
};

// Collects what is delivered.
class TDelivered : public TObject {
public:
    explicit TDelivered(TVenueMarket& market) : FMarket(market) {
        for (const String& symbol : FMarket.Symbols()) {
            FMarket.Items().Subscribe(&FMarket.Items().Item(symbol),
                                      MakeEvent<&TDelivered::Take>(this), this);
        }
    }
    ~TDelivered() override {
        for (const String& symbol : FMarket.Symbols()) {
            FMarket.Items().Unsubscribe(&FMarket.Items().Item(symbol), this);
        }
    }
    std::vector<String> Symbols;

private:
    void Take(Pointer sender, Pointer) {
        for (const auto& item : *static_cast<TSubItemDictionary*>(sender)) {
            Symbols.push_back(item.Key);
        }
    }
    TVenueMarket& FMarket;
};

// A whole day of every kind of symbol, each step delivered and looked at.
class VenueDayTest : public testing::TestWithParam<int> {
protected:
    static constexpr Int64 StepsPerFullLook = 200; // at what was not delivered as well

    ~VenueDayTest() override {
        for (const String& symbol : Market.Symbols()) Detector->RemoveSymbol(symbol);
        Detector.reset();
    }

    void Begin() {
        Venue = Market.Open(
            {.Seed = static_cast<std::uint64_t>(GetParam()), .StepNanos = 3 * NanosPerSecond});
        Market.AskForAll();
        for (const String& symbol : Market.Symbols()) {
            const TEmbeddedSubItem& item = Market.Items().Item(symbol);
            const String exchange = item.FieldText(Field::Exchange);
            const Double close = item.GetFieldDouble(Field::PreviousClose);
            const bool isLimited = exchange == u"SHFE" || exchange == u"SSE";
            Checker.Follow(symbol, isLimited ? close * (1.0 - LimitShare) : -1e9,
                           isLimited ? close * (1.0 + LimitShare) : 1e9);
            Detector->AddSymbol(symbol);
        }
    }
    void Step() {
        Venue->Step();
        Delivered.Symbols.clear();
        Market.Services().Deliver();
        const bool looksAtAll = Venue->StepNumber() % StepsPerFullLook == 0;
        for (const String& symbol : looksAtAll ? Market.Symbols() : Delivered.Symbols) {
            const auto trades = Checker.Check(symbol);
            if (!trades.empty()) CheckTrades(symbol, trades);
            CheckOneSided(symbol);
        }
    }
    void CheckTrades(const String& symbol, const std::vector<TVenueChecker::TTrade>& trades) {
        const String exchange = Market.Items().Item(symbol).FieldText(Field::Exchange);
        if (Sessions.At(exchange, Venue->TimeNanos()).Status != MarketOpen) {
            ADD_FAILURE() << ToUtf8(symbol) << " trades out of hours";
        }
        if (exchange != u"SEHK") return;
        TSymbolMarketTrade* seen = Detector->GetSymbolMarketTrade(symbol);
        const auto count = static_cast<Integer>(trades.size());
        for (Integer index = 0; index < count; ++index) {
            const TMarketDataTrade* trade = seen->GetTrade(seen->Count() - count + index);
            const auto& truth = trades[static_cast<std::size_t>(index)];
            if (trade->Side() != truth.Side || trade->Price() != truth.Price) ++WrongSides;
            ++Sides;
        }
    }
    void CheckOneSided(const String& symbol) {
        const TVenueChecker::TView& view = Checker.View(symbol);
        if (view.Bids.empty() == view.Asks.empty()) return;
        const TEmbeddedSubItem& item = Market.Items().Item(symbol);
        const String exchange = item.FieldText(Field::Exchange);
        const bool isLimited = exchange == u"SHFE" || exchange == u"SSE";
        if (!isLimited) return;
        const Double close = item.GetFieldDouble(Field::PreviousClose);
        if (view.Asks.empty()) {
            EXPECT_GT(view.Bids[0].Price, close * 1.09) << ToUtf8(symbol);
            LockedUp.insert(symbol);
        } else {
            EXPECT_LT(view.Asks[0].Price, close * 0.91) << ToUtf8(symbol);
            LockedDown.insert(symbol);
        }
    }

    TVenueMarket Market;
    TDelivered Delivered{Market};
    TMarketSessions Sessions = VenueSessions();
    std::unique_ptr<TMarketTradeSideDetector> Detector =
        CreateComponent<TMarketTradeSideDetector>();
    TVenueChecker Checker{Market.Items(), Market.Market()};
    std::unique_ptr<TVenue> Venue;
    std::set<String> LockedUp;
    std::set<String> LockedDown;
    Int64 Sides = 0;
    Int64 WrongSides = 0;
};

TEST_P(VenueDayTest, NothingContradictsAnythingElse) {
    Begin();
    while (Venue->TimeNanos() < TimeOf(16, 30) && Checker.Faults().size() < 10) Step();
    for (const std::string& fault : Checker.Faults()) ADD_FAILURE() << fault;
    EXPECT_GT(Checker.TradeCount(), 10'000);
    EXPECT_GT(Sides, 1'000);
    EXPECT_EQ(WrongSides, 0) << "of " << Sides;
    EXPECT_FALSE(LockedUp.empty());
    EXPECT_FALSE(LockedDown.empty());
    std::set<StringView> stoppedAt;
    for (const String& symbol : Market.Symbols()) {
        const TEmbeddedSubItem& item = Market.Items().Item(symbol);
        const bool isStopped = item.FieldText(Field::MarketState) == u"HA";
        if (isStopped) stoppedAt.insert(item.GetFieldDouble(22) == 1.0 ? u"share" : u"other");
        EXPECT_EQ(item.HasField(Field::BestBid) || item.HasField(Field::BestAsk), !isStopped)
            << ToUtf8(symbol);
    }
    EXPECT_EQ(stoppedAt, std::set<StringView>{u"share"});
}

// Options against what they are an option on, with all prices as the screen shows them.
TEST_P(VenueDayTest, OptionsFollowTheirUnderlyer) {
    Begin();
    const struct {
        StringView Option;
        StringView Underlyer;
        Double Strike;
        Double Sign;
    } rows[] = {
        {u"HSI25200K6", u"HSIX6", 25200, 1},  {u"HSI26000K6", u"HSIX6", 26000, 1},
        {u"HSI26000W6", u"HSIX6", 26000, -1}, {u"HSI27000W6", u"HSIX6", 27000, -1},
        {u"TCH600L6", u"00700", 600, 1},      {u"TCH600X6", u"00700", 600, -1},
    };
    std::map<StringView, TCorrelation> correlations;
    std::map<StringView, std::string> fieldsBefore;
    TCorrelation months;
    constexpr Int64 sampleSteps = 50;
    while (Venue->TimeNanos() < TimeOf(16, 0) && Checker.Faults().size() < 10) {
        Step();
        for (const auto& row : rows) {
            const TVenueChecker::TView& option = Checker.View(String(row.Option));
            const TVenueChecker::TView& underlyer = Checker.View(String(row.Underlyer));
            if (option.Bids.empty() || option.Asks.empty() || underlyer.Bids.empty()) continue;
            // An option that has just been updated knows what its underlyer is worth.
            std::string fields = Market.Fields(row.Option);
            if (fields != fieldsBefore[row.Option]) {
                const Double worth = Venue->Worth(row.Underlyer);
                const Double intrinsic = std::max((worth - row.Strike) * row.Sign, 0.0);
                const Double tick = ToDoubleOr(Market.Items().Item(row.Option).FieldText(507), 1.0);
                EXPECT_GT(option.Asks[0].Price, intrinsic - tick) << ToUtf8(row.Option);
                fieldsBefore[row.Option] = std::move(fields);
            }
            EXPECT_GT(option.Bids[0].Price, 0.0);
            if (Venue->StepNumber() % sampleSteps == 0) {
                correlations[row.Option].Add(underlyer.Bids[0].Price, option.Bids[0].Price);
            }
        }
        if (Venue->StepNumber() % sampleSteps == 0) {
            months.Add(Checker.View(u"HSIX6").Bids[0].Price, Checker.View(u"HSIZ6").Bids[0].Price);
        }
    }
    for (const auto& row : rows) {
        // A straight line does not fit an option that has left its strike behind.
        EXPECT_GT(correlations[row.Option].Value() * row.Sign, 0.9) << ToUtf8(row.Option);
    }
    EXPECT_GT(months.Value(), 0.95);
    const Double difference = Venue->Worth(u"HSIX6") - Venue->Worth(u"HSIZ6");
    EXPECT_NEAR(Venue->Worth(u"HSIX6/HSIZ6"), difference, 1e-6);
    const TVenueChecker::TView& spread = Checker.View(u"HSIX6/HSIZ6");
    EXPECT_NEAR(spread.Bids.at(0).Price, difference, 3.0);
    EXPECT_LT(spread.Bids.at(0).Price, 0.0);
}

// The symbols that a newcomer sees, through the opening of every exchange.
TEST(VenueShippedTest, TheUniverseOfTheTreeAgreesWithItself) {
    TRecordingHost host;
    TEmbeddedServices services(
        {.Host = host, .DataDirectory = QUORIN_DATA_DIR, .SettingsPath = {}});
    LoadUniverse(std::filesystem::path(QUORIN_DATA_DIR) / "universe", services.Market());
    TVenue venue(services.Items(), services.Market(),
                 {.Seed = 7, .StepNanos = 10 * NanosPerSecond, .UpdatesPerStep = 200});
    TVenueChecker checker(services.Items(), services.Market());
    std::vector<String> symbols;
    for (const TMarketExchange* exchange : services.Market().Universe().Exchanges()) {
        for (const TEmbeddedMarketData* record : exchange->Records) {
            symbols.push_back(record->GetSymbol());
            services.Items().GetSubItem(symbols.back(), LiveDataType, /*Flag=*/true);
        }
    }
    services.Deliver();
    for (const String& symbol : symbols) {
        checker.Follow(symbol, -1e9, 1e9);
        const Double close = services.Items().Item(symbol).GetFieldDouble(Field::PreviousClose);
        EXPECT_NEAR(venue.Worth(symbol), close, std::max(std::fabs(close) * 0.1, 200.0))
            << ToUtf8(symbol);
    }
    while (venue.TimeNanos() < TimeOf(10, 30) && checker.Faults().size() < 10) {
        venue.Step();
        services.Deliver();
        for (const String& symbol : symbols) checker.Check(symbol);
    }
    for (const std::string& fault : checker.Faults()) ADD_FAILURE() << fault;
    EXPECT_GT(checker.TradeCount(), 10'000);
    for (const String& symbol : symbols) {
        const TVenueChecker::TView& view = checker.View(symbol);
        EXPECT_FALSE(view.Bids.empty() && view.Asks.empty() &&
                     services.Items().Item(symbol).FieldText(Field::MarketState) != u"HA")
            << ToUtf8(symbol) << " has no quote";
    }
    host.Verify();
}

INSTANTIATE_TEST_SUITE_P(Seeds, VenueDayTest, testing::Values(1, 7));

} // namespace
