#pragma once

#include "terminal/console/ScriptSession.h"

#include <filesystem>
#include <sstream>

namespace quorin {

// A session on the venue with the shipped data, to run scripts on and to look at afterwards.
struct TScriptPlay {
    explicit TScriptPlay(TAnswerBy answers = TAnswerBy::No, std::uint64_t seed = 1) {
        TConsoleOptions options;
        options.Seed = seed;
        Session = OpenSession(options, QUORIN_DATA_DIR, Errors);
        Session->Host().TalkOn(Out, answers, Typed);
        Screen = std::make_unique<TScriptScreen>(*Session);
    }
    // Answers what this script has printed.
    std::string Run(const std::string& script) {
        std::istringstream lines(script);
        return Run(ReadScript(lines));
    }
    std::string RunFile(const std::filesystem::path& path) { return Run(ReadScriptFile(path)); }
    std::string Run(const std::vector<TScriptLine>& lines) {
        Out.str("");
        Wrong += RunScript(*Screen, lines, "s.txt", Out, Errors);
        return Out.str();
    }

    std::ostringstream Out;
    std::ostringstream Errors;
    std::istringstream Typed;
    Integer Wrong = 0;
    std::unique_ptr<TConsoleSession> Session;
    std::unique_ptr<TScriptScreen> Screen;
};

} // namespace quorin
