// What a script trades, checked against the fills of the audit list.

#include "platform/rtl/Utf.h"
#include "tests/support/MoneyChecker.h"
#include "tests/terminal/ScriptPlay.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/position/PositionAttributes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace quorin {
namespace {

const std::filesystem::path FirstTrades =
    std::filesystem::path(QUORIN_DATA_DIR) / "scripts" / "first-trades.txt";

// What an account holds of a symbol: what the files say, and the fills on top of it.
struct THeld {
    Double Quantity = 0.0;
    Double Short = 0.0; // beside it
    Double Spent = 0.0; // on all that was ever bought, less what was sold
};
using THeldBySymbol = std::map<String, THeld>;

Double ContractSize(StringView symbol) {
    const TCustomSubItem* item =
        TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
    const Double size = item->GetFieldDouble(Field::ContractSize);
    return size > 0.0 ? size : 1.0;
}

THeldBySymbol HeldAtStart(StringView account) {
    TPositionDictionary positions;
    TCustomPositionAdapter::GetInstance()->GetPositionList(account, positions);
    THeldBySymbol held;
    for (const auto& entry : positions) {
        const TCustomPositionData& record = *entry.Value;
        // Without a price of its own the day begins at the previous close.
        const Double price =
            record.GetBODPrice() != 0.0 ? record.GetBODPrice() : record.GetPClose();
        const Double start = record.GetBODQuantity() - record.GetBODShortQuantity();
        const Double spent =
            start * price + record.GetTodayBuyAmount() - record.GetTodaySellAmount();
        held[entry.Key] = {record.GetQuantity(), record.GetShortQuantity(),
                           spent * ContractSize(entry.Key)};
    }
    return held;
}

void AddFills(THeldBySymbol& held, const TOrderAudit& audit, StringView account) {
    for (Integer index = 0; index < audit.Count(); ++index) {
        const TOrderAuditEntry& entry = audit[index];
        if (entry.Kind != TOrderAuditKind::Fill || entry.Account != account) continue;
        const Double quantity = entry.BuySell == OrderSide::Buy ? entry.Quantity : -entry.Quantity;
        held[entry.Symbol].Quantity += quantity;
        held[entry.Symbol].Spent += quantity * entry.Price * ContractSize(entry.Symbol);
    }
}

// The list shows exactly what is held, and of each row the profit and loss that follows from its
// value now and from what was spent on it.
void ExpectShown(TPositionForm& positions, const THeldBySymbol& held) {
    std::map<String, Integer> rows;
    for (Integer row = 0; row < positions.View().RowCount(); ++row) {
        rows[positions.Symbol(row)] = row;
    }
    for (const auto& [symbol, figures] : held) {
        const bool isOpen = figures.Quantity != 0.0;
        ASSERT_EQ(rows.count(symbol), isOpen ? 1u : 0u) << ToUtf8(symbol);
        if (!isOpen) continue;
        const Integer row = rows[symbol];
        EXPECT_EQ(positions.Value(row, PositionAttribute::NetQuantity),
                  Variant(figures.Quantity - figures.Short));
        const Double value = positions.Value(row, PositionAttribute::MarketValue).ToDouble();
        const Double result = positions.Value(row, PositionAttribute::TotalPL).ToDouble();
        EXPECT_NEAR(result, value - figures.Spent, 0.005) << ToUtf8(symbol);
    }
}

// How many fills the audit list has.
Integer FillCount(const TOrderAudit& audit) {
    Integer count = 0;
    for (Integer index = 0; index < audit.Count(); ++index) {
        if (audit[index].Kind == TOrderAuditKind::Fill) ++count;
    }
    return count;
}

TEST(ScriptTradingTest, QuickOrderFillsAtTheQuoteShown) {
    TScriptPlay play;
    play.Run("account P50001\nfavourites\nstep 8\npositions\n");
    THeldBySymbol held = HeldAtStart(u"P50001");
    const Variant ask = play.Screen->Market().Value(0, MarketAttribute::BestAsk);
    const Variant bid = play.Screen->Market().Value(1, MarketAttribute::BestBid);
    const std::string taken = play.Run("buy market 0\nsell best 1\n");
    EXPECT_EQ(FillCount(play.Screen->Desk().Audit()), 0) << "never inside the call\n" << taken;
    play.Run("step 1\n");
    const TOrderAudit& audit = play.Screen->Desk().Audit();
    ASSERT_EQ(FillCount(audit), 2);
    EXPECT_EQ(Variant(audit[audit.Count() - 2].Price), ask);
    EXPECT_EQ(Variant(audit[audit.Count() - 1].Price), bid);
    AddFills(held, audit, u"P50001");
    ExpectShown(play.Screen->Positions(), held);
}

TEST(ScriptTradingTest, FirstTradesShowTheRightFigures) {
    for (const std::uint64_t seed : {1u, 2u, 7u}) {
        std::string first;
        {
            TScriptPlay play(TAnswerBy::Yes, seed);
            THeldBySymbol held = HeldAtStart(u"P50001");
            const TMoneyChecker checker; // of every account and currency
            first = play.RunFile(FirstTrades);
            EXPECT_EQ(checker.Check(), std::vector<std::string>()) << seed;
            EXPECT_EQ(play.Errors.str(), "") << seed;
            AddFills(held, play.Screen->Desk().Audit(), u"P50001");
            EXPECT_GE(FillCount(play.Screen->Desk().Audit()), 8) << seed;
            ExpectShown(play.Screen->Positions(), held);
        }
        TScriptPlay again(TAnswerBy::Yes, seed);
        EXPECT_EQ(again.RunFile(FirstTrades), first) << seed;
    }
}

TEST(ScriptTradingTest, WithoutAYesNothingIsClosed) {
    TScriptPlay play(TAnswerBy::No);
    play.Run("account P50001\npositions\nset ConfirmationClosePosition 1\n");
    const THeldBySymbol held = HeldAtStart(u"P50001");
    const std::string out = play.Run("close best 0\ncloseall\nstep 4\n");
    EXPECT_NE(out.find("> 2 closeall\n  question "), std::string::npos);
    EXPECT_NE(out.find("  answer   no\n  result   refused\n"), std::string::npos);
    EXPECT_EQ(FillCount(play.Screen->Desk().Audit()), 0);
    ExpectShown(play.Screen->Positions(), held);
}

TEST(ScriptTradingTest, OrderIsCancelledByItsNumber) {
    TScriptPlay play;
    play.Run("account P50001\npositions\norders\nstep 8\n");
    THeldBySymbol held = HeldAtStart(u"P50001");
    // More than is bid for: the rest waits.
    const std::string closed = play.Run("close best 0\nstep 1\n");
    EXPECT_NE(closed.find("Working"), std::string::npos) << closed;
    const Integer fills = FillCount(play.Screen->Desk().Audit());
    EXPECT_GT(fills, 0);
    const std::string cancelled = play.Run("cancel 1\ncancel 1\ncancel 2\nstep 8\n");
    EXPECT_EQ(cancelled.find("> 1 cancel 1\n  result   done\n  report "), 0u) << cancelled;
    EXPECT_NE(cancelled.find("> 2 cancel 1\n  result   refused\n> 3 "), std::string::npos);
    EXPECT_EQ(play.Errors.str(), "s.txt:3: there is no order 2\n");
    EXPECT_EQ(FillCount(play.Screen->Desk().Audit()), fills);
    AddFills(held, play.Screen->Desk().Audit(), u"P50001");
    ExpectShown(play.Screen->Positions(), held);
}

} // namespace
} // namespace quorin
