#include "terminal/forms/AccountView.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/AccountAdapter.h"

namespace quorin {

namespace {
constexpr Char SumMark = u'+';
}

TAccountView::TAccountView() = default;

TAccountView::~TAccountView() {
    TCustomAccountAdapter::GetInstance()->RemoveAccountReadyCallback(&FOwner);
}

void TAccountView::ShowAccount(StringView account) {
    FAccount = account;
    Follow();
    SetAccount(FAccount);
    SumIfWanted();
}

void TAccountView::ShowSums() {
    FWantsSums = true;
    Follow();
    SumIfWanted();
}

void TAccountView::ShowPlain() {
    FWantsSums = false;
    if (Aggregated()) SetAggregate();
}

// Not before there is something to follow: the form may not be complete earlier.
void TAccountView::Follow() {
    TCustomAccountAdapter::GetInstance()->AddAccountReadyCallback(
        MakeEvent<&TAccountView::AccountsReady>(this), &FOwner);
}

void TAccountView::SumIfWanted() {
    if (FWantsSums && !Aggregated()) SetAggregate();
}

// A control reads what it must know of an account when it is chosen.
void TAccountView::AccountsReady(Pointer, Pointer) {
    SetAccount({});
    SetAccount(FAccount);
    SumIfWanted();
}

String TAccountView::AccountChoice() const {
    String choice = FAccount;
    if (FWantsSums) choice += SumMark;
    return choice;
}

void TAccountView::TakeAccountChoice(StringView choice) {
    const bool isSummed = !choice.empty() && choice.back() == SumMark;
    if (isSummed) choice.remove_suffix(1);
    if (choice.empty()) return;
    ShowAccount(choice);
    if (isSummed) {
        ShowSums();
    } else {
        ShowPlain();
    }
}

String AccountTitle(StringView account, Boolean isAggregated) {
    String title(account);
    if (isAggregated) title += u"  " + InterfaceText(TerminalKey::Res_Aggregated);
    return title;
}

} // namespace quorin
