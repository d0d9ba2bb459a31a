#pragma once

#include <map>
#include <string>
#include <vector>

namespace quorin {

// Looks at accounts and positions through the contracts of the services alone and tells where money
// came from nothing or was lost: for every account and currency, cash and the market value of the
// positions together must have changed by exactly the profit and loss that the positions show.
// Several checkers may look at the same services.
class TMoneyChecker {
public:
    // Takes what the installed services show now as the start.
    TMoneyChecker();
    // Compares what they show now with the start; call it after a delivery. Answers one line for
    // each contradiction, none when all agrees.
    std::vector<std::string> Check() const;

private:
    struct TSums { // of one account in one currency
        double Cash = 0.0;
        double AccountValue = 0.0; // as the account shows it, and its profit
        double AccountProfit = 0.0;
        double Equity = 0.0;
        double Value = 0.0; // of the positions, and their profit
        double Profit = 0.0;
    };
    using TKey = std::pair<std::string, std::string>; // account and currency, empty for the total
    using TState = std::map<TKey, TSums>;

    static TState Look();

    TState FStart;
};

} // namespace quorin
