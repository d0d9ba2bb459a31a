// Order tickets and the lists that their fields drop down.

#include "terminal/forms/TicketForm.h"
#include "embedded/EmbeddedServices.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ConsoleHost.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quorin {
namespace {

struct TTicketFormTest : testing::Test {
    TTicketFormTest() {
        Host.SetFieldLists(&Lists);
        static constexpr TSpreadBand tenths[] = {{0.0, 1000.0, 0.1}};
        Services.Market().AddSpreadTable(u"TENTHS", tenths);
        Services.Market().SetSpreadTablesAtOnce(true);
        Services.Market().AddExchange({u"SEHK", u"HKD", u"", MarketOpen});
        Services.Market().AddCategory({1, {u"Shares"}});
        Services.Market().AddSeries({u"S", u"SEHK", 1, {u"S"}});
        AddSymbol({.Symbol = u"10700", .Names = {.Name = u"Alpha 007"}});
        AddSymbol({.Symbol = u"00700", .Names = {.Name = u"Tencent"}});
        AddSymbol({.Symbol = u"07005", .Names = {.Name = u"Tenth"}, .DisplayRatio = u"100"});
        AddSymbol({.Symbol = u"AB", .Names = {.Name = u"Seven"}});
        Services.Accounts().FeedAccount(u"A1", {.Tag = u"TT", .Name = u"Ann"});
        Services.Accounts().FeedAccount(u"A2", {.Tag = u"UU", .Name = u"Bob"});
        Services.Deliver();
        Open(First);
    }
    ~TTicketFormTest() override {
        First.reset();
        Second.reset();
        TEditorManager::ReleaseInstance();
        TIImageResourceList::ReleaseInstance();
        Lists = TFieldLists();
        EXPECT_EQ(Services.RegistrationCount(), 0);
    }
    void AddSymbol(TSymbolRecord record) {
        record.Exchange = u"SEHK";
        record.Series = u"S";
        record.Currency = u"HKD";
        record.SpreadCode = u"TENTHS";
        record.LotSize = 100.0;
        Services.Market().AddSymbol(record);
        Services.Items().Touch(Services.Items().Item(record.Symbol));
    }
    static void Open(std::unique_ptr<TTicketForm>& ticket) {
        ticket = CreateComponent<TTicketForm>();
    }
    static void Fill(TcxCustomEdit& edit, StringView text) {
        edit.Enter();
        edit.SelectAll();
        edit.TypeText(text);
        edit.Leave();
    }
    // The codes that the field's list shows.
    static std::string Codes(TcxPopupEdit& edit) {
        TFieldListForm& list = *FieldListOf(edit);
        std::string codes;
        for (Integer row = 0; row < list.View().RowCount(); ++row) {
            codes += (row > 0 ? " " : "") + ToUtf8(list.Code(row));
        }
        return codes;
    }

    std::ostringstream Said;
    std::istringstream Typed;
    TConsoleHost Host{Said};
    TEmbeddedServices Services{TEmbeddedOptions{Host, QUORIN_DATA_DIR, {}}};
    TFieldLists Lists;
    std::unique_ptr<TTicketForm> First;
    std::unique_ptr<TTicketForm> Second;
};

TEST_F(TTicketFormTest, ListsFilterWhatIsTyped) {
    struct TCase {
        const char* Name;
        TTicketField Field;
        StringView Typed;
        const char* Codes;
    };
    static constexpr TCase Cases[] = {
        {"nothing", TTicketField::Symbol, u"", "10700 00700 07005 AB"},
        {"code begins, code holds, name holds", TTicketField::Symbol, u"007", "00700 10700"},
        {"the middle of a code", TTicketField::Symbol, u"700", "10700 00700 07005"},
        {"a name in any case", TTicketField::Symbol, u"tEn", "00700 07005"},
        {"a code in any case", TTicketField::Symbol, u" ab", "AB"},
        {"a whole display", TTicketField::Symbol, u"00700, HKD, Tencent", "00700"},
        {"the currency is no name", TTicketField::Symbol, u"HKD", ""},
        {"all accounts", TTicketField::Account, u"", "A1 A2"},
        {"an account by its tag", TTicketField::Account, u"uu", "A2"},
        {"an account by its holder", TTicketField::Account, u"ann", "A1"},
    };
    for (const TCase& row : Cases) {
        SCOPED_TRACE(row.Name);
        Open(First);
        auto& edit = *ObjectAs<TcxPopupEdit>(&First->Edit(row.Field));
        edit.DropDown();
        edit.TypeText(row.Typed);
        EXPECT_EQ(Codes(edit), row.Codes);
    }
}

TEST_F(TTicketFormTest, AListShowsAllAgainOnceTheFieldIsAccepted) {
    TcxPopupEdit& edit = First->SymbolEdit();
    edit.DropDown();
    edit.TypeText(u"ab");
    ASSERT_EQ(Codes(edit), "AB");
    edit.PressKey(Key::Return);
    EXPECT_EQ(Codes(edit), "10700 00700 07005 AB");
    edit.SelectAll();
    edit.TypeText(u"00700");
    edit.Leave();
    EXPECT_EQ(Codes(edit), "10700 00700 07005 AB");
}

TEST_F(TTicketFormTest, ARowThatHasChangedUnseenIsNotChosen) {
    TcxPopupEdit& edit = First->SymbolEdit();
    edit.DropDown();
    edit.TypeText(u"700");
    ASSERT_EQ(Codes(edit), "10700 00700 07005");
    FieldListOf(edit)->SetFilter(u"ab");
    FieldListOf(edit)->Choose(0);
    EXPECT_EQ(First->Symbol(), u"");
    ASSERT_EQ(Codes(edit), "AB");
    FieldListOf(edit)->Choose(0);
    EXPECT_EQ(First->Symbol(), u"AB");
    EXPECT_FALSE(edit.DroppedDown());
}

TEST_F(TTicketFormTest, ClosedTicketsLeaveNoListsBehind) {
    Open(Second);
    const Integer before = Services.RegistrationCount();
    for (Integer again = 0; again < 5; ++again) {
        Second.reset(); // before the next asks for its lists
        Open(Second);
    }
    EXPECT_EQ(Services.RegistrationCount(), before);
    EXPECT_EQ(Lists.Count(), 4);
}

TEST_F(TTicketFormTest, AnOrderHasThePriceOfTheTable) {
    Fill(First->AccountEdit(), u"a1");
    Fill(First->SymbolEdit(), u"7005");
    EXPECT_EQ(First->PriceEdit().Properties().Increment(), 10.0);
    Fill(First->PriceEdit(), u"1230");
    Fill(First->QuantityEdit(), u"2k");
    ASSERT_TRUE(First->Send(OrderSide::Sell, /*atMarket=*/false));
    const TOrderValues& values = Services.Desk().Orders()[0].Values;
    EXPECT_EQ(values.Price, 12.3);
    EXPECT_EQ(values.Quantity, 2000.0);
    EXPECT_EQ(values.Symbol, u"07005");
    EXPECT_EQ(values.BuySell, OrderSide::Sell);
}

// What is sent is what the fields say after they were left; nothing goes out unasked.
TEST_F(TTicketFormTest, WhatIsNotSent) {
    struct TCase {
        const char* Name;
        StringView Account; // typed last, and not left
        StringView Quantity;
        bool IsLoggedIn;
        std::size_t Orders; // the desk's, refused ones among them
        const char* Said;
    };
    static constexpr TCase Cases[] = {
        {"the user says no", u"A1", u"100", true, 0,
         "  question Account A1: Buy 100 of 00700 Tencent at market?\n  answer   no\n"},
        {"no quantity is not one lot", u"A1", u"", true, 1, ""},
        {"a wrong account", u"A7", u"100", true, 0, "  message  This account is not known.\n"},
        {"nobody is logged in", u"A1", u"100", false, 0, ""},
    };
    Services.Config().Set(DefaultConfigSection, u"ConfirmationPlaceOrd", u"Y");
    Services.Config().Commit();
    for (const TCase& row : Cases) {
        SCOPED_TRACE(row.Name);
        Open(First);
        const std::size_t before = Services.Desk().Orders().size();
        Services.Login().SetLogin(row.IsLoggedIn);
        Fill(First->SymbolEdit(), u"700");
        Fill(First->QuantityEdit(), row.Quantity);
        First->AccountEdit().Enter();
        First->AccountEdit().SelectAll();
        First->AccountEdit().TypeText(row.Account);
        EXPECT_FALSE(First->Send(OrderSide::Buy, /*atMarket=*/true));
        EXPECT_EQ(Services.Desk().Orders().size(), before + row.Orders);
        EXPECT_EQ(Said.str(), row.Said);
        Said.str("");
    }
}

} // namespace
} // namespace quorin
