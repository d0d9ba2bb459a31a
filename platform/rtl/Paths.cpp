#include "platform/rtl/Paths.h"

#include "platform/rtl/Utf.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quorin {

namespace {

namespace fs = std::filesystem;

constexpr const char* DocumentsVariable = "XDG_DOCUMENTS_DIR";
constexpr const char* ConfigVariable = "XDG_CONFIG_HOME";
constexpr const char* HomeVariable = "HOME";
constexpr std::string_view HomeInFile = "$HOME";
constexpr std::string_view Blanks = " \t\r";

// Relative folders are to be ignored, by the same convention.
std::string FolderFromEnvironment(const char* name) {
    const char* folder = std::getenv(name);
    return folder != nullptr && fs::path(folder).is_absolute() ? folder : "";
}

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

// A shell's text in quotes, in which a backslash takes the meaning from what follows it. Empty for
// anything else.
std::string Unquoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') return {};
    std::string plain;
    text = text.substr(1, text.size() - 2);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        plain += text[at];
    }
    return plain;
}

// Of a line NAME="$HOME/folder" or NAME="/folder"; empty for other lines.
std::string FolderInLine(std::string_view line, const std::string& home) {
    const std::size_t sign = line.find('=');
    if (sign == line.npos || WithoutBlanks(line.substr(0, sign)) != DocumentsVariable) return {};
    const std::string folder = Unquoted(WithoutBlanks(line.substr(sign + 1)));
    if (!folder.starts_with(HomeInFile)) return fs::path(folder).is_absolute() ? folder : "";
    const std::string inHome = folder.substr(HomeInFile.size());
    return !home.empty() && (inHome.empty() || inHome.front() == '/') ? home + inHome : "";
}

std::string DocumentsInFile(const std::string& home) {
    std::string configs = FolderFromEnvironment(ConfigVariable);
    if (configs.empty() && !home.empty()) configs = home + "/.config";
    if (configs.empty()) return {};
    std::ifstream file(fs::path(configs) / "user-dirs.dirs");
    std::string documents;
    for (std::string line; std::getline(file, line);) {
        std::string folder = FolderInLine(line, home);
        if (!folder.empty()) documents = std::move(folder); // as in a shell, the last one counts
    }
    return documents;
}

} // namespace

String GetDocumentsPath() {
    const std::string home = FolderFromEnvironment(HomeVariable);
    std::string folder = DocumentsInFile(home);
    if (folder.empty()) folder = FolderFromEnvironment(DocumentsVariable);
    std::error_code ignored;
    return FromUtf8(fs::is_directory(folder, ignored) ? folder : home);
}

} // namespace quorin
