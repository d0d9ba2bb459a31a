#include "embedded/ReplayFeed.h"

#include "embedded/DataFile.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

// Where symbols go that the universe does not have.
constexpr Integer RecordedCategory = 900;
constexpr TNameTexts RecordedNames{u"Recorded", u"錄製", u"录制"};
constexpr StringView RecordedSeriesSuffix = u".REC";

void SetOrClear(TEmbeddedSubItem& item, Integer fieldNo, const std::optional<Double>& value) {
    if (value) {
        item.SetField(fieldNo, *value);
    } else {
        item.ClearField(fieldNo);
    }
}

// HH:MM:SS, quantity and price, one blank apart.
void WriteTradeLine(String& line, const TReplayEvent& event) {
    line.clear();
    AppendTimeOfDay(line, event.Time / NanosPerSecond);
    line.push_back(u' ');
    line.append(event.QuantityText.begin(), event.QuantityText.end());
    line.push_back(u' ');
    line.append(event.PriceText.begin(), event.PriceText.end());
}

std::optional<Double> Middle(const TReplayQuote& quote) {
    if (quote.Bid && quote.Ask) return *quote.Bid + (*quote.Ask - *quote.Bid) / 2;
    return quote.Bid ? quote.Bid : quote.Ask;
}

} // namespace

TReplayFeed::TReplayFeed(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
                         const std::filesystem::path& path, TReplayOptions options)
    : FItems(items), FMarket(market), FOptions(std::move(options)), FName(path.string()),
      FFile(path, std::ios::binary), FStream(FFile) {}

TReplayFeed::TReplayFeed(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
                         std::istream& stream, std::string_view name, TReplayOptions options)
    : FItems(items), FMarket(market), FOptions(std::move(options)), FName(name), FStream(stream) {}

TReplayFeed::~TReplayFeed() {
    if (FItems.Feed() == this) FItems.SetFeed(nullptr);
}

void TReplayFeed::Open() {
    if (!FStream) throw EDataError(FName, 0, "the file cannot be opened");
    FOptions.PollNanos = std::max<Int64>(FOptions.PollNanos, 1);
    Scan();
    Rewind();
    FReader = std::make_unique<TReplayReader>(FStream, [this](Int64 line, std::string_view reason) {
        ++FReportedLines;
        if (FReport) FReport(line, reason);
    });
    if (!FReader->ReadHeader()) throw EDataError(FName, 1, "the file cannot be read twice");
    FHasPending = FReader->Next(FPending);
    if (!FHasPending) CheckEnd(FReader->Reader(), FName);
    FItems.SetFeed(this);
}

void TReplayFeed::Rewind() {
    FStream.clear();
    FStream.seekg(0);
    if (!FStream) throw EDataError(FName, 0, "the file cannot be read twice");
}

// Finds out which symbols there are. Silent about bad lines: they are told of when they are played.
void TReplayFeed::Scan() {
    Int64 badLine = 0; // the first one
    std::string badReason;
    TReplayReader reader(FStream, [&](Int64 line, std::string_view reason) {
        if (badLine != 0) return;
        badLine = line;
        badReason = std::string(reason) + "; ";
    });
    const bool hasHeader = reader.ReadHeader();
    CheckEnd(reader.Reader(), FName);
    if (!hasHeader) {
        throw EDataError(FName, 1,
                         "the header is not time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty");
    }
    std::vector<TReference> references;
    TReplayEvent event;
    while (reader.Next(event)) {
        bool isNew = false;
        const std::size_t index = IndexOf(event.Symbol, isNew);
        if (isNew) references.emplace_back();
        TReference& reference = references[index];
        if (event.IsTrade && !reference.FirstTrade) reference.FirstTrade = event.Price;
        if (!reference.FirstQuote) reference.FirstQuote = Middle(event.Quote);
    }
    CheckEnd(reader.Reader(), FName);
    if (references.empty()) {
        throw EDataError(FName, badLine, badReason + "no line of the file can be read");
    }
    for (std::size_t index = 0; index < references.size(); ++index) {
        List(FSymbols[static_cast<Integer>(index)], references[index]);
    }
}

// Puts the symbol into the universe, if it is not there, and sees to its previous close.
void TReplayFeed::List(const String& symbol, const TReference& reference) {
    const Double close = reference.FirstTrade.value_or(reference.FirstQuote.value_or(0.0));
    if (FMarket.FindMarketData(symbol) == nullptr) {
        const String series = FOptions.Exchange + String(RecordedSeriesSuffix);
        FMarket.AddExchange({FOptions.Exchange, {}, {}, MarketOpen});
        FMarket.AddCategory({RecordedCategory, RecordedNames});
        FMarket.AddSeries({series, FOptions.Exchange, RecordedCategory, RecordedNames});
        TSymbolRecord record;
        record.Symbol = symbol;
        record.Exchange = FOptions.Exchange;
        record.Series = series;
        record.Names.Name = symbol;
        record.LotSize = 1.0;
        record.PreviousClose = close;
        FMarket.AddSymbol(record);
    }
    TEmbeddedSubItem& item = FItems.Item(symbol);
    if (!item.HasField(Field::PreviousClose) && close != 0.0) {
        item.SetField(Field::PreviousClose, close);
    }
    FStates[static_cast<std::size_t>(*FIndexes.Find(symbol))].Item = &item;
}

std::size_t TReplayFeed::IndexOf(std::string_view symbol, bool& isNew) {
    isNew = false;
    if (!FStates.empty() && FLastSymbol == symbol) return FLastIndex;
    const String key = FromUtf8(symbol);
    if (const Integer* known = FIndexes.Find(key)) {
        FLastIndex = static_cast<std::size_t>(*known);
    } else {
        isNew = true;
        FLastIndex = FStates.size();
        FIndexes.Add(key, FSymbols.Count());
        FSymbols.Add(key);
        FStates.emplace_back();
    }
    FLastSymbol = symbol;
    return FLastIndex;
}

bool TReplayFeed::Step() {
    if (!FHasPending) return false;
    FPollTime = (FPending.Time / FOptions.PollNanos + 1) * FOptions.PollNanos;
    while (FHasPending && FPending.Time < FPollTime) {
        Apply(FPending);
        FHasPending = FReader->Next(FPending);
    }
    for (const std::size_t index : FChanged) {
        TSymbolState& state = FStates[index];
        state.IsChanged = false;
        Write(state);
        FItems.Touch(*state.Item);
    }
    FChanged.clear();
    FItems.Deliver();
    if (!FHasPending) CheckEnd(FReader->Reader(), FName);
    return true;
}

void TReplayFeed::Apply(const TReplayEvent& event) {
    ++FPlayedLines;
    bool isNew = false;
    const std::size_t index = IndexOf(event.Symbol, isNew);
    if (isNew) List(FSymbols[static_cast<Integer>(index)], {}); // the file has grown since Open
    TSymbolState& state = FStates[index];
    if (!event.IsTrade || !event.Quote.IsEmpty()) state.Quote = event.Quote;
    if (event.IsTrade) ApplyTrade(state, event);
    if (state.IsChanged) return;
    state.IsChanged = true;
    FChanged.push_back(index);
}

void TReplayFeed::ApplyTrade(TSymbolState& state, const TReplayEvent& event) {
    const bool isFirst = state.TradeCount == 0;
    state.Last = event.Price;
    state.Volume += event.Quantity;
    state.Open = isFirst ? event.Price : state.Open;
    state.High = isFirst ? event.Price : std::max(state.High, event.Price);
    state.Low = isFirst ? event.Price : std::min(state.Low, event.Price);
    WriteTradeLine(state.Trades[state.TradeCount % ShownTrades], event);
    ++state.TradeCount;
}

void TReplayFeed::Write(const TSymbolState& state) {
    TEmbeddedSubItem& item = *state.Item;
    SetOrClear(item, Field::BestBid, state.Quote.Bid);
    SetOrClear(item, Field::BestBidQuantity, state.Quote.BidQuantity);
    SetOrClear(item, Field::BestAsk, state.Quote.Ask);
    SetOrClear(item, Field::BestAskQuantity, state.Quote.AskQuantity);
    if (state.TradeCount == 0) return;
    item.SetField(Field::LastPrice, state.Last);
    item.SetField(Field::Volume, state.Volume);
    item.SetField(Field::HighPrice, state.High);
    item.SetField(Field::LowPrice, state.Low);
    item.SetField(Field::OpenPrice, state.Open);
    const std::size_t shown = std::min(state.TradeCount, ShownTrades);
    for (std::size_t age = 0; age < shown; ++age) {
        const String& line = state.Trades[(state.TradeCount - 1 - age) % ShownTrades];
        item.SetField(Field::NewestTrade - static_cast<Integer>(age), StringView(line));
    }
}

void TReplayFeed::Requested(TEmbeddedSubItem& item) {
    if (FIndexes.ContainsKey(item.GetKey())) return; // comes with its lines
    if (FMarket.FindMarketData(item.GetKey()) == nullptr) item.SetStatus(ItemStatus::NoData);
    FItems.Touch(item);
}

} // namespace quorin
