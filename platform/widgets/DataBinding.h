#pragma once

#include "platform/widgets/FilterCriteria.h"

namespace quorin {

// What the values of a column are. Types are told apart by class, exactly: a form may derive its
// own.
class TcxValueType : public TObject {
    QUORIN_CLASS(TcxValueType, TObject)
};
class TcxStringValueType : public TcxValueType {
    QUORIN_CLASS(TcxStringValueType, TcxValueType)
};
class TcxFloatValueType : public TcxValueType {
    QUORIN_CLASS(TcxFloatValueType, TcxValueType)
};
class TcxIntegerValueType : public TcxValueType {
    QUORIN_CLASS(TcxIntegerValueType, TcxValueType)
};
class TcxDateTimeValueType : public TcxValueType {
    QUORIN_CLASS(TcxDateTimeValueType, TcxValueType)
};

using TcxValueTypeClass = const TClassInfo*;

template <class ValueType>
Boolean IsValueType(TcxValueTypeClass type) {
    return type == &ValueType::StaticClass();
}

// The side of a grid column that deals with values: their type, and the filter that they pass.
class TcxGridItemDataBinding {
public:
    TcxGridItemDataBinding(TObject& column, TcxDataFilterCriteria& filter)
        : FColumn(&column), FFilter(&filter) {}

    // Text to begin with.
    TcxValueTypeClass GetValueTypeClass() const { return FValueType; }
    template <class ValueType>
    void SetValueType() {
        FValueType = &ValueType::StaticClass();
    }

    TcxDataFilterCriteria& GetFilter() const { return *FFilter; }
    // The column's first criterion; nil while it is not filtered.
    TcxFilterCriteriaItem* GetFilterCriteriaItem() const {
        return FFilter->Root().FindItemByItemLink(FColumn);
    }
    // Adds a criterion of this column to a list of the filter; with `ReplaceExisting` the ones
    // before go.
    void AddToFilter(TcxFilterCriteriaItemList& ItemList, TcxFilterOperatorKind OperatorKind,
                     const Variant& Value, StringView DisplayValue, Boolean ReplaceExisting) {
        if (ReplaceExisting) FFilter->RemoveItemByItemLink(FColumn);
        ItemList.AddItem(FColumn, OperatorKind, Value, DisplayValue);
    }

private:
    TObject* FColumn;
    TcxDataFilterCriteria* FFilter;
    TcxValueTypeClass FValueType = &TcxStringValueType::StaticClass();
};

} // namespace quorin
