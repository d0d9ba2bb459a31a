#include "viewdata/presentation/CustomFilterDialog.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/GlobalChannelManager.h"

#include <exception>
#include <optional>

namespace quorin {

namespace {

constexpr Char ValueEnd = u',';
constexpr StringView NumberPattern = u"##0.########";
constexpr std::size_t BoundCount = 2; // of a range

struct TOperatorPair {
    Byte Shown;
    TcxFilterOperatorKind Kind;
};
constexpr TOperatorPair Operators[] = {
    {FilterOperator::Contains, foLike},         {FilterOperator::NotContains, foNotLike},
    {FilterOperator::Equal, foEqual},           {FilterOperator::NotEqual, foNotEqual},
    {FilterOperator::Greater, foGreater},       {FilterOperator::Less, foLess},
    {FilterOperator::LessOrEqual, foLessEqual}, {FilterOperator::GreaterOrEqual, foGreaterEqual},
    {FilterOperator::Between, foBetween},       {FilterOperator::NotBetween, foNotBetween},
};

std::optional<Byte> ShownOperator(TcxFilterOperatorKind kind) {
    for (const TOperatorPair& pair : Operators) {
        if (pair.Kind == kind) return pair.Shown;
    }
    return std::nullopt;
}

std::optional<TcxFilterOperatorKind> OperatorKind(Byte shown) {
    for (const TOperatorPair& pair : Operators) {
        if (pair.Shown == shown) return pair.Kind;
    }
    return std::nullopt;
}

Boolean IsRange(Byte shown) {
    return shown == FilterOperator::Between || shown == FilterOperator::NotBetween;
}

// By class, exactly: a date is no date with its time.
Byte DataKindOf(TcxValueTypeClass type) {
    if (IsValueType<TcxFloatValueType>(type)) return FilterDataKind::Number;
    if (IsValueType<TcxIntegerValueType>(type)) return FilterDataKind::Number;
    if (IsValueType<TcxDateTimeValueType>(type)) return FilterDataKind::DateTime;
    if (IsValueType<TZTDateValueType>(type)) return FilterDataKind::Date;
    if (IsValueType<TZTTimeValueType>(type)) return FilterDataKind::Time;
    return FilterDataKind::Text;
}

String ValueText(const Variant& value, Byte dataKind) {
    return dataKind == FilterDataKind::Number ? FormatPattern(value.ToDouble(), NumberPattern)
                                              : value.ToText();
}

// Every value with its separator behind it.
String ItemText(const TcxFilterCriteriaItem& item, Byte dataKind) {
    if (dataKind == FilterDataKind::Text) return item.DisplayValue() + ValueEnd;
    const Variant& value = item.Value();
    if (!value.IsArray()) return ValueText(value, dataKind) + ValueEnd;
    String text;
    for (const Variant& element : value.Elements()) text += ValueText(element, dataKind) + ValueEnd;
    return text;
}

String NumberText(Double value) {
    return TCustomFormatter::GetInstance()->FormatFloat(value, AllDecimals, /*Flag=*/true);
}

void Gather(const TcxFilterCriteriaItemList& list, const TObject* column,
            TList<TcxFilterCriteriaItem*>& items) {
    for (Integer index = 0; index < list.GetCount(); ++index) {
        TcxFilterCriteriaElement* element = list.GetItem(index);
        if (auto* item = ObjectAs<TcxFilterCriteriaItem>(element)) {
            if (item->ItemLink() == column) items.Add(item);
        } else if (const auto* nested = ObjectAs<TcxFilterCriteriaItemList>(element)) {
            Gather(*nested, column, items);
        }
    }
}

} // namespace

void TGridCustomFilterRecord::SetViews(TcxGridTableView* grid, TcxGridColumn* column) {
    if (FColumn != nullptr) FColumn->RemoveFreeListener(this);
    FGrid = grid;
    FColumn = column;
    if (FColumn == nullptr) return;
    // The grid frees its columns, so that the column's end tells of both.
    FColumn->AddFreeListener(MakeEvent<&TGridCustomFilterRecord::ViewFreed>(this), this);
}

void TGridCustomFilterRecord::ViewFreed(TObject*) {
    FGrid = nullptr;
    FColumn = nullptr;
}

void TGridCustomFilterRecord::ExecuteCustomFilter(TcxGridTableView& Grid, TcxGridColumn& Column) {
    SetViews(&Grid, &Column);
    ShowCustomFilterView();
}

void TGridCustomFilterRecord::ShowCustomFilterView() {
    TCustomFilterRecord record;
    if (!Read(record)) return;
    const TCustomFilterRecord before = record;
    const std::uint32_t dialog = ++FDialogs;
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(ChannelMessage::CustomFilter,
                                                                   Pointer(&record));
    // The column died while the dialog was open, or is another dialog's now.
    if (FColumn == nullptr || dialog != FDialogs) return;
    if (record.Value == before.Value && record.Operator == before.Operator) return;
    record.DataKind = before.DataKind;
    Write(record);
}

Boolean TGridCustomFilterRecord::Read(TCustomFilterRecord& record) {
    record.DataKind = DataKindOf(FColumn->DataBinding().GetValueTypeClass());
    const TcxFilterCriteriaItem* first = FColumn->DataBinding().GetFilterCriteriaItem();
    if (first == nullptr) return true;
    const std::optional<Byte> shown = ShownOperator(first->OperatorKind());
    if (!shown.has_value()) return false;
    record.Operator = *shown;
    for (const TcxFilterCriteriaItem* item : GetFilterCriteriaItems()) {
        try {
            record.Value += ItemText(*item, record.DataKind);
        } catch (const std::exception&) {
            // A value that can't be shown is left out.
        }
    }
    if (!record.Value.empty()) record.Value.pop_back();
    return true;
}

TList<TcxFilterCriteriaItem*> TGridCustomFilterRecord::GetFilterCriteriaItems() {
    TList<TcxFilterCriteriaItem*> items;
    Gather(FGrid->Filter().Root(), FColumn, items);
    return items;
}

void TGridCustomFilterRecord::Write(const TCustomFilterRecord& record) {
    TcxDataFilterCriteria& filter = FGrid->Filter();
    filter.SetActive(true);
    FColumn->DataBinding().GetFilter().RemoveItemByItemLink(FColumn);
    filter.SetOptions(filter.GetOptions() | OptionBit(fcoCaseInsensitive));
    const std::optional<TcxFilterOperatorKind> kind = OperatorKind(record.Operator);
    if (!record.Value.empty() && kind.has_value()) {
        if (record.DataKind == FilterDataKind::Text) {
            AddTexts(record, *kind);
        } else if (IsRange(record.Operator)) {
            if (!AddRange(record, *kind)) return; // not refreshed: the old rows stay on show
        } else if (record.DataKind == FilterDataKind::Number) {
            AddNumber(record, *kind);
        } else {
            FColumn->DataBinding().AddToFilter(filter.Root(), *kind, record.Value, record.Value,
                                               /*ReplaceExisting=*/false);
        }
    }
    filter.Refresh();
}

void TGridCustomFilterRecord::AddTexts(const TCustomFilterRecord& record,
                                       TcxFilterOperatorKind kind) {
    const Boolean isContains = record.Operator == FilterOperator::Contains ||
                               record.Operator == FilterOperator::NotContains;
    const Boolean isNegative = record.Operator == FilterOperator::NotContains ||
                               record.Operator == FilterOperator::NotEqual;
    const std::vector<StringView> pieces = Split(record.Value, ValueEnd);
    TcxFilterCriteriaItemList* target = &FGrid->Filter().Root();
    if (pieces.size() > 1) target = &target->AddItemList(isNegative ? fboAnd : fboOr);
    for (const StringView piece : pieces) {
        const String shown(piece);
        const String value = isContains && !shown.empty() ? u'%' + shown + u'%' : shown;
        FColumn->DataBinding().AddToFilter(*target, kind, value, shown, /*ReplaceExisting=*/false);
    }
}

Boolean TGridCustomFilterRecord::AddRange(const TCustomFilterRecord& record,
                                          TcxFilterOperatorKind kind) {
    const std::vector<StringView> pieces = Split(record.Value, ValueEnd);
    if (pieces.size() != BoundCount) return false;
    const Boolean isNumber = record.DataKind == FilterDataKind::Number;
    Variant::TArray bounds;
    std::vector<String> texts;
    for (const StringView piece : pieces) {
        const Double number = ToDoubleOr(piece, 0.0);
        bounds.push_back(isNumber ? Variant(number) : Variant(piece));
        texts.push_back(isNumber ? NumberText(number) : String(piece));
    }
    FColumn->DataBinding().AddToFilter(FGrid->Filter().Root(), kind, Variant(std::move(bounds)),
                                       FormatText(u"%s;%s", {texts[0], texts[1]}),
                                       /*ReplaceExisting=*/false);
    return true;
}

void TGridCustomFilterRecord::AddNumber(const TCustomFilterRecord& record,
                                        TcxFilterOperatorKind kind) {
    const Double number = ToDoubleOr(record.Value, 0.0);
    FColumn->DataBinding().AddToFilter(FGrid->Filter().Root(), kind, number, NumberText(number),
                                       /*ReplaceExisting=*/false);
}

} // namespace quorin
