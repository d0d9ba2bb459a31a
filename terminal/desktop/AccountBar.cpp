#include "terminal/desktop/AccountBar.h"

#include "platform/rtl/Text.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/AccountAdapter.h"

#include <QCheckBox>
#include <QHBoxLayout>

#include <utility>

namespace quorin {

namespace {

constexpr int Margin = 4;

TCodeEntry EntryOf(const TCustomAccount& account) {
    String text = account.GetAccount();
    if (!account.GetAccountTag().empty()) text += u" [" + account.GetAccountTag() + u"]";
    if (!account.GetName().empty()) text += u" " + account.GetName();
    return {account.GetAccount(), ToQt(text)};
}

bool CanBeSummed(StringView account) {
    const TCustomAccount* found =
        TCustomAccountAdapter::GetInstance()->GetAccount(account, /*Flag=*/false);
    return found != nullptr && found->IsAggregateAccount();
}

} // namespace

TAccountBar::TAccountBar(TAccountView& view, bool hasAll, QWidget* parent)
    : QWidget(parent), FView(view), FBox(new TCodeBox(this)), FSum(new QCheckBox(this)),
      FHasAll(hasAll) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, 0);
    layout->addWidget(FBox);
    layout->addWidget(FSum);
    layout->addStretch();
    connect(FBox, &TCodeBox::CodeChosen, this, &TAccountBar::AccountChosen);
    connect(FSum, &QCheckBox::clicked, this, [this](bool on) {
        if (on) {
            FView.ShowSums();
        } else {
            FView.ShowPlain();
        }
    });
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    const TDataCallbackEvent changed = MakeEvent<&TAccountBar::AccountsChanged>(this);
    accounts.AddAccountReadyCallback(changed, &FOwner);
    accounts.AddAccountInfoLoadCallback(changed, &FOwner);
}

TAccountBar::~TAccountBar() {
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    accounts.RemoveAccountReadyCallback(&FOwner);
    accounts.RemoveAccountInfoLoadCallback(&FOwner);
}

void TAccountBar::AccountsChanged(Pointer, Pointer) {
    FIsStale = true;
}

void TAccountBar::Fill() {
    std::vector<TCodeEntry> entries;
    if (FHasAll) entries.push_back({{}, ToQt(InterfaceText(TerminalKey::Res_AllAccounts))});
    const TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    for (Integer index = 0; index < accounts.GetAccountCount(); ++index) {
        const TCustomAccount* account = accounts.GetAccountByIndex(index);
        if (account != nullptr) entries.push_back(EntryOf(*account));
    }
    FBox->SetEntries(entries);
    FBox->setAccessibleName(ToQt(InterfaceText(ResourceKey::Res_Account)));
    FSum->setText(ToQt(InterfaceText(TerminalKey::Res_SumAccounts)));
    FSum->setAccessibleName(FSum->text());
}

void TAccountBar::Follow(StringView account) {
    if (FLanguage.TakeChange()) FIsStale = true;
    if (std::exchange(FIsStale, false)) Fill();
    FBox->ShowCode(account);
    FSum->setVisible(CanBeSummed(account));
    FSum->setChecked(FView.Aggregated());
}

} // namespace quorin
