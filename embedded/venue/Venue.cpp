#include "embedded/venue/Venue.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr std::uint64_t BuildSalt = 0x5EED;
constexpr Integer StepsPerRound = 20; // a symbol is updated about once in so many steps
constexpr Integer LeastUpdates = 16;
constexpr Integer MostUpdates = 10'000;
constexpr Integer FamilyShare = 4; // of the updates of a step, for leaders
constexpr Integer MemberShare = 2; // and for those who follow them

Integer UpdatesFor(Integer symbols) {
    return std::min(std::clamp(symbols / StepsPerRound, LeastUpdates, MostUpdates), symbols);
}

bool IsMarginKey(StringView key) {
    return key.substr(0, SpanKeyPrefix.size()) == SpanKeyPrefix;
}

} // namespace

TVenue::TVenue(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
               const TVenueOptions& options)
    : FItems(items), FMarket(market), FOptions(options), FDay(FMarket), FRandom(FOptions.Seed),
      FBoard(TVenueBuilder(FMarket, FDay, FOptions.Seed ^ BuildSalt, FOptions.Month).Build()),
      FQuotes(FBoard, FRandom) {
    FOptions.StepNanos = std::max<Int64>(FOptions.StepNanos, 1);
    const auto symbols = static_cast<Integer>(FBoard.Symbols.size());
    if (FOptions.UpdatesPerStep <= 0) FOptions.UpdatesPerStep = UpdatesFor(symbols);
    for (const TVenueFamily& family : FBoard.Families) FReached.push_back(family.End);
    FDay.Advance(TimeNanos());
    TakeIncidents();
    FItems.SetFeed(this);
    FMarket.SetOrderMarket(this);
    FItems.EachItem([this](TEmbeddedSubItem& item) {
        if (item.GetItemIndex() != NoItemIndex && Find(item.GetKey()) != nullptr) Requested(item);
    });
}

TVenue::~TVenue() {
    if (FItems.Feed() == this) FItems.SetFeed(nullptr);
    if (FMarket.OrderMarket() == this) FMarket.SetOrderMarket(nullptr);
}

void TVenue::Step() {
    ++FStep;
    if (FDay.Advance(TimeNanos())) EnterSessions();
    TakeIncidents();
    if (FMarket.OrderMarket() == this) FMarket.TellQuotesSeen();
    FRestingStep = FStep + 1;
    if (FBoard.Symbols.empty()) return;
    const Integer budget = FOptions.UpdatesPerStep;
    const Integer leaders =
        std::min(std::max(budget / FamilyShare, 1), static_cast<Integer>(FBoard.Families.size()));
    MoveFamilies(leaders);
    const Integer members = MoveMembers(budget / MemberShare);
    MoveAny(budget - leaders - members);
}

// The adapter has written the new state into every item, the stopped ones among them.
void TVenue::EnterSessions() {
    for (const std::uint32_t index : FAskedFor) {
        const TVenueSymbol& symbol = FBoard.Symbols[index];
        if (!FDay.Exchanges()[symbol.Exchange].IsChanged) continue;
        WriteAll(symbol);
        FItems.Touch(*symbol.Item);
    }
}

void TVenue::TakeIncidents() {
    const auto& incidents = FBoard.Incidents;
    for (; FNextIncident < incidents.size(); ++FNextIncident) {
        const TVenueIncident& incident = incidents[FNextIncident];
        if (incident.Time > TimeNanos()) return;
        TVenueSymbol& symbol = FBoard.Symbols[incident.Symbol];
        if (incident.Kind == TVenueIncident::TKind::Stop) {
            Stop(symbol);
        } else {
            const bool isUp = incident.Kind == TVenueIncident::TKind::RunUp;
            FBoard.Processes[symbol.Process].Run(isUp);
        }
    }
}

void TVenue::Stop(TVenueSymbol& symbol) {
    symbol.IsStopped = true;
    symbol.Book.Clear();
    if (symbol.Item == nullptr) return;
    WriteAll(symbol);
    FItems.Touch(*symbol.Item);
}

// Processes that several symbols share move here alone, before all who follow them.
void TVenue::MoveFamilies(Integer budget) {
    for (Integer update = 0; update < budget; ++update) {
        const auto due =
            static_cast<std::uint32_t>(FRandom.Below(static_cast<Integer>(FBoard.Families.size())));
        const TVenueFamily& family = FBoard.Families[due];
        TVenueSymbol& leader = FBoard.Symbols[family.Leader];
        if (!CanMove(leader)) continue;
        FBoard.Processes[leader.Process].Move(FRandom);
        if (FReached[due] == family.End) {
            FReached[due] = family.First;
            FDue.push_back(due);
        }
        Update(leader);
    }
}

// Family after family, in the order in which their leaders have moved; what is in its place stays.
Integer TVenue::MoveMembers(Integer budget) {
    Integer updates = 0;
    while (updates < budget && !FDue.empty()) {
        const std::uint32_t due = FDue.front();
        std::uint32_t& reached = FReached[due];
        if (reached == FBoard.Families[due].End) {
            FDue.pop_front();
            continue;
        }
        TVenueSymbol& symbol = FBoard.Symbols[FBoard.Members[reached++]];
        ++updates;
        if (CanMove(symbol) && !FQuotes.IsInPlace(symbol)) Update(symbol);
    }
    return updates;
}

void TVenue::MoveAny(Integer budget) {
    const auto symbols = static_cast<Integer>(FBoard.Symbols.size());
    for (Integer update = 0; update < budget; ++update) {
        TVenueSymbol& symbol = FBoard.Symbols[static_cast<std::size_t>(FRandom.Below(symbols))];
        if (!CanMove(symbol)) continue;
        const bool isAlone = FBoard.FamilyOf[symbol.Process] == TVenueBoard::NoFamily;
        if (isAlone) FBoard.Processes[symbol.Process].Move(FRandom);
        Update(symbol);
    }
}

bool TVenue::CanMove(const TVenueSymbol& symbol) const {
    return symbol.Kind != TVenueKind::None && !symbol.IsStopped &&
           FDay.Exchanges()[symbol.Exchange].IsQuoting &&
           symbol.LastStep != static_cast<std::uint32_t>(FStep) &&
           symbol.RestingStep != static_cast<std::uint32_t>(FStep);
}

void TVenue::Update(TVenueSymbol& symbol) {
    symbol.LastStep = static_cast<std::uint32_t>(FStep);
    ++FUpdateCount;
    const std::uint32_t trades = symbol.Tape.Count();
    // Nothing trades in the step that may be the first to show a book.
    const TVenueDay::TExchange& exchange = FDay.Exchanges()[symbol.Exchange];
    FQuotes.Update(symbol, exchange.IsOpen && !exchange.IsChanged, TimeNanos());
    Show(symbol, symbol.Tape.Count() != trades);
}

void TVenue::Show(TVenueSymbol& symbol, bool hasTraded) {
    if (symbol.Item == nullptr) return;
    const TPriceLadder& ladder = FBoard.LadderOf(symbol);
    TVenueFieldWriter::WriteBook(symbol, ladder, IsShown(symbol));
    if (hasTraded) FWriter.WriteTrades(symbol, ladder);
    FItems.Touch(*symbol.Item);
}

bool TVenue::IsShown(const TVenueSymbol& symbol) const {
    return FDay.Exchanges()[symbol.Exchange].IsShown;
}

void TVenue::WriteAll(const TVenueSymbol& symbol) {
    if (symbol.Kind == TVenueKind::None) return;
    const TPriceLadder& ladder = FBoard.LadderOf(symbol);
    TVenueFieldWriter::WriteState(symbol, ladder);
    TVenueFieldWriter::WriteBook(symbol, ladder, IsShown(symbol));
    FWriter.WriteTrades(symbol, ladder);
}

void TVenue::Requested(TEmbeddedSubItem& item) {
    const String& key = item.GetKey();
    if (IsMarginKey(key) && FMarginFeed != nullptr) {
        FMarginFeed->Requested(item);
        return;
    }
    if (TVenueSymbol* symbol = Find(key)) {
        if (symbol->Item == nullptr) {
            symbol->Item = &item;
            FAskedFor.push_back(static_cast<std::uint32_t>(symbol - FBoard.Symbols.data()));
        }
        WriteAll(*symbol);
    } else if (FMarket.FindMarketData(key) == nullptr) {
        item.SetStatus(ItemStatus::NoData);
    }
    FItems.Touch(item);
}

const TVenueSymbol* TVenue::Find(StringView symbol) const {
    const TCustomMarketData* record = FMarket.FindMarketData(symbol);
    const std::uint32_t* index = record != nullptr ? FBoard.Indexes.Find(record) : nullptr;
    return index != nullptr ? &FBoard.Symbols[*index] : nullptr;
}

TVenueSymbol* TVenue::Find(StringView symbol) {
    return const_cast<TVenueSymbol*>(std::as_const(*this).Find(symbol));
}

Double TVenue::Worth(StringView symbol) const {
    const TVenueSymbol* known = Find(symbol);
    if (known == nullptr) return 0.0;
    return static_cast<Double>(FBoard.Worth(*known)) / static_cast<Double>(PriceUnit);
}

} // namespace quorin
