#pragma once

#include "viewdata/editors/EditorRecord.h"
#include "viewdata/editors/LinkedField.h"

namespace quorin {

// An account field: takes what was typed or picked, finds the account, shows its code with its tag
// and the holder's name, and shares it with the other fields of its group. The widget's hint holds
// the code, its text the display. An unknown account is refused: the user hears of it once per
// edit and keeps the focus. A stored layout account can wait until the accounts have been loaded.
class TAccountEditorRecord : public TEditorRecord {
    QUORIN_CLASS(TAccountEditorRecord, TEditorRecord)

    // Has no field before Reset.
    TAccountEditorRecord();
    ~TAccountEditorRecord() override { Unhook(); }

    // Binds the record to a widget and a group anew and takes over the group's value.
    void Reset(TcxPopupEdit& Editor, StringView GroupID);
    // Whether tag and name stand behind the code.
    void SetShowName(Boolean Value);
    Boolean ShowName() const { return FShowName; }
    // An alone field follows no channel and no group; its own changes are published.
    void SetAloneEditor(Boolean Value) { FAloneEditor = Value; }
    // Shows a stored account: as soon as the accounts are ready, if they are not yet. An unknown
    // one empties the field without a message.
    void SetLayoutAccount(StringView Account);
    // The account that still waits; empty for none.
    const String& LayoutAccount() const { return FLayoutAccount; }
    // Shows what the account service knows of the account now.
    void UpdateAccountName();
    // The validated code; empty for none and without a widget.
    String AccountCode() const { return FEditor != nullptr ? FEditor->Hint() : String(); }

    void ForgetEditor() override { FEditor = nullptr; }
    void Unhook() override;

protected:
    Boolean ValidateAccount();
    void HandleSelectAccount(Pointer Sender, Pointer Data);
    void UpdateCopyAccount(Pointer Sender, Pointer Data);
    void AccountKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void AccountExit(TObject* Sender);
    void AccountKeyPress(TObject* Sender, Char& Key);
    void PropertiesPopup(TObject* Sender);
    void AccountEnter(TObject* Sender);
    void AccountClick(TObject* Sender);

    TcxPopupEdit* FEditor = nullptr; // not owned
    TFieldListView FAcctListView;
    String FGroupID;
    TKeyEvent FOnKeyDown;
    TNotifyEvent FOnExit;
    TKeyPressEvent FOnKeyPress;
    TNotifyEvent FOnPropertiesPopup;
    TNotifyEvent FOnEnter;
    TNotifyEvent FOnClick;
    String FCurrentText;           // the display after the last validation
    Boolean FNoFireUpdate = false; // the change comes from outside: no publication, no message
    String FLayoutAccount;
    Boolean FFocusEnter = false;
    Boolean FAloneEditor = false;
    Boolean FShowName = true;
    Boolean FLoadingLayoutAccount = false;

private:
    template <class Visit>
    void VisitEvents(TcxPopupEdit& editor, Visit visit);
    void RegisterGroup();
    void RemoveGroup();
    void TakeOverSharedValue();
    void ApplyText(const String& text);
    void ShowText(const String& text);
    String DisplayOf(const String& code) const;
    Boolean Refuse();
};

} // namespace quorin
