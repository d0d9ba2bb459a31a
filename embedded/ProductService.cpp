#include "embedded/ProductService.h"

#include <utility>

namespace quorin {

TCustomProductData* TEmbeddedProductAdapter::GetProductData(StringView Symbol,
                                                            StringView Account) const {
    const TByAccount* accounts = FProducts.Find(Symbol);
    const auto* record = accounts != nullptr ? accounts->Find(Account) : nullptr;
    if (record == nullptr && accounts != nullptr) record = accounts->Find(StringView());
    return record != nullptr ? record->get() : nullptr;
}

TEmbeddedProductData& TEmbeddedProductAdapter::FeedProduct(StringView symbol, StringView account) {
    auto& record = FProducts.Obtain(symbol).Obtain(account);
    if (record == nullptr) record = std::make_unique<TEmbeddedProductData>();
    FChanged = true;
    return *record;
}

void TEmbeddedProductAdapter::Deliver() {
    if (std::exchange(FChanged, false)) {
        FCallbacks.Deliver(FDeliveries.Begin(), Pointer(), Pointer());
    }
}

String TEmbeddedFeatureSwitches::FindChinaConnectAccount(StringView Account) const {
    const String* account = FAccounts.Find(Account);
    return account != nullptr ? *account : String();
}

} // namespace quorin
