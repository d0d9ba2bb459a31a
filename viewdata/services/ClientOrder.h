#pragma once

#include "platform/rtl/TObject.h"

namespace quorin {

// Values of TCustomClientOrder::SetBuySell.
namespace OrderSide {
inline constexpr Integer Buy = 0;
inline constexpr Integer Sell = 1;
} // namespace OrderSide

// Bits of TCustomClientOrder::GetOrderFlags.
namespace OrderFlag {
inline constexpr Integer Market = 1; // at the market: no price
} // namespace OrderFlag

// The extra field that marks an order as one that closes a position, and its value.
inline constexpr StringView ClosePositionFlagKey = u"ClosePositionFlag";
inline constexpr StringView ClosePositionFlagValue = u"Y";

// No order may be larger, in units of the product.
inline constexpr Integer MaxOrderQuantity = 2000000000;

// An order that is being prepared. One object serves any number of orders, one after the other:
// every use starts with Clear. What was set counts until then.
class TCustomClientOrder : public TObject {
    QUORIN_CLASS(TCustomClientOrder, TObject)
public:
    // Operations, in order

    // The quantity that was set; 0.0 after Clear.
    virtual Double GetQuantity() const = 0;
    virtual void SetAccount(StringView Account) = 0;
    virtual void SetSymbol(StringView Symbol) = 0;
    virtual void SetQuantity(Double Quantity) = 0;
    // 0.0 for an order at the market and for one that is only copied into a form.
    virtual void SetPrice(Double Price) = 0;
    // One of OrderSide.
    virtual void SetBuySell(Integer Side) = 0;
    // Bits of OrderFlag and others. Who changes one keeps the rest.
    virtual Integer GetOrderFlags() const = 0;
    virtual void SetOrderFlags(Integer Flags) = 0;
    // Adds a named text to the order; the same key again replaces.
    virtual void SetExtraValue(StringView Key, StringView Value) = 0;
    // Back to an empty order: no texts, no extra values, flags and numbers 0.
    virtual void Clear() = 0;
};

} // namespace quorin
