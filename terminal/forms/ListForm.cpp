#include "terminal/forms/ListForm.h"

#include "viewdata/frame/ServiceTexts.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

// The numbers that mean the same in every list.
constexpr Integer TextAttributes[] = {
    PositionAttribute::SymbolCode, PositionAttribute::Account,  PositionAttribute::Exchange,
    PositionAttribute::SymbolName, PositionAttribute::Currency, PositionAttribute::Expiry,
};

} // namespace

TFormColumns::TFormColumns(std::span<const TFormColumn> columns) {
    for (const TFormColumn& column : columns) {
        FColumns.push_back(TColumnInfo::AddColumn(column.Attribute, column.Caption, column.Width,
                                                  column.Key, column.IsQuantity));
        FList.Add(FColumns.back().get());
    }
}

TListForm::TListForm()
    : FView(CreateComponent<TcxGridTableView>()), FGrid(CreateComponent<TcxGrid>()) {
    FGrid->SetActiveView(FView.get());
    TCustomLanguageManager::GetInstance()->RegisterLanguageCallback(
        MakeEvent<&TListForm::LanguageChanged>(this), this);
}

TListForm::~TListForm() {
    TCustomLanguageManager::GetInstance()->RemoveLanguageCallback(this);
}

void TListForm::Bind(std::unique_ptr<TBaseDataControl> control, StringView customColumnTag) {
    FBase = control.get();
    FCustomColumnTag = customColumnTag;
    FSource = std::make_unique<TCustomGridDataSource>(std::move(control));
    FView->SetCustomDataSource(FSource.get());
    FView->SetOnGetCellText(MakeEvent<&TListForm::GetCellText>(this));
    for (const TColumnInfo* info : *FBase->GetColList()) {
        TcxGridColumn& column = FView->AddColumn(info->ID());
        column.SetWidth(info->Width());
        // Asked of the descendant that calls this, which is complete that far.
        if (!IsText(info->ID())) column.DataBinding().SetValueType<TcxFloatValueType>();
    }
    LanguageChanged({}, {});
}

TFormView TListForm::FormView() {
    return {FGrid.get(), nullptr, FBase->GetColList(), {PositionAttribute::SymbolCode}};
}

void TListForm::LanguageChanged(Pointer, Pointer) {
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        TcxGridColumn& column = *FView->GetColumn(index);
        column.SetCaption(ColumnCaption(FBase->GetColList(), column.GetTag(), FCustomColumnTag));
    }
}

String TListForm::Symbol(Integer row) {
    const Variant symbol = Value(row, PositionAttribute::SymbolCode);
    return symbol.IsText() ? symbol.ToText() : String();
}

String TListForm::RowKey(Integer row) {
    return TextOf(Value(row, KeyAttribute()));
}

bool TListForm::RowStillShows(Integer row, StringView key) {
    return FView->RecordIndex(row) != NoRow && RowKey(row) == key;
}

void TListForm::NoteRows(Integer first, Integer count) {
    FShownFirst = first;
    FShownKeys.clear();
    for (Integer row = first; row < first + count; ++row) FShownKeys.push_back(RowKey(row));
}

String TListForm::ShownKey(Integer row) const {
    const Integer place = row - FShownFirst;
    if (place < 0 || static_cast<std::size_t>(place) >= FShownKeys.size()) return {};
    return FShownKeys[static_cast<std::size_t>(place)];
}

Integer TListForm::ActionRecord(Integer row) {
    const String key = ShownKey(row);
    return !key.empty() && RowStillShows(row, key) ? FView->RecordIndex(row) : NoRow;
}

Variant TListForm::Value(Integer row, Integer attribute) {
    const Integer record = FView->RecordIndex(row);
    return record == NoRow ? Variant() : FBase->GetValue(record, attribute);
}

String TListForm::Text(Integer row, Integer attribute) {
    const Integer record = FView->RecordIndex(row);
    return record == NoRow ? String() : FBase->GetDisplayValue(record, attribute);
}

std::vector<Integer> TListForm::Attributes() {
    std::vector<Integer> attributes;
    for (const TColumnInfo* info : *FBase->GetColList()) attributes.push_back(info->ID());
    return attributes;
}

bool TListForm::IsText(Integer attribute) const {
    return std::find(std::begin(TextAttributes), std::end(TextAttributes), attribute) !=
           std::end(TextAttributes);
}

void TListForm::GetCellText(Integer record, TcxCustomGridTableItem& column, String& text) {
    text = FBase->GetDisplayValue(record, column.GetTag());
}

} // namespace quorin
