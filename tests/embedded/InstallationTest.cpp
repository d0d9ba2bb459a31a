#include "embedded/EmbeddedServices.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"
#include "viewdata/services/ChinaConnect.h"

#include <functional>

namespace quorin {
namespace {

bool AnyInstalled() {
    return TCustomConfigManager::GetInstance() || TCustomLanguageManager::GetInstance() ||
           TCustomGlobalChannelManager::GetInstance() || TCustomMessageBoxCtrl::GetInstance() ||
           TCustomLogFile::GetInstance() || TCustomFormatter::GetInstance() ||
           TCustomSubscribeAdapter::GetInstance() || TCustomMarketAdapter::GetInstance() ||
           TCustomMarketDataFormatter::GetInstance() || TCustomDataTypeTable::GetInstance() ||
           TCustomSeriesComparer::GetInstance() || TCustomOrderAdapter::GetInstance() ||
           TCustomOrderActionManager::GetInstance() || TCustomLoginCtrl::GetInstance() ||
           TCustomAccountAdapter::GetInstance() || TCustomPositionAdapter::GetInstance() ||
           TCustomCurrencyAdapter::GetInstance() || TCustomProductAdapter::GetInstance() ||
           TCustomFeatureSwitches::GetInstance();
}

TEST(InstallationTest, NothingIsInstalledBeforeOrAfter) {
    EXPECT_FALSE(AnyInstalled());
    TRecordingHost host;
    {
        const TEmbeddedServices services({.Host = host, .DataDirectory = {}, .SettingsPath = {}});
        EXPECT_TRUE(AnyInstalled());
        EXPECT_EQ(services.RegistrationCount(), 0);
    }
    EXPECT_FALSE(AnyInstalled());
}

TEST(InstallationTest, StoredSettingsCountFromTheStart) {
    const TTempFile settings("[quorin.terminal]\nAmountPrecision=4\nAmountDecimal=1\n");
    TRecordingHost host;
    const TEmbeddedServices services(
        {.Host = host, .DataDirectory = {}, .SettingsPath = settings.Path()});
    EXPECT_EQ(TCustomFormatter::GetInstance()->FormatValue(1.5, DisplayDataType::Amount, u"", true,
                                                           nullptr),
              u"1.5000");
}

TEST(InstallationTest, DamagedDataInstallNothing) {
    const TTempFile settings("[quorin.terminal\n");
    TRecordingHost host;
    EXPECT_THROW(
        TEmbeddedServices({.Host = host, .DataDirectory = {}, .SettingsPath = settings.Path()}),
        EDataError);
    EXPECT_FALSE(AnyInstalled());
}

class InstallationWithoutAccountsTest : public TServicesFixture {};

TEST_F(InstallationWithoutAccountsTest, Answers) {
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    EXPECT_TRUE(accounts.IsAccountReady());
    EXPECT_EQ(accounts.GetAccountCount(), 0);
    EXPECT_EQ(accounts.GetAccountByIndex(0), nullptr);
    EXPECT_FALSE(accounts.IsAccountKnown(u"ACC"));
    EXPECT_EQ(accounts.GetAccount(u"", true), nullptr);
    EXPECT_EQ(accounts.FindAccountByText(u"ACC"), u"");

    const TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    EXPECT_EQ(currencies.GetCurrencyRatio(currencies.GetBaseCurrency()), 1.0);
    EXPECT_EQ(currencies.GetCurrencyRatio(u"USD"), 0.0);
    EXPECT_EQ(currencies.GetCurrencyRatio(u""), 0.0);
    EXPECT_FALSE(currencies.IsMultiCurrency());

    EXPECT_EQ(TCustomProductAdapter::GetInstance()->GetProductData(u"00700", u"ACC"), nullptr);
    EXPECT_FALSE(IsChinaConnectOn());
    EXPECT_FALSE(IsChinaConnectExchange(u"SSE"));
    EXPECT_EQ(GetChinaConnectAccount(u"ACC"), u"");
}

TEST_F(InstallationWithoutAccountsTest, WhatIsFedIsToldOfOnce) {
    TCountingReceiver receiver;
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    TCustomProductAdapter& products = *TCustomProductAdapter::GetInstance();
    struct TCase {
        const char* Name;
        std::function<void()> Register;
        std::function<void()> Feed;
        std::function<void()> Remove;
    };
    const auto event = receiver.Event();
    TObject* const owner = &receiver;
    const TCase cases[] = {
        {"account", [&] { accounts.ChangeAccountCallback(u"A", event, owner, u""); },
         [&] { Services().Accounts().FeedAccount(u"A"); },
         [&] { accounts.RemoveAccountCallback(u"A", owner); }},
        {"sub-account", [&] { accounts.AddSubAccountCallback(u"M", event, owner, nullptr); },
         [&] { Services().Accounts().FeedAccount(u"S", {.MasterAccount = u"M"}); },
         [&] { accounts.RemoveSubAccountCallback(u"M", owner); }},
        {"any account", [&] { accounts.AddAllAccountCallback(event, owner); },
         [&] { Services().Accounts().FeedAccount(u"B"); },
         [&] { accounts.RemoveAllAccountCallback(owner); }},
        {"accounts ready", [&] { accounts.AddAccountReadyCallback(event, owner); },
         [&] {
             Services().Accounts().SetReady(false);
             Services().Accounts().SetReady(true);
         },
         [&] { accounts.RemoveAccountReadyCallback(owner); }},
        {"currency ratio", [&] { currencies.AddCurrencyRatioCallback(event, owner); },
         [&] { Services().Currencies().FeedRatio(u"USD", 7.8); },
         [&] { currencies.RemoveCurrencyRatioCallback(owner); }},
        {"currency list", [&] { currencies.AddCurrencyListCallback(event, owner); },
         [&] { Services().Currencies().FeedRatio(u"EUR", 8.5); },
         [&] { currencies.RemoveCurrencyListCallback(owner); }},
        {"several currencies", [&] { currencies.AddMultiCurrencyInfoCallback(event, owner); },
         [&] { Services().Currencies().SetMultiCurrency(true); },
         [&] { currencies.RemoveMultiCurrencyInfoCallback(owner); }},
        {"margin ratio", [&] { products.AddProductMarginRatioCallback(event, owner); },
         [&] { Services().Products().FeedProduct(u"00700", u"A").SetMarginRatio(0.6); },
         [&] { products.RemoveProductMarginRatioCallback(owner); }},
    };
    Integer calls = 0;
    for (const TCase& row : cases) {
        row.Register();
        row.Register();
        EXPECT_EQ(Services().RegistrationCount(), 1) << row.Name;
        row.Feed();
        EXPECT_EQ(receiver.Count(), calls) << row.Name << ": before the delivery";
        Services().Deliver();
        Services().Deliver();
        EXPECT_EQ(receiver.Count(), ++calls) << row.Name;
        row.Remove();
        row.Feed();
        Services().Deliver();
        EXPECT_EQ(receiver.Count(), calls) << row.Name << ": after removal";
    }
    EXPECT_EQ(accounts.FindAccountByText(u" a "), u"A");
    EXPECT_EQ(currencies.GetCurrencyRatio(u"USD"), 7.8);
    EXPECT_EQ(products.GetProductData(u"00700", u"A")->GetMarginRatio(), 0.6);
}

TEST_F(InstallationWithoutAccountsTest, LogGoesToTheHostAndToAFile) {
    const TTempFile file("before\n");
    TCustomLogFile& log = *TCustomLogFile::GetInstance();
    Host().ExpectLogLine(u"one");
    log.WriteLog(u"one", ViewLogLevel);
    Services().Log().OpenFile(file.Path());
    Host().ExpectLogLine(u"港\r\ntwo");
    log.WriteLog(u"港\r\ntwo", ViewLogLevel);
    EXPECT_EQ(file.Content(), "before\n[5] \xE6\xB8\xAF  two\n");
    EXPECT_THROW(Services().Log().OpenFile(file.Path() / "below"), EDataError);
}

} // namespace
} // namespace quorin
