#pragma once

#include "platform/rtl/Types.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quorin {

// What the command line asks for. See --help for the words.
struct TConsoleOptions {
    std::filesystem::path Replay;   // the recording
    std::filesystem::path Settings; // empty: none
    std::filesystem::path Sides;    // empty: not written
    Double PollInterval = 0.25;     // seconds
    String Exchange{u"SEHK"};
    String TradesSymbol; // empty: that of the first row
    std::optional<Integer> Frames;
    Integer Rows = 20;
};

// What became of the command line: either options, or a text to show and a status to end with.
struct TCommandLine {
    std::optional<TConsoleOptions> Options;
    int ExitStatus = 0;
    std::string Output; // the help
    std::string Error;  // one line
};

// `defaultReplay` is played when none is named.
TCommandLine ParseCommandLine(int argc, const char* const* argv,
                              const std::filesystem::path& defaultReplay);

} // namespace quorin
