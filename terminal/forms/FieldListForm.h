#pragma once

#include "platform/widgets/Control.h"
#include "platform/widgets/GridTableView.h"
#include "platform/widgets/PopupEdit.h"

#include <memory>
#include <span>
#include <vector>

namespace quorin {

// The list that a field for a code drops down, without its pixels: what there is to choose, and of
// that what holds the text that is being typed. Codes that begin with the text come first, then
// those that hold it, then what holds it in its name. Stands in the popup window of its field. The
// services must be installed for as long as it lives. Not supported: choosing several.
class TFieldListForm : public TFrame {
    QUORIN_CLASS(TFieldListForm, TFrame)

    ~TFieldListForm() override;

    TcxGridTableView& View() { return *FView; }

    // What the rows hold, in any case and up to a comma, behind which a field shows more than the
    // code; empty shows all.
    const String& Filter() const { return FFilter; }
    void SetFilter(StringView text);

    // The code of a row; empty outside.
    String Code(Integer row);
    // The row of exactly this code; NoRow where the list does not show it.
    Integer RowOf(StringView code);
    // User action: this row it is. A row outside stands for none: the list closes. Nothing happens
    // when the rows have changed since they were looked at.
    void Choose(Integer row);
    // Called with what was chosen as `Data`, as a TObject.
    void SetOnChosen(const TDataCallbackEvent& event) { FOnChosen = event; }

protected:
    struct TColumn {
        StringView CaptionKey;
        Integer Width; // pixels
    };

    TFieldListForm(TComponent* owner, std::span<const TColumn> columns);

    // What there is to choose, in the order of the list.
    virtual void Collect(std::vector<TObject*>& entries) const = 0;
    virtual const String& CodeOf(const TObject& entry) const = 0;
    // The text of a column; the first shows the code, the last the name.
    virtual String CellOf(const TObject& entry, Integer column) const = 0;
    // Something to choose has come, changed or gone: all is read again.
    void EntriesChanged(Pointer Sender, Pointer Data);

private:
    class TSource;

    void LanguageChanged(Pointer Sender, Pointer Data);
    const std::vector<TObject*>& Rows();

    std::vector<StringView> FCaptionKeys;
    String FFilter; // in capital letters
    std::vector<TObject*> FRows;
    bool FIsStale = true;
    TDataCallbackEvent FOnChosen;
    std::unique_ptr<TSource> FSource;
    std::unique_ptr<TcxGridTableView> FView;
};

// Lets the list that the field drops down, if it is one of these, show what was typed; all of it
// where nothing was typed since the field was accepted.
void FilterByTyping(TcxPopupEdit& edit);
// The field was accepted: the list shows all again.
void ShowWholeList(TcxPopupEdit& edit);
// Nil where the field drops down something else.
TFieldListForm* FieldListOf(TcxPopupEdit& edit);

} // namespace quorin
