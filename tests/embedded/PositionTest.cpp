#include "embedded/PositionService.h"

#include "tests/support/ServicesFixture.h"
#include "viewdata/services/FieldNumbers.h"

#include <functional>
#include <utility>

namespace quorin {
namespace {

// Writes down the positions it hears of, "ACC 00700=100; ".
class TPositionReceiver : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TPositionReceiver::Called>(this); }
    String Take() { return std::exchange(FHeard, String()); }
    void ActInside(std::function<void()> action) { FAction = std::move(action); }

private:
    void Called(Pointer Sender, Pointer) {
        for (const auto& account : *static_cast<TAccountPositionDictionary*>(Sender)) {
            for (const auto& position : *account.Value) {
                FHeard += account.Key + u" " + position.Key + u"=" +
                          Variant(position.Value->GetQuantity()).ToText() + u"; ";
            }
        }
        if (FAction) std::exchange(FAction, nullptr)();
    }

    String FHeard;
    std::function<void()> FAction;
};

TPositionFigures Quantity(Double quantity) {
    TPositionFigures figures;
    figures.Quantity = quantity;
    return figures;
}

class PositionTest : public TServicesFixture {
protected:
    static TCustomPositionAdapter& Adapter() { return *TCustomPositionAdapter::GetInstance(); }
    void Feed(StringView account, StringView symbol, Double quantity) {
        Services().Positions().FeedPosition(account, symbol, Quantity(quantity));
    }
    static String Listed(StringView account) {
        TPositionDictionary list;
        Adapter().GetPositionList(account, list);
        String text;
        for (const auto& item : list) text += item.Key + u" ";
        return text;
    }
};

TEST_F(PositionTest, OneObjectPerKeyThroughItsLife) {
    EXPECT_EQ(Adapter().GetPosition(u"A", u"00700"), nullptr);
    Feed(u"A", u"00700", 100.0);
    Feed(u"A", u"00005", -400.0);
    TCustomPositionData* const position = Adapter().GetPosition(u"A", u"00700");
    ASSERT_NE(position, nullptr);
    EXPECT_EQ(position->GetAccount(), u"A");
    EXPECT_EQ(position->GetSymbol(), u"00700");
    EXPECT_EQ(Listed(u"A"), u"00700 00005 ");
    EXPECT_EQ(Listed(u"B"), u"");

    Feed(u"A", u"00700", 0.0);
    EXPECT_EQ(position->GetQuantity(), 0.0) << "the record outlives the position";
    EXPECT_EQ(Adapter().GetPosition(u"A", u"00700"), nullptr);
    EXPECT_EQ(Listed(u"A"), u"00005 ");
    Feed(u"A", u"00700", 50.0);
    EXPECT_EQ(Adapter().GetPosition(u"A", u"00700"), position);
}

TEST_F(PositionTest, MovingToAnotherAccountInsideACallWaitsForTheNextDelivery) {
    TPositionReceiver moves;
    Adapter().ChangePositionAccount(u"A", moves.Event(), &moves, u"");
    moves.ActInside([&] { Adapter().ChangePositionAccount(u"B", moves.Event(), &moves, u"A"); });
    Feed(u"A", u"00700", 1.0);
    Feed(u"B", u"00700", 2.0);
    Services().Deliver();
    EXPECT_EQ(moves.Take(), u"A 00700=1; ");
    Feed(u"B", u"00700", 3.0);
    Services().Deliver();
    EXPECT_EQ(moves.Take(), u"B 00700=3; ");
    Adapter().RemovePositionCallback(u"B", &moves);
}

TEST_F(PositionTest, WhoHearsOfWhichPositions) {
    Services().Accounts().FeedAccount(u"M");
    Services().Accounts().FeedAccount(u"A", {.MasterAccount = u"M"});
    TPositionReceiver ofA;
    TPositionReceiver ofMaster;
    TPositionReceiver ofPrices;
    Adapter().ChangePositionAccount(u"A", ofA.Event(), &ofA, u"");
    Adapter().AddAggregatePositionCallback(u"M", ofMaster.Event(), &ofMaster, nullptr);
    Adapter().AddPositionMarketDataCallback(ofPrices.Event(), &ofPrices);

    Feed(u"A", u"00700", 100.0);
    Feed(u"A", u"00700", 200.0);
    Feed(u"B", u"00700", 300.0);
    EXPECT_EQ(ofA.Take(), u"") << "before the delivery";
    Services().Deliver();
    EXPECT_EQ(ofA.Take(), u"A 00700=200; ");
    EXPECT_EQ(ofMaster.Take(), u"A 00700=200; ");
    EXPECT_EQ(ofPrices.Take(), u"");
    Services().Deliver();
    EXPECT_EQ(ofA.Take(), u"") << "nothing changed";

    Services().Positions().FeedPriceMove(u"00700");
    Services().Positions().FeedPriceMove(u"00005");
    Services().Deliver();
    EXPECT_EQ(ofPrices.Take(), u"A 00700=200; B 00700=300; ");
    EXPECT_EQ(ofA.Take(), u"");

    Feed(u"A", u"00700", 0.0);
    Adapter().ChangePositionAccount(u"B", ofA.Event(), &ofA, u"A");
    Services().Deliver();
    EXPECT_EQ(ofA.Take(), u"") << "moved to the other account";
    EXPECT_EQ(ofMaster.Take(), u"A 00700=0; ") << "the end is told of";

    EXPECT_EQ(Services().RegistrationCount(), 3);
    Adapter().ChangePositionAccount(u"", ofA.Event(), &ofA, u"B");
    Adapter().RemoveAggregatePositionCallback(u"M", &ofMaster);
    Adapter().RemovePositionMarketDataCallback(&ofPrices);
    Adapter().RemovePositionMarketDataCallback(&ofPrices);
}

TEST_F(PositionTest, FollowsTheItemsOfItsProducts) {
    TPositionReceiver ofPrices;
    Adapter().AddPositionMarketDataCallback(ofPrices.Event(), &ofPrices);
    Feed(u"A", u"00700", 100.0);
    Feed(u"B", u"00700", 200.0);
    Feed(u"B", u"00005", 400.0);
    EXPECT_EQ(Services().RegistrationCount(), 1)
        << "what the service follows itself is not counted";
    Services().Deliver();
    EXPECT_EQ(ofPrices.Take(), u"");
    SetField(u"00700", Field::BestBid, 350.0);
    SetField(u"HSIF", Field::BestBid, 20000.0);
    EXPECT_EQ(ofPrices.Take(), u"") << "before the delivery";
    Services().Deliver();
    EXPECT_EQ(ofPrices.Take(), u"A 00700=100; B 00700=200; ");
    SetField(u"HSIF", Field::BestBid, 20001.0);
    Services().Deliver();
    EXPECT_EQ(ofPrices.Take(), u"") << "not held";
    Feed(u"A", u"00700", 0.0);
    SetField(u"00700", Field::BestBid, 350.2);
    Services().Deliver();
    EXPECT_EQ(ofPrices.Take(), u"B 00700=200; ") << "closed";
    Adapter().RemovePositionMarketDataCallback(&ofPrices);
}

TEST_F(PositionTest, ClosedTodayIsListedStill) {
    TPositionFigures figures;
    figures.TodayBuyQty = figures.TodaySellQty = 100.0;
    Services().Positions().FeedPosition(u"A", u"00700", figures);
    EXPECT_EQ(Listed(u"A"), u"00700 ");
    EXPECT_NE(Adapter().GetPosition(u"A", u"00700"), nullptr);
}

// Contracts of 50 that closed at 20000 yesterday and trade at 20100.
TEST_F(PositionTest, ProfitAndLossFollowThePrice) {
    struct TCase {
        const char* Name;
        TPositionSide Side;
        Double BODQuantity, BODPrice, BuyQty, BuyAmount, SellQty, SellAmount;
        Double InitPL, RealPL, ExePL, Mixed, In, FIFN;
    };
    using enum TPositionSide;
    const TCase cases[] = {
        {"long, held", Net, 2, 19900, 0, 0, 0, 0, 20000, 0, 0, 19900, 19900, 19900},
        {"no price of its own", Net, 2, 0, 0, 0, 0, 0, 10000, 0, 0, 20000, 20000, 20000},
        {"short, held", Net, -2, 20200, 0, 0, 0, 0, 10000, 0, 0, 20200, 20200, 20200},
        {"bought more", Net, 1, 19900, 1, 20050, 0, 0, 10000, 0, 2500, 19975, 20050, 19975},
        {"sold a part", Net, 2, 19900, 0, 0, 1, 20150, 20000, 12500, 2500, 19900, 19900, 19900},
        {"bought and sold", Net, 1, 19900, 1, 20000, 1, 20200, 10000, 12500, 10000, 19950, 20000,
         20000},
        {"turned short", Net, 1, 20000, 0, 0, 2, 40400, 5000, 10000, 10000, 20200, 20200, 20200},
        {"opened and closed", Net, 0, 0, 1, 20000, 1, 20010, 0, 500, 500, 20000, 20000, 20000},
        {"long record", Long, 3, 19900, 0, 0, 1, 20000, 30000, 5000, -5000, 19900, 19900, 19900},
        {"short record", Short, 3, 20200, 1, 20050, 0, 0, 15000, 7500, 2500, 20200, 20200, 20200},
        {"short record closed", Short, 1, 20200, 1, 20100, 0, 0, 5000, 5000, 0, 20200, 20200,
         20200},
    };
    SetField(u"HSIF", Field::PreviousClose, 20000.0);
    SetField(u"HSIF", Field::LastPrice, 19000.0);
    for (const TCase& row : cases) {
        TPositionFigures figures;
        figures.Side = row.Side;
        figures.FollowsPrice = true;
        figures.BODQuantity = row.BODQuantity;
        figures.BODPrice = row.BODPrice;
        figures.TodayBuyQty = row.BuyQty;
        figures.TodayBuyAmount = row.BuyAmount;
        figures.TodaySellQty = row.SellQty;
        figures.TodaySellAmount = row.SellAmount;
        figures.Quantity = 1.0;
        Services().Positions().FeedPosition(String(1, Char(u'A' + (&row - cases))), u"HSIF",
                                            figures);
    }
    Services().Deliver();
    SetField(u"HSIF", Field::LastPrice, 20100.0);
    Services().Deliver();
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        const TCustomPositionData* position =
            Adapter().GetPosition(String(1, Char(u'A' + (&row - cases))), u"HSIF");
        ASSERT_NE(position, nullptr);
        EXPECT_EQ(position->GetTicker(), Services().Items().FindItem(u"HSIF"));
        EXPECT_EQ(position->GetNominal(), 20100.0);
        EXPECT_EQ(position->GetPClose(), 20000.0);
        EXPECT_DOUBLE_EQ(position->GetInitPL(), row.InitPL);
        EXPECT_DOUBLE_EQ(position->GetRealPL(), row.RealPL);
        EXPECT_DOUBLE_EQ(position->GetExePL(), row.ExePL);
        EXPECT_DOUBLE_EQ(position->GetAvgPriceMixed(), row.Mixed);
        EXPECT_DOUBLE_EQ(position->GetAvgPriceIn(), row.In);
        EXPECT_DOUBLE_EQ(position->GetAvgPriceFIFN(), row.FIFN);
    }
}

TEST_F(PositionTest, MarketValue) {
    Double value = -1.0;
    EXPECT_FALSE(Adapter().GetMarketValue(u"HSIF", 2.0, value)) << "no price";
    SetField(u"HSIF", Field::PreviousClose, 19000.0);
    ASSERT_TRUE(Adapter().GetMarketValue(u"HSIF", 2.0, value));
    EXPECT_EQ(value, 1900000.0) << "before the first trade, contracts of 50";
    SetField(u"HSIF", Field::LastPrice, 20000.0);
    ASSERT_TRUE(Adapter().GetMarketValue(u"HSIF", -2.0, value));
    EXPECT_EQ(value, -2000000.0);
    SetField(u"00700", Field::LastPrice, 350.0);
    ASSERT_TRUE(Adapter().GetMarketValue(u"00700", 100.0, value));
    EXPECT_EQ(value, 35000.0) << "a share has no contract size";
    EXPECT_FALSE(Adapter().GetMarketValue(u"", 1.0, value));
}

} // namespace
} // namespace quorin
