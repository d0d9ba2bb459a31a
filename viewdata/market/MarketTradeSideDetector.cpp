#include "viewdata/market/MarketTradeSideDetector.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/services/FieldNumbers.h"

namespace quorin {

namespace {

constexpr StringView WatchedExchange = u"SEHK";
constexpr Integer LineCount = Field::NewestTrade - Field::OldestTrade + 1;
constexpr Double SideTolerance = 1e-8;
constexpr StringView AskSide = u"A";
constexpr StringView BidSide = u"B";

std::unique_ptr<TMarketTradeSideDetector>& SharedDetector() {
    static std::unique_ptr<TMarketTradeSideDetector> detector;
    return detector;
}

} // namespace

TMarketTradeSideDetector* TMarketTradeSideDetector::GetInstance() {
    if (SharedDetector() == nullptr) {
        SharedDetector() = CreateComponent<TMarketTradeSideDetector>();
    }
    return SharedDetector().get();
}

void TMarketTradeSideDetector::ReleaseInstance() {
    SharedDetector().reset();
}

void TMarketTradeSideDetector::AddSymbol(StringView Symbol) {
    std::unique_ptr<TSymbolMarketTrade>& entry = FSymbolTradeList.Obtain(Symbol);
    if (entry == nullptr) {
        entry = CreateComponent<TSymbolMarketTrade>();
        entry->FSymbol = Symbol;
    }
    entry->Add();
}

void TMarketTradeSideDetector::RemoveSymbol(StringView Symbol) {
    if (TSymbolMarketTrade* state = GetSymbolMarketTrade(Symbol)) state->Reduce();
}

TSymbolMarketTrade* TMarketTradeSideDetector::GetSymbolMarketTrade(StringView Symbol) const {
    const std::unique_ptr<TSymbolMarketTrade>* entry = FSymbolTradeList.Find(Symbol);
    return entry != nullptr ? entry->get() : nullptr;
}

TSymbolMarketTrade::~TSymbolMarketTrade() {
    // A detector that nobody released outlives the services, and their registrations with them.
    if (TCustomSubscribeAdapter::GetInstance() != nullptr) ClearTrade();
}

TMarketDataTrade* TSymbolMarketTrade::GetTrade(Integer Value) const {
    return FTradeList.Has(Value) ? FTradeList[Value].get() : nullptr;
}

TCustomSubItem* TSymbolMarketTrade::LiveItem() const {
    return TCustomSubscribeAdapter::GetInstance()->GetSubItem(FSymbol, LiveDataType, /*Flag=*/true);
}

void TSymbolMarketTrade::Add() {
    ++FEventCount;
    if (FDetectorFlag == TDetectorFlag::Off) return;
    TCustomSubItem* item = LiveItem();
    if (FEventCount == 1) {
        item->AddRealtimeListener(MakeEvent<&TSymbolMarketTrade::SymbolUpdate>(this), this);
    }
    if (!FTradeInit && item->GetStatus() == ItemStatus::Ready) ProcessTradeMessage(item);
}

void TSymbolMarketTrade::Reduce() {
    if (FEventCount <= 0) return;
    --FEventCount;
    if (FEventCount == 0 && FDetectorFlag != TDetectorFlag::Off) ClearTrade();
}

void TSymbolMarketTrade::ClearTrade() {
    if (!FSymbol.empty()) LiveItem()->RemoveRealtimeListener(this);
    FTradeList.Clear();
    FLastTradeList.Clear();
    FTradeInit = false;
    FEventCount = 0;
    KeepQuote(TQuotePrice{}, TQuotePrice{});
}

void TSymbolMarketTrade::SymbolUpdate(TObject* Sender) {
    if (TCustomSubItem* item = ObjectAs<TCustomSubItem>(Sender)) ProcessTradeMessage(item);
}

void TSymbolMarketTrade::ProcessTradeMessage(TCustomSubItem* Item) {
    if (Item->GetStatus() != ItemStatus::Ready) return;
    if (FDetectorFlag == TDetectorFlag::Undecided) {
        const String exchange = Item->FieldText(Field::Exchange);
        const Boolean watched = exchange.empty() || exchange == WatchedExchange;
        FDetectorFlag = watched ? TDetectorFlag::Detecting : TDetectorFlag::Off;
    }
    if (FDetectorFlag != TDetectorFlag::Detecting) {
        ClearTrade();
        return;
    }
    const TQuotePrice bid = ReadQuote(*Item, Field::BestBid);
    const TQuotePrice ask = ReadQuote(*Item, Field::BestAsk);
    while (FCurrentTradeList.Count() < LineCount) FCurrentTradeList.Add(String());
    for (Integer line = 0; line < LineCount; ++line) {
        Item->GetFieldString(Field::OldestTrade + line, FCurrentTradeList[line]);
    }
    if (FTradeInit) {
        TakeNewLines(bid, ask);
    } else {
        TakeFirstLines();
    }
    while (FLastTradeList.Count() < LineCount) FLastTradeList.Insert(0, String());
    KeepQuote(bid, ask);
    FTradeInit = true;
}

void TSymbolMarketTrade::KeepQuote(const TQuotePrice& bid, const TQuotePrice& ask) {
    FLastBidPrice = bid.Price;
    FLastAskPrice = ask.Price;
    FLastBidValid = bid.IsValid;
    FLastAskValid = ask.IsValid;
}

TSymbolMarketTrade::TQuotePrice TSymbolMarketTrade::ReadQuote(const TCustomSubItem& item,
                                                              Integer field) {
    TQuotePrice quote;
    item.GetFieldString(field, FQuoteText);
    quote.IsValid = TryParseDouble(FQuoteText, quote.Price);
    return quote;
}

// No side is told of the first lines: no quote from before them is known.
void TSymbolMarketTrade::TakeFirstLines() {
    FLastTradeList.Clear();
    for (Integer index = 0; index < FCurrentTradeList.Count(); ++index) {
        const String& line = FCurrentTradeList[index];
        FLastTradeList.Add(line);
        if (index >= FTradeList.Count()) FTradeList.Add(CreateComponent<TMarketDataTrade>());
        if (line.empty()) continue;
        FTradeList[index]->Parse(line);
        if (!Trim(line).empty()) ++FTakenCount;
    }
}

// From the newest line down to the first known one.
void TSymbolMarketTrade::TakeNewLines(const TQuotePrice& bid, const TQuotePrice& ask) {
    Integer anchorIndex = FLastTradeList.Count() - 1;
    while (anchorIndex > 0 && Trim(FLastTradeList[anchorIndex]).empty()) --anchorIndex;
    FDiffTradeList.Clear();
    for (Integer index = FCurrentTradeList.Count() - 1; index >= 0; --index) {
        const StringView line = Trim(FCurrentTradeList[index]);
        if (line.empty()) continue;
        if (!IsNewLine(line, index, anchorIndex)) break;
        TakeNewLine(line, index, bid, ask);
    }
    if (!FDiffTradeList.IsEmpty()) KeepLatestLines();
}

// The same text as the newest known line is old only where the lines before it agree as well:
// two trades may share time, quantity and price.
Boolean TSymbolMarketTrade::IsNewLine(StringView line, Integer index, Integer anchorIndex) const {
    if (line != FLastTradeList[anchorIndex]) return true;
    Integer known = anchorIndex;
    for (Integer before = index - 1; before >= 0; --before) {
        --known;
        if (known < 0) return true;
        if (FCurrentTradeList[before] != FLastTradeList[known]) return true;
    }
    return false;
}

// The oldest record is used again for the new trade.
void TSymbolMarketTrade::TakeNewLine(StringView line, Integer index, const TQuotePrice& bid,
                                     const TQuotePrice& ask) {
    while (FTradeList.Count() < index + 1) FTradeList.Add(CreateComponent<TMarketDataTrade>());
    FTradeList.Move(0, index);
    TMarketDataTrade& trade = *FTradeList[index];
    const StringView price = trade.Parse(line);
    trade.FSide = SideOf(price, bid, ask);
    FDiffTradeList.Insert(0, String(line));
    ++FTakenCount;
}

void TSymbolMarketTrade::KeepLatestLines() {
    for (Integer index = FLastTradeList.Count() - 1; index >= 0; --index) {
        if (FDiffTradeList.Count() >= LineCount) break;
        FDiffTradeList.Insert(0, FLastTradeList[index]);
    }
    std::swap(FLastTradeList, FDiffTradeList);
}

// The quote from before the update comes first. A trade strictly between bid and ask on both
// quotes has no side, nor has a price that is no number.
StringView TSymbolMarketTrade::SideOf(StringView price, const TQuotePrice& bid,
                                      const TQuotePrice& ask) const {
    Double p = 0.0;
    if (!TryParseDouble(price, p)) return {};
    const auto reachesAsk = [p](const TQuotePrice& quote) {
        return quote.IsValid && p - quote.Price >= -SideTolerance;
    };
    const auto reachesBid = [p](const TQuotePrice& quote) {
        return quote.IsValid && p - quote.Price <= SideTolerance;
    };
    if (reachesAsk(TQuotePrice{FLastAskPrice, FLastAskValid})) return AskSide;
    if (reachesBid(TQuotePrice{FLastBidPrice, FLastBidValid})) return BidSide;
    if (reachesAsk(ask)) return AskSide;
    if (reachesBid(bid)) return BidSide;
    return {};
}

} // namespace quorin
