#pragma once

#include "platform/widgets/Control.h"
#include "platform/widgets/PopupEdit.h"

namespace quorin {

// A symbol field of its own, without its pixels, for forms that show one symbol. Must be gone
// before the editor manager is released.
class TSymbolChooser : public TFrame {
    QUORIN_CLASS(TSymbolChooser, TFrame)

    explicit TSymbolChooser(TComponent* owner = nullptr);
    ~TSymbolChooser() override;

    TcxPopupEdit& Edit() { return FEdit; }
    // The validated code; empty for none.
    const String& Symbol() const { return FEdit.Hint(); }
    // Links the field with those of the group; empty for none, and then it follows no others.
    void SetGroup(StringView groupID);
    // Enters the symbol as a person would.
    void Enter(StringView symbol);

private:
    void KeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void Left(TObject* Sender);
    void TextChanged(TObject* Sender);

    TcxPopupEdit FEdit;
};

} // namespace quorin
