// Orders through an hour of the simulated venue, with the shipped universe and accounts.

#include "tests/support/MoneyChecker.h"
#include "tests/support/RecordingHost.h"

#include "embedded/EmbeddedServices.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"
#include "viewdata/services/PositionAdapter.h"

#include <cmath>
#include <map>
#include <random>

namespace quorin {
namespace {

constexpr Int64 StepNanos = 4 * NanosPerSecond;
constexpr Integer StepsPerHour = 3600 / 4;

// One hour of one seed.
class TOrderDay {
public:
    explicit TOrderDay(std::uint64_t seed, bool isSingleCurrency = false)
        : FSeed(seed), FRandom(seed),
          FServices(
              TEmbeddedOptions{.Host = FHost, .Switches = {.SingleCurrency = isSingleCurrency}}) {
        const std::filesystem::path data = QUORIN_DATA_DIR;
        LoadUniverse(data / "universe", FServices.Market());
        FServices.LoadAccounts(data / "accounts");
        FVenue = std::make_unique<TVenue>(
            FServices.Items(), FServices.Market(),
            TVenueOptions{.Seed = seed,
                          .StepNanos = StepNanos,
                          .StartNanos = (9 * 60 + 30) * 60 * NanosPerSecond,
                          .UpdatesPerStep = 200});
        FServices.Deliver();
    }

    TEmbeddedServices& Services() { return FServices; }
    void Step() {
        FVenue->Step();
        FServices.Deliver();
    }
    // An order of a trader who mostly trades what he holds.
    void SendOrder() {
        const TCustomAccount& account =
            *FServices.Accounts().GetAccountByIndex(Below(FServices.Accounts().GetAccountCount()));
        TOrderValues order;
        order.Account = account.GetAccount();
        order.BuySell = Below(2);
        TPositionDictionary held;
        FServices.Positions().GetPositionList(order.Account, held);
        const TCustomPositionData* position = nullptr;
        if (!held.IsEmpty() && Below(3) != 0) {
            order.Symbol = held.Keys()[Below(held.Count())];
            position = held.Extract(order.Symbol);
        } else {
            order.Symbol = AnySymbol();
        }
        const TEmbeddedMarketData& symbol = *FServices.Market().Universe().FindSymbol(order.Symbol);
        order.Quantity = std::max(symbol.LotSize(), 1.0) * (1 + Below(8));
        if (position != nullptr && Below(3) == 0) {
            order.Quantity = std::fabs(position->GetQuantity());
            const bool isShort =
                position->GetQuantity() < 0.0 || position->GetSide() == TPositionSide::Short;
            order.BuySell = isShort ? OrderSide::Buy : OrderSide::Sell;
        }
        if (Below(3) == 0) {
            order.Flags = OrderFlag::Market;
        } else {
            SetLimit(order);
        }
        FServices.Desk().Take(order);
    }
    void CancelAny() {
        const auto working = FServices.Desk().WorkingOrders();
        if (!working.IsEmpty())
            FServices.Desk().CancelOrder(working[Below(working.Count())]->Number);
    }
    Integer Below(Integer end) {
        return static_cast<Integer>(FRandom() % static_cast<std::uint64_t>(end));
    }
    std::string Trail() const { return "seed " + std::to_string(FSeed); }

private:
    String AnySymbol() {
        const auto& exchanges = FServices.Market().Universe().Exchanges();
        const auto& records = exchanges[Below(exchanges.Count())]->Records;
        return records[Below(records.Count())]->GetSymbol();
    }
    void SetLimit(TOrderValues& order) {
        const TEmbeddedSubItem& item = FServices.Items().Item(order.Symbol);
        const Integer side = order.IsBuy() ? Field::BestAsk : Field::BestBid;
        TEmbeddedSpreadTable table;
        const TEmbeddedMarketData& symbol = *FServices.Market().Universe().FindSymbol(order.Symbol);
        EXPECT_TRUE(table.Load(FServices.Market().SpreadBands(symbol.SpreadCode())));
        const Double near =
            item.HasField(side) ? item.GetFieldDouble(side) : symbol.PreviousClose();
        order.Price = table.MovePrice(near, Below(5) - 2);
    }

    const std::uint64_t FSeed;
    std::mt19937_64 FRandom;
    TRecordingHost FHost;
    TEmbeddedServices FServices;
    std::unique_ptr<TVenue> FVenue;
};

void RunHour(TOrderDay& day, const TMoneyChecker* checker) {
    for (Integer step = 0; step < StepsPerHour; ++step) {
        day.Step();
        if (day.Below(2) == 0) day.SendOrder();
        if (day.Below(8) == 0) day.CancelAny();
        if (checker == nullptr) continue;
        day.Services().Deliver();
        const std::vector<std::string> faults = checker->Check();
        ASSERT_EQ(faults, std::vector<std::string>()) << "step " << step;
    }
}

TEST(OrderDayTest, NoMoneyIsMadeOrLostThatIsNoProfit) {
    for (const std::uint64_t seed : {3u, 2026u}) {
        TOrderDay day(seed);
        SCOPED_TRACE(day.Trail());
        const TMoneyChecker checker;
        RunHour(day, &checker);
        std::map<TOrderState, int> states;
        std::map<TOrderReason, int> reasons;
        for (const TDeskOrder& order : day.Services().Desk().Orders()) {
            ++states[order.State];
            ++reasons[order.Reason];
        }
        EXPECT_GT(states[TOrderState::Filled], 100);
        EXPECT_GT(states[TOrderState::Cancelled], 10);
        EXPECT_GT(reasons[TOrderReason::CrossesZero], 3);
    }
}

TEST(OrderDayTest, InOneCurrencyTheTotalIsTheSame) {
    const auto totals = [](bool isSingleCurrency) {
        TOrderDay day(5, isSingleCurrency);
        RunHour(day, nullptr);
        std::map<std::string, Double> figures;
        for (Integer index = 0; index < day.Services().Accounts().GetAccountCount(); ++index) {
            const TCustomAccount& account = *day.Services().Accounts().GetAccountByIndex(index);
            EXPECT_EQ(account.GetCurrencyCount() == 0, isSingleCurrency);
            const auto* total = ObjectAs<TEmbeddedAccountData>(account.GetAccountData({}));
            for (const TBalanceColumn& column : BalanceColumns) {
                // Loans are taken in the currency that lacks cash.
                if (column.Name == "1503" || column.Name == "9018B") continue;
                figures[ToUtf8(account.GetAccount()) + " " + std::string(column.Name)] =
                    total->Figures().*(column.Figure);
            }
        }
        return figures;
    };
    const auto single = totals(true);
    for (const auto& [key, figure] : totals(false)) {
        EXPECT_NEAR(figure, single.at(key), 1e-6) << key;
    }
}

} // namespace
} // namespace quorin
