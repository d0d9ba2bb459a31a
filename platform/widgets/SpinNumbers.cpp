#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/widgets/SpinEdit.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace quorin {

namespace {

constexpr Char GroupMark = u',';
// In one turn of the wheel; what is turned beyond is lost.
constexpr Integer MostNotches = 100;
// Longer text without its group marks is no number.
constexpr std::size_t LongestNumber = 64;

// The forms of full width, U+FF01 to U+FF5E, stand in the order of the ordinary characters.
constexpr Char FirstFullWidth = 0xFF01;
constexpr Char LastFullWidth = 0xFF5E;
constexpr Char FullWidthShift = 0xFF01 - u'!';
constexpr Char IdeographicSpace = 0x3000;
constexpr Char IdeographicFullStop = 0x3002;
constexpr Char NoBreakSpace = 0x00A0;
constexpr Char MinusSign = 0x2212;

// Steps of decimal fractions do not add up in binary: without this, ten steps of 0.1 would end
// beside 1.
Double RoundedTo15Digits(Double value) {
    constexpr int digitsBehindFirst = 14;
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value,
                                       std::chars_format::scientific, digitsBehindFirst);
    Double rounded = value;
    std::from_chars(text, written.ptr, rounded);
    return rounded;
}

} // namespace

Char TcxSpinEdit::Folded(Char unit) const {
    if (unit >= FirstFullWidth && unit <= LastFullWidth) {
        return static_cast<Char>(unit - FullWidthShift);
    }
    switch (unit) {
    case IdeographicFullStop: return u'.';
    case MinusSign: return u'-';
    case IdeographicSpace:
    case NoBreakSpace: return u' ';
    default: return unit;
    }
}

bool TcxSpinEdit::Accepts(Char unit) const {
    if (unit >= u'0' && unit <= u'9') return true;
    if (unit == u'-' || unit == u'+' || unit == GroupMark) return true;
    return !IsWhole() && (unit == u'.' || unit == u'e' || unit == u'E');
}

// All or nothing: leaving out what does not fit would make another number of it.
StringView TcxSpinEdit::PasteOf(StringView text) const {
    const StringView number = Trim(text);
    for (const Char unit : number) {
        if (!Accepts(unit)) return {};
    }
    return number;
}

Variant TcxSpinEdit::NumberOf(Double number) const {
    if (!std::isfinite(number)) return Variant();
    if (IsWhole()) return Variant(RoundToInt64(number));
    return Variant(number == 0.0 ? 0.0 : number); // a zero without a sign
}

// False for text that is no number, which is not the same as empty text.
bool TcxSpinEdit::TryReadText(StringView text, Variant& value) const {
    if (text.empty()) {
        value = Variant();
        return true;
    }
    Char digits[LongestNumber];
    std::size_t count = 0;
    for (const Char unit : text) {
        if (unit == GroupMark) continue;
        if (count == LongestNumber) return false;
        digits[count++] = unit;
    }
    const StringView number(digits, count);
    if (IsWhole()) {
        Int64 whole = 0;
        if (!TryParseInt64(number, whole)) return false;
        value = Variant(whole);
    } else {
        Double real = 0.0;
        if (!TryParseDouble(number, real)) return false;
        value = NumberOf(real);
    }
    return true;
}

bool TcxSpinEdit::TryRead(const Variant& from, Variant& value) const {
    switch (from.Kind()) {
    case Variant::TKind::Null: value = Variant(); return true;
    case Variant::TKind::Text: return TryReadText(from.ToText(), value);
    case Variant::TKind::Array: return false;
    case Variant::TKind::Real: value = NumberOf(from.ToDouble()); return true;
    case Variant::TKind::Whole:
    case Variant::TKind::LongWhole: break;
    }
    value = IsWhole() ? Variant(from.ToInt64()) : NumberOf(from.ToDouble());
    return true;
}

Variant TcxSpinEdit::Limited(const Variant& value) const {
    if (value.IsNull()) return value;
    const Double number = value.ToDouble();
    if (FProperties.HasMinValue() && number < FProperties.MinValue()) {
        return NumberOf(IsWhole() ? std::ceil(FProperties.MinValue()) : FProperties.MinValue());
    }
    if (FProperties.HasMaxValue() && number > FProperties.MaxValue()) {
        return NumberOf(IsWhole() ? std::floor(FProperties.MaxValue()) : FProperties.MaxValue());
    }
    return value;
}

void TcxSpinEdit::Step(Integer steps) {
    const Double from = FValue.IsNull() ? 0.0 : FValue.ToDouble();
    const Variant stepped =
        Limited(NumberOf(RoundedTo15Digits(from + steps * FProperties.Increment())));
    if (stepped.IsNull()) return; // beyond all numbers
    if (stepped != FValue) BeginEdit();
    SettleOn(stepped);
}

bool TcxSpinEdit::HandleKey(Word key, TShiftState shift) {
    const bool isStep = (key == Key::Up || key == Key::Down) && !Has(shift, TShiftState::Alt) &&
                        !Has(shift, TShiftState::Ctrl);
    if (!isStep) return TcxCustomEdit::HandleKey(key, shift);
    Step(key == Key::Up ? 1 : -1);
    return true;
}

void TcxSpinEdit::ButtonDown(Integer index) {
    FUntilRepeat = RepeatDelay;
    Step(index == UpButton ? 1 : -1);
}

void TcxSpinEdit::Tick(Integer milliseconds) {
    if (PressedButton() == NoButton) return;
    FUntilRepeat -= milliseconds;
    if (FUntilRepeat > 0) return;
    FUntilRepeat = RepeatInterval;
    Step(PressedButton() == UpButton ? 1 : -1);
}

bool TcxSpinEdit::WheelTurned(Integer wheelDelta) {
    if ((wheelDelta > 0) != (FWheelRest > 0)) FWheelRest = 0;
    FWheelRest += wheelDelta;
    const Integer notches = FWheelRest / WheelNotch;
    FWheelRest -= notches * WheelNotch;
    // As the keys: a handler that walks a table of steps is asked before each of them.
    const Word key = notches > 0 ? Key::Up : Key::Down;
    const TWatch watch(FLifeline);
    for (Integer notch = std::min(std::abs(notches), MostNotches); notch > 0; --notch) {
        PressKey(key);
        if (!watch.IsAlive()) break;
        ReleaseKey(key);
        if (!watch.IsAlive()) break;
    }
    return true;
}

} // namespace quorin
