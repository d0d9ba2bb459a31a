#include "embedded/EmbeddedServices.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"

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
