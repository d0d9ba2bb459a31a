#include "platform/rtl/Paths.h"

#include "platform/rtl/Utf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <unistd.h>

namespace quorin {
namespace {

namespace fs = std::filesystem;

// Sets a variable of the environment for the length of a scope.
class TVariable {
public:
    TVariable(const char* name, const std::string& value) : FName(name) {
        if (const char* before = std::getenv(name)) FBefore = before;
        setenv(name, value.c_str(), 1);
    }
    TVariable(const TVariable&) = delete;
    TVariable& operator=(const TVariable&) = delete;
    ~TVariable() {
        if (FBefore)
            setenv(FName, FBefore->c_str(), 1);
        else
            unsetenv(FName);
    }

private:
    const char* FName;
    std::optional<std::string> FBefore;
};

TEST(PathsTest, DocumentsLieWhereTheDesktopSays) {
    const fs::path home = fs::temp_directory_path() / ("quorin-home-" + std::to_string(getpid()));
    for (const char* folder : {".config", "Docs", "My \"$Docs", "Env", "configs"}) {
        fs::create_directories(home / folder);
    }
    constexpr const char* NoFile = nullptr;
    const struct {
        const char* Name;
        const char* Content;   // of user-dirs.dirs; $H stands for the home folder
        const char* Configs;   // XDG_CONFIG_HOME, likewise
        const char* Documents; // XDG_DOCUMENTS_DIR
        const char* Expected;  // below the home folder
    } cases[] = {
        {"in the home folder", "XDG_DOCUMENTS_DIR=\"$HOME/Docs\"\n", "", "$H/Env", "Docs"},
        {"anywhere", "XDG_DOCUMENTS_DIR=\"$H/Docs\"", "", "", "Docs"},
        {"among others",
         "# c\nXDG_MUSIC_DIR=\"$HOME/Env\"\n #XDG_DOCUMENTS_DIR=\"$HOME/Env\"\n"
         "\t XDG_DOCUMENTS_DIR = \"$HOME/Docs\" \nXDG_DOCUMENTS=\"$HOME/Env\"\n",
         "", "", "Docs"},
        {"escaped", "XDG_DOCUMENTS_DIR=\"$HOME/My \\\"\\$Docs\"\r\n", "", "", "My \"$Docs"},
        {"home itself", "XDG_DOCUMENTS_DIR=\"$HOME\"\n", "", "$H/Env", ""},
        {"the last line counts",
         "XDG_DOCUMENTS_DIR=\"$HOME/Env\"\nXDG_DOCUMENTS_DIR=\"$HOME/Docs\"", "", "", "Docs"},
        {"a folder that is not there", "XDG_DOCUMENTS_DIR=\"$HOME/None\"\n", "", "", ""},
        {"relative", "XDG_DOCUMENTS_DIR=\"Docs\"\n", "", "", ""},
        {"another user's home", "XDG_DOCUMENTS_DIR=\"$HOMEDocs\"\n", "", "", ""},
        {"without quotes", "XDG_DOCUMENTS_DIR=$HOME/Docs\n", "", "", ""},
        {"no line: the environment", "XDG_MUSIC_DIR=\"$HOME/Docs\"\n", "", "$H/Env", "Env"},
        {"no file", NoFile, "", "", ""},
        {"other configuration", "XDG_DOCUMENTS_DIR=\"$HOME/Docs\"\n", "$H/configs", "", ""},
        {"relative configuration", "XDG_DOCUMENTS_DIR=\"$HOME/Docs\"\n", "configs", "Env", "Docs"},
    };
    const auto inHome = [&](std::string text) {
        const std::size_t at = text.find("$H/");
        return at == text.npos ? text : text.replace(at, 2, home.string());
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        const fs::path file = home / ".config" / "user-dirs.dirs";
        fs::remove(file);
        if (row.Content != NoFile) std::ofstream(file) << inHome(row.Content);
        const TVariable homeFolder("HOME", home.string());
        const TVariable configs("XDG_CONFIG_HOME", inHome(row.Configs));
        const TVariable documents("XDG_DOCUMENTS_DIR", inHome(row.Documents));
        const std::string expected = *row.Expected == '\0' ? home : home / row.Expected;
        EXPECT_EQ(ToUtf8(GetDocumentsPath()), expected);
    }
    fs::remove_all(home);
    const TVariable noHome("HOME", "");
    const TVariable configs("XDG_CONFIG_HOME", "");
    EXPECT_EQ(GetDocumentsPath(), u"");
}

} // namespace
} // namespace quorin
