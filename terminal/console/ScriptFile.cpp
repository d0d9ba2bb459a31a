#include "terminal/console/ScriptFile.h"

#include "embedded/DataFile.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ScriptGrammar.h"

namespace quorin {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr const char* NotUtf8 = "the line is not UTF-8";
constexpr const char* OpenQuotation = "a quotation mark is left open";

} // namespace

std::vector<TScriptLine> ReadScript(std::istream& script) {
    std::vector<TScriptLine> lines;
    std::string bytes;
    for (Integer number = 1; std::getline(script, bytes); ++number) {
        std::string_view content = bytes;
        if (number == 1 && content.starts_with(Utf8Mark)) content.remove_prefix(Utf8Mark.size());
        TScriptLine line;
        line.Number = number;
        line.Text = Trim(FromUtf8(content));
        const auto words = ScriptWords(line.Text);
        if (words.has_value() && words->empty()) continue;
        if (!words.has_value()) line.Fault = OpenQuotation;
        if (!IsValidUtf8(content)) line.Fault = NotUtf8;
        if (*line.Fault == '\0') line.Words = *words;
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<TScriptLine> ReadScriptFile(const std::filesystem::path& path) {
    std::ifstream file = OpenDataFile(path);
    std::vector<TScriptLine> lines = ReadScript(file);
    if (file.bad()) throw EDataError(path.string(), 0, "cannot be read");
    return lines;
}

} // namespace quorin
