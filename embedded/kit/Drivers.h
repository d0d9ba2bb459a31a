#pragma once

#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/GlobalChannelManager.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/MarketDataFormatter.h"
#include "viewdata/services/OrderActionManager.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/ProductAdapter.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <functional>
#include <span>

// What the kit needs besides a service itself: a hand on the other end of it, where data come from.
// Whoever checks services of his own writes one driver for each of them. What a driver feeds counts
// at once or with the next Deliver, as the service likes; each operation does what it says whatever
// was fed before. Codes that a driver hands out stay the same from call to call.

namespace quorin {

class TServiceDriver {
public:
    TServiceDriver() = default;
    TServiceDriver(const TServiceDriver&) = delete;
    TServiceDriver& operator=(const TServiceDriver&) = delete;
    virtual ~TServiceDriver() = default;

    // Makes the service tell of all that was fed since the last call, in one delivery, and returns
    // when the callbacks have returned. May be called inside a callback.
    virtual void Deliver() = 0;
};

class TSubscribeDriver : public TServiceDriver {
public:
    virtual TCustomSubscribeAdapter& Service() = 0;
    // Another code with each call, one that nobody has asked for and that can be fed.
    virtual String NewKey() = 0;
    // A field of the key has a new value.
    virtual void FeedNumber(StringView key, Integer fieldNo, Double value) = 0;
    virtual void FeedText(StringView key, Integer fieldNo, StringView value) = 0;
    // The feed answers that there is nothing under the key.
    virtual void FeedNoData(StringView key) = 0;
};

// One band of a tick table, lowest first, each beginning where the one before ends.
struct TTickBand {
    Double From;
    Double To;
    Double Step;
};

// The universe of the service must have at least one exchange with a series with a symbol.
class TMarketDriver : public TServiceDriver {
public:
    virtual TCustomMarketAdapter& Service() = 0;
    virtual void SetMarketOpen(StringView exchange, bool isOpen) = 0;
    virtual void SetMarketDataReady(bool isReady) = 0;
    // A code that can be a favourite while the universe has no record of it.
    virtual String UnlistedSymbol() = 0;
    // Another code with each call: that of a table of these bands that the service has not loaded.
    // Once somebody has asked for it, it comes with the next Deliver.
    virtual String NewSpreadTable(std::span<const TTickBand> bands) = 0;
};

class TConfigDriver : public TServiceDriver {
public:
    virtual TCustomConfigManager& Service() = 0;
    // An empty value takes the setting away.
    virtual void Set(StringView section, StringView key, StringView value) = 0;
};

class TLanguageDriver : public TServiceDriver {
public:
    virtual TCustomLanguageManager& Service() = 0;
    virtual void SetLanguage(TAppLanguage language) = 0;
    // An entry with its text in one language; `type` is its attribute of that name.
    virtual void FeedText(TAppLanguage language, StringView tag, StringView key, StringView text,
                          StringView type) = 0;
};

class TChannelDriver : public TServiceDriver {
public:
    using TReceiver = std::function<void(Integer number, Pointer data)>;

    virtual TCustomGlobalChannelManager& Service() = 0;
    // Who gets the channel messages from here on; empty for nobody.
    virtual void SetReceiver(const TReceiver& receiver) = 0;
};

class TAccountDriver : public TServiceDriver {
public:
    virtual TCustomAccountAdapter& Service() = 0;
    // Codes of known accounts: two that have nothing to do with each other, and a master with one
    // of its sub-accounts.
    virtual String Account() = 0;
    virtual String OtherAccount() = 0;
    virtual String Master() = 0;
    virtual String SubAccount() = 0;
    // Something about the account is other than before.
    virtual void Change(StringView account) = 0;
    virtual void SetReady(bool isReady) = 0;
    // Details of the account, or sub-accounts, have been loaded; False where the service never
    // loads any later.
    virtual bool LoadDetails(StringView account) = 0;
    virtual bool LoadSubAccount(StringView account) = 0;
};

class TPositionDriver : public TServiceDriver {
public:
    virtual TCustomPositionAdapter& Service() = 0;
    // As in TAccountDriver; none has a position of its own in the two symbols.
    virtual String Account() = 0;
    virtual String OtherAccount() = 0;
    virtual String Master() = 0;
    virtual String SubAccount() = 0;
    virtual String Symbol() = 0;
    virtual String OtherSymbol() = 0;
    // Opens, changes or, with 0.0, closes the position.
    virtual void FeedPosition(StringView account, StringView symbol, Double quantity) = 0;
    // A price that values the positions in the symbol is other than before.
    virtual void MovePrice(StringView symbol) = 0;
    // A symbol that has no price at all.
    virtual String SymbolWithoutPrice() = 0;
};

class TCurrencyDriver : public TServiceDriver {
public:
    virtual TCustomCurrencyAdapter& Service() = 0;
    // Another code with each call, one that is not in the list of currencies.
    virtual String NewCurrency() = 0;
    // Puts the currency into the list, if it is not there, with this worth in the base currency.
    virtual void FeedRatio(StringView currency, Double ratio) = 0;
    virtual void SetMultiCurrency(bool isOn) = 0;
};

class TProductDriver : public TServiceDriver {
public:
    virtual TCustomProductAdapter& Service() = 0;
    // A product and an account of which nothing particular is known until it is fed.
    virtual String Symbol() = 0;
    virtual String Account() = 0;
    virtual void FeedRatio(StringView symbol, StringView account, Double ratio) = 0;
    // The ratio counts no more.
    virtual void ClearRatio(StringView symbol, StringView account) = 0;
};

class TOrderDriver {
public:
    TOrderDriver() = default;
    TOrderDriver(const TOrderDriver&) = delete;
    TOrderDriver& operator=(const TOrderDriver&) = delete;
    virtual ~TOrderDriver() = default;

    virtual TCustomOrderAdapter& Orders() = 0;
    virtual TCustomOrderActionManager& Actions() = 0;
    virtual TCustomLoginCtrl& Login() = 0;
    virtual void SetLogin(bool isLoggedIn) = 0;
    // An account that may trade, and a symbol, a quantity and a price that it may order at.
    virtual String Account() = 0;
    virtual String Symbol() = 0;
    virtual Double Quantity() = 0;
    virtual Double Price() = 0;
};

class TFormatterDriver {
public:
    TFormatterDriver() = default;
    TFormatterDriver(const TFormatterDriver&) = delete;
    TFormatterDriver& operator=(const TFormatterDriver&) = delete;
    virtual ~TFormatterDriver() = default;

    virtual TCustomFormatter& Formatter() = 0;
    virtual TCustomMarketDataFormatter& MarketFormatter() = 0;
    // A symbol whose live item has this last price and previous close, and nothing else that the
    // kit reads.
    virtual String SymbolWithPrices(Double lastPrice, Double previousClose) = 0;
    // A symbol without any price.
    virtual String SymbolWithoutPrice() = 0;
};

} // namespace quorin
