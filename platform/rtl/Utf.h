#pragma once

#include "platform/rtl/Types.h"

#include <string>
#include <string_view>

namespace quorin {

// UTF-8 at the borders. Neither direction fails: what is not valid becomes U+FFFD, once for each
// maximal part of a broken sequence, once for each surrogate without its partner.
String FromUtf8(std::string_view bytes);
std::string ToUtf8(StringView text);

// True for empty text too. Surrogates, overlong forms and values above U+10FFFF are not valid.
bool IsValidUtf8(std::string_view bytes);

} // namespace quorin
