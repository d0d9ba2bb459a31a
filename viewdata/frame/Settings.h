#pragma once

#include "viewdata/services/ConfigManager.h"

namespace quorin {

// Settings of the running application's own section.

inline Boolean ReadFlag(StringView key) {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    return config.ReadBool(config.GetCurrentSection(), key);
}

inline Integer ReadNumber(StringView key) {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    return config.ReadInteger(config.GetCurrentSection(), key);
}

} // namespace quorin
