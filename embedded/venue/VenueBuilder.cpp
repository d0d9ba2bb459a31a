#include "embedded/venue/VenueBuilder.h"

#include "embedded/venue/VenuePlan.h"
#include "embedded/venue/VenueQuotes.h"
#include "platform/rtl/Numbers.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Char SpreadMark = u'/';
constexpr StringView CallMarks = u"16C";
constexpr StringView PutMarks = u"27P";
constexpr Double UsualTick = 0.01;
constexpr Double LadderEnd = 1e6;
constexpr Char SignedLadderMark = u'-';

// Futures of the second series are a smaller size of those of the first.
struct TMirroredSeries {
    StringView Series;
    StringView Of;
};
constexpr TMirroredSeries MirroredSeries[] = {{u"HKFE.MHI", u"HKFE.HSI"}};

// Shares and futures of these exchanges stay so near to their previous close.
struct TPriceLimitRule {
    StringView Exchange;
    Integer Percent;
};
constexpr TPriceLimitRule PriceLimitRules[] = {{u"SHFE", 10}, {u"SSE", 10}};

constexpr Integer LeastMadeUpTicks = 300;
constexpr Integer MostMadeUpTicks = 6000;

constexpr Integer LevelLotSizes[] = {6, 12, 25, 50, 100};
constexpr Byte RootTradeChance = 40;
constexpr Byte OptionTradeChance = 5;
constexpr Byte SpreadTradeChance = 10;

constexpr Integer MonthsPerYear = 12;

bool HasMark(const String& callPut, StringView marks) {
    return !callPut.empty() && marks.find(callPut[0]) != StringView::npos;
}

bool TryStrike(const TEmbeddedMarketData& record, TVenuePrice& strike) {
    Double value = 0.0;
    return TryParseDouble(record.GetStrikePrice(), value) && value > 0.0 &&
           TryToVenuePrice(value, strike);
}

bool IsOption(const TEmbeddedMarketData& record) {
    TVenuePrice strike = 0;
    return record.GetProductType() == ProductType::Options && TryStrike(record, strike) &&
           (HasMark(record.GetCallPut(), CallMarks) || HasMark(record.GetCallPut(), PutMarks));
}

// What the futures and options of the record have in common when no symbol says so.
StringView NameOf(const TEmbeddedMarketData& record) {
    if (!record.GetUnderlyer().empty()) return record.GetUnderlyer();
    for (const TMirroredSeries& mirrored : MirroredSeries) {
        if (record.GetSeries() == mirrored.Series) return mirrored.Of;
    }
    return record.GetSeries();
}

} // namespace

TVenueBuilder::TVenueBuilder(const TEmbeddedMarketAdapter& market, const TVenueDay& day,
                             std::uint64_t seed, TVenueMonth month)
    : FMarket(market), FDay(day), FRandom(seed), FMonth(month) {}

TVenueBoard TVenueBuilder::Build() {
    const TMarketUniverse& universe = FMarket.Universe();
    FBoard.Symbols.reserve(static_cast<std::size_t>(universe.SymbolCount()));
    FBoard.Indexes.Reserve(universe.SymbolCount());
    for (Integer index = 0; index < universe.Exchanges().Count(); ++index) {
        for (const TRecord* record : universe.Exchanges()[index]->Records) {
            AddSymbol(*record, static_cast<std::uint16_t>(index));
        }
    }
    // Shares first: futures and options may stand on them, and options on futures.
    const auto addEach = [this](auto wanted, auto add) {
        for (TVenueSymbol& symbol : FBoard.Symbols) {
            if (symbol.Kind == TVenueKind::None && wanted(*symbol.Record)) add(symbol);
        }
    };
    const auto isFuture = [](const TRecord& record) {
        return record.GetProductType() == ProductType::Futures;
    };
    const auto addRoot = [this](TVenueSymbol& symbol) { AddRoot(symbol); };
    addEach([&](const TRecord& record) { return !isFuture(record) && !IsOption(record); }, addRoot);
    addEach(
        [&](const TRecord& record) {
            return isFuture(record) && record.GetSymbol().find(SpreadMark) == String::npos;
        },
        addRoot);
    addEach(IsOption, [this](TVenueSymbol& symbol) { AddOption(symbol); });
    addEach(isFuture, [this](TVenueSymbol& symbol) {
        if (!TryAddSpread(symbol)) AddRoot(symbol);
    });
    CloseRoots();
    CloseOptions();
    CloseSpreads();
    GroupFamilies(FBoard);
    PlanIncidents(FBoard, FDay, FRandom);
    TVenueQuotes quotes(FBoard, FRandom);
    for (TVenueSymbol& symbol : FBoard.Symbols) {
        if (symbol.Kind != TVenueKind::None) quotes.Build(symbol);
    }
    return std::move(FBoard);
}

void TVenueBuilder::AddSymbol(const TRecord& record, std::uint16_t exchange) {
    FBoard.Indexes.Add(&record, static_cast<std::uint32_t>(FBoard.Symbols.size()));
    TVenueSymbol& symbol = FBoard.Symbols.emplace_back();
    symbol.Record = &record;
    symbol.Exchange = exchange;
    symbol.MaxLots = LevelLotSizes[FRandom.Below(static_cast<Integer>(std::size(LevelLotSizes)))];
    const bool isDifference = record.GetProductType() == ProductType::Futures &&
                              record.GetSymbol().find(SpreadMark) != String::npos;
    symbol.Ladder = LadderOf(record, isDifference);
}

std::uint16_t TVenueBuilder::LadderOf(const TRecord& record, bool hasNegative) {
    std::span<const TSpreadBand> bands = FMarket.SpreadBands(record.SpreadCode());
    String name = bands.empty() ? record.TickSize() : record.SpreadCode();
    name.push_back(bands.empty() ? u'=' : u':');
    if (hasNegative) name.push_back(SignedLadderMark);
    if (const std::uint16_t* known = FLadders.Find(name)) return *known;
    const TSpreadBand own{0.0, LadderEnd, ToDoubleOr(record.TickSize(), UsualTick)};
    const TSpreadBand usual{0.0, LadderEnd, UsualTick};
    TPriceLadder ladder;
    const bool isLoaded = (!bands.empty() && ladder.Load(bands, hasNegative)) ||
                          ladder.Load({&own, 1}, hasNegative) ||
                          ladder.Load({&usual, 1}, hasNegative);
    const auto index = static_cast<std::uint16_t>(FBoard.Ladders.size());
    if (isLoaded) FBoard.Ladders.push_back(std::move(ladder));
    FLadders.Add(name, index);
    return index;
}

void TVenueBuilder::AddRoot(TVenueSymbol& symbol) {
    const TRecord& record = *symbol.Record;
    symbol.Kind = TVenueKind::Root;
    symbol.TradeChance = RootTradeChance;
    if (record.GetProductType() != ProductType::Futures) {
        symbol.Process = NewProcess();
    } else if (const TVenueSymbol* underlyer = FindRoot(record.GetUnderlyer());
               underlyer != nullptr && underlyer != &symbol) {
        symbol.Process = underlyer->Process;
    } else {
        symbol.Process = ProcessOf(NameOf(record));
    }
    if (!TryToVenuePrice(record.PreviousClose(), symbol.Close)) symbol.Kind = TVenueKind::None;
    TBasis& basis = FBases[symbol.Process];
    if (basis.Close == 0) basis.Close = symbol.Close;
}

void TVenueBuilder::AddOption(TVenueSymbol& symbol) {
    const TRecord& record = *symbol.Record;
    TVenuePrice strike = 0;
    if (!TryStrike(record, strike)) return;
    symbol.Kind = TVenueKind::Option;
    symbol.TradeChance = OptionTradeChance;
    const TVenueSymbol* underlyer = FindRoot(record.GetUnderlyer());
    symbol.Process = underlyer != nullptr ? underlyer->Process : ProcessOf(NameOf(record));
    TBasis& basis = FBases[symbol.Process];
    if (basis.StrikeCount == 0 || basis.StrikeSum < MaxVenuePrice * 100) {
        basis.StrikeSum += strike;
        ++basis.StrikeCount;
    }
}

bool TVenueBuilder::TryAddSpread(TVenueSymbol& symbol) {
    const StringView code = symbol.Record->GetSymbol();
    const std::size_t mark = code.find(SpreadMark);
    const TVenueSymbol* nearLeg = FindRoot(code.substr(0, mark));
    const TVenueSymbol* farLeg = FindRoot(code.substr(mark + 1));
    if (nearLeg == nullptr || farLeg == nullptr) return false;
    symbol.Kind = TVenueKind::Spread;
    symbol.TradeChance = SpreadTradeChance;
    symbol.Process = nearLeg->Process;
    symbol.Terms = static_cast<std::uint32_t>(FBoard.Spreads.size());
    const TVenueSymbol* first = FBoard.Symbols.data();
    FBoard.Spreads.push_back(
        {static_cast<std::uint32_t>(nearLeg - first), static_cast<std::uint32_t>(farLeg - first)});
    return true;
}

std::uint32_t TVenueBuilder::ProcessOf(StringView name) {
    if (const std::uint32_t* known = FNamed.Find(name)) return *known;
    const std::uint32_t process = NewProcess();
    FNamed.Add(name, process);
    return process;
}

std::uint32_t TVenueBuilder::NewProcess() {
    FBoard.Processes.emplace_back(FRandom);
    FBases.emplace_back();
    return static_cast<std::uint32_t>(FBases.size() - 1);
}

const TVenueSymbol* TVenueBuilder::FindRoot(StringView code) const {
    const TRecord* record = FMarket.Universe().FindSymbol(code);
    const std::uint32_t* index = record != nullptr ? FBoard.Indexes.Find(record) : nullptr;
    if (index == nullptr || FBoard.Symbols[*index].Kind != TVenueKind::Root) return nullptr;
    return &FBoard.Symbols[*index];
}

// What no record tells is near the strikes of the options, or made up.
void TVenueBuilder::CloseRoots() {
    for (TVenueSymbol& symbol : FBoard.Symbols) {
        if (symbol.Kind != TVenueKind::Root) continue;
        const TPriceLadder& ladder = FBoard.LadderOf(symbol);
        TBasis& basis = FBases[symbol.Process];
        if (basis.Close == 0 && basis.StrikeCount > 0) {
            basis.Close = basis.StrikeSum / basis.StrikeCount;
        }
        if (basis.Close == 0) {
            const TTick tick = std::max(ladder.Lowest(), 0);
            basis.Close = ladder.Price(tick + FRandom.Between(LeastMadeUpTicks, MostMadeUpTicks));
        }
        if (symbol.Close <= 0) symbol.Close = ladder.Price(ladder.Floor(basis.Close));
        const bool hasMarket = symbol.Close <= MaxVenuePrice && symbol.Close > 0 &&
                               ladder.Ceil(symbol.Close) < TPriceLadder::MaxTick / 2;
        if (!hasMarket) symbol.Kind = TVenueKind::None;
        SetLimits(symbol);
    }
}

void TVenueBuilder::CloseOptions() {
    for (TVenueSymbol& symbol : FBoard.Symbols) {
        if (symbol.Kind != TVenueKind::Option) continue;
        const TRecord& record = *symbol.Record;
        const TVenueSymbol* underlyer = FindRoot(record.GetUnderlyer());
        TBasis& basis = FBases[symbol.Process];
        if (basis.Close == 0) basis.Close = basis.StrikeSum / basis.StrikeCount;
        const TVenuePrice underlyerClose = underlyer != nullptr ? underlyer->Close : basis.Close;
        TVenuePrice strike = 0;
        TVenuePrice close = 0;
        if (!TryStrike(record, strike) || !TryToVenuePrice(record.PreviousClose(), close)) {
            symbol.Kind = TVenueKind::None;
            continue;
        }
        symbol.Terms = static_cast<std::uint32_t>(FBoard.Options.size());
        const TOptionModel model(HasMark(record.GetCallPut(), CallMarks), strike,
                                 MonthsTo(record.GetExpiryMonth()), underlyerClose, close);
        FBoard.Options.push_back({model, underlyerClose, symbol.Process});
        const TPriceLadder& ladder = FBoard.LadderOf(symbol);
        const TTick atClose = std::max(ladder.Floor(model.Value(underlyerClose)), ladder.Lowest());
        symbol.Close = close != 0 ? close : ladder.Price(atClose);
    }
}

void TVenueBuilder::CloseSpreads() {
    for (TVenueSymbol& symbol : FBoard.Symbols) {
        if (symbol.Kind != TVenueKind::Spread) continue;
        const TVenueSpread& spread = FBoard.Spreads[symbol.Terms];
        const TVenueSymbol& nearLeg = FBoard.Symbols[spread.Near];
        const TVenueSymbol& farLeg = FBoard.Symbols[spread.Far];
        symbol.Close = nearLeg.Close - farLeg.Close;
        const bool hasLegs = nearLeg.Kind == TVenueKind::Root && farLeg.Kind == TVenueKind::Root;
        if (!hasLegs) symbol.Kind = TVenueKind::None;
    }
}

void TVenueBuilder::SetLimits(TVenueSymbol& symbol) const {
    constexpr Integer whole = 100;
    const TPriceLadder& ladder = FBoard.LadderOf(symbol);
    for (const TPriceLimitRule& rule : PriceLimitRules) {
        if (*FDay.Exchanges()[symbol.Exchange].Code != rule.Exchange) continue;
        const TVenuePrice width = MultiplyDivide(symbol.Close, rule.Percent, whole);
        symbol.LimitHigh = ladder.Floor(symbol.Close + width);
        symbol.LimitLow = std::max(ladder.Ceil(symbol.Close - width), ladder.Lowest());
    }
}

// From a text that begins with the year and has the month after it, with anything between that is
// no digit; 1 for any other text.
Integer TVenueBuilder::MonthsTo(const String& expiry) const {
    constexpr std::size_t digitsNeeded = 6;
    Integer digits = 0;
    std::size_t count = 0;
    for (const Char unit : expiry) {
        if (unit < u'0' || unit > u'9' || count == digitsNeeded) continue;
        digits = digits * 10 + (unit - u'0');
        ++count;
    }
    if (count < digitsNeeded) return 1;
    const Integer year = digits / 100;
    const Integer month = digits % 100;
    const Integer months = (year - FMonth.Year) * MonthsPerYear + month - FMonth.Month + 1;
    constexpr Integer mostMonths = 10 * MonthsPerYear;
    return std::clamp(months, 1, mostMonths);
}

} // namespace quorin
