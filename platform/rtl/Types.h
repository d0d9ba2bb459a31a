#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorin {

// The words in which every other header speaks. Text is made of 16-bit units and compared exactly
// unless an operation says otherwise; UTF-8 exists only at the borders (files, console).
using Char = char16_t;
using String = std::u16string;
using StringView = std::u16string_view;

using Byte = std::uint8_t;
using Boolean = bool;
using Integer = std::int32_t;
using Int64 = std::int64_t;
using Double = double;

// Used exactly where an operation is untyped. An object travels as the address of its TObject
// (see AsPointer), a plain record or dictionary as its own address.
using Pointer = void*;

} // namespace quorin

#if __cplusplus < 202002L
#error "quorin.ViewData needs C++20: compile with -std=c++20"
#endif
