// Layouts, choosers, filters, finding and files as a script has them.

#include "platform/rtl/Utf.h"
#include "tests/terminal/ScriptPlay.h"

#include <gtest/gtest.h>

#include <fstream>
#include <unistd.h>

namespace quorin {
namespace {

namespace fs = std::filesystem;

// Runs scripts in a folder of its own.
struct ScriptLayout : testing::Test {
    ScriptLayout() {
        fs::create_directories(Folder);
        fs::current_path(Folder);
    }
    ~ScriptLayout() override {
        fs::current_path(Before);
        std::error_code ignored;
        fs::remove_all(Folder, ignored);
    }
    static std::string Content(const fs::path& file) {
        std::ostringstream content;
        content << std::ifstream(file, std::ios::binary).rdbuf();
        return content.str();
    }
    // What the last line of the script has printed, without its changes on the screen.
    static std::string Last(TScriptPlay& play, const std::string& script) {
        const std::string out = play.Run(script);
        const std::size_t line = out.rfind("\n> ");
        const std::size_t end = out.find('\n', line + 1);
        return out.substr(end + 1);
    }

    const fs::path Before = fs::current_path();
    const fs::path Folder =
        fs::temp_directory_path() / ("quorin-layouts-" + std::to_string(getpid()));
};

TEST_F(ScriptLayout, TheShippedScriptHasNoWrongLineAndPrintsTheSameTwice) {
    const auto play = [] {
        TScriptPlay script(TAnswerBy::Yes);
        const std::string out =
            script.RunFile(fs::path(QUORIN_DATA_DIR) / "scripts" / "layouts.txt");
        EXPECT_EQ(script.Wrong, 0) << script.Errors.str();
        EXPECT_EQ(out.find("refused"), std::string::npos) << out;
        return out;
    };
    const std::string first = play();
    EXPECT_EQ(first.find("question"), std::string::npos) << "no file was there";
    const std::string csv = Content("positions.csv");
    EXPECT_GT(std::count(csv.begin(), csv.end(), '\n'), 1) << csv;
    const std::string second = play();
    EXPECT_NE(second.find("  question Replace the file positions.csv?\n  answer   yes\n"),
              std::string::npos);
    EXPECT_EQ(Content("positions.csv"), csv);
}

// Each form: its layout goes out and in again, and the file has what the list shows.
TEST_F(ScriptLayout, EveryFormKeepsItsLayoutAndSavesWhatItShows) {
    for (const char* form :
         {"watch SEHK", "underlyer HKFE HKFE.HSI futures", "positions", "positionview"}) {
        SCOPED_TRACE(form);
        TScriptPlay play;
        play.Run(std::string("account P50001\nstep 2\n") + form + "\nsortlayout \"0,0,2;\"\n");
        TcxGridTableView& view = *play.Screen->LastView().Grid->ActiveView();
        const auto layout = [&] { return Last(play, "step 1\nlayout\n"); };
        view.GetColumn(1)->SetIndex(0);
        const std::string before = layout();
        const std::size_t start = before.find("columns  ") + 9;
        const std::string stored = before.substr(start, before.find('\n') - start);
        view.GetColumn(3)->SetVisible(false);
        view.GetColumn(2)->SetIndex(7);
        view.GetColumn(2)->SetWidth(7);
        EXPECT_NE(layout(), before);
        EXPECT_NE(play.Run("layout \"" + stored + "\"\n").find("  result   done\n"),
                  std::string::npos);
        EXPECT_EQ(layout(), before);
        EXPECT_NE(before.find("  sort     0,0,2;\n"), std::string::npos) << before;

        play.Run("export grid csv view\n");
        EXPECT_EQ(play.Wrong, 0) << play.Errors.str();
        std::string shown;
        for (Integer row = -1; row < view.RowCount(); ++row) {
            for (Integer index = 0; index < view.GetColumnCount(); ++index) {
                TcxGridColumn& column = *view.GetColumn(index);
                if (!column.GetVisible()) continue;
                std::string text = ToUtf8(row < 0 ? column.Caption() : view.CellText(row, column));
                if (text.find(',') != text.npos) text = "\"" + text + "\"";
                shown += (column.VisibleIndex() > 0 ? "," : "") + text;
            }
            shown += "\r\n";
        }
        EXPECT_GT(view.RowCount(), 1);
        EXPECT_EQ(Content("view.csv"), shown);
        fs::remove("view.csv");
    }
}

TEST_F(ScriptLayout, ChoosersFiltersAndFindingAnswer) {
    TScriptPlay play;
    play.Run("watch SEHK\n");
    const struct {
        const char* Line;
        const char* Answer;
    } cases[] = {
        {"filter Symbol = 00700,00005", "  filter   Symbol = 00700,00005, 2 rows\n"},
        {"filter Symbol", "  filter   Symbol = 00700,00005, 2 rows\n"},
        {"find HSBC", "  find     HSBC [Find] [Clear], 1 rows\n"},
        {"find", "  find     Text to find [Find] [Clear], 2 rows\n"},
        {"filter Symbol <> \"\"", "  filter   Symbol none, 109 rows\n"},
        {"filter PrevClose between 5,1", "  filter   Prev. close between 5,1, 0 rows\n"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Line);
        const std::string out = play.Run(std::string(row.Line) + "\n");
        EXPECT_NE(out.find(row.Answer), std::string::npos) << out << play.Errors.str();
    }
}

TEST_F(ScriptLayout, WrongLinesChangeNothing) {
    fs::create_directory("folder.csv");
    std::ofstream("old.csv") << "old";
    const struct {
        const char* Line;
        const char* Reason;
    } cases[] = {
        {"export tree csv a", "what was shown last is no tree"},
        {"export grid pdf a", "usage: export grid|tree csv|xls|xlsx PATH"},
        {"export grid csv folder", "folder.csv cannot be written: it is a folder"},
        {"export grid xls nowhere/a.xls", "nowhere/a.xls cannot be written: No such file or"},
        {"columns Gone", "there is no column Gone"},
        {"columns Symbol,Symbol", "the column Symbol is named twice"},
        {"columns -Symbol", "the column Symbol is always shown"},
        {"filter Gone = 1", "there is no column Gone"},
        {"filter Symbol like 1", "usage: filter COLUMN, or filter COLUMN contains|"},
        {"sortlayout", "usage: sortlayout STRING"},
    };
    TScriptPlay play;
    play.Run("watch SEHK\nstep 1\n");
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Line);
        play.Errors.str("");
        EXPECT_EQ(play.Run(std::string(row.Line) + "\n"), std::string("> 1 ") + row.Line + "\n");
        EXPECT_NE(play.Errors.str().find(row.Reason), std::string::npos) << play.Errors.str();
    }
    EXPECT_EQ(Last(play, "\nstep 1\nexport grid csv old.csv\n"),
              "  question Replace the file old.csv?\n  answer   no\n  result   refused\n");
    EXPECT_EQ(Content("old.csv"), "old");
}

} // namespace
} // namespace quorin
