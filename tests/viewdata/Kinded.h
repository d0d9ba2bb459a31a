#pragma once

#include "platform/rtl/Variant.h"

namespace quorin {

// A raw value with its kind: #0 whole, 0 Double, 'x' text.
inline String Kinded(const Variant& value) {
    switch (value.Kind()) {
    case Variant::TKind::Whole: return u'#' + value.ToText();
    case Variant::TKind::Real: return value.ToText();
    case Variant::TKind::Text: return u'\'' + value.ToText() + u'\'';
    default: return u"another kind";
    }
}

} // namespace quorin
