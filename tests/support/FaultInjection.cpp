#include "tests/support/FaultInjection.h"

#include "embedded/EmbeddedServices.h"
#include "tests/support/faults/AccountFaults.h"
#include "tests/support/faults/ApplicationFaults.h"
#include "tests/support/faults/MarketFaults.h"
#include "tests/support/faults/PositionFaults.h"

#include <cstdlib>

namespace quorin {

struct TFaultInjection::TServices {
    TServices(TFaultPlan& plan, TEmbeddedServices& inner)
        : Config(plan, inner.Config()), Language(plan, inner.Language()),
          Channels(plan, inner.Channels()),
          MessageBox(plan, *TCustomMessageBoxCtrl::GetInstance()), Items(plan, inner.Items()),
          Market(plan, inner.Market()), Orders(plan, inner.Orders()),
          Accounts(plan, inner.Accounts()), Positions(plan, inner.Positions(), inner.Accounts()),
          Currencies(plan, inner.Currencies()), Products(plan, inner.Products()) {}

    TFaultyConfigManager Config;
    TFaultyLanguageManager Language;
    TFaultyChannelManager Channels;
    TFaultyMessageBoxCtrl MessageBox;
    TFaultySubscribeAdapter Items;
    TFaultyMarketAdapter Market;
    TFaultyOrderActionManager Orders;
    TFaultyAccountAdapter Accounts;
    TFaultyPositionAdapter Positions;
    TFaultyCurrencyAdapter Currencies;
    TFaultyProductAdapter Products;
};

namespace {

template <class... Services>
void Install(Services&... services) {
    (ServiceRegistry::Install(&services), ...);
}

} // namespace

TFaultInjection::TFaultInjection(TEmbeddedServices& services, unsigned seed)
    : FInner(services), FMessageBox(TCustomMessageBoxCtrl::GetInstance()), FSeed(seed), FPlan(services, seed),
      FServices(std::make_unique<TServices>(FPlan, services)) {
    TServices& s = *FServices;
    Install(s.Config, s.Language, s.Channels, s.MessageBox, s.Items, s.Market, s.Orders, s.Accounts,
            s.Positions, s.Currencies, s.Products);
}

TFaultInjection::~TFaultInjection() {
    Install(FInner.Config(), FInner.Language(), FInner.Channels(), *FMessageBox, FInner.Items(),
            FInner.Market(), FInner.Orders(), FInner.Accounts(), FInner.Positions(),
            FInner.Currencies(), FInner.Products());
}

bool TFaultInjection::IsAskedFor() {
    return std::getenv(Variable) != nullptr;
}

std::unique_ptr<TFaultInjection> TFaultInjection::IfAskedFor(TEmbeddedServices& services) {
    const char* seed = std::getenv(Variable);
    if (seed == nullptr) return nullptr;
    return std::make_unique<TFaultInjection>(
        services, static_cast<unsigned>(std::strtoul(seed, nullptr, 10)));
}

std::string TFaultInjection::Recipe() const {
    return std::string(Variable) + '=' + std::to_string(FSeed);
}

} // namespace quorin
