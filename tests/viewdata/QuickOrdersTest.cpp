#include "tests/viewdata/MarketFixture.h"
#include "tests/viewdata/OrderTrace.h"
#include "viewdata/services/ChannelMessages.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

class TOrderWatch : public TWatch {
    QUORIN_CLASS(TOrderWatch, TWatch)

    explicit TOrderWatch(TComponent* owner = nullptr) : TWatch(owner) { GroupID = u"GROUP"; }
};

// A market watch over 00005 and 00700 of account A1; 00700 is quoted 9 to 11, last 10.
struct TQuickOrdersTest : TMarketTest, TOrderTrace {
    TQuickOrdersTest() : TOrderTrace(Host()) {
        SetField(u"00700", Field::BestBid, 9.0);
        SetField(u"00700", Field::BestAsk, 11.0);
        SetField(u"00700", Field::LastPrice, 10.0);
        MakeWatch();
    }
    ~TQuickOrdersTest() override { Control.reset(); }

    void MakeWatch(StringView account = u"A1") {
        Control.reset();
        Control = CreateComponent<TOrderWatch>();
        Control->SetAccount(account);
        Load(u"SEHK");
    }
    void Confirm(bool on) { SetConfig(ConfigKey::ConfirmationPlaceOrd, on ? u"1" : u"0"); }
    String FavoritesNow() {
        String text;
        const TEmbeddedMarketAdapter& market = Services().Market();
        for (Integer index = 0; index < market.GetFavoriteCount(); ++index) {
            text += (text.empty() ? u"" : u" ") + market.GetFavoriteSymbol(index);
        }
        return text;
    }
};

constexpr Integer Tencent = 1; // the row

using TOrder = Boolean (TCustomMarketDataControl::*)(Integer);
using C = TCustomMarketDataControl;
constexpr struct {
    const char* Name;
    TOrder Order;
    StringView Filled; // behind symbol and account
} QuickOrders[] = {
    {"buy at the market", &C::BuyMarketOrder, u"price 0|buy|flags 5|"},
    {"sell at the market", &C::SellMarketOrder, u"price 0|sell|flags 5|"},
    {"buy at last", &C::BuyLastOrder, u"buy|price 10|"},
    {"sell at last", &C::SellLastOrder, u"sell|price 10|"},
    {"buy at the best ask", &C::BuyBestAskOrder, u"buy|price 11|"},
    {"sell at the best bid", &C::SellBestBidOrder, u"sell|price 9|"},
};

TEST_F(TQuickOrdersTest, OneLotGoesOutAtOnce) {
    for (const auto& row : QuickOrders) {
        for (const bool answer : {true, false}) {
            Actions.Answer = answer;
            EXPECT_EQ((Control.get()->*row.Order)(Tencent), answer) << row.Name;
            EXPECT_EQ(TakeLog(), u"clear|symbol 00700|account A1|" + String(row.Filled) +
                                     u"quantity 100|take\n")
                << row.Name;
        }
    }
    Actions.Answer = true;
    constexpr struct {
        const char* Name;
        Double Lot;
        StringView Quantity;
    } lots[] = {{"none", 0.0, u"1"},
                {"below 1", 0.5, u"1"},
                {"negative", -100.0, u"1"},
                {"fraction", 1.5, u"1.5"},
                {"large", 4e9, u"4000000000"}};
    for (const auto& lot : lots) {
        SetField(u"00700", Field::LotSize, lot.Lot);
        for (const auto& row : QuickOrders) {
            EXPECT_TRUE((Control.get()->*row.Order)(Tencent)) << lot.Name;
            EXPECT_TRUE(TakeLog().ends_with(u"|quantity " + String(lot.Quantity) + u"|take\n"))
                << lot.Name << ", " << row.Name;
        }
    }
    Load(u"HKFE"); // without a lot size, and without a trade
    EXPECT_TRUE(Control->SellLastOrder(0));
    EXPECT_EQ(TakeLog(), u"clear|symbol HSIF|account A1|sell|price 0|quantity 1|take\n");
}

TEST_F(TQuickOrdersTest, ConfirmationSuppliesTheQuantity) {
    Confirm(true);
    for (const auto& row : QuickOrders) {
        for (const bool answer : {true, false}) {
            InMessage = [&](Integer number, Pointer data) {
                EXPECT_EQ(number, ChannelMessage::TakeOrderAction);
                auto& record = *static_cast<TOrderTakeActionRecord*>(data);
                const auto* order = ObjectAs<TLoggedOrder>(record.Order);
                ASSERT_NE(order, nullptr);
                EXPECT_EQ(order->GetQuantity(), 0.0);
                EXPECT_EQ(record.Action, 1);
                EXPECT_EQ(record.Source, 501);
                EXPECT_EQ(record.Message, u"");
                EXPECT_FALSE(record.Result);
                record.Result = answer;
            };
            EXPECT_EQ((Control.get()->*row.Order)(Tencent), answer) << row.Name;
            EXPECT_EQ(TakeLog(),
                      u"clear|symbol 00700|account A1|" + String(row.Filled) + u"message 18011\n")
                << row.Name;
        }
    }
    InMessage = nullptr;
    IsHandled = false;
    EXPECT_FALSE(Control->BuyLastOrder(Tencent)) << "nobody confirms";
    MakeWatch();
    EXPECT_FALSE(Control->BuyLastOrder(Tencent)) << "the setting counts from the start";
    TakeLog();
    Confirm(false);
    EXPECT_TRUE(Control->BuyLastOrder(Tencent));
    EXPECT_TRUE(TakeLog().ends_with(u"take\n"));
}

TEST_F(TQuickOrdersTest, ChecksThatStopAnOrder) {
    const std::pair<const char*, std::function<void()>> checks[] = {
        {"not logged in", [this] { Services().Login().SetLogin(false); }},
        {"no account", [this] { MakeWatch({}); }},
        {"no order service",
         [this] {
             ServiceRegistry::Remove<TCustomOrderAdapter>();
             MakeWatch();
         }},
    };
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const auto& order : QuickOrders) {
            for (const Integer row : {-1, 2, 2147483647}) {
                EXPECT_FALSE((Control.get()->*order.Order)(row)) << order.Name << ' ' << row;
            }
        }
        for (const auto& [name, stop] : checks) {
            stop();
            for (const auto& order : QuickOrders) {
                EXPECT_FALSE((Control.get()->*order.Order)(Tencent)) << name << ", " << order.Name;
            }
            EXPECT_EQ(TakeLog(), u"") << name;
            Services().Login().SetLogin(true);
            ServiceRegistry::Install(&Orders);
            MakeWatch();
        }
    }
    ServiceRegistry::Remove<TCustomOrderActionManager>();
    Confirm(false);
    EXPECT_FALSE(Control->BuyMarketOrder(Tencent)) << "no action manager";
}

// Every field holds its own number, so that the copied value names the field it came from.
TEST_F(TQuickOrdersTest, CopyPriceByColumn) {
    constexpr Integer end = 3300;
    for (Integer field = 1; field < end; ++field) {
        if (field != Field::SpreadCode) SetField(u"00700", field, Double(field));
    }
    constexpr struct {
        const char* What; // nil for nothing
        Integer First, Last, Shift;
    } runs[] = {
        {"price", 1, 3, 0},          {"price", 27, 27, 0},         {"price", 31, 32, 0},
        {"price", 37, 37, 0},        {"price", 81, 84, 0},         {"price", 91, 94, 0},
        {"price", 133, 133, 0},      {"price", 3180, 3184, 0},     {"price", 3190, 3194, 0},
        {"quantity", 16, 16, 0},     {"quantity", 19, 19, 0},      {"quantity", 51, 54, 0},
        {"quantity", 61, 64, 0},     {"quantity", 55, 55, -39},    {"quantity", 56, 59, -5},
        {"quantity", 65, 65, -46},   {"quantity", 66, 69, -5},     {"quantity", 3155, 3159, 0},
        {"quantity", 3165, 3169, 0}, {"quantity", 3136, 3140, 19}, {"quantity", 3146, 3150, 19},
    };
    InMessage = [](Integer number, Pointer data) {
        EXPECT_EQ(number, ChannelMessage::CopyPrice);
        const auto& record = *static_cast<TCopyOrderRecord*>(data);
        EXPECT_NE(ObjectAs<TLoggedOrder>(record.Order), nullptr);
        EXPECT_EQ(record.Source, 501);
        EXPECT_EQ(record.GroupID, u"GROUP");
    };
    Services().Login().SetLogin(false); // nothing is sent, so nobody need be logged in
    MakeWatch({});
    for (Integer attribute = -1; attribute < end; ++attribute) {
        String copied;
        for (const auto& run : runs) {
            if (attribute < run.First || attribute > run.Last) continue;
            copied += FromUtf8(run.What) + u' ' + Variant(attribute + run.Shift).ToText() + u'|';
        }
        for (const bool confirm : {false, true}) {
            if (confirm && attribute > 3) break;
            Confirm(confirm);
            Control->CopyPrice(Tencent, attribute);
            EXPECT_EQ(TakeLog(), u"clear|symbol 00700|" + copied + u"message 18016\n") << attribute;
        }
    }
    for (const Integer row : {-1, 2, 2147483647}) Control->CopyPrice(row, 3);
    ServiceRegistry::Remove<TCustomOrderAdapter>();
    MakeWatch();
    Control->CopyPrice(Tencent, 3);
    EXPECT_EQ(TakeLog(), u"");
    ServiceRegistry::Install(&Orders);
}

TEST_F(TQuickOrdersTest, NoSecondActionWhileOneWaits) {
    const auto tryAll = [this] {
        const String before = Log;
        for (const auto& row : QuickOrders) EXPECT_FALSE((Control.get()->*row.Order)(Tencent));
        Control->CopyPrice(Tencent, 3);
        EXPECT_EQ(Log, before) << "the order that waits is left alone";
        Control->SetExchangeAndCategory(u"HKFE", -1); // whatever the user looks at meanwhile
        Load(u"SEHK");
    };
    Actions.InTake = tryAll;
    InMessage = [&](Integer number, Pointer data) {
        tryAll();
        if (number == ChannelMessage::CopyPrice) return;
        static_cast<TOrderTakeActionRecord*>(data)->Result = true;
    };
    for (const bool confirm : {false, true}) {
        Confirm(confirm);
        for (const auto& row : QuickOrders) {
            EXPECT_TRUE((Control.get()->*row.Order)(Tencent)) << row.Name;
            Control->CopyPrice(Tencent, 3);
            const String log = TakeLog();
            EXPECT_TRUE(log.ends_with(u"price 10|message 18016\n")) << ToUtf8(log);
        }
    }
}

TEST_F(TQuickOrdersTest, Favourites) {
    for (const Integer row : {-1, 2}) {
        EXPECT_FALSE(Control->AddToFavorite(row));
        EXPECT_FALSE(Control->RemoveFavoritePrice(row));
    }
    EXPECT_FALSE(Control->ClearAllFavoritePrice()) << "none to clear";
    EXPECT_TRUE(Control->AddToFavorite(Tencent));
    EXPECT_FALSE(Control->AddToFavorite(Tencent)) << "the adapter's answer";
    EXPECT_TRUE(Control->AddToFavorite(0));
    EXPECT_EQ(FavoritesNow(), u"00700 00005");
    EXPECT_TRUE(Control->RemoveFavoritePrice(Tencent));
    EXPECT_FALSE(Control->RemoveFavoritePrice(Tencent)) << "no favourite any more";
    EXPECT_EQ(FavoritesNow(), u"00005");

    LoadFavorites({u"00700", u"HSIF"});
    EXPECT_TRUE(Control->RemoveFavoritePrice(1));
    EXPECT_EQ(FavoritesNow(), u"00005 HSIF") << "by the row's symbol";
    if (!FaultsOn()) {
        EXPECT_EQ(Control->Rows(), u"00005 00700 HSIF") << "the list follows";
    }
    Services().Deliver();
    EXPECT_EQ(Control->Rows(), u"00005 HSIF");
    EXPECT_TRUE(Control->ClearAllFavoritePrice());
    EXPECT_EQ(FavoritesNow(), u"") << "the last one too";
    Services().Deliver();
    EXPECT_EQ(Control->Rows(), u"");

    InMessage = [](Integer, Pointer data) { EXPECT_EQ(data, nullptr); };
    for (const bool handled : {true, false}) {
        IsHandled = handled;
        EXPECT_TRUE(Control->AddFavoritePrice());
        EXPECT_EQ(TakeLog(), u"message 18020\n");
    }
}

} // namespace
} // namespace quorin
