#include "terminal/forms/AccountTreeForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChinaConnect.h"

namespace quorin {

namespace {

namespace A = AccountAttribute;

constexpr TFormColumn Columns[] = {
    {AccountTreeColumn::Caption, TerminalKey::Res_Figure, 200, u"Figure", false},
    {AccountTreeColumn::Value, TerminalKey::Res_Amount, 160, u"Amount", false},
};
constexpr Integer MainFigures[] = {A::Value9028, A::MarketValue,   A::Cash,
                                   A::HeldCash,  A::AvailableCash, A::TotalPL,
                                   A::Value604,  A::Shortfall,     A::Value9018};

} // namespace

TAccountTreeForm::TAccountTreeForm() : FLayoutColumns(Columns) {
    Bind<TAccountTreeControl>(TcxTreeShape::FlatList);
    for (const TFormColumn& column : Columns) {
        View().AddColumn(column.Attribute).SetWidth(column.Width);
    }
    ShowMainFigures();
    UpdateCaptions();
}

void TAccountTreeForm::ShowMainFigures() {
    ShowFigures(MainFigures);
}

void TAccountTreeForm::ShowFigures(std::span<const Integer> attributes) {
    SetColumns(AccountColumns(attributes));
}

bool TAccountTreeForm::IsText(Integer attribute) const {
    return attribute == AccountTreeColumn::Caption;
}

String TAccountTreeForm::Title() {
    String title = Inherited::Title();
    const String& filter = Tree().FilterCurr();
    if (!filter.empty() && IsChinaConnectOn()) {
        title += u"  " + InterfaceText(TerminalKey::Res_ChinaConnect) + u": " + filter;
    }
    return title;
}

TTreeForm::TTotal TAccountTreeForm::TotalOf(Pointer node, Integer tag) {
    const auto* figure = ObjectAs<TAccountDataNode>(node);
    const bool isConnect = !Tree().FilterCurr().empty() && IsChinaConnectOn();
    if (figure == nullptr || tag != AccountTreeColumn::Value || isConnect) return {};
    return {&Tree().Account(), figure->Attribute()};
}

String TAccountTreeForm::ColumnText(Integer tag) {
    const TColumnInfo* column = FindColumn(FLayoutColumns.List(), tag);
    return column == nullptr ? String() : InterfaceText(column->ResourceKey());
}

String TAccountTreeForm::NodeText(Pointer node, Integer tag) {
    String text = Inherited::NodeText(node, tag);
    const auto* figure = ObjectAs<TAccountDataNode>(node);
    if (tag == AccountTreeColumn::Caption && figure != nullptr && text.empty()) {
        text = Tree().GetResourceHeader(figure->Attribute());
    }
    return text;
}

} // namespace quorin
