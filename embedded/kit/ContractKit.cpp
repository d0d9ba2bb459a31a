#include "embedded/kit/ContractKit.h"

namespace quorin {

void RunContractKit(const TContractDrivers& drivers, TContractReport& report) {
    const auto run = [&report](auto* driver, auto... checks) {
        if (driver != nullptr) (checks(*driver, report), ...);
    };
    run(drivers.Subscribe, &CheckSubscribeAdapter);
    run(drivers.Market, &CheckMarketAdapter, &CheckSpreadTables);
    run(drivers.Config, &CheckConfigManager);
    run(drivers.Language, &CheckLanguageManager);
    run(drivers.Channel, &CheckChannelManager);
    run(drivers.Account, &CheckAccountAdapter);
    run(drivers.Position, &CheckPositionAdapter);
    run(drivers.Currency, &CheckCurrencyAdapter);
    run(drivers.Product, &CheckProductAdapter);
    run(drivers.Order, &CheckOrders);
    run(drivers.Formatter, &CheckFormatter, &CheckMarketDataFormatter);
}

} // namespace quorin
