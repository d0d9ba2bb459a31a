#include "embedded/EmbeddedServices.h"

namespace quorin {

namespace {

constexpr const char* LanguageFolder = "language";

template <class... Contracts>
void RemoveServices() {
    (ServiceRegistry::Remove<Contracts>(), ...);
}

template <class... Services>
void InstallServices(Services&... services) {
    (ServiceRegistry::Install(&services), ...);
}

template <class... Services>
Integer SumRegistrations(const Services&... services) {
    return (services.RegistrationCount() + ...);
}

} // namespace

TEmbeddedServices::TEmbeddedServices(const TEmbeddedOptions& options)
    : FSwitches(options.Switches), FChannels(options.Host), FMessageBox(options.Host),
      FLog(options.Host) {
    if (!options.SettingsPath.empty()) FConfig.Load(options.SettingsPath);
    if (!options.DataDirectory.empty())
        FLanguage.LoadFolder(options.DataDirectory / LanguageFolder);
    FLanguage.SetLanguage(options.Language);
    FConfig.Commit(); // the formatter reads what was loaded
    FLogin.SetLogin(!FSwitches.LoggedOut);
    FAccounts.SetDetailsLate(FSwitches.LateAccountDetails);
    FAccounts.SetReadyAfter(FSwitches.AccountsReadyAfter);
    FOwnRegistrations = CountAll();
    Install();
}

TEmbeddedServices::~TEmbeddedServices() {
    RemoveServices<TCustomConfigManager, TCustomLanguageManager, TCustomGlobalChannelManager,
                   TCustomMessageBoxCtrl, TCustomLogFile, TCustomFormatter, TCustomSubscribeAdapter,
                   TCustomMarketAdapter, TCustomMarketDataFormatter, TCustomDataTypeTable,
                   TCustomSeriesComparer, TCustomOrderAdapter, TCustomOrderActionManager,
                   TCustomLoginCtrl, TCustomAccountAdapter, TCustomPositionAdapter,
                   TCustomCurrencyAdapter, TCustomProductAdapter, TCustomFeatureSwitches,
                   TCustomLibraryLoader>();
}

void TEmbeddedServices::Install() {
    InstallServices(FConfig, FLanguage, FChannels, FMessageBox, FLog, FFormatter, FItems, FMarket,
                    FMarketFormatter, FDataTypes, FSeriesComparer, FOrderAdapter, FOrders, FLogin,
                    FAccounts, FPositions, FCurrencies, FProducts, FFeatures, FLibraries);
}

void TEmbeddedServices::LoadAccounts(const std::filesystem::path& folder) {
    FeedAccounts(ReadAccountFiles(folder, &FMarket));
}

void TEmbeddedServices::FeedAccounts(const TAccountFiles& files) {
    FCurrencies.SetMultiCurrency(!FSwitches.SingleCurrency);
    for (const auto& row : files.Currencies) FCurrencies.FeedRatio(row.Key, row.Value);
    for (const auto& row : files.Accounts) FAccounts.FeedAccount(row.Code, row.Details);
    const auto counts = [&](const TAccountFiles::TBalanceRow& row) {
        return row.Currency.empty() || !FSwitches.SingleCurrency;
    };
    for (const auto& row : files.Balances) {
        if (counts(row)) FAccounts.FeedBalance(row.Account, row.Currency, row.Figures);
    }
    for (const auto& row : files.SubBalances) {
        if (counts(row)) FAccounts.FeedSubAccountData(row.Account, row.Currency, row.Figures);
    }
    for (const auto& row : files.CustomValues) {
        FAccounts.SetCustomAccountValue(row.Section, row.Key, row.Value);
    }
    for (const auto& row : files.Positions) {
        FPositions.FeedPosition(row.Account, row.Symbol, row.Figures);
    }
    for (const auto& row : files.MarginRatios) {
        TEmbeddedProductData& product = FProducts.FeedProduct(row.Symbol, row.Account);
        if (row.Ratio.has_value()) {
            product.SetMarginRatio(*row.Ratio);
        } else {
            product.ClearMarginRatio();
        }
    }
    FMargins.Serve();
    for (const auto& row : files.Margins) FMargins.FeedMargin(row.Code, row.Figures);
    FeedChinaConnect(files);
}

void TEmbeddedServices::FeedChinaConnect(const TAccountFiles& files) {
    if (files.ConnectExchanges.IsEmpty()) return;
    FFeatures.SetChinaConnect(!FSwitches.NoChinaConnect);
    for (const auto& row : files.ConnectExchanges) FFeatures.FeedChinaConnectExchange(row.Key);
    for (const auto& row : files.ConnectAccounts) {
        FFeatures.FeedChinaConnectAccount(row.Key, row.Value);
    }
}

void TEmbeddedServices::Deliver() {
    FConfig.Commit();
    FLedger.Settle();
    FDesk.Book();
    FLedger.Revalue(); // with what was booked, which may bring records in further currencies
    FCurrencies.Deliver();
    FProducts.Deliver();
    FMarket.Deliver();
    FItems.Deliver();
    FLedger.Revalue(); // with the prices that came
    FAccounts.Deliver();
    FPositions.Deliver();
    FDesk.Deliver();
}

Integer TEmbeddedServices::CountAll() const {
    return SumRegistrations(FConfig, FLanguage, FChannels, FItems, FMarket, FAccounts, FPositions,
                            FCurrencies, FProducts, FDesk) -
           FPositions.FollowedItemCount();
}

} // namespace quorin
