#include "platform/rtl/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quorin {
namespace {

constexpr Double Infinity = std::numeric_limits<Double>::infinity();
constexpr Double NotANumber = std::numeric_limits<Double>::quiet_NaN();
constexpr auto Nothing = std::nullopt;

// What a target holds when nothing was written to it.
constexpr Integer Untouched = -77;

struct TDoubleRow {
    const char* Name;
    String Text;
    std::optional<Double> Value;
};

TEST(NumbersTest, ReadsDoubles) {
    const String zeros(400, u'0');
    const String nines(400, u'9');
    const TDoubleRow rows[] = {
        {"whole", u"42", 42.0},
        {"sign", u"-0.25", -0.25},
        {"plus", u"+5", 5.0},
        {"blanks around", u" 7 ", 7.0},
        {"controls are blanks", u"\t\r\n7\u0001", 7.0},
        {"nothing behind the point", u"1.", 1.0},
        {"nothing before the point", u".5", 0.5},
        {"exponent", u"1.5E-3", 0.0015},
        {"exponent with a plus", u"2e+2", 200.0},
        {"nearest double", u"9007199254740993", 9007199254740992.0},
        {"largest", u"1.7976931348623157e308", std::numeric_limits<Double>::max()},
        {"smallest", u"4.9406564584124654e-324", std::numeric_limits<Double>::denorm_min()},
        {"too large", u"1e400", Nothing},
        {"too large below zero", u"-1e400", Nothing},
        {"just too large", u"1.8e308", Nothing},
        {"too large without exponent", nines, Nothing},
        {"too small", u"1e-400", 0.0},
        {"too small without exponent", u"0." + zeros + u"1", 0.0},
        {"a long fraction and its exponent", u"0." + zeros + u"25e401", 2.5},
        {"a long number and its exponent", u"25" + zeros + u"e-400", 25.0},
        {"long leading zeros", zeros + u"8", 8.0},
        {"exponent beyond any width", u"1e99999999999999999999", Nothing},
        {"small exponent beyond any width", u"1e-99999999999999999999", 0.0},
        {"zero with a huge exponent", u"0e99999999999999999999", 0.0},
        {"empty", u"", Nothing},
        {"only blanks", u"  ", Nothing},
        {"only a sign", u"-", Nothing},
        {"two signs", u"+-5", Nothing},
        {"blank behind the sign", u"- 5", Nothing},
        {"only a point", u".", Nothing},
        {"two points", u"1.2.3", Nothing},
        {"only an exponent", u"e5", Nothing},
        {"exponent without digits", u"1e", Nothing},
        {"exponent with a sign only", u"1e-", Nothing},
        {"exponent with a point", u"1e2.5", Nothing},
        {"hexadecimal", u"0x10", Nothing},
        {"infinity", u"inf", Nothing},
        {"not a number", u"nan", Nothing},
        {"groups", u"1,000", Nothing},
        {"comma for a point", u"1,5", Nothing},
        {"a word behind", u"5 a", Nothing},
        {"NUL inside", String(u"1\0002", 3), Nothing},
        {"full-width digits", u"\uFF11\uFF12", Nothing},
        {"unit whose low byte is a digit", u"\u0131", Nothing},
    };
    for (const TDoubleRow& row : rows) {
        SCOPED_TRACE(row.Name);
        Double value = Untouched;
        EXPECT_EQ(TryParseDouble(row.Text, value), row.Value.has_value());
        EXPECT_EQ(value, row.Value.value_or(Untouched));
        EXPECT_EQ(ToDoubleOr(row.Text, 1.25), row.Value.value_or(1.25));
    }
}

TEST(NumbersTest, ReadsNoNegativeZero) {
    for (const StringView text : {u"-0", u"-0.0", u"-1e-400"}) {
        Double value = Untouched;
        EXPECT_TRUE(TryParseDouble(text, value));
        EXPECT_EQ(value, 0.0);
        EXPECT_FALSE(std::signbit(value));
    }
}

struct TWholeRow {
    const char* Name;
    String Text;
    std::optional<Int64> Value;
};

TEST(NumbersTest, ReadsWholeNumbers) {
    constexpr Int64 Lowest = std::numeric_limits<Int64>::min();
    constexpr Int64 Highest = std::numeric_limits<Int64>::max();
    const TWholeRow rows[] = {
        {"zero", u"0", 0},
        {"no negative zero", u"-0", 0},
        {"signs and blanks", u" +12\n", 12},
        {"leading zeros", String(100, u'0') + u"9", 9},
        {"Integer at its end", u"2147483647", 2147483647},
        {"Integer just above", u"2147483648", 2147483648},
        {"Integer at its low end", u"-2147483648", -2147483648},
        {"Integer just below", u"-2147483649", -2147483649},
        {"Int64 at its end", u"9223372036854775807", Highest},
        {"Int64 just above", u"9223372036854775808", Nothing},
        {"Int64 at its low end", u"-9223372036854775808", Lowest},
        {"Int64 just below", u"-9223372036854775809", Nothing},
        {"ten times too large", u"92233720368547758070", Nothing},
        {"long", String(100, u'1'), Nothing},
        {"empty", u"", Nothing},
        {"only a sign", u"+", Nothing},
        {"point", u"1.0", Nothing},
        {"exponent", u"1e2", Nothing},
        {"hexadecimal", u"0x10", Nothing},
        {"blank inside", u"1 2", Nothing},
        {"NUL behind", String(u"1\0", 2), 1}, // a blank, as all units up to the space
        {"full-width digit", u"\uFF11", Nothing},
    };
    for (const TWholeRow& row : rows) {
        SCOPED_TRACE(row.Name);
        Int64 wide = Untouched;
        EXPECT_EQ(TryParseInt64(row.Text, wide), row.Value.has_value());
        EXPECT_EQ(wide, row.Value.value_or(Untouched));

        const bool fits = row.Value && *row.Value >= -2147483648LL && *row.Value <= 2147483647LL;
        Integer narrow = Untouched;
        EXPECT_EQ(TryParseInteger(row.Text, narrow), fits);
        EXPECT_EQ(narrow, fits ? *row.Value : Untouched);
        EXPECT_EQ(ToIntegerOr(row.Text, 3), fits ? *row.Value : 3);
    }
}

TEST(NumbersTest, RoundsHalvesToEvenAndSaturates) {
    const struct {
        const char* Name;
        Double Value;
        Integer Narrow;
        Int64 Wide;
    } rows[] = {
        {"half down to even", 2.5, 2, 2},
        {"half up to even", 3.5, 4, 4},
        {"half below zero", -2.5, -2, -2},
        {"just below a half", 0.49999999999999994, 0, 0},
        {"negative zero", -0.0, 0, 0},
        {"last that fits 32 bits", 2147483647.4, 2147483647, 2147483647},
        {"rounds out of 32 bits", 2147483647.5, 2147483647, 2147483648},
        {"low end of 32 bits", -2147483648.5, -2147483647 - 1, -2147483648},
        {"below 32 bits", -3e9, -2147483647 - 1, -3000000000},
        {"above 64 bits", 9223372036854775808.0, 2147483647, 9223372036854775807},
        {"last that fits 64 bits", 9223372036854774784.0, 2147483647, 9223372036854774784},
        {"low end of 64 bits", -9223372036854775808.0, -2147483647 - 1,
         std::numeric_limits<Int64>::min()},
        {"infinity", Infinity, 2147483647, 9223372036854775807},
        {"negative infinity", -Infinity, -2147483647 - 1, std::numeric_limits<Int64>::min()},
        {"not a number", NotANumber, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(RoundToInteger(row.Value), row.Narrow);
        EXPECT_EQ(RoundToInt64(row.Value), row.Wide);
    }
}

TEST(NumbersTest, WritesDecimals) {
    const struct {
        const char* Name;
        Double Value;
        int Decimals;
        String Plain;
        String Grouped;
    } rows[] = {
        {"zero", 0.0, 2, u"0.00", u"0.00"},
        {"negative zero", -0.0, 0, u"0", u"0"},
        {"rounds to zero without sign", -0.004, 2, u"0.00", u"0.00"},
        {"half away from zero", -0.005, 2, u"-0.01", u"-0.01"},
        {"half as it is written", 1.005, 2, u"1.01", u"1.01"},
        {"half below as it is written", 2.675, 2, u"2.68", u"2.68"},
        {"half of a whole", 0.5, 0, u"1", u"1"},
        {"half of an even", 2.5, 0, u"3", u"3"},
        {"just below a half", 1.00499999, 2, u"1.00", u"1.00"},
        {"a half only beyond 15 digits", 0.49999999999999994, 0, u"1", u"1"},
        {"carry into a new digit", 99.995, 2, u"100.00", u"100.00"},
        {"carry into a new group", 999.5, 0, u"1000", u"1,000"},
        {"three digits have no group", -999.0, 1, u"-999.0", u"-999.0"},
        {"groups", -1234567.891, 2, u"-1234567.89", u"-1,234,567.89"},
        {"decimals have no groups", 0.12345678, 7, u"0.1234568", u"0.1234568"},
        {"small", 0.000123, 5, u"0.00012", u"0.00012"},
        {"below the decimals by far", 1e-300, 3, u"0.000", u"0.000"},
        {"15 digits", 0.1 + 0.2, 17, u"0.30000000000000000", u"0.30000000000000000"},
        {"the 16th digit rounds", 123456789012345.675, 2, u"123456789012346.00",
         u"123,456,789,012,346.00"},
        {"a half of the 15th digit", 12345678901234.25, 2, u"12345678901234.30",
         u"12,345,678,901,234.30"},
        {"a half of many units", 9999999999.995, 2, u"10000000000.00", u"10,000,000,000.00"},
        {"no decimals for a negative number", 7.8, -3, u"8", u"8"},
        {"infinity", Infinity, 2, u"INF", u"INF"},
        {"negative infinity", -Infinity, 2, u"-INF", u"-INF"},
        {"not a number", NotANumber, 2, u"NAN", u"NAN"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(FormatDecimals(row.Value, row.Decimals, /*grouping=*/false), row.Plain);
        EXPECT_EQ(FormatDecimals(row.Value, row.Decimals, /*grouping=*/true), row.Grouped);
    }
}

TEST(NumbersTest, WritesHugeNumbersInGroups) {
    String expected = u"1";
    for (int group = 0; group < 100; ++group) expected += u",000";
    EXPECT_EQ(FormatDecimals(1e300, 0, /*grouping=*/true), expected);
    EXPECT_EQ(FormatPattern(-1e300, u"#,##0.####"), u"-" + expected);
}

TEST(NumbersTest, WritesByPattern) {
    const struct {
        const char* Name;
        Double Value;
        StringView Pattern;
        String Text;
    } rows[] = {
        {"grouped whole", 1234567.0, u"#,##0", u"1,234,567"},
        {"grouped half", 1234.5, u"#,##0", u"1,235"},
        {"zero", 0.0, u"#,##0", u"0"},
        {"no sign of zero", -0.4, u"#,##0", u"0"},
        {"optional decimals", 1234.5678, u"#,##0.#######", u"1,234.5678"},
        {"as many as there are", 0.123456789, u"#,##0.#######", u"0.1234568"},
        {"no point for a whole", 1234.0, u"#,##0.#######", u"1,234"},
        {"no groups", 1234567.25, u"##0.########", u"1234567.25"},
        {"zeros rounded into vanish", 1.999999999, u"##0.########", u"2"},
        {"needed decimals", 0.5, u"0.00", u"0.50"},
        {"needed and optional", 0.5, u"0.0##", u"0.5"},
        {"needed, optional and there", 0.5625, u"0.0##", u"0.563"},
        {"needed behind optional", 1.5, u"0.#0", u"1.50"},
        {"no needed whole digit", 0.25, u"#.##", u".25"},
        {"whole digits to fill up", 7.0, u"0,000", u"0,007"},
        {"comma behind the point", 1234.5, u"0.0,#", u"1234.5"},
        {"sum that is not round", 0.1 + 0.2, u"##0.####################", u"0.3"},
        {"infinity", -Infinity, u"0.00", u"-INF"},
        {"not a number", NotANumber, u"#,##0", u"NAN"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(FormatPattern(row.Value, row.Pattern), row.Text);
    }
}

TEST(NumbersTest, WritesDoubles) {
    const struct {
        const char* Name;
        Double Value;
        String Text;
        String Shortest;
    } rows[] = {
        {"zero", 0.0, u"0", u"0"},
        {"negative zero", -0.0, u"0", u"0"},
        {"whole", 42.0, u"42", u"42"},
        {"round whole", 1200.0, u"1200", u"1200"},
        {"fraction", -0.1, u"-0.1", u"-0.1"},
        {"sum that is not round", 0.1 + 0.2, u"0.3", u"0.30000000000000004"},
        {"third", 1.0 / 3.0, u"0.333333333333333", u"0.3333333333333333"},
        {"last plain small", 0.00001, u"0.00001", u"0.00001"},
        {"small", 0.0000025, u"2.5E-6", u"0.0000025"},
        {"smaller", 0.00000015, u"1.5E-7", u"0.00000015"},
        {"smallest plain shortest", 1e-7, u"1E-7", u"0.0000001"},
        {"below it", -9e-8, u"-9E-8", u"-9E-8"},
        {"last plain large", 999999999999999.0, u"999999999999999", u"999999999999999"},
        {"rounds into an exponent", 999999999999999.9, u"1E15", u"999999999999999.9"},
        {"large", 1e15, u"1E15", u"1000000000000000"},
        {"beyond exact wholes", 9007199254740993.0, u"9.00719925474099E15", u"9007199254740992"},
        {"largest plain shortest", 1e17, u"1E17", u"100000000000000000"},
        {"larger", -1e20, u"-1E20", u"-1E20"},
        {"largest", std::numeric_limits<Double>::max(), u"1.79769313486232E308",
         u"1.7976931348623157E308"},
        {"least", std::numeric_limits<Double>::denorm_min(), u"4.94065645841247E-324", u"5E-324"},
        {"infinity", Infinity, u"INF", u"INF"},
        {"negative infinity", -Infinity, u"-INF", u"-INF"},
        {"not a number", -NotANumber, u"NAN", u"NAN"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(DoubleToText(row.Value), row.Text);
        EXPECT_EQ(ShortestText(row.Value), row.Shortest);
        if (std::isfinite(row.Value)) {
            EXPECT_EQ(ToDoubleOr(ShortestText(row.Value), Untouched), row.Value);
        }
    }
}

TEST(NumbersTest, AppendsBehindWhatIsThere) {
    String text = u"a";
    AppendInteger(text, std::numeric_limits<Int64>::min());
    AppendInteger(text, 0);
    AppendDouble(text, 0.5);
    AppendDecimals(text, 1.0, 1, /*grouping=*/false);
    AppendPattern(text, -2.0, u"0");
    EXPECT_EQ(text, u"a-922337203685477580800.51.0-2");
    EXPECT_EQ(IntegerToText(-12), u"-12");
}

} // namespace
} // namespace quorin
