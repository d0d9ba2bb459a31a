#include "terminal/forms/CashTreeForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/CurrencyAdapter.h"

namespace quorin {

namespace {

namespace A = AccountAttribute;

constexpr Integer Figures[] = {A::AccountCode, A::HolderName, A::Currency,
                               A::Cash,        A::HeldCash,   A::AvailableCash,
                               A::MarketValue, A::TotalPL,    A::Value9028};

} // namespace

void TCashTreeControl::MonitorOneAccount() {
    if (!FMonitorAll) return;
    FMonitorAll = false;
    TCustomAccountAdapter::GetInstance()->RemoveAllAccountCallback(this);
    FireDataChanged();
}

TCashTreeForm::TCashTreeForm() {
    Bind<TCashTreeControl>(TcxTreeShape::Children);
    const std::vector<TFormColumn> columns = AccountColumns(Figures);
    SetColumns(columns);
    for (const TFormColumn& column : columns) {
        View().AddColumn(column.Attribute).SetWidth(column.Width);
    }
    UpdateCaptions();
    // Names the currency of the totals, which are never converted.
    Tree().SetCurrency(TCustomCurrencyAdapter::GetInstance()->GetBaseCurrency());
}

void TCashTreeForm::ShowAll() {
    FShowsAll = true;
    static_cast<TCashTreeControl&>(Tree()).MonitorAllAccount();
}

void TCashTreeForm::ShowOne() {
    FShowsAll = false;
    static_cast<TCashTreeControl&>(Tree()).MonitorOneAccount();
}

bool TCashTreeForm::IsText(Integer attribute) const {
    return IsTextFigure(attribute);
}

String TCashTreeForm::Title() {
    return FShowsAll ? InterfaceText(TerminalKey::Res_AllAccounts)
                     : AccountTitle(Tree().Account(), Tree().Aggregated());
}

TTreeForm::TTotal TCashTreeForm::TotalOf(Pointer node, Integer tag) {
    const auto* account = ObjectAs<TCustomAccount>(node);
    return account == nullptr ? TTotal() : TTotal{&account->GetAccount(), tag};
}

String TCashTreeForm::ColumnText(Integer tag) {
    return Tree().GetResourceHeader(tag);
}

} // namespace quorin
