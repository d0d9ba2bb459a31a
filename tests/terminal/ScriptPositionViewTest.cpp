// The position view as a script shows it.

#include "tests/terminal/ScriptPlay.h"
#include "viewdata/positionview/PositionViewAttributes.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

const std::filesystem::path Accounts =
    std::filesystem::path(QUORIN_DATA_DIR) / "scripts" / "accounts.txt";

constexpr StringView Office[] = {u"M88001", u"M88001-01", u"M88001-02", u"M88001-03", u"M88001-04"};

TEST(ScriptPositionViewTest, TheShippedScriptHasNoWrongLineAndPrintsTheSameTwice) {
    const auto play = [] {
        TScriptPlay script(TAnswerBy::Yes);
        const std::string out = script.RunFile(Accounts);
        EXPECT_EQ(script.Wrong, 0) << script.Errors.str();
        EXPECT_EQ(out.find("refused"), std::string::npos) << out;
        return out;
    };
    EXPECT_EQ(play(), play());
}

TEST(ScriptPositionViewTest, ASumIsThatOfTheAccounts) {
    TScriptPlay play;
    play.Run("account M88001\npositionview\naggregate\n");
    TPositionViewForm& view = play.Screen->PositionView();
    ASSERT_GT(view.View().RowCount(), 0);
    for (Integer row = 0; row < view.View().RowCount(); ++row) {
        Double net = 0.0;
        Double bought = 0.0;
        for (const StringView account : Office) {
            TPositionDictionary held;
            TCustomPositionAdapter::GetInstance()->GetPositionList(account, held);
            for (const auto& entry : held) {
                if (entry.Key != view.Symbol(row)) continue;
                net += entry.Value->GetQuantity() - entry.Value->GetShortQuantity();
                bought += entry.Value->GetTodayBuyQty();
            }
        }
        const auto value = [&](Integer attribute) { return view.Value(row, attribute).ToDouble(); };
        EXPECT_EQ(value(PositionViewAttribute::NetQuantity), net) << row;
        EXPECT_EQ(value(PositionViewAttribute::TodayBuyQuantity), bought) << row;
    }
}

TEST(ScriptPositionViewTest, WhatNeedsTheViewIsRefusedWithoutIt) {
    for (const char* line : {"aggregate", "filtercurrency CNY", "chinaconnect", "accountinfo",
                             "totals", "copysymbol 0"}) {
        TScriptPlay play;
        play.Run(std::string("positions\n") + line + "\n");
        EXPECT_EQ(play.Errors.str(), "s.txt:2: the position view is not shown\n") << line;
    }
}

} // namespace
} // namespace quorin
