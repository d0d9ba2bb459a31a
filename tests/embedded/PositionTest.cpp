#include "embedded/PositionService.h"

#include "tests/support/ServicesFixture.h"
#include "viewdata/services/FieldNumbers.h"

#include <utility>

namespace quorin {
namespace {

// Writes down the positions it hears of, "ACC 00700=100; ".
class TPositionReceiver : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TPositionReceiver::Called>(this); }
    String Take() { return std::exchange(FHeard, String()); }

private:
    void Called(Pointer Sender, Pointer) {
        for (const auto& account : *static_cast<TAccountPositionDictionary*>(Sender)) {
            for (const auto& position : *account.Value) {
                FHeard += account.Key + u" " + position.Key + u"=" +
                          Variant(position.Value->GetQuantity()).ToText() + u"; ";
            }
        }
    }

    String FHeard;
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
