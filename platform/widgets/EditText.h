#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The text of a field of one line, with a caret and a selection between the caret and its anchor.
// Positions count units. One outside is taken as the nearest end, and one inside a surrogate pair
// as the place before it.
class TcxEditText {
public:
    const String& Text() const { return FText; }
    Integer Length() const { return static_cast<Integer>(FText.size()); }
    Integer Caret() const { return FCaret; }
    Integer SelStart() const { return FAnchor < FCaret ? FAnchor : FCaret; }
    Integer SelLength() const { return FAnchor < FCaret ? FCaret - FAnchor : FAnchor - FCaret; }
    StringView SelText() const;

    // Replaces all; caret and selection stay where they are as far as the new text reaches.
    void Assign(StringView text);
    void Select(Integer anchor, Integer caret);
    void MoveCaret(Integer position, bool extend) { Select(extend ? FAnchor : position, position); }
    // One character to the left or right; without `extend`, a selection falls together at that
    // side.
    void StepCaret(bool toRight, bool extend);
    // Replaces the selection; the caret goes behind.
    void Insert(StringView text);
    // The selection or, without one, the character on that side of the caret. False when there is
    // nothing.
    bool Erase(bool toRight);

private:
    Integer Before(Integer position) const;
    Integer Behind(Integer position) const;

    String FText;
    Integer FAnchor = 0;
    Integer FCaret = 0;
};

// The first character of `text`, which must not be empty: one unit, or both of a surrogate pair.
StringView FirstCharacter(StringView text);

} // namespace quorin
