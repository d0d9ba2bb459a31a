#include "terminal/forms/MarketWatchForm.h"
#include "embedded/EmbeddedServices.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/forms/TradesForm.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quorin {
namespace {

struct TMarketWatchFormTest : testing::Test {
    TMarketWatchFormTest() {
        Services.Market().AddExchange({u"SEHK", u"HKD", u"", MarketOpen});
        Services.Market().AddCategory({1, {u"Shares"}});
        Services.Market().AddSeries({u"S", u"SEHK", 1, {u"S"}});
        for (const StringView symbol : {u"A", u"B", u"C", u"D"}) {
            TSymbolRecord record;
            record.Symbol = symbol;
            record.Exchange = u"SEHK";
            record.Series = u"S";
            record.PreviousClose = 10.0;
            Services.Market().AddSymbol(record);
        }
        Form = std::make_unique<TMarketWatchForm>();
        Form->View().SetVisibleRowCapacity(2);
        Form->ShowMarket(u"SEHK");
    }
    ~TMarketWatchFormTest() override {
        Form.reset();
        TMarketTradeSideDetector::ReleaseInstance();
        EXPECT_EQ(Services.RegistrationCount(), 0);
        EXPECT_EQ(Messages.str(), "");
    }
    void Feed(StringView symbol, Double last) {
        TEmbeddedSubItem& item = Services.Items().Item(symbol);
        item.SetField(Field::LastPrice, last);
        Services.Items().Touch(item);
        Services.Deliver();
    }
    // Which symbols have a change signal, by trying them.
    std::string Followed() {
        std::string followed;
        for (const StringView symbol : {u"A", u"B", u"C", u"D"}) {
            Form->View().TakeRepaint();
            Feed(symbol, 10.0);
            if (Form->View().TakeRepaint()) followed += static_cast<char>(symbol[0]);
        }
        return followed;
    }

    std::ostringstream Messages;
    TConsoleHost Host{Messages};
    TEmbeddedServices Services{TEmbeddedOptions{Host, {}, {}}};
    std::unique_ptr<TMarketWatchForm> Form;
};

TEST_F(TMarketWatchFormTest, FollowsTheRowsOnScreen) {
    EXPECT_EQ(Followed(), "");
    Form->FollowVisibleRows();
    EXPECT_EQ(Followed(), "AB");
    Form->View().SetTopRow(1);
    Form->FollowVisibleRows();
    EXPECT_EQ(Followed(), "BC");
    Form->View().SetVisibleRowCapacity(3);
    Form->FollowVisibleRows();
    EXPECT_EQ(Followed(), "BCD");
    Form->Control().MoveRecord(0, 3);
    Form->FollowVisibleRows();
    EXPECT_EQ(Followed(), "ACD");
}

TEST_F(TMarketWatchFormTest, FollowsAgainAfterTheSameRowsWereReloaded) {
    Form->FollowVisibleRows();
    Form->Control().InitData();
    EXPECT_EQ(Followed(), "");
    Form->FollowVisibleRows();
    EXPECT_EQ(Followed(), "AB");
}

TEST_F(TMarketWatchFormTest, MarksTellMoveAndDirection) {
    Form->FollowVisibleRows();
    TPriceChangeState state = pcsDown;
    EXPECT_FALSE(Form->LastMove(0, state));
    EXPECT_FALSE(Form->LastMove(-1, state));
    EXPECT_FALSE(Form->ChangeDirection(99, state));
    EXPECT_EQ(state, pcsDown);
    Feed(u"A", 10.5);
    EXPECT_FALSE(Form->LastMove(0, state));
    ASSERT_TRUE(Form->ChangeDirection(0, state));
    EXPECT_EQ(state, pcsUp);
    Feed(u"A", 10.25);
    ASSERT_TRUE(Form->LastMove(0, state));
    EXPECT_EQ(state, pcsDown);
    ASSERT_TRUE(Form->ChangeDirection(0, state));
    EXPECT_EQ(state, pcsUp);
}

TEST_F(TMarketWatchFormTest, RowIsNamedByItsSymbol) {
    EXPECT_TRUE(Form->RowStillShows(1, u"B"));
    EXPECT_FALSE(Form->RowStillShows(1, u"A"));
    Form->Control().MoveRecord(1, 0);
    EXPECT_FALSE(Form->RowStillShows(1, u"B"));
    EXPECT_TRUE(Form->RowStillShows(0, u"B"));
    EXPECT_FALSE(Form->RowStillShows(99, u""));
    EXPECT_FALSE(Form->RowStillShows(-1, u"B"));
}

TEST_F(TMarketWatchFormTest, ActionIsForTheRowAsItWasShown) {
    EXPECT_EQ(Form->ActionRecord(0), NoRow) << "nothing was shown yet";
    Form->NoteShown();
    EXPECT_EQ(Form->ActionRecord(1), 1);
    EXPECT_EQ(Form->ActionRecord(4), NoRow);
    EXPECT_EQ(Form->ActionRecord(-1), NoRow);
    Form->Control().MoveRecord(1, 0);
    EXPECT_EQ(Form->ActionRecord(1), NoRow);
    EXPECT_EQ(Form->ActionRecord(2), 2);
    Form->NoteShown();
    EXPECT_EQ(Form->ActionRecord(1), 1);
}

TEST_F(TMarketWatchFormTest, ShowsChosenSymbols) {
    TList<String> symbols;
    for (const StringView symbol : {u"D", u"NOBODY", u"B"}) symbols.Add(String(symbol));
    Form->ShowSymbols(symbols);
    EXPECT_EQ(Form->View().RowCount(), 2);
    EXPECT_EQ(Form->Symbol(0), u"D");
    EXPECT_EQ(Form->Symbol(1), u"B");
    EXPECT_EQ(Form->Symbol(2), u"");
}

TEST_F(TMarketWatchFormTest, TradesFollowOneSymbolAtATime) {
    const Integer before = Services.RegistrationCount();
    TTradesForm trades;
    EXPECT_EQ(trades.Count(), 0);
    trades.SetSymbol(u"A");
    trades.SetSymbol(u"B");
    EXPECT_EQ(Services.RegistrationCount(), before + 1);
    TEmbeddedSubItem& item = Services.Items().Item(u"B");
    item.SetField(Field::NewestTrade - 1, u"09:30:00 100 10.5");
    item.SetField(Field::NewestTrade, u"09:30:01 200 10.5");
    Services.Items().Touch(item);
    Services.Deliver();
    ASSERT_EQ(trades.Count(), 2);
    EXPECT_EQ(trades.Trade(0)->Qty(), u"200");
    EXPECT_EQ(trades.Trade(1)->Qty(), u"100");
    EXPECT_EQ(trades.Trade(2), nullptr);
    EXPECT_EQ(trades.Trade(-1), nullptr);
    trades.SetSymbol(u"");
    EXPECT_EQ(trades.Count(), 0);
    EXPECT_EQ(Services.RegistrationCount(), before);
}

TEST_F(TMarketWatchFormTest, RowsMove) {
    const auto order = [&] {
        String symbols;
        for (Integer row = 0; row < Form->RowCount(); ++row) symbols += Form->Symbol(row);
        return symbols;
    };
    const struct {
        StringView Moved, Before, Order;
        bool IsDone;
    } steps[] = {
        {u"A", u"D", u"BCAD", true},  {u"D", u"B", u"DBCA", true},  {u"B", u"", u"DCAB", true},
        {u"B", u"", u"DCAB", false},  {u"C", u"C", u"DCAB", false}, {u"X", u"A", u"DCAB", false},
        {u"A", u"X", u"DCAB", false},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(Form->MoveRow(step.Moved, step.Before), step.IsDone);
        EXPECT_EQ(order(), step.Order);
    }
    EXPECT_EQ(Form->Symbol(Form->View().FocusedRow()), u"B") << "the focus goes with the row";
    EXPECT_EQ(Services.Market().GetFavoriteCount(), 0);
    Form->View().GetColumn(0)->SetSortOrder(soAscending);
    EXPECT_FALSE(Form->MoveRow(u"A", u"D"));
    EXPECT_EQ(order(), u"ABCD");
}

} // namespace
} // namespace quorin
