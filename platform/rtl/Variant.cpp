#include "platform/rtl/Variant.h"

#include "platform/rtl/Numbers.h"

#include <new>

namespace quorin {

namespace {

[[noreturn]] void RaiseNotANumber() {
    throw EVariantError("the value is not a number");
}

} // namespace

Variant::Variant(TArray value)
    : FArray(std::make_unique<TArray>(std::move(value))), FKind(TKind::Array) {}

Variant& Variant::operator=(const Variant& other) {
    if (this != &other) *this = Variant(other);
    return *this;
}

Variant& Variant::operator=(Variant&& other) noexcept {
    if (this != &other) {
        Variant taken(std::move(other)); // `other` may lie inside the array that dies here
        Reset();
        MoveFrom(taken);
    }
    return *this;
}

Double Variant::ReadDouble() const {
    Double value = 0.0;
    if (!TryToDouble(value)) RaiseNotANumber();
    return value;
}

Int64 Variant::ToInt64() const {
    switch (FKind) {
    case TKind::Whole: return FInteger;
    case TKind::LongWhole: return FInt64;
    case TKind::Text: {
        Int64 whole = 0;
        if (TryParseInt64(FText, whole)) return whole;
        break;
    }
    default: break;
    }
    return RoundToInt64(ToDouble());
}

String Variant::ToText() const {
    switch (FKind) {
    case TKind::Null: return String();
    case TKind::Whole: return IntegerToText(FInteger);
    case TKind::LongWhole: return IntegerToText(FInt64);
    case TKind::Real: return DoubleToText(FDouble);
    case TKind::Text: return FText;
    case TKind::Array: break;
    }
    throw EVariantError("an array has no text");
}

bool Variant::TryToDouble(Double& value) const {
    switch (FKind) {
    case TKind::Whole: value = FInteger; return true;
    case TKind::LongWhole: value = static_cast<Double>(FInt64); return true;
    case TKind::Real: value = FDouble; return true;
    case TKind::Text: return TryParseDouble(FText, value);
    default: return false;
    }
}

const Variant::TArray& Variant::Elements() const {
    static const TArray none;
    return FKind == TKind::Array ? *FArray : none;
}

bool operator==(const Variant& left, const Variant& right) {
    if (left.FKind != right.FKind) return false;
    switch (left.FKind) {
    case Variant::TKind::Null: return true;
    case Variant::TKind::Whole: return left.FInteger == right.FInteger;
    case Variant::TKind::LongWhole: return left.FInt64 == right.FInt64;
    case Variant::TKind::Real: return left.FDouble == right.FDouble;
    case Variant::TKind::Text: return left.FText == right.FText;
    case Variant::TKind::Array: return *left.FArray == *right.FArray;
    }
    return false;
}

void Variant::Destroy() {
    if (FKind == TKind::Text) {
        FText.~String();
    } else {
        FArray.~unique_ptr();
    }
    FInt64 = 0;
    FKind = TKind::Null;
}

void Variant::CopyFrom(const Variant& other) {
    switch (other.FKind) {
    case TKind::Text: new (&FText) String(other.FText); break;
    case TKind::Array: new (&FArray) std::unique_ptr<TArray>(new TArray(*other.FArray)); break;
    default: FInt64 = other.FInt64; break;
    }
    FKind = other.FKind;
}

void Variant::MoveOwned(Variant& other) noexcept {
    if (other.FKind == TKind::Text) {
        new (&FText) String(std::move(other.FText));
        other.FText.~String();
    } else {
        new (&FArray) std::unique_ptr<TArray>(std::move(other.FArray));
        other.FArray.~unique_ptr();
    }
    FKind = other.FKind;
    other.FInt64 = 0;
    other.FKind = TKind::Null;
}

} // namespace quorin
