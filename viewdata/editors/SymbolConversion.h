#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// What the symbol conversion library exports as "ConvertSymbol": takes the symbol as typed, zero at
// the end, and writes at most 255 characters and a zero into the buffer at `Return`, or points it
// to a text of its own.
using TConvertSymbol = void (*)(const char* orisymbol, char** Return);

// Loads the library that the setting "SymbolmapDLL" names. Nil where none is named or it can't be
// used; what it lacks is logged.
TConvertSymbol LoadSymbolConversion();

// The symbol as the library writes it; the symbol itself without a library, where the library
// answers nothing, and for a symbol with a character above U+00FF, which has no byte.
String ConvertedSymbol(TConvertSymbol convert, StringView symbol);

} // namespace quorin
