#include "docs/snippets/Snippet.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/market/MarketTradeSideDetector.h"

namespace quorin {

TEST_F(TSnippet, Watch) {
    // [watch]
    const auto watch = CreateComponent<TCustomMarketDataControl>();
    watch->SetExchangeAndCategory(u"SEHK", -1); // every category; the rows are there at once
    const Integer onScreen[] = {0, 1};
    watch->ViewRecordChanged(onScreen); // these rows are subscribed, no others

    Quote(u"00700", 350.2, 350.4, 350.2);
    Services.Deliver();
    const String last = watch->GetDisplayValue(1, MarketAttribute::LastPrice);
    // [/watch]
    EXPECT_EQ(watch->GetSymbol(1), u"00700");
    EXPECT_EQ(last, u"350.2");
}

// [custom]
class TLotWatch : public TCustomMarketDataControl {
    QUORIN_CLASS(TLotWatch, TCustomMarketDataControl)

    explicit TLotWatch(TComponent* AOwner = nullptr) : TCustomMarketDataControl(AOwner) {
        FCustomColumnTagID = u"LotColumns"; // the table of the language manager
    }
};
// [/custom]

TEST_F(TSnippet, Custom) {
    // [custom-use]
    const Integer lotSize = FirstCustomColumn + Field::LotSize;
    Services.Language().SetText(TAppLanguage::English, u"LotColumns", u"24", u"Lot", u"qty");

    const auto watch = CreateComponent<TLotWatch>();
    watch->SetExchangeAndCategory(u"SEHK", -1);
    const String lot = watch->GetDisplayValue(0, lotSize);
    // [/custom-use]
    EXPECT_EQ(lot, u"400");
}

TEST_F(TSnippet, Sides) {
    // [sides]
    const auto detector = CreateComponent<TMarketTradeSideDetector>();
    detector->AddSymbol(u"00700");

    TEmbeddedSubItem& item = Services.Items().Item(u"00700");
    const auto trade = [&](StringView line) {
        item.SetField(Field::NewestTrade, line);
        Services.Items().Touch(item);
        Services.Deliver();
    };
    Quote(u"00700", 350.2, 350.4, 350.2);
    trade(u"09:30:00 100 350.2"); // the first update has no quote before it
    trade(u"09:30:01 200 350.4");
    const TSymbolMarketTrade& trades = *detector->GetSymbolMarketTrade(u"00700");
    const TMarketDataTrade* newest = trades.GetTrade(trades.Count() - 1);
    // [/sides]
    ASSERT_NE(newest, nullptr);
    EXPECT_EQ(newest->Side(), u"A");
}

} // namespace quorin
