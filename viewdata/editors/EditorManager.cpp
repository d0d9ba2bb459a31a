#include "viewdata/editors/EditorManager.h"

#include "viewdata/presentation/WidgetTexts.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/ConfigManager.h"

namespace quorin {

namespace {

std::unique_ptr<TEditorManager>& Instance() {
    static std::unique_ptr<TEditorManager> instance;
    return instance;
}

Int64 IdentityOf(const TObject* widget) {
    return static_cast<Int64>(reinterpret_cast<std::intptr_t>(widget));
}

// Only while a record is bound to it: the manager hears of its end.
TComponent* WidgetOf(Int64 identity) {
    return static_cast<TComponent*>(
        reinterpret_cast<TObject*>(static_cast<std::intptr_t>(identity)));
}

template <class Record>
Record* FindRecord(const TDictionary<Int64, std::unique_ptr<Record>>& records,
                   const TObject* widget) {
    const std::unique_ptr<Record>* record = records.Find(IdentityOf(widget));
    return record != nullptr ? record->get() : nullptr;
}

} // namespace

TEditorManager* TEditorManager::GetInstance() {
    if (Instance() == nullptr) Instance() = CreateComponent<TEditorManager>();
    return Instance().get();
}

void TEditorManager::ReleaseInstance() {
    // Gone before it dies: a handler that asks for the manager meanwhile gets none of this one.
    const std::unique_ptr<TEditorManager> dying = std::move(Instance());
}

TEditorManager::TEditorManager(TComponent* AOwner) : TComponent(AOwner) {
    EditorSharing().AccountListRequested = false;
    TCustomLanguageManager::GetInstance()->RegisterLanguageCallback(
        MakeEvent<&TEditorManager::UpdateLanguage>(this), this);
    if (TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance()) {
        accounts->AddAccountReadyCallback(MakeEvent<&TEditorManager::AllAccountInitialized>(this),
                                          this);
        accounts->AddAccountInfoLoadCallback(MakeEvent<&TEditorManager::AccountInfoLoad>(this),
                                             this);
    }
    UpdateLanguage(nullptr, nullptr);
    TCustomConfigManager::GetInstance()->RegisterConfigCallback(
        MakeEvent<&TEditorManager::ConfigUpdate>(this), this);
    ConfigUpdate(nullptr, nullptr);
    FOnConvertSymbol = LoadSymbolConversion();
}

TEditorManager::~TEditorManager() {
    TCustomLanguageManager::GetInstance()->RemoveLanguageCallback(this);
    TCustomConfigManager::GetInstance()->RemoveConfigCallback(this);
    if (TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance()) {
        accounts->RemoveAccountReadyCallback(this);
        accounts->RemoveAccountInfoLoadCallback(this);
    }
    DropAll();
}

// The record is known before it is bound: what its binding calls out to may take the field away.
template <class Record, class Editor, class... A>
Record* TEditorManager::Bind(TRecords<Record>& records, Editor* editor, StringView groupID,
                             A&... arguments) {
    if (editor == nullptr) return nullptr;
    const Int64 identity = IdentityOf(editor);
    if (!records.ContainsKey(identity)) {
        records.Add(identity, std::make_unique<Record>(arguments...));
        editor->AddFreeListener(MakeEvent<&TEditorManager::ForgetWidget>(this), this);
    }
    FindRecord(records, editor)->Reset(*editor, groupID);
    return FindRecord(records, editor);
}

template <class Record>
void TEditorManager::Drop(TRecords<Record>& records, Int64 identity) {
    std::unique_ptr<Record> record = records.Extract(identity);
    if (record == nullptr) return;
    TEditorRecord::Retire(std::move(record));
    if (!IsKnown(identity)) WidgetOf(identity)->RemoveFreeListener(this);
}

Boolean TEditorManager::IsKnown(Int64 identity) const {
    return FPriceEditorRecordList.ContainsKey(identity) ||
           FQuantityEditorRecordList.ContainsKey(identity) ||
           FAccountEditorRecordList.ContainsKey(identity) ||
           FSymbolEditorRecordList.ContainsKey(identity);
}

void TEditorManager::DropAll() {
    for (const Int64 identity : FPriceEditorRecordList.Keys()) {
        Drop(FPriceEditorRecordList, identity);
    }
    for (const Int64 identity : FQuantityEditorRecordList.Keys()) {
        Drop(FQuantityEditorRecordList, identity);
    }
    for (const Int64 identity : FAccountEditorRecordList.Keys()) {
        Drop(FAccountEditorRecordList, identity);
    }
    for (const Int64 identity : FSymbolEditorRecordList.Keys()) {
        Drop(FSymbolEditorRecordList, identity);
    }
}

// The widget can be named, but no longer be touched.
void TEditorManager::ForgetWidget(TObject* widget) {
    const auto forget = [widget](auto& records) {
        auto record = records.Extract(IdentityOf(widget));
        if (record == nullptr) return;
        record->ForgetEditor();
        TEditorRecord::Retire(std::move(record));
    };
    forget(FPriceEditorRecordList);
    forget(FQuantityEditorRecordList);
    forget(FAccountEditorRecordList);
    forget(FSymbolEditorRecordList);
}

void TEditorManager::RegisterPriceEditor(TcxSpinEdit* Editor, StringView GroupID) {
    if (TPriceEditorRecord* record = Bind(FPriceEditorRecordList, Editor, GroupID)) {
        record->SetEnableMouseWheelPrice(FEnableMouseWheelPrice);
        record->SetEnablePressKeepChangePrice(FEnablePressKeepChangePrice);
    }
}

void TEditorManager::RemovePriceEditor(TcxSpinEdit* Editor) {
    Drop(FPriceEditorRecordList, IdentityOf(Editor));
}

void TEditorManager::SetPriceSymbol(TcxSpinEdit* Editor, StringView Symbol) {
    if (TPriceEditorRecord* record = FindRecord(FPriceEditorRecordList, Editor)) {
        record->SetSymbol(Symbol);
    }
}

void TEditorManager::RegisterQuantityEditor(TcxSpinEdit* Editor, StringView GroupID) {
    if (TQuantityEditorRecord* record = Bind(FQuantityEditorRecordList, Editor, GroupID)) {
        record->SetEnableThousandQty(FEnableThousandQty);
        record->SetEnableMouseWheelQty(FEnableMouseWheelQty);
        record->SetEnablePressKeepChangeQty(FEnablePressKeepChangeQty);
    }
}

void TEditorManager::RemoveQuantityEditor(TcxSpinEdit* Editor) {
    Drop(FQuantityEditorRecordList, IdentityOf(Editor));
}

void TEditorManager::SetQuantitySymbol(TcxSpinEdit* Editor, StringView Symbol) {
    if (TQuantityEditorRecord* record = FindRecord(FQuantityEditorRecordList, Editor)) {
        record->SetSymbol(Symbol);
    }
}

void TEditorManager::RegisterAccountEditor(TcxPopupEdit* Editor, StringView GroupID, Boolean Alone,
                                           Boolean showName) {
    if (TAccountEditorRecord* record = Bind(FAccountEditorRecordList, Editor, GroupID)) {
        record->SetAloneEditor(Alone);
        record->SetShowName(showName);
    }
}

void TEditorManager::RemoveAccountEditor(TcxPopupEdit* Editor) {
    Drop(FAccountEditorRecordList, IdentityOf(Editor));
}

void TEditorManager::SetAccountLayoutAccount(TcxPopupEdit* Editor, StringView Account) {
    if (TAccountEditorRecord* record = FindRecord(FAccountEditorRecordList, Editor)) {
        record->SetLayoutAccount(Account);
    }
}

void TEditorManager::RegisterSymbolEditor(TcxPopupEdit* Editor, StringView GroupID, Boolean Alone,
                                          Boolean showName) {
    if (TSymbolEditorRecord* record = Bind(FSymbolEditorRecordList, Editor, GroupID, *this)) {
        record->SetAloneEditor(Alone);
        record->SetShowName(FShowSymbolName && showName);
    }
}

void TEditorManager::RemoveSymbolEditor(TcxPopupEdit* Editor) {
    Drop(FSymbolEditorRecordList, IdentityOf(Editor));
}

void TEditorManager::AccountInfoLoad(Pointer Sender, Pointer) {
    if (Sender == nullptr) return;
    const auto& loaded = *static_cast<const TAccountDictionary*>(Sender);
    for (const Int64 identity : FAccountEditorRecordList.Keys()) {
        const auto* record = FAccountEditorRecordList.Find(identity);
        if (record == nullptr) continue; // a handler has taken it away
        const String code = (*record)->AccountCode();
        if (!code.empty() && loaded.ContainsKey(code) && (*record)->ShowName()) {
            (*record)->UpdateAccountName();
        }
    }
}

void TEditorManager::AllAccountInitialized(Pointer, Pointer) {
    for (const Int64 identity : FAccountEditorRecordList.Keys()) {
        const auto* record = FAccountEditorRecordList.Find(identity);
        if (record == nullptr || (*record)->LayoutAccount().empty()) continue;
        (*record)->SetLayoutAccount(String((*record)->LayoutAccount()));
    }
}

void TEditorManager::UpdateLanguage(Pointer, Pointer) {
    const TAppLanguage language = TCustomLanguageManager::GetInstance()->GetCurrentLanguage();
    if (language == FCurrentLanguage) return;
    FCurrentLanguage = language;
    RefreshWidgetTexts();
}

void TEditorManager::RefreshResourceLabel() {
    UpdateLanguage(nullptr, nullptr);
}

String TEditorManager::GetConvertSymbol(StringView Symbol) {
    return ConvertedSymbol(FOnConvertSymbol, Symbol);
}

} // namespace quorin
