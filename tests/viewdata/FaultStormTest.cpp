#include "tests/viewdata/MarketFixture.h"
#include "tests/viewdata/PositionViewFixture.h"
#include "viewdata/market/MarketAttributes.h"

#include <algorithm>
#include <random>

namespace quorin {
namespace {

class TPositionWatch : public TOpenRows<TCustomPositionDataControl> {
    QUORIN_CLASS(TPositionWatch, TOpenRows<TCustomPositionDataControl>)
    using Inherited::Inherited;

    TList<String> SortedRows() const {
        TList<String> rows = FDataList;
        rows.Sort([](const String& left, const String& right) { return left < right; });
        return rows;
    }
};

// A market watch and a position list on one screen, and a user who does everything at random.
struct TFaultStormTest : TMarketTest {
    TFaultStormTest() {
        if (!FaultsOn()) {
            Control.reset();
            Own = std::make_unique<TFaultInjection>(Services(), /*seed=*/1);
            MakeControl();
        }
        MakePositions();
    }
    ~TFaultStormTest() override {
        Positions.reset();
        Control.reset();
    }
    void MakePositions() {
        Positions = CreateComponent<TPositionWatch>();
        Positions->SetOnDataChanged(MakeEvent<&TFaultStormTest::PositionsChanged>(this));
    }
    void PositionsChanged(TObject*) { Positions->CheckInvariants(); }

    Integer Pick(Integer count) {
        return static_cast<Integer>(Random() % static_cast<unsigned>(count));
    }
    StringView PickSymbol() {
        static constexpr StringView symbols[] = {u"00005", u"00700", u"HSIF",
                                                 u"TCHC",  u"Z12",   u"GHOST"};
        return symbols[Pick(std::size(symbols))];
    }
    StringView PickAccount() {
        static constexpr StringView accounts[] = {u"A1", u"A2", u"NOBODY", u""};
        return accounts[Pick(std::size(accounts))];
    }
    void LoadAny() {
        static constexpr StringView exchanges[] = {u"SEHK", u"HKFE", u"QEX", FavoriteExchange, u""};
        Control->SetExchangeAndCategory(exchanges[Pick(std::size(exchanges))], Pick(4) - 1);
    }
    void ShowAny() {
        std::vector<Integer> rows;
        for (Integer count = Pick(4); count > 0; --count) rows.push_back(Pick(6) - 1);
        Control->SetIsBatchMode(Pick(2) == 0);
        Control->ViewRecordChanged(rows);
    }
    void ReadAll() {
        for (Integer row = -1; row <= Control->GetCount(); ++row) {
            for (const Integer column : {0, 3, 4, 5, 21, 28, 48, 141, 470, 604}) {
                Control->GetValue(row, column);
                Control->GetDisplayValue(row, column);
            }
            Control->GetProductInfo(row);
        }
        for (Integer row = -1; row <= Positions->GetCount(); ++row) {
            for (Integer column = 0; column < 60; ++column) Positions->GetDisplayValue(row, column);
        }
    }
    void OrderAny() {
        const Integer row = Pick(4);
        Control->BuyMarketOrder(row);
        Control->SellLastOrder(row);
        Control->CopyPrice(row, MarketAttribute::LastPrice);
        if (Positions->GetCount() == 0) return;
        Positions->CopyOrder(row);
        Positions->CloseToMarket(row);
        if (Pick(4) == 0) Positions->CloseAllPositions();
    }
    void Step() {
        switch (Pick(14)) {
        case 0: return LoadAny();
        case 1: return ShowAny();
        case 2: return Tick({PickSymbol(), PickSymbol()}, 10.0 + Pick(5));
        case 3: return Control->SetAccount(PickAccount());
        case 4: return Positions->SetAccount(PickAccount());
        case 5:
        case 6:
            Services().Positions().FeedPosition(Pick(2) == 0 ? u"A1" : u"A2", PickSymbol(),
                                                {.Quantity = 100.0 * (Pick(4) - 1)});
            return;
        case 7:
            Control->AddToFavorite(Pick(4));
            Control->RemoveFavoritePrice(Pick(4));
            return;
        case 8: return Control->MoveRecord(Pick(4), Pick(4));
        case 9: return ReadAll();
        case 10:
            SetConfig(ConfigKey::DenominatorModeValue, Pick(2) == 0 ? u"1" : u"2");
            return SetConfig(ConfigKey::ConfirmationPlaceOrd, Pick(2) == 0 ? u"Y" : u"");
        case 11: return OrderAny();
        case 12: return Control->SetShowPosition(Pick(2) == 0);
        default: return Services().Deliver();
        }
    }
    // Every row is there that should be, and no other.
    void CheckEnd() {
        Services().Deliver();
        Control->CheckInvariants();
        Positions->CheckInvariants();
        TPositionDictionary held;
        Services().Positions().GetPositionList(Positions->Account(), held);
        TList<String> open;
        for (const auto& [symbol, record] : held) {
            if (record->GetQuantity() != 0.0) open.Add(symbol);
        }
        open.Sort([](const String& left, const String& right) { return left < right; });
        EXPECT_EQ(Positions->SortedRows(), open);
    }

    std::unique_ptr<TFaultInjection> Own;
    std::unique_ptr<TPositionWatch> Positions;
    std::mt19937 Random;
};

TEST_F(TFaultStormTest, EveryRandomSessionEndsWithTheRightRows) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE("session " + std::to_string(seed));
        Random.seed(seed);
        for (Integer step = 0; step < 150; ++step) Step();
        CheckEnd();
        if (HasFailure()) return;
        MakeControl();
        MakePositions();
    }
}

} // namespace
} // namespace quorin
