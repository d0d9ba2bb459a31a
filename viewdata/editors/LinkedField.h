#pragma once

#include "platform/widgets/PopupEdit.h"
#include "viewdata/services/GlobalChannelManager.h"

namespace quorin {

// What the process shares beside the editor manager.
struct TEditorSharing {
    // Below 0: linked fields are not told apart by group. From 0 up groups are kept apart, and its
    // bits let ungrouped fields follow what is offered on the channel as such.
    Integer GroupDataMode = -1;
    Boolean AccountListRequested = false;
};
TEditorSharing& EditorSharing();

inline constexpr Integer SymbolsFollowChannel = 1; // bits of GroupDataMode
inline constexpr Integer AccountsFollowChannel = 2;

// The value that a notification of a channel brings to a field of that group; empty for none.
// `followBit` is the field's bit of GroupDataMode.
String OfferedValue(Pointer notification, Integer channel, StringView groupID, Integer followBit);

// The value that a field of that group takes over when it is bound: its group's, without a group
// the channel's.
String SharedValue(Integer channel, StringView groupID);

// The list view that the application makes for a field, on a channel message. Field and view may
// die in any order: a dead view is forgotten, and what is chosen in a view without its field is
// dropped.
class TFieldListView {
public:
    TFieldListView() = default;
    TFieldListView(const TFieldListView&) = delete;
    TFieldListView& operator=(const TFieldListView&) = delete;
    ~TFieldListView();

    // Asks for a view, which calls `chosen` from then on. The application may have none.
    void Request(Integer message, const TDataCallbackEvent& chosen);
    // Nil for none.
    TControl* Control() const;

private:
    class TLink;
    TLink* FLink = nullptr; // frees itself when field and view are gone
};

// Sizes of the window that a linked field drops down.
struct TPopupSize {
    Integer Height;
    Integer SmallestWidth;
    Integer MinHeight;
    Integer MinWidth;
};
void SizePopup(TcxPopupEdit& editor, const TPopupSize& size);
// The popup is at least as wide as the field.
void WidenPopup(TcxPopupEdit& editor, Integer smallestWidth);
// Closes the popup by hiding the window that its control stands in.
void ClosePopup(TcxPopupEdit* editor);

} // namespace quorin
