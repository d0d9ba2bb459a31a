#include "platform/rtl/Numbers.h"
#include "tests/viewdata/MarketFixture.h"
#include "viewdata/market/MarketAttributes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

namespace quorin {
namespace {

using TAnswer = std::optional<TPriceChangeState>; // empty: False, and nothing written

// Calls `ask` once with each value in the out-argument, which tells whether it was written.
template <class Ask>
TAnswer AnswerOf(Ask ask, TPriceChangeState before) {
    TPriceChangeState state = before;
    if (ask(state)) return state;
    EXPECT_EQ(state, before);
    return std::nullopt;
}

struct TPriceChangeTrackingTest : TMarketTest {
    TPriceChangeTrackingTest() { LoadFavorites({u"00700", u"GHOST"}); }

    TAnswer LastMove(Integer row = 0) {
        const auto ask = [&](auto& state) { return Control->GetLastPriceMoveTick(row, state); };
        EXPECT_EQ(AnswerOf(ask, pcsDown), AnswerOf(ask, pcsUp));
        return AnswerOf(ask, pcsDown);
    }
    TAnswer Change(Integer row, Integer field) {
        const auto ask = [&](auto& state) {
            return Control->GetPriceChangeState(row, field, state);
        };
        EXPECT_EQ(AnswerOf(ask, pcsDown), AnswerOf(ask, pcsUp));
        return AnswerOf(ask, pcsDown);
    }
    void Reload(TObject*) {
        Control->SetOnDataChanged(nullptr);
        Load(FavoriteExchange);
    }
    // Asks once: asking moves what is remembered.
    TAnswer Refreshed(Integer row, Integer field) {
        return AnswerOf(
            [&](auto& state) { return Control->GetPriceMoveTickChangeState(row, field, state); },
            pcsDown);
    }
};

TEST_F(TPriceChangeTrackingTest, LastPriceMovesBeyondTheTolerance) {
    constexpr Double tolerance = 1e-7;
    const Double above = std::nextafter(tolerance, 1.0);
    const Double below = std::nextafter(tolerance, 0.0);
    const struct { // one of the two prices is 0, so that the difference is exact
        const char* Name;
        Double Before, After;
        TPriceChangeState State;
    } cases[] = {
        {"same", 350.2, 350.2, pcsNone},         {"up", 350.2, 350.4, pcsUp},
        {"down", 350.4, 350.2, pcsDown},         {"up, below", 0.0, below, pcsNone},
        {"up, border", 0.0, tolerance, pcsNone}, {"up, above", 0.0, above, pcsUp},
        {"down, below", below, 0.0, pcsNone},    {"down, border", tolerance, 0.0, pcsNone},
        {"down, above", above, 0.0, pcsDown},    {"up through 0", -1.0, 1.0, pcsUp},
        {"down, negative", -1.0, -2.0, pcsDown},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        MakeControl();
        Load(FavoriteExchange);
        Show({0});
        Tick({u"00700"}, row.Before);
        EXPECT_EQ(LastMove(), std::nullopt);
        Tick({u"00700"}, row.After);
        EXPECT_EQ(LastMove(), row.State);
    }
}

TEST_F(TPriceChangeTrackingTest, LastMoveIsThatOfTheLatestUpdateAlone) {
    Show({0, 1});
    for (const Double price : {5.0, 4.0}) Tick({u"00700"}, price);
    EXPECT_EQ(LastMove(0), pcsDown);
    EXPECT_EQ(LastMove(1), std::nullopt);
    Tick({u"GHOST"}, 9.0); // of another symbol
    EXPECT_EQ(LastMove(0), pcsDown);
    Tick({u"00700"}, 4.0);
    EXPECT_EQ(LastMove(0), pcsNone);
    Services().Items().Item(u"00700").SetStatus(ItemStatus::NoData); // tracked all the same
    Tick({u"00700"}, 7.0);
    EXPECT_EQ(LastMove(0), pcsUp);
    Services().Items().Item(u"00700").ClearField(Field::LastPrice);
    SetField(u"00700", Field::BestBid, 1.0);
    Services().Items().Deliver();
    EXPECT_EQ(LastMove(0), pcsDown); // a missing price is 0
    for (const Integer row : {-1, 2}) EXPECT_EQ(LastMove(row), std::nullopt);
}

TEST_F(TPriceChangeTrackingTest, LastPriceSurvivesAReloadAndItsMoveDoesNot) {
    Show({0});
    for (const Double price : {5.0, 6.0}) Tick({u"00700"}, price);
    Load(FavoriteExchange);
    EXPECT_EQ(LastMove(), std::nullopt);
    Tick({u"00700"}, 1.0); // nobody follows it
    Show({0});
    EXPECT_EQ(LastMove(), std::nullopt);
    Tick({u"00700"}, 5.5);
    EXPECT_EQ(LastMove(), pcsDown);
    Show({}); // a row that leaves the screen keeps its latest move
    EXPECT_EQ(LastMove(), pcsDown);
    Control->MoveRecord(0, 1);
    EXPECT_EQ(LastMove(1), pcsDown);
}

TEST_F(TPriceChangeTrackingTest, AReloadFromInsideAnUpdateForgetsItsMove) {
    for (Integer round = 0; round < 100; ++round) { // a fault signals from another place each time
        Show({0});
        Tick({u"00700"}, 5.0);
        Control->SetOnDataChanged(MakeEvent<&TPriceChangeTrackingTest::Reload>(this));
        Tick({u"00700"}, 6.0);
        EXPECT_EQ(LastMove(), std::nullopt);
        Control->SetOnDataChanged(nullptr);
        Load(FavoriteExchange);
    }
}

TEST_F(TPriceChangeTrackingTest, ChangeAgainstThePreviousCloseIsExact) {
    const Double close = 350.0;
    const struct {
        const char* Name;
        std::optional<Double> Value, Close;
        TAnswer State;
    } cases[] = {
        {"equal", close, close, pcsNone},
        {"up by the least", std::nextafter(close, 999.0), close, pcsUp},
        {"down by the least", std::nextafter(close, 0.0), close, pcsDown},
        {"no value", {}, close, {}},
        {"no close", close, {}, {}},
    };
    TEmbeddedSubItem& item = Services().Items().Item(u"GHOST");
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        item.ClearField(Field::BestBid);
        item.ClearField(Field::PreviousClose);
        if (row.Value) item.SetField(Field::BestBid, *row.Value);
        if (row.Close) item.SetField(Field::PreviousClose, *row.Close);
        EXPECT_EQ(Change(1, Field::BestBid), row.State);
        EXPECT_EQ(Change(1, Field::PreviousClose), row.Close ? TAnswer(pcsNone) : TAnswer());
    }
    for (const Integer row : {-1, 2}) EXPECT_EQ(Change(row, Field::BestBid), std::nullopt);
    EXPECT_NE(item.GetItemIndex(), NoItemIndex); // the feed was asked for it
    EXPECT_EQ(Registered(), 0);
}

TEST_F(TPriceChangeTrackingTest, RefreshTellsEachChangeOncePerCell) {
    const struct {
        const char* Name;
        Integer Row, Field;
        std::optional<Double> Value; // written before the call
        TAnswer State;
    } steps[] = {
        {"no field yet", 0, 1, {}, {}},
        {"first look", 0, 1, 5.0, pcsNone},
        {"up by the least", 0, 1, std::nextafter(5.0, 9.0), pcsUp},
        {"told once", 0, 1, {}, pcsNone},
        {"first look at another field", 0, 2, 9.0, pcsNone},
        {"first look at another symbol", 1, 1, 1.0, pcsNone},
        {"down", 0, 1, 4.0, pcsDown},
        {"down of the other field", 0, 2, 8.0, pcsDown},
        {"up of the other symbol", 1, 1, 2.0, pcsUp},
        {"no such row", 2, 1, {}, {}},
        {"negative row", -1, 1, {}, {}},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.Name);
        if (step.Value) SetField(Control->GetSymbol(step.Row), step.Field, *step.Value);
        EXPECT_EQ(Refreshed(step.Row, step.Field), step.State);
    }
    EXPECT_NE(Services().Items().Item(u"00700").GetItemIndex(), NoItemIndex);
    Services().Items().Item(u"00700").ClearField(1);
    EXPECT_EQ(Refreshed(0, 1), std::nullopt); // and 4.0 stays remembered
    Load(u"HKFE");
    Load(FavoriteExchange);
    SetField(u"00700", 1, 3.0);
    EXPECT_EQ(Refreshed(0, 1), pcsDown); // also over a reload
    EXPECT_EQ(TakeSignals(), 0);
}

TEST_F(TPriceChangeTrackingTest, TheFarthestMoveIsTold) {
    const auto farthest = [&](Integer row, Integer field) {
        return AnswerOf([&](auto& state) { return Control->GetExtremeMove(row, field, state); },
                        pcsNone);
    };
    EXPECT_EQ(farthest(0, Field::LastPrice), std::nullopt) << "no field yet";
    Show({0});
    const struct {
        const char* Name;
        std::vector<Double> Prices; // since the last look
        TPriceChangeState State;
    } steps[] = {
        {"first look", {350.0}, pcsNone},
        {"nothing", {}, pcsNone},
        {"up", {351.0}, pcsUp},
        {"a rise that is taken back", {353.0, 351.0}, pcsUp},
        {"a fall that is taken back", {350.0, 351.0}, pcsDown},
        {"farther down than up", {352.0, 349.0}, pcsDown},
        {"as far up as down", {350.0, 348.0, 349.0}, pcsUp},
        {"told once", {}, pcsNone},
    };
    for (const auto& step : steps) {
        for (const Double price : step.Prices) Tick({u"00700"}, price);
        EXPECT_EQ(farthest(0, Field::LastPrice), step.State) << step.Name;
    }
    for (const Integer row : {-1, 2}) EXPECT_EQ(farthest(row, Field::LastPrice), std::nullopt);
}

// A list so long that it is fetched ahead.
TEST_F(TPriceChangeTrackingTest, RowsOfALongListAreTheirOwn) {
    constexpr Integer count = 6000;
    constexpr Integer step = 7;
    std::vector<Integer> rows;
    for (Integer row = 0; row < count; ++row) {
        Services().Market().AddSymbol(
            {.Symbol = u"L" + IntegerToText(row), .Exchange = u"QEX", .Series = u"ZERO"});
        if (row % 3 != 0) rows.push_back(row + 1); // the exchange has a future before them
    }
    Load(u"QEX");
    ASSERT_EQ(Control->GetCount(), count + 1);
    Show(rows);
    for (const Double price : {10.0, 11.0}) {
        for (Integer row = 0; row < count; row += step) {
            SetField(Control->GetSymbol(row), Field::LastPrice, price + row % 2);
        }
        Services().Items().Deliver();
    }
    EXPECT_EQ(TakeSignals(), 2);
    for (Integer row = 0; row < count; row += step) {
        EXPECT_EQ(Control->GetValue(row, MarketAttribute::LastPrice), Variant(11.0 + row % 2));
        const bool isFollowed = row > 0 && (row - 1) % 3 != 0;
        EXPECT_EQ(LastMove(row) == pcsUp, isFollowed) << row;
    }
}

} // namespace
} // namespace quorin
