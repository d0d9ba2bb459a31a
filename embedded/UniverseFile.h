#pragma once

#include "embedded/MarketService.h"

#include <filesystem>

namespace quorin {

// Loads a universe from the files of a folder: exchanges.csv, categories.csv, series.csv,
// tick-tables.csv, symbols.csv and, where they are there, derivatives.csv with more symbols and
// favorites.csv. The first record of each
// names its columns, in any order; columns that a file does not need may be left out, unknown ones
// are ignored. Adds to what the adapter has. Raises EDataError at the first fault; what was read
// before it stays.
void LoadUniverse(const std::filesystem::path& folder, TEmbeddedMarketAdapter& market);

} // namespace quorin
