#include "tests/support/MoneyChecker.h"

#include "platform/rtl/Utf.h"
#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/CurrencyAdapter.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/PositionAdapter.h"

#include <cmath>
#include <sstream>
#include <utility>

namespace quorin {

namespace {

constexpr double Cent = 1e-6; // of any currency: what binary fractions may lose

double NetQuantity(const TCustomPositionData& position) {
    const double net = position.GetQuantity() - position.GetShortQuantity();
    return position.GetSide() == TPositionSide::Short ? -net : net;
}

double Ratio(const std::string& currency) {
    return TCustomCurrencyAdapter::GetInstance()->GetCurrencyRatio(FromUtf8(currency));
}

} // namespace

TMoneyChecker::TMoneyChecker() : FStart(Look()) {}

TMoneyChecker::TState TMoneyChecker::Look() {
    TState state;
    const TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    const TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    for (Integer index = 0; index < accounts.GetAccountCount(); ++index) {
        const TCustomAccount& account = *accounts.GetAccountByIndex(index);
        const std::string code = ToUtf8(account.GetAccount());
        const auto take = [&](const String& currency) {
            const TCustomAccountData* data = account.GetAccountData(currency);
            if (data == nullptr) return;
            TSums& sums = state[{code, ToUtf8(currency)}];
            sums.Cash = data->GetValue991();
            sums.AccountValue = data->GetValue445();
            sums.AccountProfit = data->GetValue607();
            sums.Equity = data->GetValue9028();
        };
        take({});
        for (Integer i = 0; i < account.GetCurrencyCount(); ++i) take(account.GetCurrency(i));
        TPositionDictionary list;
        positions.GetPositionList(account.GetAccount(), list);
        for (const auto& item : list) {
            const TCustomMarketData* record =
                TCustomMarketAdapter::GetInstance()->FindMarketData(item.Key);
            TSums& sums = state[{code, ToUtf8(record->GetCurrency())}];
            double value = 0.0;
            if (positions.GetMarketValue(item.Key, NetQuantity(*item.Value), value)) {
                sums.Value += value;
            }
            sums.Profit += item.Value->GetInitPL() + item.Value->GetExePL();
        }
    }
    return state;
}

std::vector<std::string> TMoneyChecker::Check() const {
    std::vector<std::string> faults;
    TState now = Look();
    std::map<std::string, double> totals; // cash by account, in the base currency
    const auto compare = [&](const TKey& key, const char* what, double left, double right) {
        if (std::fabs(left - right) <= Cent) return;
        std::ostringstream line;
        line.precision(15);
        line << key.first << " " << key.second << ": " << what << ": " << left << " and " << right;
        faults.push_back(line.str());
    };
    for (const auto& [key, sums] : now) {
        const auto known = FStart.find(key);
        const TSums start = known != FStart.end() ? known->second : TSums();
        const double cash = sums.Cash - start.Cash;
        if (key.second.empty()) continue;
        const double profit = sums.Profit - start.Profit;
        totals[key.first] += cash * Ratio(key.second);
        compare(key, "cash and value against profit", cash + sums.Value - start.Value, profit);
        compare(key, "value of account and positions", sums.AccountValue - start.AccountValue,
                sums.Value - start.Value);
        compare(key, "profit of account and positions", sums.AccountProfit - start.AccountProfit,
                profit);
        compare(key, "equity against profit", sums.Equity - start.Equity, profit);
    }
    for (const auto& [account, cash] : totals) {
        const TKey key{account, ""};
        const auto start = FStart.find(key);
        compare(key, "cash of all currencies",
                now[key].Cash - (start != FStart.end() ? start->second.Cash : 0.0), cash);
    }
    return faults;
}

} // namespace quorin
