#include "viewdata/account/AccountDataControl.h"

#include "viewdata/account/AccountPin.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/Settings.h"
#include "viewdata/positionview/PricingRules.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/ConfigKeys.h"

#include <utility>

namespace quorin {

TCustomAccountInfoDataControl::TCustomAccountInfoDataControl(TComponent* AOwner)
    : TCustomTreeDataControl(AOwner) {
    FOptionsPLPrice = ReadFlag(ConfigKey::OptionsPLPrice);
    FMiddlePLPrice = ReadFlag(ConfigKey::MiddlePLPrice);
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

// Moves the registration; false when the control has died inside. The service may have registered
// it only then, so that the destructor had nothing to end.
Boolean TCustomAccountInfoDataControl::FollowAccount(const TPin& pin, const String& account,
                                                     const String& previous) {
    TObject* const owner = this;
    Accounts().ChangeAccountCallback(
        account, MakeEvent<&TCustomAccountInfoDataControl::AccountUpdate>(this), owner, previous);
    if (pin.IsAlive()) return true;
    Accounts().RemoveAccountCallback(account, owner);
    return false;
}

// Registers for the sub-accounts; false when the control has died inside, as FollowAccount. What a
// callback inside has chosen holds.
Boolean TCustomAccountInfoDataControl::FollowSubAccounts(const TPin& pin) {
    TObject* const owner = this;
    const String account = FAccount;
    Accounts().AddSubAccountCallback(
        account, MakeEvent<&TCustomAccountInfoDataControl::AccountUpdate>(this), owner, nullptr);
    const Boolean isAlive = pin.IsAlive();
    if (!isAlive || !FAggregated || FAccount != account) {
        Accounts().RemoveSubAccountCallback(account, owner);
    }
    return isAlive;
}

// A callback inside one of the calls may choose another account still, or the former one again.
// That choice came later and holds: what this call has registered moves on to it.
void TCustomAccountInfoDataControl::SetAccount(StringView Account) {
    const Integer change = ++FAccountChanges;
    if (FAccount == Account) return;
    const TPin pin(*this);
    const String account(Account); // the text may belong to what goes now
    const String previous = FAccount;
    if (!FollowAccount(pin, account, previous)) return;
    if (FAggregated && change == FAccountChanges) {
        Accounts().RemoveSubAccountCallback(previous, this);
        if (!pin.IsAlive()) return;
    }
    if (change != FAccountChanges) {
        for (String followed = account; followed != FAccount;) {
            const String chosen = FAccount;
            if (!FollowAccount(pin, chosen, followed)) return;
            followed = chosen;
        }
        if (FAggregated) FollowSubAccounts(pin);
        return;
    }
    FAccount = account;
    ClearAccountCurrencyNode();
    InitCurrencyNode();
    if (!pin.IsAlive()) return;
    InitAggregateAccountList();
    if (!pin.IsAlive()) return;
    if (FAggregated && !FollowSubAccounts(pin)) return;
    FireDataChanged();
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
    if (FAggregated && !FollowSubAccounts(pin)) return;
    Changed();
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
        // Without rows the count may be that of rows that are gone.
        const TCustomAccount* account = *own;
        if (account != nullptr && (account->GetCurrencyCount() != FAccountCurrencyDataCount ||
                                   FAccountDataValueNodeList.IsEmpty())) {
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
