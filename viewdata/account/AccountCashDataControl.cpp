#include "viewdata/account/AccountCashDataControl.h"

#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

namespace A = AccountAttribute;

// Of a row that has nothing to show.
Variant EmptyCell(Integer column) {
    switch (column) {
    case A::AccountCode:
    case A::HolderName:
    case A::Currency: return Variant::EmptyText();
    default: return 0;
    }
}

// Between an account's code and a currency.
constexpr Char IdentityMark = u'\n';

Variant BaseCurrencyName() {
    const String& code = Currencies().GetBaseCurrency();
    return code.empty() ? String() : ResourceText(ResourceTag::Currency, code);
}

} // namespace

TCustomAccountCashDataControl::TCustomAccountCashDataControl(TComponent* AOwner)
    : TCustomAccountInfoDataControl(AOwner) {
    Accounts().AddAccountReadyCallback(
        MakeEvent<&TCustomAccountCashDataControl::AccountReady>(this), this);
}

TCustomAccountCashDataControl::~TCustomAccountCashDataControl() {
    OnDataChanged = nullptr;
    Accounts().RemoveAccountReadyCallback(this);
    if (FMonitorAll) Accounts().RemoveAllAccountCallback(this);
}

void TCustomAccountCashDataControl::MonitorAllAccount() {
    if (FMonitorAll) return;
    FMonitorAll = true;
    FNodeList.Edit(); // another tree, as with another account
    AccountReady(nullptr, nullptr);
}

// The service keeps one registration per owner, so a list that becomes ready again does no harm.
void TCustomAccountCashDataControl::AccountReady(Pointer, Pointer) {
    const TLifeline::TWatch watch(FLifeline);
    if (!Accounts().IsAccountReady() || !watch.IsAlive() || !FMonitorAll) return;
    TObject* const owner = this;
    Accounts().AddAllAccountCallback(MakeEvent<&TCustomAccountCashDataControl::AccountUpdate>(this),
                                     owner);
    if (watch.IsAlive()) {
        FireDataChanged();
    } else {
        Accounts().RemoveAllAccountCallback(owner); // it may stand only since the control died
    }
}

void TCustomAccountCashDataControl::AccountUpdate(Pointer, Pointer) {
    const TLifeline::TWatch watch(FLifeline);
    RefreshSubAccounts();
    if (watch.IsAlive()) FireDataChanged();
}

void TCustomAccountCashDataControl::MultiCurrencyInfoUpdate(Pointer, Pointer) {
    FireDataChanged();
}

void TCustomAccountCashDataControl::CurrencyListUpdate(Pointer, Pointer) {
    FireDataChanged();
}

void TCustomAccountCashDataControl::UpdateChinaConnectFlag() {}

void TCustomAccountCashDataControl::SetColumnList(const TColumnList* List) {
    FColumnList = List != nullptr ? *List : TColumnList();
}

void TCustomAccountCashDataControl::ClearAll() {
    FNodeList.Clear();
}

Integer TCustomAccountCashDataControl::GetChildNodeCount(Pointer Node) {
    if (Node == GetRootNode()) {
        if (FMonitorAll) return Accounts().GetAccountCount();
        return FAccount.empty() ? 0 : 1;
    }
    const auto* account = ObjectAs<TCustomAccount>(Node);
    return account != nullptr ? account->GetCurrencyCount() : 0;
}

Pointer TCustomAccountCashDataControl::GetChildNode(Pointer Node, Integer Index) {
    if (Index < 0) return nullptr;
    if (Node == GetRootNode()) {
        if (FMonitorAll) return AsPointer(Accounts().GetAccountByIndex(Index));
        return FAccount.empty() ? nullptr : AsPointer(FindAccount(FAccount));
    }
    const auto* account = ObjectAs<TCustomAccount>(Node);
    if (account == nullptr || Index >= account->GetCurrencyCount()) return nullptr;
    return AsPointer(account->GetAccountData(account->GetCurrency(Index)));
}

// Both numbers only grow.
Int64 TCustomAccountCashDataControl::ShapeVersion() const {
    const Int64 records = Accounts().RecordsVersion();
    return records != 0 ? records + TCustomAccountInfoDataControl::ShapeVersion() : 0;
}

String TCustomAccountCashDataControl::NodeIdentity(Pointer Node) const {
    if (Node == static_cast<const TObject*>(&FNodeList)) return String();
    if (const auto* account = ObjectAs<TCustomAccount>(Node)) return account->GetAccount();
    const auto* data = ObjectAs<TCustomAccountData>(Node);
    return data != nullptr ? data->GetAccount() + IdentityMark + data->GetCurrency() : String();
}

Variant TCustomAccountCashDataControl::GetValue(Pointer Node, Integer ColumnID) {
    if (Node == GetRootNode()) return EmptyCell(ColumnID);
    auto* data = ObjectAs<TCustomAccountData>(Node);
    if (const auto* account = ObjectAs<TCustomAccount>(Node)) {
        switch (ColumnID) {
        case A::AccountCode: return account->GetAccount();
        case A::HolderName: return account->GetName();
        case A::Currency: return BaseCurrencyName();
        default: data = account->GetAccountData(TotalRecord);
        }
    }
    return data != nullptr ? Figure(data, ColumnID) : EmptyCell(ColumnID);
}

String TCustomAccountCashDataControl::GetDisplayValue(Pointer Node, Integer ColumnID) {
    if (Node == GetRootNode()) return String();
    auto* data = ObjectAs<TCustomAccountData>(Node);
    if (const auto* account = ObjectAs<TCustomAccount>(Node)) {
        switch (ColumnID) {
        case A::AccountCode: return account->GetAccount();
        case A::HolderName: return account->GetName();
        default: data = account->GetAccountData(TotalRecord);
        }
    }
    if (data == nullptr) return String();
    return GetAccountCurrencyDisplayData(data, ColumnID, /*Convert=*/false);
}

} // namespace quorin
