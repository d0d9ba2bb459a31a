#include "terminal/console/ScriptTickets.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/console/ListText.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/FieldListForm.h"

#include <utility>

namespace quorin {

namespace {

constexpr StringView TicketLabel = u"ticket";
constexpr Integer FieldNameWidth = 9;

String CaretText(const TcxCustomEdit& edit) {
    String text = u"caret " + IntegerToText(edit.CaretPosition());
    if (edit.SelLength() > 0) text += u", selected " + Quoted(edit.SelText());
    return text;
}

String NumberState(const TcxSpinEdit& edit, const TcxSpinEditProperties& properties) {
    return u", " + KindText(edit.EditValue()) + u", step " + ShortestText(properties.Increment());
}

String CodeState(TcxPopupEdit& edit) {
    String text = u", " + Quoted(edit.Hint());
    TFieldListForm* list = FieldListOf(edit);
    if (list != nullptr && edit.DroppedDown()) {
        text += u", list of " + IntegerToText(list->View().RowCount());
    }
    return text;
}

String FieldLine(TTicketForm& ticket, TTicketField field) {
    TcxCustomEdit& edit = ticket.Edit(field);
    String line = FitText(TicketFieldName(field), FieldNameWidth) + Quoted(edit.Text()) + u", " +
                  CaretText(edit);
    if (auto* number = ObjectAs<TcxSpinEdit>(&edit)) {
        line += NumberState(*number, number->Properties());
    } else if (auto* code = ObjectAs<TcxPopupEdit>(&edit)) {
        line += CodeState(*code);
    }
    if (!edit.Enabled()) line += u", disabled";
    if (edit.Focused()) line += u", focus";
    return line;
}

} // namespace

StringView TicketFieldName(TTicketField field) {
    switch (field) {
    case TTicketField::Account: return u"account";
    case TTicketField::Symbol: return u"symbol";
    case TTicketField::Price: return u"price";
    case TTicketField::Quantity: break;
    }
    return u"quantity";
}

void TScriptTickets::Select(Integer number) {
    FCurrent = number;
    TTicket& ticket = FTickets[number];
    if (ticket.Form == nullptr) ticket.Form = CreateComponent<TTicketForm>();
}

void TScriptTickets::Close() {
    FTickets.erase(FCurrent);
}

TTicketForm* TScriptTickets::Current() {
    const auto current = FTickets.find(FCurrent);
    return current != FTickets.end() ? current->second.Form.get() : nullptr;
}

void TScriptTickets::PrintChanges(std::ostream& out) {
    const bool showsCurrent = std::exchange(FShowsCurrent, false);
    for (auto& [number, ticket] : FTickets) {
        const String label = String(TicketLabel) + u" " + IntegerToText(number);
        for (std::size_t index = 0; index < std::size(TicketFields); ++index) {
            String line = FieldLine(*ticket.Form, TicketFields[index]);
            const bool isAskedFor = showsCurrent && number == FCurrent;
            if (line == ticket.Printed[index] && !isAskedFor) continue;
            out << ToUtf8(LabelledLine(label, line)) << '\n';
            ticket.Printed[index] = std::move(line);
        }
    }
}

} // namespace quorin
