#include "terminal/console/Options.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ExitStatus.h"

#include <CLI/CLI.hpp>

#include <limits>

namespace quorin {

namespace {

constexpr Double ShortestPoll = 0.001; // seconds
constexpr Double LongestPoll = 86400.0;
constexpr Integer MostRows = 1000;

std::string OneLine(std::string text) {
    for (char& character : text) {
        if (static_cast<unsigned char>(character) < 0x20) character = ' ';
    }
    return text;
}

const CLI::Validator PollSeconds(
    [](std::string& text) {
        Double seconds = 0.0;
        const bool isGood = TryParseDouble(FromUtf8(text), seconds) && seconds >= ShortestPoll &&
                            seconds <= LongestPoll;
        return isGood ? std::string() : "not a number of seconds from 0.001 to 86400: " + text;
    },
    "SECONDS");

const CLI::Validator PlainText(
    [](std::string& text) {
        if (text.empty()) return std::string("must not be empty");
        return IsValidUtf8(text) ? std::string() : std::string("not valid UTF-8");
    },
    "");

} // namespace

TCommandLine ParseCommandLine(int argc, const char* const* argv,
                              const std::filesystem::path& defaultReplay) {
    TConsoleOptions options;
    options.Replay = defaultReplay;
    bool isText = true;
    std::string replay, settings, sides, poll, exchange, trades;
    Integer frames = 0;

    CLI::App app("Replays a recording of quotes and trades through the market watch.",
                 "quorin-console");
    app.add_flag("--text", isText, "text screen; the only one here");
    app.add_option("--replay", replay, "the recording to play (default: the sample)")
        ->type_name("FILE.csv")
        ->check(PlainText);
    app.add_option("--poll", poll, "seconds between deliveries (default: 0.25)")
        ->check(PollSeconds);
    app.add_option("--exchange", exchange, "exchange of the symbols (default: SEHK)")
        ->type_name("CODE")
        ->check(PlainText);
    auto* framesOption =
        app.add_option("--frames", frames, "print this many frames, one per delivery, and end")
            ->type_name("N")
            ->check(CLI::Range(1, std::numeric_limits<Integer>::max()));
    app.add_option("--rows", options.Rows, "visible rows of the watch (default: 20)")
        ->type_name("N")
        ->check(CLI::Range(1, MostRows));
    app.add_option("--settings", settings, "settings to start with")
        ->type_name("FILE.ini")
        ->check(PlainText);
    app.add_option("--sides", sides, "write every trade with the side it hit")
        ->type_name("OUT.csv")
        ->check(PlainText);
    app.add_option("--trades", trades, "whose trades to show (default: the first row's)")
        ->type_name("SYMBOL")
        ->check(PlainText);

    TCommandLine result;
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        result.Output = app.help();
        return result;
    } catch (const CLI::ParseError& error) {
        result.ExitStatus = ExitStatus::Unusable;
        result.Error = OneLine(error.what()) + " (--help lists the options)";
        return result;
    }
    if (!replay.empty()) options.Replay = replay;
    options.Settings = settings;
    options.Sides = sides;
    if (!poll.empty()) options.PollInterval = ToDoubleOr(FromUtf8(poll), options.PollInterval);
    if (!exchange.empty()) options.Exchange = FromUtf8(exchange);
    options.TradesSymbol = FromUtf8(trades);
    if (framesOption->count() > 0) options.Frames = frames;
    result.Options = options;
    return result;
}

} // namespace quorin
