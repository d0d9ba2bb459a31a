#include "embedded/AccountFileParts.h"
#include "embedded/CurrencyService.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

constexpr TCsvColumn CurrencyColumns[] = {{"code", true}, {"ratio", true}};
constexpr TCsvColumn BalanceKeyColumns[] = {{"account", true}, {"currency", true}};

// Attributes that follow from other figures or from the account.
constexpr Integer DerivedAttributes[] = {4, AccountCodeAttribute, 13, 21, 23, 104, 189, 9018};

const TBalanceColumn* FindFigure(std::string_view name) {
    const auto* found = std::find_if(std::begin(BalanceColumns), std::end(BalanceColumns),
                                     [&](const auto& column) { return column.Name == name; });
    return found != std::end(BalanceColumns) ? found : nullptr;
}

// The attribute that a column holds as text; 0 for a column that is none.
Integer AttributeOf(std::string_view name) {
    Integer attribute = 0;
    const bool isPlain = !name.empty() && name[0] >= '1' && name[0] <= '9';
    if (!isPlain || !TryParseInteger(FromUtf8(name), attribute)) return 0;
    const bool isDerived = std::find(std::begin(DerivedAttributes), std::end(DerivedAttributes),
                                     attribute) != std::end(DerivedAttributes);
    return isDerived ? 0 : attribute;
}

bool IsFigureColumn(std::string_view name) {
    return FindFigure(name) != nullptr || AttributeOf(name) > 0;
}

TBalanceFigures ReadFigures(const TCsvTable& table) {
    TBalanceFigures figures;
    for (const std::string& column : table.Columns()) {
        if (const TBalanceColumn* figure = FindFigure(column)) {
            figures.*(figure->Figure) = table.Number(column);
        } else if (AttributeOf(column) > 0 && table.Has(column)) {
            figures.Fields.Add(AttributeOf(column), String(table.Text(column)));
        }
    }
    return figures;
}

} // namespace

void ReadCurrencies(const std::filesystem::path& path, TCurrencyRatioDictionary& currencies) {
    TCsvTable table(path, CurrencyColumns);
    while (table.Next()) {
        const StringView code = table.Code("code");
        const Double ratio = table.Number("ratio");
        if (table.Has("ratio") && ratio <= 0.0) table.FailAt("ratio", "is not above 0");
        if (code == DefaultBaseCurrency && ratio != 1.0) {
            table.FailAt("ratio", "is not 1, as the base currency's must be");
        }
        if (!currencies.Add(code, ratio)) table.FailAt("code", "is there twice");
    }
}

void ReadBalances(const std::filesystem::path& path, const TAccountIndex& index,
                  const TAccountFiles& files, std::vector<TAccountFiles::TBalanceRow>& balances) {
    TCsvTable table(path, BalanceKeyColumns, IsFigureColumn);
    TDictionary<String, TDictionary<String, bool>> seen;
    while (table.Next()) {
        const StringView account = table.Code("account");
        const StringView currency = table.Text("currency");
        if (!index.ContainsKey(account)) table.FailAt("account", "is no account");
        if (!currency.empty() && !files.Currencies.IsEmpty() &&
            !files.Currencies.ContainsKey(currency)) {
            table.FailAt("currency", "is no currency");
        }
        if (!seen.Obtain(account).Add(currency, true)) {
            table.FailAt("currency", "is there twice in one account");
        }
        balances.push_back({String(account), String(currency), ReadFigures(table)});
    }
}

void ReadSubBalances(const std::filesystem::path& path, const TAccountIndex& index,
                     TAccountFiles& files) {
    TCsvTable table(path, BalanceKeyColumns, IsFigureColumn);
    while (table.Next()) {
        const Integer* account = index.Find(table.Text("account"));
        if (account == nullptr) table.FailAt("account", "is no account");
        if (files.Accounts[static_cast<std::size_t>(*account)].Details.Type !=
            AccountType::SummedByService) {
            table.FailAt("account", "has no summed records");
        }
    }
    ReadBalances(path, index, files, files.SubBalances);
}

} // namespace quorin
