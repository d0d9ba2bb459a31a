#include "embedded/CsvReader.h"
#include "tests/embedded/BreakingBuffer.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace quorin;

namespace {

// "LINE[field|field]" for each record, "LINE!" for a bad one.
std::string Read(const std::string& text) {
    std::istringstream stream(text);
    TCsvReader reader(stream);
    std::string all;
    while (reader.Next()) {
        all += std::to_string(reader.Line());
        if (!reader.Problem().empty()) {
            EXPECT_TRUE(reader.Fields().empty());
            all += "!";
            continue;
        }
        all += "[";
        for (const std::string_view field : reader.Fields()) all.append(field).append("|");
        all.back() = ']';
    }
    return all;
}

TEST(CsvReader, ReadsRecords) {
    const struct {
        const char* name;
        std::string text;
        std::string records;
    } cases[] = {
        {"nothing", "", ""},
        {"LF", "a,b\nc,d\n", "1[a|b]2[c|d]"},
        {"CRLF", "a,b\r\nc,d\r\n", "1[a|b]2[c|d]"},
        {"no end of the last line", "a,b\nc,d", "1[a|b]2[c|d]"},
        {"mark", "\xEF\xBB\xBFx,y\n", "1[x|y]"},
        {"mark alone", "\xEF\xBB\xBF", ""},
        {"half a mark", "\xEF\xBB", "1[\xEF\xBB]"},
        {"empty fields", ",\n,,\n", "1[|]2[||]"},
        {"empty line", "a\n\nb\n", "1[a]2[]3[b]"},
        {"quoted", "\"a,b\",c\n", "1[a,b|c]"},
        {"empty quotes", "\"\",\"\"\n", "1[|]"},
        {"doubled quotes", "\"a\"\"b\",\"\"\"\"\n", "1[a\"b|\"]"},
        {"line breaks in quotes", "\"a\nb\r\nc\",d\ne\n", "1[a\nb\r\nc|d]4[e]"},
        {"return inside a field", "a\rb,c\n", "1[a\rb|c]"},
        {"zero bytes", std::string("a\0b,c\n", 6), std::string("1[a\0b|c]", 8)},
        {"blanks stay", " a , b\n", "1[ a | b]"},
        {"quote inside a field", "a\"b\"c,d\ne\n", "1!2[e]"},
        {"text behind a quote", "\"a\"b,c\nd\n", "1!2[d]"},
        {"open quote", "a,\"b\nc,d\ne,f\n", "1!2[c|d]3[e|f]"},
        {"open quote at the end", "a\n\"", "1[a]2!"},
        {"two open quotes", "\"a\nb\"c\nd\n", "1!2!3[d]"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Read(row.text), row.records);
    }
}

TEST(CsvReader, LimitsTheLengthOfARecord) {
    const std::string longest(TCsvReader::MaxRecordLength, 'x');
    EXPECT_EQ(Read(longest + "\nb\n"), "1[" + longest + "]2[b]");
    EXPECT_EQ(Read(longest + "x\nb\n"), "1!2[b]");
    EXPECT_EQ(Read(std::string(1000000, 'x') + "\nb\n"), "1!2[b]");
    EXPECT_EQ(Read("\"" + std::string(100000, '\n') + "\"b").substr(0, 8), "1!2[]3[]");
}

TEST(CsvReader, KeepsTheRecordsOfAnyChunking) {
    std::string text;
    std::string expected;
    for (int line = 1; line <= 20000; ++line) {
        text += "\"" + std::to_string(line) + "\",b" + (line % 3 == 0 ? "\r\n" : "\n");
        expected += std::to_string(line) + "[" + std::to_string(line) + "|b]";
    }
    EXPECT_EQ(Read(text), expected);
}

TEST(CsvReader, TellsAStreamThatBreaksFromItsEnd) {
    std::string manyRecords;
    for (int record = 0; record < 100000; ++record) manyRecords += "ab\n";
    const struct {
        const char* name;
        std::string text;
        bool breaks;
    } cases[] = {
        {"short", "ab\nab\nab", false},        {"long", manyRecords, false},
        {"breaks in a record", "ab\na", true}, {"breaks in a quote", "ab\n\"ab\nc", true},
        {"breaks at once", "", true},          {"breaks later", manyRecords + "a", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        TBreakingBuffer buffer(row.text, row.breaks);
        std::istream stream(&buffer);
        TCsvReader reader(stream);
        while (reader.Next()) {
            ASSERT_EQ(reader.Fields().size(), 1u);
            ASSERT_EQ(reader.Fields()[0], "ab") << "a part of a record, line " << reader.Line();
        }
        EXPECT_EQ(reader.Failed(), row.breaks);
    }
}

} // namespace
