#include "viewdata/editors/PriceEditor.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/editors/SpinField.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/MarketAdapter.h"

#include <cmath>

namespace quorin {

namespace {

constexpr Double SmallestRatio = 1e-7; // up to this size the shown value is the table's
constexpr Double PlainRatio = 1.0;
constexpr Double FirstStep = 1.0;
constexpr StringView PricePattern = u"#,##0.#######";

} // namespace

Double DisplayRatioOf(const TCustomSubItem& item) {
    const Double ratio = item.HasField(Field::DisplayRatio)
                             ? ToDoubleOr(item.FieldText(Field::DisplayRatio), PlainRatio)
                             : PlainRatio;
    return std::fabs(ratio) > SmallestRatio ? ratio : PlainRatio;
}

TPriceEditorRecord::TPriceEditorRecord() {
    TCustomMarketAdapter::GetInstance()->AddSpreadListener(
        MakeEvent<&TPriceEditorRecord::SpreadUpdate>(this), this);
}

template <class Visit>
void TPriceEditorRecord::VisitEvents(TcxSpinEdit& editor, Visit visit) {
    using Edit = TcxCustomEdit;
    using Properties = TcxCustomEditProperties;
    using Self = TPriceEditorRecord;
    Properties& properties = editor.Properties();
    // clang-format off
    visit(FOnPropertiesChange,   properties, &Properties::OnChange, &Properties::SetOnChange, MakeEvent<&Self::PricePropertiesChange>(this));
    visit(FOnPropertiesValidate, properties, &Properties::OnValidate, &Properties::SetOnValidate, MakeEvent<&Self::PricePropertiesValidate>(this));
    visit(FOnMouseDown, editor, &Edit::OnMouseDown, &Edit::SetOnMouseDown, MakeEvent<&Self::PriceMouseDown>(this));
    visit(FOnKeyDown,   editor, &Edit::OnKeyDown, &Edit::SetOnKeyDown, MakeEvent<&Self::PriceKeyDown>(this));
    visit(FOnKeyUp,     editor, &Edit::OnKeyUp, &Edit::SetOnKeyUp, MakeEvent<&Self::PriceKeyUp>(this));
    visit(FOnEnter,     editor, &TControl::OnEnter, &TControl::SetOnEnter, MakeEvent<&Self::PriceEnter>(this));
    visit(FOnClick,     editor, &Edit::OnClick, &Edit::SetOnClick, MakeEvent<&Self::PriceClick>(this));
    visit(FOnExit,      editor, &TControl::OnExit, &TControl::SetOnExit, MakeEvent<&Self::PriceExit>(this));
    visit(FOnMouseUp,   editor, &Edit::OnMouseUp, &Edit::SetOnMouseUp, MakeEvent<&Self::PriceMouseUp>(this));
    // clang-format on
}

void TPriceEditorRecord::Unsubscribe() {
    TCustomSubItem* item = FSubItem;
    FSubItem = nullptr;
    if (item != nullptr) TCustomSubscribeAdapter::GetInstance()->Unsubscribe(item, this);
}

void TPriceEditorRecord::ForgetEditor() {
    FEditor = nullptr;
}

void TPriceEditorRecord::Unhook() {
    Unsubscribe();
    TCustomMarketAdapter::GetInstance()->RemoveSpreadListener(this);
    FSpread = nullptr;
    if (FEditor == nullptr) return;
    VisitEvents(*FEditor, TGiveBackEvents());
    if (FEditor->OnMouseWheel() == MakeEvent<&TPriceEditorRecord::HandleMouseWheel>(this)) {
        FEditor->SetOnMouseWheel(nullptr);
    }
    FEditor = nullptr;
}

void TPriceEditorRecord::Reset(TcxSpinEdit& Editor, StringView GroupID) {
    if (FEditor != nullptr) VisitEvents(*FEditor, TGiveBackEvents());
    Unsubscribe();
    FSymbol.clear();
    FSpread = nullptr;
    FCurrentPrice = FUpLimitPrice = FDownLimitPrice = 0.0;
    FUpDownBySpread = FSpreadSet = FNeedValidate = FFocusEnter = false;
    VisitEvents(Editor, TSaveEvents());
    FEditor = &Editor;
    TcxSpinEditProperties& properties = Editor.Properties();
    properties.SetIncrement(FirstStep);
    FIncrement = FirstStep;
    properties.SetDisplayFormat(PricePattern);
    properties.SetEditFormat(PricePattern);
    properties.SetUseDisplayFormatWhenEditing(true);
    properties.SetValueType(TcxSpinEditValueType::Float);
    FGroupID = GroupID;
    FDisplayRatio = PlainRatio;
    FManualInputing = false;
    VisitEvents(Editor, TInstallEvents());
}

void TPriceEditorRecord::SetEnableMouseWheelPrice(Boolean Value) {
    FEnableMouseWheelPrice = Value;
    if (FEditor == nullptr) return;
    FEditor->SetOnMouseWheel(Value ? TMouseWheelEvent()
                                   : MakeEvent<&TPriceEditorRecord::HandleMouseWheel>(this));
}

void TPriceEditorRecord::SetSymbol(StringView Value) {
    if (FSymbol == Value) return;
    Unsubscribe();
    FSpread = nullptr;
    FSpreadSet = false;
    FDisplayRatio = PlainRatio;
    FSymbol = Value;
    TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
    TCustomSubItem* item = feed.GetSubItem(FSymbol, LiveDataType, /*Flag=*/false);
    if (item == nullptr) return;
    if (item->GetStatus() != ItemStatus::Ready) {
        FSubItem = item;
        feed.Subscribe(item, MakeEvent<&TPriceEditorRecord::SymbolUpdate>(this), this);
        return;
    }
    TakeTable(*item);
    FDisplayRatio = DisplayRatioOf(*item);
}

void TPriceEditorRecord::SymbolUpdate(Pointer, Pointer) {
    if (FSubItem == nullptr || FSubItem->GetStatus() != ItemStatus::Ready) return;
    const TRun run(*this);
    const TCustomSubItem& item = *FSubItem;
    const String symbol = FSymbol;
    Unsubscribe();
    TakeTable(item);
    if (FSpread != nullptr) SpreadUpdate(nullptr, nullptr);
    // Else the form has chosen another product inside.
    if (FSymbol == symbol) FDisplayRatio = DisplayRatioOf(item);
}

void TPriceEditorRecord::TakeTable(const TCustomSubItem& item) {
    const String code = item.FieldText(Field::SpreadCode);
    if (!code.empty()) FSpread = TCustomMarketAdapter::GetInstance()->FindSpreadTable(code);
}

Boolean TPriceEditorRecord::HasTable() const {
    return FSpread != nullptr && FSpread->GetStatus() == SpreadTableLoaded;
}

void TPriceEditorRecord::SpreadUpdate(Pointer, Pointer) {
    if (!FSpreadSet && HasTable()) PricePropertiesChange(nullptr);
}

// A price outside every band has no tick, and the field keeps the step it has.
void TPriceEditorRecord::SetStep(Double tick) {
    const Double step = Scaled(tick);
    if (step != 0.0) FEditor->Properties().SetIncrement(step);
}

Boolean TPriceEditorRecord::ShowMoved(Integer steps) {
    return ShowValue(FEditor, Scaled(FSpread->MovePrice(FCurrentPrice, steps)));
}

// Brings the price onto the grid and the step to its band. False when the field was taken away by
// a handler meanwhile. Every write of the price runs a plain change inside.
Boolean TPriceEditorRecord::FollowTable(Boolean spun) {
    const Double price = Unscaled(ValueOf(*FEditor));
    if (!FSpreadSet) {
        FSpreadSet = true;
        SetStep(FSpread->GetSpreadDown(price, FUpLimitPrice, FDownLimitPrice));
    }
    if (spun && FDownLimitPrice > price) {
        const Double tick = FSpread->GetSpreadDown(price, FUpLimitPrice, FDownLimitPrice);
        if (!ShowMoved(-1)) return false;
        SetStep(tick);
    } else if (spun && price > FUpLimitPrice) {
        const Double tick = FSpread->GetSpreadUp(price, FUpLimitPrice, FDownLimitPrice);
        if (!ShowMoved(1)) return false;
        SetStep(tick);
    } else if (spun && FNeedValidate) {
        FNeedValidate = false;
        if (price > FCurrentPrice) return ShowMoved(1);
        if (FCurrentPrice > price) return ShowMoved(-1);
    }
    if (!spun && (price > FUpLimitPrice || price < FDownLimitPrice)) {
        SetStep(FSpread->GetSpreadDown(price, FUpLimitPrice, FDownLimitPrice));
    }
    return true;
}

void TPriceEditorRecord::PricePropertiesChange(TObject* Sender) {
    if (FEditor == nullptr) return;
    const TRun run(*this);
    const Boolean spun = FUpDownBySpread;
    FUpDownBySpread = false;
    if (HasTable() && !FollowTable(spun)) return;
    if (FEditor->EditValue().IsNull()) {
        FCurrentPrice = 0.0;
        if (!ShowValue(FEditor, 0.0)) return;
    } else {
        FCurrentPrice = Unscaled(ValueOf(*FEditor));
    }
    if (FOnPropertiesChange) FOnPropertiesChange(Sender);
    if (FEditor != nullptr) StepDone();
}

void TPriceEditorRecord::StepDone() {
    TcxSpinEditProperties& properties = FEditor->Properties();
    if (properties.Increment() != 0.0) FIncrement = properties.Increment();
    if (!FEnablePressKeepChangePrice && FIsMousePressingButton) properties.SetIncrement(0.0);
    if (FManualInputing) ReformatTyped();
}

void TPriceEditorRecord::ReformatTyped() {
    const TcxSpinEditProperties& properties = FEditor->Properties();
    const Boolean isBelow = properties.HasMinValue() && !FEditor->EditValue().IsNull() &&
                            properties.MinValue() > ValueOf(*FEditor);
    if (isBelow) {
        FEditor->SetEditValue(properties.MinValue());
        if (FEditor != nullptr) FEditor->SetSelStart(1);
    } else {
        GroupTyped(*FEditor, TTypedWidth::Bits32);
    }
    FManualInputing = false;
}

void TPriceEditorRecord::PricePropertiesValidate(TObject* Sender, Variant& DisplayValue,
                                                 String& ErrorText, Boolean& Error) {
    const TRun run(*this);
    if (FEditor != nullptr) ShowFormatted(*FEditor);
    if (FOnPropertiesValidate) FOnPropertiesValidate(Sender, DisplayValue, ErrorText, Error);
}

void TPriceEditorRecord::PriceKeyDown(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    const Boolean isStep = Key == Key::Up || Key == Key::Down;
    FUpDownBySpread = isStep;
    if (!isStep) FNeedValidate = true;
    FManualInputing = true;
    if (FOnKeyDown) FOnKeyDown(Sender, Key, Shift);
}

void TPriceEditorRecord::PriceKeyUp(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    FManualInputing = false;
    if (FOnKeyUp) FOnKeyUp(Sender, Key, Shift);
}

void TPriceEditorRecord::PriceMouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift,
                                        Integer X, Integer Y) {
    const TRun run(*this);
    FUpDownBySpread = true;
    if (FEditor != nullptr && IsOnButton(*FEditor, X, Y) && !FEnablePressKeepChangePrice) {
        FIsMousePressingButton = true;
    }
    if (FOnMouseDown) FOnMouseDown(Sender, Button, Shift, X, Y);
}

void TPriceEditorRecord::PriceMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift,
                                      Integer X, Integer Y) {
    const TRun run(*this);
    FIsMousePressingButton = false;
    FUpDownBySpread = false;
    if (FEditor != nullptr) FEditor->Properties().SetIncrement(FIncrement);
    if (FOnMouseUp) FOnMouseUp(Sender, Button, Shift, X, Y);
}

void TPriceEditorRecord::PriceEnter(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = true;
    if (FOnEnter) FOnEnter(Sender);
}

void TPriceEditorRecord::PriceExit(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = false;
    if (FOnExit) FOnExit(Sender);
}

void TPriceEditorRecord::PriceClick(TObject* Sender) {
    const TRun run(*this);
    SelectAllOnEntry(FEditor, FFocusEnter);
    if (FOnClick) FOnClick(Sender);
}

void TPriceEditorRecord::HandleMouseWheel(TObject*, TShiftState, Integer, TPoint,
                                          Boolean& Handled) {
    SwallowWheel(Handled);
}

} // namespace quorin
