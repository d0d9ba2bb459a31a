#include "viewdata/editors/AccountEditor.h"

#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Text.h"
#include "viewdata/presentation/IImageResource.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/MessageBoxCtrl.h"

namespace quorin {

namespace {

constexpr TPopupSize ListSize{400, 600, 100, 100};

TCustomAccount* FindAccount(StringView code) {
    TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    return accounts != nullptr ? accounts->GetAccount(code, /*Flag=*/false) : nullptr;
}

// The code that the account service has for what was typed; empty for none.
String CodeOf(const String& text) {
    const TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    if (accounts == nullptr) return String();
    return accounts->IsAccountKnown(text) ? text : accounts->FindAccountByText(text);
}

} // namespace

TAccountEditorRecord::TAccountEditorRecord() {
    TCustomGlobalChannelManager::GetInstance()->RegisterChannelCallback(
        Channel::CurrentAccount, MakeEvent<&TAccountEditorRecord::UpdateCopyAccount>(this), this);
}

template <class Visit>
void TAccountEditorRecord::VisitEvents(TcxPopupEdit& editor, Visit visit) {
    using Edit = TcxCustomEdit;
    using Properties = TcxPopupEditProperties;
    using Self = TAccountEditorRecord;
    // clang-format off
    visit(FOnKeyDown,  editor, &Edit::OnKeyDown, &Edit::SetOnKeyDown, MakeEvent<&Self::AccountKeyDown>(this));
    visit(FOnExit,     editor, &TControl::OnExit, &TControl::SetOnExit, MakeEvent<&Self::AccountExit>(this));
    visit(FOnKeyPress, editor, &Edit::OnKeyPress, &Edit::SetOnKeyPress, MakeEvent<&Self::AccountKeyPress>(this));
    visit(FOnPropertiesPopup, editor.Properties(), &Properties::OnPopup, &Properties::SetOnPopup, MakeEvent<&Self::PropertiesPopup>(this));
    visit(FOnEnter,    editor, &TControl::OnEnter, &TControl::SetOnEnter, MakeEvent<&Self::AccountEnter>(this));
    visit(FOnClick,    editor, &Edit::OnClick, &Edit::SetOnClick, MakeEvent<&Self::AccountClick>(this));
    // clang-format on
}

void TAccountEditorRecord::RegisterGroup() {
    if (FGroupID.empty()) return;
    TCustomGlobalChannelManager::GetInstance()->RegisterGroupCallback(
        FGroupID, MakeEvent<&TAccountEditorRecord::UpdateCopyAccount>(this), this);
}

void TAccountEditorRecord::RemoveGroup() {
    if (FGroupID.empty()) return;
    TCustomGlobalChannelManager::GetInstance()->RemoveGroupCallback(FGroupID, this);
}

void TAccountEditorRecord::Unhook() {
    TCustomGlobalChannelManager::GetInstance()->RemoveChannelCallback(Channel::CurrentAccount,
                                                                      this);
    RemoveGroup();
    if (FEditor != nullptr) VisitEvents(*FEditor, TGiveBackEvents());
    FEditor = nullptr;
}

void TAccountEditorRecord::Reset(TcxPopupEdit& Editor, StringView GroupID) {
    const TRun run(*this);
    const String group(GroupID); // the text may be the record's own
    RemoveGroup();
    if (FEditor != nullptr) VisitEvents(*FEditor, TGiveBackEvents());
    FFocusEnter = false;
    FEditor = &Editor;
    FGroupID = group;
    VisitEvents(Editor, TSaveEvents());
    RegisterGroup();
    SizePopup(Editor, ListSize);
    VisitEvents(Editor, TInstallEvents());
    if (Editor.Enabled()) FLayoutAccount.clear();
    TIImageResourceList::GetInstance()->DefaultImageList().GetImage(
        ResourceImage::Account, Editor.Properties().ButtonImage());
    if (FAcctListView.Control() == nullptr) {
        FAcctListView.Request(ChannelMessage::CreateAccountListView,
                              MakeEvent<&TAccountEditorRecord::HandleSelectAccount>(this));
    }
    if (FEditor == nullptr) return;
    FEditor->Properties().SetPopupControl(FAcctListView.Control());
    FCurrentText = FEditor->Text();
    TakeOverSharedValue();
}

// A field that has a value gives it to an empty group and takes the group's value otherwise; one
// without a group stays as it is.
void TAccountEditorRecord::TakeOverSharedValue() {
    String shared;
    if (FCurrentText.empty()) {
        shared = SharedValue(Channel::CurrentAccount, FGroupID);
        if (shared.empty()) return;
    } else {
        if (FGroupID.empty()) return;
        TCustomGlobalChannelManager& channels = *TCustomGlobalChannelManager::GetInstance();
        if (channels.GetGroupValue(FGroupID, Channel::CurrentAccount).empty() &&
            !FEditor->Hint().empty()) {
            channels.SetGroupValue(FGroupID, Channel::CurrentAccount, FEditor->Hint());
        }
        shared = channels.GetGroupValue(FGroupID, Channel::CurrentAccount);
    }
    const TScopedValue silent(FNoFireUpdate, true);
    ApplyText(shared);
}

// As if it had been typed; an account that is refused leaves the field empty.
void TAccountEditorRecord::ApplyText(const String& text) {
    if (FEditor == nullptr) return;
    FEditor->SetText(text);
    const Boolean isValid = ValidateAccount();
    if (FEditor == nullptr) return;
    if (isValid) {
        FEditor->Perform(CM_EXIT, 0, 0);
    } else {
        ShowText(String());
    }
}

void TAccountEditorRecord::ShowText(const String& text) {
    FCurrentText = text;
    if (FEditor != nullptr) FEditor->SetText(text);
}

void TAccountEditorRecord::SetShowName(Boolean Value) {
    if (FShowName == Value) return;
    FShowName = Value;
    UpdateAccountName();
}

void TAccountEditorRecord::SetLayoutAccount(StringView Account) {
    const TRun run(*this);
    const String account(Account);
    const TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    if (accounts == nullptr || !accounts->IsAccountReady()) {
        FLayoutAccount = account;
        return;
    }
    const TScopedValue loading(FLoadingLayoutAccount, true);
    ApplyText(account);
    FLayoutAccount.clear();
}

String TAccountEditorRecord::DisplayOf(const String& code) const {
    const TCustomAccount* account = FindAccount(code);
    if (!FShowName || account == nullptr || account->GetName().empty()) return code;
    return FormatText(u"%s, [%s]%s", {code, account->GetAccountTag(), account->GetName()});
}

void TAccountEditorRecord::UpdateAccountName() {
    if (FEditor == nullptr || FEditor->Hint().empty()) return;
    const TRun run(*this);
    ShowText(DisplayOf(FEditor->Hint()));
    if (FEditor != nullptr) FEditor->SetSelStart(0);
}

// True unless the text names no account. The hint is empty from before the check on, so that a
// refused text leaves no account behind.
Boolean TAccountEditorRecord::ValidateAccount() {
    if (FEditor == nullptr) return true;
    const String text(Trim(FEditor->Text()));
    if (text == FCurrentText) return true;
    const TRun run(*this);
    const String before = FEditor->Hint();
    FEditor->SetHint(StringView());
    FCurrentText = text;
    if (!text.empty()) {
        const String code = CodeOf(text);
        if (code.empty()) return Refuse();
        ShowText(DisplayOf(code));
        if (FEditor == nullptr) return true;
        FEditor->SetSelStart(0);
        const TCustomAccount* account = FindAccount(code);
        FEditor->SetHint(account != nullptr ? account->GetAccount() : code);
    }
    if (FNoFireUpdate) return true;
    const String published = FEditor->Hint();
    TCustomGlobalChannelManager::GetInstance()->PublishValue(Channel::CurrentAccount, published,
                                                             before, String(FGroupID));
    return true;
}

// The wrong text stays for correction, unless nobody is there to correct it.
Boolean TAccountEditorRecord::Refuse() {
    const Integer state = TCustomGlobalChannelManager::GetInstance()->GetRunState();
    if (state == RunStateDropUnknownAccount || FLoadingLayoutAccount) {
        ShowText(String());
        return false;
    }
    if (!FNoFireUpdate) {
        TCustomMessageBoxCtrl::GetInstance()->ShowMessageCode(nullptr, UnknownAccountCode,
                                                              StringView(), nullptr, nullptr);
    }
    if (FEditor != nullptr && FEditor->CanFocus()) FEditor->SetFocus();
    return false;
}

void TAccountEditorRecord::HandleSelectAccount(Pointer, Pointer Data) {
    const TRun run(*this);
    ClosePopup(FEditor);
    const auto* chosen = ObjectAs<TCustomAccount>(Data);
    const String code = chosen != nullptr ? chosen->GetAccount() : String();
    if (code.empty() || FEditor == nullptr || code == FEditor->Hint()) return;
    FEditor->SetText(code);
    if (ValidateAccount() && FEditor != nullptr) FEditor->Perform(CM_EXIT, 0, 0);
}

void TAccountEditorRecord::UpdateCopyAccount(Pointer Sender, Pointer) {
    if (FEditor == nullptr || !FEditor->Enabled() || FAloneEditor) return;
    const String value =
        OfferedValue(Sender, Channel::CurrentAccount, FGroupID, AccountsFollowChannel);
    if (value.empty() || value == FEditor->Hint()) return;
    const TRun run(*this);
    const TScopedValue silent(FNoFireUpdate, true);
    HandleSelectAccount(nullptr, AsPointer(FindAccount(value)));
}

// A refused account ends here: the form does not hear of the key.
void TAccountEditorRecord::AccountKeyDown(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    if (Key == Key::Return && !ValidateAccount()) return;
    if (FEditor != nullptr && FOnKeyDown) FOnKeyDown(Sender, Key, Shift);
}

void TAccountEditorRecord::AccountKeyPress(TObject* Sender, Char& Key) {
    const TRun run(*this);
    if (Key >= u'a' && Key <= u'z') Key = static_cast<Char>(Key - u'a' + u'A');
    FLayoutAccount.clear();
    if (FOnKeyPress) FOnKeyPress(Sender, Key);
}

void TAccountEditorRecord::AccountExit(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = false;
    if (!ValidateAccount() || FEditor == nullptr) return;
    FEditor->SetSelStart(0);
    if (FOnExit) FOnExit(Sender);
}

void TAccountEditorRecord::AccountEnter(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = true;
    if (FOnEnter) FOnEnter(Sender);
}

void TAccountEditorRecord::AccountClick(TObject* Sender) {
    const TRun run(*this);
    SelectAllOnEntry(FEditor, FFocusEnter);
    if (FOnClick) FOnClick(Sender);
}

// The first popup of the process also asks for the account list.
void TAccountEditorRecord::PropertiesPopup(TObject*) {
    if (FEditor != nullptr) WidenPopup(*FEditor, ListSize.SmallestWidth);
    TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    if (EditorSharing().AccountListRequested || accounts == nullptr) return;
    EditorSharing().AccountListRequested = true;
    String everyAccount;
    accounts->RequestAccountList(everyAccount, /*Flag=*/true);
}

} // namespace quorin
