#pragma once

#include "platform/rtl/TObject.h"
#include "platform/widgets/ResourceStrings.h"

namespace quorin {

class TcxGridRows;
class TcxGridTableView;

// The strip above a grid in which the user looks for a text: a field and two buttons. Only the rows
// in which the text stands in some visible column, as the user reads it and in any case of its
// letters, are left on show. The captions are those in force at the moment of asking.
class TcxGridFindPanel : public TObject {
    QUORIN_CLASS(TcxGridFindPanel, TObject)

    TcxGridFindPanel(TcxGridTableView& view, TcxGridRows& rows) : FView(view), FRows(rows) {}

    Boolean IsOpen() const { return FIsOpen; }
    void Open();
    // What was found counts no more.
    void Close();

    // What stands in the field, and what an empty field says instead.
    const String& Text() const { return FText; }
    void SetText(StringView text) { FText = text; }
    const String& InfoText() const { return cxGetResourceString(scxGridFindPanelInfoText); }
    const String& FindButtonCaption() const {
        return cxGetResourceString(scxGridFindPanelFindButtonCaption);
    }
    const String& ClearButtonCaption() const {
        return cxGetResourceString(scxGridFindPanelClearButtonCaption);
    }

    // Looks for the text of the field; an empty one shows every row again.
    void PressFind();
    // Empties the field and shows every row again.
    void PressClear();

    // What the rows on show have in common; empty while nothing is looked for.
    const String& FoundText() const { return FFoundText; }

private:
    Boolean IsFound(Integer record);

    TcxGridTableView& FView;
    TcxGridRows& FRows;
    String FText;
    String FFoundText;
    String FUpperText; // of what is looked for
    Boolean FIsOpen = false;
};

} // namespace quorin
