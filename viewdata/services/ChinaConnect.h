#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Which features this installation has.
class TCustomFeatureSwitches : public TService<TCustomFeatureSwitches> {
public:
    // Operations, in order

    // The feature is on.
    virtual Boolean HasChinaConnect() const = 0;
    // `Exchange` is reached through it, whether it is on or not.
    virtual Boolean HasChinaConnectExchange(StringView Exchange) const = 0;
    // Code of the account that holds the China Connect data of `Account`; empty for none.
    virtual String FindChinaConnectAccount(StringView Account) const = 0;
};

// China Connect is on in this installation. Off while no switches are installed.
inline Boolean IsChinaConnectOn() {
    const TCustomFeatureSwitches* switches = TCustomFeatureSwitches::GetInstance();
    return switches != nullptr && switches->HasChinaConnect();
}

// `Exchange` is reached through China Connect, whether the feature is on or not.
inline Boolean IsChinaConnectExchange(StringView Exchange) {
    const TCustomFeatureSwitches* switches = TCustomFeatureSwitches::GetInstance();
    return switches != nullptr && switches->HasChinaConnectExchange(Exchange);
}

// Code of the account that holds the China Connect data of `Account`; empty when there is none.
inline String GetChinaConnectAccount(StringView Account) {
    const TCustomFeatureSwitches* switches = TCustomFeatureSwitches::GetInstance();
    return switches != nullptr ? switches->FindChinaConnectAccount(Account) : String();
}

} // namespace quorin
