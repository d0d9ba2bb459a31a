// The trees of accounts as scripts and frames show them.

#include "embedded/DataError.h"
#include "platform/rtl/Utf.h"
#include "tests/terminal/ScriptPlay.h"
#include "viewdata/account/AccountAttributes.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

namespace A = AccountAttribute;

// Lines that begin with the label, without it.
std::vector<std::string> Labelled(const std::string& out, const std::string& label) {
    std::vector<std::string> found;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("  " + label + " ", 0) == 0) found.push_back(line.substr(11));
    }
    return found;
}

// The amounts that the tree shows, below the figure's own line where it has rows of currencies.
std::vector<std::string> Tree(TScriptPlay& play) {
    TAccountTreeForm& tree = *play.Screen->AccountTree();
    std::vector<std::string> rows;
    for (Integer row = 0; row < tree.RowCount(); ++row) {
        rows.push_back(std::string(static_cast<std::size_t>(tree.Depth(row)), '>') +
                       ToUtf8(tree.CellText(row, 0)) + "=" + ToUtf8(tree.CellText(row, 1)));
    }
    return rows;
}

using TRows = std::vector<std::string>;

TEST(ScriptAccountTest, WrongLines) {
    constexpr struct {
        const char* Script;
        const char* Error;
    } Rows[] = {
        {"aggregate", "neither the position view nor a tree is shown"},
        {"displaycurrency USD", "the account tree is not shown"},
        {"cash\nfiltercurr CNY", "the account tree is not shown"},
        {"accounttree\nfiltercurr XYZ", "there is no currency XYZ"},
        {"accounttree\ndisplaycurrency usd", "there is no currency usd"},
        {"accounttree 991,5", "there is no figure 5"},
        {"accounttree 991,,604", "there is no figure "},
        {"accounttree cash", "there is no figure cash"},
        {"accounttree 109999", "there is no figure 109999"},
        {"accounttree \"\"", "no figure is named"},
        {"accounttree\ncell 99 3", "there is no row 99, the list has 30"},
        {"cash some", "usage: cash [all]"},
        {"account NOBODY", "there is no account NOBODY"},
        {"accountsready 2\naccount T10020", "the accounts are not there yet"},
        {"subaccount M88001-01 M88001", "there is already an account M88001-01"},
        {"subaccount X NOBODY", "there is no account NOBODY"},
        {"marginratio 00700 2", "a margin ratio is a number from 0 to 1"},
        {"marginratio NONE 1", "there is no symbol NONE"},
        {"accountstatus NOBODY 0", "there is no account NOBODY"},
        {"subaccount X M88001\naccountstatus X 0", "the account's details are not there yet"},
    };
    for (const auto& row : Rows) {
        TScriptPlay play;
        play.Run(row.Script);
        const std::string error = play.Errors.str();
        EXPECT_EQ(error.substr(error.find(' ') + 1), row.Error + std::string("\n")) << row.Script;
        EXPECT_EQ(play.Wrong, 1) << row.Script;
    }
}

TEST(ScriptAccountTest, FiguresComeWithTheAccounts) {
    TScriptPlay play;
    play.Run("accountsready 2\ncash\naccounttree 445,991\nstep 1\n");
    EXPECT_EQ(Tree(play), (TRows{"Market value=", "Cash="}));
    play.Run("step 1\n");
    EXPECT_EQ(Tree(play).size(), 5u);
    EXPECT_EQ(Tree(play)[1], "Cash=1,591,958.20");
    EXPECT_EQ(Tree(play)[4], ">RMB=210,000.00");
    play.Run("cash\n");
    EXPECT_EQ(play.Screen->Last().RowCount(), 4);
}

TEST(ScriptAccountTest, ACurrencyArrivesWithAnOrder) {
    TScriptPlay play;
    play.Run("favourites\naccount C30001-CC\naccounttree 991\n");
    EXPECT_EQ(Tree(play), (TRows{"Cash=73,592.46", ">RMB=64,200.00"}));
    play.Run("step 1\nbuy market 0\nstep 1\n");
    const TRows rows = Tree(play);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1], ">RMB=64,200.00");
    const Double paid = play.Session->Services().Desk().Orders().front().AveragePrice() * 100.0;
    EXPECT_GT(paid, 0.0);
    EXPECT_EQ(play.Screen->AccountTree()->Value(2, AccountTreeColumn::Value), Variant(-paid));
}

TEST(ScriptAccountTest, CurrenciesOfTheTree) {
    TScriptPlay play;
    const auto total = [&](const char* line) {
        play.Run(line);
        return ToUtf8(play.Screen->AccountTree()->Title()) + " " + Tree(play).front();
    };
    EXPECT_EQ(total("account C30001\naccounttree 9028,991"), "C30001  HKD Net assets=323,017.99");
    EXPECT_EQ(total("displaycurrency USD"), "C30001  USD Net assets=41,244.41"); // at 7.8318
    EXPECT_EQ(total("displaycurrency JPY"), "C30001  HKD Net assets=323,017.99");
    EXPECT_EQ(total("displaycurrency"), "C30001  HKD Net assets=323,017.99");
    EXPECT_EQ(total("filtercurr CNY"), "C30001  HKD  China Connect: CNY Net assets=737,694.49");
    EXPECT_EQ(Tree(play), (TRows{"Net assets=737,694.49", "Cash=73,592.46", ">HKD=0.00",
                                 ">USD=0.00", ">RMB=64,200.00"}));
    EXPECT_EQ(total("filtercurr"), "C30001  HKD Net assets=323,017.99");
}

TEST(ScriptAccountTest, WhatHasChangedIsPrintedIndented) {
    TScriptPlay play;
    EXPECT_EQ(Labelled(play.Run("account M88001-02\naccounttree 991\n"), "tree"),
              (TRows{"M88001-02  HKD", "    Figure                                  Amount",
                     "  0 Cash                                 75,611.30",
                     "  1   HKD                                48,200.00",
                     "  2   USD                                 3,500.00",
                     "  3   RMB                                     0.00"}));
    EXPECT_EQ(Labelled(play.Run("displaycurrency CNY\n"), "tree"),
              (TRows{"M88001-02  CNY", "  0 Cash                                 65,961.18"}));
    EXPECT_EQ(Labelled(play.Run("language 1\n"), "tree").size(), 5u);
}

TEST(ScriptAccountTest, OneAccountAgainAfterAll) {
    TScriptPlay play;
    play.Run("cash all\n");
    EXPECT_GT(play.Screen->Last().RowCount(), 40);
    EXPECT_EQ(play.Screen->Last().Value(0, A::Currency), u"HKD");
    EXPECT_EQ(play.Screen->Last().Text(0, A::Currency), u"HKD");
    play.Run("cash\n");
    EXPECT_EQ(play.Screen->Last().RowCount(), 4);
}

// Frames in place of the market.

std::vector<String> FramesOf(TFrameForm form, Integer steps, bool isAggregated = false,
                             Integer accountsReadyAfter = 0) {
    TConsoleOptions options;
    options.Form = form;
    options.IsAggregated = isAggregated;
    options.Switches.AccountsReadyAfter = accountsReadyAfter;
    std::ostringstream errors;
    const auto session = OpenSession(options, QUORIN_DATA_DIR, errors);
    for (Integer step = 0; step < steps; ++step) EXPECT_TRUE(session->Step());
    EXPECT_TRUE(session->TakeRepaint());
    return session->Frame();
}

TEST(FormFrameTest, ShowsTheFormThatWasAskedFor) {
    const struct {
        TFrameForm Form;
        bool IsAggregated;
        Integer ReadyAfter;
        StringView Head;
        std::size_t Lines;
        StringView LastLine;
    } rows[] = {
        {TFrameForm::PositionView, false, 0, u"M88001  09:30:00.500  #2", 12,
         u"Accept value: 80,698.00 HKD"},
        {TFrameForm::PositionView, true, 2, u"M88001  Aggregated  09:30:00.500  #2", 12,
         u"Accept value: -"},
        {TFrameForm::AccountTree, true, 2, u"M88001  Aggregated  HKD  09:30:00.500  #2", 22, u""},
        {TFrameForm::Cash, false, 0, u"M88001  09:30:00.500  #2", 6, u""},
        {TFrameForm::AllCash, false, 0, u"All accounts  09:30:00.500  #2", 22, u""},
    };
    for (const auto& row : rows) {
        const std::vector<String> lines = FramesOf(row.Form, 2, row.IsAggregated, row.ReadyAfter);
        EXPECT_EQ(ToUtf8(lines.front()), ToUtf8(row.Head));
        EXPECT_EQ(lines.size(), row.Lines) << ToUtf8(row.Head);
        if (row.LastLine.empty()) continue;
        EXPECT_EQ(ToUtf8(lines.back()), ToUtf8(row.LastLine));
    }
}

TEST(FormFrameTest, KeepsToTheHeight) {
    TConsoleOptions options;
    options.Form = TFrameForm::PositionView;
    std::ostringstream errors;
    const auto session = OpenSession(options, QUORIN_DATA_DIR, errors);
    const std::size_t whole = session->Frame().size();
    session->FitFrame(static_cast<Integer>(whole) - 1);
    EXPECT_EQ(session->Frame().size(), whole - 1);
    session->FitFrame(1); // a row is always there
    EXPECT_EQ(session->Frame().size(), whole - 2);
    session->FitFrame(100);
    EXPECT_EQ(session->Frame().size(), whole);
}

TEST(FormFrameTest, AnUnknownAccountIsNamed) {
    TConsoleOptions options;
    options.Account = u"NOBODY";
    std::ostringstream errors;
    EXPECT_THROW(OpenSession(options, QUORIN_DATA_DIR, errors), EDataError);
}

} // namespace
} // namespace quorin
