#pragma once

#include "embedded/Host.h"
#include "terminal/forms/OrderEntry.h"
#include "viewdata/services/OrderRecords.h"

namespace quorin {

// Answers what the lists ask of the application around orders: it words the question, has the host
// put it to the user and does what he agreed to. A question is one text, its lines apart by "\n".
class TOrderDialog {
public:
    // `host` asks and tells; it must live longer.
    explicit TOrderDialog(THost& host) : FHost(host) {}

    // As THost::ChannelMessage; False for messages that are about something else.
    Boolean Answer(Integer number, Pointer data);

    const TOrderEntry& Entry() const { return FEntry; }

private:
    bool Ask(StringView message, StringView question);
    void TakeOrder(TOrderTakeActionRecord& record);
    void CloseAll(TOrderTakeActionRecord& record);
    void Copy(Integer number, const TCopyOrderRecord& record);
    void AddFavorite();

    THost& FHost;
    TOrderEntry FEntry;
};

} // namespace quorin
