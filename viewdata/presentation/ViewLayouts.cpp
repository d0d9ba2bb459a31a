#include "viewdata/presentation/ViewLayouts.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/presentation/ColumnSequence.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Char EntryEnd = u';';
constexpr Char FieldEnd = u',';
constexpr std::size_t FieldCount = 3; // of an entry; more are left alone
constexpr Integer WidestColumn = 300;
constexpr StringView Hidden = u"0";
constexpr StringView Shown = u"1";
constexpr Integer NoNumber = -1;

template <class... Fields>
void AddEntry(String& layout, StringView first, const Fields&... fields) {
    layout += first;
    ((layout += FieldEnd, layout += fields), ...);
    layout += EntryEnd;
}

template <class Twin>
String WriteColumns(typename Twin::TView& view, const TColumnList* defaultColumns) {
    String layout;
    for (const auto* column : ColumnSequence<Twin>(view)) {
        String key = ColumnKeyByID(column->Tag(), defaultColumns);
        if (key.empty()) key = IntegerToText(column->Tag());
        AddEntry(layout, key, column->GetVisible() ? Shown : Hidden,
                 IntegerToText(column->GetWidth()));
    }
    return layout;
}

// The column of an entry goes to the head of the sequence, and is as the entry says.
template <class Column>
void TakeOver(TList<Column*>& sequence, StringView entry, const TColumnList* defaultColumns) {
    const std::vector<StringView> fields = Split(entry, FieldEnd);
    if (fields.size() < FieldCount) return;
    const Integer id = ColumnIDByKey(Trim(fields[0]), defaultColumns);
    if (id == NoColumnID) return;
    Integer place = 0;
    while (place < sequence.Count() && sequence[place]->Tag() != id) ++place;
    if (place == sequence.Count()) return;
    sequence.Move(place, 0);
    Column& column = *sequence[0];
    column.SetVisible(fields[1] != Hidden);
    column.SetWidth(std::min(ToIntegerOr(fields[2], column.GetWidth()), WidestColumn));
}

// From the last entry to the first, so that the first one stands at the head in the end.
template <class Twin>
Boolean ReadColumns(typename Twin::TView& view, StringView layout,
                    const TColumnList* defaultColumns) {
    const std::vector<StringView> entries = Split(layout, EntryEnd);
    if (defaultColumns == nullptr || defaultColumns->IsEmpty() || entries.empty()) return false;
    auto sequence = ColumnSequence<Twin>(view);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        TakeOver(sequence, *entry, defaultColumns);
    }
    const TViewUpdate update(view);
    typename Twin::TPlacer placer(view);
    for (Integer index = 0; index < sequence.Count(); ++index) {
        placer.Place(*sequence[index], index);
    }
    return true;
}

template <class Twin>
String WriteSort(typename Twin::TView& view) {
    String layout;
    for (Integer index = 0; index < Twin::SortedCount(view); ++index) {
        const auto* column = Twin::Sorted(view, index);
        AddEntry(layout, IntegerToText(column->Tag()), IntegerToText(column->GetSortIndex()),
                 IntegerToText(static_cast<Integer>(column->GetSortOrder())));
    }
    return layout;
}

template <class Twin>
void ReadSortEntry(typename Twin::TView& view, StringView entry) {
    const std::vector<StringView> fields = Split(entry, FieldEnd);
    if (fields.size() < FieldCount) return;
    const Integer tag = ToIntegerOr(fields[0], NoNumber);
    const Integer index = ToIntegerOr(fields[1], NoNumber);
    const Integer order = ToIntegerOr(fields[2], NoNumber);
    const Boolean isDirection =
        order == static_cast<Integer>(soAscending) || order == static_cast<Integer>(soDescending);
    if (tag < 0 || index < 0 || !isDirection) return;
    if (auto* column = ColumnByTag<Twin>(view, tag)) {
        column->SetSortIndex(index);
        column->SetSortOrder(static_cast<TdxSortOrder>(order));
    }
}

template <class Twin>
void ReadSort(typename Twin::TView& view, StringView layout) {
    const TViewUpdate update(view);
    view.ClearSorting();
    for (const StringView piece : Split(layout, EntryEnd)) {
        const StringView entry = Trim(piece);
        if (!entry.empty()) ReadSortEntry<Twin>(view, entry);
    }
}

} // namespace

String GetColumnLayout(TcxGridTableView& grid, const TColumnList* defaultColumns) {
    return WriteColumns<TGridTwin>(grid, defaultColumns);
}

String GetColumnLayout(TcxVirtualTreeList& tree, const TColumnList* defaultColumns) {
    return WriteColumns<TTreeTwin>(tree, defaultColumns);
}

Boolean SetColumnLayout(TcxGridTableView& grid, StringView layout,
                        const TColumnList* defaultColumns) {
    return ReadColumns<TGridTwin>(grid, layout, defaultColumns);
}

Boolean SetColumnLayout(TcxVirtualTreeList& tree, StringView layout,
                        const TColumnList* defaultColumns) {
    return ReadColumns<TTreeTwin>(tree, layout, defaultColumns);
}

String GetSortLayout(TcxGridTableView& grid) {
    return WriteSort<TGridTwin>(grid);
}

String GetSortLayout(TcxVirtualTreeList& tree) {
    return WriteSort<TTreeTwin>(tree);
}

void SetSortLayout(TcxGridTableView& grid, StringView layout) {
    ReadSort<TGridTwin>(grid, layout);
}

void SetSortLayout(TcxVirtualTreeList& tree, StringView layout) {
    ReadSort<TTreeTwin>(tree, layout);
}

} // namespace quorin
