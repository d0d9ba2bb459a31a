#pragma once

#include "platform/rtl/Text.h"
#include "platform/rtl/Variant.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

// Texts that several view models need in the language in force.

inline const TCustomMarketAdapter& Market() {
    return *TCustomMarketAdapter::GetInstance();
}

// Empty where the table has no such key.
inline String ResourceText(StringView tag, StringView key) {
    return TCustomLanguageManager::GetInstance()->GetResourceString(tag, key, TAppLanguage::None, 0,
                                                                    nullptr);
}

// A text of the user interface.
inline String InterfaceText(StringView key) {
    return ResourceText(Const_ResourceStringTag, key);
}

// The translation of a code, the code itself where the table has none.
inline String TranslatedCode(StringView tag, const String& code) {
    String text = ResourceText(tag, code);
    return text.empty() ? code : text;
}

// The symbol's display name, the symbol where it has none.
inline String SymbolName(StringView symbol) {
    String name = Market().GetSymbolName(symbol, TAppLanguage::None);
    return name.empty() ? String(symbol) : name;
}

// By the type that a custom column's entry names: without one, or with "string" in any case, the
// column shows text; with every other a number.
inline Boolean IsNumericColumnType(StringView type) {
    return !type.empty() && !SameText(type, u"string");
}

// The text of a raw value. A descendant's GetValue may answer anything: what has no text shows
// none.
inline String TextOf(const Variant& value) {
    return value.IsArray() ? String() : value.ToText();
}

} // namespace quorin
