#include "platform/rtl/FormatSettings.h"

namespace quorin {

TFormatSettings& FormatSettings() {
    static TFormatSettings settings;
    return settings;
}

} // namespace quorin
