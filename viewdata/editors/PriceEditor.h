#pragma once

#include "platform/widgets/SpinEdit.h"
#include "viewdata/editors/EditorRecord.h"
#include "viewdata/services/SpreadTable.h"
#include "viewdata/services/SubscribeAdapter.h"

namespace quorin {

// What a price of the product is multiplied by to be shown; 1.0 where its item names no ratio that
// can be used.
Double DisplayRatioOf(const TCustomSubItem& item);

// A price field: steps along the product's tick table, brings a typed price onto the tick grid with
// the next step, shows prices of products that are quoted at a ratio scaled, and keeps the group
// marks in place while the user types. A product without a tick table leaves the field a plain spin
// edit. A table value times the display ratio is what is shown.
class TPriceEditorRecord : public TEditorRecord {
    QUORIN_CLASS(TPriceEditorRecord, TEditorRecord)

    // Has no field before Reset.
    TPriceEditorRecord();
    ~TPriceEditorRecord() override { Unhook(); }

    // Binds the record to a widget anew, without a product.
    void Reset(TcxSpinEdit& Editor, StringView GroupID);
    // The product that the field prices; its table and ratio may arrive later.
    void SetSymbol(StringView Value);
    // Off swallows the wheel.
    void SetEnableMouseWheelPrice(Boolean Value);
    // Off lets a held button step once.
    void SetEnablePressKeepChangePrice(Boolean Value) { FEnablePressKeepChangePrice = Value; }

    void ForgetEditor() override;
    void Unhook() override;

protected:
    void SpreadUpdate(Pointer Sender, Pointer Data);
    void SymbolUpdate(Pointer Sender, Pointer Data);
    void PricePropertiesChange(TObject* Sender);
    void PricePropertiesValidate(TObject* Sender, Variant& DisplayValue, String& ErrorText,
                                 Boolean& Error);
    void PriceMouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift, Integer X,
                        Integer Y);
    void PriceKeyDown(TObject* Sender, Word& Key, TShiftState Shift);
    void PriceKeyUp(TObject* Sender, Word& Key, TShiftState Shift);
    void PriceEnter(TObject* Sender);
    void PriceClick(TObject* Sender);
    void PriceExit(TObject* Sender);
    void PriceMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, Integer X,
                      Integer Y);
    void HandleMouseWheel(TObject* Sender, TShiftState Shift, Integer WheelDelta, TPoint MousePos,
                          Boolean& Handled);

    String FSymbol;
    TCustomSpreadTable* FSpread = nullptr; // not owned
    TCustomSubItem* FSubItem = nullptr;    // subscribed while the product's data are awaited
    Double FCurrentPrice = 0.0;            // a table value
    Double FUpLimitPrice = 0.0;            // the band of the current price
    Double FDownLimitPrice = 0.0;
    Boolean FUpDownBySpread = false; // the next change comes from a step
    Boolean FSpreadSet = false;      // the band is the current table's
    Boolean FNeedValidate = false;   // typed: the next step brings the price onto the grid
    TNotifyEvent FOnPropertiesChange;
    TcxEditValidateEvent FOnPropertiesValidate;
    TMouseEvent FOnMouseDown;
    TKeyEvent FOnKeyDown;
    TKeyEvent FOnKeyUp;
    TNotifyEvent FOnEnter;
    TNotifyEvent FOnClick;
    TNotifyEvent FOnExit;
    TcxSpinEdit* FEditor = nullptr; // not owned
    String FGroupID;
    Boolean FFocusEnter = false;
    Double FDisplayRatio = 1.0;
    Boolean FEnableMouseWheelPrice = true;
    Boolean FEnablePressKeepChangePrice = true;
    Boolean FIsMousePressingButton = false;
    TMouseEvent FOnMouseUp;
    Double FIncrement = 1.0; // the step to give back when the mouse lets go; never 0
    Boolean FManualInputing = false;

private:
    template <class Visit>
    void VisitEvents(TcxSpinEdit& editor, Visit visit);
    void Unsubscribe();
    void TakeTable(const TCustomSubItem& item);
    Double Scaled(Double price) const { return price * FDisplayRatio; }
    Double Unscaled(Double value) const { return value / FDisplayRatio; }
    Boolean HasTable() const;
    void SetStep(Double tick);
    Boolean FollowTable(Boolean spun);
    Boolean ShowMoved(Integer steps);
    void StepDone();
    void ReformatTyped();
};

} // namespace quorin
