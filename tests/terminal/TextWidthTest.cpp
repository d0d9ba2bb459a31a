#include "terminal/console/TextWidth.h"
#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(TextWidthTest, CountsScreenColumns) {
    const struct {
        const char* Name;
        StringView Text;
        Integer Width;
    } cases[] = {
        {"empty", u"", 0},
        {"latin", u"HSBC", 4},
        {"accent in one unit", u"\u00E9", 1},
        {"accent as its own mark", u"e\u0301", 1},
        {"last before the first wide block", u"\u10FF", 1},
        {"first of the first wide block", u"\u1100", 2},
        {"last of the first wide block", u"\u115F", 2},
        {"behind the first wide block", u"\u1160", 1},
        {"ideographs", u"\u9A30\u8A0A\u63A7\u80A1", 8},
        {"kana", u"\u30C6\u30B9\u30C8", 6},
        {"hangul", u"\uC0BC\uC131", 4},
        {"full-width letter", u"\uFF21", 2},
        {"half-width kana", u"\uFF71", 1},
        {"ideographic space", u"\u3000", 2},
        {"ideograph beyond 16 bits", u"\U00020BB7", 2},
        {"last of that plane", u"\U0002FFFD", 2},
        {"joiner", u"a\u200Db", 2},
        {"move marks", u"\u25B2\u25BC=", 3},
        {"lone surrogate", u"\xD842", 1},
        {"private use", u"\uE000", 1},
    };
    for (const auto& row : cases) EXPECT_EQ(TextWidth(row.Text), row.Width) << row.Name;
}

TEST(TextWidthTest, FitsIntoColumns) {
    const struct {
        const char* Name;
        StringView Text;
        Integer Width;
        TAlign Align;
        StringView Fitted;
    } cases[] = {
        {"left", u"ab", 4, TAlign::Left, u"ab  "},
        {"right", u"ab", 4, TAlign::Right, u"  ab"},
        {"exact", u"abcd", 4, TAlign::Left, u"abcd"},
        {"cut", u"abcde", 4, TAlign::Left, u"abc\u2026"},
        {"cut to nothing but the mark", u"ab", 1, TAlign::Left, u"\u2026"},
        {"no room", u"ab", 0, TAlign::Left, u""},
        {"negative room", u"ab", -3, TAlign::Right, u""},
        {"empty", u"", 3, TAlign::Left, u"   "},
        {"wide fits", u"\u9A30\u8A0A", 5, TAlign::Left, u"\u9A30\u8A0A "},
        {"wide cut on its border", u"\u9A30\u8A0A", 3, TAlign::Left, u"\u9A30\u2026"},
        {"wide does not fit the half", u"\u9A30\u8A0A\u63A7", 4, TAlign::Left, u"\u9A30\u2026 "},
        {"wide cut, right", u"\u9A30\u8A0A\u63A7", 4, TAlign::Right, u" \u9A30\u2026"},
        {"pair stays whole", u"\U00020BB7\U00020BB7", 3, TAlign::Left, u"\U00020BB7\u2026"},
        {"mark stays with its letter", u"e\u0301fg", 2, TAlign::Left, u"e\u0301\u2026"},
        {"escape sequence", u"a\x1b[2Jb", 6, TAlign::Left, u"a\uFFFD[2Jb"},
        {"line break", u"a\nb", 3, TAlign::Left, u"a\uFFFDb"},
    };
    for (const auto& row : cases) {
        const String fitted = FitText(row.Text, row.Width, row.Align);
        EXPECT_EQ(ToUtf8(fitted), ToUtf8(row.Fitted)) << row.Name;
        EXPECT_EQ(TextWidth(fitted), std::max<Integer>(row.Width, 0)) << row.Name;
    }
}

} // namespace
} // namespace quorin
