#include "tests/viewdata/MarketFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

// Receivers that do with the control what a form may do from inside a signal.
struct TReentrantTest : TMarketTest {
    void Free(TObject*) { Control.reset(); }
    void Reload(TObject*) {
        if (++Signals == 1) Control->SetExchangeAndCategory(u"HKFE", -1);
    }
};

TEST_F(TReentrantTest, SignalMayReloadTheControl) {
    for (const bool batch : {true, false}) {
        Load(u"SEHK");
        Control->SetIsBatchMode(batch);
        Show({0, 1});
        Control->SetOnDataChanged(MakeEvent<&TReentrantTest::Reload>(this));
        Tick({u"00005", u"00700"}, 3.0);
        EXPECT_TRUE(Counted(TakeSignals(), 2)); // of the first update and of the reload
        EXPECT_EQ(Control->Rows(), u"HSIF TCHC");
        EXPECT_EQ(Registered(), 0);
        Control->SetOnDataChanged(nullptr);
    }
}

TEST_F(TReentrantTest, SignalMayFreeTheControl) {
    const struct {
        const char* Name;
        void (*Raise)(TMarketTest&);
    } cases[] = {
        {"batch",
         [](TMarketTest& t) {
             t.Tick({u"00005", u"00700"}, 3.0);
         }},
        {"settings",
         [](TMarketTest& t) {
             t.SetConfig(ConfigKey::DenominatorModeValue, t.Control->IsBatchMode() ? u"1" : u"2");
         }},
        {"account", [](TMarketTest& t) { t.Control->SetAccount(u"A2"); }},
        {"move", [](TMarketTest& t) { t.Control->MoveRecord(0, 1); }},
        {"load", [](TMarketTest& t) { t.Control->SetExchangeAndCategory(u"HKFE", -1); }},
        {"tick tables", [](TMarketTest& t) { t.Control->SpreadUpdate(nullptr, nullptr); }},
        {"favourites",
         [](TMarketTest& t) { t.Control->FavoriteMarketDataCountUpdate(nullptr, nullptr); }},
        {"favourites, delivered",
         [](TMarketTest& t) {
             TEmbeddedMarketAdapter& market = t.Services().Market();
             if (!market.RemoveFavorite(u"HSIF")) market.AddFavorite(u"HSIF");
             market.Deliver();
         }},
        {"positions",
         [](TMarketTest& t) {
             t.Services().Positions().FeedPosition(u"A1", u"00005", {.Quantity = 1.0});
             t.Services().Deliver();
         }},
    };
    WithoutCallsInside("the caller would be freed");
    for (const StringView symbol : {u"00005", u"00700"}) Services().Market().AddFavorite(symbol);
    for (const auto& row : cases) {
        for (const bool batch : {true, false}) {
            SCOPED_TRACE(std::string(row.Name) + (batch ? "" : ", realtime"));
            MakeControl();
            Services().Deliver();
            Load(FavoriteExchange);
            Control->SetShowPosition(true);
            Control->SetAccount(u"A1");
            Control->SetIsBatchMode(batch);
            Show({0, 1});
            Control->SetOnDataChanged(MakeEvent<&TReentrantTest::Free>(this));
            row.Raise(*this);
            EXPECT_EQ(Control, nullptr);
            EXPECT_EQ(Services().RegistrationCount(), 0);
        }
    }
}

} // namespace
} // namespace quorin
