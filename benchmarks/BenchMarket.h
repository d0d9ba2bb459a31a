#pragma once

#include "embedded/EmbeddedServices.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketDataControl.h"

#include <string>

namespace quorin {

inline constexpr Integer WindowRows = 50;
inline constexpr Integer WindowColumns = 30;
inline constexpr Integer SmallUniverse = 1'000;
inline constexpr Integer LargeUniverse = 1'000'000;

// A symbol of 10 characters.
inline String SymbolAt(Integer index) {
    std::string digits = std::to_string(index);
    digits.insert(0, 8 - digits.size(), '0');
    return u"SY" + String(digits.begin(), digits.end());
}

// The window does not lie in one piece of memory: rows come from all over the universe.
inline Integer RowOfWindow(Integer row, Integer universe) {
    return static_cast<Integer>(static_cast<Int64>(row) * universe / WindowRows);
}

class TBenchHost : public THost {
public:
    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer defaultAnswer) override { return defaultAnswer; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer, Pointer) override { return false; }
};

// Services with one exchange of so many symbols, of which each has a live item and a quote when
// `withItems` says so. The same size again gives the same object, as long as nobody asks for
// another one in between.
class TBenchUniverse {
public:
    static TBenchUniverse& OfSize(Integer symbols, bool withItems);
    ~TBenchUniverse() = default;

    Integer Size() const { return FSize; }
    TEmbeddedServices& Services() { return FServices; }
    // The item of a symbol, with a quote that differs from step to step.
    TEmbeddedSubItem& Quote(Integer index, Integer step);

private:
    TBenchUniverse(Integer symbols, bool withItems);

    TBenchHost FHost;
    TEmbeddedServices FServices;
    Integer FSize;
    bool FWithItems;
};

inline constexpr StringView BenchExchange = u"BENCH";

} // namespace quorin
