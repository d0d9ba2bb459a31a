#include "platform/rtl/Numbers.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"

namespace quorin {

namespace {

constexpr Integer GroupsNotKeptApart = -1;

// Off when the text begins with "N", in any case; everything else, also nothing, is on.
Boolean IsOn(StringView text) {
    return text.empty() || (text.front() != u'N' && text.front() != u'n');
}

} // namespace

void TEditorManager::ConfigUpdate(Pointer, Pointer) {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    const String section = config.GetCurrentSection();
    const auto isOn = [&](StringView key) { return IsOn(config.ReadString(section, key)); };
    EditorSharing().GroupDataMode =
        ToIntegerOr(config.ReadString(TradePlatformSection, ConfigKey::DefaultGroupDataMode),
                    GroupsNotKeptApart);
    FEnableThousandQty = config.ReadBool(section, ConfigKey::QtyThousandPeriod);
    FEnableMouseWheelPrice = isOn(ConfigKey::EnableMouseWheel);
    FEnableMouseWheelQty = isOn(ConfigKey::EnableQtyMouseWheel);
    FEnablePressKeepChangePrice = isOn(ConfigKey::PrcEdtAutoInc);
    FEnablePressKeepChangeQty = isOn(ConfigKey::QtyEdtAutoInc);
    for (const auto& item : FPriceEditorRecordList) {
        item.Value->SetEnableMouseWheelPrice(FEnableMouseWheelPrice);
        item.Value->SetEnablePressKeepChangePrice(FEnablePressKeepChangePrice);
    }
    for (const auto& item : FQuantityEditorRecordList) {
        item.Value->SetEnableThousandQty(FEnableThousandQty);
        item.Value->SetEnableMouseWheelQty(FEnableMouseWheelQty);
        item.Value->SetEnablePressKeepChangeQty(FEnablePressKeepChangeQty);
    }
    // Counts for fields that are registered from here on.
    FShowSymbolName = isOn(ConfigKey::DisplaySymbolName);
}

} // namespace quorin
