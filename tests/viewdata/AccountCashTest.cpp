#include "platform/widgets/TreeListView.h"
#include "tests/viewdata/AccountFixture.h"
#include "viewdata/frame/TreeDataSource.h"

#include <vector>

namespace quorin {
namespace {

// The master M with the sub-account S, and N without records.
class AccountCashTest : public TAccountFixture<TCustomAccountCashDataControl> {
protected:
    AccountCashTest() {
        FeedAccounts();
        Deliver();
    }

    void FeedAccounts() {
        Accounts().FeedAccount(
            u"M",
            {.Tag = u"Main", .Name = u"Chan", .Type = AccountType::Master, .IsAggregate = true});
        Accounts().FeedAccount(u"S", {.Name = u"Sub", .MasterAccount = u"M"});
        Accounts().FeedAccount(u"N", {.Name = u"New"});
        Accounts().FeedBalance(u"M", u"", {.Value604 = 90, .Value991 = 1000});
        Accounts().FeedBalance(u"M", u"USD", {.Value604 = 7, .Value996 = -3});
        Accounts().FeedBalance(u"M", u"CNY", {.Value604 = 8});
        Accounts().FeedBalance(u"S", u"", {.Value604 = 10, .Value991 = 1});
        Accounts().FeedBalance(u"S", u"USD", {.Value604 = 70, .Value996 = 1});
    }
    // The tree as the view walks it: "M(USD CNY) S(USD) N()".
    String Tree() {
        String text;
        const Pointer root = View().GetRootNode();
        for (Integer index = 0; index < View().GetChildNodeCount(root); ++index) {
            const Pointer node = View().GetChildNode(root, index);
            const auto* account = ObjectAs<TCustomAccount>(node);
            if (index > 0) text += u" ";
            text += (account != nullptr ? account->GetAccount() : u"nil") + u"(";
            for (Integer child = 0; child < View().GetChildNodeCount(node); ++child) {
                const auto* data = ObjectAs<TCustomAccountData>(View().GetChildNode(node, child));
                if (child > 0) text += u" ";
                text += data != nullptr ? data->GetCurrency() : u"nil";
            }
            text += u")";
        }
        return text;
    }
    Pointer Account(StringView code) { return AsPointer(Accounts().GetAccount(code, false)); }
    Pointer Record(StringView code, StringView currency) {
        return AsPointer(Accounts().GetAccount(code, false)->GetAccountData(currency));
    }
};

TEST_F(AccountCashTest, OneAccountOrAll) {
    EXPECT_EQ(Tree(), u"");
    View().SetAccount(u"unknown");
    EXPECT_EQ(Tree(), u"nil()");
    View().SetAccount(u"M");
    EXPECT_EQ(Tree(), u"M(USD CNY)");
    EXPECT_EQ(View().GetCount(), 0) << "the tree has no flat list";
    View().MonitorAllAccount();
    EXPECT_EQ(Tree(), u"M(USD CNY) S(USD) N()");
    View().SetAccount(u"S");
    EXPECT_EQ(Tree(), u"M(USD CNY) S(USD) N()");
}

TEST_F(AccountCashTest, NodesOutside) {
    View().SetAccount(u"M");
    const Pointer root = View().GetRootNode();
    TObject foreign;
    struct TCase {
        const char* Name;
        Pointer Node;
        Integer Index;
        Pointer Child;
        Integer Count;
    };
    const TCase cases[] = {
        {"root, any index", root, 5, Account(u"M"), 1},
        {"root, below 0", root, -1, nullptr, 1},
        {"account, last", Account(u"M"), 1, Record(u"M", u"CNY"), 2},
        {"account, at its count", Account(u"M"), 2, nullptr, 2},
        {"account, below 0", Account(u"M"), -1, nullptr, 2},
        {"account without records", Account(u"N"), 0, nullptr, 0},
        {"record", Record(u"M", u"USD"), 0, nullptr, 0},
        {"foreign object", AsPointer(&foreign), 0, nullptr, 0},
        {"nil", nullptr, 0, nullptr, 0},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(View().GetChildNode(row.Node, row.Index), row.Child) << row.Name;
        EXPECT_EQ(View().GetChildNodeCount(row.Node), row.Count) << row.Name;
    }
    View().MonitorAllAccount();
    EXPECT_EQ(View().GetChildNode(root, 3), nullptr);
    EXPECT_EQ(View().GetChildNode(root, -1), nullptr);
}

TEST_F(AccountCashTest, CellsOfAccountsAndRecords) {
    View().SetAccount(u"M");
    View().SetCurrency(u"USD"); // changes nothing: this tree never converts
    TObject foreign;
    const Pointer master = Account(u"M");
    const Pointer usd = Record(u"M", u"USD");
    const Pointer none = Account(u"N");
    struct TCase {
        const char* Name;
        Pointer Node;
        Integer Column;
        StringView Raw, Text;
        StringView Summed, SummedText;
    };
    const TCase cases[] = {
        {"account's code", master, 10, u"'M'", u"M", u"'M'", u"M"},
        {"account's tag", master, 13, u"'Main'", u"Main", u"'Main'", u"Main"},
        {"account's name", master, 21, u"'Chan'", u"Chan", u"'Chan'", u"Chan"},
        {"account's currency", master, 23, u"'HKD'", u"US dollar", u"'HKD'", u"US dollar"},
        {"account's total", master, 604, u"90", u"90.00", u"100", u"100.00"},
        {"account's ratio", master, 104, u"#0", u"", u"#0", u""},
        {"record's account", usd, 10, u"'M'", u"M", u"'M'", u"M"},
        {"record's tag", usd, 13, u"'Main'", u"Main", u"'Main'", u"Main"},
        {"record's name", usd, 21, u"'Chan'", u"Chan", u"'Chan'", u"Chan"},
        {"record's currency", usd, 23, u"'US dollar'", u"US dollar", u"'US dollar'", u"US dollar"},
        {"record's amount", usd, 604, u"7", u"7.00", u"77", u"77.00"},
        {"record's shortfall", usd, 996, u"-3", u"-3.00", u"-2", u"-2.00"},
        {"no total: code", none, 10, u"'N'", u"N", u"'N'", u"N"},
        {"no total: currency", none, 23, u"'HKD'", u"", u"'HKD'", u""},
        {"no total: tag", none, 13, u"#0", u"", u"#0", u""},
        {"no total: amount", none, 604, u"#0", u"", u"#0", u""},
        {"nil: text", nullptr, 21, u"''", u"", u"''", u""},
        {"nil: amount", nullptr, 604, u"#0", u"", u"#0", u""},
        {"root", View().GetRootNode(), 10, u"''", u"", u"''", u""},
        {"foreign", AsPointer(&foreign), 23, u"''", u"", u"''", u""},
    };
    for (const Boolean summed : {false, true}) {
        if (summed) View().SetAggregate();
        for (const TCase& row : cases) {
            EXPECT_EQ(Kinded(View().GetValue(row.Node, row.Column)), summed ? row.Summed : row.Raw)
                << row.Name;
            EXPECT_EQ(View().GetDisplayValue(row.Node, row.Column),
                      summed ? row.SummedText : row.Text)
                << row.Name;
        }
    }
}

TEST_F(AccountCashTest, ColumnsAreCopiedAndNoNodesAreMade) {
    View().SetAccount(u"M");
    View().SetColumnList(&Columns.Make({604, 606, 604}));
    EXPECT_EQ(View().FColumnList.Count(), 3);
    SetText(Const_ResourceStringTag, u"Caption606", u"Margin");
    EXPECT_EQ(View().GetResourceHeader(606), u"Margin");
    EXPECT_TRUE(View().FNodeList.IsEmpty() && View().FAccountDataNodeList.IsEmpty());
    View().SetColumnList(&View().FColumnList);
    EXPECT_EQ(View().FColumnList.Count(), 3);
    View().SetColumnList(&Columns.Make({}));
    EXPECT_EQ(View().FColumnList.Count(), 0);
    Services().Features().SetChinaConnect(true);
    View().SetFilterCurr(u"CNY");
    EXPECT_FALSE(View().FShowingChinaConnectAccountData);
    EXPECT_EQ(View().GetCount(), 0);
    EXPECT_EQ(Tree(), u"M(USD CNY)");
    View().ClearAll();
    EXPECT_EQ(Tree(), u"M(USD CNY)");
}

TEST_F(AccountCashTest, SignalsOfEachEvent) {
    struct TCase {
        const char* Name;
        std::function<void()> Action;
        Integer Signals;
        Integer Registrations;
    };
    const std::vector<TCase> cases = {
        {"ready, one account", [&] { View().AccountReady(nullptr, nullptr); }, 0, 1},
        {"any account news", [&] { View().AccountUpdate(nullptr, nullptr); }, 1, 1},
        {"currency news without columns", [&] { View().MultiCurrencyInfoUpdate({}, {}); }, 1, 1},
        {"currency list", [&] { View().CurrencyListUpdate({}, {}); }, 1, 1},
        {"account", [&] { View().SetAccount(u"M"); }, 1, 2},
        {"all accounts", [&] { View().MonitorAllAccount(); }, 1, 3},
        {"all accounts again", [&] { View().MonitorAllAccount(); }, 0, 3},
        {"ready again", [&] { View().AccountReady(nullptr, nullptr); }, 1, 3},
        {"news of another account",
         [&] {
             Accounts().FeedBalance(u"N", u"", {});
             Deliver();
         },
         1, 3},
        {"filter", [&] { View().SetFilterCurr(u"CNY"); }, 1, 3},
    };
    for (const TCase& row : cases) {
        Signals();
        row.Action();
        EXPECT_EQ(Signals(), row.Signals) << row.Name;
        EXPECT_EQ(Accounts().RegistrationCount(), row.Registrations) << row.Name;
    }
}

TEST_F(AccountCashTest, AllAccountsWaitForTheList) {
    Accounts().SetReadyAfter(2);
    View().MonitorAllAccount();
    View().SetAccount(u"S");
    EXPECT_EQ(Tree(), u"");
    EXPECT_EQ(Accounts().RegistrationCount(), 2) << "ready callback and account";
    Deliver();
    Signals();
    Deliver();
    EXPECT_EQ(Tree(), u"M(USD CNY) S(USD) N()");
    EXPECT_EQ(Accounts().RegistrationCount(), 3);
    EXPECT_GE(Signals(), 1);
    Accounts().DropAccount(u"S");
    Deliver();
    EXPECT_EQ(Tree(), u"M(USD CNY) N()");
    Accounts().FeedAccount(u"S");
    Accounts().FeedBalance(u"S", u"JPY", {});
    Deliver();
    EXPECT_EQ(Tree(), u"M(USD CNY) N() S(JPY)");
    EXPECT_GE(Signals(), 2);
}

TEST_F(AccountCashTest, TreeListWalksFromTheRoot) {
    TCustomTreeDataSource source(&Columns.Make({10, 604}),
                                 TComponentClass::Of<TCustomAccountCashDataControl>());
    auto& control = static_cast<TCustomAccountCashDataControl&>(*source.DataControl());
    auto list = CreateComponent<TcxVirtualTreeList>();
    list->SetShape(TcxTreeShape::Children);
    list->AddColumn(10);
    list->AddColumn(604);
    list->SetCustomDataSource(&source);
    const auto rows = [&] {
        String text;
        for (Integer row = 0; row < list->RowCount(); ++row) {
            text += String(static_cast<std::size_t>(list->Row(row).Depth), u'.');
            text += list->CellText(row, *list->GetColumn(0)) + u"=" +
                    list->CellText(row, *list->GetColumn(1)) + u" ";
        }
        return text;
    };
    EXPECT_EQ(rows(), u"");
    control.MonitorAllAccount();
    EXPECT_EQ(rows(), u"M=90 S=10 N=0 ");
    list->SetExpanded(1, true);
    list->SetExpanded(0, true);
    list->SetFocusedRow(4);
    EXPECT_EQ(rows(), u"M=90 .M=7 .M=8 S=10 .S=70 N=0 ");
    Accounts().FeedBalance(u"M", u"JPY", {.Value604 = 5});
    Deliver();
    EXPECT_EQ(rows(), u"M=90 .M=7 .M=8 .M=5 S=10 .S=70 N=0 ");
    EXPECT_EQ(list->FocusedRow(), 5);
    Accounts().FeedBalance(u"S", u"USD", {.Value604 = 71});
    Deliver();
    EXPECT_EQ(rows(), u"M=90 .M=7 .M=8 .M=5 S=10 .S=71 N=0 ");
    Accounts().DropAccount(u"N");
    Accounts().FeedAccount(u"O");
    Deliver();
    EXPECT_EQ(rows(), u"M=90 .M=7 .M=8 .M=5 S=10 .S=71 O=0 ") << "as many accounts";
    Accounts().SetReady(false);
    source.DataChanged();
    EXPECT_EQ(rows(), u"");
    Accounts().SetReady(true);
    Deliver();
    EXPECT_EQ(rows(), u"M=90 S=10 O=0 ");
}

TEST_F(AccountCashTest, ReceiverMayFreeTheControl) {
    WithoutCallsInside("the receiver frees the control");
    const std::vector<std::function<void()>> actions = {
        [&] { View().MonitorAllAccount(); },
        [&] { View().AccountUpdate(nullptr, nullptr); },
        [&] { View().SetAccount(u"M"); },
        [&] { View().MultiCurrencyInfoUpdate(nullptr, nullptr); },
    };
    for (const auto& action : actions) {
        OnSignal([this] { FreeControl(); });
        action();
        EXPECT_TRUE(IsFreed());
        Make();
    }
}

} // namespace
} // namespace quorin
