#include "platform/rtl/Utf.h"

#include <cstddef>

namespace quorin {

namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;
constexpr char32_t FirstBeyondBmp = 0x10000;
constexpr char32_t HighSurrogates = 0xD800;
constexpr char32_t LowSurrogates = 0xDC00;
constexpr char32_t SurrogateMask = 0xFC00;
constexpr unsigned SurrogateBits = 10;
constexpr char32_t SurrogatePayload = 0x3FF;

constexpr Byte ContinuationLow = 0x80;
constexpr Byte ContinuationHigh = 0xBF;
constexpr unsigned ContinuationBits = 6;
constexpr Byte ContinuationPayload = 0x3F;

// What a lead byte announces. The range of the second byte is what keeps out overlong forms,
// surrogates and values that are too large.
struct TLead {
    int Continuations;
    Byte Payload;
    Byte SecondLow;
    Byte SecondHigh;
};

constexpr TLead LeadOf(Byte lead) {
    if (lead < 0x80) return {0, lead, 0, 0};
    if (lead < 0xC2) return {-1, 0, 0, 0};
    if (lead < 0xE0) return {1, static_cast<Byte>(lead & 0x1F), ContinuationLow, ContinuationHigh};
    if (lead == 0xE0) return {2, 0x0, 0xA0, ContinuationHigh};
    if (lead == 0xED) return {2, 0xD, ContinuationLow, 0x9F};
    if (lead < 0xF0) return {2, static_cast<Byte>(lead & 0xF), ContinuationLow, ContinuationHigh};
    if (lead == 0xF0) return {3, 0x0, 0x90, ContinuationHigh};
    if (lead < 0xF4) return {3, static_cast<Byte>(lead & 0x7), ContinuationLow, ContinuationHigh};
    if (lead == 0xF4) return {3, 0x4, ContinuationLow, 0x8F};
    return {-1, 0, 0, 0};
}

// Takes one character or one maximal broken part from bytes, which are not empty.
bool TakeCharacter(std::string_view& bytes, char32_t& character) {
    const TLead lead = LeadOf(static_cast<Byte>(bytes.front()));
    bytes.remove_prefix(1);
    if (lead.Continuations < 0) return false;

    char32_t value = lead.Payload;
    Byte low = lead.SecondLow;
    Byte high = lead.SecondHigh;
    for (int i = 0; i < lead.Continuations; ++i) {
        if (bytes.empty()) return false;
        const Byte next = static_cast<Byte>(bytes.front());
        if (next < low || next > high) return false;
        value = (value << ContinuationBits) | (next & ContinuationPayload);
        bytes.remove_prefix(1);
        low = ContinuationLow;
        high = ContinuationHigh;
    }
    character = value;
    return true;
}

void AppendCharacter(String& target, char32_t character) {
    if (character < FirstBeyondBmp) {
        target.push_back(static_cast<Char>(character));
        return;
    }
    const char32_t offset = character - FirstBeyondBmp;
    target.push_back(static_cast<Char>(HighSurrogates + (offset >> SurrogateBits)));
    target.push_back(static_cast<Char>(LowSurrogates + (offset & SurrogatePayload)));
}

void AppendContinuation(std::string& target, char32_t character, unsigned shift) {
    const char32_t payload = (character >> shift) & ContinuationPayload;
    target.push_back(static_cast<char>(ContinuationLow | payload));
}

void AppendUtf8(std::string& target, char32_t character) {
    if (character < 0x80) {
        target.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        target.push_back(static_cast<char>(0xC0 | (character >> 6)));
        AppendContinuation(target, character, 0);
    } else if (character < FirstBeyondBmp) {
        target.push_back(static_cast<char>(0xE0 | (character >> 12)));
        AppendContinuation(target, character, 6);
        AppendContinuation(target, character, 0);
    } else {
        target.push_back(static_cast<char>(0xF0 | (character >> 18)));
        AppendContinuation(target, character, 12);
        AppendContinuation(target, character, 6);
        AppendContinuation(target, character, 0);
    }
}

bool IsHighSurrogate(Char unit) {
    return (unit & SurrogateMask) == HighSurrogates;
}
bool IsLowSurrogate(Char unit) {
    return (unit & SurrogateMask) == LowSurrogates;
}

} // namespace

String FromUtf8(std::string_view bytes) {
    String text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t character = ReplacementCharacter;
        TakeCharacter(bytes, character);
        AppendCharacter(text, character);
    }
    return text;
}

std::string ToUtf8(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            const char32_t high = character & SurrogatePayload;
            ++i;
            character = FirstBeyondBmp + (high << SurrogateBits) + (text[i] & SurrogatePayload);
        } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
            character = ReplacementCharacter;
        }
        AppendUtf8(bytes, character);
    }
    return bytes;
}

bool IsValidUtf8(std::string_view bytes) {
    char32_t character = 0;
    while (!bytes.empty()) {
        if (!TakeCharacter(bytes, character)) return false;
    }
    return true;
}

} // namespace quorin
