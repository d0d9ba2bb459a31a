#pragma once

#include "viewdata/services/OrderRecords.h"

namespace quorin {

// The roads of a prepared order out of a view model, the same for every list.

// Makes it an order at the market; its other flags stay.
void SetMarketFlag(TCustomClientOrder& order);

// Takes the order at once; what the action manager answers, False without one.
Boolean TakeOrder(TCustomClientOrder& order);

// Asks the application to confirm and take the order; what it answers. Modal.
Boolean ConfirmOrder(TCustomClientOrder& order, Integer source, StringView message);

// Hands the order to order entry with ChannelMessage::CopyOrder or CopyPrice.
void CopyToOrderEntry(Integer channelMessage, TCustomClientOrder& order, Integer source,
                      StringView groupID);

} // namespace quorin
