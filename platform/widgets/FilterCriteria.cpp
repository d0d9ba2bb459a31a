#include "platform/widgets/FilterCriteria.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"

#include <utility>

namespace quorin {

namespace {

constexpr Char Anything = u'%';

String TextOf(const Variant& value) {
    return value.IsArray() ? String() : value.ToText();
}

bool IsBlank(const Variant& value) {
    return value.IsNull() || (value.IsText() && value.ToText().empty());
}

// How a value compares with a criterion.
class TComparison {
public:
    TComparison(const Variant& value, const Variant& criterion, bool caseInsensitive) {
        FIsBlank = IsBlank(value);
        FIsCriterionBlank = IsBlank(criterion);
        Double left = 0.0;
        Double right = 0.0;
        const bool isNumeric = value.IsNumber() || criterion.IsNumber();
        if (isNumeric && value.TryToDouble(left) && criterion.TryToDouble(right)) {
            FOrder = left < right ? -1 : left > right ? 1 : 0;
            return;
        }
        const String text = TextOf(value);
        const String other = TextOf(criterion);
        FOrder = caseInsensitive ? CompareText(text, other) : text.compare(other);
    }
    bool IsEqual() const { return FIsBlank == FIsCriterionBlank && FOrder == 0; }
    bool IsLess() const { return HasOrder() && FOrder < 0; }
    bool IsGreater() const { return HasOrder() && FOrder > 0; }

private:
    bool HasOrder() const { return !FIsBlank && !FIsCriterionBlank; }

    int FOrder = 0;
    bool FIsBlank;
    bool FIsCriterionBlank;
};

bool IsLike(const Variant& value, const Variant& criterion, bool caseInsensitive) {
    String text = TextOf(value);
    String pattern = TextOf(criterion);
    if (caseInsensitive) {
        text = UpperCase(text);
        pattern = UpperCase(pattern);
    }
    StringView wanted = pattern;
    const bool anyBefore = !wanted.empty() && wanted.front() == Anything;
    if (anyBefore) wanted.remove_prefix(1);
    const bool anyBehind = !wanted.empty() && wanted.back() == Anything;
    if (anyBehind) wanted.remove_suffix(1);
    const StringView given = text;
    if (anyBefore && anyBehind) return given.find(wanted) != StringView::npos;
    if (given.size() < wanted.size()) return false;
    if (anyBefore) return given.substr(given.size() - wanted.size()) == wanted;
    if (anyBehind) return given.substr(0, wanted.size()) == wanted;
    return given == wanted;
}

bool IsBetween(const Variant& value, const Variant& bounds, bool caseInsensitive) {
    const auto& elements = bounds.Elements();
    if (elements.size() != 2 || IsBlank(value)) return false;
    return !TComparison(value, elements[0], caseInsensitive).IsLess() &&
           !TComparison(value, elements[1], caseInsensitive).IsGreater();
}

} // namespace

Boolean TcxFilterCriteriaItem::Passes(const Variant& value, Boolean caseInsensitive) const {
    const auto compare = [&] { return TComparison(value, FValue, caseInsensitive); };
    const auto isLessOrEqual = [&] { return compare().IsLess() || compare().IsEqual(); };
    const auto isGreaterOrEqual = [&] { return compare().IsGreater() || compare().IsEqual(); };
    switch (FKind) {
    case foEqual: return compare().IsEqual();
    case foNotEqual: return !compare().IsEqual();
    case foLess: return compare().IsLess();
    case foLessEqual: return isLessOrEqual();
    case foGreater: return compare().IsGreater();
    case foGreaterEqual: return isGreaterOrEqual();
    case foLike: return IsLike(value, FValue, caseInsensitive);
    case foNotLike: return !IsLike(value, FValue, caseInsensitive);
    case foBetween: return IsBetween(value, FValue, caseInsensitive);
    case foNotBetween: return !IsBetween(value, FValue, caseInsensitive);
    }
    return true;
}

TcxFilterCriteriaElement* TcxFilterCriteriaItemList::GetItem(Integer Index) const {
    const bool isInside = Index >= 0 && Index < GetCount();
    return isInside ? FItems[static_cast<std::size_t>(Index)].get() : nullptr;
}

TcxFilterCriteriaItemList& TcxFilterCriteriaItemList::AddItemList(TcxFilterBoolOperatorKind kind) {
    auto list = std::make_unique<TcxFilterCriteriaItemList>(kind);
    TcxFilterCriteriaItemList& added = *list;
    FItems.push_back(std::move(list));
    return added;
}

TcxFilterCriteriaItem& TcxFilterCriteriaItemList::AddItem(TObject* itemLink,
                                                          TcxFilterOperatorKind kind, Variant value,
                                                          StringView displayValue) {
    auto item =
        std::make_unique<TcxFilterCriteriaItem>(itemLink, kind, std::move(value), displayValue);
    TcxFilterCriteriaItem& added = *item;
    FItems.push_back(std::move(item));
    return added;
}

void TcxFilterCriteriaItemList::RemoveItemByItemLink(TObject* itemLink) {
    std::erase_if(FItems, [itemLink](const auto& element) {
        if (const auto* item = ObjectAs<TcxFilterCriteriaItem>(element.get())) {
            return item->ItemLink() == itemLink;
        }
        auto* list = ObjectAs<TcxFilterCriteriaItemList>(element.get());
        if (list == nullptr) return false;
        list->RemoveItemByItemLink(itemLink);
        return list->GetCount() == 0;
    });
}

void TcxFilterCriteriaItemList::Assign(const TcxFilterCriteriaItemList& other) {
    FItems.clear();
    FKind = other.FKind;
    for (const auto& element : other.FItems) {
        if (const auto* item = ObjectAs<TcxFilterCriteriaItem>(element.get())) {
            AddItem(item->ItemLink(), item->OperatorKind(), item->Value(), item->DisplayValue());
        } else if (const auto* list = ObjectAs<TcxFilterCriteriaItemList>(element.get())) {
            AddItemList(list->BoolOperatorKind()).Assign(*list);
        }
    }
}

TcxFilterCriteriaItem* TcxFilterCriteriaItemList::FindItemByItemLink(TObject* itemLink) const {
    for (const auto& element : FItems) {
        if (auto* item = ObjectAs<TcxFilterCriteriaItem>(element.get())) {
            if (item->ItemLink() == itemLink) return item;
        } else if (auto* list = ObjectAs<TcxFilterCriteriaItemList>(element.get())) {
            if (TcxFilterCriteriaItem* found = list->FindItemByItemLink(itemLink)) return found;
        }
    }
    return nullptr;
}

namespace {

bool ElementPasses(TcxFilterCriteriaElement& element, TcxFilterValues& values,
                   bool caseInsensitive);

bool ListPasses(const TcxFilterCriteriaItemList& list, TcxFilterValues& values,
                bool caseInsensitive) {
    if (list.GetCount() == 0) return true;
    const bool decides = list.BoolOperatorKind() == fboOr;
    for (Integer index = 0; index < list.GetCount(); ++index) {
        if (ElementPasses(*list.GetItem(index), values, caseInsensitive) == decides) return decides;
    }
    return !decides;
}

bool ElementPasses(TcxFilterCriteriaElement& element, TcxFilterValues& values,
                   bool caseInsensitive) {
    if (const auto* item = ObjectAs<TcxFilterCriteriaItem>(&element)) {
        return item->Passes(values.FilterValue(item->ItemLink()), caseInsensitive);
    }
    const auto* list = ObjectAs<TcxFilterCriteriaItemList>(&element);
    return list == nullptr || ListPasses(*list, values, caseInsensitive);
}

} // namespace

void TcxDataFilterCriteria::Refresh() {
    FIsCaseInsensitive = (FOptions & OptionBit(fcoCaseInsensitive)) != 0;
    FApplied.Clear();
    if (FActive) FApplied.Assign(FRoot);
    if (FOnApplied) FOnApplied(this);
}

void TcxDataFilterCriteria::ForgetItemLink(TObject* itemLink) {
    FRoot.RemoveItemByItemLink(itemLink);
    if (FApplied.FindItemByItemLink(itemLink) == nullptr) return;
    FApplied.RemoveItemByItemLink(itemLink);
    if (FOnApplied) FOnApplied(this);
}

Boolean TcxDataFilterCriteria::Passes(TcxFilterValues& values) const {
    return ListPasses(FApplied, values, FIsCaseInsensitive);
}

} // namespace quorin
