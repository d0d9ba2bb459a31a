#pragma once

#include "viewdata/services/ClientOrder.h"

namespace quorin {

// Which kind of view an order comes from.
namespace OrderSource {
inline constexpr Integer MarketList = 501;
inline constexpr Integer PositionList = 602;
} // namespace OrderSource

// The one thing that is asked for with a prepared order.
namespace OrderAction {
inline constexpr Integer Place = 1;
} // namespace OrderAction

// Both records stand on their sender's stack while a channel message is under way: a receiver
// copies what it keeps, the order's values included.

// Data of ChannelMessage::CopyOrder and CopyPrice.
struct TCopyOrderRecord {
    TCustomClientOrder* Order = nullptr; // prepared
    Integer Source = 0;                  // one of OrderSource
    String GroupID;                      // of the sending control; empty for none
};

// Data of ChannelMessage::TakeOrderAction and CloseAllPositions.
struct TOrderTakeActionRecord {
    // The prepared TCustomClientOrder or, for CloseAllPositions, the data control that lists the
    // positions to be closed. ObjectAs tells. That control belongs to the receiver from then on.
    TObject* Order = nullptr;
    Integer Action = OrderAction::Place;
    Integer Source = 0;     // one of OrderSource
    String Message;         // what to ask the user; may be empty
    Boolean Result = false; // set by the receiver: the order was taken, or closing goes on
};

} // namespace quorin
