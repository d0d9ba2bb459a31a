#include "embedded/AccountFiles.h"

#include "embedded/DataError.h"
#include "platform/rtl/Numbers.h"

#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"
#include "viewdata/services/ChinaConnect.h"

#include <cmath>
#include <filesystem>
#include <map>

namespace quorin {
namespace {

using TFiles = std::map<std::string, std::string>;

const TFiles GoodFiles = {
    {"accounts.csv", "account,type,master,name\nM,9,,Master\nS,1,M,\"Sub, first\"\nT,10,,\n"},
    {"currencies.csv", "code,ratio\nHKD,1\nUSD,7.8\nJPY,\n"},
    {"balances.csv", "account,currency,991,9018A,1605\nS,,178,,Ho\nS,HKD,100,,\nS,USD,10,5,\n"},
    {"sub-balances.csv", "account,currency,604\nT,HKD,7\n"},
    {"positions.csv",
     "account,symbol,side,bod-quantity,bod-price,buy-quantity,buy-amount,deposited\n"
     "S,00700,net,-100,350,50,17400,\nM,HSIF,short,2,,1,20000,3\n"},
    {"margin-ratios.csv", "symbol,account,ratio\n00700,,0.6\n00700,S,0.7\n00005,,\n"},
    {"margins.csv", "code,200,215\nHSIF,-500,\nHSI*,,0\n"},
    {"china-connect.csv", "kind,code,connect-account\nexchange,SSE,\naccount,S,T\n"},
    {"custom-values.csv", "section,key,value\nqrn_CustomAccountInfo,ProfessionalInvestor,PI\n"},
};

class AccountFilesTest : public TServicesFixture {
protected:
    // The reason without the folder; empty when all was loaded.
    std::string Load(const TFiles& files) {
        const TTempFolder folder;
        for (const auto& [name, content] : files) folder.Write(name, content);
        try {
            Services().LoadAccounts(folder.Path());
        } catch (const EDataError& error) {
            const std::string message = error.what();
            const std::string prefix = folder.Path().string() + "/";
            return message.starts_with(prefix) ? message.substr(prefix.size()) : message;
        }
        return {};
    }
};

TEST_F(AccountFilesTest, GoodFilesReachEveryService) {
    ASSERT_EQ(Load(GoodFiles), "");
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    EXPECT_EQ(accounts.GetAccountCount(), 3);
    EXPECT_TRUE(accounts.GetAccount(u"M", false)->IsAggregateAccount());
    EXPECT_TRUE(accounts.GetAccount(u"T", false)->IsAggregateAccount());
    const TCustomAccount& sub = *accounts.GetAccount(u"S", false);
    EXPECT_EQ(sub.GetMasterAccount(), u"M");
    EXPECT_EQ(sub.GetName(), u"Sub, first");
    EXPECT_EQ(sub.GetCurrencyCount(), 2);
    EXPECT_EQ(sub.GetAccountData(u"USD")->GetValue9018A(), 5.0);
    EXPECT_EQ(sub.GetAccountData(u"")->FieldText(1605), u"Ho");
    EXPECT_EQ(accounts.GetSubAccountData(u"T", u"HKD")->GetValue604(), 7.0);
    EXPECT_EQ(accounts.GetCustomAccountValue(CustomAccountInfoSection, ProfessionalInvestorKey),
              u"PI");

    const TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    EXPECT_TRUE(currencies.IsMultiCurrency());
    EXPECT_EQ(currencies.GetCurrencyRatio(u"USD"), 7.8);
    EXPECT_EQ(currencies.GetCurrencyRatio(u"JPY"), 0.0);

    TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    const TCustomPositionData& shares = *positions.GetPosition(u"S", u"00700");
    EXPECT_EQ(shares.GetQuantity(), -50.0);
    EXPECT_EQ(shares.GetSide(), TPositionSide::Net);
    const TCustomPositionData& future = *positions.GetPosition(u"M", u"HSIF");
    EXPECT_EQ(future.GetQuantity(), 4.0) << "a buy takes from a short record";
    EXPECT_EQ(future.GetSide(), TPositionSide::Short);
    EXPECT_EQ(future.GetProdType(), ProductType::Futures) << "by the universe";

    const TCustomProductAdapter& products = *TCustomProductAdapter::GetInstance();
    EXPECT_EQ(products.GetProductData(u"00700", u"S")->GetMarginRatio(), 0.7);
    EXPECT_FALSE(products.GetProductData(u"00005", u"S")->HasMarginRatio());
    const TCustomSubItem& margin = *TCustomSubscribeAdapter::GetInstance()->GetSubItem(
        u"SPAN_HSIF", LiveDataType, /*Flag=*/true);
    Services().Deliver();
    EXPECT_EQ(margin.GetFieldDouble(200), -500.0);
    EXPECT_TRUE(IsChinaConnectOn());
    EXPECT_TRUE(IsChinaConnectExchange(u"SSE"));
    EXPECT_EQ(GetChinaConnectAccount(u"S"), u"T");
}

TEST_F(AccountFilesTest, OneFaultLoadsNothing) {
    struct TCase {
        const char* Name;
        const char* File;
        std::string Content;
        std::string Reason; // behind the file
    };
    const std::string connect = "kind,code,connect-account\n";
    const std::string positions = "account,symbol,side,bod-quantity,buy-quantity,buy-amount\n";
    const TCase cases[] = {
        {"empty", "accounts.csv", "", ": the file is empty"},
        {"binary", "accounts.csv",
         std::string("\x7f"
                     "ELF\x02\x01\x00\x00\n",
                     9),
         ":1: a field has a control character"},
        {"binary row", "balances.csv", "account,currency\nS,\xff\xfe\n",
         ":2: a field is no UTF-8 text"},
        {"damaged", "accounts.csv", "account,name\nA,\"Chan\n", ":2: a quote is not closed"},
        {"truncated", "accounts.csv", "account,type,name\nA,9,Chan\nB,1",
         ":3: 2 fields where the header has 3"},
        {"unknown column", "accounts.csv", "account,colour\n", ":1: there is no column \"colour\""},
        {"column missing", "positions.csv", "account,symbol,side\n",
         ":1: the column \"bod-quantity\" is missing"},
        {"column twice", "currencies.csv", "code,ratio,code\n",
         ":1: the column \"code\" is there twice"},
        {"no code", "accounts.csv", "account,name\n,Chan\n", ":2: the column \"account\" is empty"},
        {"account twice", "accounts.csv", "account\nA\nB\nA\n",
         ":4: \"A\" in column \"account\" is there twice"},
        {"type no number", "accounts.csv", "account,type\nA,master\n",
         ":2: \"master\" in column \"type\" is no whole number"},
        {"margin type", "accounts.csv", "account,margin-type\nA,3\n",
         ":2: \"3\" in column \"margin-type\" is no margin type"},
        {"principal", "accounts.csv", "account,principal\nA,H\n",
         ":2: \"H\" in column \"principal\" is no principal type"},
        {"status", "accounts.csv", "account,status\nA,-1\n",
         ":2: \"-1\" in column \"status\" is below 0"},
        {"unknown master", "accounts.csv", "account,master\nA,X\n",
         ":2: \"X\" in column \"master\" is no account"},
        {"sub-account of itself", "accounts.csv", "account,master\nA,A\n",
         ":2: \"A\" in column \"master\" is the account itself"},
        {"no master account", "accounts.csv", "account,master,type\nA,,1\nB,A,1\n",
         ":3: \"A\" in column \"master\" is no master account"},
        {"master with a master", "accounts.csv", "account,master,type\nA,,9\nB,A,9\n",
         ":3: a master account has a master"},
        {"currency twice", "currencies.csv", "code,ratio\nUSD,7.8\nUSD,7.9\n",
         ":3: \"USD\" in column \"code\" is there twice"},
        {"ratio of 0", "currencies.csv", "code,ratio\nUSD,0\n",
         ":2: \"0\" in column \"ratio\" is not above 0"},
        {"ratio no number", "currencies.csv", "code,ratio\nUSD,nan\n",
         ":2: \"nan\" in column \"ratio\" is no number"},
        {"base currency", "currencies.csv", "code,ratio\nHKD,2\n",
         ":2: \"2\" in column \"ratio\" is not 1, as the base currency's must be"},
        {"balance of nobody", "balances.csv", "account,currency\nX,HKD\n",
         ":2: \"X\" in column \"account\" is no account"},
        {"balance currency", "balances.csv", "account,currency\nS,XXX\n",
         ":2: \"XXX\" in column \"currency\" is no currency"},
        {"balance twice", "balances.csv", "account,currency\nS,HKD\nS,\nS,HKD\n",
         ":4: \"HKD\" in column \"currency\" is there twice in one account"},
        {"balance figure", "balances.csv", "account,currency,991\nS,,1-\n",
         ":2: \"1-\" in column \"991\" is no number"},
        {"derived attribute", "balances.csv", "account,currency,189\n",
         ":1: there is no column \"189\""},
        {"summed record", "sub-balances.csv", "account,currency\nM,\n",
         ":2: \"M\" in column \"account\" has no summed records"},
        {"position of nobody", "positions.csv", positions + "X,00700,net,1,,\n",
         ":2: \"X\" in column \"account\" is no account"},
        {"unknown symbol", "positions.csv", positions + "S,00701,net,1,,\n",
         ":2: \"00701\" in column \"symbol\" is no symbol of the universe"},
        {"no such side", "positions.csv", positions + "S,00700,Net,1,,\n",
         ":2: \"Net\" in column \"side\" is none of net, long, short"},
        {"symbol twice", "positions.csv", positions + "S,HSIF,long,1,,\nS,HSIF,short,1,,\n",
         ":3: \"HSIF\" in column \"symbol\" is there twice in one account"},
        {"negative long record", "positions.csv", positions + "S,HSIF,long,-1,,\n",
         ":2: \"-1\" in column \"bod-quantity\" is below 0 in a sided record"},
        {"more closed than held", "positions.csv", positions + "S,HSIF,short,1,2,40000\n",
         ":2: more was closed than there was"},
        {"bought for nothing", "positions.csv", positions + "S,00700,net,1,2,\n",
         ":2: of \"buy-quantity\" and \"buy-amount\" only one is above 0"},
        {"negative trades", "positions.csv", positions + "S,00700,net,1,-2,\n",
         ":2: \"-2\" in column \"buy-quantity\" is below 0"},
        {"margin ratio of 0", "margin-ratios.csv", "symbol,account,ratio\n00700,,0\n",
         ":2: \"0\" in column \"ratio\" is not above 0"},
        {"margin ratio above 1", "margin-ratios.csv", "symbol,account,ratio\n00700,,60\n",
         ":2: \"60\" in column \"ratio\" is above 1"},
        {"margin ratio twice", "margin-ratios.csv", "symbol,account,ratio\n00700,S,1\n00700,S,1\n",
         ":3: \"00700\" in column \"symbol\" is there twice"},
        {"margin ratio of nobody", "margin-ratios.csv", "symbol,account,ratio\n00700,X,1\n",
         ":2: \"X\" in column \"account\" is no account"},
        {"margin field", "margins.csv", "code,216\n", ":1: there is no column \"216\""},
        {"margin without figures", "margins.csv", "code,200\nHSI,\n",
         ":2: \"HSI\" in column \"code\" has no figures"},
        {"margin twice", "margins.csv", "code,200\nHSI,1\nHSI,1\n",
         ":3: \"HSI\" in column \"code\" is there twice"},
        {"connect kind", "china-connect.csv", connect + "market,SSE,\n",
         ":2: \"market\" in column \"kind\" is neither exchange nor account"},
        {"connect account", "china-connect.csv", connect + "account,S,X\n",
         ":2: \"X\" in column \"connect-account\" is no account"},
        {"connected with itself", "china-connect.csv", connect + "account,S,S\n",
         ":2: \"S\" in column \"connect-account\" is the account itself"},
        {"custom value twice", "custom-values.csv", "section,key,value\na,b,1\na,b,2\n",
         ":3: \"b\" in column \"key\" is there twice"},
    };
    for (const TCase& row : cases) {
        TFiles files = GoodFiles;
        files[row.File] = row.Content;
        EXPECT_EQ(Load(files), row.File + row.Reason) << row.Name;
        EXPECT_EQ(TCustomAccountAdapter::GetInstance()->GetAccountCount(), 0) << row.Name;
        EXPECT_EQ(TCustomCurrencyAdapter::GetInstance()->GetCurrencyRatio(u"USD"), 0.0) << row.Name;
    }
    TFiles files = GoodFiles;
    files.erase("accounts.csv");
    EXPECT_EQ(Load(files), "accounts.csv: cannot be read");
}

TEST_F(AccountFilesTest, OnlyTheAccountsMustBeThere) {
    EXPECT_EQ(Load({{"accounts.csv", "account\nA\n"}}), "");
    EXPECT_TRUE(TCustomAccountAdapter::GetInstance()->IsAccountKnown(u"A"));
    EXPECT_FALSE(IsChinaConnectOn());
}

TEST(AccountSwitches, EachClosesWhatItNames) {
    TRecordingHost host;
    TServiceSwitches switches;
    switches.LoggedOut = true;
    switches.AccountsReadyAfter = 1;
    switches.LateAccountDetails = true;
    switches.SingleCurrency = true;
    switches.NoChinaConnect = true;
    TEmbeddedServices services({.Host = host, .Switches = switches});
    const TTempFolder folder;
    for (const auto& [name, content] : GoodFiles) folder.Write(name, content);
    services.LoadAccounts(folder.Path());
    EXPECT_FALSE(TCustomLoginCtrl::GetInstance()->IsLogin());
    EXPECT_FALSE(TCustomAccountAdapter::GetInstance()->IsAccountReady());
    EXPECT_FALSE(TCustomCurrencyAdapter::GetInstance()->IsMultiCurrency());
    EXPECT_FALSE(IsChinaConnectOn());
    services.Deliver();
    const TCustomAccount* account = TCustomAccountAdapter::GetInstance()->GetAccount(u"S", true);
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(account->GetCurrencyCount(), 0);
    EXPECT_NE(account->GetAccountData(u""), nullptr);
    EXPECT_EQ(account->GetAccountData(u"HKD"), nullptr);
}

// The accounts that are shipped.
class ShippedAccountsTest : public ::testing::Test {
protected:
    ShippedAccountsTest()
        : FServices({.Host = FHost}),
          FFiles(ReadAccountFiles(std::filesystem::path(QUORIN_DATA_DIR) / "accounts", nullptr)) {
        FServices.LoadAccounts(std::filesystem::path(QUORIN_DATA_DIR) / "accounts");
        FServices.Deliver();
    }
    static const TCustomAccount& Account(StringView code) {
        return *TCustomAccountAdapter::GetInstance()->GetAccount(code, false);
    }

    TRecordingHost FHost;
    TEmbeddedServices FServices;
    TAccountFiles FFiles;
};

TEST_F(ShippedAccountsTest, TotalsAreTheSumOfTheCurrencies) {
    const TCustomCurrencyAdapter& currencies = *TCustomCurrencyAdapter::GetInstance();
    const auto check = [&](const std::vector<TAccountFiles::TBalanceRow>& rows) {
        for (const auto& total : rows) {
            if (!total.Currency.empty()) continue;
            for (const TBalanceColumn& column : BalanceColumns) {
                Double sum = 0.0;
                for (const auto& row : rows) {
                    if (row.Account != total.Account || row.Currency.empty()) continue;
                    sum += row.Figures.*(column.Figure) * currencies.GetCurrencyRatio(row.Currency);
                }
                EXPECT_NEAR(total.Figures.*(column.Figure), sum, 0.011)
                    << ToUtf8(total.Account) << ' ' << column.Name;
            }
        }
    };
    check(FFiles.Balances);
    check(FFiles.SubBalances);
    for (const auto& row : FFiles.Accounts) {
        const bool isBehindAnother = row.Code == GetChinaConnectAccount(u"C30001");
        EXPECT_GE(Account(row.Code).GetCurrencyCount(), isBehindAnother ? 1 : 3)
            << ToUtf8(row.Code);
        EXPECT_NE(Account(row.Code).GetAccountData(u""), nullptr) << ToUtf8(row.Code);
    }
}

TEST_F(ShippedAccountsTest, EveryKindOfAccountIsThere) {
    TAccountDictionary subAccounts;
    TCustomAccountAdapter& accounts = *TCustomAccountAdapter::GetInstance();
    accounts.GetSubAccountList(u"M88001", subAccounts);
    String marginTypes;
    for (const auto& item : subAccounts) marginTypes += IntegerToText(item.Value->GetMarginType());
    EXPECT_EQ(marginTypes, u"1025");
    EXPECT_EQ(Account(u"M88001").GetAccountType(), AccountType::Master);
    EXPECT_NE(accounts.GetSubAccountData(u"T10020", u""), nullptr);
    EXPECT_EQ(Account(u"F70001").GetPrincipalType() + Account(u"F70002").GetPrincipalType() +
                  Account(u"F70003").GetPrincipalType(),
              u"ASG");
    EXPECT_EQ(Account(u"P50001").GetProfessionalFlag(accounts.GetCustomAccountValue(
                  CustomAccountInfoSection, ProfessionalInvestorKey)),
              u"1");
    EXPECT_FALSE(Account(u"P50001").GetAccountData(u"JPY")->IsConvertible());
    EXPECT_EQ(GetChinaConnectAccount(u"C30001"), u"C30001-CC");

    Integer statusBits = 0;
    for (const auto& row : FFiles.Accounts) statusBits |= row.Details.Status;
    EXPECT_EQ(statusBits & (AccountStatus::Suspended | AccountStatus::SellOnly),
              AccountStatus::Suspended | AccountStatus::SellOnly);
}

TEST_F(ShippedAccountsTest, PositionsOfAllSides) {
    const TCustomPositionAdapter& positions = *TCustomPositionAdapter::GetInstance();
    const auto side = [&](StringView account, StringView symbol) {
        return positions.GetPosition(account, symbol)->GetSide();
    };
    EXPECT_EQ(side(u"M88001", u"CU2612"), TPositionSide::Short);
    EXPECT_EQ(side(u"M88001-01", u"CU2612"), TPositionSide::Long);
    bool hasNetShort = false;
    for (const auto& row : FFiles.Positions) {
        const bool isSided = row.Figures.Side != TPositionSide::Net;
        const String& symbol = row.Symbol; // of a metal: two letters, year and month
        const bool isMetal = symbol.size() == 6 && symbol[0] > u'9' && symbol[2] <= u'9';
        EXPECT_EQ(isSided, isMetal) << ToUtf8(symbol);
        hasNetShort |= !isSided && row.Figures.Quantity < 0.0;
    }
    EXPECT_TRUE(hasNetShort);
}

} // namespace
} // namespace quorin
