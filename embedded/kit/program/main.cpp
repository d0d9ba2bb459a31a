#include "embedded/kit/ContractKit.h"
#include "embedded/kit/program/EmbeddedDrivers.h"
#include "platform/rtl/Utf.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

// Holds the embedded services against their contracts, prints the table of checks and ends with 1
// when one of them failed.
int main(int argc, char** argv) {
    using namespace quorin;
    if (argc > 1) {
        const bool isHelp = std::string_view(argv[1]) == "--help";
        (isHelp ? std::cout : std::cerr)
            << "quorin-contract-kit: holds the embedded services against their contracts and\n"
               "prints a line for each check. Takes no options. Ends with 1 when one failed.\n";
        return isHelp ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    TKitHost host;
    TEmbeddedServices services(TEmbeddedOptions{.Host = host});
    if (!FeedKitUniverse(services.Market())) {
        std::cerr << "the universe of the kit is refused\n";
        return EXIT_FAILURE;
    }
    TEmbeddedSubscribeDriver subscribe(services.Items(), services.Items());
    TEmbeddedMarketDriver market(services.Market(), services.Market());
    TEmbeddedConfigDriver config(services.Config());
    TEmbeddedLanguageDriver language(services.Language());
    TEmbeddedChannelDriver channel(services.Channels(), host);
    TEmbeddedAccountDriver account(services.Accounts());
    TEmbeddedPositionDriver position(services.Positions(), services.Items());
    TEmbeddedCurrencyDriver currency(services.Currencies());
    TEmbeddedProductDriver product(services.Products());
    TEmbeddedOrderDriver order(*TCustomOrderAdapter::GetInstance(), services.Orders(),
                               services.Login());
    TEmbeddedFormatterDriver formatter(*TCustomFormatter::GetInstance(),
                                       *TCustomMarketDataFormatter::GetInstance(),
                                       services.Items());
    TContractReport report;
    RunContractKit({.Subscribe = &subscribe,
                    .Market = &market,
                    .Config = &config,
                    .Language = &language,
                    .Channel = &channel,
                    .Account = &account,
                    .Position = &position,
                    .Currency = &currency,
                    .Product = &product,
                    .Order = &order,
                    .Formatter = &formatter},
                   report);
    std::cout << ToUtf8(report.Table());
    if (const Integer left = services.RegistrationCount(); left != 0) {
        std::cout << left << " registrations are left behind\n";
        return EXIT_FAILURE;
    }
    return report.IsKept() ? EXIT_SUCCESS : EXIT_FAILURE;
}
