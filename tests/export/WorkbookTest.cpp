#include "tests/export/ExportFixture.h"

#include <algorithm>
#include <clocale>

namespace quorin {
namespace {

using TLines = std::vector<std::string>;

class TWorkbookTest : public TExportTest {
protected:
    // Writes the table as each kind of workbook and compares its cells below the captions; rows of
    // `expected` count from the first one below them.
    template <class Expected>
    void ExpectCells(TTextTable& table, Expected expected) {
        for (const TFormatCase& format : Workbooks) {
            SCOPED_TRACE(format.Extension);
            const auto file = File(std::string("a.") + format.Extension);
            ASSERT_TRUE(format.Export(file, table, nullptr));
            TLines lines;
            ReadBack(file, lines);
            if (IsSkipped() || HasFatalFailure()) return;
            lines.erase(lines.begin(),
                        std::find_if(lines.begin(), lines.end(),
                                     [](const auto& line) { return !line.starts_with("0 "); }));
            EXPECT_EQ(lines, expected(format));
        }
    }
};

TEST_F(TWorkbookTest, StoresANumberOnlyWithItsVeryText) {
    constexpr const char* Text = "";
    const struct {
        const char* Name;
        String Shown;
        std::string Value; // as Python writes it; Text for a cell of text
    } cases[] = {
        {"whole", u"42", "42.0"},
        {"zero", u"0", "0.0"},
        {"decimals that are zero", u"350.20", "350.2"},
        {"below zero", u"-0.035", "-0.035"},
        {"groups", u"1,234,567.50", "1234567.5"},
        {"groups below zero", u"-12,345", "-12345.0"},
        {"a plus", u"+1.25", "1.25"},
        {"a plus and groups", u"+1,250", "1250.0"},
        {"a plus before zero", u"+0.00", "0.0"},
        {"a minus before zero", u"-0.00", "0.0"},
        {"no digit before the point", u".5", "0.5"},
        {"the same below zero", u"-.50", "-0.5"},
        {"no digit behind the point", u"5.", Text},
        {"exponent", u"1.5E-7", "1.5e-07"},
        {"large exponent", u"1E20", "1e+20"},
        {"exponent with a plus", u"-2.50E+05", "-250000.0"},
        {"15 digits", u"123456789012345", "123456789012345.0"},
        {"15 digits and zeros before the point", u"1234567890123450", Text},
        {"15 digits behind zeros", u"0.00000123456789012345", "1.23456789012345e-06"},
        {"21 decimals", u"0.000000000000000000001", Text},
        {"zeros behind the digits", u"0.50000000000000000000", "0.5"},
        {"16 digits", u"1234567890123456", Text},
        {"16 digits around the point", u"12345678.90123456", Text},
        {"a code", u"00700", Text},
        {"two zeros", u"00", Text},
        {"a zero in front", u"-01.5", Text},
        {"group marks elsewhere", u"12,34", Text},
        {"a first group too long", u"1234,567", Text},
        {"groups behind the point", u"1.234,567", Text},
        {"a group mark at the end", u"1,", Text},
        {"a group mark in front", u",123", Text},
        {"groups behind a zero", u"0,123", Text},
        {"blanks around", u" 7", Text},
        {"a blank behind", u"7 ", Text},
        {"percent", u"1.25%", Text},
        {"unit", u"1.2K", Text},
        {"fraction", u"99-33/64", Text},
        {"two signs", u"--5", Text},
        {"only a sign", u"-", Text},
        {"only a point", u".", Text},
        {"a small letter for the exponent", u"1e5", Text},
        {"exponent of two digits before the point", u"12E5", Text},
        {"exponent of nothing", u"1E", Text},
        {"exponent minus zero", u"1E-0", Text},
        {"exponent of a zero", u"0E5", Text},
        {"larger than a spreadsheet knows", u"1E308", Text},
        {"too large", u"1E999", Text},
        {"too small", u"1E-320", Text},
        {"infinity", u"INF", Text},
        {"hexadecimal", u"0x10", Text},
        {"full-width digits", u"\uFF11\uFF12", Text},
        {"formula", u"=1+1", Text},
        {"formula of a call", u"@SUM(A1)", Text},
        {"formula with a plus", u"+A1", Text},
        {"formula with a minus", u"-A1+5", Text},
        {"a link", u"https://example.org/", Text},
        {"date", u"2026-11-23", Text},
        {"truth", u"TRUE", Text},
    };
    TTextTable table({u"Value"}, {});
    for (const auto& row : cases) table.Rows.push_back({row.Shown});
    ExpectCells(table, [&](const TFormatCase&) {
        TLines lines;
        for (const auto& row : cases) {
            const std::size_t at = lines.size() + 1;
            lines.push_back(row.Value == Text ? TextLine(at, 0, row.Shown)
                                              : NumberLine(at, 0, row.Value, row.Shown));
        }
        return lines;
    });
}

TEST_F(TWorkbookTest, KeepsEachTextAsItIs) {
    const String pairs = u"\U0001D11E";
    const String half = String(16383, u'n') + u"\u9A30";
    const String full(MaxCellText, u'\u9A30');
    const String odd = u'x' + [&] {
        String many;
        for (int i = 0; i < 16383; ++i) many += pairs;
        return many;
    }();
    const struct {
        String Text;
        String Stored;
    } cases[] = {
        {u"plain", u"plain"},
        {u" blanks  around ", u" blanks  around "},
        {u"<b>&amp;\"'</b>", u"<b>&amp;\"'</b>"},
        {u"two\nlines\tand a tab", u"two\nlines\tand a tab"},
        {u"\u9A30\u8A0A\u00E9\u20AC", u"\u9A30\u8A0A\u00E9\u20AC"},
        {u"\u00E9\u00FF", u"\u00E9\u00FF"},
        {pairs, pairs},
        {u"_x0041_", u"_x0041_"},
        {u"\xD800"
         u"a\xDC00\xFFFE\xFFFF",
         u"\uFFFDa\uFFFD\uFFFD\uFFFD"},
        {String(u"a\0b", 3), u"a\uFFFDb"},
        {half, half},
        {full, full},
        {odd, odd}, // MaxCellText units in pairs behind the first
        {full + u"y", full.substr(1) + u"\u2026"},
        {odd + u"y", odd.substr(0, odd.size() - 2) + u"\u2026"}, // no pair is torn
    };
    TTextTable table({u"Text", u"Next"}, {});
    for (const auto& row : cases) table.Rows.push_back({row.Text, u"end"});
    ExpectCells(table, [&](const TFormatCase&) {
        TLines lines;
        for (std::size_t at = 1; at <= std::size(cases); ++at) {
            lines.push_back(TextLine(at, 0, cases[at - 1].Stored));
            lines.push_back(TextLine(at, 1, u"end"));
        }
        return lines;
    });
}

TEST_F(TWorkbookTest, IndentsTheFirstColumnOfATree) {
    TTextTable table({u"Node", u"Sum"},
                     {{u"M1", u"1"}, {u"S", u"a"}, {u"25.0", u"1"}, {u"", u"2"}, {u"deep", u""}});
    table.Depths = {0, 1, 2, 3, 17};
    ExpectCells(table, [](const TFormatCase& format) {
        const bool isDeepEnough = format.MaxIndent >= 17;
        return TLines{TextLine(1, 0, u"M1"),
                      NumberLine(1, 1, "1.0", u"1"),
                      TextLine(2, 0, u"S", 1),
                      TextLine(2, 1, u"a"),
                      NumberLine(3, 0, "25.0", u"25.0", 2),
                      NumberLine(3, 1, "1.0", u"1"),
                      NumberLine(4, 1, "2.0", u"2"),
                      TextLine(5, 0, isDeepEnough ? u"deep" : u"    deep",
                               isDeepEnough ? 17 : format.MaxIndent)};
    });
}

TEST_F(TWorkbookTest, WritesCaptionsAsBoldText) {
    TTextTable table({u"=Code", u"", u"2026"}, {});
    for (const TFormatCase& format : Workbooks) {
        SCOPED_TRACE(format.Extension);
        const auto file = File(std::string("a.") + format.Extension);
        ASSERT_TRUE(format.Export(file, table, nullptr));
        TLines lines;
        ReadBack(file, lines);
        if (IsSkipped() || HasFatalFailure()) return;
        EXPECT_EQ(lines,
                  (TLines{TextLine(0, 0, u"=Code") + " bold", TextLine(0, 2, u"2026") + " bold"}));
    }
}

TEST_F(TWorkbookTest, StaysValidWithNothingInIt) {
    TTextTable table;
    ExpectCells(table, [](const TFormatCase&) { return TLines{}; });
}

TEST_F(TWorkbookTest, WritesThePointWhateverTheLocale) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    const char* const commas[] = {"de_DE.UTF-8", "fr_FR.UTF-8", "pt_BR.UTF-8", "ru_RU.UTF-8"};
    if (std::none_of(std::begin(commas), std::end(commas),
                     [](const char* name) { return std::setlocale(LC_NUMERIC, name); })) {
        GTEST_SKIP() << "no locale with a comma is installed";
    }
    TTextTable table({u"Value"}, {{u"350.25"}});
    ExpectCells(table,
                [](const TFormatCase&) { return TLines{NumberLine(1, 0, "350.25", u"350.25")}; });
    std::setlocale(LC_NUMERIC, before.c_str());
}

// A workbook takes no more; the numbers that come later are there all the same.
TEST_F(TWorkbookTest, StoresTextOnceThereAreNoMoreNumberFormats) {
    TTextTable table({u"Value"}, {});

    const struct {
        StringView Before;
        StringView Behind;
    } kinds[] = {{u"1.", u""},      {u"-0.", u""},   {u"+1.", u""},    {u"1,000.", u""},
                 {u"+1,000.", u""}, {u".", u""},     {u"+.", u""},     {u"-.", u""},
                 {u"1.", u"E5"},    {u"1.", u"E+5"}, {u"1.", u"E-05"}, {u"+1.", u"E+005"}};
    for (std::size_t decimals = 1; decimals <= 20; ++decimals) {
        for (const auto& kind : kinds) {
            table.Rows.push_back(
                {String(kind.Before) + String(decimals, u'0') + String(kind.Behind)});
        }
    }
    for (const TFormatCase& format : Workbooks) {
        SCOPED_TRACE(format.Extension);
        const auto file = File(std::string("a.") + format.Extension);
        ASSERT_TRUE(format.Export(file, table, nullptr));
        TLines lines;
        ReadBack(file, lines);
        if (IsSkipped() || HasFatalFailure()) return;
        ASSERT_EQ(lines.size(), 241U);
        EXPECT_TRUE(lines[200].starts_with("200 0 number ")) << lines[200];
        EXPECT_EQ(lines[201], TextLine(201, 0, table.Rows[200][0]));
    }
}

// Texts of every length around the borders of records, narrow, wide and of pairs, in a container
// whose allocation table is too long for the header alone.
TEST_F(TWorkbookTest, KeepsMegabytesOfTexts) {
    TTextTable table({u"Narrow", u"Wide", u"Pairs"}, {});
    for (std::size_t i = 0; i < 1200; ++i) {
        const String number(1, static_cast<Char>(0x4E00 + i));
        String pairs = number;
        for (std::size_t pair = 0; pair < i % 7 * 500 + 1; ++pair) pairs += u"\U0001D11E";
        String narrow(i % 11 * 400, u'a');
        for (std::size_t rest = i; rest > 0; rest /= 10) {
            narrow += static_cast<Char>(u'A' + rest % 10);
        }
        table.Rows.push_back({narrow + u"z", String(i % 5 * 1500, u'\u9A30') + number, pairs});
    }
    ExpectCells(table, [&](const TFormatCase&) {
        TLines lines;
        for (std::size_t row = 0; row < table.Rows.size(); ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                lines.push_back(TextLine(row + 1, column, table.Rows[row][column]));
            }
        }
        return lines;
    });
    EXPECT_GT(std::filesystem::file_size(File("a.xls")), 109U * 128U * 512U);
}

TEST_F(TWorkbookTest, FillsAFormatToItsLimits) {
    const struct {
        const TFormatCase& Format;
        Integer Rows;
        Integer Columns;
    } cases[] = {{Workbooks[0], 65535, 1}, {Workbooks[0], 2, 256}, {Workbooks[1], 2, 16384}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Format.Extension);
        const auto file = File(std::string("a.") + row.Format.Extension);
        TUniformTable table(row.Rows, row.Columns, u"7");
        ASSERT_TRUE(row.Format.Export(file, table, nullptr));
        TLines lines;
        ReadBack(file, lines);
        if (IsSkipped() || HasFatalFailure()) return;
        EXPECT_EQ(lines.size(), static_cast<std::size_t>((row.Rows + 1) * row.Columns));
        EXPECT_EQ(lines.back(), NumberLine(static_cast<std::size_t>(row.Rows),
                                           static_cast<std::size_t>(row.Columns - 1), "7.0", u"7"));
    }
}

} // namespace
} // namespace quorin
