#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// One unit to one unit, the same on every machine. A unit without a partner of one unit (digits,
// surrogates, the German sharp s) comes back as it is.
Char UpperCase(Char unit);
Char LowerCase(Char unit);

} // namespace quorin
