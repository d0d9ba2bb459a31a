#pragma once

#include "embedded/AccountFiles.h"
#include "embedded/AccountLedger.h"
#include "embedded/AccountService.h"
#include "embedded/ChannelService.h"
#include "embedded/ConfigService.h"
#include "embedded/CurrencyService.h"
#include "embedded/FormatterService.h"
#include "embedded/LanguageService.h"
#include "embedded/LibraryLoader.h"
#include "embedded/LogService.h"
#include "embedded/MarginFeed.h"
#include "embedded/MarketFormatterService.h"
#include "embedded/MarketService.h"
#include "embedded/MessageBoxService.h"
#include "embedded/OrderService.h"
#include "embedded/PositionService.h"
#include "embedded/ProductService.h"
#include "embedded/SeriesComparer.h"
#include "embedded/SubscribeService.h"

namespace quorin {

// States that a program may be in; everything is there and on without them.
struct TServiceSwitches {
    bool LoggedOut = false;
    Integer AccountsReadyAfter = 0; // deliveries
    bool LateAccountDetails = false;
    bool SingleCurrency = false; // accounts have their total record only
    bool NoChinaConnect = false;
};

struct TEmbeddedOptions {
    THost& Host;                              // must outlive the services
    std::filesystem::path DataDirectory = {}; // with the folder "language"; empty for no texts
    std::filesystem::path SettingsPath = {};  // empty for no stored settings
    TAppLanguage Language = TAppLanguage::English;
    TServiceSwitches Switches = {};
};

// One of every service, in memory, and installed for as long as this object lives; there may be
// one such object at a time. The host feeds them through their own operations and calls Deliver
// once it has brought everything of one moment.
class TEmbeddedServices {
public:
    // Throws EDataError when a data file that the options name is missing or damaged; nothing is
    // installed then.
    explicit TEmbeddedServices(const TEmbeddedOptions& options);
    ~TEmbeddedServices();
    TEmbeddedServices(const TEmbeddedServices&) = delete;
    TEmbeddedServices& operator=(const TEmbeddedServices&) = delete;

    TEmbeddedConfigManager& Config() { return FConfig; }
    TEmbeddedLanguageManager& Language() { return FLanguage; }
    TEmbeddedGlobalChannelManager& Channels() { return FChannels; }
    TEmbeddedLogFile& Log() { return FLog; }
    TEmbeddedLibraryLoader& Libraries() { return FLibraries; }
    TEmbeddedSubscribeAdapter& Items() { return FItems; }
    TEmbeddedMarketAdapter& Market() { return FMarket; }
    // The orders and their audit list.
    TOrderDesk& Desk() { return FDesk; }
    TEmbeddedOrderActionManager& Orders() { return FOrders; }
    TEmbeddedLoginCtrl& Login() { return FLogin; }
    TEmbeddedAccountAdapter& Accounts() { return FAccounts; }
    TEmbeddedPositionAdapter& Positions() { return FPositions; }
    TEmbeddedCurrencyAdapter& Currencies() { return FCurrencies; }
    TEmbeddedProductAdapter& Products() { return FProducts; }
    TEmbeddedFeatureSwitches& Features() { return FFeatures; }
    TMarginFeed& Margins() { return FMargins; }

    // Loads accounts, positions, currencies, margins and China Connect from the files of a folder,
    // see TAccountFiles; symbols are checked if there is a universe. Raises EDataError at the first
    // fault, and then nothing of it is loaded.
    void LoadAccounts(const std::filesystem::path& folder);

    // Books what was traded, then delivers all that waits in any service: settings first, then
    // the standing data and quotes, then accounts and positions, valued at these quotes, and orders
    // last.
    void Deliver();
    // What others have registered in all services together.
    Integer RegistrationCount() const { return CountAll() - FOwnRegistrations; }

private:
    void Install();
    void FeedAccounts(const TAccountFiles& files);
    void FeedChinaConnect(const TAccountFiles& files);
    Integer CountAll() const;

    const TServiceSwitches FSwitches;

    TEmbeddedConfigManager FConfig;
    TEmbeddedLanguageManager FLanguage;
    TEmbeddedGlobalChannelManager FChannels;
    TEmbeddedMessageBoxCtrl FMessageBox;
    TEmbeddedLogFile FLog;
    TEmbeddedLibraryLoader FLibraries;
    TEmbeddedFormatter FFormatter{FConfig};
    TEmbeddedSubscribeAdapter FItems;
    TEmbeddedMarketAdapter FMarket{FItems};
    TEmbeddedMarketDataFormatter FMarketFormatter;
    TEmbeddedDataTypeTable FDataTypes;
    TEmbeddedSeriesComparer FSeriesComparer;
    TEmbeddedOrderAdapter FOrderAdapter;
    TEmbeddedLoginCtrl FLogin;
    TMarginFeed FMargins{FItems};
    TEmbeddedCurrencyAdapter FCurrencies;
    TEmbeddedAccountAdapter FAccounts{FCurrencies};
    TEmbeddedPositionAdapter FPositions{FItems};
    TOrderDesk FDesk{FItems, FMarket, FAccounts, FPositions};
    TEmbeddedOrderActionManager FOrders{FDesk};
    TEmbeddedProductAdapter FProducts;
    TAccountLedger FLedger{
        {FItems, FAccounts, FPositions, FCurrencies, FProducts, FMargins, FDesk}};
    TEmbeddedFeatureSwitches FFeatures;
    Integer FOwnRegistrations = 0;
};

} // namespace quorin
