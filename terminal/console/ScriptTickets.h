#pragma once

#include "terminal/forms/TicketForm.h"

#include <array>
#include <map>
#include <memory>
#include <ostream>

namespace quorin {

// The order tickets that a script has open, each by its number, and the one that it works in.
class TScriptTickets {
public:
    // Works in this ticket from here on; opens it if it is not open.
    void Select(Integer number);
    // Of the ticket that is worked in; none is worked in afterwards.
    void Close();
    bool Has(Integer number) const { return FTickets.count(number) > 0; }
    // Nil while none is worked in.
    TTicketForm* Current();

    // Has every field of the ticket that is worked in printed next, changed or not.
    void ShowCurrent() { FShowsCurrent = true; }
    // A line per field that has changed, in whatever ticket.
    void PrintChanges(std::ostream& out);

private:
    struct TTicket {
        std::unique_ptr<TTicketForm> Form;
        std::array<String, std::size(TicketFields)> Printed;
    };

    std::map<Integer, TTicket> FTickets;
    Integer FCurrent = 0;
    bool FShowsCurrent = false;
};

// What a script calls the field.
StringView TicketFieldName(TTicketField field);

} // namespace quorin
