#include "platform/widgets/GridTableView.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"

#include <vector>

namespace quorin {
namespace {

namespace A = MarketAttribute;

constexpr StringView LongExchange = u"LONGNAMES";
// Texts of more units than a String holds in place.
constexpr StringView LongSymbol = u"SYMBOL0123456789";
constexpr StringView LongSpreadCode = u"TICKTABLE0123456789";

// What runs per cell, per update and per move must not ask for memory once it has met its sizes.
class TAllocationTest : public TServicesFixture {
protected:
    TAllocationTest() {
        WithoutFaults("a fault asks for memory");
        TEmbeddedMarketAdapter& market = Services().Market();
        static constexpr TSpreadBand bands[] = {{0.0, 1000.0, 0.05}};
        EXPECT_TRUE(market.AddSpreadTable(LongSpreadCode, bands));
        EXPECT_TRUE(market.AddExchange({.Code = LongExchange}));
        EXPECT_TRUE(market.AddSeries({.Code = u"LONG", .Exchange = LongExchange, .CategoryID = 9}));
        EXPECT_TRUE(market.AddSymbol({.Symbol = LongSymbol,
                                      .Exchange = LongExchange,
                                      .Series = u"LONG",
                                      .SpreadCode = LongSpreadCode}));
        Control().SetExchangeAndCategory(LongExchange, 9);
        View.SetCustomDataSource(&Source);
        for (const Integer tag : NumericTags) View.AddColumn(tag);
        for (const Integer tag : NumericTags) SetField(LongSymbol, tag, 100.25);
        const Integer row = 0;
        Control().ViewRecordChanged({&row, 1});
        Services().Deliver();
    }

    TCustomMarketDataControl& Control() {
        return static_cast<TCustomMarketDataControl&>(*Source.DataControl());
    }
    // Allocations of so many runs, after a few that may meet their sizes.
    template <class Action>
    static std::size_t AllocationsOf(Action action) {
        for (int run = 0; run < 10; ++run) action(run);
        const std::size_t before = AllocationCount();
        for (int run = 10; run < 110; ++run) action(run);
        return AllocationCount() - before;
    }

    const std::vector<Integer> NumericTags{A::BestBid,         A::BestAsk,       A::LastPrice,
                                           A::BestBidQuantity, A::Volume,        A::BestAskQuantity,
                                           A::StrikePrice,     A::PreviousClose, A::HighPrice,
                                           A::LowPrice,        A::OpenPrice};
    TCustomGridDataSource Source{TComponentClass::Of<TCustomMarketDataControl>()};
    TcxGridTableView View;
};

TEST_F(TAllocationTest, CountsAtAll) {
    const std::size_t before = AllocationCount();
    const String text(100, u'x');
    EXPECT_GT(AllocationCount(), before) << text.size();
}

TEST_F(TAllocationTest, NumericCellsAskForNone) {
    ASSERT_EQ(View.RowCount(), 1);
    Double sum = 0.0;
    EXPECT_EQ(AllocationsOf([&](int) {
                  for (Integer column = 0; column < View.GetColumnCount(); ++column) {
                      Double value = 0.0;
                      ASSERT_TRUE(View.Value(0, *View.GetColumn(column)).TryToDouble(value));
                      sum += value;
                  }
              }),
              0u);
    EXPECT_DOUBLE_EQ(sum, 110 * 100.25 * static_cast<Double>(NumericTags.size()));
}

TEST_F(TAllocationTest, FollowedUpdatesAskForNone) {
    TEmbeddedSubItem& item = Services().Items().Item(LongSymbol);
    ASSERT_EQ(item.GetStatus(), ItemStatus::Ready);
    const auto update = [&](int run) {
        item.SetField(Field::LastPrice, 100.0 + run);
        ASSERT_TRUE(Control().UpdateSymbolMessage(&item));
    };
    EXPECT_EQ(AllocationsOf(update), 0u);
    const auto delivery = [&](int run) {
        item.SetField(Field::LastPrice, 100.0 - run);
        Services().Items().Touch(item);
        Services().Items().Deliver();
    };
    EXPECT_EQ(AllocationsOf(delivery), 0u);
    TPriceChangeState move = pcsNone;
    EXPECT_TRUE(Control().GetLastPriceMoveTick(0, move));
    EXPECT_EQ(move, pcsDown);
}

TEST_F(TAllocationTest, SortedRowsFollowWithoutAny) {
    View.GetColumn(0)->SetSortOrder(soAscending);
    TEmbeddedSubItem& item = Services().Items().Item(LongSymbol);
    EXPECT_EQ(AllocationsOf([&](int run) {
                  item.SetField(Field::BestBid, 100.0 + run);
                  Services().Items().Touch(item);
                  Services().Items().Deliver();
                  ASSERT_EQ(View.RecordIndex(0), 0);
              }),
              0u);
}

TEST_F(TAllocationTest, PriceMovesAskForNone) {
    TEmbeddedSubItem& item = Services().Items().Item(LongSymbol);
    ASSERT_TRUE(Control().UpdateSymbolMessage(&item)); // a second update, so that there is a move
    Integer ups = 0;
    EXPECT_EQ(AllocationsOf([&](int run) {
                  item.SetField(Field::BestAsk, 100.0 + run);
                  TPriceChangeState state = pcsNone;
                  ASSERT_TRUE(Control().GetPriceMoveTickChangeState(0, A::BestAsk, state));
                  if (state == pcsUp) ++ups;
                  ASSERT_TRUE(Control().GetPriceChangeState(0, A::BestAsk, state));
                  ASSERT_TRUE(Control().GetLastPriceMoveTick(0, state));
              }),
              0u);
    EXPECT_EQ(ups, 109);
}

} // namespace
} // namespace quorin
