#pragma once

#include "platform/widgets/TreeListView.h"
#include "tests/viewdata/AccountFixture.h"

namespace quorin {

inline constexpr Integer Caption = AccountTreeColumn::Caption;
inline constexpr Integer Value = AccountTreeColumn::Value;

// "604" for an attribute row, "604-HKD" for a value row, "604-HKD>USD" for a converted one.
inline String NameOf(Pointer node) {
    if (const auto* row = ObjectAs<TAccountDataNode>(node)) return IntegerToText(row->Attribute());
    if (const auto* row = ObjectAs<TAccountDataValueNode>(node)) {
        return IntegerToText(row->GetAttribute()) + u"-" + row->Currency();
    }
    if (const auto* row = ObjectAs<TConvertAccountDataValueNode>(node)) {
        return NameOf(AsPointer(row->Parent())) + u">" + row->Currency();
    }
    return u"?";
}

// The master M with the sub-account S, and the plain account P. M and P have HKD and USD.
class AccountTreeTest : public TAccountFixture<TCustomAccountInfoDataControl> {
protected:
    AccountTreeTest() { FeedAccounts(); }

    void FeedAccounts() {
        Accounts().FeedAccount(u"M", {.Type = AccountType::Master, .IsAggregate = true});
        Accounts().FeedAccount(u"S", {.MasterAccount = u"M"});
        Accounts().FeedAccount(u"P");
        for (const StringView account : {u"M", u"P"}) {
            Accounts().FeedBalance(account, u"HKD", {});
            Accounts().FeedBalance(account, u"USD", {});
        }
        Deliver();
    }

    String Nodes() {
        String text;
        for (Integer index = 0; index < View().GetCount(); ++index) {
            text += (index > 0 ? u" " : u"") + NameOf(View().GetNode(index));
        }
        return text;
    }
    TAccountDictionary Naming(std::initializer_list<StringView> accounts) {
        TAccountDictionary list;
        for (const StringView code : accounts) list.Add(code, Accounts().GetAccount(code, false));
        return list;
    }
    // What a row of the tree list shows: depth, open or not, name.
    static String RowsOf(TcxVirtualTreeList& list) {
        String text;
        for (Integer index = 0; index < list.RowCount(); ++index) {
            const TcxTreeRow row = list.Row(index);
            text += (index > 0 ? u" " : u"") + String(static_cast<std::size_t>(row.Depth), u'.');
            if (row.HasChildren) text += row.IsExpanded ? u"-" : u"+";
            text += NameOf(row.Node);
        }
        return text;
    }
};

} // namespace quorin
