#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

enum class TAppLanguage : Byte {
    English = 0,
    TraditionalChinese = 1, // the language of GetNameLanguage1
    SimplifiedChinese = 2,  // the language of GetNameLanguage2
    None = 3,               // no particular one: the language in force
};

// The texts of the product in the user's language. Tables are named by a tag, entries by a key;
// ResourceKeys.h has both.
class TCustomLanguageManager : public TService<TCustomLanguageManager> {
public:
    // Operations, in order

    // Called whenever the language has changed. `Sender`: nil.
    virtual void RegisterLanguageCallback(const TDataCallbackEvent& Callback, TObject* Owner) = 0;
    virtual void RemoveLanguageCallback(TObject* Owner) = 0;
    // The language in force, never None.
    virtual TAppLanguage GetCurrentLanguage() const = 0;
    // The text of an entry; empty when the table, or an entry under that key, is not there. An
    // empty key has no entry. `Argument` is 0 and `Extra` nil.
    virtual String GetResourceString(StringView Tag, StringView Key, TAppLanguage Language,
                                     Integer Argument, Pointer Extra) const = 0;
    // A named attribute of an entry, the same in every language; empty when there is none.
    virtual String GetResourceAttribute(StringView Tag, StringView Key,
                                        StringView Attribute) const = 0;
};

} // namespace quorin
