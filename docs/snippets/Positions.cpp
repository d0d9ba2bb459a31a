#include "docs/snippets/Snippet.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/positionview/PositionViewDataControl.h"

namespace quorin {

TEST_F(TSnippet, Position) {
    Quote(u"00700", 350.2, 350.4, 350.2);
    Services.Login().SetLogin(true);
    Services.Deliver();
    // [list]
    const auto list = CreateComponent<TCustomPositionDataControl>();
    list->SetAccount(u"M1");
    const Variant held = list->GetValue(0, PositionAttribute::NetQuantity);

    const Boolean isTaken = list->CloseToBest(0); // sells at the best bid
    Services.Deliver();                           // the fill is booked and told of
    // [/list]
    EXPECT_EQ(held, Variant(300.0));
    EXPECT_TRUE(isTaken);
    EXPECT_EQ(list->GetCount(), 0);
}

TEST_F(TSnippet, PositionView) {
    // [sum]
    const auto view = CreateComponent<TPositionViewDataControl>();
    view->SetAccount(u"M1"); // a master account
    view->SetAggregate();    // its own positions and those of its sub-accounts, as one
    const Variant held = view->GetValue(0, PositionAttribute::NetQuantity);
    const Double total = view->GetTotalMarketValue();
    // [/sum]
    EXPECT_EQ(held, Variant(500.0));
    EXPECT_DOUBLE_EQ(total, 500.0 * 350.0);
}

TEST_F(TSnippet, Account) {
    // [tree]
    const std::unique_ptr<TColumnInfo> cash =
        TColumnInfo::AddColumn(AccountAttribute::Cash, u"Res_Cash", 120, u"Cash", false);
    TColumnList figures;
    figures.Add(cash.get());

    const auto tree = CreateComponent<TCustomAccountInfoDataControl>();
    tree->SetColumnList(&figures); // a row per figure, and below it one per currency
    tree->SetAccount(u"M1");
    const Pointer total = tree->GetNode(0);
    const String amount = tree->GetDisplayValue(total, AccountTreeColumn::Value);
    // [/tree]
    EXPECT_EQ(amount, u"50,000.00");
    EXPECT_EQ(tree->GetCount(), 2);
    EXPECT_EQ(tree->GetParentNode(tree->GetNode(1)), total);
}

} // namespace quorin
