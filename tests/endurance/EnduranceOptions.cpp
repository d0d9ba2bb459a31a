#include "tests/endurance/EnduranceOptions.h"

#include "terminal/forms/OptionText.h"

#include <CLI/CLI.hpp>

namespace quorin {

namespace {

constexpr int UnusableOptions = 2;
constexpr std::int64_t MostUpdates = 1'000'000'000'000;
constexpr double LongestRun = 7.0 * 24 * 3600; // seconds

} // namespace

TEnduranceCommandLine ParseEnduranceCommandLine(int argc, const char* const* argv) {
    TEnduranceOptions options;
    CLI::App app("Runs trading days of a terminal as fast as they go: forms, accounts, orders, "
                 "settings and prices at random, over services that misbehave. Ends with 0 when "
                 "every check held and memory stayed as it was, with 1 otherwise.",
                 "quorin-endurance");
    app.add_option("--seed", options.Seed, "another seed, another day (default: 1)")
        ->type_name("N");
    app.add_option("--updates", options.Updates,
                   "price updates to deliver before the end (default: 10000000)")
        ->type_name("N")
        ->check(CLI::Range(std::int64_t{1}, MostUpdates).description(""));
    app.add_option("--seconds", options.Seconds, "end after so long at the latest")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.001, LongestRun).description(""));
    TEnduranceCommandLine result;
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        result.Output = app.help();
        return result;
    } catch (const CLI::ParseError& error) {
        result.ExitStatus = UnusableOptions;
        result.Error = OneLine(error.what()) + "; --help lists the options";
        return result;
    }
    result.Options = options;
    return result;
}

} // namespace quorin
