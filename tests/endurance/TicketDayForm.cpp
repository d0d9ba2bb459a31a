#include "platform/widgets/InputEvents.h"
#include "terminal/forms/FieldListForm.h"
#include "terminal/forms/TicketForm.h"
#include "tests/endurance/DayForm.h"
#include "viewdata/services/OrderRecords.h"

namespace quorin {

namespace {

constexpr Integer HoldMilliseconds = 700; // so that a held button repeats

class TTicketDayForm final : public TDayForm {
public:
    explicit TTicketDayForm(TDay& day) : TDayForm(day), FForm(CreateComponent<TTicketForm>()) {
        Switch();
    }

    void Switch() override {
        static constexpr StringView groups[] = {u"1", u"2", u""};
        const TTicketField field = Day.Random.OneOf(TicketFields);
        FForm->SetGroup(field, Day.Random.OneOf(groups), Day.Random.OneIn(4));
        if (Day.Random.OneIn(2)) FForm->SetLayoutAccount(Day.AnyAccount());
        Type(FForm->SymbolEdit(), Day.AnySymbol());
    }
    void Use(bool mayOrder) override {
        if (mayOrder) return Send();
        TcxCustomEdit& edit = FForm->Edit(Day.Random.OneOf(TicketFields));
        switch (Day.Random.Pick(8)) {
        case 0: return Type(FForm->SymbolEdit(), Day.AnySymbol());
        case 1: return Type(FForm->AccountEdit(), Day.AnyAccount());
        case 2: edit.Wheel(Day.Random.OneIn(2) ? 120 : -120); return;
        case 3: return HoldButton(edit);
        case 4: return DropDown(Day.Random.OneIn(2) ? FForm->SymbolEdit() : FForm->AccountEdit());
        case 5: return PressAny(edit);
        case 6: return Type(FForm->QuantityEdit(), Day.Random.OneIn(3) ? u"2K" : u"400");
        default: edit.Leave(); return;
        }
    }
    void Paint() override {
        for (const TTicketField field : TicketFields) {
            TTicketForm::Caption(field);
            FForm->Edit(field).Text();
        }
    }
    void Check() override {
        TFindings& findings = Day.Findings;
        findings.Require(!Day.IsAllReady || FForm->Account().empty() ||
                             Day.Services.Accounts().IsAccountKnown(FForm->Account()),
                         "the ticket has an unknown account", FForm->Account());
        findings.Require(FForm->Quantity() >= 0.0, "the quantity is below 0");
        for (const TTicketField field : TicketFields) {
            const TcxCustomEdit& edit = FForm->Edit(field);
            const auto length = static_cast<Integer>(edit.Text().size());
            findings.Require(edit.SelStart() >= 0 && edit.SelStart() + edit.SelLength() <= length,
                             "a selection stands outside its text", edit.Text());
        }
    }

private:
    // Key by key, and again where something else has come into the field meanwhile: each code that
    // nobody has asked for before stays in the feed's memory, so that the day types no others.
    void Type(TcxCustomEdit& edit, StringView text) {
        edit.SetFocus();
        for (Integer tries = 0; tries < 3; ++tries) {
            edit.SelectAll();
            for (std::size_t typed = 1; typed <= text.size(); ++typed) {
                edit.TypeText(text.substr(typed - 1, 1));
                if (!StringView(edit.Text()).starts_with(text.substr(0, typed))) break;
            }
            if (edit.Text() == text) break;
        }
        if (Day.Random.OneIn(4)) return; // stays in mid-edit
        edit.PressKey(Key::Return);
        edit.ReleaseKey(Key::Return);
    }
    void PressAny(TcxCustomEdit& edit) {
        static constexpr Word keys[] = {Key::Up,   Key::Down,   Key::Escape, Key::Delete,
                                        Key::Back, Key::Return, Key::Home,   Key::End};
        const Word key = Day.Random.OneOf(keys);
        if (&edit == &FForm->SymbolEdit()) {
            edit.SelectAll();
            edit.TypeText(Day.TradedSymbols()[0]);
        }
        edit.SetFocus();
        edit.PressKey(key);
        edit.ReleaseKey(key);
    }
    void HoldButton(TcxCustomEdit& edit) {
        if (edit.ButtonCount() == 0) return;
        edit.PressButton(Day.Random.Pick(edit.ButtonCount()));
        FForm->Tick(HoldMilliseconds);
        edit.ReleaseButton();
    }
    void DropDown(TcxPopupEdit& edit) {
        edit.DropDown();
        TFieldListForm* list = FieldListOf(edit);
        if (list != nullptr && edit.DroppedDown() && Day.Random.OneIn(2)) {
            const Integer row = Day.Random.Pick(list->View().RowCount());
            list->Code(row);
            list->Choose(row);
        } else {
            edit.CloseUp();
        }
    }
    void Send() {
        const bool atMarket = Day.Random.OneIn(2);
        Type(FForm->SymbolEdit(), Day.AnySymbol());
        Type(FForm->QuantityEdit(), Day.Random.OneIn(2) ? u"1000" : u"1");
        Type(FForm->PriceEdit(), Day.Random.OneIn(2) ? u"100" : u"5.5");
        FForm->Send(Day.Random.OneIn(2) ? OrderSide::Buy : OrderSide::Sell, atMarket);
    }

    std::unique_ptr<TTicketForm> FForm;
};

} // namespace

std::unique_ptr<TDayForm> MakeTicketDayForm(TDay& day) {
    return std::make_unique<TTicketDayForm>(day);
}

} // namespace quorin
