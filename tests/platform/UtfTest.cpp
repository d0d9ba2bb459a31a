#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(UtfTest, ReadsUtf8AndWritesItBack) {
    const struct {
        const char* Name;
        std::string Bytes;
        String Text;
    } rows[] = {
        {"empty", "", u""},
        {"ASCII with NUL", std::string("a\0z", 3), String(u"a\0z", 3)},
        {"ends of one byte", "\x01\x7F", u"\u0001\u007F"},
        {"ends of two bytes", "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
        {"ends of three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
        {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},
        {"ends of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
        {"Chinese", "\xE6\x81\x92\xE7\x94\x9F", u"恒生"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(FromUtf8(row.Bytes), row.Text);
        EXPECT_EQ(ToUtf8(row.Text), row.Bytes);
        EXPECT_TRUE(IsValidUtf8(row.Bytes));
    }
}

TEST(UtfTest, ReplacesEachBrokenPart) {
    const struct {
        const char* Name;
        std::string Bytes;
        String Text;
    } rows[] = {
        {"continuation alone", "a\x80z", u"a\uFFFDz"},
        {"two continuations", "\x80\xBF", u"\uFFFD\uFFFD"},
        {"cut at the end", "a\xE6\x81", u"a\uFFFD"},
        {"cut by a letter", "\xE6\x81z", u"\uFFFDz"},
        {"cut by another lead", "\xF0\x90\x80\xE6\x81\x92", u"\uFFFD\u6052"},
        {"overlong of two", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"overlong of three", "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"overlong of four", "\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"too large", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"lead that is none", "\xF5\xFFz", u"\uFFFD\uFFFDz"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(FromUtf8(row.Bytes), row.Text);
        EXPECT_FALSE(IsValidUtf8(row.Bytes));
    }
}

TEST(UtfTest, ReplacesLoneSurrogates) {
    const Char high = 0xD83D;
    const Char low = 0xDE00;
    EXPECT_EQ(ToUtf8(String{high, low}), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(String{high}), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(String{low, u'a'}), "\xEF\xBF\xBD"
                                         "a");
    EXPECT_EQ(ToUtf8(String{low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(String{high, high, low}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

} // namespace
} // namespace quorin
