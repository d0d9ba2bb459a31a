#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TObject.h"

namespace quorin {

// Answer of TCustomSpreadTable::GetStatus for a table that can be used.
inline constexpr Integer SpreadTableLoaded = 1;

// A tick table: price bands, each with the size of one price step inside it.
class TCustomSpreadTable : public TObject {
    QUORIN_CLASS(TCustomSpreadTable, TObject)
public:
    // Operations, in order

    // SpreadTableLoaded, or anything else while the bands have not arrived.
    virtual Integer GetStatus() const = 0;
    // The price `Steps` price steps above `Price`, below it with a negative number.
    virtual Double MovePrice(Double Price, Integer Steps) const = 0;
    // The price step that counts when moving up from `Price`, and the bounds of its band. Without
    // a band 0.0 in all three.
    virtual Double GetSpreadUp(Double Price, Double& Upper, Double& Lower) const = 0;
    // The same when moving down: on a border between two bands this is the lower one's step.
    virtual Double GetSpreadDown(Double Price, Double& Upper, Double& Lower) const = 0;
};

// Code of a tick table to the table.
using TSpreadDictionary = TDictionary<String, TCustomSpreadTable*>;

} // namespace quorin
