// A person who does anything at all with the four fields of an order: each line is a field and an
// action, then the text of the action.

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/FuzzServices.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"

#include <array>
#include <cmath>

namespace quorin {
namespace {

struct TTicket {
    TTicket() {
        TEditorManager& manager = *TEditorManager::GetInstance();
        for (TcxCustomEdit* edit : Edits) edit->SetParent(&Form);
        manager.RegisterPriceEditor(Price.get(), Group);
        manager.RegisterQuantityEditor(Quantity.get(), Group);
        manager.RegisterSymbolEditor(Symbol.get(), Group, false, true);
        manager.RegisterAccountEditor(Account.get(), Group, false, true);
    }
    ~TTicket() {
        TEditorManager& manager = *TEditorManager::GetInstance();
        manager.RemovePriceEditor(Price.get());
        manager.RemoveQuantityEditor(Quantity.get());
        manager.RemoveSymbolEditor(Symbol.get());
        manager.RemoveAccountEditor(Account.get());
    }

    static constexpr StringView Group = u"G";
    TControl Form;
    std::unique_ptr<TcxSpinEdit> Price = CreateComponent<TcxSpinEdit>();
    std::unique_ptr<TcxSpinEdit> Quantity = CreateComponent<TcxSpinEdit>();
    std::unique_ptr<TcxPopupEdit> Symbol = CreateComponent<TcxPopupEdit>();
    std::unique_ptr<TcxPopupEdit> Account = CreateComponent<TcxPopupEdit>();
    std::array<TcxCustomEdit*, 4> Edits{Price.get(), Quantity.get(), Symbol.get(), Account.get()};
};

void Act(TTicket& ticket, TcxCustomEdit& edit, Byte action, const String& text) {
    static constexpr Word keys[] = {Key::Back, Key::Delete, Key::Return, Key::Escape,
                                    Key::Left, Key::Right,  Key::Up,     Key::Down,
                                    Key::Home, Key::End,    Key::F4};
    const auto number = static_cast<Integer>(text.size());
    edit.Enter();
    switch (action) {
    case 't': edit.TypeText(text); break;
    case 'p': edit.Paste(text); break;
    case 'c': edit.CommitComposition(text); break;
    case 'k':
        for (const Char unit : text) edit.PressKey(keys[unit % std::size(keys)]);
        break;
    case 's':
        edit.SetSelStart(number);
        edit.SetSelLength(5);
        break;
    case 'u': edit.PressButton(number % 2), edit.ReleaseButton(); break;
    case 'w': edit.Wheel(number % 2 == 0 ? WheelNotch : -WheelNotch); break;
    case 'h':
        edit.PressButton(number % 2);
        for (TcxSpinEdit* spin : {ticket.Price.get(), ticket.Quantity.get()}) {
            for (Integer tick = 0; tick < number; ++tick) spin->Tick(TcxSpinEdit::RepeatDelay);
        }
        edit.ReleaseButton();
        break;
    case 'y':
        TEditorManager::GetInstance()->SetPriceSymbol(ticket.Price.get(), text);
        TEditorManager::GetInstance()->SetQuantitySymbol(ticket.Quantity.get(), text);
        break;
    case 'v':
        if (&edit == ticket.Price.get()) ticket.Price->SetEditValue(Variant(text));
        if (&edit == ticket.Quantity.get()) ticket.Quantity->SetEditValue(Variant(text));
        break;
    default: edit.Leave(); break;
    }
}

void Check(const TTicket& ticket) {
    for (const TcxCustomEdit* edit : ticket.Edits) {
        const auto length = static_cast<Integer>(edit->Text().size());
        ExpectLaw(edit->CaretPosition() >= 0 && edit->CaretPosition() <= length, "caret in text");
        ExpectLaw(edit->SelStart() + edit->SelLength() <= length, "selection in text");
    }
    for (const TcxSpinEdit* spin : {ticket.Price.get(), ticket.Quantity.get()}) {
        const Variant& value = spin->EditValue();
        ExpectLaw(value.IsNull() || value.IsNumber(), "a spin edit holds a number or null");
        ExpectLaw(value.IsNull() || std::isfinite(value.ToDouble()), "that is finite");
    }
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    TFuzzServices world;
    {
        TTicket ticket;
        while (!input.IsEmpty()) {
            const Byte field = input.TakeByte();
            const Byte action = input.TakeByte();
            Act(ticket, *ticket.Edits[field % ticket.Edits.size()], action, input.TakeText());
            Check(ticket);
        }
        world.Services.Deliver();
    }
    TEditorManager::ReleaseInstance();
    TIImageResourceList::ReleaseInstance();
    ExpectLaw(world.Services.RegistrationCount() == 0, "no registration is left");
    return 0;
}
