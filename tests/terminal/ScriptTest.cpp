#include "platform/rtl/Utf.h"
#include "terminal/console/ScriptCommands.h"
#include "tests/terminal/ScriptPlay.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorin {
namespace {

// What the lines behind a first one, "watch SEHK", have printed.
std::string Behind(const std::string& script) {
    TScriptPlay play;
    const std::string out = play.Run("watch SEHK\n" + script);
    return out.substr(out.find("> 2 "));
}

TEST(ScriptTest, WrongLinesAreReportedAndTheScriptGoesOn) {
    const struct {
        const char* Line;
        const char* Reason;
    } cases[] = {
        {"fly", "there is no command fly; see help"},
        {"watch", "usage: watch EXCHANGE"},
        {"watch NOWHERE", "there is no exchange NOWHERE"},
        {"buy market 1 2", "usage: buy|sell market|last|best ROW"},
        {"sell market x", "usage: buy|sell market|last|best ROW"},
        {"favourite add -1",
         "usage: favourite add|remove ROW, or favourite add, or favourite clear"},
        {"buy market 99999", "there is no row 99999, the list has 109"},
        {"cell 109 0", "there is no row 109, the list has 109"},
        {"move 0 109", "there is no row 109, the list has 109"},
        {"close best 0", "no positions are shown"},
        {"copyorder 0", "no positions are shown"},
        {"account NOBODY", "there is no account NOBODY"},
        {"underlyer HKFE HKFE.XXX futures", "there is no series HKFE.XXX on HKFE"},
        {"underlyer HKFE HKFE.HSI options 2031-01", "nothing of HKFE.HSI expires in 2031-01"},
        {"months", "no series is chosen"},
        {"step 0", "usage: step COUNT"},
        {"language 3", "there is no language 3"},
        {"set /A 1", "a setting is KEY or SECTION/KEY"},
        {"set a \"b", "a quotation mark is left open"},
    };
    std::string script;
    std::string expected;
    std::string echo;
    Integer number = 1;
    for (const auto& row : cases) {
        script += std::string(row.Line) + "\n";
        const std::string at = std::to_string(++number);
        expected += "s.txt:" + at + ": " + row.Reason + "\n";
        echo += "> " + at + " " + row.Line + "\n";
    }
    TScriptPlay play;
    const std::string out = play.Run("watch SEHK\n" + script + "step 1\n");
    EXPECT_EQ(play.Errors.str(), expected);
    EXPECT_EQ(play.Wrong, static_cast<Integer>(std::size(cases)));
    const std::size_t behind = out.find("> 2 ");
    EXPECT_EQ(out.substr(behind, echo.size()), echo);
    EXPECT_EQ(out.find("> 21 step 1\n  head     SEHK  M88001  09:30:00.250  #1\n"),
              behind + echo.size());
}

TEST(ScriptTest, ShippedScriptsHaveNoWrongLineAndPrintTheSameTwice) {
    for (const char* name : {"account-trees.txt", "accounts.txt"}) {
        SCOPED_TRACE(name);
        const auto play = [name] {
            TScriptPlay script(TAnswerBy::Yes);
            const std::string out =
                script.RunFile(std::filesystem::path(QUORIN_DATA_DIR) / "scripts" / name);
            EXPECT_EQ(script.Wrong, 0) << script.Errors.str();
            EXPECT_EQ(out.find("refused"), std::string::npos) << out;
            return out;
        };
        EXPECT_EQ(play(), play());
    }
}

TEST(ScriptTest, OnlyWhatChangedIsPrinted) {
    EXPECT_EQ(Behind("watch SEHK\nbatchmode off\n"), "> 2 watch SEHK\n> 3 batchmode off\n");
    const std::string moved = Behind("move 1 0\n");
    EXPECT_NE(moved.find("\n  market     0 00011 "), std::string::npos) << moved;
    EXPECT_NE(moved.find("\n  market     1 00005 "), std::string::npos) << moved;
    EXPECT_EQ(std::count(moved.begin(), moved.end(), '\n'), 3) << moved;
    const std::string emptied = Behind("underlyer HKFE HKFE.HSI options\n");
    EXPECT_EQ(emptied, "> 2 underlyer HKFE HKFE.HSI options\n"
                       "  head     HKFE.HSI options  M88001  09:30:00.000  #0\n"
                       "  market   Futures and options  Hang Seng Index\n"
                       "  market     0-19 gone\n");
}

TEST(ScriptTest, CellShowsTheKindOfItsValue) {
    EXPECT_EQ(Behind("cell 0 0\ncell 0 31\ncell 0 3\ncell 0 77777\n"),
              "> 2 cell 0 0\n  cell     text \"00005\" | \"00005\"\n"
              "> 3 cell 0 31\n  cell     real 100.4 | \"100.4\"\n"
              "> 4 cell 0 3\n  cell     real 0 | \"-\"\n"
              "> 5 cell 0 77777\n  cell     text \"\" | \"\"\n");
    // A position without a quote.
    const std::string position = Behind("account P50001\npositions\ncell 2 3\n");
    EXPECT_EQ(position.substr(position.find("> 4")), "> 4 cell 2 3\n  cell     whole 0 | \"-\"\n");
}

TEST(ScriptTest, RowsAreThoseOfTheListShownLast) {
    const std::string cells = Behind("account P50001\npositions\ncell 1 0\nwatch SEHK\ncell 1 0\n");
    const std::size_t position = cells.find("> 4 cell 1 0\n  cell     text \"00700\"");
    const std::size_t market = cells.find("> 6 cell 1 0\n  cell     text \"00011\"");
    EXPECT_NE(position, std::string::npos) << cells;
    EXPECT_NE(market, std::string::npos) << cells;
}

TEST(ScriptTest, LanguageAndSettingsReachTheScreen) {
    const std::string out = Behind("language 2\nset QtyThousandPeriod n\nstep 1\n");
    EXPECT_NE(out.find("  market       代码 "), std::string::npos);
    EXPECT_NE(out.find("汇丰控股"), std::string::npos);
    EXPECT_EQ(out.find(",000 ", out.find("> 3")), std::string::npos) << "no groups";
}

TEST(ScriptTest, EveryCommandIsInTheHelp) {
    const std::string help = ScriptHelp();
    for (const TScriptCommand& command : ScriptCommands()) {
        EXPECT_NE(help.find(std::string("  ") + command.Pattern + "\n"), std::string::npos);
    }
    EXPECT_NE(Behind("help\n").find(help), std::string::npos);
}

} // namespace
} // namespace quorin
