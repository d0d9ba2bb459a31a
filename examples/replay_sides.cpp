// Plays a recorded file and tells, trade by trade, which side of the market it hit.
//   example-replay_sides [SYMBOL [FILE.csv]]
#include "embedded/EmbeddedServices.h"
#include "embedded/ReplayFeed.h"
#include "embedded/SilentHost.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Utf.h"
#include "viewdata/market/MarketTradeSideDetector.h"

#include <algorithm>
#include <iostream>

using namespace quorin;

namespace {

void Run(StringView symbol, const std::filesystem::path& file) {
    const std::filesystem::path data = QUORIN_DATA_DIR;
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = data});
    LoadUniverse(data / "universe", services.Market());
    // A short poll interval misses nothing: a screen keeps the five latest trades alone.
    TReplayOptions options;
    options.PollNanos = NanosPerSecond / 1000;
    TReplayFeed feed(services.Items(), services.Market(), file, options);
    feed.Open();

    // A program may have a detector of its own; forms that share one use GetInstance.
    TMarketTradeSideDetector detector;
    detector.AddSymbol(symbol);
    const TSymbolMarketTrade& trades = *detector.GetSymbolMarketTrade(symbol);

    Int64 seen = 0;
    Int64 withSide = 0;
    while (feed.Step()) {
        const Int64 fresh = trades.TakenCount() - seen;
        seen = trades.TakenCount();
        const Integer count = trades.GetCount();
        const Integer first = count - static_cast<Integer>(std::min<Int64>(fresh, count));
        for (Integer index = first; index < count; ++index) {
            const TMarketDataTrade& trade = *trades.GetTrade(index);
            if (!trade.Side().empty()) ++withSide;
            std::cout << ToUtf8(trade.Time()) << "  " << ToUtf8(trade.Qty()) << " @ "
                      << trade.Price() << "  " << ToUtf8(trade.Side()) << '\n';
        }
    }
    std::cout << ToUtf8(symbol) << ": " << seen << " trades, " << withSide << " with a side\n";
}

} // namespace

int main(int argc, char** argv) {
    try {
        const std::filesystem::path recorded =
            std::filesystem::path(QUORIN_DATA_DIR) / "recordings" / "sample.csv";
        Run(FromUtf8(argc > 1 ? argv[1] : "00005"), argc > 2 ? argv[2] : recorded);
        return 0;
    } catch (const std::exception& error) { // a file that cannot be read
        std::cerr << error.what() << '\n';
        return 1;
    }
}
