// Makes the recording that is shipped for replays: ten minutes of quotes and trades of a few shares
// from 09:30, the same on every machine. All prices are whole numbers of ticks, all random choices
// come from one seed.
//
//   quorin-make-recording > data/recordings/sample.csv

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace {

constexpr std::uint64_t Seed = 20250804;
constexpr int LineCount = 3000;
constexpr std::int64_t Start = (9 * 60 + 30) * 60 * std::int64_t{1000}; // milliseconds
constexpr std::uint64_t MeanGap = 200;                                  // milliseconds

class TRandom {
public:
    // 0 to `end` - 1.
    std::int64_t Below(std::uint64_t end) {
        FState += 0x9E3779B97F4A7C15u;
        std::uint64_t word = FState;
        word = (word ^ (word >> 30)) * 0xBF58476D1CE4E5B9u;
        word = (word ^ (word >> 27)) * 0x94D049BB133111EBu;
        return static_cast<std::int64_t>((word ^ (word >> 31)) % end);
    }
    bool Percent(std::uint64_t chance) { return Below(100) < static_cast<std::int64_t>(chance); }

private:
    std::uint64_t FState = Seed;
};

// A share whose prices stay in one band of the tick table. Prices are in ticks.
struct TShare {
    const char* Symbol;
    int Tick; // in thousandths of a dollar
    int Lot;
    std::int64_t Bid;
    std::int64_t Lowest; // of the bid, and its highest, so that the band is not left
    std::int64_t Highest;
    std::int64_t Spread = 1;
    std::int64_t BidLots = 20;
    std::int64_t AskLots = 20;
};

TShare Shares[] = {
    {"00700", 500, 100, 1203, 1150, 1250}, {"00005", 100, 400, 1006, 1005, 1050},
    {"00939", 10, 1000, 765, 740, 790},    {"01810", 50, 200, 1075, 1030, 1120},
    {"02800", 20, 500, 1271, 1240, 1300},  {"09988", 100, 100, 1183, 1130, 1230},
};

void PrintThousandths(std::int64_t thousandths) {
    std::printf("%lld", static_cast<long long>(thousandths / 1000));
    const int rest = static_cast<int>(thousandths % 1000);
    if (rest == 0) return;
    if (rest % 100 == 0) {
        std::printf(".%d", rest / 100);
    } else if (rest % 10 == 0) {
        std::printf(".%02d", rest / 10);
    } else {
        std::printf(".%03d", rest);
    }
}

void PrintPrice(const TShare& share, std::int64_t ticks) {
    PrintThousandths(ticks * share.Tick);
}

void PrintQuote(const TShare& share) {
    std::printf(",");
    PrintPrice(share, share.Bid);
    std::printf(",%lld,", static_cast<long long>(share.BidLots * share.Lot));
    PrintPrice(share, share.Bid + share.Spread);
    std::printf(",%lld\n", static_cast<long long>(share.AskLots * share.Lot));
}

void MoveQuote(TShare& share, TRandom& random) {
    const std::int64_t move = random.Below(3) - 1;
    share.Bid = std::clamp(share.Bid + move, share.Lowest, share.Highest);
    share.Spread = random.Percent(70) ? 1 : 2;
    share.BidLots = 1 + random.Below(60);
    share.AskLots = 1 + random.Below(60);
}

struct TTrade {
    std::int64_t Price;
    std::int64_t Lots;
};

// Takes from one side of the quote, which moves away when nothing is left of it; in a wide spread
// now and then a trade in the middle.
TTrade Trade(TShare& share, TRandom& random) {
    if (share.Spread > 1 && random.Percent(40)) return {share.Bid + 1, 1 + random.Below(5)};
    const bool isBuy = random.Percent(50);
    std::int64_t& offered = isBuy ? share.AskLots : share.BidLots;
    const std::int64_t lots = std::min<std::int64_t>(offered, 1 + random.Below(15));
    const std::int64_t price = isBuy ? share.Bid + share.Spread : share.Bid;
    offered -= lots;
    if (offered > 0) return {price, lots};
    offered = 1 + random.Below(60);
    if (isBuy) {
        share.Bid = std::min(share.Bid + 1, share.Highest);
    } else {
        share.Bid = std::max(share.Bid - 1, share.Lowest);
    }
    return {price, lots};
}

} // namespace

int main() {
    TRandom random;
    std::int64_t time = Start;
    std::puts("time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty");
    for (int line = 0; line < LineCount; ++line) {
        time += random.Percent(15) ? 0 : random.Below(2 * MeanGap + 70);
        TShare& share = Shares[random.Below(std::size(Shares))];
        const bool isTrade = random.Percent(35);
        PrintThousandths(time);
        if (isTrade) {
            const TTrade trade = Trade(share, random);
            std::printf(",%s,T,", share.Symbol);
            PrintPrice(share, trade.Price);
            std::printf(",%lld", static_cast<long long>(trade.Lots * share.Lot));
        } else {
            MoveQuote(share, random);
            std::printf(",%s,Q,,", share.Symbol);
        }
        PrintQuote(share);
    }
    return 0;
}
