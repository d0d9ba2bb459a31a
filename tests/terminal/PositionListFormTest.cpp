#include "terminal/forms/PositionViewForm.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <set>

namespace quorin {
namespace {

namespace A = PositionAttribute;

struct TPositionListFormTest : TServicesFixture {
    TPositionListFormTest() {
        Services().Accounts().FeedAccount(u"an account with a long code");
        for (const StringView symbol : {u"00005", u"00700", u"HSIF"}) {
            Services().Positions().FeedPosition(
                u"an account with a long code", symbol,
                {.FollowsPrice = true, .Quantity = 400.0, .BODQuantity = 400.0, .BODPrice = 1.0});
        }
        SetField(u"00700", Field::LastPrice, 12345.6);
        SetField(u"HSIF", Field::LastPrice, 23456.0);
        Services().Deliver();
        Form.ShowAccount(u"an account with a long code");
    }

    TPositionViewForm Form;
};

// Once for each cell on the screen and frame. Gains are asked for as they are shown, which the
// formatter rounds as text.
TEST_F(TPositionListFormTest, MovesAreAskedForWithoutMemory) {
    const std::size_t before = AllocationCount();
    Integer numbers = 0;
    for (Integer row = 0; row < Form.RowCount(); ++row) {
        Form.RowIdentity(row);
        for (const Integer attribute :
             {A::SymbolCode, A::LastPrice, A::MarketValue, PositionViewAttribute::AcceptValue}) {
            if (Form.MovingNumber(row, attribute).has_value()) ++numbers;
        }
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_GT(numbers, 0);
}

TEST_F(TPositionListFormTest, WhatHasNoPriceHasNothingToCompare) {
    std::set<std::size_t> identities;
    for (Integer row = 0; row < Form.RowCount(); ++row) {
        const bool isPriced = Form.Symbol(row) != u"00005";
        EXPECT_EQ(Form.MovingNumber(row, A::LastPrice).has_value(), isPriced);
        EXPECT_EQ(Form.MovingNumber(row, A::MarketValue).has_value(), isPriced);
        EXPECT_FALSE(Form.MovingNumber(row, A::NetQuantity).has_value());
        identities.insert(Form.RowIdentity(row));
    }
    EXPECT_EQ(identities.size(), 3U);
    EXPECT_EQ(Form.RowIdentity(NoRow), 0U);
}

} // namespace
} // namespace quorin
