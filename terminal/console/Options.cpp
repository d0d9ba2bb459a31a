#include "terminal/console/Options.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ExitStatus.h"
#include "terminal/console/ScriptCommands.h"
#include "terminal/forms/OptionText.h"

#include <CLI/CLI.hpp>

#include <limits>
#include <map>

namespace quorin {

namespace {

constexpr Double ShortestPoll = 1e-9; // seconds: the time of a recording counts nanoseconds
constexpr Double LongestPoll = 1e9;
constexpr const char* Usage = "; usage: quorin-console [OPTIONS], --help lists them";
constexpr Integer MostRows = 1000;

const std::map<std::string, TFrameForm> Forms = {
    {"market", TFrameForm::Market},           {"positionview", TFrameForm::PositionView},
    {"accounttree", TFrameForm::AccountTree}, {"cash", TFrameForm::Cash},
    {"allcash", TFrameForm::AllCash},
};
constexpr const char* AnswerYes = "yes";
constexpr const char* AnswerNo = "no";

const CLI::Validator PollSeconds(
    [](std::string& text) {
        Double seconds = 0.0;
        const bool isGood = TryParseDouble(FromUtf8(text), seconds) && seconds >= ShortestPoll &&
                            seconds <= LongestPoll;
        return isGood ? std::string() : "not a number of seconds above 0: " + text;
    },
    "");

std::optional<std::uint64_t> SeedOf(const std::string& text) {
    Int64 seed = 0;
    if (!TryParseInt64(FromUtf8(text), seed) || seed < 0) return std::nullopt;
    return static_cast<std::uint64_t>(seed);
}

const CLI::Validator SeedNumber(
    [](std::string& text) {
        return SeedOf(text) ? std::string() : "not a whole number from 0 up: " + text;
    },
    "");

const CLI::Range AtLeastOne(1, std::numeric_limits<Integer>::max());
const CLI::Range NotNegative(0, std::numeric_limits<Integer>::max());

const CLI::Validator PlainText([](std::string& text) { return ProblemOf(text); }, "");

} // namespace

TCommandLine ParseCommandLine(int argc, const char* const* argv) {
    TConsoleOptions options;
    bool isText = true;
    std::string replay, universe, settings, sides, poll, exchange, trades, seed, script, answer,
        account, form;
    Integer frames = 0;
    Integer language = 0;
    TServiceSwitches& switches = options.Switches;

    CLI::App app("Shows a market watch: of a simulated venue, or of a recording.",
                 "quorin-console");
    app.set_version_flag("--version", "quorin-console " QUORIN_VERSION, "show the version");
    app.add_flag("--text", isText, "text screen; the only one here");
    auto* replayOption = app.add_option("--replay", replay, "play this recording, not the venue")
                             ->type_name("FILE.csv")
                             ->check(PlainText);
    app.add_option("--seed", seed, "another seed, another market (default: 1)")
        ->type_name("N")
        ->check(SeedNumber)
        ->excludes(replayOption);
    app.add_option("--universe", universe, "symbols of the venue (default: the shipped ones)")
        ->type_name("FILE.csv")
        ->check(PlainText)
        ->excludes(replayOption);
    app.add_option("--poll", poll, "seconds between deliveries (default: 0.25)")
        ->type_name("SECONDS")
        ->check(PollSeconds);
    app.add_option("--exchange", exchange, "the exchange to show (default: SEHK)")
        ->type_name("CODE")
        ->check(PlainText);
    auto* framesOption =
        app.add_option("--frames", frames, "print this many frames, one per delivery, and end")
            ->type_name("N")
            ->check(AtLeastOne);
    app.add_option("--script", script, "run the commands of this file on the venue; see below")
        ->type_name("FILE")
        ->check(PlainText)
        ->excludes(replayOption)
        ->excludes(framesOption);
    app.add_option("--answer", answer,
                   "answer to every question (default: asks on a terminal, else no)")
        ->type_name("yes|no")
        ->check(CLI::IsMember({AnswerYes, AnswerNo}).description(""));
    app.add_option("--form", form,
                   "market, or of an account positionview, accounttree, cash, allcash\n"
                   "(default: market)")
        ->type_name("NAME")
        ->check(CLI::IsMember(Forms).description(""))
        ->excludes(replayOption);
    app.add_option("--account", account, "the account of these forms (default: M88001)")
        ->type_name("CODE")
        ->check(PlainText)
        ->excludes(replayOption);
    app.add_flag("--aggregate", options.IsAggregated, "a master with all its sub-accounts as one");
    auto* rowsOption =
        app.add_option("--rows", options.Rows,
                       "visible rows (default: 20 of the market, all of another form)")
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

    app.add_option("--language", language, "0 English, 1 Traditional, 2 Simplified Chinese")
        ->type_name("N")
        ->check(CLI::Range(0, 2));
    app.add_flag("--logged-out", switches.LoggedOut, "the user is not logged in");
    app.add_option("--market-ready", options.MarketReadyAfter,
                   "the venue's symbols are there after so many deliveries")
        ->type_name("N")
        ->check(NotNegative)
        ->excludes(replayOption);
    app.add_option("--accounts-ready", switches.AccountsReadyAfter,
                   "the accounts are there after so many deliveries")
        ->type_name("N")
        ->check(NotNegative);
    app.add_flag("--single-currency", switches.SingleCurrency, "accounts in one currency only");
    app.add_flag("--no-china-connect", switches.NoChinaConnect, "that feature is off");

    app.footer(ScriptHelp());

    TCommandLine result;
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        result.Output = app.help();
        return result;
    } catch (const CLI::CallForVersion&) {
        result.Output = app.version() + "\n";
        return result;
    } catch (const CLI::ParseError& error) {
        result.ExitStatus = ExitStatus::Unusable;
        result.Error = OneLine(error.what()) + Usage;
        return result;
    }
    options.Replay = replay;
    if (!seed.empty()) options.Seed = SeedOf(seed).value_or(options.Seed);
    options.Universe = universe;
    options.Language = static_cast<TAppLanguage>(language);
    options.HasExchange = !exchange.empty();
    options.Settings = settings;
    options.Script = script;
    if (!answer.empty()) options.Answer = answer == AnswerYes;
    options.Sides = sides;
    if (!poll.empty()) options.PollInterval = ToDoubleOr(FromUtf8(poll), options.PollInterval);
    if (!exchange.empty()) options.Exchange = FromUtf8(exchange);
    if (!account.empty()) options.Account = FromUtf8(account);
    if (!form.empty()) options.Form = Forms.at(form);
    if (options.Form != TFrameForm::Market && rowsOption->count() == 0) options.Rows = MostRows;
    options.TradesSymbol = FromUtf8(trades);
    if (framesOption->count() > 0) options.Frames = frames;
    result.Options = options;
    return result;
}

} // namespace quorin
