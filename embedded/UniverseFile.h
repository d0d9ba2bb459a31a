#pragma once

#include "embedded/MarketService.h"

#include <filesystem>
#include <functional>

namespace quorin {

// Told now and then how much of a file has been read, from 0 to 1. False breaks the loading off,
// which raises EDataError.
using TLoadProgress = std::function<bool(Double part)>;

// Both add to what the adapter has, all or nothing: the first fault raises EDataError with file
// and line, and then the adapter has what it had before. Columns may stand in any order; unknown
// ones are ignored. A fault is also a key that is there twice or one that names what is not there,
// a step that is not above 0, a lot below 0, a text that should be a number.

// Loads the files of a folder: exchanges.csv, categories.csv, series.csv, tick-tables.csv,
// symbols.csv and, where they are there, derivatives.csv with more symbols, sessions.csv and
// favorites.csv. Columns that a file does not need may be left out.
void LoadUniverse(const std::filesystem::path& folder, TEmbeddedMarketAdapter& market);

// Loads one file of symbols with the columns symbol, name, exchange, series, category,
// product_type, currency, lot, tick, expiry, strike, call_put, underlyer and contract_size.
// Exchanges, series and categories are made as they appear, exchanges as open ones with the
// currency of their first symbol. A series belongs to one category. A product type other than 2
// and 3 is that of a stock; an empty lot, tick, strike or contract size is not known; an
// underlyer need not be in the file. Prices with a tick have one band, that of a spread ("A/B")
// also below 0.
void LoadUniverseList(const std::filesystem::path& path, TEmbeddedMarketAdapter& market,
                      const TLoadProgress& progress = {});

} // namespace quorin
