#pragma once

#include "platform/rtl/Types.h"
#include "platform/rtl/Utf.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace quorin {

// The bytes of one run, taken from the front. Texts are lines, so that a seed can be written and
// read by hand.
class TFuzzInput {
public:
    TFuzzInput(const std::uint8_t* data, std::size_t size)
        : FRest(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return FRest.empty(); }
    // 0 at the end.
    Byte TakeByte() {
        if (FRest.empty()) return 0;
        const auto byte = static_cast<Byte>(FRest.front());
        FRest.remove_prefix(1);
        return byte;
    }
    std::string_view TakeLine() {
        const std::size_t end = FRest.find('\n');
        const std::string_view line = FRest.substr(0, end);
        FRest.remove_prefix(end == FRest.npos ? FRest.size() : end + 1);
        return line;
    }
    String TakeText() { return FromUtf8(TakeLine()); }
    std::string_view Rest() const { return FRest; }

private:
    std::string_view FRest;
};

// A law that does not hold ends the run; the fuzzer then keeps its input.
inline void ExpectLaw(bool holds, const char* law) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", law);
    std::abort();
}

} // namespace quorin
