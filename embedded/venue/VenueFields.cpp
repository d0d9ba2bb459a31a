#include "embedded/venue/VenueFields.h"

#include "embedded/LiveItem.h"
#include "embedded/MarketUniverse.h"
#include "embedded/TimeText.h"
#include "platform/rtl/Numbers.h"

#include <algorithm>

namespace quorin {

namespace {

struct TLevelFields {
    Integer Price;
    Integer Quantity;
};

constexpr TLevelFields BidFields[] = {
    {Field::BestBid, Field::BestBidQuantity}, {Field::BidPrice2, Field::BidQuantity2},
    {Field::BidPrice3, Field::BidQuantity3},  {Field::BidPrice4, Field::BidQuantity4},
    {Field::BidPrice5, Field::BidQuantity5},
};
constexpr TLevelFields AskFields[] = {
    {Field::BestAsk, Field::BestAskQuantity}, {Field::AskPrice2, Field::AskQuantity2},
    {Field::AskPrice3, Field::AskQuantity3},  {Field::AskPrice4, Field::AskQuantity4},
    {Field::AskPrice5, Field::AskQuantity5},
};

void WriteSide(const TVenueSymbol& symbol, const TPriceLadder& ladder, const TBookSide& side,
               const TLevelFields (&fields)[TBookSide::Depth], Integer shown) {
    TEmbeddedSubItem& item = *symbol.Item;
    const Double lot = LotSizeOf(symbol);
    for (Integer level = 0; level < TBookSide::Depth; ++level) {
        const TLevelFields& field = fields[level];
        if (level < shown) {
            item.SetField(field.Price, ladder.Value(side[level].Tick));
            item.SetField(field.Quantity, side[level].Lots * lot);
        } else {
            item.ClearField(field.Price);
            item.ClearField(field.Quantity);
        }
    }
}

} // namespace

Double LotSizeOf(const TVenueSymbol& symbol) {
    return symbol.Record->LotSize() > 0.0 ? symbol.Record->LotSize() : 1.0;
}

void TVenueFieldWriter::WriteBook(const TVenueSymbol& symbol, const TPriceLadder& ladder,
                                  bool isShown) {
    const TBookSide& bids = symbol.Book.Bids();
    const TBookSide& asks = symbol.Book.Asks();
    WriteSide(symbol, ladder, bids, BidFields, isShown ? bids.Count() : 0);
    WriteSide(symbol, ladder, asks, AskFields, isShown ? asks.Count() : 0);
}

void TVenueFieldWriter::WriteTrades(const TVenueSymbol& symbol, const TPriceLadder& ladder) {
    const TTradeTape& tape = symbol.Tape;
    if (tape.Count() == 0) return;
    TEmbeddedSubItem& item = *symbol.Item;
    const Double lot = LotSizeOf(symbol);
    item.SetField(Field::LastPrice, ladder.Value(tape.Recent(0).Tick));
    item.SetField(Field::Volume, static_cast<Double>(tape.VolumeLots()) * lot);
    item.SetField(Field::HighPrice, ladder.Value(tape.High()));
    item.SetField(Field::LowPrice, ladder.Value(tape.Low()));
    item.SetField(Field::OpenPrice, ladder.Value(tape.Open()));
    const std::uint32_t shown = std::min(tape.Count(), TTradeTape::Shown);
    for (std::uint32_t age = 0; age < shown; ++age) {
        const TVenueTrade& trade = tape.Recent(age);
        FLine.clear();
        AppendTimeOfDay(FLine, trade.Second);
        FLine.push_back(u' ');
        AppendDouble(FLine, trade.Lots * lot);
        FLine.push_back(u' ');
        AppendDouble(FLine, ladder.Value(trade.Tick));
        item.SetField(Field::NewestTrade - static_cast<Integer>(age), StringView(FLine));
    }
}

void TVenueFieldWriter::WriteState(const TVenueSymbol& symbol, const TPriceLadder& ladder) {
    if (symbol.Kind != TVenueKind::None && symbol.Record->PreviousClose() == 0.0) {
        symbol.Item->SetField(Field::PreviousClose, ladder.Value(ladder.Floor(symbol.Close)));
    }
    if (symbol.IsStopped) symbol.Item->SetField(Field::MarketState, StoppedState);
}

} // namespace quorin
