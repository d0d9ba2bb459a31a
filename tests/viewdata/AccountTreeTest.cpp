#include "tests/viewdata/AccountTreeFixture.h"
#include "viewdata/frame/TreeDataSource.h"

#include <set>
#include <vector>

namespace quorin {
namespace {

TEST_F(AccountTreeTest, RowsOfColumnsAndCurrencies) {
    EXPECT_EQ(View().GetCount(), 0);
    View().SetColumnList(&Columns.Make({604, 10, 606}));
    EXPECT_EQ(Nodes(), u"604 10 606");
    View().SetAccount(u"P");
    EXPECT_EQ(Nodes(), u"604 10 606 604-HKD 606-HKD 604-USD 606-USD");
    EXPECT_EQ(View().FDummyNodeList.Count(), 3);
    EXPECT_EQ(NameOf(AsPointer(*View().FAccountDataValueNodeList.Find(u"604-HKD"))), u"604-HKD");
    View().InitCurrencyNode();
    EXPECT_EQ(View().GetCount(), 7) << "nothing is added twice";
    for (const Integer index : {-1, 7}) EXPECT_EQ(View().GetNode(index), nullptr);

    EXPECT_EQ(NameOf(View().GetParentNode(View().GetNode(6))), u"606");
    TObject foreign;
    for (const Pointer node :
         {View().GetNode(0), View().GetRootNode(), AsPointer(&foreign), Pointer(nullptr)}) {
        EXPECT_EQ(View().GetParentNode(node), nullptr);
        EXPECT_EQ(View().GetChildNodeCount(node), 0);
        EXPECT_EQ(View().GetChildNode(node, 0), nullptr);
    }
    EXPECT_NE(View().GetRootNode(), nullptr);
    Pointer left = this;
    EXPECT_FALSE(View().GetRowValue(0, left) || View().GetColValue(0, left));
    EXPECT_EQ(left, this);

    View().SetAccount(u"");
    EXPECT_EQ(Nodes(), u"604 10 606");
    EXPECT_EQ(View().GetNode(3), nullptr);
    View().SetColumnList(nullptr);
    EXPECT_EQ(View().GetCount(), 0);
}

TEST_F(AccountTreeTest, AttributesWithoutCurrencyRows) {
    View().SetAccount(u"P");
    View().SetColumnList(
        &Columns.Make({4, 10, 13, 21, 23, 104, 445, 446, 1205, 9018, 9028, 101601}));
    EXPECT_EQ(Nodes(), u"4 10 13 21 23 104 445 446 1205 9018 9028 101601 "
                       u"4-HKD 23-HKD 104-HKD 446-HKD 9018-HKD 101601-HKD "
                       u"4-USD 23-USD 104-USD 446-USD 9018-USD 101601-USD");
}

TEST_F(AccountTreeTest, ColumnListsReplaceEachOther) {
    View().SetAccount(u"P");
    Signals();
    View().SetColumnList(&Columns.Make({604, 606, 604}));
    EXPECT_EQ(Nodes(), u"604 606 604-HKD 606-HKD 604-USD 606-USD");
    EXPECT_EQ(View().FColumnList.Count(), 2);
    View().SetColumnList(&View().FColumnList);
    EXPECT_EQ(View().GetCount(), 6);
    View().SetColumnList(&Columns.Make({607}));
    EXPECT_EQ(Nodes(), u"607 607-HKD 607-USD");
    EXPECT_EQ(Signals(), 0) << "the caller tells the view";
}

TEST_F(AccountTreeTest, CurrenciesThatComeLater) {
    View().SetColumnList(&Columns.Make({604, 606}));
    View().SetAccount(u"P");
    const Pointer known = View().GetNode(2);
    Accounts().FeedBalance(u"P", u"CNY", {});
    Deliver();
    EXPECT_EQ(Nodes(), u"604 606 604-HKD 606-HKD 604-USD 606-USD 604-CNY 606-CNY");
    EXPECT_EQ(View().GetNode(2), known);
    EXPECT_EQ(View().FAccountCurrencyDataCount, 3);
}

TEST_F(AccountTreeTest, NoCurrencyRowsBeforeTheyAreKnown) {
    Services().Currencies().SetMultiCurrency(false);
    Deliver();
    View().SetColumnList(&Columns.Make({604}));
    View().SetAccount(u"P");
    EXPECT_EQ(Nodes(), u"604");
    Services().Currencies().SetMultiCurrency(true);
    Deliver();
    EXPECT_EQ(Nodes(), u"604 604-HKD 604-USD");
    View().SetAccount(u"unknown");
    EXPECT_EQ(Nodes(), u"604");
    Accounts().FeedAccount(u"unknown");
    Accounts().FeedBalance(u"unknown", u"USD", {});
    Deliver();
    EXPECT_EQ(Nodes(), u"604 604-USD");
    // Columns that change while no account is known have their rows once it is known again.
    Accounts().SetReady(false);
    View().SetColumnList(&Columns.Make({606}));
    EXPECT_EQ(Nodes(), u"606");
    EXPECT_EQ(View().GetValue(View().GetNode(0), Value), Variant::EmptyText());
    Accounts().SetReadyAfter(2);
    Deliver();
    EXPECT_EQ(Nodes(), u"606");
    Deliver();
    EXPECT_EQ(Nodes(), u"606 606-USD");
}

TEST_F(AccountTreeTest, SignalsOfEachEvent) {
    View().SetColumnList(&Columns.Make({604}));
    const TAccountDictionary own = Naming({u"P", u"M"});
    const TAccountDictionary sub = Naming({u"S"});
    TCurrencyRatioDictionary ratios;
    ratios.Add(u"USD", 8.0);
    const auto update = [this](const TAccountDictionary& accounts) {
        View().AccountUpdate(const_cast<TAccountDictionary*>(&accounts), nullptr);
    };
    struct TCase {
        const char* Name;
        std::function<void()> Action;
        Integer Signals;
    };
    const std::vector<TCase> cases = {
        {"an update without an account", [&] { update(own); }, 0},
        {"currency information without one", [&] { View().MultiCurrencyInfoUpdate({}, {}); }, 1},
        {"an account", [&] { View().SetAccount(u"P"); }, 1},
        {"the same", [&] { View().SetAccount(u"P"); }, 0},
        {"no news", [&] { View().AccountUpdate(nullptr, nullptr); }, 0},
        {"its news", [&] { update(own); }, 1},
        {"news of another", [&] { update(sub); }, 0},
        {"aggregation of a plain account", [&] { View().SetAggregate(); }, 0},
        {"a master", [&] { View().SetAccount(u"M"); }, 1},
        {"a sub-account that is not summed", [&] { update(sub); }, 0},
        {"aggregation", [&] { View().SetAggregate(); }, 1},
        {"a sub-account that is summed", [&] { update(sub); }, 1},
        {"list of currencies", [&] { View().CurrencyListUpdate({}, {}); }, 1},
        {"ratios that nobody shows", [&] { View().CurrencyRatioUpdate(&ratios, {}); }, 0},
        {"a display currency", [&] { View().SetCurrency(u"USD"); }, 1},
        {"the same currency", [&] { View().SetCurrency(u"USD"); }, 0},
        {"its ratio", [&] { View().CurrencyRatioUpdate(&ratios, {}); }, 1},
        {"no ratios", [&] { View().CurrencyRatioUpdate(nullptr, {}); }, 0},
        {"another currency", [&] { View().SetCurrency(u"CNY"); }, 1},
        {"the ratio of the one before", [&] { View().CurrencyRatioUpdate(&ratios, {}); }, 0},
        {"a filter", [&] { View().SetFilterCurr(u"CNY"); }, 1},
        {"the same filter", [&] { View().SetFilterCurr(u"CNY"); }, 0},
        {"no filter", [&] { View().SetFilterCurr(u""); }, 1},
        {"columns", [&] { View().SetColumnList(nullptr); }, 0},
        {"currency information without columns", [&] { View().MultiCurrencyInfoUpdate({}, {}); },
         0},
    };
    for (const TCase& row : cases) {
        Signals();
        row.Action();
        EXPECT_EQ(Signals(), row.Signals) << row.Name;
    }
    View().SetOnDataChanged(nullptr);
    View().Changed();
    View().SetFilterCurr(u"CNY");
    EXPECT_EQ(View().FilterCurr(), u"CNY");
}

TEST_F(AccountTreeTest, DeliveriesReachTheControl) {
    View().SetColumnList(&Columns.Make({604}));
    View().SetAccount(u"M");
    View().SetAggregate();
    View().SetCurrency(u"USD");
    struct TCase {
        const char* Name;
        std::function<void()> Feed;
    };
    const std::vector<TCase> cases = {
        {"balance", [&] { Accounts().FeedBalance(u"M", u"HKD", {.Value604 = 1}); }},
        {"balance of a sub-account", [&] { Accounts().FeedBalance(u"S", u"", {.Value604 = 2}); }},
        {"multi-currency", [&] { Services().Currencies().TouchMultiCurrencyInfo(); }},
        {"currency list", [&] { Services().Currencies().FeedRatio(u"KRW", 0.1); }},
        {"ratio", [&] { Services().Currencies().FeedRatio(u"USD", 7.5); }},
    };
    for (const TCase& row : cases) {
        Signals();
        row.Feed();
        Deliver();
        EXPECT_GE(Signals(), 1) << row.Name;
    }
    View().SetAggregate();
    Signals();
    Accounts().FeedBalance(u"S", u"", {});
    Accounts().FeedBalance(u"P", u"", {});
    Deliver();
    EXPECT_EQ(Signals(), 0) << "others";
}

// Registrations of the account service: one for the account, one for the sub-accounts.
TEST_F(AccountTreeTest, AggregationFollowsTheAccount) {
    struct TCase {
        const char* Name;
        std::function<void()> Action;
        Boolean Aggregated;
        Integer SubAccounts;
        Integer Registrations;
    };
    const std::vector<TCase> cases = {
        {"without an account", [&] { View().SetAggregate(); }, false, 0, 0},
        {"unknown account", [&] { View().SetAccount(u"X"), View().SetAggregate(); }, false, 0, 1},
        {"plain account", [&] { View().SetAccount(u"P"), View().SetAggregate(); }, false, 0, 1},
        {"master", [&] { View().SetAccount(u"M"), View().SetAggregate(); }, true, 1, 2},
        {"off", [&] { View().SetAggregate(); }, false, 0, 1},
        {"on again", [&] { View().SetAggregate(); }, true, 1, 2},
        {"empty account keeps it", [&] { View().SetAccount(u""); }, true, 0, 1},
        {"master again", [&] { View().SetAccount(u"M"); }, true, 1, 2},
        {"plain account ends it", [&] { View().SetAccount(u"P"); }, false, 0, 1},
        {"and it stays off", [&] { View().SetAccount(u"M"); }, false, 0, 1},
        {"on for the end", [&] { View().SetAggregate(); }, true, 1, 2},
    };
    for (const TCase& row : cases) {
        row.Action();
        EXPECT_EQ(View().Aggregated(), row.Aggregated) << row.Name;
        EXPECT_EQ(View().FSubAccountList.Count(), row.SubAccounts) << row.Name;
        EXPECT_EQ(Accounts().RegistrationCount(), row.Registrations) << row.Name;
    }
    const TAccountDictionary sub = Naming({u"S"});
    EXPECT_TRUE(View().IsSubAccountUpdate(&sub));
    EXPECT_FALSE(View().IsSubAccountUpdate(nullptr));
    const TAccountDictionary other = Naming({u"P"});
    EXPECT_FALSE(View().IsSubAccountUpdate(&other));
    Accounts().FeedAccount(u"M", {.Type = AccountType::SummedByService, .IsAggregate = true});
    EXPECT_FALSE(View().IsSubAccountUpdate(&sub)) << "no master of a group";
}

// A descendant's own rows: shown, walked, freed.
TEST_F(AccountTreeTest, ConvertedRowsOfADescendant) {
    View().SetColumnList(&Columns.Make({604}));
    View().SetAccount(u"P");
    auto* parent = ObjectAs<TAccountDataValueNode>(View().GetNode(1));
    auto node = std::make_unique<TConvertAccountDataValueNode>(parent, u"CNY");
    View().FConvertAccountDataNodeList.Add(u"604-HKD-CNY", node.get());
    View().FNodeList.Add(std::move(node));
    EXPECT_EQ(Nodes(), u"604 604-HKD 604-USD 604-HKD>CNY");
    EXPECT_EQ(View().GetParentNode(View().GetNode(3)), View().GetNode(1));
    std::set<String> identities;
    for (Integer index = 0; index < 4; ++index) {
        identities.insert(View().NodeIdentity(View().GetNode(index)));
    }
    EXPECT_EQ(identities.size(), 4u) << "each row has its own";
    EXPECT_FALSE(identities.contains(u""));
    View().ClearAccountCurrencyNode();
    EXPECT_EQ(Nodes(), u"604");
    EXPECT_EQ(View().FAccountCurrencyDataCount, 0);
    EXPECT_TRUE(View().FConvertAccountDataNodeList.IsEmpty());
    EXPECT_TRUE(View().FAccountDataValueNodeList.IsEmpty());
    TAccountDataValueNode orphan(nullptr, u"HKD");
    TConvertAccountDataValueNode below(&orphan, u"USD");
    EXPECT_EQ(orphan.GetAttribute(), -1);
    EXPECT_EQ(below.GetAttribute(), -1);
}

TEST_F(AccountTreeTest, TreeListKeepsWhatIsOpenAcrossRebuilds) {
    TCustomTreeDataSource source(&Columns.Make({604, 10, 606}),
                                 TComponentClass::Of<TCustomAccountInfoDataControl>());
    auto& control = static_cast<TCustomAccountInfoDataControl&>(*source.DataControl());
    auto list = CreateComponent<TcxVirtualTreeList>();
    TcxTreeListColumn& caption = list->AddColumn(Caption);
    list->AddColumn(Value);
    list->SetCustomDataSource(&source);
    SetText(Const_ResourceStringTag, u"Caption606", u"Margin");
    EXPECT_EQ(RowsOf(*list), u"604 10 606");
    EXPECT_EQ(list->CellText(2, caption), u"Margin");
    control.SetAccount(u"P");
    EXPECT_EQ(RowsOf(*list), u"+604 10 +606");
    list->SetExpanded(2, true);
    EXPECT_EQ(RowsOf(*list), u"+604 10 -606 .606-HKD .606-USD");
    list->SetFocusedRow(4);
    const auto expectFocus = [&](StringView rows) {
        EXPECT_EQ(RowsOf(*list), rows);
        EXPECT_EQ(NameOf(list->Row(list->FocusedRow()).Node), u"606-USD") << "the focus";
    };
    Accounts().FeedBalance(u"P", u"CNY", {});
    Deliver();
    expectFocus(u"+604 10 -606 .606-HKD .606-USD .606-CNY");
    control.SetFilterCurr(u"CNY");
    expectFocus(u"+604 10 -606 .606-HKD .606-USD .606-CNY");
    control.SetAccount(u"M");
    expectFocus(u"+604 10 -606 .606-HKD .606-USD");
    source.SetColumnList(&Columns.Make({607, 606}));
    expectFocus(u"+607 -606 .606-HKD .606-USD");
    list->SetExpanded(1, false);
    EXPECT_EQ(list->FocusedRow(), 1);
    control.SetAccount(u"");
    EXPECT_EQ(RowsOf(*list), u"607 606");
}

TEST_F(AccountTreeTest, TreeListWalksOnlyForOtherNodes) {
    TCustomTreeDataSource source(&Columns.Make({604, 606}),
                                 TComponentClass::Of<TOpen<TCustomAccountInfoDataControl>>());
    auto& control = static_cast<TOpen<TCustomAccountInfoDataControl>&>(*source.DataControl());
    auto list = CreateComponent<TcxVirtualTreeList>();
    TcxTreeListColumn& value = list->AddColumn(Value);
    list->SetCustomDataSource(&source);
    control.SetAccount(u"P");
    list->SetExpanded(0, true);
    EXPECT_EQ(RowsOf(*list), u"-604 .604-HKD .604-USD +606");
    const Integer forgets = list->Forgets();
    for (const Double amount : {1.0, 2.0}) {
        Accounts().FeedBalance(u"P", u"USD", {.Value604 = amount});
        Deliver();
        EXPECT_EQ(list->Value(2, value), Variant(amount));
    }
    EXPECT_EQ(list->Forgets(), forgets);
    control.FNodeList.Add(std::make_unique<TConvertAccountDataValueNode>(nullptr, u"CNY"));
    source.DataChanged();
    EXPECT_EQ(RowsOf(*list), u"-604 .604-HKD .604-USD +606 ?>CNY");
    control.ClearAll(); // and new nodes, maybe at the same addresses
    source.SetColumnList(&Columns.Make({606, 604}));
    EXPECT_EQ(RowsOf(*list), u"+606 +604");
}

TEST_F(AccountTreeTest, SubAccountThatIsDroppedAndComesBack) {
    View().SetAccount(u"M");
    View().SetAggregate();
    const auto feed = [this] {
        Accounts().FeedAccount(u"S", {.MasterAccount = u"M"});
        Accounts().FeedBalance(u"S", u"USD", {.Value604 = 10});
    };
    struct TCase {
        const char* Name;
        std::function<void()> Feed;
        Double Sum;
    };
    const std::vector<TCase> cases = {
        {"there", feed, 11.0},
        {"dropped", [&] { Accounts().DropAccount(u"S"); }, 1.0},
        {"back", feed, 11.0},
        {"dropped and back at once", [&] { Accounts().DropAccount(u"S"), feed(); }, 11.0},
        {"another one joins",
         [&] {
             Accounts().FeedAccount(u"S2", {.MasterAccount = u"M"});
             Accounts().FeedBalance(u"S2", u"USD", {.Value604 = 100});
         },
         11.0},
        {"and is taken in", [&] { View().SetAggregate(), View().SetAggregate(); }, 111.0},
    };
    Accounts().FeedBalance(u"M", u"USD", {.Value604 = 1});
    for (const TCase& row : cases) {
        row.Feed();
        for (Integer delivery = 0; delivery < 3; ++delivery) {
            Deliver();
            EXPECT_EQ(View().GetAggregatedAccountCurrencyData(
                          Accounts().GetAccount(u"M", false)->GetAccountData(u"USD"), 604),
                      Variant(row.Sum))
                << row.Name;
        }
    }
}

TEST_F(AccountTreeTest, ShownAccountThatIsDroppedAndComesBack) {
    View().SetColumnList(&Columns.Make({604}));
    View().SetAccount(u"P");
    struct TCase {
        const char* Name;
        std::function<void()> Feed;
        StringView Nodes, Total;
    };
    const std::vector<TCase> cases = {
        {"dropped", [&] { Accounts().DropAccount(u"P"); }, u"604 604-HKD 604-USD", u""},
        {"back without currencies",
         [&] {
             Accounts().FeedAccount(u"P");
             Accounts().FeedBalance(u"P", u"", {.Value604 = 5});
         },
         u"604 604-HKD 604-USD", u"5.00"},
        {"one more currency", [&] { Accounts().FeedBalance(u"P", u"CNY", {}); },
         u"604 604-HKD 604-USD 604-CNY", u"5.00"},
        {"chosen again", [&] { View().SetAccount(u"M"), View().SetAccount(u"P"); }, u"604 604-CNY",
         u"5.00"},
    };
    for (const TCase& row : cases) {
        Signals();
        row.Feed();
        Deliver();
        EXPECT_GE(Signals(), 1) << row.Name;
        EXPECT_EQ(Nodes(), row.Nodes) << row.Name;
        EXPECT_EQ(View().GetDisplayValue(View().GetNode(0), Value), row.Total) << row.Name;
    }
}

} // namespace
} // namespace quorin
