#pragma once

#include "embedded/Registrations.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/ProductAdapter.h"

#include <memory>

namespace quorin {

class TEmbeddedProductData : public TCustomProductData {
    QUORIN_CLASS(TEmbeddedProductData, TCustomProductData)
public:
    Double GetMarginRatio() const override { return FMarginRatio; }
    Boolean HasMarginRatio() const override { return FHasMarginRatio; }

    void SetMarginRatio(Double ratio) {
        FMarginRatio = ratio;
        FHasMarginRatio = true;
    }
    void ClearMarginRatio() {
        FMarginRatio = 0.0;
        FHasMarginRatio = false;
    }

private:
    Double FMarginRatio = 0.0;
    bool FHasMarginRatio = false;
};

// Margin ratios that the host names. What is fed counts at once; Deliver tells of it.
class TEmbeddedProductAdapter : public TCustomProductAdapter {
public:
    // Operations of the contract
    void AddProductMarginRatioCallback(const TDataCallbackEvent& Callback,
                                       TObject* Owner) override {
        FCallbacks.Add(Owner, Callback);
    }
    void RemoveProductMarginRatioCallback(TObject* Owner) override { FCallbacks.Remove(Owner); }
    // The account's own record goes before the one of all accounts.
    TCustomProductData* GetProductData(StringView Symbol, StringView Account) const override;

    // The record of a product in an account, in all accounts with the empty code, made when there
    // is none yet, to be changed by the host; it stays the service's.
    TEmbeddedProductData& FeedProduct(StringView symbol, StringView account);
    void Deliver();
    Integer RegistrationCount() const { return FCallbacks.Count(); }

private:
    using TByAccount = TDictionary<String, std::unique_ptr<TEmbeddedProductData>>;

    TDictionary<String, TByAccount> FProducts;
    bool FChanged = false;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FCallbacks{FDeliveries};
};

// Features are off until the host switches them on.
class TEmbeddedFeatureSwitches : public TCustomFeatureSwitches {
public:
    Boolean HasChinaConnect() const override { return FChinaConnect; }
    Boolean HasChinaConnectExchange(StringView Exchange) const override {
        return FExchanges.ContainsKey(Exchange);
    }
    String FindChinaConnectAccount(StringView Account) const override;

    void SetChinaConnect(bool on) { FChinaConnect = on; }
    void FeedChinaConnectExchange(StringView exchange) { FExchanges.AddOrSetValue(exchange, true); }
    void FeedChinaConnectAccount(StringView account, StringView chinaConnectAccount) {
        FAccounts.AddOrSetValue(account, String(chinaConnectAccount));
    }

private:
    bool FChinaConnect = false;
    TDictionary<String, bool> FExchanges;
    TDictionary<String, String> FAccounts;
};

} // namespace quorin
