#pragma once

#include "embedded/AccountFiles.h"
#include "embedded/CsvTable.h"

namespace quorin {

// The single files of ReadAccountFiles; each raises EDataError at its first fault.

using TAccountIndex = TDictionary<String, Integer>; // place in TAccountFiles::Accounts

void ReadCurrencies(const std::filesystem::path& path, TCurrencyRatioDictionary& currencies);
// A currency other than the base currency must be among `files.Currencies`, if there are any.
void ReadBalances(const std::filesystem::path& path, const TAccountIndex& index,
                  const TAccountFiles& files, std::vector<TAccountFiles::TBalanceRow>& balances);
// As ReadBalances, for accounts of type AccountType::SummedByService only.
void ReadSubBalances(const std::filesystem::path& path, const TAccountIndex& index,
                     TAccountFiles& files);
// Works out the quantities. `universe` may be nil.
void ReadPositions(const std::filesystem::path& path, const TAccountIndex& index,
                   const TCustomMarketAdapter* universe,
                   std::vector<TAccountFiles::TPositionRow>& positions);
void ReadMarginRatios(const std::filesystem::path& path, const TAccountIndex& index,
                      const TCustomMarketAdapter* universe,
                      std::vector<TAccountFiles::TMarginRatioRow>& ratios);
void ReadMargins(const std::filesystem::path& path,
                 std::vector<TAccountFiles::TMarginRow>& margins);

} // namespace quorin
