#pragma once

#include "platform/rtl/TEvent.h"
#include "platform/rtl/Variant.h"

namespace quorin {

using Word = std::uint16_t;

struct TPoint {
    Integer X = 0;
    Integer Y = 0;

    friend bool operator==(const TPoint&, const TPoint&) = default;
};

// Right and bottom lie outside.
struct TRect {
    Integer Left = 0;
    Integer Top = 0;
    Integer Right = 0;
    Integer Bottom = 0;

    bool Contains(TPoint point) const {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }
    TPoint Center() const { return {Left + (Right - Left) / 2, Top + (Bottom - Top) / 2}; }
};

enum class TMouseButton : Byte { Left, Right, Middle };

// What is held down beside the key or button of an event; the flags add up.
enum class TShiftState : Byte { None = 0, Shift = 1, Alt = 2, Ctrl = 4 };
constexpr TShiftState operator|(TShiftState left, TShiftState right) {
    return static_cast<TShiftState>(static_cast<Byte>(left) | static_cast<Byte>(right));
}
constexpr bool Has(TShiftState state, TShiftState flag) {
    return (static_cast<Byte>(state) & static_cast<Byte>(flag)) != 0;
}

// Keys by their numbers. Digits and capital letters are their own characters.
namespace Key {
inline constexpr Word Back = 8;
inline constexpr Word Tab = 9;
inline constexpr Word Return = 13;
inline constexpr Word Escape = 27;
inline constexpr Word End = 35;
inline constexpr Word Home = 36;
inline constexpr Word Left = 37;
inline constexpr Word Up = 38;
inline constexpr Word Right = 39;
inline constexpr Word Down = 40;
inline constexpr Word Delete = 46;
inline constexpr Word F4 = 115;
inline constexpr Word Comma = 188;
inline constexpr Word Minus = 189;
inline constexpr Word Point = 190;
inline constexpr Word Composed = 229; // the input method had the key, or no key has the character
} // namespace Key

// Characters that a key press brings instead of text.
namespace KeyChar {
inline constexpr Char None = 0;     // a handler leaves this where it used the key up
inline constexpr Char Deletion = 8; // both directions
inline constexpr Char Return = 13;
inline constexpr Char Paste = 22;
inline constexpr Char Cut = 24;
inline constexpr Char Escape = 27;
} // namespace KeyChar

// The first argument is the widget. A handler may change a key; None or 0 uses it up.
using TKeyEvent = TEvent<void(TObject*, Word&, TShiftState)>;
using TKeyPressEvent = TEvent<void(TObject*, Char&)>;
// With the place inside the widget.
using TMouseEvent = TEvent<void(TObject*, TMouseButton, TShiftState, Integer, Integer)>;
// With the turn (a notch is WheelNotch, away from the person is above zero), the place, and whether
// the handler has dealt with it.
using TMouseWheelEvent = TEvent<void(TObject*, TShiftState, Integer, TPoint, Boolean&)>;
// With the text to be accepted, which a handler may replace; the reason; and whether it is refused.
using TcxEditValidateEvent = TEvent<void(TObject*, Variant&, String&, Boolean&)>;

inline constexpr Integer WheelNotch = 120;

} // namespace quorin
