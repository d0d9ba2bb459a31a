#include "terminal/forms/MarketControl.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

namespace {

constexpr TFormColumn Columns[] = {
    {MarketAttribute::SymbolCode, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {MarketAttribute::SymbolName, ResourceKey::Res_SymbolName, 150, u"Name", false},
    {MarketAttribute::BestBidQuantity, TerminalKey::Res_BidQty, 80, u"BidQty", true},
    {MarketAttribute::BestBid, TerminalKey::Res_Bid, 80, u"Bid", false},
    {MarketAttribute::BestAsk, TerminalKey::Res_Ask, 80, u"Ask", false},
    {MarketAttribute::BestAskQuantity, TerminalKey::Res_AskQty, 80, u"AskQty", true},
    {MarketAttribute::LastPrice, TerminalKey::Res_Last, 80, u"Last", false},
    {MarketAttribute::PreviousClose, TerminalKey::Res_PrevClose, 96, u"PrevClose", false},
    {MarketAttribute::Change, TerminalKey::Res_Change, 80, u"Change", false},
    {MarketAttribute::LongPosition, ResourceKey::Res_Long, 72, u"Long", true},
    {MarketAttribute::ShortPosition, ResourceKey::Res_Short, 72, u"Short", true},
};

} // namespace

std::span<const TFormColumn> MarketColumns() {
    return Columns;
}

} // namespace quorin
