#pragma once

#include "platform/rtl/TEvent.h"

namespace quorin {

class TControl;

// What the view layer asks of the application, with the type of the record that travels as `Data`
// of TCustomGlobalChannelManager::SendChannelMessage.
namespace ChannelMessage {
// Copy the row's order values into order entry: TCopyOrderRecord.
inline constexpr Integer CopyOrder = 18010;
// Ask the user and take the order on a yes: TOrderTakeActionRecord.
inline constexpr Integer TakeOrderAction = 18011;
// Ask whether to close the listed positions: TOrderTakeActionRecord.
inline constexpr Integer CloseAllPositions = 18012;
// Show the column chooser: TCustomColumnRecord.
inline constexpr Integer CustomColumn = 18013;
// Create the list view that an account field drops down: TListViewRequestRecord.
inline constexpr Integer CreateAccountListView = 18014;
// Create the list view that a symbol field drops down: TListViewRequestRecord.
inline constexpr Integer CreateSymbolListView = 18015;
// Copy the price or the symbol alone into order entry: TCopyOrderRecord.
inline constexpr Integer CopyPrice = 18016;
// Show the filter dialog: TCustomFilterRecord.
inline constexpr Integer CustomFilter = 18017;
// The application's own way of adding a favourite: no record, `Data` is nil.
inline constexpr Integer AddFavoritePrice = 18020;
} // namespace ChannelMessage

// Data of CreateAccountListView and CreateSymbolListView.
struct TListViewRequestRecord {
    // The created view, set by the receiver. It stays the application's.
    TControl* Result = nullptr;
    // What the view calls when an item is chosen, with the item as `Data`: a TCustomAccount or a
    // TCustomMarketData, as a TObject; nil when none was chosen.
    TDataCallbackEvent Callback;
};

} // namespace quorin
