#pragma once

#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/MarketAdapter.h"

namespace quorin {

// Texts that several parts of the market view need in the language in force.

inline const TCustomMarketAdapter& Market() {
    return *TCustomMarketAdapter::GetInstance();
}

inline String ResourceText(StringView tag, StringView key) {
    return TCustomLanguageManager::GetInstance()->GetResourceString(tag, key, TAppLanguage::None, 0,
                                                                    nullptr);
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

// The name of a series or category.
template <class Named>
String NameInLanguage(const Named& record) {
    switch (TCustomLanguageManager::GetInstance()->GetCurrentLanguage()) {
    case TAppLanguage::TraditionalChinese: return record.GetNameLanguage1();
    case TAppLanguage::SimplifiedChinese: return record.GetNameLanguage2();
    default: return record.GetName();
    }
}

} // namespace quorin
