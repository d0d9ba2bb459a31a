#include "terminal/console/ScriptGrammar.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ScriptFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace quorin {
namespace {

std::string Joined(const std::vector<String>& words) {
    std::string text;
    for (const String& word : words) text += "<" + ToUtf8(word) + ">";
    return text;
}

TEST(ScriptGrammarTest, LineFallsIntoWords) {
    const struct {
        const char* Name;
        StringView Line;
        const char* Words;
    } cases[] = {
        {"blanks around and between", u"  buy\t market   3 \r", "<buy><market><3>"},
        {"nothing", u"", ""},
        {"comment alone", u"# buy market 3", ""},
        {"comment behind", u"buy # market", "<buy>"},
        {"mark inside a word", u"set a#b c", "<set><a#b><c>"},
        {"quoted blanks", u"set a \"b c\"", "<set><a><b c>"},
        {"quoted nothing", u"set a \"\"", "<set><a><>"},
        {"quoted mark", u"set a \"# b\"", "<set><a><# b>"},
        {"quoted part", u"a\"b c\"d", "<ab cd>"},
    };
    for (const auto& row : cases) {
        const auto words = ScriptWords(row.Line);
        ASSERT_TRUE(words.has_value()) << row.Name;
        EXPECT_EQ(Joined(*words), row.Words) << row.Name;
    }
    EXPECT_FALSE(ScriptWords(u"set a \"b").has_value());
}

// The places of a match, "-" for one that was left out; "no" without a match.
std::string Matched(const char* pattern, StringView line) {
    const auto match = MatchPattern(pattern, *ScriptWords(line));
    if (!match.has_value()) return "no";
    std::string text;
    const std::string places = pattern;
    const auto count = static_cast<std::size_t>(std::count(places.begin(), places.end(), ' ')) + 1;
    for (std::size_t place = 0; place < count; ++place) {
        text += "<" + (match->Has(place) ? ToUtf8(match->Word(place)) : "-") + ">";
    }
    return text;
}

TEST(ScriptGrammarTest, WordsFitPatterns) {
    constexpr const char* order = "buy|sell market|last ROW";
    constexpr const char* underlyer = "show SERIES [MONTH] [call|put]";
    const struct {
        const char* Name;
        const char* Pattern;
        StringView Line;
        const char* Places;
    } cases[] = {
        {"either word", order, u"sell last 12", "<sell><last><12>"},
        {"word of another place", order, u"market buy 1", "no"},
        {"case counts", order, u"Buy last 1", "no"},
        {"part of a word", order, u"bu last 1", "no"},
        {"word missing", order, u"buy last", "no"},
        {"word too many", order, u"buy last 1 2", "no"},
        {"row below the first", order, u"buy last -1", "no"},
        {"row with a fraction", order, u"buy last 1.0", "no"},
        {"row beyond any list", order, u"buy last 99999999999", "no"},
        {"count of nothing", "step COUNT", u"step 0", "no"},
        {"smallest count", "step COUNT", u"step 1", "<step><1>"},
        {"all of the optional", underlyer, u"show X 2026-12 put", "<show><X><2026-12><put>"},
        {"first of the optional", underlyer, u"show X 2026-12", "<show><X><2026-12><->"},
        {"second of the optional", underlyer, u"show X call", "<show><X><-><call>"},
        {"none of the optional", underlyer, u"show X", "<show><X><-><->"},
        {"optional in another order", underlyer, u"show X call 2026-12", "no"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Matched(row.Pattern, row.Line), row.Places) << row.Name;
    }
    EXPECT_TRUE(MatchesFirstWord(order, u"sell"));
    EXPECT_FALSE(MatchesFirstWord(order, u"last"));
}

TEST(ScriptGrammarTest, FileKeepsItsLineNumbers) {
    std::istringstream script("\xEF\xBB\xBFwatch X\r\n\n  # nothing\n step 3 # go\nset a \"b\n"
                              "caf\xE9 1\nlast");
    const std::vector<TScriptLine> lines = ReadScript(script);
    std::string text;
    for (const TScriptLine& line : lines) {
        text += std::to_string(line.Number) + Joined(line.Words) + line.Fault + "\n";
    }
    EXPECT_EQ(text, "1<watch><X>\n4<step><3>\n5a quotation mark is left open\n"
                    "6the line is not UTF-8\n7<last>\n");
}

} // namespace
} // namespace quorin
