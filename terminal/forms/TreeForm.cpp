#include "terminal/forms/TreeForm.h"

#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/LanguageManager.h"

namespace quorin {

TTreeForm::TTreeForm() : FView(CreateComponent<TcxVirtualTreeList>()) {
    TCustomLanguageManager::GetInstance()->RegisterLanguageCallback(
        MakeEvent<&TTreeForm::LanguageChanged>(this), this);
}

TTreeForm::~TTreeForm() {
    TCustomLanguageManager::GetInstance()->RemoveLanguageCallback(this);
}

void TTreeForm::Bind(std::unique_ptr<TCustomTreeDataSource> source, TcxTreeShape shape) {
    FSource = std::move(source);
    FTree = static_cast<TCustomAccountInfoDataControl*>(FSource->DataControl());
    FView->SetShape(shape);
    FView->SetStartsExpanded(true);
    FView->SetCustomDataSource(FSource.get());
    FView->SetOnGetCellText(MakeEvent<&TTreeForm::GetCellText>(this));
}

void TTreeForm::SetColumns(std::span<const TFormColumn> columns) {
    auto made = std::make_unique<TFormColumns>(columns);
    FSource->SetColumnList(made->List());
    FColumns = std::move(made);
}

TFormView TTreeForm::FormView() {
    const TColumnList& columns = LayoutColumns();
    return {nullptr, FView.get(), &columns, {columns[0]->ID()}};
}

void TTreeForm::LanguageChanged(Pointer, Pointer) {
    FPartial.Forget();
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        TcxTreeListColumn& column = *FView->GetColumn(index);
        column.SetCaption(ColumnText(column.Tag()));
    }
}

Variant TTreeForm::Value(Integer row, Integer attribute) {
    const Pointer node = FView->Row(row).Node;
    return node != nullptr ? FTree->GetValue(node, attribute) : Variant();
}

String TTreeForm::Text(Integer row, Integer attribute) {
    const Pointer node = FView->Row(row).Node;
    return node != nullptr ? NodeText(node, attribute) : String();
}

StringView TTreeForm::CellPartialReason(Integer row, Integer tag) {
    const TTotal total = TotalOf(FView->Row(row).Node, tag);
    if (total.Account == nullptr) return {};
    const bool isSum = Aggregated() && *total.Account == FTree->Account();
    return FPartial.Reason(*total.Account, total.Attribute, isSum);
}

std::vector<Integer> TTreeForm::Attributes() {
    std::vector<Integer> attributes;
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        attributes.push_back(FView->GetColumn(index)->Tag());
    }
    return attributes;
}

void TTreeForm::GetCellText(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text) {
    text = NodeText(node, column.Tag());
}

// A currency without a ratio leaves the totals as they are.
String TTreeForm::Title() {
    const TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    const String& chosen = FTree->Currency();
    const bool isConverted = !chosen.empty() && currencies.GetCurrencyRatio(chosen) != 0.0;
    return AccountTitle(FTree->Account(), FTree->Aggregated()) + u"  " +
           (isConverted ? chosen : currencies.GetBaseCurrency());
}

} // namespace quorin
