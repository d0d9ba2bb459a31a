#include "embedded/AccountService.h"

#include "tests/support/ServicesFixture.h"

#include <functional>
#include <utility>

namespace quorin {
namespace {

// Writes down the accounts it hears of, "A B; ", or "nil; ".
class TAccountReceiver : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TAccountReceiver::Called>(this); }
    String Take() { return std::exchange(FHeard, String()); }
    void ActInside(std::function<void()> action) { FAction = std::move(action); }

private:
    void Called(Pointer Sender, Pointer) {
        if (Sender == nullptr) FHeard += u"nil";
        if (const auto* accounts = static_cast<const TAccountDictionary*>(Sender)) {
            for (const auto& account : *accounts) FHeard += account.Value->GetAccount() + u" ";
        }
        FHeard += u"; ";
        if (FAction) std::exchange(FAction, nullptr)();
    }

    String FHeard;
    std::function<void()> FAction;
};

class AccountsTest : public TServicesFixture {
protected:
    static TCustomAccountAdapter& Adapter() { return *TCustomAccountAdapter::GetInstance(); }
    TEmbeddedAccountAdapter& Accounts() { return Services().Accounts(); }
    static String SubAccounts(StringView account) {
        TAccountDictionary list;
        Adapter().GetSubAccountList(account, list);
        String text;
        for (const auto& item : list) text += item.Key + u" ";
        return text;
    }
};

TEST_F(AccountsTest, WhatIsAddedInsideACallWaitsForTheNextDelivery) {
    Accounts().FeedAccount(u"A");
    Accounts().FeedAccount(u"B");
    Services().Deliver();
    TAccountReceiver moves;
    TAccountReceiver ofAll;
    Adapter().ChangeAccountCallback(u"A", moves.Event(), &moves, u"");
    moves.ActInside([&] {
        Adapter().ChangeAccountCallback(u"B", moves.Event(), &moves, u"A");
        Adapter().AddAllAccountCallback(ofAll.Event(), &ofAll);
    });
    for (const String expected : {u"", u"A B ; "}) {
        Accounts().FeedBalance(u"A", u"", {});
        Accounts().FeedBalance(u"B", u"", {});
        Services().Deliver();
        EXPECT_EQ(moves.Take(), u"A B ; ");
        EXPECT_EQ(ofAll.Take(), expected);
    }
    Adapter().RemoveAccountCallback(u"B", &moves);
    Adapter().RemoveAllAccountCallback(&ofAll);
}

TEST_F(AccountsTest, OneRecordPerCurrency) {
    TCountingReceiver receiver;
    TCustomCurrencyAdapter::GetInstance()->AddMultiCurrencyInfoCallback(receiver.Event(),
                                                                        &receiver);
    Accounts().FeedAccount(u"A");
    const TCustomAccount& account = *Adapter().GetAccount(u"A", false);
    EXPECT_EQ(account.GetAccountData(u""), nullptr);
    EXPECT_EQ(account.GetCurrencyCount(), 0);
    EXPECT_FALSE(Accounts().FeedBalance(u"B", u"HKD", {}));

    Accounts().FeedBalance(u"A", u"", {.Value991 = 100.0});
    Services().Deliver();
    EXPECT_EQ(receiver.Count(), 0) << "the total record belongs to no currency";
    Accounts().FeedBalance(u"A", u"USD", {.Value991 = 10.0});
    Accounts().FeedBalance(u"A", u"HKD", {.Value991 = 20.0});
    Services().Deliver();
    EXPECT_EQ(receiver.Count(), 1);
    TCustomAccountData* const usd = account.GetAccountData(u"USD");
    ASSERT_NE(usd, nullptr);
    EXPECT_EQ(usd->GetAccount(), u"A");
    EXPECT_EQ(usd->GetCurrency(), u"USD");
    EXPECT_EQ(account.GetAccountData(u"")->GetCurrency(), u"");
    EXPECT_EQ(account.GetCurrencyCount(), 2);
    EXPECT_EQ(account.GetCurrency(0) + account.GetCurrency(1), u"USDHKD");
    EXPECT_EQ(account.GetCurrency(-1) + account.GetCurrency(2), u"");
    EXPECT_EQ(account.GetAccountData(u"EUR"), nullptr);

    Accounts().FeedBalance(u"A", u"USD", {.Value991 = 11.0});
    Services().Deliver();
    EXPECT_EQ(receiver.Count(), 1) << "no further currency";
    EXPECT_EQ(account.GetAccountData(u"USD"), usd);
    EXPECT_EQ(usd->GetValue991(), 11.0);
    TCustomCurrencyAdapter::GetInstance()->RemoveMultiCurrencyInfoCallback(&receiver);
}

TEST_F(AccountsTest, DroppedAccountIsToldOfAndOutlivesTheCall) {
    TAccountReceiver own;
    TAccountReceiver ofMaster;
    Accounts().FeedAccount(u"S", {.Name = u"Sub", .MasterAccount = u"M"});
    Accounts().FeedBalance(u"S", u"USD", {.Value991 = 5.0});
    Services().Deliver();
    Adapter().ChangeAccountCallback(u"S", own.Event(), &own, u"");
    Adapter().AddSubAccountCallback(u"M", ofMaster.Event(), &ofMaster, nullptr);
    const TCustomAccount* account = Adapter().GetAccount(u"S", false);
    const TCustomAccountData* usd = account->GetAccountData(u"USD");
    EXPECT_FALSE(Accounts().DropAccount(u"X"));
    EXPECT_TRUE(Accounts().DropAccount(u"S"));
    EXPECT_EQ(Adapter().GetAccount(u"S", true), nullptr);
    EXPECT_EQ(Adapter().GetAccountCount(), 0);
    EXPECT_EQ(SubAccounts(u"M"), u"");
    EXPECT_FALSE(Accounts().FeedBalance(u"S", u"USD", {}));
    Services().Deliver();
    EXPECT_EQ(own.Take() + ofMaster.Take(), u"S ; S ; ");
    EXPECT_EQ(account->GetName(), u"Sub");
    EXPECT_EQ(usd->GetValue991(), 5.0);

    Accounts().FeedAccount(u"S", {.Name = u"New"});
    Services().Deliver();
    EXPECT_EQ(own.Take(), u"S ; ");
    EXPECT_EQ(Adapter().GetAccount(u"S", false)->GetName(), u"New");
    Adapter().RemoveAccountCallback(u"S", &own);
    Adapter().RemoveSubAccountCallback(u"M", &ofMaster);
}

TEST_F(AccountsTest, EachFigureHasItsOperation) {
    TBalanceFigures figures;
    Double number = 1.0;
    for (const TBalanceColumn& column : BalanceColumns) figures.*(column.Figure) = number++;
    figures.Fields.Add(1605, u"Ho");
    Accounts().FeedAccount(u"A");
    Accounts().FeedBalance(u"A", u"USD", figures);
    const TCustomAccountData& data = *Adapter().GetAccount(u"A", false)->GetAccountData(u"USD");
    const Double values[] = {
        data.GetValue155(),   data.GetValue156(),  data.GetValue185(),  data.GetValue186(),
        data.GetValue445(),   data.GetValue446(),  data.GetValue604(),  data.GetValue606(),
        data.GetValue607(),   data.GetValue990(),  data.GetValue991(),  data.GetValue996(),
        data.GetValue1205(),  data.GetValue1502(), data.GetValue1503(), data.GetValue9018A(),
        data.GetValue9018B(), data.GetValue9028(),
    };
    Double expected = 1.0;
    for (const Double value : values) EXPECT_EQ(value, expected++);
    EXPECT_EQ(data.FieldText(10), u"A");
    EXPECT_EQ(data.FieldText(1605), u"Ho");
    EXPECT_EQ(data.FieldText(1606), u"");
}

TEST_F(AccountsTest, ConvertibleWithARatio) {
    Accounts().FeedAccount(u"A");
    for (const StringView currency : {u"", u"HKD", u"USD", u"JPY"}) {
        Accounts().FeedBalance(u"A", currency, {});
    }
    Services().Currencies().FeedRatio(u"USD", 7.8);
    Services().Currencies().FeedRatio(u"JPY", 0.0);
    const TCustomAccount& account = *Adapter().GetAccount(u"A", false);
    EXPECT_TRUE(account.GetAccountData(u"")->IsConvertible());
    EXPECT_TRUE(account.GetAccountData(u"HKD")->IsConvertible());
    EXPECT_TRUE(account.GetAccountData(u"USD")->IsConvertible());
    EXPECT_FALSE(account.GetAccountData(u"JPY")->IsConvertible());
    Services().Currencies().FeedRatio(u"JPY", 0.05);
    EXPECT_TRUE(account.GetAccountData(u"JPY")->IsConvertible());
}

TEST_F(AccountsTest, SummedRecordsBelongToOneType) {
    Accounts().FeedAccount(u"T", {.Type = AccountType::SummedByService});
    Accounts().FeedAccount(u"M", {.Type = AccountType::Master});
    for (const StringView account : {u"T", u"M"}) {
        Accounts().FeedBalance(account, u"HKD", {.Value604 = 1.0});
        EXPECT_TRUE(Accounts().FeedSubAccountData(account, u"HKD", {.Value604 = 5.0}));
    }
    EXPECT_FALSE(Accounts().FeedSubAccountData(u"X", u"HKD", {}));
    ASSERT_NE(Adapter().GetSubAccountData(u"T", u"HKD"), nullptr);
    EXPECT_EQ(Adapter().GetSubAccountData(u"T", u"HKD")->GetValue604(), 5.0);
    EXPECT_EQ(Adapter().GetAccount(u"T", false)->GetAccountData(u"HKD")->GetValue604(), 1.0);
    EXPECT_EQ(Adapter().GetSubAccountData(u"T", u"USD"), nullptr);
    EXPECT_EQ(Adapter().GetSubAccountData(u"M", u"HKD"), nullptr);
    EXPECT_EQ(Adapter().GetSubAccountData(u"", u"HKD"), nullptr);
}

TEST_F(AccountsTest, ProfessionalInvestorsAreTheOnesOfTheClass) {
    Accounts().FeedAccount(u"P", {.InvestorClass = u"pi"});
    Accounts().FeedAccount(u"R", {.InvestorClass = u"RI"});
    Accounts().FeedAccount(u"N");
    const auto flag = [&](StringView account) {
        return Adapter()
            .GetAccount(account, true)
            ->GetProfessionalFlag(
                Adapter().GetCustomAccountValue(CustomAccountInfoSection, ProfessionalInvestorKey));
    };
    EXPECT_EQ(flag(u"P") + flag(u"R") + flag(u"N"), u"") << "no class is named";
    Accounts().SetCustomAccountValue(CustomAccountInfoSection, ProfessionalInvestorKey, u"PI");
    EXPECT_EQ(flag(u"P"), u"1");
    EXPECT_EQ(flag(u"R"), u"");
    EXPECT_EQ(flag(u"N"), u"");
    EXPECT_EQ(Adapter().GetCustomAccountValue(u"Other", ProfessionalInvestorKey), u"");
}

TEST_F(AccountsTest, LateDetailsComeWithTheDeliveryAfterSomebodyAsked) {
    TAccountReceiver receiver;
    Adapter().AddAccountInfoLoadCallback(receiver.Event(), &receiver);
    TAccountDetails details{.Name = u"Chan", .MarginType = MarginType::Margin, .Status = 4};
    details.Tel = u"5550";
    details.GroupID = u"G";
    details.Fields.Add(ClientFeatureKey, u"2");
    Accounts().SetDetailsLate(true);
    Accounts().FeedAccount(u"A", details);
    Accounts().FeedAccount(u"B", details);
    Services().Deliver();
    const TCustomAccount& account = *Adapter().GetAccount(u"A", false);
    const auto shown = [&] {
        return account.GetName() + u"|" + account.GetTel() + u"|" + account.GetAccountGroupID() +
               u"|" + account.GetAccountField(ClientFeatureKey);
    };
    Services().Deliver();
    EXPECT_EQ(receiver.Take(), u"") << "nobody asked";
    EXPECT_EQ(shown(), u"Chan|||");
    EXPECT_EQ(account.GetMarginType(), MarginType::Margin);
    EXPECT_EQ(account.GetAccountStatus(), 4);

    Adapter().GetAccount(u"A", true);
    Adapter().GetAccount(u"A", true);
    EXPECT_EQ(shown(), u"Chan|||") << "not inside the call";
    Services().Deliver();
    EXPECT_EQ(shown(), u"Chan|5550|G|2");
    EXPECT_EQ(receiver.Take(), u"A ; ");
    EXPECT_EQ(account.GetAccountField(u"Other"), u"");

    details.Tel = u"5551";
    Accounts().FeedAccount(u"A", details);
    Adapter().GetAccount(u"A", true);
    Services().Deliver();
    EXPECT_EQ(account.GetTel(), u"5551") << "loaded once";
    EXPECT_EQ(receiver.Take(), u"");
    Adapter().RemoveAccountInfoLoadCallback(&receiver);
}

TEST_F(AccountsTest, NothingIsKnownBeforeTheListIsReady) {
    TAccountReceiver ready;
    TAccountReceiver changed;
    TAccountReceiver loaded;
    Adapter().AddAccountReadyCallback(ready.Event(), &ready);
    Adapter().ChangeAccountCallback(u"S", changed.Event(), &changed, u"");
    Adapter().AddSubAccountLoadCallback(loaded.Event(), &loaded);
    Accounts().SetReadyAfter(2);
    Accounts().FeedAccount(u"M", {.Type = AccountType::Master});
    Accounts().FeedAccount(u"S", {.MasterAccount = u"M"});
    Accounts().FeedAccount(u"T", {.Tag = u"TRI", .Type = AccountType::SummedByService});
    Accounts().FeedSubAccountData(u"T", u"HKD", {});
    String filter;
    for (int delivery = 0; delivery < 2; ++delivery) {
        EXPECT_FALSE(Adapter().IsAccountReady());
        EXPECT_EQ(Adapter().GetAccountCount(), 0);
        EXPECT_EQ(Adapter().GetAccountByIndex(0), nullptr);
        EXPECT_FALSE(Adapter().IsAccountKnown(u"M"));
        EXPECT_EQ(Adapter().GetAccount(u"M", true), nullptr);
        EXPECT_EQ(Adapter().FindAccountByText(u"M"), u"");
        EXPECT_EQ(Adapter().GetSubAccountData(u"T", u"HKD"), nullptr);
        EXPECT_EQ(SubAccounts(u"M"), u"");
        Adapter().RequestAccountList(filter, true);
        EXPECT_EQ(ready.Take() + changed.Take() + loaded.Take(), u"");
        Services().Deliver();
    }
    EXPECT_TRUE(Adapter().IsAccountReady());
    EXPECT_EQ(ready.Take(), u"nil; ");
    EXPECT_EQ(changed.Take(), u"M S T ; ");
    EXPECT_EQ(loaded.Take(), u"S ; ");
    EXPECT_EQ(Adapter().GetAccountCount(), 3);
    EXPECT_EQ(Adapter().GetAccountByIndex(1), Adapter().GetAccount(u"S", false));
    EXPECT_EQ(Adapter().GetAccountByIndex(3), nullptr);
    EXPECT_EQ(SubAccounts(u"M"), u"S ");
    EXPECT_NE(Adapter().GetSubAccountData(u"T", u"HKD"), nullptr);
    EXPECT_EQ(Adapter().FindAccountByText(u" tri "), u"T") << "by tag";
    EXPECT_EQ(Adapter().FindAccountByText(u" "), u"");

    Adapter().RequestAccountList(filter, false);
    Services().Deliver();
    EXPECT_EQ(ready.Take(), u"") << "the list is there";
    Adapter().RequestAccountList(filter, true);
    Services().Deliver();
    EXPECT_EQ(ready.Take(), u"nil; ");
    Adapter().RemoveAccountReadyCallback(&ready);
    Adapter().RemoveAccountCallback(u"S", &changed);
    Adapter().RemoveSubAccountLoadCallback(&loaded);
}

TEST_F(AccountsTest, AMasterHearsOfWhatLeavesIt) {
    TAccountReceiver master;
    Accounts().FeedAccount(u"M");
    Accounts().FeedAccount(u"S", {.MasterAccount = u"M"});
    Adapter().AddSubAccountCallback(u"M", master.Event(), &master, nullptr);
    Services().Deliver();
    master.Take();

    Accounts().FeedAccount(u"S", {.MasterAccount = u"M2"});
    Services().Deliver();
    EXPECT_NE(master.Take(), u"") << "to another master";
    Accounts().FeedAccount(u"S", {.MasterAccount = u"M"});
    Services().Deliver();
    master.Take();
    const TCustomAccount* dropped = Adapter().GetAccount(u"S", false);
    Accounts().DropAccount(u"S");
    Accounts().FeedAccount(u"S", {.MasterAccount = u"M2"});
    for (Integer delivery = 0; delivery < 3; ++delivery) Services().Deliver();
    EXPECT_NE(master.Take(), u"") << "dropped, and back elsewhere";
    EXPECT_EQ(dropped->GetAccount(), u"S") << "stays readable";
    Adapter().RemoveSubAccountCallback(u"M", &master);
}

TEST_F(AccountsTest, RatiosByAccountAndForAll) {
    const TCustomProductAdapter& products = *TCustomProductAdapter::GetInstance();
    Services().Products().FeedProduct(u"00700", u"").SetMarginRatio(0.6);
    Services().Products().FeedProduct(u"00700", u"P").SetMarginRatio(0.65);
    Services().Products().FeedProduct(u"00005", u"");
    EXPECT_EQ(products.GetProductData(u"00700", u"A")->GetMarginRatio(), 0.6);
    EXPECT_EQ(products.GetProductData(u"00700", u"P")->GetMarginRatio(), 0.65);
    EXPECT_FALSE(products.GetProductData(u"00005", u"P")->HasMarginRatio());
    EXPECT_EQ(products.GetProductData(u"09988", u"P"), nullptr);
}

} // namespace
} // namespace quorin
