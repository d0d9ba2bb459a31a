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
    : FChannels(options.Host), FMessageBox(options.Host), FLog(options.Host) {
    if (!options.SettingsPath.empty()) FConfig.Load(options.SettingsPath);
    if (!options.DataDirectory.empty())
        FLanguage.LoadFolder(options.DataDirectory / LanguageFolder);
    FLanguage.SetLanguage(options.Language);
    FConfig.Commit(); // the formatter reads what was loaded
    FOwnRegistrations = CountAll();
    Install();
}

TEmbeddedServices::~TEmbeddedServices() {
    RemoveServices<TCustomConfigManager, TCustomLanguageManager, TCustomGlobalChannelManager,
                   TCustomMessageBoxCtrl, TCustomLogFile, TCustomFormatter, TCustomSubscribeAdapter,
                   TCustomMarketAdapter, TCustomMarketDataFormatter, TCustomDataTypeTable,
                   TCustomSeriesComparer, TCustomOrderAdapter, TCustomOrderActionManager,
                   TCustomLoginCtrl, TCustomAccountAdapter, TCustomPositionAdapter,
                   TCustomCurrencyAdapter, TCustomProductAdapter, TCustomFeatureSwitches>();
}

void TEmbeddedServices::Install() {
    InstallServices(FConfig, FLanguage, FChannels, FMessageBox, FLog, FFormatter, FItems, FMarket,
                    FMarketFormatter, FDataTypes, FSeriesComparer, FOrderAdapter, FOrders, FLogin,
                    FAccounts, FPositions, FCurrencies, FProducts, FFeatures);
}

void TEmbeddedServices::Deliver() {
    FConfig.Commit();
    FCurrencies.Deliver();
    FProducts.Deliver();
    FAccounts.Deliver();
    FMarket.Deliver();
    FItems.Deliver();
    FPositions.Deliver();
}

Integer TEmbeddedServices::CountAll() const {
    return SumRegistrations(FConfig, FLanguage, FChannels, FItems, FMarket, FAccounts, FPositions,
                            FCurrencies, FProducts);
}

} // namespace quorin
