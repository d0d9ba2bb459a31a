#pragma once

#include "platform/widgets/SpinEdit.h"
#include "viewdata/editors/EditorRecord.h"
#include "viewdata/services/SubscribeAdapter.h"

namespace quorin {

// A quantity field: steps by the product's lot, rounds what a step leaves off the lot down to it,
// multiplies what was typed with the keys K and M and, if the user wants it, the full stop, and
// keeps the group marks in place. What is typed is never aligned.
class TQuantityEditorRecord : public TEditorRecord {
    QUORIN_CLASS(TQuantityEditorRecord, TEditorRecord)

    // Has no field before Reset.
    TQuantityEditorRecord() = default;
    ~TQuantityEditorRecord() override { Unhook(); }

    // Binds the record to a widget anew, without a product.
    void Reset(TcxSpinEdit& Editor, StringView GroupID);
    // The product whose lot counts; its data may arrive later.
    void SetSymbol(StringView Value);
    // The full stop multiplies by 1000.
    void SetEnableThousandQty(Boolean Value) { FEnableThousandQty = Value; }
    // Off swallows the wheel.
    void SetEnableMouseWheelQty(Boolean Value);
    // Off lets a held button step once.
    void SetEnablePressKeepChangeQty(Boolean Value) { FEnablePressKeepChangeQty = Value; }

    void ForgetEditor() override { FEditor = nullptr; }
    void Unhook() override;

protected:
    void SymbolUpdate(Pointer Sender, Pointer Data);
    void QtyPropertiesChange(TObject* Sender);
    void QtyPropertiesValidate(TObject* Sender, Variant& DisplayValue, String& ErrorText,
                               Boolean& Error);
    void QtyExit(TObject* Sender);
    void QtyKeyPress(TObject* Sender, Char& Key);
    void QtyEnter(TObject* Sender);
    void QtyClick(TObject* Sender);
    void QtyKeyUp(TObject* Sender, Word& Key, TShiftState Shift);
    void QtyKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void QtyMouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift, Integer X,
                      Integer Y);
    void QtyMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, Integer X, Integer Y);
    void HandleMouseWheel(TObject* Sender, TShiftState Shift, Integer WheelDelta, TPoint MousePos,
                          Boolean& Handled);

    String FSymbol;
    TCustomSubItem* FSubItem = nullptr; // subscribed while the product's data are awaited
    TcxSpinEdit* FEditor = nullptr;     // not owned
    String FGroupID;
    Int64 FCurrentQty = 0;       // last taken from the field
    Boolean FEditingQty = false; // the user types: no alignment now
    TNotifyEvent FOnPropertiesChange;
    TcxEditValidateEvent FOnPropertiesValidate;
    TNotifyEvent FOnExit;
    TKeyPressEvent FOnKeyPress;
    TNotifyEvent FOnEnter;
    TNotifyEvent FOnClick;
    TKeyEvent FOnKeyUp;
    TKeyEvent FOnKeyDown;
    Boolean FNoFireEvent = false; // the change under way comes from the alignment
    Boolean FFocusEnter = false;
    Boolean FEnableThousandQty = false;
    Boolean FEnableMouseWheelQty = true;
    Boolean FEnablePressKeepChangeQty = true;
    Boolean FIsMousePressingButton = false;
    TMouseEvent FOnMouseDown;
    TMouseEvent FOnMouseUp;
    Integer FIncrement = 1; // the lot
    Boolean FManualInputing = false;

private:
    template <class Visit>
    void VisitEvents(TcxSpinEdit& editor, Visit visit);
    void Unsubscribe();
    void ShowWholeNumbers();
    void TakeProduct(const TCustomSubItem& item);
    Boolean AlignToLot();
    void Multiply(Int64 factor);
    void ReformatTyped();
};

} // namespace quorin
