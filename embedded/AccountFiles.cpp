#include "embedded/AccountFiles.h"

#include "embedded/AccountFileParts.h"
#include "embedded/DataFile.h"

namespace quorin {

namespace {

constexpr TCsvColumn AccountColumns[] = {
    {"account", true},  {"tag"},         {"name"},   {"type"},
    {"master"},         {"margin-type"}, {"tel"},    {"home-tel"},
    {"mobile"},         {"national-id"}, {"gender"}, {"title"},
    {"principal"},      {"status"},      {"group"},  {"investor-class"},
    {"client-feature"},
};
constexpr TCsvColumn CustomValueColumns[] = {{"section", true}, {"key", true}, {"value", true}};
constexpr TCsvColumn ConnectColumns[] = {{"kind", true}, {"code", true}, {"connect-account", true}};

constexpr StringView ExchangeKind = u"exchange";
constexpr StringView AccountKind = u"account";

bool IsPrincipal(StringView text) {
    return text.empty() || text == PrincipalType::Arbitrage || text == PrincipalType::Speculation ||
           text == PrincipalType::Hedge;
}

bool IsMarginType(Integer type) {
    return type == MarginType::Cash || type == MarginType::Margin ||
           type == MarginType::Custodian || type == MarginType::DVP;
}

TAccountDetails ReadDetails(const TCsvTable& table) {
    TAccountDetails details;
    details.Tag = table.Text("tag");
    details.Name = table.Text("name");
    details.Type = table.Whole("type");
    details.MasterAccount = table.Text("master");
    details.MarginType = table.Whole("margin-type");
    details.PrincipalType = table.Text("principal");
    details.IsAggregate =
        details.Type == AccountType::Master || details.Type == AccountType::SummedByService;
    details.Status = table.Whole("status");
    details.Tel = table.Text("tel");
    details.HomeTel = table.Text("home-tel");
    details.Mobile = table.Text("mobile");
    details.NationalID = table.Text("national-id");
    details.Gender = table.Text("gender");
    details.Title = table.Text("title");
    details.GroupID = table.Text("group");
    details.InvestorClass = table.Text("investor-class");
    if (table.Has("client-feature")) {
        details.Fields.Add(ClientFeatureKey, String(table.Text("client-feature")));
    }
    return details;
}

void CheckDetails(const TCsvTable& table, StringView code, const TAccountDetails& details) {
    if (details.Type < 0) table.FailAt("type", "is below 0");
    if (details.Status < 0) table.FailAt("status", "is below 0");
    if (!IsMarginType(details.MarginType)) table.FailAt("margin-type", "is no margin type");
    if (!IsPrincipal(details.PrincipalType)) table.FailAt("principal", "is no principal type");
    if (details.MasterAccount == code) table.FailAt("master", "is the account itself");
    if (!details.MasterAccount.empty() && details.Type == AccountType::Master) {
        table.Fail("a master account has a master");
    }
}

// Read a second time, since a master may stand after its sub-accounts.
void CheckMasters(TCsvTable table, const TAccountFiles& files, const TAccountIndex& index) {
    while (table.Next()) {
        if (!table.Has("master")) continue;
        const Integer* master = index.Find(table.Text("master"));
        if (master == nullptr) table.FailAt("master", "is no account");
        const auto& details = files.Accounts[static_cast<std::size_t>(*master)].Details;
        if (details.Type != AccountType::Master) table.FailAt("master", "is no master account");
    }
}

TAccountIndex ReadAccounts(const std::filesystem::path& path, TAccountFiles& files) {
    TAccountIndex index;
    TCsvTable table(path, AccountColumns);
    while (table.Next()) {
        const String code(table.Code("account"));
        const TAccountDetails details = ReadDetails(table);
        CheckDetails(table, code, details);
        if (!index.Add(code, static_cast<Integer>(files.Accounts.size()))) {
            table.FailAt("account", "is there twice");
        }
        files.Accounts.push_back({code, details});
    }
    CheckMasters(TCsvTable(path, AccountColumns), files, index);
    return index;
}

void ReadChinaConnect(const std::filesystem::path& path, const TAccountIndex& index,
                      TAccountFiles& files) {
    TCsvTable table(path, ConnectColumns);
    while (table.Next()) {
        const StringView kind = table.Text("kind");
        const StringView code = table.Code("code");
        const StringView connect = table.Text("connect-account");
        bool isNew = false;
        if (kind == ExchangeKind) {
            if (!connect.empty()) table.FailAt("connect-account", "belongs to no account");
            isNew = files.ConnectExchanges.Add(code, true);
        } else if (kind == AccountKind) {
            if (!index.ContainsKey(code)) table.FailAt("code", "is no account");
            if (!index.ContainsKey(connect)) table.FailAt("connect-account", "is no account");
            if (connect == code) table.FailAt("connect-account", "is the account itself");
            isNew = files.ConnectAccounts.Add(code, String(connect));
        } else {
            table.FailAt("kind", "is neither exchange nor account");
        }
        if (!isNew) table.FailAt("code", "is there twice");
    }
}

void ReadCustomValues(const std::filesystem::path& path, TAccountFiles& files) {
    TCsvTable table(path, CustomValueColumns);
    while (table.Next()) {
        TAccountFiles::TCustomValueRow row{String(table.Code("section")), String(table.Code("key")),
                                           String(table.Text("value"))};
        for (const auto& known : files.CustomValues) {
            if (known.Section == row.Section && known.Key == row.Key) {
                table.FailAt("key", "is there twice");
            }
        }
        files.CustomValues.push_back(std::move(row));
    }
}

} // namespace

TAccountFiles ReadAccountFiles(const std::filesystem::path& folder,
                               const TCustomMarketAdapter* universe) {
    TAccountFiles files;
    const TAccountIndex index = ReadAccounts(folder / "accounts.csv", files);
    const auto ifThere = [&](const char* name, auto read) {
        if (IsThere(folder / name)) read(folder / name);
    };
    const bool hasUniverse = universe != nullptr && universe->GetExchangeCount() > 0;
    const TCustomMarketAdapter* symbols = hasUniverse ? universe : nullptr;
    using TPath = std::filesystem::path;
    ifThere("currencies.csv", [&](const TPath& path) { ReadCurrencies(path, files.Currencies); });
    ifThere("balances.csv",
            [&](const TPath& path) { ReadBalances(path, index, files, files.Balances); });
    ifThere("sub-balances.csv", [&](const TPath& path) { ReadSubBalances(path, index, files); });
    ifThere("positions.csv",
            [&](const TPath& path) { ReadPositions(path, index, symbols, files.Positions); });
    ifThere("margin-ratios.csv",
            [&](const TPath& path) { ReadMarginRatios(path, index, symbols, files.MarginRatios); });
    ifThere("margins.csv", [&](const TPath& path) { ReadMargins(path, files.Margins); });
    ifThere("china-connect.csv", [&](const TPath& path) { ReadChinaConnect(path, index, files); });
    ifThere("custom-values.csv", [&](const TPath& path) { ReadCustomValues(path, files); });
    return files;
}

} // namespace quorin
