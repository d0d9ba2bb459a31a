#include "viewdata/editors/SymbolEditor.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Text.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/MarketAdapter.h"

namespace quorin {

namespace {

constexpr TPopupSize ListSize{400, 450, 100, 150};
constexpr std::size_t NumberLength = 5; // a code of digits alone has as many at least
constexpr Char DecorationMark = u',';

String CurrencyOf(StringView symbol) {
    const TCustomMarketData* data = TCustomMarketAdapter::GetInstance()->FindMarketData(symbol);
    return data != nullptr ? data->GetCurrency() : String();
}

String NameOf(StringView symbol) {
    return TCustomMarketAdapter::GetInstance()->GetSymbolName(symbol, TAppLanguage::None);
}

TCustomSubItem* KnownItem(StringView symbol) {
    return TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/false);
}

} // namespace

TSymbolEditorRecord::TSymbolEditorRecord(TEditorManager& Manager) : FManager(Manager) {
    TCustomGlobalChannelManager::GetInstance()->RegisterChannelCallback(
        Channel::CurrentSymbol, MakeEvent<&TSymbolEditorRecord::UpdateCopySymbol>(this), this);
    TCustomLanguageManager::GetInstance()->RegisterLanguageCallback(
        MakeEvent<&TSymbolEditorRecord::UpdateLanguage>(this), this);
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TSymbolEditorRecord::MarketDataExchangeUpdate>(this), this);
}

template <class Visit>
void TSymbolEditorRecord::VisitEvents(TcxPopupEdit& editor, Visit visit) {
    using Edit = TcxCustomEdit;
    using Properties = TcxPopupEditProperties;
    using Self = TSymbolEditorRecord;
    // clang-format off
    visit(FOnKeyDown, editor, &Edit::OnKeyDown, &Edit::SetOnKeyDown, MakeEvent<&Self::SymbolKeyDown>(this));
    visit(FOnExit,    editor, &TControl::OnExit, &TControl::SetOnExit, MakeEvent<&Self::SymbolExit>(this));
    visit(FOnPropertiesPopup, editor.Properties(), &Properties::OnPopup, &Properties::SetOnPopup, MakeEvent<&Self::PropertiesPopup>(this));
    visit(FOnEnter,   editor, &TControl::OnEnter, &TControl::SetOnEnter, MakeEvent<&Self::SymbolEnter>(this));
    visit(FOnClick,   editor, &Edit::OnClick, &Edit::SetOnClick, MakeEvent<&Self::SymbolClick>(this));
    // clang-format on
}

void TSymbolEditorRecord::Unsubscribe() {
    TCustomSubItem* item = FSubItem;
    FSubItem = nullptr;
    if (item != nullptr) TCustomSubscribeAdapter::GetInstance()->Unsubscribe(item, this);
}

void TSymbolEditorRecord::RegisterGroup() {
    if (FGroupID.empty()) return;
    TCustomGlobalChannelManager::GetInstance()->RegisterGroupCallback(
        FGroupID, MakeEvent<&TSymbolEditorRecord::UpdateCopySymbol>(this), this);
}

void TSymbolEditorRecord::RemoveGroup() {
    if (FGroupID.empty()) return;
    TCustomGlobalChannelManager::GetInstance()->RemoveGroupCallback(FGroupID, this);
}

void TSymbolEditorRecord::Unhook() {
    Unsubscribe();
    TCustomGlobalChannelManager::GetInstance()->RemoveChannelCallback(Channel::CurrentSymbol, this);
    RemoveGroup();
    TCustomLanguageManager::GetInstance()->RemoveLanguageCallback(this);
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
    if (FEditor != nullptr) VisitEvents(*FEditor, TGiveBackEvents());
    FEditor = nullptr;
}

void TSymbolEditorRecord::Reset(TcxPopupEdit& Editor, StringView GroupID) {
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
    if (FSymbolListView.Control() == nullptr) RequestListView();
    if (FEditor == nullptr) return;
    FEditor->Properties().SetPopupControl(FSymbolListView.Control());
    FCurrentText = FEditor->Text();
    TakeOverSharedValue();
}

void TSymbolEditorRecord::RequestListView() {
    using THandler = void (TSymbolEditorRecord::*)(Pointer, Pointer);
    FSymbolListView.Request(
        ChannelMessage::CreateSymbolListView,
        MakeEvent<static_cast<THandler>(&TSymbolEditorRecord::HandleSelectSymbol)>(this));
}

// A field that has a value gives it to an empty group and takes the group's value otherwise; one
// without a group stays as it is.
void TSymbolEditorRecord::TakeOverSharedValue() {
    TCustomGlobalChannelManager& channels = *TCustomGlobalChannelManager::GetInstance();
    if (FCurrentText.empty()) {
        const String shared = SharedValue(Channel::CurrentSymbol, FGroupID);
        if (!shared.empty()) ApplySilently(shared);
        return;
    }
    if (FGroupID.empty()) return;
    if (channels.GetGroupValue(FGroupID, Channel::CurrentSymbol).empty() &&
        !FEditor->Hint().empty()) {
        channels.SetGroupValue(FGroupID, Channel::CurrentSymbol, FEditor->Hint());
    }
    ApplySilently(channels.GetGroupValue(FGroupID, Channel::CurrentSymbol));
}

void TSymbolEditorRecord::ApplySilently(const String& symbol) {
    const TScopedValue silent(FNoFireUpdate, true);
    HandleSelectSymbol(symbol);
}

void TSymbolEditorRecord::SetShowName(Boolean Value) {
    FShowName = Value;
    if (FEditor != nullptr) ApplySymbol(String(FEditor->Hint()));
}

// What was typed, without the decoration of a display, as a code.
String TSymbolEditorRecord::CodeOf(StringView text) const {
    String code = UpperCase(Trim(text.substr(0, text.find(DecorationMark))));
    Integer number = 0;
    if (TryParseInteger(code, number) && code.size() < NumberLength) {
        code.insert(0, NumberLength - code.size(), u'0');
    }
    return FManager.GetConvertSymbol(code);
}

void TSymbolEditorRecord::ValidateSymbol() {
    if (FEditor == nullptr || FEditor->Text() == FCurrentText) return;
    const TRun run(*this);
    const String symbol = CodeOf(FEditor->Text());
    if (FEditor == nullptr) return;
    const String before = FEditor->Hint();
    FEditor->SetHint(symbol);
    Unsubscribe();
    if (CurrencyOf(symbol).empty() || NameOf(symbol).empty()) AwaitName(symbol);
    ApplySymbol(symbol);
    if (FNoFireUpdate || FEditor == nullptr) return;
    const String published = FEditor->Hint();
    TCustomGlobalChannelManager::GetInstance()->PublishValue(Channel::CurrentSymbol, published,
                                                             before, String(FGroupID));
}

void TSymbolEditorRecord::AwaitName(const String& symbol) {
    TCustomSubItem* item = KnownItem(symbol);
    if (item == nullptr || item->GetStatus() == ItemStatus::Ready) return;
    FSubItem = item;
    TCustomSubscribeAdapter::GetInstance()->Subscribe(
        item, MakeEvent<&TSymbolEditorRecord::SymbolUpdate>(this), this);
}

void TSymbolEditorRecord::ApplySymbol(StringView Symbol) {
    if (FEditor == nullptr) return;
    const TRun run(*this);
    const String symbol(Symbol); // the text may be the widget's own
    const String name = NameOf(symbol);
    String currency = CurrencyOf(symbol);
    if (name.empty() || currency.empty()) {
        const TCustomSubItem* item = KnownItem(symbol);
        const Boolean isReady = item != nullptr && item->GetStatus() == ItemStatus::Ready;
        if (isReady && currency.empty()) currency = item->FieldText(Field::Currency);
    }
    String text = symbol;
    auto caret = static_cast<Integer>(symbol.size());
    if (FShowName) {
        for (const String& part : {currency, name}) {
            if (part.empty()) continue;
            text = FormatText(u"%s, %s", {text, part});
            caret = 0;
        }
    }
    FCurrentText = text;
    FEditor->SetText(text);
    if (FEditor != nullptr) FEditor->SetSelStart(caret);
}

void TSymbolEditorRecord::SymbolUpdate(Pointer Sender, Pointer) {
    if (Sender == nullptr || FSubItem == nullptr || FEditor == nullptr) return;
    const String key = FSubItem->GetKey();
    if (!static_cast<const TSubItemDictionary*>(Sender)->ContainsKey(key)) return;
    const TRun run(*this);
    Unsubscribe();
    ApplySymbol(key);
}

void TSymbolEditorRecord::HandleSelectSymbol(StringView Symbol) {
    const TRun run(*this);
    const String symbol(Symbol);
    ClosePopup(FEditor);
    if (symbol.empty() || FEditor == nullptr || symbol == FEditor->Hint()) return;
    FEditor->SetText(symbol);
    ValidateSymbol();
    if (FEditor != nullptr) FEditor->Perform(CM_EXIT, 0, 0);
}

void TSymbolEditorRecord::HandleSelectSymbol(Pointer, Pointer Data) {
    const auto* chosen = ObjectAs<TCustomMarketData>(Data);
    HandleSelectSymbol(chosen != nullptr ? StringView(chosen->GetSymbol()) : StringView());
}

void TSymbolEditorRecord::UpdateCopySymbol(Pointer Sender, Pointer) {
    if (FEditor == nullptr || !FEditor->Enabled() || FAloneEditor) return;
    const String value =
        OfferedValue(Sender, Channel::CurrentSymbol, FGroupID, SymbolsFollowChannel);
    if (value.empty() || value == FEditor->Hint()) return;
    const TRun run(*this);
    ApplySilently(value);
}

// The text is validated only where it is not the display that stands there already.
void TSymbolEditorRecord::ValidateHint() {
    if (FEditor == nullptr || FEditor->IsDestroying() || FEditor->Hint().empty()) return;
    const TRun run(*this);
    const TScopedValue silent(FNoFireUpdate, true);
    FEditor->SetText(String(FEditor->Hint()));
    ValidateSymbol();
}

void TSymbolEditorRecord::UpdateLanguage(Pointer, Pointer) {
    ValidateHint();
}

void TSymbolEditorRecord::MarketDataExchangeUpdate(Pointer, Pointer) {
    FCurrentText.clear();
    ValidateHint();
}

void TSymbolEditorRecord::SymbolKeyDown(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    if (Key == Key::Return) ValidateSymbol();
    if (FEditor != nullptr && FOnKeyDown) FOnKeyDown(Sender, Key, Shift);
}

void TSymbolEditorRecord::SymbolExit(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = false;
    ValidateSymbol();
    if (FEditor == nullptr) return;
    FEditor->SetSelStart(0);
    if (FOnExit) FOnExit(Sender);
}

void TSymbolEditorRecord::SymbolEnter(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = true;
    if (FOnEnter) FOnEnter(Sender);
}

void TSymbolEditorRecord::SymbolClick(TObject* Sender) {
    const TRun run(*this);
    SelectAllOnEntry(FEditor, FFocusEnter);
    if (FOnClick) FOnClick(Sender);
}

void TSymbolEditorRecord::PropertiesPopup(TObject*) {
    if (FEditor != nullptr) WidenPopup(*FEditor, ListSize.SmallestWidth);
}

} // namespace quorin
