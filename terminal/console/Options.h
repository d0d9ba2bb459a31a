#pragma once

#include "embedded/EmbeddedServices.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quorin {

// What the frames show.
enum class TFrameForm : Byte { Market, PositionView, AccountTree, Cash, AllCash };

// What the command line asks for. See --help for the words.
struct TConsoleOptions {
    std::filesystem::path Replay;   // the recording; empty: the simulated venue
    std::filesystem::path Universe; // of the venue, one file; empty: the shipped one
    std::filesystem::path Settings; // empty: none
    std::filesystem::path Sides;    // empty: not written
    Double PollInterval = 0.25;     // seconds
    String Exchange{u"SEHK"};
    bool HasExchange = false; // it was named
    std::uint64_t Seed = 1;
    TAppLanguage Language = TAppLanguage::English;
    Integer MarketReadyAfter = 0; // deliveries
    TServiceSwitches Switches;
    String TradesSymbol; // empty: that of the first row
    std::optional<Integer> Frames;
    std::filesystem::path Script; // empty: none
    std::optional<bool> Answer;   // to every question; nothing: the user's, without a terminal no
    Integer Rows = 20;
    TFrameForm Form = TFrameForm::Market;
    String Account{u"M88001"};
    bool IsAggregated = false; // the account is shown as a sum, if it is a master
};

// What became of the command line: either options, or a text to show and a status to end with.
struct TCommandLine {
    std::optional<TConsoleOptions> Options;
    int ExitStatus = 0;
    std::string Output; // the help
    std::string Error;  // one line
};

TCommandLine ParseCommandLine(int argc, const char* const* argv);

} // namespace quorin
