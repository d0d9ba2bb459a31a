#pragma once

#include "embedded/kit/Drivers.h"
#include "embedded/kit/Report.h"

namespace quorin {

// Each holds one service against its contract, through nothing but the contract and the driver, and
// adds its checks to the report. Registrations that it made are gone at the end, as far as the
// service lets go of them: a service with a failed check should not deliver any more.
void CheckSubscribeAdapter(TSubscribeDriver& driver, TContractReport& report);
void CheckMarketAdapter(TMarketDriver& driver, TContractReport& report);
void CheckSpreadTables(TMarketDriver& driver, TContractReport& report);
void CheckConfigManager(TConfigDriver& driver, TContractReport& report);
void CheckLanguageManager(TLanguageDriver& driver, TContractReport& report);
void CheckChannelManager(TChannelDriver& driver, TContractReport& report);
void CheckAccountAdapter(TAccountDriver& driver, TContractReport& report);
void CheckPositionAdapter(TPositionDriver& driver, TContractReport& report);
void CheckCurrencyAdapter(TCurrencyDriver& driver, TContractReport& report);
void CheckProductAdapter(TProductDriver& driver, TContractReport& report);
void CheckOrders(TOrderDriver& driver, TContractReport& report);
void CheckFormatter(TFormatterDriver& driver, TContractReport& report);
void CheckMarketDataFormatter(TFormatterDriver& driver, TContractReport& report);

// Drivers of the services to be checked; those that are nil are left out.
struct TContractDrivers {
    TSubscribeDriver* Subscribe = nullptr;
    TMarketDriver* Market = nullptr;
    TConfigDriver* Config = nullptr;
    TLanguageDriver* Language = nullptr;
    TChannelDriver* Channel = nullptr;
    TAccountDriver* Account = nullptr;
    TPositionDriver* Position = nullptr;
    TCurrencyDriver* Currency = nullptr;
    TProductDriver* Product = nullptr;
    TOrderDriver* Order = nullptr;
    TFormatterDriver* Formatter = nullptr;
};

void RunContractKit(const TContractDrivers& drivers, TContractReport& report);

} // namespace quorin
