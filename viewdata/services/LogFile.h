#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The level of what the view layer logs.
inline constexpr Byte ViewLogLevel = 5;

class TCustomLogFile : public TService<TCustomLogFile> {
public:
    // Operations, in order

    // Appends one line.
    virtual void WriteLog(StringView Text, Byte Level) = 0;
};

} // namespace quorin
