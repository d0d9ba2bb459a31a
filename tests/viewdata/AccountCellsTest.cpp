#include "tests/viewdata/AccountValuesFixture.h"

namespace quorin {
namespace {

using AccountCellsTest = TAccountValuesFixture;

// The two columns of each kind of row, with and without an account, aggregated or not.
TEST_F(AccountCellsTest, CellsOfTheTree) {
    SetText(Const_ResourceStringTag, u"Caption604", u"Net worth");
    SetText(Const_ResourceStringTag, u"Caption10", u"Account");
    View().SetColumnList(&Columns.Make({604, 10, 101601}));
    auto* first = ObjectAs<TAccountDataNode>(View().GetNode(0));
    auto* value = ObjectAs<TAccountDataValueNode>(View().GetNode(3));
    TAccountDataValueNode bare(first, u"");
    TConvertAccountDataValueNode converted(value, u"USD");
    TConvertAccountDataValueNode lost(nullptr, u"USD");
    TObject foreign;
    View().SetCurrency(u"CNY");
    struct TCase {
        const char* Name;
        Pointer Node;
        StringView Caption;
        StringView Raw, Text;
        StringView Summed, SummedText;
    };
    const TCase cases[] = {
        {"attribute", AsPointer(first), u"Net worth", u"800", u"640.00", u"800", u"640.00"},
        {"account", View().GetNode(1), u"Account", u"'M'", u"M", u"'M'", u"M"},
        {"custom", View().GetNode(2), u"Custom", u"#0", u"0.00", u"0", u"0.00"},
        {"value", AsPointer(value), u"US dollar", u"7", u"7.00", u"777", u"777.00"},
        {"value in no currency", AsPointer(&bare), u"", u"800", u"640.00", u"800", u"640.00"},
        {"converted", AsPointer(&converted), u"US dollar", u"7", u"7.00", u"7", u"777.00"},
        {"no parent", AsPointer(&lost), u"US dollar", u"0", u"0.00", u"0", u"0.00"},
        {"root", View().GetRootNode(), u"", u"''", u"", u"''", u""},
        {"foreign", AsPointer(&foreign), u"", u"''", u"", u"''", u""},
        {"nil", nullptr, u"", u"''", u"", u"''", u""},
    };
    for (const Boolean summed : {false, true}) {
        if (summed) View().SetAggregate();
        for (const TCase& row : cases) {
            EXPECT_EQ(View().GetValue(row.Node, Caption), Variant(row.Caption)) << row.Name;
            EXPECT_EQ(View().GetDisplayValue(row.Node, Caption), row.Caption) << row.Name;
            EXPECT_EQ(Kinded(View().GetValue(row.Node, Value)), summed ? row.Summed : row.Raw)
                << row.Name;
            EXPECT_EQ(View().GetDisplayValue(row.Node, Value), summed ? row.SummedText : row.Text)
                << row.Name;
            EXPECT_EQ(View().GetValue(row.Node, 22), Variant::EmptyText()) << row.Name;
            EXPECT_EQ(View().GetDisplayValue(row.Node, 22), u"") << row.Name;
        }
    }
    for (const StringView account : {u"unknown", u""}) {
        View().SetAccount(account); // drops `value` and with it what hangs on it
        for (const Integer column : {Caption, Value}) {
            const StringView caption = account.empty() && column == Caption ? u"Net worth" : u"";
            EXPECT_EQ(View().GetValue(AsPointer(first), column), Variant(caption)) << column;
            EXPECT_EQ(View().GetDisplayValue(AsPointer(first), column), u"") << column;
            EXPECT_EQ(View().GetValue(AsPointer(&bare), column), Variant::EmptyText()) << column;
        }
    }
    EXPECT_EQ(View().GetResourceHeader(604), u"Net worth");
    EXPECT_EQ(View().GetResourceHeader(605), u"");
}

TEST_F(AccountCellsTest, ConvertedRowsThatMayNotBeShown) {
    View().SetColumnList(&Columns.Make({604}));
    struct TCase {
        const char* Name;
        Integer Attribute;
        StringView Currency;
        StringView Filter;
        StringView Text;
    };
    Accounts().FeedBalance(u"M", u"JPY",
                           {.Value604 = 5, .Value606 = 6, .Value607 = 7, .Value996 = -8});
    for (const TCase& row :
         {TCase{"604", 604, u"JPY", u"", u""}, TCase{"606", 606, u"JPY", u"", u""},
          TCase{"996", 996, u"JPY", u"", u""}, TCase{"another figure", 607, u"JPY", u"", u"7.00"},
          TCase{"with a filter", 604, u"JPY", u"CNY", u"5.00"},
          TCase{"with a ratio", 604, u"USD", u"", u"7.00"},
          TCase{"no record", 604, u"EUR", u"", u""}, TCase{"total", 604, u"", u"", u"800.00"}}) {
        View().SetFilterCurr(row.Filter);
        TAccountDataNode attribute(row.Attribute);
        TAccountDataValueNode parent(&attribute, u"USD");
        TConvertAccountDataValueNode node(&parent, row.Currency);
        EXPECT_EQ(View().GetDisplayValue(AsPointer(&node), Value), row.Text) << row.Name;
    }
}

} // namespace
} // namespace quorin
