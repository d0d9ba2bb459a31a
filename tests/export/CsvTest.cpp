#include "tests/export/ExportFixture.h"

namespace quorin {
namespace {

using TCsvTest = TExportTest;

TEST_F(TCsvTest, WritesFieldsByTheRules) {
    const struct {
        const char* Name;
        TTextRow Captions;
        std::vector<TTextRow> Rows;
        TCsvOptions Options;
        std::string Content;
    } cases[] = {
        {"captions first, rows in order",
         {u"Code", u"Last"},
         {{u"00700", u"350.20"}, {u"5", u""}},
         {},
         "Code,Last\r\n00700,350.20\r\n5,\r\n"},
        {"no rows", {u"A"}, {}, {}, "A\r\n"},
        {"no columns", {}, {{}, {}}, {}, ""},
        {"quotes where needed",
         {u"A"},
         {{u"1,234"}, {u"say \"so\""}, {u"two\nlines"}, {u"a\rb"}, {u" a;b' "}},
         {},
         "A\r\n\"1,234\"\r\n\"say \"\"so\"\"\"\r\n\"two\nlines\"\r\n\"a\rb\"\r\n a;b' \r\n"},
        {"only quotes", {u"A"}, {{u"\"\"\""}}, {}, "A\r\n\"\"\"\"\"\"\"\"\r\n"},
        {"a row of one empty cell is no empty line", {u""}, {{u""}}, {}, "\"\"\r\n\"\"\r\n"},
        {"UTF-8",
         {u"\u9A30"},
         {{u"\U0001D11E\u00E9"}, {u"\xD800"}, {u"\u20AC,"}},
         {},
         "\xE9\xA8\xB0\r\n\xF0\x9D\x84\x9E\xC3\xA9\r\n\xEF\xBF\xBD\r\n\"\xE2\x82\xAC,\"\r\n"},
        {"byte order mark",
         {u"A"},
         {},
         {u',', true, false},
         "\xEF\xBB\xBF"
         "A\r\n"},
        {"another separator",
         {u"A", u"B"},
         {{u"1,5", u"a;b"}},
         {u';', false, false},
         "A;B\r\n1,5;\"a;b\"\r\n"},
        {"a wide separator",
         {u"A", u"B"},
         {{u"a\uFF1Bb", u""}},
         {u'\uFF1B', false, false},
         "A\xEF\xBC\x9B"
         "B\r\n\"a\xEF\xBC\x9B"
         "b\"\xEF\xBC\x9B\r\n"},
        {"unguarded formulas stay",
         {u"A"},
         {{u"=1+1"}, {u"@x"}, {u"-a"}},
         {},
         "A\r\n=1+1\r\n@x\r\n-a\r\n"},
        {"guarded formulas",
         {u"=A", u"B"},
         {{u"=1+1", u"@x"}, {u"+a", u"-"}, {u"-1.5", u"+1,234"}, {u"-1,2", u"a=b"}},
         {u',', false, true},
         "'=A,B\r\n'=1+1,'@x\r\n'+a,'-\r\n-1.5,\"+1,234\"\r\n\"'-1,2\",a=b\r\n"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        TTextTable table(row.Captions, row.Rows);
        EXPECT_TRUE(WriteCsv(File("a.csv"), table, row.Options));
        EXPECT_EQ(Content(File("a.csv")), row.Content);
    }
}

TEST_F(TCsvTest, IndentsTheFirstColumnOfATree) {
    TTextTable table({u"Node", u"Sum"},
                     {{u"M1", u"1"}, {u"=S", u"2"}, {u"", u"3"}, {u"a,b", u"4"}});
    table.Depths = {0, 1, 1, 2};
    EXPECT_TRUE(WriteCsv(File("a.csv"), table, {u',', false, /*GuardFormula=*/true}));
    EXPECT_EQ(Content(File("a.csv")), "Node,Sum\r\nM1,1\r\n'  =S,2\r\n,3\r\n\"    a,b\",4\r\n");
}

TEST_F(TCsvTest, WritesFieldsOfAnyLength) {
    std::string expected = "A,B\r\n";
    TTextTable table({u"A", u"B"}, {});
    for (const std::size_t length : {1U, 65534U, 65535U, 65536U, 65537U, 300000U}) {
        table.Rows.push_back({String(length, u'x'), String(length, u'"')});
        expected += std::string(length, 'x') + ",\"" + std::string(2 * length, '"') + "\"\r\n";
    }
    EXPECT_TRUE(WriteCsv(File("a.csv"), table));
    EXPECT_TRUE(Content(File("a.csv")) == expected);
}

} // namespace
} // namespace quorin
