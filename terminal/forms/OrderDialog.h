#pragma once

#include "terminal/forms/OrderEntry.h"
#include "viewdata/services/OrderRecords.h"

#include <functional>
#include <optional>

namespace quorin {

class TFormsHost;

// A price as it stood beside an action when the person took it.
struct TShownPrice {
    String Symbol;
    String Text;
};

// Answers what the lists ask of the application around orders: it words the question, has the host
// put it to the user and does what he agreed to. A question is one text, its lines apart by "\n".
// What a list copies goes into order entry and into the ticket for copies, see TTicketForm.
class TOrderDialog {
public:
    // `host` asks and tells; it must live longer.
    explicit TOrderDialog(TFormsHost& host) : FHost(host) {}

    // As THost::ChannelMessage; False for messages that are about something else.
    Boolean Answer(Integer number, Pointer data);
    // Runs `take`, which asks for an order. Where the order's price is another than the one that
    // was shown, the question names both. Answers what `take` answers.
    Boolean TakeAsShown(const TShownPrice& shown, const std::function<Boolean()>& take);

    TFormsHost& Host() { return FHost; }
    const TOrderEntry& Entry() const { return FEntry; }

private:
    bool Ask(StringView message, StringView question);
    String PriceMoveText(const TOrderValues& order);
    void TakeOrder(TOrderTakeActionRecord& record);
    void CloseAll(TOrderTakeActionRecord& record);
    void Copy(Integer number, const TCopyOrderRecord& record);
    void AddFavorite();

    TFormsHost& FHost;
    TOrderEntry FEntry;
    std::optional<TShownPrice> FShown; // of the order that is being asked for
};

} // namespace quorin
