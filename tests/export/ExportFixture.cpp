#include "tests/export/ExportFixture.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace quorin {

namespace fs = std::filesystem;

namespace {

std::string Quoted(StringView text) {
    std::string quoted = "\"";
    for (const Char unit : text) {
        if (unit >= u' ' && unit < 0x7F && unit != u'"' && unit != u'\\') {
            quoted += static_cast<char>(unit);
            continue;
        }
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
        quoted += escape;
    }
    return quoted + '"';
}

std::string Place(std::size_t row, std::size_t column) {
    return std::to_string(row) + " " + std::to_string(column) + " ";
}

} // namespace

TExportTest::TExportTest() {
    std::string name = (fs::temp_directory_path() / "quorin-export-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    FFolder = name;
}

TExportTest::~TExportTest() {
    std::error_code ignored;
    fs::remove_all(FFolder, ignored);
}

std::string TExportTest::Content(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

void TExportTest::Put(const fs::path& file, std::string_view content) {
    std::ofstream(file, std::ios::binary) << content;
}

std::string TExportTest::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(FFolder)) {
        names.push_back(entry.path().filename().string() + " ");
    }
    std::sort(names.begin(), names.end());
    std::string all;
    for (const std::string& name : names) all += name;
    return all;
}

void TExportTest::ReadBack(const fs::path& workbook, std::vector<std::string>& lines) {
    constexpr int NoReader = 3, NoInterpreter = 127;
    const std::string command =
        "'" QUORIN_PYTHON "' '" QUORIN_READ_BACK "' '" + workbook.string() + "' 2>&1";
    std::FILE* const output = popen(command.c_str(), "r");
    ASSERT_NE(output, nullptr);
    std::string all;
    char piece[4096];
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, output)) {
        all.append(piece, count);
    }
    const int status = pclose(output);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (code == NoReader || code == NoInterpreter) GTEST_SKIP() << "no reader: " << all;
    ASSERT_EQ(code, 0) << all;
    std::istringstream stream(all);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
}

std::string TExportTest::TextLine(std::size_t row, std::size_t column, StringView text,
                                  Integer indent) {
    return Place(row, column) + "text " + Quoted(text) + " " + std::to_string(indent);
}

std::string TExportTest::NumberLine(std::size_t row, std::size_t column, const std::string& value,
                                    StringView shown, Integer indent) {
    return Place(row, column) + "number " + value + " " + Quoted(shown) + " " +
           std::to_string(indent);
}

} // namespace quorin
