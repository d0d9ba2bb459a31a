#pragma once

#include "embedded/EmbeddedServices.h"
#include "embedded/kit/Drivers.h"
#include "platform/rtl/Numbers.h"

#include <vector>

namespace quorin {

// Drivers of the embedded services. A service may be handed over apart from what feeds it: a
// wrapper around an embedded one, or a descendant.

class TEmbeddedSubscribeDriver final : public TSubscribeDriver {
public:
    TEmbeddedSubscribeDriver(TEmbeddedSubscribeAdapter& feed, TCustomSubscribeAdapter& service)
        : FFeed(feed), FService(service) {}

    TCustomSubscribeAdapter& Service() override { return FService; }
    String NewKey() override { return u"KIT." + IntegerToText(++FKeys); }
    void FeedNumber(StringView key, Integer fieldNo, Double value) override {
        FFeed.Item(key).SetField(fieldNo, value);
        FFeed.Touch(FFeed.Item(key));
    }
    void FeedText(StringView key, Integer fieldNo, StringView value) override {
        FFeed.Item(key).SetField(fieldNo, value);
        FFeed.Touch(FFeed.Item(key));
    }
    void FeedNoData(StringView key) override {
        FFeed.Item(key).SetStatus(ItemStatus::NoData);
        FFeed.Touch(FFeed.Item(key));
    }
    void Deliver() override { FFeed.Deliver(); }

private:
    TEmbeddedSubscribeAdapter& FFeed;
    TCustomSubscribeAdapter& FService;
    Integer FKeys = 0;
};

class TEmbeddedMarketDriver final : public TMarketDriver {
public:
    TEmbeddedMarketDriver(TEmbeddedMarketAdapter& feed, TCustomMarketAdapter& service)
        : FFeed(feed), FService(service) {}

    // The number of its first table; for several drivers one after the other on one service.
    void FirstTable(Integer number) { FTables = number; }

    TCustomMarketAdapter& Service() override { return FService; }
    void SetMarketOpen(StringView exchange, bool isOpen) override {
        FFeed.SetMarketState(exchange, isOpen ? u"CT" : u"CL", isOpen ? MarketOpen : 0);
    }
    void SetMarketDataReady(bool isReady) override { FFeed.SetMarketDataReady(isReady); }
    String UnlistedSymbol() override { return u"KIT.UNLISTED"; }
    String NewSpreadTable(std::span<const TTickBand> bands) override {
        const String code = u"KIT." + IntegerToText(++FTables);
        std::vector<TSpreadBand> taken;
        for (const TTickBand& band : bands) taken.push_back({band.From, band.To, band.Step});
        FFeed.SetSpreadTablesAtOnce(false);
        FFeed.AddSpreadTable(code, taken);
        return code;
    }
    void Deliver() override { FFeed.Deliver(); }

private:
    TEmbeddedMarketAdapter& FFeed;
    TCustomMarketAdapter& FService;
    Integer FTables = 0;
};

class TEmbeddedConfigDriver final : public TConfigDriver {
public:
    explicit TEmbeddedConfigDriver(TEmbeddedConfigManager& service) : FService(service) {}

    TCustomConfigManager& Service() override { return FService; }
    void Set(StringView section, StringView key, StringView value) override {
        FService.Set(section, key, value);
    }
    void Deliver() override { FService.Commit(); }

private:
    TEmbeddedConfigManager& FService;
};

class TEmbeddedLanguageDriver final : public TLanguageDriver {
public:
    explicit TEmbeddedLanguageDriver(TEmbeddedLanguageManager& service) : FService(service) {}

    TCustomLanguageManager& Service() override { return FService; }
    void SetLanguage(TAppLanguage language) override { FService.SetLanguage(language); }
    void FeedText(TAppLanguage language, StringView tag, StringView key, StringView text,
                  StringView type) override {
        FService.SetText(language, tag, key, text, type);
    }
    void Deliver() override {} // a switch has told everybody when it returns

private:
    TEmbeddedLanguageManager& FService;
};

// A host without a user: only channel messages come through.
class TKitHost final : public THost {
public:
    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer defaultAnswer) override { return defaultAnswer; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer number, Pointer data) override {
        if (!Receiver) return false;
        Receiver(number, data);
        return true;
    }

    TChannelDriver::TReceiver Receiver;
};

class TEmbeddedChannelDriver final : public TChannelDriver {
public:
    TEmbeddedChannelDriver(TCustomGlobalChannelManager& service, TKitHost& host)
        : FService(service), FHost(host) {}

    TCustomGlobalChannelManager& Service() override { return FService; }
    void SetReceiver(const TReceiver& receiver) override { FHost.Receiver = receiver; }
    void Deliver() override {}

private:
    TCustomGlobalChannelManager& FService;
    TKitHost& FHost;
};

inline constexpr StringView KitAccount = u"KIT1";
inline constexpr StringView KitOtherAccount = u"KIT2";
inline constexpr StringView KitMaster = u"KIT3";
inline constexpr StringView KitSubAccount = u"KIT3-01";

// Feeds the accounts that the kit needs.
class TEmbeddedAccountDriver final : public TAccountDriver {
public:
    explicit TEmbeddedAccountDriver(TEmbeddedAccountAdapter& service) : FService(service) {
        for (const StringView account : {KitAccount, KitOtherAccount, KitMaster, KitSubAccount}) {
            FService.FeedAccount(account, Details(account));
        }
        FService.Deliver();
    }

    TCustomAccountAdapter& Service() override { return FService; }
    String Account() override { return String(KitAccount); }
    String OtherAccount() override { return String(KitOtherAccount); }
    String Master() override { return String(KitMaster); }
    String SubAccount() override { return String(KitSubAccount); }
    void Change(StringView account) override {
        TAccountDetails details = Details(account);
        details.Name = IntegerToText(++FChanges);
        FService.FeedAccount(account, details);
    }
    void SetReady(bool isReady) override { FService.SetReady(isReady); }
    bool LoadDetails(StringView) override { return false; }
    bool LoadSubAccount(StringView) override { return false; }
    void Deliver() override { FService.Deliver(); }

private:
    static TAccountDetails Details(StringView account) {
        TAccountDetails details;
        details.Type = account == KitMaster ? AccountType::Master : 0;
        if (account == KitSubAccount) details.MasterAccount = KitMaster;
        return details;
    }

    TEmbeddedAccountAdapter& FService;
    Integer FChanges = 0;
};

inline constexpr StringView KitExchange = u"KITX";
inline constexpr StringView KitSeries = u"KITX.MAIN";
inline constexpr StringView KitSymbol = u"KIT.S1";
inline constexpr StringView KitOtherSymbol = u"KIT.S2";
inline constexpr StringView KitPricelessSymbol = u"KIT.S3";

// The services that are installed find masters and prices for it.
class TEmbeddedPositionDriver final : public TPositionDriver {
public:
    TEmbeddedPositionDriver(TEmbeddedPositionAdapter& service, TEmbeddedSubscribeAdapter& items)
        : FService(service), FItems(items) {}

    TCustomPositionAdapter& Service() override { return FService; }
    String Account() override { return String(KitAccount); }
    String OtherAccount() override { return String(KitOtherAccount); }
    String Master() override { return String(KitMaster); }
    String SubAccount() override { return String(KitSubAccount); }
    String Symbol() override { return String(KitSymbol); }
    String OtherSymbol() override { return String(KitOtherSymbol); }
    void FeedPosition(StringView account, StringView symbol, Double quantity) override {
        TPositionFigures figures;
        figures.Quantity = quantity;
        FService.FeedPosition(account, symbol, figures);
    }
    void MovePrice(StringView symbol) override {
        FItems.Item(symbol).SetField(Field::LastPrice, FPrice += 0.5);
        FService.FeedPriceMove(symbol);
    }
    String SymbolWithoutPrice() override { return String(KitPricelessSymbol); }
    void Deliver() override { FService.Deliver(); }

private:
    TEmbeddedPositionAdapter& FService;
    TEmbeddedSubscribeAdapter& FItems;
    Double FPrice = 100.0;
};

class TEmbeddedCurrencyDriver final : public TCurrencyDriver {
public:
    explicit TEmbeddedCurrencyDriver(TEmbeddedCurrencyAdapter& service) : FService(service) {}

    TCustomCurrencyAdapter& Service() override { return FService; }
    String NewCurrency() override { return u"KIT" + IntegerToText(++FCurrencies); }
    void FeedRatio(StringView currency, Double ratio) override {
        FService.FeedRatio(currency, ratio);
    }
    void SetMultiCurrency(bool isOn) override { FService.SetMultiCurrency(isOn); }
    void Deliver() override { FService.Deliver(); }

private:
    TEmbeddedCurrencyAdapter& FService;
    Integer FCurrencies = 0;
};

class TEmbeddedProductDriver final : public TProductDriver {
public:
    explicit TEmbeddedProductDriver(TEmbeddedProductAdapter& service) : FService(service) {}

    TCustomProductAdapter& Service() override { return FService; }
    String Symbol() override { return String(KitSymbol); }
    String Account() override { return String(KitAccount); }
    void FeedRatio(StringView symbol, StringView account, Double ratio) override {
        FService.FeedProduct(symbol, account).SetMarginRatio(ratio);
    }
    void ClearRatio(StringView symbol, StringView account) override {
        FService.FeedProduct(symbol, account).ClearMarginRatio();
    }
    void Deliver() override { FService.Deliver(); }

private:
    TEmbeddedProductAdapter& FService;
};

class TEmbeddedOrderDriver final : public TOrderDriver {
public:
    TEmbeddedOrderDriver(TCustomOrderAdapter& orders, TCustomOrderActionManager& actions,
                         TEmbeddedLoginCtrl& login)
        : FOrders(orders), FActions(actions), FLogin(login) {}

    TCustomOrderAdapter& Orders() override { return FOrders; }
    TCustomOrderActionManager& Actions() override { return FActions; }
    TCustomLoginCtrl& Login() override { return FLogin; }
    void SetLogin(bool isLoggedIn) override { FLogin.SetLogin(isLoggedIn); }
    String Account() override { return String(KitAccount); }
    String Symbol() override { return String(KitSymbol); }
    Double Quantity() override { return 100.0; }
    Double Price() override { return 100.0; }

private:
    TCustomOrderAdapter& FOrders;
    TCustomOrderActionManager& FActions;
    TEmbeddedLoginCtrl& FLogin;
};

class TEmbeddedFormatterDriver final : public TFormatterDriver {
public:
    TEmbeddedFormatterDriver(TCustomFormatter& formatter, TCustomMarketDataFormatter& market,
                             TEmbeddedSubscribeAdapter& items)
        : FFormatter(formatter), FMarketFormatter(market), FItems(items) {}

    TCustomFormatter& Formatter() override { return FFormatter; }
    TCustomMarketDataFormatter& MarketFormatter() override { return FMarketFormatter; }
    String SymbolWithPrices(Double lastPrice, Double previousClose) override {
        FItems.Item(KitSymbol).SetField(Field::LastPrice, lastPrice);
        FItems.Item(KitSymbol).SetField(Field::PreviousClose, previousClose);
        FItems.Touch(FItems.Item(KitSymbol));
        FItems.Deliver();
        return String(KitSymbol);
    }
    String SymbolWithoutPrice() override { return String(KitPricelessSymbol); }

private:
    TCustomFormatter& FFormatter;
    TCustomMarketDataFormatter& FMarketFormatter;
    TEmbeddedSubscribeAdapter& FItems;
};

// An exchange with one series of three symbols, two of which the drivers give prices.
inline bool FeedKitUniverse(TEmbeddedMarketAdapter& market) {
    bool isFed = market.AddExchange(
        {.Code = KitExchange, .Currency = u"HKD", .MarketState = {}, .MarketStatus = MarketOpen});
    isFed &= market.AddCategory({.CategoryID = 1, .Names = {.Name = u"Shares"}});
    isFed &= market.AddSeries(
        {.Code = KitSeries, .Exchange = KitExchange, .CategoryID = 1, .Names = {.Name = u"Main"}});
    for (const StringView symbol : {KitSymbol, KitOtherSymbol, KitPricelessSymbol}) {
        TSymbolRecord record;
        record.Symbol = symbol;
        record.Exchange = KitExchange;
        record.Series = KitSeries;
        record.Names.Name = u"Kit";
        isFed &= market.AddSymbol(record) != nullptr;
    }
    return isFed;
}

} // namespace quorin
