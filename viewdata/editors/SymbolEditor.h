#pragma once

#include "viewdata/editors/EditorRecord.h"
#include "viewdata/editors/LinkedField.h"
#include "viewdata/services/SubscribeAdapter.h"

namespace quorin {

class TEditorManager;

// A symbol field: takes what was typed or picked, makes a code of it, shows the code with its
// currency and name, and shares it with the other fields of its group. The widget's hint holds the
// bare code, its text the display. No text is refused: an unknown code shows bare.
class TSymbolEditorRecord : public TEditorRecord {
    QUORIN_CLASS(TSymbolEditorRecord, TEditorRecord)

    // Has no field before Reset. The manager converts its symbols.
    explicit TSymbolEditorRecord(TEditorManager& Manager);
    ~TSymbolEditorRecord() override { Unhook(); }

    // Binds the record to a widget and a group anew and takes over the group's value.
    void Reset(TcxPopupEdit& Editor, StringView GroupID);
    // Whether currency and name stand behind the code.
    void SetShowName(Boolean Value);
    // An alone field follows no channel and no group; its own changes are published.
    void SetAloneEditor(Boolean Value) { FAloneEditor = Value; }

    void ForgetEditor() override { FEditor = nullptr; }
    void Unhook() override;

protected:
    void ValidateSymbol();
    void ApplySymbol(StringView Symbol);
    void HandleSelectSymbol(StringView Symbol);
    void HandleSelectSymbol(Pointer Sender, Pointer Data);
    void UpdateCopySymbol(Pointer Sender, Pointer Data);
    void UpdateLanguage(Pointer Sender, Pointer Data);
    void MarketDataExchangeUpdate(Pointer Sender, Pointer Data);
    void SymbolUpdate(Pointer Sender, Pointer Data);
    void SymbolKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void SymbolExit(TObject* Sender);
    void PropertiesPopup(TObject* Sender);
    void SymbolEnter(TObject* Sender);
    void SymbolClick(TObject* Sender);

    TcxPopupEdit* FEditor = nullptr; // not owned
    TFieldListView FSymbolListView;
    String FGroupID;
    TKeyEvent FOnKeyDown;
    TNotifyEvent FOnExit;
    TNotifyEvent FOnPropertiesPopup;
    TNotifyEvent FOnEnter;
    TNotifyEvent FOnClick;
    String FCurrentText;                // the display after the last validation
    TCustomSubItem* FSubItem = nullptr; // subscribed while a name or currency is awaited
    Boolean FNoFireUpdate = false;      // the change comes from outside: it is not published
    Boolean FFocusEnter = false;
    Boolean FAloneEditor = false;
    Boolean FShowName = true;

private:
    template <class Visit>
    void VisitEvents(TcxPopupEdit& editor, Visit visit);
    void Unsubscribe();
    void RegisterGroup();
    void RemoveGroup();
    void RequestListView();
    void TakeOverSharedValue();
    void ApplySilently(const String& symbol);
    void ValidateHint();
    String CodeOf(StringView text) const;
    void AwaitName(const String& symbol);

    TEditorManager& FManager;
};

} // namespace quorin
