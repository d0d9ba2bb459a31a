#pragma once

#include "terminal/desktop/Theme.h"
#include "viewdata/services/LanguageManager.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quorin {

// What a window shows.
enum class TDesktopForm : Byte { Terminal, Watch, Ticket };

// What the command line asks for. See --help for the words.
struct TDesktopOptions {
    TDesktopForm Form = TDesktopForm::Terminal;
    std::filesystem::path Screenshot; // empty: a window instead
    Integer Steps = 40;               // deliveries before the picture is taken
    TTheme Theme = TTheme::Light;
    TAppLanguage Language = TAppLanguage::English;
    std::filesystem::path Universe; // one file; empty: the shipped one
    std::filesystem::path Settings; // empty: none
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
