#pragma once

#include "benchmarks/Growth.h"
#include "embedded/EmbeddedServices.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketDataControl.h"

#include <memory>
#include <string>

namespace quorin {

inline constexpr Integer WindowRows = 50;
inline constexpr Integer WindowColumns = 30;
inline constexpr Integer SmallUniverse = 1'000;

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

// Services with one exchange of so many symbols, each with a live item and a quote. The same size
// again gives the same object, as long as nobody asks for another one in between.
class TBenchUniverse {
public:
    static TBenchUniverse& OfSize(Integer symbols);
    static TBenchUniverse& Of(const benchmark::State& state) {
        return OfSize(static_cast<Integer>(state.range(0)));
    }
    // For who installs services of his own.
    static void Release();
    ~TBenchUniverse() = default;

    Integer Size() const { return FSize; }
    TEmbeddedServices& Services() { return FServices; }
    // The item of a symbol, with a quote that differs from step to step.
    TEmbeddedSubItem& Quote(Integer index, Integer step);

private:
    explicit TBenchUniverse(Integer symbols);
    static std::unique_ptr<TBenchUniverse>& Kept();

    TBenchHost FHost;
    TEmbeddedServices FServices;
    Integer FSize;
};

// Services of one's own, without a universe to begin with.
class TBenchServices : public TEmbeddedServices {
public:
    explicit TBenchServices(const std::filesystem::path& data = {})
        : TEmbeddedServices({.Host = Host(), .DataDirectory = data, .SettingsPath = {}}) {}

private:
    static TBenchHost& Host() {
        static TBenchHost host;
        TBenchUniverse::Release();
        return host;
    }
};

inline constexpr StringView BenchExchange = u"BENCH";

} // namespace quorin
