#include "terminal/forms/AccountListForm.h"

#include "platform/rtl/Text.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ResourceKeys.h"

#include <array>

namespace quorin {

namespace {

enum TAccountColumn : Integer { AccountCode, AccountHolder };

} // namespace

TAccountListForm::TAccountListForm(TComponent* owner)
    : TFieldListForm(owner, std::to_array<TColumn>(
                                {{ResourceKey::Res_Account, 140}, {ResourceKey::Res_Name, 300}})) {
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    const TDataCallbackEvent changed = MakeEvent<&TAccountListForm::EntriesChanged>(this);
    accounts.AddAccountReadyCallback(changed, this);
    accounts.AddAccountInfoLoadCallback(changed, this);
    accounts.AddAllAccountCallback(changed, this);
}

TAccountListForm::~TAccountListForm() {
    BeginDestruction();
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    accounts.RemoveAccountReadyCallback(this);
    accounts.RemoveAccountInfoLoadCallback(this);
    accounts.RemoveAllAccountCallback(this);
}

void TAccountListForm::Collect(std::vector<TObject*>& entries) const {
    const TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    for (Integer index = 0; index < accounts.GetAccountCount(); ++index) {
        TCustomAccount* account = accounts.GetAccountByIndex(index);
        if (account != nullptr) entries.push_back(account);
    }
}

const String& TAccountListForm::CodeOf(const TObject& entry) const {
    return static_cast<const TCustomAccount&>(entry).GetAccount();
}

String TAccountListForm::CellOf(const TObject& entry, Integer column) const {
    const auto& account = static_cast<const TCustomAccount&>(entry);
    switch (column) {
    case AccountCode: return account.GetAccount();
    case AccountHolder: return FormatText(u"[%s]%s", {account.GetAccountTag(), account.GetName()});
    default: return {};
    }
}

} // namespace quorin
