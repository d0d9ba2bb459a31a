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

// What the form shows, as the file should have it.
std::string CsvOf(TShownForm& form) {
    std::string csv;
    for (Integer row = -1; row < form.RowCount(); ++row) {
        std::string line;
        for (Integer index = 0; index < form.ColumnCount(); ++index) {
            const TcxViewColumn& column = form.Column(index);
            if (!column.GetVisible()) continue;
            const bool isFirst = column.VisibleIndex() == 0;
            std::string text = ToUtf8(row < 0 ? column.Caption() : form.CellText(row, index));
            if (isFirst && row >= 0 && !text.empty()) {
                text.insert(0, static_cast<std::size_t>(form.Depth(row)) * 2, ' ');
            }
            if (text.find(',') != text.npos) text = "\"" + text + "\"";
            line += (isFirst ? "" : ",") + text;
        }
        csv += line + "\r\n";
    }
    return csv;
}

// Each form: its layout goes out and in again, and the file has what the form shows.
TEST_F(ScriptLayout, EveryFormKeepsItsLayoutAndSavesWhatItShows) {
    const struct {
        const char* Form;
        const char* Kind;
        const char* Sort;
    } cases[] = {
        {"watch SEHK", "grid", "0,0,2;"},
        {"underlyer HKFE HKFE.HSI futures", "grid", "0,0,2;"},
        {"positions", "grid", "0,0,2;10,1,1;"},
        {"positionview", "grid", ""},
        {"accounttree", "tree", "3,0,2;"},
        {"cash", "tree", ""},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Form);
        TScriptPlay play;
        play.Run(std::string("account P50001\nstep 2\n") + test.Form + "\nsortlayout \"" +
                 test.Sort + "\"\n");
        TShownForm& form = play.Screen->Last();
        const auto layout = [&] { return Last(play, "step 1\nlayout\n"); };
        form.Column(1).SetIndex(0);
        const std::string before = layout();
        const std::size_t start = before.find("columns  ") + 9;
        const std::string stored = before.substr(start, before.find('\n') - start);
        form.Column(0).SetWidth(7);
        form.Column(form.ColumnCount() - 1).SetIndex(0);
        form.Column(1).SetVisible(false);
        EXPECT_NE(layout(), before);
        EXPECT_NE(play.Run("layout \"" + stored + "\"\n").find("  result   done\n"),
                  std::string::npos);
        EXPECT_EQ(layout(), before);
        const std::string sort = *test.Sort == 0 ? "" : std::string("     ") + test.Sort;
        EXPECT_NE(before.find("\n  sort" + sort + "\n"), std::string::npos) << before;

        play.Run(std::string("export ") + test.Kind + " csv view\n");
        EXPECT_EQ(play.Wrong, 0) << play.Errors.str();
        EXPECT_GT(form.RowCount(), 1);
        EXPECT_EQ(Content("view.csv"), CsvOf(form));
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
    struct TWrongLine {
        const char* Line;
        const char* Reason;
    };
    const TWrongLine cases[] = {
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
    const TWrongLine treeCases[] = {
        {"export grid csv a", "what was shown last is no grid"},
        {"filter Figure = 1", "what was shown last is no grid"},
        {"find a", "what was shown last is no grid"},
        {"columns -Figure", "the column Figure is always shown"},
    };
    TScriptPlay play;
    const auto expectWrong = [&play](const TWrongLine& test) {
        SCOPED_TRACE(test.Line);
        play.Errors.str("");
        EXPECT_EQ(play.Run(std::string(test.Line) + "\n"), std::string("> 1 ") + test.Line + "\n");
        EXPECT_NE(play.Errors.str().find(test.Reason), std::string::npos) << play.Errors.str();
    };
    play.Run("accounttree\n");
    for (const TWrongLine& test : treeCases) expectWrong(test);
    play.Run("watch SEHK\nstep 1\n");
    for (const TWrongLine& test : cases) expectWrong(test);
    EXPECT_EQ(Last(play, "\nstep 1\nexport grid csv old.csv\n"),
              "  question Replace the file old.csv?\n  answer   no\n  result   refused\n");
    EXPECT_EQ(Content("old.csv"), "old");
}

} // namespace
} // namespace quorin
