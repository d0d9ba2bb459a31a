#include "viewdata/account/AccountDataControl.h"

#include "viewdata/account/AccountLookups.h"
#include "viewdata/account/AccountPin.h"
#include "viewdata/positionview/PricingRules.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"

#include <utility>

namespace quorin {

TCustomAccountInfoDataControl::TCustomAccountInfoDataControl(TComponent* AOwner)
    : TCustomTreeDataControl(AOwner) {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    FOptionsPLPrice = config.ReadBool(config.GetCurrentSection(), ConfigKey::OptionsPLPrice);
    FMiddlePLPrice = config.ReadBool(config.GetCurrentSection(), ConfigKey::MiddlePLPrice);
    Currencies().AddMultiCurrencyInfoCallback(
        MakeEvent<&TCustomAccountInfoDataControl::MultiCurrencyInfoUpdate>(this), this);
    Currencies().AddCurrencyListCallback(
        MakeEvent<&TCustomAccountInfoDataControl::CurrencyListUpdate>(this), this);
    Currencies().AddCurrencyRatioCallback(
        MakeEvent<&TCustomAccountInfoDataControl::CurrencyRatioUpdate>(this), this);
}

TCustomAccountInfoDataControl::~TCustomAccountInfoDataControl() {
    OnDataChanged = nullptr;
    Currencies().RemoveMultiCurrencyInfoCallback(this);
    Currencies().RemoveCurrencyListCallback(this);
    Currencies().RemoveCurrencyRatioCallback(this);
    Accounts().RemoveAccountCallback(FAccount, this);
    if (FAggregated) Accounts().RemoveSubAccountCallback(FAccount, this);
    TCustomAccountInfoDataControl::ClearAll();
}

// A callback inside one of the calls may choose another account still. That choice came later and
// holds: what this call has registered moves on to it.
void TCustomAccountInfoDataControl::SetAccount(StringView Account) {
    if (FAccount == Account) return;
    const TPin pin(*this);
    const Integer change = ++FAccountChanges;
    const String account(Account); // the text may belong to what goes now
    const String previous = FAccount;
    const auto update = MakeEvent<&TCustomAccountInfoDataControl::AccountUpdate>(this);
    Accounts().ChangeAccountCallback(account, update, this, previous);
    if (!pin.IsAlive()) return;
    if (FAggregated && change == FAccountChanges) {
        Accounts().RemoveSubAccountCallback(previous, this);
        if (!pin.IsAlive()) return;
    }
    if (change != FAccountChanges) {
        if (FAccount != account) Accounts().ChangeAccountCallback(FAccount, update, this, account);
        return;
    }
    FAccount = account;
    ClearAccountCurrencyNode();
    InitCurrencyNode();
    if (!pin.IsAlive()) return;
    InitAggregateAccountList();
    if (!pin.IsAlive()) return;
    if (FAggregated) Accounts().AddSubAccountCallback(FAccount, update, this, nullptr);
    if (pin.IsAlive()) FireDataChanged();
}

void TCustomAccountInfoDataControl::SetCurrency(StringView Value) {
    if (FCurrency == Value) return;
    FCurrency = Value;
    FireDataChanged();
}

void TCustomAccountInfoDataControl::SetFilterCurr(StringView Value) {
    if (FFilterCurr == Value) return;
    const TPin pin(*this);
    FFilterCurr = Value;
    UpdateChinaConnectFlag();
    ClearAccountCurrencyNode();
    InitCurrencyNode();
    if (pin.IsAlive()) FireDataChanged();
}

void TCustomAccountInfoDataControl::UpdateChinaConnectFlag() {
    FShowingChinaConnectAccountData = IsChinaConnectOn() && !FFilterCurr.empty();
}

void TCustomAccountInfoDataControl::SetAggregate() {
    if (FAccount.empty()) return;
    const TPin pin(*this);
    const TCustomAccount* account = FindAccount(FAccount);
    if (!pin.IsAlive() || account == nullptr || !account->IsAggregateAccount()) return;
    if (FAggregated) Accounts().RemoveSubAccountCallback(FAccount, this);
    if (!pin.IsAlive()) return;
    FAggregated = !FAggregated;
    InitAggregateAccountList();
    if (!pin.IsAlive()) return;
    if (FAggregated) {
        Accounts().AddSubAccountCallback(
            FAccount, MakeEvent<&TCustomAccountInfoDataControl::AccountUpdate>(this), this,
            nullptr);
    }
    if (pin.IsAlive()) Changed();
}

// The list is filled beside the one that sums read, and only if no later call was quicker.
void TCustomAccountInfoDataControl::InitAggregateAccountList() {
    const TPin pin(*this);
    const Integer change = ++FSubAccountChanges;
    FSubAccountList.Clear();
    if (FAccount.empty() || !FAggregated) return;
    const TCustomAccount* account = FindAccount(FAccount);
    if (!pin.IsAlive() || change != FSubAccountChanges) return;
    if (account == nullptr || !account->IsAggregateAccount()) {
        FAggregated = false;
        return;
    }
    TAccountDictionary listed;
    Accounts().GetSubAccountList(FAccount, listed);
    if (!pin.IsAlive() || change != FSubAccountChanges) return;
    FSubAccountList = std::move(listed);
    ++FSubAccountChanges;
}

void TCustomAccountInfoDataControl::RefreshSubAccounts() {
    if (FSubAccountList.IsEmpty()) return;
    const TPin pin(*this);
    const Integer change = FSubAccountChanges;
    TAccountDictionary listed;
    Accounts().GetSubAccountList(FAccount, listed);
    if (!pin.IsAlive() || change != FSubAccountChanges) return;
    for (const auto& [code, account] : FSubAccountList) {
        account = nullptr;
        listed.TryGetValue(code, account);
    }
    ++FSubAccountChanges;
}

void TCustomAccountInfoDataControl::AccountUpdate(Pointer Sender, Pointer) {
    const auto* changes = static_cast<const TAccountDictionary*>(Sender);
    if (FAccount.empty()) return;
    const TPin pin(*this);
    RefreshSubAccounts(); // also with nothing named: a record may have gone
    if (changes == nullptr || !pin.IsAlive()) return;
    if (TCustomAccount* const* own = changes->Find(FAccount)) {
        const TCustomAccount* account = *own;
        if (account != nullptr && account->GetCurrencyCount() != FAccountCurrencyDataCount) {
            InitCurrencyNode();
        }
    } else if (!IsSubAccountUpdate(changes)) {
        return;
    }
    if (pin.IsAlive()) FireDataChanged();
}

Boolean TCustomAccountInfoDataControl::IsSubAccountUpdate(const TAccountDictionary* Sender) {
    if (Sender == nullptr || !FAggregated) return false;
    const TPin pin(*this);
    const TCustomAccount* account = FindAccount(FAccount);
    if (!pin.IsAlive() || account == nullptr || !account->IsAggregateAccount()) return false;
    if (account->GetAccountType() != AccountType::Master) return false;
    for (const auto& item : FSubAccountList) {
        if (Sender->ContainsKey(item.Key)) return true;
    }
    return false;
}

void TCustomAccountInfoDataControl::MultiCurrencyInfoUpdate(Pointer, Pointer) {
    if (FColumnList.IsEmpty()) return;
    const TPin pin(*this);
    if (!FAccount.empty()) InitCurrencyNode();
    if (pin.IsAlive()) FireDataChanged();
}

void TCustomAccountInfoDataControl::CurrencyListUpdate(Pointer Sender, Pointer Data) {
    MultiCurrencyInfoUpdate(Sender, Data);
}

void TCustomAccountInfoDataControl::CurrencyRatioUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr || FCurrency.empty()) return;
    if (static_cast<const TCurrencyRatioDictionary*>(Sender)->ContainsKey(FCurrency)) {
        FireDataChanged();
    }
}

Boolean TCustomAccountInfoDataControl::IsMarketOpen(StringView Exchange) {
    return IsExchangeOpen(Exchange);
}

Double TCustomAccountInfoDataControl::GetMiddleOne(Double A, Double B, Double C) {
    return MedianOf(A, B, C);
}

Double TCustomAccountInfoDataControl::GetPLPrice(TCustomPositionData* Position) {
    return MarkingPrice(*this, Position, {FOptionsPLPrice, FMiddlePLPrice});
}

Boolean TCustomAccountInfoDataControl::GetAvgPrice(TCustomPositionData* Position, Double& Price) {
    return AverageCost(Position, Price);
}

Double TCustomAccountInfoDataControl::GetPL(TCustomPositionData* Position) {
    return ProfitAndLoss(*this, Position);
}

} // namespace quorin
