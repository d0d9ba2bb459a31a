#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/ScriptAnswers.h"
#include "terminal/forms/FieldListForm.h"

namespace quorin {

namespace {

constexpr Integer FirstTicket = 1;
constexpr Integer MostNotches = 100;
constexpr Char KeySeparator = u'+';

struct TNamedKey {
    StringView Name;
    Word Number;
};

constexpr TNamedKey NamedKeys[] = {
    {u"up", Key::Up},         {u"down", Key::Down},     {u"left", Key::Left},
    {u"right", Key::Right},   {u"home", Key::Home},     {u"end", Key::End},
    {u"return", Key::Return}, {u"escape", Key::Escape}, {u"back", Key::Back},
    {u"delete", Key::Delete}, {u"f4", Key::F4},
};

struct TNamedShift {
    StringView Name;
    TShiftState State;
};

constexpr TNamedShift NamedShifts[] = {
    {u"shift", TShiftState::Shift}, {u"alt", TShiftState::Alt}, {u"ctrl", TShiftState::Ctrl}};

struct TKeyStroke {
    Word Number = 0;
    TShiftState Shift = TShiftState::None;
};

TKeyStroke KeyStrokeOf(const String& text) {
    const std::vector<StringView> parts = Split(text, KeySeparator);
    TKeyStroke stroke;
    for (std::size_t part = 0; part + 1 < parts.size(); ++part) {
        TShiftState held = TShiftState::None;
        for (const TNamedShift& shift : NamedShifts) {
            if (SameText(shift.Name, parts[part])) held = shift.State;
        }
        if (held == TShiftState::None) Fail(u"there is no key " + text);
        stroke.Shift = stroke.Shift | held;
    }
    const StringView name = parts.empty() ? StringView() : parts.back();
    for (const TNamedKey& key : NamedKeys) {
        if (SameText(key.Name, name)) stroke.Number = key.Number;
    }
    if (name.size() == 1 && SameText(name, u"a")) stroke.Number = u'A';
    if (stroke.Number == 0) Fail(u"there is no key " + text);
    return stroke;
}

// The ticket that is worked in, whose fields are told of after the command.
TTicketForm& Ticket(TScriptScreen& screen) {
    TTicketForm* ticket = screen.Tickets().Current();
    if (ticket == nullptr) Fail(u"no ticket is open");
    screen.Tickets().ShowCurrent();
    return *ticket;
}

TTicketField FieldOf(const String& name) {
    for (const TTicketField field : TicketFields) {
        if (TicketFieldName(field) == name) return field;
    }
    Fail(u"there is no field " + name + u"; there are account, symbol, price and quantity");
}

TcxCustomEdit& Edit(TScriptScreen& screen, const TScriptArguments& arguments) {
    const TTicketField field = FieldOf(arguments.Word(1));
    return Ticket(screen).Edit(field);
}

// Of the places price|quantity and account|symbol.
TcxSpinEdit& NumberEdit(TScriptScreen& screen, const TScriptArguments& arguments) {
    return *ObjectAs<TcxSpinEdit>(&Edit(screen, arguments));
}

TcxPopupEdit& CodeEdit(TScriptScreen& screen, const TScriptArguments& arguments) {
    return *ObjectAs<TcxPopupEdit>(&Edit(screen, arguments));
}

Integer SpinButton(const TScriptArguments& arguments) {
    return arguments.Is(2, u"up") ? TcxSpinEdit::UpButton : TcxSpinEdit::DownButton;
}

void Open(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TScriptTickets& tickets = screen.Tickets();
    const Integer number = arguments.Has(1) ? arguments.Number(1) : FirstTicket;
    if (!arguments.Has(2)) {
        tickets.Select(number);
        tickets.ShowCurrent();
        return;
    }
    if (!tickets.Has(number)) Fail(u"ticket " + IntegerToText(number) + u" is not open");
    tickets.Select(number);
    tickets.Close();
}

// A person clicks into a field before typing; that selects what stands there.
void ClickInto(TcxCustomEdit& edit) {
    if (!edit.Focused()) edit.Click(static_cast<Integer>(edit.Text().size()));
}

void Type(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TcxCustomEdit& edit = Edit(screen, arguments);
    ClickInto(edit);
    edit.TypeText(arguments.Word(2));
}

void Paste(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TcxCustomEdit& edit = Edit(screen, arguments);
    ClickInto(edit);
    edit.Paste(arguments.Word(2));
}

void PressKey(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const TKeyStroke stroke = KeyStrokeOf(arguments.Word(2));
    TcxCustomEdit& edit = Edit(screen, arguments);
    edit.Enter();
    edit.PressKey(stroke.Number, stroke.Shift);
    edit.ReleaseKey(stroke.Number, stroke.Shift);
}

void Click(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TcxCustomEdit& edit = Edit(screen, arguments);
    edit.Click(arguments.Has(2) ? arguments.Number(2) : static_cast<Integer>(edit.Text().size()));
}

void Spin(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TcxSpinEdit& edit = NumberEdit(screen, arguments);
    const Integer count = arguments.Has(3) ? arguments.Number(3) : 1;
    for (Integer press = 0; press < count; ++press) {
        edit.PressButton(SpinButton(arguments));
        edit.ReleaseButton();
    }
}

// The first step comes with the press, each of the others when the button has been held for so
// long.
void Hold(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TTicketForm& ticket = Ticket(screen);
    TcxSpinEdit& edit = NumberEdit(screen, arguments);
    edit.PressButton(SpinButton(arguments));
    for (Integer step = 1; step < arguments.Number(3); ++step) {
        ticket.Tick(step == 1 ? TcxSpinEdit::RepeatDelay : TcxSpinEdit::RepeatInterval);
    }
    edit.ReleaseButton();
}

void Wheel(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    Integer notches = 0;
    const bool isNumber = TryParseInteger(arguments.Word(2), notches);
    if (!isNumber || notches < -MostNotches || notches > MostNotches) {
        Fail(u"NOTCHES is a whole number from -100 to 100");
    }
    TcxCustomEdit& edit = Edit(screen, arguments);
    edit.Enter();
    edit.Wheel(notches * WheelNotch);
}

void Leave(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    Edit(screen, arguments).Leave();
}

void Group(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const TTicketField field = FieldOf(arguments.Word(1));
    Ticket(screen).SetGroup(field, arguments.Word(2), arguments.Has(3));
}

void Enable(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    Edit(screen, arguments).SetEnabled(arguments.Is(0, u"enable"));
}

// Drops the list down and clicks on a row, which may be far down.
void Pick(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const String& code = arguments.Word(2);
    TcxPopupEdit& edit = CodeEdit(screen, arguments);
    TFieldListForm* list = FieldListOf(edit);
    if (list == nullptr) Fail(u"the field has no list");
    if (list->RowOf(code) == NoRow) Fail(u"the list shows no " + code);
    edit.DropDown();
    if (edit.DroppedDown()) list->Choose(list->RowOf(code));
}

void LayoutAccount(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    Ticket(screen).SetLayoutAccount(arguments.Word(1));
}

void Send(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer side = arguments.Is(1, u"buy") ? OrderSide::Buy : OrderSide::Sell;
    PrintResult(out, Ticket(screen).Send(side, arguments.Has(2)), TakenText);
}

constexpr TScriptCommand Commands[] = {
    {"ticket [NUMBER] [close]",
     "opens an order ticket or goes on in it, 1 without a number; FIELD is account, symbol, price\n"
     "      or quantity there, and each command prints the text, caret, value and step of all four",
     Open},
    {"type FIELD TEXT", "types into a field, which is clicked first if another has the focus",
     Type},
    {"paste FIELD TEXT", "pastes into a field in the same way", Paste},
    {"key FIELD KEY",
     "up, down, left, right, home, end, return, escape, back, delete, f4 or a; also behind\n"
     "      shift+, alt+ or ctrl+",
     PressKey},
    {"click FIELD [N]", "clicks on the text before its character N, without N behind the last",
     Click},
    {"spin price|quantity up|down [COUNT]", "presses a spin button and lets it go, so many times",
     Spin},
    {"hold price|quantity up|down COUNT", "holds a spin button for the time of so many steps",
     Hold},
    {"wheel FIELD NOTCHES", "turns the wheel, away from the person above 0", Wheel},
    {"leave FIELD", "takes the focus away", Leave},
    {"group FIELD ID [alone]", "links a field with a group, \"\" for none; alone follows no others",
     Group},
    {"enable|disable FIELD", "a disabled field takes no keys and follows no others", Enable},
    {"pick account|symbol CODE", "chooses from the list that the field drops down", Pick},
    {"layoutaccount CODE", "shows a stored account, as soon as the accounts are ready",
     LayoutAccount},
    {"send buy|sell [market]", "sends the order, at the market instead of the price", Send},
};

} // namespace

std::span<const TScriptCommand> TicketCommands() {
    return Commands;
}

} // namespace quorin
