#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/Theme.h"
#include "viewdata/services/LanguageManager.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quorin {

// What the command line asks for. See --help for the words.
struct TDesktopOptions {
    std::optional<TPaneKind> Form;    // none: the whole terminal
    std::filesystem::path Screenshot; // empty: a window instead
    Integer Steps = 40;               // deliveries before the picture is taken
    Integer MeasureSeconds = 0;       // 0: runs until it is closed
    // None: as the workspace has it, else the first of each.
    std::optional<TTheme> Theme;
    std::optional<TAppLanguage> Language;
    std::filesystem::path Universe;  // one file; empty: the shipped one
    std::filesystem::path Settings;  // empty: none
    std::filesystem::path Workspace; // where forms and layouts are kept; empty: nowhere
    Double StepSeconds = 0.25;
    std::uint64_t Seed = 1;
    String Exchange; // empty: the usual one
    String Symbol;   // that the ticket begins with; empty: that of the first row
};

// What became of the command line: either options, or a text to show and a status to end with.
struct TDesktopCommandLine {
    std::optional<TDesktopOptions> Options;
    int ExitStatus = 0;
    std::string Output; // the help
    std::string Error;  // one line
};

TDesktopCommandLine ParseDesktopCommandLine(int argc, const char* const* argv);

} // namespace quorin
