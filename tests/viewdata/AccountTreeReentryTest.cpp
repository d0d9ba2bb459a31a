#include "tests/viewdata/AccountTreeFixture.h"

#include <vector>

namespace quorin {
namespace {

using AccountTreeReentryTest = AccountTreeTest;

// A callback inside a look-up rebuilds the tree under the request that looks up.
TEST_F(AccountTreeReentryTest, RebuildInsideARequest) {
    TTalkingAccounts& talking = LetAccountsTalk();
    FeedAccounts();
    View().SetColumnList(&Columns.Make({604, 606}));
    View().SetAccount(u"P");
    const Integer last = View().GetCount() - 1;
    for (const Integer column : {Caption, Value}) {
        for (const bool asText : {false, true}) {
            View().SetColumnList(&Columns.Make({604, 606}));
            const Pointer node = View().GetNode(last);
            talking.InGetAccount = [this] {
                View().SetColumnList(&Columns.Make({607}));
                View().SetAccount(u"M");
                View().SetAccount(u"P");
            };
            if (asText) {
                EXPECT_EQ(View().GetDisplayValue(node, column),
                          column == Caption ? u"US dollar" : u"0.00");
            } else {
                EXPECT_EQ(View().GetValue(node, column),
                          column == Caption ? Variant(u"US dollar") : Variant(0.0));
            }
            EXPECT_EQ(Nodes(), u"607 607-HKD 607-USD");
        }
    }
    // A build that another one overtakes adds nothing.
    Accounts().FeedAccount(u"Q");
    Accounts().FeedBalance(u"Q", u"JPY", {});
    talking.InGetAccount = [this] { View().SetAccount(u"Q"); };
    View().SetAccount(u"M");
    EXPECT_EQ(View().Account(), u"Q");
    EXPECT_EQ(Nodes(), u"607 607-JPY");
}

TEST_F(AccountTreeReentryTest, AccountChosenInsideTheChoiceOfAnother) {
    TTalkingAccounts& talking = LetAccountsTalk();
    FeedAccounts();
    View().SetColumnList(&Columns.Make({604}));
    View().SetAccount(u"M");
    View().SetAggregate();
    struct TCase {
        StringView First, Last;
        Integer Registrations; // of the account, and of the sub-accounts while they are summed
    };
    for (const TCase& row : {TCase{u"M", u"M", 2}, {u"S", u"S", 1}, {u"S", u"M", 1}}) {
        View().SetAccount(u"M");
        talking.InChange = [this, row] {
            View().SetAccount(row.First);
            View().SetAccount(row.Last);
        };
        View().SetAccount(u"P");
        EXPECT_EQ(View().Account(), row.Last) << "the later choice";
        EXPECT_EQ(Accounts().RegistrationCount(), row.Registrations);
        Deliver();
        Signals();
        Accounts().FeedBalance(row.Last, u"USD", {});
        Deliver();
        EXPECT_GE(Signals(), 1) << "the account that is shown is followed";
    }
}

TEST_F(AccountTreeReentryTest, SumStandsAListThatChangesOnTheWay) {
    TTalkingAccounts& talking = LetAccountsTalk();
    FeedAccounts();
    Accounts().FeedAccount(u"S2", {.MasterAccount = u"M"});
    for (const StringView account : {u"M", u"S", u"S2"}) {
        Accounts().FeedBalance(account, u"USD", {.Value604 = 1});
        Services().Features().FeedChinaConnectAccount(account, u"P");
    }
    Accounts().FeedBalance(u"P", u"USD", {.Value604 = 5, .Value996 = -2});
    Services().Features().SetChinaConnect(true);
    View().SetFilterCurr(u"CNY"); // so that the sum looks up accounts on its way
    View().SetAccount(u"M");
    View().SetAggregate();
    TCustomAccountData* usd = Accounts().GetAccount(u"M", false)->GetAccountData(u"USD");
    for (const Integer first : {3, 4}) { // from that look-up on it never keeps still
        for (const Integer attribute : {604, 996}) {
            Integer lookUp = 0;
            std::function<void()> change = [&] {
                if (++lookUp >= first) View().InitAggregateAccountList();
                talking.InGetAccount = change;
            };
            talking.InGetAccount = change;
            EXPECT_EQ(View().GetAggregatedAccountCurrencyData(usd, attribute),
                      Variant(attribute == 604 ? 15.0 : -6.0));
            EXPECT_GT(lookUp, first);
            talking.InGetAccount = nullptr;
        }
    }
}

TEST_F(AccountTreeReentryTest, ReceiverMayFreeTheControl) {
    WithoutCallsInside("the receiver frees the control");
    const TAccountDictionary own = Naming({u"M"});
    struct TCase {
        const char* Name;
        std::function<void()> Action;
    };
    const std::vector<TCase> cases = {
        {"account", [&] { View().SetAccount(u"P"); }},
        {"aggregation", [&] { View().SetAggregate(); }},
        {"filter", [&] { View().SetFilterCurr(u"USD"); }},
        {"display currency", [&] { View().SetCurrency(u"USD"); }},
        {"account news",
         [&] { View().AccountUpdate(const_cast<TAccountDictionary*>(&own), nullptr); }},
        {"currency news", [&] { View().CurrencyListUpdate(nullptr, nullptr); }},
        {"delivery",
         [&] {
             Accounts().FeedBalance(u"M", u"EUR", {});
             Deliver();
         }},
    };
    for (const TCase& row : cases) {
        Make();
        View().SetColumnList(&Columns.Make({604}));
        View().SetAccount(u"M");
        OnSignal([this] { FreeControl(); });
        row.Action();
        EXPECT_TRUE(IsFreed()) << row.Name;
    }
    Make();
}

// At each look-up of each request in turn; nothing of the control may be touched after it.
TEST_F(AccountTreeReentryTest, ControlMayDieInsideALookUp) {
    TTalkingAccounts& talking = LetAccountsTalk();
    FeedAccounts();
    Services().Features().FeedChinaConnectAccount(u"M", u"P");
    Services().Features().FeedChinaConnectAccount(u"S", u"P");
    Services().Features().SetChinaConnect(true);
    struct TCase {
        const char* Name;
        std::function<void()> Action;
        bool IsChange = false; // of the account, and not a look-up
    };
    const std::vector<TCase> cases = {
        {"caption", [&] { View().GetValue(View().GetNode(2), Caption); }},
        {"amount", [&] { View().GetValue(View().GetNode(2), Value); }},
        {"text", [&] { View().GetDisplayValue(View().GetNode(0), Value); }},
        {"shortfall", [&] { View().GetDisplayValue(View().GetNode(1), Value); }},
        {"aggregation", [&] { View().SetAggregate(); }},
        {"another account", [&] { View().SetAccount(u"P"); }},
        {"another account, at its registration", [&] { View().SetAccount(u"P"); }, true},
    };
    for (const TCase& row : cases) {
        bool isFreed = true;
        for (Integer lookUp = 1; isFreed; ++lookUp) {
            Make();
            View().SetColumnList(&Columns.Make({604, 996}));
            View().SetCurrency(u"USD");
            View().SetFilterCurr(u"CNY");
            View().SetAccount(u"M");
            View().SetAggregate();
            Integer left = lookUp;
            std::function<void()> free = [&] {
                if (--left == 0) return FreeControl();
                (row.IsChange ? talking.InChange : talking.InGetAccount) = free;
            };
            (row.IsChange ? talking.InChange : talking.InGetAccount) = free;
            row.Action();
            talking.InGetAccount = talking.InChange = nullptr;
            isFreed = IsFreed();
            EXPECT_TRUE(isFreed || lookUp > 1) << row.Name;
            if (isFreed) {
                EXPECT_EQ(Accounts().RegistrationCount(), 0) << row.Name;
            }
        }
    }
}

} // namespace
} // namespace quorin
