#pragma once

#include "platform/rtl/TEvent.h"
#include "platform/rtl/TObject.h"
#include "platform/rtl/Variant.h"

#include <memory>
#include <vector>

namespace quorin {

enum class TcxFilterOperatorKind : Byte {
    foEqual,
    foNotEqual,
    foLess,
    foLessEqual,
    foGreater,
    foGreaterEqual,
    foLike, // "%" at an end of the value stands for anything; without one it is an equal
    foNotLike,
    foBetween, // the value is an array of the two bounds, which belong to the range
    foNotBetween,
};
using enum TcxFilterOperatorKind;

enum class TcxFilterBoolOperatorKind : Byte { fboAnd, fboOr };
using enum TcxFilterBoolOperatorKind;

// Ordinals of the options of a filter; options are a set of bits.
enum class TcxFilterCriteriaOption : Byte { fcoGoToFirstRecord, fcoCaseInsensitive };
using enum TcxFilterCriteriaOption;
using TcxFilterCriteriaOptions = Integer;

inline constexpr TcxFilterCriteriaOptions OptionBit(TcxFilterCriteriaOption option) {
    return 1 << static_cast<Integer>(option);
}

// What a filter is made of: an item, or a list of elements.
class TcxFilterCriteriaElement : public TObject {
    QUORIN_CLASS(TcxFilterCriteriaElement, TObject)
};

// One comparison of one column.
class TcxFilterCriteriaItem : public TcxFilterCriteriaElement {
    QUORIN_CLASS(TcxFilterCriteriaItem, TcxFilterCriteriaElement)

    TcxFilterCriteriaItem(TObject* itemLink, TcxFilterOperatorKind kind, Variant value,
                          StringView displayValue)
        : FItemLink(itemLink), FValue(std::move(value)), FDisplayValue(displayValue), FKind(kind) {}

    // The column; not owned.
    TObject* ItemLink() const { return FItemLink; }
    TcxFilterOperatorKind OperatorKind() const { return FKind; }
    const Variant& Value() const { return FValue; }
    const String& DisplayValue() const { return FDisplayValue; }

    // Whether a raw value passes. Numbers compare as numbers, also where one of the two is a text
    // that spells one; two texts, and everything else, compare as text. Null is as empty text,
    // which is equal to itself alone and neither less nor greater than anything.
    Boolean Passes(const Variant& value, Boolean caseInsensitive) const;

private:
    TObject* FItemLink;
    Variant FValue;
    String FDisplayValue;
    TcxFilterOperatorKind FKind;
};

// Elements that must all pass, or one of which must. An empty list lets everything pass.
class TcxFilterCriteriaItemList : public TcxFilterCriteriaElement {
    QUORIN_CLASS(TcxFilterCriteriaItemList, TcxFilterCriteriaElement)

    explicit TcxFilterCriteriaItemList(TcxFilterBoolOperatorKind kind = fboAnd) : FKind(kind) {}

    TcxFilterBoolOperatorKind BoolOperatorKind() const { return FKind; }
    Integer GetCount() const { return static_cast<Integer>(FItems.size()); }
    // Nil outside.
    TcxFilterCriteriaElement* GetItem(Integer Index) const;
    // The new element is the list's.
    TcxFilterCriteriaItemList& AddItemList(TcxFilterBoolOperatorKind kind);
    TcxFilterCriteriaItem& AddItem(TObject* itemLink, TcxFilterOperatorKind kind, Variant value,
                                   StringView displayValue);
    void Clear() { FItems.clear(); }
    // Becomes a copy of the other list, down to the last item.
    void Assign(const TcxFilterCriteriaItemList& other);
    // Removes the items of that column, at any depth, and the lists that are empty then.
    void RemoveItemByItemLink(TObject* itemLink);
    // The first item of that column, depth first; nil without one.
    TcxFilterCriteriaItem* FindItemByItemLink(TObject* itemLink) const;

private:
    std::vector<std::unique_ptr<TcxFilterCriteriaElement>> FItems;
    TcxFilterBoolOperatorKind FKind;
};

// Gives the raw value of a column in the record that is being looked at.
class TcxFilterValues {
public:
    virtual ~TcxFilterValues() = default;
    virtual Variant FilterValue(TObject* itemLink) = 0;
};

// The filter of a view: its criteria, and whether they count. What is changed here counts for the
// view from the next Refresh on.
class TcxDataFilterCriteria : public TObject {
    QUORIN_CLASS(TcxDataFilterCriteria, TObject)

    TcxFilterCriteriaItemList& Root() { return FRoot; }
    const TcxFilterCriteriaItemList& Root() const { return FRoot; }
    Boolean Active() const { return FActive; }
    void SetActive(Boolean Value) { FActive = Value; }
    TcxFilterCriteriaOptions GetOptions() const { return FOptions; }
    void SetOptions(TcxFilterCriteriaOptions Value) { FOptions = Value; }
    void RemoveItemByItemLink(TObject* itemLink) { FRoot.RemoveItemByItemLink(itemLink); }
    // Puts the criteria into effect.
    void Refresh();
    // The column dies: what it filtered counts no more, at once.
    void ForgetItemLink(TObject* itemLink);
    // Raised when what counts has changed.
    void SetOnApplied(const TNotifyEvent& event) { FOnApplied = event; }

    // Some criteria are in effect.
    Boolean IsFiltering() const { return FApplied.GetCount() > 0; }
    Boolean Passes(TcxFilterValues& values) const;

private:
    TcxFilterCriteriaItemList FRoot;
    TcxFilterCriteriaItemList FApplied;
    TNotifyEvent FOnApplied;
    TcxFilterCriteriaOptions FOptions = 0;
    Boolean FActive = false;
    Boolean FIsCaseInsensitive = false; // in effect
};

} // namespace quorin
