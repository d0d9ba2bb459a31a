#pragma once

#include "embedded/AccountRecord.h"
#include "embedded/MarginFeed.h"
#include "embedded/PositionRecord.h"
#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/MarketAdapter.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace quorin {

// What the account files of a folder say, checked and in their order. accounts.csv must be there;
// each of the others counts where it is there:
//
//   accounts.csv       the accounts, a master before or after its sub-accounts
//   balances.csv       figures by account and currency, columns named by attribute; the empty
//                      currency is the total record
//   sub-balances.csv   the same for the summed records of accounts of that type
//   positions.csv      the day's quantities and amounts by account and symbol
//   currencies.csv     ratios to the base currency; an empty one is not known
//   margin-ratios.csv  by symbol and account, of all accounts without one
//   margins.csv        figures of margin items by code, columns named by field
//   china-connect.csv  exchanges, and pairs of accounts
//   custom-values.csv  texts about all accounts, by section and key
struct TAccountFiles {
    struct TAccountRow {
        String Code;
        TAccountDetails Details;
    };
    struct TBalanceRow {
        String Account;
        String Currency;
        TBalanceFigures Figures;
    };
    struct TPositionRow {
        String Account;
        String Symbol;
        TPositionFigures Figures;
    };
    struct TMarginRatioRow {
        String Symbol;
        String Account;
        std::optional<Double> Ratio;
    };
    struct TMarginRow {
        String Code;
        TMarginFigures Figures;
    };
    struct TCustomValueRow {
        String Section;
        String Key;
        String Value;
    };

    std::vector<TAccountRow> Accounts;
    std::vector<TBalanceRow> Balances;
    std::vector<TBalanceRow> SubBalances;
    std::vector<TPositionRow> Positions;
    TCurrencyRatioDictionary Currencies; // 0.0: not known
    std::vector<TMarginRatioRow> MarginRatios;
    std::vector<TMarginRow> Margins;
    TDictionary<String, bool> ConnectExchanges;
    TDictionary<String, String> ConnectAccounts;
    std::vector<TCustomValueRow> CustomValues;
};

// Raises EDataError at the first fault, "FILE:LINE: reason", and has changed nothing then. Symbols
// must be known to `universe`, unless that is nil or empty.
TAccountFiles ReadAccountFiles(const std::filesystem::path& folder,
                               const TCustomMarketAdapter* universe);

} // namespace quorin
