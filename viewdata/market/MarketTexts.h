#pragma once

#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

// The name of a series or category.
template <class Named>
String NameInLanguage(const Named& record) {
    switch (TCustomLanguageManager::GetInstance()->GetCurrentLanguage()) {
    case TAppLanguage::TraditionalChinese: return record.GetNameLanguage1();
    case TAppLanguage::SimplifiedChinese: return record.GetNameLanguage2();
    default: return record.GetName();
    }
}

// What the marker of an option says, see Field::CallPut.
enum class TOptionKind : Byte { None, Call, Put };

inline TOptionKind OptionKindOf(StringView marker) {
    if (marker.empty()) return TOptionKind::None;
    switch (marker.front()) {
    case u'1':
    case u'6':
    case u'C': return TOptionKind::Call;
    case u'2':
    case u'7':
    case u'P': return TOptionKind::Put;
    default: return TOptionKind::None;
    }
}

} // namespace quorin
