#include "platform/widgets/EditText.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Char SurrogateKindMask = 0xFC00;
constexpr Char HighSurrogate = 0xD800;
constexpr Char LowSurrogate = 0xDC00;

bool IsPairAt(StringView text, std::size_t position) {
    return position + 1 < text.size() && (text[position] & SurrogateKindMask) == HighSurrogate &&
           (text[position + 1] & SurrogateKindMask) == LowSurrogate;
}

std::size_t Place(Integer position) {
    return static_cast<std::size_t>(position);
}

Integer Snapped(StringView text, Integer position) {
    const Integer inside = std::clamp(position, 0, static_cast<Integer>(text.size()));
    return inside > 0 && IsPairAt(text, Place(inside - 1)) ? inside - 1 : inside;
}

} // namespace

StringView FirstCharacter(StringView text) {
    return text.substr(0, IsPairAt(text, 0) ? 2 : 1);
}

StringView TcxEditText::SelText() const {
    return StringView(FText).substr(Place(SelStart()), Place(SelLength()));
}

void TcxEditText::Assign(StringView text) {
    FText = text;
    Select(FAnchor, FCaret);
}

void TcxEditText::Select(Integer anchor, Integer caret) {
    FAnchor = Snapped(FText, anchor);
    FCaret = Snapped(FText, caret);
}

Integer TcxEditText::Before(Integer position) const {
    return Snapped(FText, position - 1);
}

Integer TcxEditText::Behind(Integer position) const {
    return position < Length() && IsPairAt(FText, Place(position)) ? position + 2 : position + 1;
}

void TcxEditText::StepCaret(bool toRight, bool extend) {
    if (!extend && SelLength() > 0) {
        MoveCaret(toRight ? SelStart() + SelLength() : SelStart(), false);
    } else {
        MoveCaret(toRight ? Behind(FCaret) : Before(FCaret), extend);
    }
}

void TcxEditText::Insert(StringView text) {
    const Integer start = SelStart();
    FText.replace(Place(start), Place(SelLength()), text);
    MoveCaret(start + static_cast<Integer>(text.size()), false);
}

bool TcxEditText::Erase(bool toRight) {
    if (SelLength() == 0) StepCaret(toRight, true);
    if (SelLength() == 0) return false;
    Insert({});
    return true;
}

} // namespace quorin
