#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The settings, by section and key; ConfigKeys.h has the keys.
class TCustomConfigManager : public TService<TCustomConfigManager> {
public:
    // Operations, in order

    // Called whenever settings have changed. `Sender`: nil.
    virtual void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveConfigCallback(TObject* Owner) = 0;
    // Empty when the key is absent.
    virtual String ReadString(StringView Section, StringView Key) const = 0;
    // 0 when the key is absent or its text is no whole number.
    virtual Integer ReadInteger(StringView Section, StringView Key) const = 0;
    // True for a text that begins with Y or T, in any case, or is a whole number other than 0.
    virtual Boolean ReadBool(StringView Section, StringView Key) const = 0;
    // The name of the section in which the running application keeps its settings.
    virtual const String& GetCurrentSection() const = 0;
};

} // namespace quorin
