#include "viewdata/editors/QuantityEditor.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/editors/SpinField.h"
#include "viewdata/services/ClientOrder.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Int64 MaxQuantity = MaxOrderQuantity;
constexpr Integer OneUnit = 1;
constexpr Int64 Thousand = 1000;
constexpr Int64 Million = 1000000;
constexpr StringView WholePattern = u"#,##0";
constexpr StringView FractionPattern = u"#,##0.#######";

// Product types that may trade in fractions of a unit, where their item allows it.
constexpr Integer FractionalTypes[] = {6, 10};
constexpr Integer FractionsAllowed = 1;

Integer WholeField(const TCustomSubItem& item, Integer field, Integer fallback) {
    return ToIntegerOr(item.FieldText(field), fallback);
}

Boolean TradesFractions(const TCustomSubItem& item) {
    const Integer type = WholeField(item, Field::ProductType, 0);
    const Boolean mayTrade = std::find(std::begin(FractionalTypes), std::end(FractionalTypes),
                                       type) != std::end(FractionalTypes);
    return mayTrade && WholeField(item, Field::FractionalQuantity, 0) == FractionsAllowed;
}

} // namespace

template <class Visit>
void TQuantityEditorRecord::VisitEvents(TcxSpinEdit& editor, Visit visit) {
    using Edit = TcxCustomEdit;
    using Properties = TcxCustomEditProperties;
    using Self = TQuantityEditorRecord;
    Properties& properties = editor.Properties();
    // clang-format off
    visit(FOnPropertiesChange,   properties, &Properties::OnChange, &Properties::SetOnChange, MakeEvent<&Self::QtyPropertiesChange>(this));
    visit(FOnPropertiesValidate, properties, &Properties::OnValidate, &Properties::SetOnValidate, MakeEvent<&Self::QtyPropertiesValidate>(this));
    visit(FOnExit,      editor, &TControl::OnExit, &TControl::SetOnExit, MakeEvent<&Self::QtyExit>(this));
    visit(FOnKeyPress,  editor, &Edit::OnKeyPress, &Edit::SetOnKeyPress, MakeEvent<&Self::QtyKeyPress>(this));
    visit(FOnEnter,     editor, &TControl::OnEnter, &TControl::SetOnEnter, MakeEvent<&Self::QtyEnter>(this));
    visit(FOnClick,     editor, &Edit::OnClick, &Edit::SetOnClick, MakeEvent<&Self::QtyClick>(this));
    visit(FOnKeyUp,     editor, &Edit::OnKeyUp, &Edit::SetOnKeyUp, MakeEvent<&Self::QtyKeyUp>(this));
    visit(FOnKeyDown,   editor, &Edit::OnKeyDown, &Edit::SetOnKeyDown, MakeEvent<&Self::QtyKeyDown>(this));
    visit(FOnMouseDown, editor, &Edit::OnMouseDown, &Edit::SetOnMouseDown, MakeEvent<&Self::QtyMouseDown>(this));
    visit(FOnMouseUp,   editor, &Edit::OnMouseUp, &Edit::SetOnMouseUp, MakeEvent<&Self::QtyMouseUp>(this));
    // clang-format on
}

void TQuantityEditorRecord::Unsubscribe() {
    TCustomSubItem* item = FSubItem;
    FSubItem = nullptr;
    if (item != nullptr) TCustomSubscribeAdapter::GetInstance()->Unsubscribe(item, this);
}

void TQuantityEditorRecord::Unhook() {
    if (FEditor != nullptr) {
        VisitEvents(*FEditor, TGiveBackEvents());
        if (FEditor->OnMouseWheel() == MakeEvent<&TQuantityEditorRecord::HandleMouseWheel>(this)) {
            FEditor->SetOnMouseWheel(nullptr);
        }
    }
    Unsubscribe();
    FEditor = nullptr;
}

void TQuantityEditorRecord::ShowWholeNumbers() {
    TcxSpinEditProperties& properties = FEditor->Properties();
    properties.SetDisplayFormat(WholePattern);
    properties.SetEditFormat(WholePattern);
    properties.SetValueType(TcxSpinEditValueType::Whole);
}

void TQuantityEditorRecord::Reset(TcxSpinEdit& Editor, StringView GroupID) {
    const TRun run(*this);
    const String group(GroupID); // the text may be the form's, which hears of a rounded value
    if (FEditor != nullptr) VisitEvents(*FEditor, TGiveBackEvents());
    FFocusEnter = false;
    Unsubscribe();
    FSymbol.clear();
    VisitEvents(Editor, TSaveEvents());
    FEditor = &Editor;
    FGroupID = group;
    TcxSpinEditProperties& properties = Editor.Properties();
    properties.SetIncrement(OneUnit);
    FIncrement = OneUnit;
    properties.SetMinValue(0.0);
    properties.SetMaxValue(static_cast<Double>(MaxQuantity));
    properties.SetUseDisplayFormatWhenEditing(true);
    ShowWholeNumbers();
    if (FEditor != nullptr) VisitEvents(*FEditor, TInstallEvents());
}

void TQuantityEditorRecord::SetEnableMouseWheelQty(Boolean Value) {
    FEnableMouseWheelQty = Value;
    if (FEditor == nullptr) return;
    FEditor->SetOnMouseWheel(Value ? TMouseWheelEvent()
                                   : MakeEvent<&TQuantityEditorRecord::HandleMouseWheel>(this));
}

void TQuantityEditorRecord::SetSymbol(StringView Value) {
    if (FSymbol == Value) return;
    const TRun run(*this);
    const String symbol(Value);
    FSymbol = symbol;
    Unsubscribe();
    TCustomSubscribeAdapter& feed = *TCustomSubscribeAdapter::GetInstance();
    TCustomSubItem* item = feed.GetSubItem(symbol, LiveDataType, /*Flag=*/false);
    if (FEditor != nullptr) ShowWholeNumbers();
    // Rounding a fraction has called the form, which may have chosen another product.
    if (item == nullptr || FEditor == nullptr || FSymbol != symbol) return;
    if (item->GetStatus() == ItemStatus::Ready) {
        TakeProduct(*item);
        return;
    }
    FSubItem = item;
    feed.Subscribe(item, MakeEvent<&TQuantityEditorRecord::SymbolUpdate>(this), this);
}

void TQuantityEditorRecord::SymbolUpdate(Pointer, Pointer) {
    if (FSubItem == nullptr || FSubItem->GetStatus() != ItemStatus::Ready) return;
    const TRun run(*this);
    const TCustomSubItem& item = *FSubItem;
    Unsubscribe();
    TakeProduct(item);
}

void TQuantityEditorRecord::TakeProduct(const TCustomSubItem& item) {
    if (FEditor == nullptr) return;
    TcxSpinEditProperties& properties = FEditor->Properties();
    FIncrement = WholeField(item, Field::LotSize, OneUnit);
    properties.SetIncrement(FIncrement);
    if (!TradesFractions(item)) return;
    properties.SetDisplayFormat(FractionPattern);
    properties.SetEditFormat(FractionPattern);
    properties.SetValueType(TcxSpinEditValueType::Float);
}

// Rounds down to the lot. False when a handler has taken the field away meanwhile.
Boolean TQuantityEditorRecord::AlignToLot() {
    const Int64 quantity = WholeValueOf(*FEditor);
    const Double step = FEditor->Properties().Increment();
    if (!(static_cast<Double>(quantity) > step) || quantity == FCurrentQty) return true;
    const auto lot = static_cast<Int64>(step);
    if (lot < 1 || quantity % lot == 0) return true; // a step below 1 has no multiples
    FEditingQty = true;
    FNoFireEvent = true;
    return ShowValue(FEditor, static_cast<Double>(quantity / lot) * step);
}

void TQuantityEditorRecord::QtyPropertiesChange(TObject* Sender) {
    if (FEditor == nullptr) return;
    const TRun run(*this);
    if (!FEditingQty && !FSymbol.empty() && !AlignToLot()) return;
    if (!FEditor->EditValue().IsNull()) FCurrentQty = WholeValueOf(*FEditor);
    FEditingQty = false;
    const Boolean isSilent = FNoFireEvent;
    FNoFireEvent = false;
    if (!isSilent && FOnPropertiesChange) FOnPropertiesChange(Sender);
    if (FEditor == nullptr) return;
    if (!FEnablePressKeepChangeQty && FIsMousePressingButton) {
        FEditor->Properties().SetIncrement(0.0);
    }
    if (FManualInputing) ReformatTyped();
}

// Against the minimum's opposite, other than in a price field: with a minimum of 0 a negative value
// goes to 0.
void TQuantityEditorRecord::ReformatTyped() {
    const TcxSpinEditProperties& properties = FEditor->Properties();
    const Boolean isBelow = properties.HasMinValue() && !FEditor->EditValue().IsNull() &&
                            -properties.MinValue() > ValueOf(*FEditor);
    if (isBelow) {
        FEditor->SetEditValue(properties.MinValue());
        if (FEditor != nullptr) FEditor->SetSelStart(1);
    } else {
        GroupTyped(*FEditor, TTypedWidth::Bits64);
    }
    FManualInputing = false;
}

void TQuantityEditorRecord::QtyPropertiesValidate(TObject* Sender, Variant& DisplayValue,
                                                  String& ErrorText, Boolean& Error) {
    const TRun run(*this);
    if (FEditor != nullptr) ShowFormatted(*FEditor);
    if (FOnPropertiesValidate) FOnPropertiesValidate(Sender, DisplayValue, ErrorText, Error);
}

void TQuantityEditorRecord::Multiply(Int64 factor) {
    FCurrentQty = std::clamp(FCurrentQty, -MaxQuantity, MaxQuantity);
    FCurrentQty = std::min(FCurrentQty * factor, MaxQuantity);
    ShowValue(FEditor, FCurrentQty);
}

// The form hears the key as it was.
void TQuantityEditorRecord::QtyKeyPress(TObject* Sender, Char& Key) {
    const TRun run(*this);
    FEditingQty = true;
    if (FEditor != nullptr) {
        switch (Key) {
        case KeyChar::Return: FCurrentQty = WholeValueOf(*FEditor); break;
        case u'.':
            if (FEnableThousandQty) Multiply(Thousand);
            break;
        case u'M':
        case u'm': Multiply(Million); break;
        case u'K':
        case u'k': Multiply(Thousand); break;
        default: break;
        }
    }
    if (FEditor != nullptr && FOnKeyPress) FOnKeyPress(Sender, Key);
}

void TQuantityEditorRecord::QtyKeyDown(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    FManualInputing = true;
    if (FOnKeyDown) FOnKeyDown(Sender, Key, Shift);
}

void TQuantityEditorRecord::QtyKeyUp(TObject* Sender, Word& Key, TShiftState Shift) {
    const TRun run(*this);
    FEditingQty = false;
    if (FEditor != nullptr) FCurrentQty = WholeValueOf(*FEditor);
    FManualInputing = false;
    if (FOnKeyUp) FOnKeyUp(Sender, Key, Shift);
}

void TQuantityEditorRecord::QtyMouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift,
                                         Integer X, Integer Y) {
    const TRun run(*this);
    if (FEditor != nullptr && IsOnButton(*FEditor, X, Y) && !FEnablePressKeepChangeQty) {
        FIsMousePressingButton = true;
    }
    if (FOnMouseDown) FOnMouseDown(Sender, Button, Shift, X, Y);
}

void TQuantityEditorRecord::QtyMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift,
                                       Integer X, Integer Y) {
    const TRun run(*this);
    FIsMousePressingButton = false;
    if (FEditor != nullptr) FEditor->Properties().SetIncrement(FIncrement);
    if (FOnMouseUp) FOnMouseUp(Sender, Button, Shift, X, Y);
}

void TQuantityEditorRecord::QtyEnter(TObject* Sender) {
    const TRun run(*this);
    FFocusEnter = true;
    if (FOnEnter) FOnEnter(Sender);
}

void TQuantityEditorRecord::QtyExit(TObject* Sender) {
    const TRun run(*this);
    if (FEditor != nullptr) FCurrentQty = WholeValueOf(*FEditor);
    FFocusEnter = false;
    FEditingQty = false;
    if (FOnExit) FOnExit(Sender);
}

void TQuantityEditorRecord::QtyClick(TObject* Sender) {
    const TRun run(*this);
    SelectAllOnEntry(FEditor, FFocusEnter);
    if (FOnClick) FOnClick(Sender);
}

void TQuantityEditorRecord::HandleMouseWheel(TObject*, TShiftState, Integer, TPoint,
                                             Boolean& Handled) {
    SwallowWheel(Handled);
}

} // namespace quorin
