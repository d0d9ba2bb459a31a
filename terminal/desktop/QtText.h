#pragma once

#include "platform/rtl/Types.h"

#include <QString>

namespace quorin {

inline QString ToQt(StringView text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline String FromQt(const QString& text) {
    return text.toStdU16String();
}

} // namespace quorin
