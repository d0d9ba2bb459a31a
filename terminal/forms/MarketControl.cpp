#include "terminal/forms/MarketControl.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/ResourceKeys.h"

#include <utility>

namespace quorin {

namespace {

constexpr StringView CustomColumnTable = u"MarketCustomColumn";
constexpr StringView NothingToShow = u"-";

struct TColumn {
    Integer Attribute;
    StringView Caption;
    Integer Width; // pixels
    StringView Key;
    Boolean IsQuantity;
};

constexpr TColumn WatchColumns[] = {
    {MarketAttribute::SymbolCode, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {MarketAttribute::SymbolName, ResourceKey::Res_SymbolName, 150, u"Name", false},
    {MarketAttribute::BestBidQuantity, TerminalKey::Res_BidQty, 80, u"BidQty", true},
    {MarketAttribute::BestBid, TerminalKey::Res_Bid, 80, u"Bid", false},
    {MarketAttribute::BestAsk, TerminalKey::Res_Ask, 80, u"Ask", false},
    {MarketAttribute::BestAskQuantity, TerminalKey::Res_AskQty, 80, u"AskQty", true},
    {MarketAttribute::LastPrice, TerminalKey::Res_Last, 80, u"Last", false},
    {MarketAttribute::PreviousClose, TerminalKey::Res_PrevClose, 96, u"PrevClose", false},
    {MarketAttribute::Change, TerminalKey::Res_Change, 80, u"Change", false},
};

} // namespace

TMarketControl::TMarketControl(TComponent* AOwner) : TCustomMarketDataControl(AOwner) {
    EmptyDisplayText = NothingToShow;
    FCustomColumnTagID = CustomColumnTable;
    for (const TColumn& column : WatchColumns) {
        FColumns.push_back(TColumnInfo::AddColumn(column.Attribute, column.Caption, column.Width,
                                                  column.Key, column.IsQuantity));
        FColumnList.Add(FColumns.back().get());
    }
}

void TMarketControl::ClearAll() {
    Inherited::ClearAll();
    FIsCleared = true;
}

bool TMarketControl::TakeCleared() {
    return std::exchange(FIsCleared, false);
}

String TMarketControl::Caption(Integer attribute) const {
    return ColumnCaption(&FColumnList, attribute, FCustomColumnTagID);
}

} // namespace quorin
