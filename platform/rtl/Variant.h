#pragma once

#include "platform/rtl/Types.h"

#include <memory>
#include <stdexcept>
#include <vector>

namespace quorin {

class EVariantError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The raw value of a cell: null, text, a Double, a whole number, or an array of these. The kinds
// stay apart: whole 0, 0.0, null and empty text are four different values. Numbers are held in
// place; only texts and arrays may allocate.
class Variant {
public:
    enum class TKind : Byte { Null, Whole, LongWhole, Real, Text, Array };
    using TArray = std::vector<Variant>;

    Variant() {}
    Variant(Integer value) : FInteger(value), FKind(TKind::Whole) {}
    Variant(Int64 value) : FInt64(value), FKind(TKind::LongWhole) {}
    Variant(Double value) : FDouble(value), FKind(TKind::Real) {}
    Variant(String value) : FText(std::move(value)), FKind(TKind::Text) {}
    Variant(StringView value) : FText(value), FKind(TKind::Text) {}
    Variant(const Char* value) : FText(value), FKind(TKind::Text) {}
    Variant(TArray value);
    Variant(bool) = delete;
    Variant(const Variant& other) { CopyFrom(other); }
    Variant(Variant&& other) noexcept { MoveFrom(other); }
    Variant& operator=(const Variant& other);
    Variant& operator=(Variant&& other) noexcept;
    ~Variant() { Reset(); }

    static Variant EmptyText() { return Variant(String()); }

    TKind Kind() const { return FKind; }
    bool IsNull() const { return FKind == TKind::Null; }
    bool IsText() const { return FKind == TKind::Text; }
    bool IsArray() const { return FKind == TKind::Array; }
    bool IsNumber() const {
        return FKind == TKind::Whole || FKind == TKind::LongWhole || FKind == TKind::Real;
    }

    // The number, or the number that the whole text spells. Raises EVariantError for anything
    // else: null, an array, empty text, text that is no number.
    Double ToDouble() const { return FKind == TKind::Real ? FDouble : ReadDouble(); }
    // The same as a whole number: a Double is rounded half to even and saturates.
    Int64 ToInt64() const;
    // Null is empty text; a Double that is a whole number has no point. Raises for an array.
    String ToText() const;
    // Answers False and leaves `value` alone where ToDouble would raise.
    bool TryToDouble(Double& value) const;

    // The elements; empty for every other kind.
    const TArray& Elements() const;

    // Equal in kind and value.
    friend bool operator==(const Variant& left, const Variant& right);

private:
    void Reset() {
        if (FKind >= TKind::Text) Destroy();
    }
    void Destroy();
    Double ReadDouble() const;
    void CopyFrom(const Variant& other);
    void MoveFrom(Variant& other) noexcept {
        if (other.FKind < TKind::Text) {
            FInt64 = other.FInt64; // the bits of any number
            FKind = other.FKind;
        } else {
            MoveOwned(other);
        }
    }
    void MoveOwned(Variant& other) noexcept;

    union {
        Int64 FInt64 = 0;
        Integer FInteger;
        Double FDouble;
        String FText;
        std::unique_ptr<TArray> FArray;
    };
    TKind FKind = TKind::Null;
};

} // namespace quorin
