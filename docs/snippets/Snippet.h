#pragma once

#include "embedded/EmbeddedServices.h"
#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

#include <map>

namespace quorin {

// What the code of the pages stands on: the embedded services with an exchange of two symbols, two
// accounts with positions, and a host that answers every question with yes. The end checks that
// nothing stays registered.
class TSnippet : public ::testing::Test, public THost {
protected:
    TSnippet() {
        TEmbeddedMarketAdapter& market = Services.Market();
        market.AddExchange({.Code = u"SEHK", .Currency = u"HKD", .MarketStatus = MarketOpen});
        market.AddCategory({.CategoryID = 1, .Names = {.Name = u"Shares"}});
        market.AddSeries(
            {.Code = u"MAIN", .Exchange = u"SEHK", .CategoryID = 1, .Names = {.Name = u"Main"}});
        const TSpreadBand bands[] = {{0.01, 200.0, 0.1}, {200.0, 1000.0, 0.2}};
        market.AddSpreadTable(u"HK", bands);
        market.SetSpreadTablesAtOnce(true);
        AddSymbol(u"00005", u"HSBC", 400.0, 100.0);
        AddSymbol(u"00700", u"Tencent", 100.0, 350.0);

        TAccountDetails master;
        master.Name = u"Chan";
        master.Type = AccountType::Master;
        master.IsAggregate = true;
        Services.Accounts().FeedAccount(u"M1", master);
        TAccountDetails sub;
        sub.Name = u"Lee";
        sub.MasterAccount = u"M1";
        Services.Accounts().FeedAccount(u"M1-01", sub);
        Services.Currencies().SetMultiCurrency(true);
        Services.Currencies().FeedRatio(u"HKD", 1.0);
        TBalanceFigures cash;
        cash.Value991 = 50000.0;
        for (const StringView currency : {StringView(u""), StringView(u"HKD")}) {
            Services.Accounts().FeedBalance(u"M1", currency, cash);
        }
        FeedPosition(u"M1", u"00700", 300.0);
        FeedPosition(u"M1-01", u"00700", 200.0);
        Services.Deliver();
    }
    ~TSnippet() override { EXPECT_EQ(Services.RegistrationCount(), 0); }

    void Quote(StringView symbol, Double bid, Double ask, Double last) {
        TEmbeddedSubItem& item = Services.Items().Item(symbol);
        item.SetField(Field::BestBid, bid);
        item.SetField(Field::BestBidQuantity, 1000.0);
        item.SetField(Field::BestAsk, ask);
        item.SetField(Field::BestAskQuantity, 1000.0);
        item.SetField(Field::LastPrice, last);
        Services.Items().Touch(item);
    }

    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer) override { return ConfirmYes; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer, Pointer) override { return false; }

    TEmbeddedServices Services{{.Host = *this, .DataDirectory = QUORIN_DATA_DIR}};

private:
    void AddSymbol(StringView symbol, StringView name, Double lot, Double close) {
        TSymbolRecord record;
        record.Symbol = symbol;
        record.Exchange = u"SEHK";
        record.Series = u"MAIN";
        record.Names.Name = name;
        record.SpreadCode = u"HK";
        record.LotSize = lot;
        record.PreviousClose = close;
        Services.Market().AddSymbol(record);
    }
    void FeedPosition(StringView account, StringView symbol, Double quantity) {
        TPositionFigures figures;
        figures.FollowsPrice = true;
        figures.Quantity = figures.BODQuantity = quantity;
        figures.BODPrice = 340.0;
        Services.Positions().FeedPosition(account, symbol, figures);
    }
};

} // namespace quorin
