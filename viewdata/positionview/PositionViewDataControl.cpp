#include "viewdata/positionview/PositionViewDataControl.h"

#include "platform/rtl/Text.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/Settings.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/ProductAdapter.h"

namespace quorin {

TPositionViewDataControl::TPositionViewDataControl(TComponent* AOwner)
    : TCustomPositionDataControl(AOwner) {
    TCustomAccountAdapter& accounts = Accounts();
    if (TCustomProductAdapter* products = TCustomProductAdapter::GetInstance()) {
        products->AddProductMarginRatioCallback(
            MakeEvent<&TPositionViewDataControl::ProductMarginRatioUpdate>(this), this);
    }
    accounts.AddAccountInfoLoadCallback(
        MakeEvent<&TPositionViewDataControl::AccountInfoLoadUpdate>(this), this);
    FOptionsPLPrice = ReadFlag(ConfigKey::OptionsPLPrice);
    FMiddlePLPrice = ReadFlag(ConfigKey::MiddlePLPrice);
    accounts.AddSubAccountLoadCallback(
        MakeEvent<&TPositionViewDataControl::SubAccountLoadUpdate>(this), this);
    FLoadAccountStatus = ReadFlag(ConfigKey::LoadAcctStatus);
    FConvertCurrency = Currencies().GetBaseCurrency();
}

TPositionViewDataControl::~TPositionViewDataControl() {
    OnDataChanged = nullptr;
    FOnSummaryDataChanged = nullptr;
    FOnAccountInfoUpdate = nullptr;
    TCustomAccountAdapter& accounts = Accounts();
    if (TCustomProductAdapter* products = TCustomProductAdapter::GetInstance()) {
        products->RemoveProductMarginRatioCallback(this);
    }
    accounts.RemoveAccountInfoLoadCallback(this);
    if (FAggregated) {
        TCustomPositionAdapter::GetInstance()->RemoveAggregatePositionCallback(FAccount, this);
    }
    accounts.RemoveSubAccountLoadCallback(this);
    if (FLoadAccountStatus && !FAccount.empty()) accounts.RemoveAccountCallback(FAccount, this);
    FDataList.Clear();
    FDataDictionary.Clear();
    FSubAccountList.Clear();
    ClearAggregateData();
}

void TPositionViewDataControl::ConfigUpdate(Pointer Sender, Pointer Data) {
    Inherited::ConfigUpdate(Sender, Data);
    Boolean isChanged = false;
    const Boolean displayZeroQty = ReadFlag(ConfigKey::DisplayZeroQty);
    if (displayZeroQty != FDisplayZeroQty) {
        FDisplayZeroQty = displayZeroQty;
        RefreshDataList();
        isChanged = true;
    }
    const Integer bondStyle = ReadNumber(ConfigKey::DenominatorModeValue);
    if (bondStyle != FBondStyle) {
        FBondStyle = bondStyle;
        isChanged = true;
    }
    if (isChanged) FireDataChanged();
}

void TPositionViewDataControl::SetAccount(StringView Account) {
    if (FAccount == Account) return;
    const String account(Account); // the text may belong to what goes now
    TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    TCustomAccountAdapter& accounts = Accounts();
    const std::uint32_t move = ++FMoves;
    positions.ChangePositionAccount(
        account, MakeEvent<&TPositionViewDataControl::PositionUpdate>(this), this, FAccount);
    if (move != FMoves) { // moved on from inside that call: the later move counts
        if (FAccount != account) positions.RemovePositionCallback(account, this);
        return;
    }
    if (FAggregated) positions.RemoveAggregatePositionCallback(FAccount, this);
    if (FLoadAccountStatus && !FAccount.empty()) accounts.RemoveAccountCallback(FAccount, this);
    FAccount = account;
    FAccountGroupID.clear();
    FAccountStatus = 0;
    // The rows of another account are no rows that stay.
    FDataList.Clear();
    FDataDictionary.Clear();
    RowsMoved();
    if (const TCustomAccount* record = FindAccount(FAccount)) {
        FAccountGroupID = record->GetAccountGroupID();
        FAccountStatus = record->GetAccountStatus();
    }
    if (FAggregated) {
        positions.AddAggregatePositionCallback(
            FAccount, MakeEvent<&TPositionViewDataControl::PositionUpdate>(this), this, nullptr);
    }
    InitAggregateAccountList();
    if (FLoadAccountStatus && !FAccount.empty()) {
        accounts.ChangeAccountCallback(FAccount,
                                       MakeEvent<&TPositionViewDataControl::AccountUpdate>(this),
                                       this, StringView());
    }
    RefreshDataList();
    FireDataChanged();
}

TCustomAccount* TPositionViewDataControl::MasterAccount() const {
    TCustomAccount* account = FindAccount(FAccount);
    return account != nullptr && account->IsAggregateAccount() ? account : nullptr;
}

void TPositionViewDataControl::InitAggregateAccountList() {
    FSubAccountList.Clear();
    if (FAccount.empty() || !FAggregated) return;
    if (MasterAccount() != nullptr) {
        Accounts().GetSubAccountList(FAccount, FSubAccountList);
    } else {
        FAggregated = false;
        TCustomPositionAdapter::GetInstance()->RemoveAggregatePositionCallback(FAccount, this);
    }
}

void TPositionViewDataControl::SetAggregate() {
    if (FAccount.empty() || MasterAccount() == nullptr) return;
    TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    if (FAggregated) positions.RemoveAggregatePositionCallback(FAccount, this);
    FAggregated = !FAggregated;
    InitAggregateAccountList();
    if (FAggregated) {
        positions.AddAggregatePositionCallback(
            FAccount, MakeEvent<&TPositionViewDataControl::PositionUpdate>(this), this, nullptr);
    }
    RefreshDataList();
    Changed();
}

void TPositionViewDataControl::SetFilterCurrency(StringView Currency) {
    if (FFilterCurrency == Currency) return;
    FFilterCurrency = Currency;
    RefreshDataList();
    Changed();
}

void TPositionViewDataControl::SetShowChinaConnect(StringView SelectCurrency) {
    FChinaConnectCurrency = SelectCurrency;
    FShowingChinaConnectAccountData = IsChinaConnectOn() && !FChinaConnectCurrency.empty();
}

Boolean TPositionViewDataControl::IsDisplayPosition(TCustomPositionData* Position) {
    if (Position == nullptr) return false;
    if (!FFilterCurrency.empty()) {
        const TCustomSubItem* ticker = Position->GetTicker();
        if (ticker != nullptr && !SameText(FFilterCurrency, ticker->FieldText(Field::Currency))) {
            return false;
        }
    }
    if (!IsNearZero(Position->GetQuantity())) return true;
    if (!FDisplayZeroQty) return false;
    // Exactly 0.0: the smallest trade of the day shows its row.
    return Position->GetTodayBuyQty() != 0.0 || Position->GetTodaySellQty() != 0.0;
}

Boolean
TPositionViewDataControl::CheckNeedUpdatePosition(const TAccountPositionDictionary* Sender) {
    if (Sender == nullptr) return false;
    if (Sender->ContainsKey(FAccount)) return true;
    for (const auto& item : FSubAccountList) {
        if (Sender->ContainsKey(item.Key)) return true;
    }
    return false;
}

Boolean TPositionViewDataControl::CheckNeedUpdateSubAccountList(const TAccountDictionary* Sender) {
    if (Sender == nullptr || !FAggregated || MasterAccount() == nullptr) return false;
    for (const auto& item : *Sender) {
        const TCustomAccount* account = item.Value;
        if (account == nullptr || !account->IsSubAccount()) continue;
        if (account->GetMasterAccount() != FAccount) continue;
        FSubAccountList.Clear();
        Accounts().GetSubAccountList(FAccount, FSubAccountList);
        return true;
    }
    return false;
}

void TPositionViewDataControl::PositionUpdate(Pointer Sender, Pointer) {
    const auto* changes = static_cast<const TAccountPositionDictionary*>(Sender);
    if (changes == nullptr) return;
    if (FAggregated) {
        if (!CheckNeedUpdatePosition(changes)) return;
        const std::uint32_t listChanges = FListChanges;
        RefreshDataList();
        const auto name = [&](TChangedRows& rows) {
            if (listChanges != FListChanges) rows.NameNone();
            NameMoved(*changes, rows);
        };
        SignalRows(name, [this] { SignalRowsAndSummary(); });
        return;
    }
    const TPositionDictionary* own = ChangesOf(Sender, FAccount);
    if (own == nullptr) return;
    Boolean isTouched = false;
    Boolean rowsDiffer = false;
    for (const auto& [symbol, position] : *own) {
        isTouched = true;
        if (position == nullptr) continue;
        rowsDiffer |= IsDisplayPosition(position) ? TakeIn(symbol, position) : Drop(symbol);
    }
    if (!isTouched) return;
    SignalRows([&](TChangedRows& rows) { NameRows(rowsDiffer ? nullptr : own, rows); },
               [this] { SignalRowsAndSummary(); });
}

void TPositionViewDataControl::PositionMarketDataUpdate(Pointer Sender, Pointer) {
    const auto* moved = static_cast<const TAccountPositionDictionary*>(Sender);
    if (moved == nullptr) return;
    const Boolean isTouched = FAggregated ? CheckNeedUpdatePosition(moved)
                                          : moved->ContainsKey(FAccount) && !FDataList.IsEmpty();
    if (!isTouched) return;
    SignalRows([&](TChangedRows& rows) { NameMoved(*moved, rows); }, [this] { Changed(); });
}

void TPositionViewDataControl::NameMoved(const TAccountPositionDictionary& moved,
                                         TChangedRows& rows) {
    for (const auto& [account, positions] : moved) {
        const Boolean isOwn = SameUnits(account, FAccount);
        if (isOwn || (FAggregated && FSubAccountList.ContainsKey(account))) {
            NameRows(positions, rows);
        }
    }
}

void TPositionViewDataControl::ProductMarginRatioUpdate(Pointer, Pointer) {
    SignalRowsAndSummary();
}

void TPositionViewDataControl::SubAccountLoadUpdate(Pointer Sender, Pointer) {
    if (!CheckNeedUpdateSubAccountList(static_cast<const TAccountDictionary*>(Sender))) return;
    RefreshDataList();
    Changed();
}

void TPositionViewDataControl::AccountInfoLoadUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr) return;
    TCustomAccount* const* account = static_cast<const TAccountDictionary*>(Sender)->Find(FAccount);
    if (account == nullptr || *account == nullptr) return;
    const TLifeline::TWatch watch(FLifeline);
    const String& group = (*account)->GetAccountGroupID();
    if ((*account)->GetMarginType() == MarginType::Margin && group != FAccountGroupID) {
        FAccountGroupID = group;
        Changed();
    }
    if (watch.IsAlive()) FireAccountInfoUpdate();
}

void TPositionViewDataControl::AccountUpdate(Pointer, Pointer) {
    const TCustomAccount* account = FindAccount(FAccount);
    if (account == nullptr || account->GetAccountStatus() == FAccountStatus) return;
    FAccountStatus = account->GetAccountStatus();
    FireAccountInfoUpdate();
}

void TPositionViewDataControl::SignalRowsAndSummary() {
    const TLifeline::TWatch watch(FLifeline);
    FireDataChanged();
    if (watch.IsAlive() && FOnSummaryDataChanged) FOnSummaryDataChanged(this);
}

void TPositionViewDataControl::FireAccountInfoUpdate() {
    if (FOnAccountInfoUpdate) FOnAccountInfoUpdate(nullptr);
}

} // namespace quorin
