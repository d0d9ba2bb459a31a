#include "platform/rtl/Text.h"

#include "platform/rtl/FormatSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace quorin {
namespace {

int Sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(TextTest, TrimsUnitsUpToTheSpace) {
    const struct {
        const char* Name;
        StringView Text, Both, Left, Right;
    } rows[] = {
        {"empty", u"", u"", u"", u""},
        {"only blanks", u" \t ", u"", u"", u""},
        {"both ends", u" \ta b\n ", u"a b", u"a b\n ", u" \ta b"},
        {"nothing to trim", u"a", u"a", u"a", u"a"},
        {"NUL is a blank", StringView(u"\0a\0", 3), u"a", StringView(u"a\0", 2),
         StringView(u"\0a", 2)},
        {"a no-break space is none", u"\u00A0a\u3000", u"\u00A0a\u3000", u"\u00A0a\u3000",
         u"\u00A0a\u3000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Trim(row.Text), row.Both);
        EXPECT_EQ(TrimLeft(row.Text), row.Left);
        EXPECT_EQ(TrimRight(row.Text), row.Right);
    }
}

TEST(TextTest, MapsCase) {
    const struct {
        const char* Name;
        StringView Text, Upper, Lower;
    } rows[] = {
        {"ASCII and its neighbours", u"@AZ[`az{09", u"@AZ[`AZ{09", u"@az[`az{09"},
        {"Latin", u"éÀÿ÷×", u"ÉÀŸ÷×", u"éàÿ÷×"},
        {"every second unit", u"\u0100\u0101\u0102\u0103", u"\u0100\u0100\u0102\u0102",
         u"\u0101\u0101\u0103\u0103"},
        {"no second character", u"ßŉ", u"ßŉ", u"ßŉ"},
        {"three cases", u"ǄǅǆǇ", u"ǄǄǄǇ", u"ǆǆǆǉ"},
        {"Greek with both sigmas", u"Σσς", u"ΣΣΣ", u"σσς"},
        {"Cyrillic", u"Жжё", u"ЖЖЁ", u"жжё"},
        {"full-width", u"\uFF21\uFF41\uFF5A\uFF5B", u"\uFF21\uFF21\uFF3A\uFF5B",
         u"\uFF41\uFF41\uFF5A\uFF5B"},
        {"with an iota below", u"\u1F80\u1F88", u"\u1F88\u1F88", u"\u1F80\u1F80"},
        {"far partner", u"\uAB70\u13A0\u1C90\u10D0", u"\u13A0\u13A0\u1C90\u1C90",
         u"\uAB70\uAB70\u10D0\u10D0"},
        {"no case", u"股票\u3042", u"股票\u3042", u"股票\u3042"},
        {"surrogates stay", u"\U00010428\U00010400", u"\U00010428\U00010400",
         u"\U00010428\U00010400"},
        {"last unit", u"\uFFFF", u"\uFFFF", u"\uFFFF"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(UpperCase(row.Text), row.Upper);
        EXPECT_EQ(LowerCase(row.Text), row.Lower);
    }
}

TEST(TextTest, MapsEachUnitOnce) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const Char unit = static_cast<Char>(code);
        ASSERT_EQ(UpperCase(UpperCase(unit)), UpperCase(unit)) << std::hex << code;
        ASSERT_EQ(LowerCase(LowerCase(unit)), LowerCase(unit)) << std::hex << code;
    }
}

TEST(TextTest, ComparesWithoutCase) {
    const struct {
        const char* Name;
        StringView Left, Right;
        int Order;
    } rows[] = {
        {"both empty", u"", u"", 0},
        {"empty first", u"", u"a", -1},
        {"other case", u"Hk\u00E9", u"hK\u00C9", 0},
        {"beginning first", u"abc", u"ABCD", -1},
        {"by letter, not by case", u"b", u"A", 1},
        {"underscore behind letters", u"A_", u"AZ", 1},
        {"digits are units", u"A10", u"A9", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Sign(CompareText(row.Left, row.Right)), row.Order);
        EXPECT_EQ(Sign(CompareText(row.Right, row.Left)), -row.Order);
        EXPECT_EQ(SameText(row.Left, row.Right), row.Order == 0);
    }
}

// Each entry stands before all that follow.
TEST(TextTest, ComparesNaturally) {
    const std::vector<StringView> ordered =
        Split(u"|0|00|01|1|1a|2|10|18446744073709551616|18446744073709551617|A|a|a 1|A01|A1|a01|a1|"
              u"A1B|a1b|a01c2|a1c3|a2|A10|a10|AB|b",
              u'|');
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        for (std::size_t j = 0; j < ordered.size(); ++j) {
            const int expected = (i > j) - (i < j);
            EXPECT_EQ(Sign(CompareNatural(ordered[i], ordered[j])), expected)
                << testing::PrintToString(ordered[i]) << testing::PrintToString(ordered[j]);
        }
    }
}

TEST(TextTest, Splits) {
    const struct {
        const char* Name;
        StringView Text;
        std::vector<StringView> Pieces;
    } rows[] = {
        {"empty", u"", {}},
        {"one piece", u"a", {u"a"}},
        {"two", u"a,b", {u"a", u"b"}},
        {"empty at the end", u"a,b,", {u"a", u"b"}},
        {"two empty at the end", u"a,,", {u"a", u""}},
        {"empty inside and in front", u",a,,b", {u"", u"a", u"", u"b"}},
        {"only a separator", u",", {u""}},
        {"blanks stay", u" a , ", {u" a ", u" "}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Split(row.Text, u','), row.Pieces);
    }
}

TEST(TextTest, ReplacesAll) {
    EXPECT_EQ(ReplaceAll(u"a-b-c", u"-", u"--"), u"a--b--c");
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"a"), u"aa") << "what was put in is not looked at";
    EXPECT_EQ(ReplaceAll(u"abc", u"b", u""), u"ac");
    EXPECT_EQ(ReplaceAll(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(ReplaceAll(u"Abc", u"a", u"x"), u"Abc");
    EXPECT_EQ(ReplaceAll(u"", u"a", u"x"), u"");
}

TEST(TextTest, FormatsText) {
    EXPECT_EQ(FormatText(u"%s;%s", {u"1", u"2"}), u"1;2");
    EXPECT_EQ(FormatText(u"%s of %s", {u"1"}), u"1 of ");
    EXPECT_EQ(FormatText(u"%s", {u"1", u"2"}), u"1");
    EXPECT_EQ(FormatText(u"%s%%", {u"5"}), u"5%");
    EXPECT_EQ(FormatText(u"%%s", {u"5"}), u"%s");
    EXPECT_EQ(FormatText(u"%s %s", {u"%s", u"x"}), u"%s x") << "arguments are no patterns";
    EXPECT_EQ(FormatText(u"%d 100%", {u"5"}), u"%d 100%");
    EXPECT_EQ(FormatText(u"", {u"5"}), u"");
}

TEST(TextTest, FormatSettingsBeginInEnglishAndKeepWhatIsWritten) {
    EXPECT_EQ(FormatSettings().ShortDayNames[1], u"Sun");
    EXPECT_EQ(FormatSettings().ShortDayNames.back(), u"Sat");
    EXPECT_EQ(FormatSettings().ShortMonthNames[1], u"Jan");
    EXPECT_EQ(FormatSettings().ShortMonthNames.back(), u"Dec");

    const TFormatSettings before = FormatSettings();
    FormatSettings().ShortDayNames[1] = u"日";
    EXPECT_EQ(FormatSettings().ShortDayNames[1], u"日");
    FormatSettings() = before;
}

} // namespace
} // namespace quorin
