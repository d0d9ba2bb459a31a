#include "tests/viewdata/PositionViewFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

struct TAggregatePositionTest : TPositionViewTest {
    // Texts as they come; an empty one takes the field away.
    void Quote(StringView last, StringView bid, StringView ask, StringView close) {
        const std::pair<Integer, StringView> fields[] = {{Field::LastPrice, last},
                                                         {Field::BestBid, bid},
                                                         {Field::BestAsk, ask},
                                                         {Field::PreviousClose, close}};
        for (const auto& [field, text] : fields) {
            if (text.empty()) {
                Item(u"00700").ClearField(field);
            } else {
                Item(u"00700").SetField(field, text);
            }
        }
    }
};

using TGetter = Double (TCustomPositionData::*)() const;
using TFigure = Double TPositionFigures::*;
struct TSummed {
    const char* Name;
    TFigure Figure;
    TGetter Getter;
};
constexpr TSummed Summed[] = {
    {"quantity", &TPositionFigures::Quantity, &TCustomPositionData::GetQuantity},
    {"start", &TPositionFigures::BODQuantity, &TCustomPositionData::GetBODQuantity},
    {"short", &TPositionFigures::ShortQuantity, &TCustomPositionData::GetShortQuantity},
    {"start short", &TPositionFigures::BODShortQuantity, &TCustomPositionData::GetBODShortQuantity},
    {"bought", &TPositionFigures::TodayBuyQty, &TCustomPositionData::GetTodayBuyQty},
    {"paid", &TPositionFigures::TodayBuyAmount, &TCustomPositionData::GetTodayBuyAmount},
    {"sold", &TPositionFigures::TodaySellQty, &TCustomPositionData::GetTodaySellQty},
    {"received", &TPositionFigures::TodaySellAmount, &TCustomPositionData::GetTodaySellAmount},
    {"to buy", &TPositionFigures::TodayPendBuyQty, &TCustomPositionData::GetTodayPendBuyQty},
    {"to sell", &TPositionFigures::TodayPendSellQty, &TCustomPositionData::GetTodayPendSellQty},
    {"withdrawn", &TPositionFigures::WithdrawQty, &TCustomPositionData::GetWithdrawQty},
    {"deposited", &TPositionFigures::DepositQty, &TCustomPositionData::GetDepositQty},
    {"covered", &TPositionFigures::CoveredQty, &TCustomPositionData::GetCoveredQty},
    {"custody", &TPositionFigures::CustodianQty, &TCustomPositionData::GetCustodianQty},
    {"to custody", &TPositionFigures::PendCustodianQty, &TCustomPositionData::GetPendCustodianQty},
};
constexpr TSummed NotSummed[] = {
    {"start price", &TPositionFigures::BODPrice, &TCustomPositionData::GetBODPrice},
    {"brought forward", &TPositionFigures::InitPL, &TCustomPositionData::GetInitPL},
    {"realised", &TPositionFigures::RealPL, &TCustomPositionData::GetRealPL},
    {"executed", &TPositionFigures::ExePL, &TCustomPositionData::GetExePL},
    {"average FIFN", &TPositionFigures::AvgPriceFIFN, &TCustomPositionData::GetAvgPriceFIFN},
    {"average mixed", &TPositionFigures::AvgPriceMixed, &TCustomPositionData::GetAvgPriceMixed},
    {"average in", &TPositionFigures::AvgPriceIn, &TCustomPositionData::GetAvgPriceIn},
};

TEST_F(TAggregatePositionTest, SumsFifteenFiguresAsTheyAre) {
    TPositionFigures first{.Side = TPositionSide::Long};
    TPositionFigures second{.Side = TPositionSide::Short};
    Double step = 1.0;
    for (const TSummed& field : Summed) {
        first.*field.Figure = step;
        second.*field.Figure = 100.0 * step;
        step += 1.0;
    }
    for (const TSummed& field : NotSummed) first.*field.Figure = second.*field.Figure = 3.0;
    TEmbeddedPositionData held(u"HSIF", u"S1");
    TAggregatePositionData row(u"00700", u"M1");
    for (const TSummed& field : Summed) EXPECT_EQ((row.*field.Getter)(), 0.0) << field.Name;

    held.SetFigures(second);
    row.AssignPositionData(&held);
    held.SetFigures(first);
    row.AssignPositionData(&held); // replaces
    step = 1.0;
    for (const TSummed& field : Summed) EXPECT_EQ((row.*field.Getter)(), step++) << field.Name;
    held.SetFigures(second);
    row.IncPositionData(&held);
    step = 101.0;
    for (const TSummed& field : Summed) {
        EXPECT_EQ((row.*field.Getter)(), step) << field.Name;
        step += 101.0;
    }
    for (const TSummed& field : NotSummed) EXPECT_EQ((row.*field.Getter)(), 0.0) << field.Name;
    EXPECT_EQ(row.GetAccount(), u"M1");
    EXPECT_EQ(row.GetSymbol(), u"00700");
    EXPECT_EQ(row.GetSide(), TPositionSide::Net);
    EXPECT_EQ(row.GetTicker(), &Item(u"00700"));
    EXPECT_EQ(row.GetProdType(), StockProductType);
    const auto another = row.CreateBy(u"TCHC", u"M2");
    ASSERT_NE(ObjectAs<TAggregatePositionData>(another.get()), nullptr);
    EXPECT_EQ(another->GetAccount() + u' ' + another->GetSymbol(), u"M2 TCHC");
    EXPECT_EQ(another->GetQuantity(), 0.0);
}

TEST_F(TAggregatePositionTest, ProductTypeIsReadOnce) {
    struct TCase {
        const char* Name;
        StringView Text;
        Integer Type;
    };
    constexpr TCase cases[] = {{"unknown yet", u"", 0},
                               {"no number", u"stock", 0},
                               {"a fraction", u"2.5", 0},
                               {"options", u"3", 3},
                               {"below 0", u"-1", -1}};
    for (const TCase& row : cases) {
        Item(u"GHOST").SetField(Field::ProductType, row.Text);
        const TAggregatePositionData record(u"GHOST", u"M1");
        Item(u"GHOST").SetField(Field::ProductType, u"2");
        EXPECT_EQ(record.GetProdType(), row.Type) << row.Name;
    }
}

TEST_F(TAggregatePositionTest, Nominal) {
    struct TCase {
        const char* Name;
        StringView Last, Bid, Ask, Close;
        Double Nominal;
    };
    constexpr TCase cases[] = {
        {"nothing", u"", u"", u"", u"", 0.0},
        {"last first", u"20", u"10", u"12", u"12.5", 20.0},
        {"last below 0", u"-3", u"10", u"12", u"12.5", -3.0},
        {"last at the tolerance", u"0.00000001", u"10", u"12", u"12.5", 1e-8},
        {"last just below", u"0.000000009", u"10", u"12", u"12.5", 12.5},
        {"last 0", u"0", u"", u"", u"12.5", 12.5},
        {"no last", u"", u"10", u"12", u"12.5", 12.5},
        {"last no number", u"n/a", u"10", u"12", u"12.5", 12.5},
        {"close below 0", u"", u"10", u"12", u"-2", -2.0},
        {"close at the tolerance", u"", u"10", u"12", u"0.00000001", 11.0},
        {"close just above", u"", u"10", u"12", u"0.00000002", 2e-8},
        {"middle", u"", u"10", u"12", u"0", 11.0},
        {"middle below 0", u"", u"-4", u"-2", u"", -3.0},
        {"bid alone", u"", u"10", u"0", u"0", 0.0},
        {"ask alone", u"", u"", u"12", u"", 0.0},
        {"ask no number", u"", u"10", u"x", u"", 0.0},
        {"bid at the tolerance", u"", u"0.00000001", u"12", u"", 0.0},
    };
    TAggregatePositionData record(u"00700", u"M1");
    Quote(u"20", u"10", u"12", u"12.5");
    EXPECT_EQ(record.GetNominal(), 0.0) << "nothing has arrived";
    Item(u"00700").SetStatus(ItemStatus::Ready);
    for (const TCase& row : cases) {
        Quote(row.Last, row.Bid, row.Ask, row.Close);
        EXPECT_EQ(record.GetNominal(), row.Nominal) << row.Name;
    }
    Quote(u"20", u"10", u"12", u"12.5");
    EXPECT_EQ(record.GetNominal(), 20.0);
    EXPECT_EQ(record.GetPClose(), 12.5);
    for (const Integer status : {ItemStatus::Waiting, ItemStatus::NoData}) {
        Item(u"00700").SetStatus(status);
        EXPECT_EQ(record.GetNominal(), 0.0);
        EXPECT_EQ(record.GetPClose(), 12.5) << "the close is read whatever the status";
    }
}

} // namespace
} // namespace quorin
