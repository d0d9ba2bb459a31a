#include "embedded/DataError.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ConsoleSession.h"
#include "terminal/console/ExitStatus.h"
#include "terminal/console/Screen.h"
#include "terminal/console/ScriptSession.h"
#include "terminal/forms/DataFolder.h"

#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>

namespace quorin {
namespace {

using TClock = std::chrono::steady_clock;

constexpr const char* ProgramName = "quorin-console";
constexpr Integer FramesOfVenue = 1; // without a terminal and without a number

void Print(const std::vector<String>& lines) {
    for (const String& line : lines) std::cout << ToUtf8(line) << '\n';
}

// So many frames, and the summary when the recording has fewer.
void PrintFrames(TConsoleSession& session, Integer frames) {
    for (Integer frame = 0; frame < frames; ++frame) {
        if (!session.Step()) {
            std::cout << SummaryText(session.Summary());
            return;
        }
        Print(session.Frame());
        std::cout << '\n';
    }
}

void PrintEnd(TConsoleSession& session) {
    while (session.Step()) {
    }
    Print(session.Frame());
    std::cout << '\n' << SummaryText(session.Summary());
}

void ShowOnScreen(TConsoleSession& session, const TConsoleOptions& options) {
    {
        TScreen screen;
        const auto start = TClock::now();
        Double nextStep = options.PollInterval; // seconds after the start
        bool isPlaying = true;
        auto event = TScreen::TEvent::Resized;
        while (event != TScreen::TEvent::Ended) {
            if (event == TScreen::TEvent::Timeout) {
                isPlaying = isPlaying && session.Step();
                nextStep += options.PollInterval;
            }
            session.FitFrame(screen.Height());
            if (session.TakeRepaint() || event == TScreen::TEvent::Resized) {
                screen.Paint(session.Frame());
            }
            const std::chrono::duration<Double> elapsed = TClock::now() - start;
            event = screen.Wait(nextStep - elapsed.count());
        }
    }
    std::cout << SummaryText(session.Summary());
}

TAnswerBy AnswersOf(const TConsoleOptions& options) {
    if (options.Answer.has_value()) return *options.Answer ? TAnswerBy::Yes : TAnswerBy::No;
    return TScreen::IsThere() && TScreen::HasKeys() ? TAnswerBy::User : TAnswerBy::No;
}

// How many of the script's lines were wrong.
Integer PlayScript(TConsoleSession& session, const TConsoleOptions& options,
                   const std::vector<TScriptLine>& script) {
    session.Host().TalkOn(std::cout, AnswersOf(options), std::cin);
    TScriptScreen screen(session);
    return RunScript(screen, script, options.Script.string(), std::cout, std::cerr);
}

int Run(const TConsoleOptions& options) {
    std::vector<TScriptLine> script;
    if (!options.Script.empty()) script = ReadScriptFile(options.Script);
    const std::unique_ptr<TConsoleSession> session =
        OpenSession(options, DataFolder(QUORIN_INSTALLED_DATA_DIR, QUORIN_DATA_DIR), std::cerr);
    Integer wrongLines = 0;
    if (!options.Script.empty()) {
        wrongLines = PlayScript(*session, options, script);
    } else if (options.Frames.has_value()) {
        PrintFrames(*session, *options.Frames);
    } else if (TScreen::IsThere()) {
        ShowOnScreen(*session, options);
    } else if (options.Replay.empty()) {
        PrintFrames(*session, FramesOfVenue);
    } else {
        PrintEnd(*session);
    }
    const bool isSidesFileComplete = session->Close();
    std::cout.flush();
    if (isSidesFileComplete && std::cout) {
        return wrongLines > 0 ? ExitStatus::WrongLines : ExitStatus::Done;
    }
    std::cerr << ProgramName << ": the output cannot be written\n";
    return ExitStatus::CannotWrite;
}

} // namespace
} // namespace quorin

int main(int argc, char** argv) {
    using namespace quorin;
    const TCommandLine line = ParseCommandLine(argc, argv);
    std::cout << line.Output;
    if (!line.Error.empty()) std::cerr << ProgramName << ": " << line.Error << '\n';
    if (!line.Options.has_value()) return line.ExitStatus;
    try {
        return Run(*line.Options);
    } catch (const EDataError& error) {
        std::cerr << ProgramName << ": " << error.what() << '\n';
        return ExitStatus::Unusable;
    } catch (const std::exception& error) {
        std::cerr << ProgramName << ": " << error.what() << '\n';
        return ExitStatus::Unusable;
    }
}
