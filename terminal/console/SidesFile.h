#pragma once

#include "viewdata/market/MarketTradeSideDetector.h"

#include <filesystem>
#include <fstream>

namespace quorin {

// A CSV file of trades, one line each: when the delivery was (seconds after midnight), the symbol,
// the trade's time and quantity as its line gave them, the price and the side ("A", "B" or empty).
class TSidesFile {
public:
    // Raises EDataError for a file that can't be written.
    explicit TSidesFile(const std::filesystem::path& path);

    void Write(Double pollTime, StringView symbol, const TMarketDataTrade& trade);
    // Writes what is left; False when not everything could be written.
    bool Close();

private:
    std::ofstream FFile;
};

} // namespace quorin
