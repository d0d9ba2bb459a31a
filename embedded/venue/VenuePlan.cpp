#include "embedded/venue/VenuePlan.h"

#include "embedded/TimeText.h"

#include <algorithm>

namespace quorin {

namespace {

using TIncidentKind = TVenueIncident::TKind;

constexpr std::size_t LeastForRuns = 3; // processes of an exchange
constexpr std::size_t ProcessesPerRun = 60;
constexpr std::size_t LeastForStops = 4; // shares of an exchange
constexpr std::size_t SharesPerStop = 100;
constexpr Int64 RunsBegin = 3; // in the first third of the open hours

class TIncidentPlan {
public:
    TIncidentPlan(TVenueBoard& board, const TVenueDay& day, TVenueRandom& random)
        : FBoard(board), FDay(day), FRandom(random) {}

    void Plan() {
        Collect();
        for (std::size_t exchange = 0; exchange < FDay.Exchanges().size(); ++exchange) {
            PlanExchange(exchange);
        }
        std::stable_sort(FBoard.Incidents.begin(), FBoard.Incidents.end(),
                         [](const TVenueIncident& left, const TVenueIncident& right) {
                             return left.Time < right.Time;
                         });
    }

private:
    using TChoice = std::vector<std::uint32_t>; // symbols

    void Collect() {
        FRuns.resize(FDay.Exchanges().size());
        FStops.resize(FDay.Exchanges().size());
        for (std::uint32_t index = 0; index < FBoard.Symbols.size(); ++index) {
            const TVenueSymbol& symbol = FBoard.Symbols[index];
            if (symbol.Kind != TVenueKind::Root) continue;
            const std::uint32_t family = FBoard.FamilyOf[symbol.Process];
            const bool isAlone = family == TVenueBoard::NoFamily;
            const bool leads = isAlone || FBoard.Families[family].Leader == index;
            const bool isLimited = symbol.LimitHigh < TPriceLadder::MaxTick;
            if (leads && isLimited) FRuns[symbol.Exchange].push_back(index);
            const bool isShare = symbol.Record->GetProductType() != ProductType::Futures;
            if (isAlone && isShare) FStops[symbol.Exchange].push_back(index);
        }
    }

    void PlanExchange(std::size_t exchange) {
        Int64 from = 0;
        Int64 to = 0;
        if (!FDay.OpenHours(exchange, from, to)) return;
        TChoice& runs = FRuns[exchange];
        TChoice& stops = FStops[exchange];
        const std::size_t runCount =
            runs.size() < LeastForRuns ? 0 : 1 + runs.size() / ProcessesPerRun;
        const Int64 runsEnd = from + (to - from) / RunsBegin;
        for (std::size_t run = 0; run < runCount; ++run) {
            Add(runs, stops, TIncidentKind::RunUp, from, runsEnd);
            Add(runs, stops, TIncidentKind::RunDown, from, runsEnd);
        }
        const std::size_t stopCount =
            stops.size() < LeastForStops ? 0 : 1 + stops.size() / SharesPerStop;
        for (std::size_t stop = 0; stop < stopCount; ++stop) {
            Add(stops, runs, TIncidentKind::Stop, from, to);
        }
    }

    // What has been chosen once is no choice any more, of either kind.
    void Add(TChoice& choice, TChoice& other, TIncidentKind kind, Int64 from, Int64 to) {
        if (choice.empty()) return;
        const auto place = FRandom.Below(static_cast<Integer>(choice.size()));
        const std::uint32_t symbol = choice[static_cast<std::size_t>(place)];
        choice.erase(choice.begin() + place);
        const auto again = std::find(other.begin(), other.end(), symbol);
        if (again != other.end()) other.erase(again);
        const Int64 seconds = FRandom.Below(static_cast<Integer>((to - from) / NanosPerSecond));
        FBoard.Incidents.push_back({from + seconds * NanosPerSecond, symbol, kind});
    }

    TVenueBoard& FBoard;
    const TVenueDay& FDay;
    TVenueRandom& FRandom;
    std::vector<TChoice> FRuns; // by exchange
    std::vector<TChoice> FStops;
};

} // namespace

void GroupFamilies(TVenueBoard& board) {
    struct TGroup {
        std::uint32_t Leader = TVenueBoard::NoFamily;
        std::uint32_t Size = 0;
        std::uint32_t Next = 0; // place of the next member
    };
    std::vector<TGroup> groups(board.Processes.size());
    const auto isRoot = [&](std::uint32_t index) {
        return board.Symbols[index].Kind == TVenueKind::Root;
    };
    for (std::uint32_t index = 0; index < board.Symbols.size(); ++index) {
        const TVenueSymbol& symbol = board.Symbols[index];
        if (symbol.Kind == TVenueKind::None) continue;
        TGroup& group = groups[symbol.Process];
        ++group.Size;
        const bool isFirst = group.Leader == TVenueBoard::NoFamily;
        // Shares stand for more than the futures and options on them.
        const bool isBetter =
            !isFirst && isRoot(index) &&
            (!isRoot(group.Leader) ||
             (symbol.Record->GetProductType() != ProductType::Futures &&
              board.Symbols[group.Leader].Record->GetProductType() == ProductType::Futures));
        if (isFirst || isBetter) group.Leader = index;
    }
    board.FamilyOf.assign(groups.size(), TVenueBoard::NoFamily);
    std::uint32_t place = 0;
    for (std::size_t process = 0; process < groups.size(); ++process) {
        TGroup& group = groups[process];
        if (group.Size < 2) continue;
        group.Next = place;
        board.FamilyOf[process] = static_cast<std::uint32_t>(board.Families.size());
        board.Families.push_back({group.Leader, place, place + group.Size - 1});
        place += group.Size - 1;
    }
    board.Members.resize(place);
    for (std::uint32_t index = 0; index < board.Symbols.size(); ++index) {
        const TVenueSymbol& symbol = board.Symbols[index];
        if (symbol.Kind == TVenueKind::None) continue;
        TGroup& group = groups[symbol.Process];
        if (group.Size >= 2 && index != group.Leader) board.Members[group.Next++] = index;
    }
}

void PlanIncidents(TVenueBoard& board, const TVenueDay& day, TVenueRandom& random) {
    TIncidentPlan(board, day, random).Plan();
}

} // namespace quorin
