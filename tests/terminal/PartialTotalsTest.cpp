#include "terminal/forms/AccountTreeForm.h"
#include "terminal/forms/CashTreeForm.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <string>

namespace quorin {
namespace {

namespace A = AccountAttribute;

// A master that holds something without a price, and a sub-account with money in a currency that
// has no ratio.
struct TPartialTotalsTest : TServicesFixture {
    TPartialTotalsTest() {
        Services().Currencies().SetMultiCurrency(true);
        Services().Currencies().FeedRatio(u"EUR", 0.0);
        TEmbeddedAccountAdapter& accounts = Services().Accounts();
        accounts.FeedAccount(u"M", {.Type = AccountType::Master, .IsAggregate = true});
        accounts.FeedAccount(u"S", {.MasterAccount = u"M"});
        accounts.FeedBalance(u"M", {}, {.Value445 = 1000.0});
        accounts.FeedBalance(u"M", u"HKD", {.Value445 = 1000.0});
        accounts.FeedBalance(u"S", {}, {.Value991 = 10.0});
        accounts.FeedBalance(u"S", u"EUR", {.Value991 = 50.0});
        accounts.FeedBalance(u"M", u"EUR", {}); // nothing in it
        Services().Positions().FeedPosition(u"M", u"00005", {.Quantity = 400.0});
        Services().Positions().FeedPosition(u"M", u"00700", {.Quantity = 100.0});
        SetField(u"00700", Field::LastPrice, 350.0);
        Services().Deliver();
    }

    static std::string Of(TTreeForm& form, Integer row, Integer tag) {
        const StringView reason = form.CellPartialReason(row, tag);
        std::string text;
        for (const Char unit : reason) text += unit == u'\n' ? '/' : static_cast<char>(unit);
        return text;
    }
};

constexpr const char* NoPrice = "Partial: no market value for 00005";
constexpr const char* NoRatio = "Partial: no ratio for EUR";

TEST_F(TPartialTotalsTest, FiguresNameWhatTheyLeaveOut) {
    const struct {
        const char* name;
        StringView account;
        bool isSum;
        Integer attribute;
        std::string reason;
    } cases[] = {
        {"value of a position without a price", u"M", false, A::MarketValue, NoPrice},
        {"net assets follow it", u"M", false, A::Value9028, NoPrice},
        {"cash does not", u"M", false, A::Cash, ""},
        {"the sum has the sub-account in it", u"M", true, A::MarketValue,
         std::string(NoPrice) + "/" + NoRatio},
        {"and its currency", u"M", true, A::Cash, NoRatio},
        {"the sub-account alone", u"S", false, A::MarketValue, NoRatio},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        TAccountTreeForm form;
        const Integer figures[] = {each.attribute};
        form.ShowFigures(figures);
        form.ShowAccount(each.account);
        if (each.isSum) form.ShowSums();
        ASSERT_EQ(form.Aggregated(), each.isSum);
        EXPECT_EQ(Of(form, 0, AccountTreeColumn::Value), each.reason);
        EXPECT_EQ(Of(form, 0, AccountTreeColumn::Caption), "");
        EXPECT_EQ(Of(form, 1, AccountTreeColumn::Value), ""); // a currency's own
    }
}

TEST_F(TPartialTotalsTest, AccountsOfTheCashTreeNameTheirs) {
    TCashTreeForm form;
    form.ShowAll();
    Integer master = 0;
    while (form.Text(master, A::AccountCode) != u"M" || form.Depth(master) > 0) {
        ASSERT_LT(++master, form.RowCount());
    }
    EXPECT_EQ(Of(form, master, A::MarketValue), NoPrice);
    EXPECT_EQ(Of(form, master, A::AccountCode), "");
    EXPECT_EQ(Of(form, master + 1, A::MarketValue), "");
    SetField(u"00005", Field::LastPrice, 100.0);
    Services().Deliver();
    EXPECT_EQ(Of(form, master, A::MarketValue), NoPrice); // until it is asked anew
    form.ForgetPartial();
    EXPECT_EQ(Of(form, master, A::MarketValue), "");
}

TEST_F(TPartialTotalsTest, NamesAFew) {
    TFewNames names;
    for (const StringView name : {u"1", u"2", u"3", u"4", u"5"}) names.Add(name);
    EXPECT_EQ(names.Text(), u"1, 2, 3, 4, 5");
    for (const StringView name : {u"6", u"7"}) names.Add(name);
    EXPECT_EQ(names.Text(), u"1, 2, 3, 4, 5, \u2026");
}

} // namespace
} // namespace quorin
