#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

namespace quorin {

void CheckCurrencyAdapter(TCurrencyDriver& driver, TContractReport& report) {
    TChecker check(report, u"CurrencyAdapter");
    TCustomCurrencyAdapter& service = driver.Service();
    const String base = service.GetBaseCurrency();
    const String listed = driver.NewCurrency();
    check.False(u"there is a base currency", base.empty());
    check.Equal(u"the base currency is worth 1.0 of itself", 1.0, service.GetCurrencyRatio(base));
    const StringView unknown = u"an unknown currency has the ratio 0.0";
    for (const StringView code :
         {StringView(u"no such currency"), StringView(), StringView(listed)})
        check.Equal(unknown, 0.0, service.GetCurrencyRatio(code), ShowValue(code));
    for (const Double ratio : {7.8, 1.0, 0.0, 0.052}) {
        driver.FeedRatio(listed, ratio);
        driver.Deliver();
        check.Equal(u"GetCurrencyRatio gives the ratio that was fed", ratio,
                    service.GetCurrencyRatio(listed));
    }
    for (const bool isOn : {true, false, true}) {
        driver.SetMultiCurrency(isOn);
        driver.Deliver();
        check.Equal(u"IsMultiCurrency is the switch", isOn, service.IsMultiCurrency());
    }

    Double ratio = 1.0;
    CheckRegistrationRules(
        check, driver,
        {.Name = u"AddCurrencyRatioCallback",
         .Register =
             [&](TCallRecorder& receiver, TObject* owner) {
                 service.AddCurrencyRatioCallback(receiver.Event(), owner);
             },
         .Remove = [&](TObject* owner) { service.RemoveCurrencyRatioCallback(owner); },
         .Change = [&] { driver.FeedRatio(listed, ratio += 0.25); },
         .Inspect = [&](Pointer sender) -> String {
             if (sender == nullptr) return {};
             const auto* ratios = static_cast<const TCurrencyRatioDictionary*>(sender);
             if (!ratios->ContainsKey(listed)) return u"nothing under " + listed;
             for (const auto& item : *ratios) {
                 if (item.Value == 0.0 && service.GetCurrencyRatio(item.Key) != 0.0) {
                     return u"0.0 for the known ratio of " + item.Key;
                 }
             }
             return {};
         }});
    CheckRegistrationRules(
        check, driver,
        {.Name = u"AddCurrencyListCallback",
         .Register =
             [&](TCallRecorder& receiver, TObject* owner) {
                 service.AddCurrencyListCallback(receiver.Event(), owner);
             },
         .Remove = [&](TObject* owner) { service.RemoveCurrencyListCallback(owner); },
         .Change = [&] { driver.FeedRatio(driver.NewCurrency(), 2.0); },
         .Inspect = InspectNil});
    bool isMulti = true;
    CheckRegistrationRules(
        check, driver,
        {.Name = u"AddMultiCurrencyInfoCallback",
         .Register =
             [&](TCallRecorder& receiver, TObject* owner) {
                 service.AddMultiCurrencyInfoCallback(receiver.Event(), owner);
             },
         .Remove = [&](TObject* owner) { service.RemoveMultiCurrencyInfoCallback(owner); },
         .Change = [&] { driver.SetMultiCurrency(isMulti = !isMulti); },
         .Inspect = InspectNil});
}

void CheckProductAdapter(TProductDriver& driver, TContractReport& report) {
    TChecker check(report, u"ProductAdapter");
    TCustomProductAdapter& service = driver.Service();
    const String symbol = driver.Symbol();
    const String account = driver.Account();
    const StringView nil = u"GetProductData gives nil where nothing particular is known";
    check.IsNil(nil, service.GetProductData(symbol, account), u"a product before its first ratio");
    check.IsNil(nil, service.GetProductData({}, {}), u"empty codes");
    driver.FeedRatio(symbol, account, 0.6);
    driver.Deliver();
    TCustomProductData* product = service.GetProductData(symbol, account);
    check.IsNil(nil, service.GetProductData(symbol, u"no such account"), u"another account");
    check.IsNil(nil, service.GetProductData(u"no such symbol", account), u"another symbol");
    if (check.IsThere(u"GetProductData gives a known record", product)) {
        check.True(u"HasMarginRatio says whether the ratio counts", product->HasMarginRatio());
        check.Equal(u"GetMarginRatio gives the ratio that was fed", 0.6, product->GetMarginRatio());
        driver.FeedRatio(symbol, account, 0.0);
        driver.Deliver();
        check.True(u"a ratio of 0.0 counts like any other", product->HasMarginRatio());
        check.Equal(u"GetMarginRatio gives the ratio that was fed", 0.0, product->GetMarginRatio());
        check.IsSame(u"a known product keeps its object", product,
                     service.GetProductData(symbol, account));
        driver.ClearRatio(symbol, account);
        driver.Deliver();
        const TCustomProductData* cleared = service.GetProductData(symbol, account);
        check.False(u"HasMarginRatio says whether the ratio counts",
                    cleared != nullptr && cleared->HasMarginRatio(), u"a cleared ratio");
    }
    Double ratio = 0.1;
    CheckRegistrationRules(
        check, driver,
        {.Name = u"AddProductMarginRatioCallback",
         .Register =
             [&](TCallRecorder& receiver, TObject* owner) {
                 service.AddProductMarginRatioCallback(receiver.Event(), owner);
             },
         .Remove = [&](TObject* owner) { service.RemoveProductMarginRatioCallback(owner); },
         .Change = [&] { driver.FeedRatio(symbol, account, ratio += 0.01); },
         .Inspect = InspectNil});
}

} // namespace quorin
