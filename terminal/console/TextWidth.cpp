#include "terminal/console/TextWidth.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

struct TRange {
    char32_t First;
    char32_t Last;
};

// Wide and full-width characters, whole blocks where nothing narrow lies between.
constexpr TRange WideRanges[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},
    {0x23F0, 0x23F0},   {0x23F3, 0x23F3},   {0x25FD, 0x25FE},   {0x2614, 0x2615},
    {0x2648, 0x2653},   {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},
    {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},
    {0x26D4, 0x26D4},   {0x26EA, 0x26EA},   {0x26F2, 0x26F3},   {0x26F5, 0x26F5},
    {0x26FA, 0x26FA},   {0x26FD, 0x26FD},   {0x2705, 0x2705},   {0x270A, 0x270B},
    {0x2728, 0x2728},   {0x274C, 0x274C},   {0x274E, 0x274E},   {0x2753, 0x2755},
    {0x2757, 0x2757},   {0x2795, 0x2797},   {0x27B0, 0x27B0},   {0x27BF, 0x27BF},
    {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x2E80, 0x303E},
    {0x3040, 0x3247},   {0x3250, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},
    {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x16FE0, 0x18DFF}, {0x1AFF0, 0x1B2FF},
    {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E}, {0x1F191, 0x1F19A},
    {0x1F200, 0x1F320}, {0x1F32D, 0x1F335}, {0x1F337, 0x1F37C}, {0x1F37E, 0x1F393},
    {0x1F3A0, 0x1F3CA}, {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0}, {0x1F3F4, 0x1F3F4},
    {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440}, {0x1F442, 0x1F4FC}, {0x1F4FF, 0x1F53D},
    {0x1F54B, 0x1F54E}, {0x1F550, 0x1F567}, {0x1F57A, 0x1F57A}, {0x1F595, 0x1F596},
    {0x1F5A4, 0x1F5A4}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5}, {0x1F6CC, 0x1F6CC},
    {0x1F6D0, 0x1F6D2}, {0x1F6D5, 0x1F6DF}, {0x1F6EB, 0x1F6EC}, {0x1F6F4, 0x1F6FC},
    {0x1F7E0, 0x1F7F0}, {0x1F90C, 0x1F93A}, {0x1F93C, 0x1F945}, {0x1F947, 0x1F9FF},
    {0x1FA70, 0x1FAFF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

// Marks that join the character before them, and invisible format characters.
constexpr TRange ZeroRanges[] = {
    {0x0300, 0x036F},   {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x0E31, 0x0E31},   {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
    {0x200B, 0x200F},   {0x202A, 0x202E}, {0x2060, 0x2064}, {0x2066, 0x206F}, {0x20D0, 0x20FF},
    {0x302A, 0x302D},   {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
    {0xE0100, 0xE01EF},
};

constexpr Char Ellipsis = u'\u2026';
constexpr Char Replacement = u'\uFFFD';

template <std::size_t Count>
bool Contains(const TRange (&ranges)[Count], char32_t character) {
    const TRange* found =
        std::lower_bound(std::begin(ranges), std::end(ranges), character,
                         [](const TRange& range, char32_t value) { return range.Last < value; });
    return found != std::end(ranges) && found->First <= character;
}

bool IsControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

Integer CharacterWidth(char32_t character) {
    if (character < 0x300) return 1;
    if (Contains(ZeroRanges, character)) return 0;
    return Contains(WideRanges, character) ? 2 : 1;
}

bool IsHighSurrogate(Char unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(Char unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Takes one character from the front of `text`, which must not be empty. `units` are its 16-bit
// units.
char32_t TakeCharacter(StringView& text, StringView& units) {
    const bool isPair = text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]);
    units = text.substr(0, isPair ? 2 : 1);
    text.remove_prefix(units.size());
    if (!isPair) return units[0];
    return 0x10000 + ((static_cast<char32_t>(units[0]) - 0xD800) << 10) + (units[1] - 0xDC00u);
}

} // namespace

Integer TextWidth(StringView text) {
    Integer width = 0;
    StringView units;
    while (!text.empty()) width += CharacterWidth(TakeCharacter(text, units));
    return width;
}

String FitText(StringView text, Integer width, TAlign align) {
    String fitted;
    if (width <= 0) return fitted;
    const bool isCut = TextWidth(text) > width;
    const Integer room = isCut ? width - 1 : width; // one column for the ellipsis
    Integer used = 0;
    StringView units;
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text, units);
        const Integer next = CharacterWidth(character);
        if (used + next > room) break;
        used += next;
        if (IsControl(character)) {
            fitted += Replacement;
        } else {
            fitted += units;
        }
    }
    if (isCut) {
        fitted += Ellipsis;
        ++used;
    }
    const auto blanks = static_cast<std::size_t>(width - used);
    fitted.insert(align == TAlign::Left ? fitted.size() : 0, blanks, u' ');
    return fitted;
}

String PlainText(StringView text) {
    constexpr Integer mostColumns = 80;
    return FitText(text, std::min(TextWidth(text), mostColumns));
}

} // namespace quorin
