#include "viewdata/frame/DisplaySettings.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"

namespace quorin {

void TDisplaySettings::ReadDisplaySettings() {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    const String section = config.GetCurrentSection();
    const auto precision = [&](StringView key) {
        return ToIntegerOr(config.ReadString(section, key), AbsentPrecision);
    };
    FBondStyle = config.ReadInteger(section, ConfigKey::DenominatorModeValue);
    FDefaultBondDenominator = precision(ConfigKey::BondPriceDenominator);
    FAmountPrecision = precision(ConfigKey::AmountPrecision);
    FAmountKeepDecimal = config.ReadBool(section, ConfigKey::AmountDecimal);
    FQtyPrecision = precision(ConfigKey::QtyPrecision);
    FQtyKeepDecimal = config.ReadBool(section, ConfigKey::QtyDecimal);
    FAvgPricePrecision = precision(ConfigKey::DefaultPrecision);
    FAvgPricekeepDecimal = config.ReadBool(section, ConfigKey::DefaultDecimal);
    FFxRatioPrecision = precision(ConfigKey::CurrencyPrecision);
    FFxRatioKeepDecimal = config.ReadBool(section, ConfigKey::CurrencyDecimal);
    FAvgPriceMode = config.ReadString(section, ConfigKey::AvgPriceMode);
}

} // namespace quorin
