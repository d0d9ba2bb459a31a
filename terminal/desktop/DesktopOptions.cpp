#include "terminal/desktop/DesktopOptions.h"

#include "platform/rtl/Utf.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/forms/OptionText.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <map>

namespace quorin {

namespace {

constexpr int UnusableOptions = 2;
constexpr double ShortestStep = 0.001; // seconds: what the timer of the window can do
constexpr double LongestStep = 3600.0;
constexpr int LongestMeasure = 3600;
constexpr int MostSteps = 100'000;
constexpr const char* Usage =
    "; --help lists the options of the window, --text --help those of the console";

constexpr const char* WholeTerminal = "terminal";

std::vector<std::string> FormNames() {
    std::vector<std::string> names = {WholeTerminal};
    for (const TPaneKindInfo& info : PaneKinds()) names.emplace_back(info.Code);
    return names;
}

std::string FormHelp() {
    std::string help;
    for (const std::string& name : FormNames()) help += (help.empty() ? "" : ", ") + name;
    return help + " (default: terminal)";
}

// Where a terminal of this user keeps its forms; empty for a user without a home.
std::string UsualWorkspace() {
    const char* settings = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const auto isFolder = [](const char* name) { return name != nullptr && *name == '/'; };
    if (!isFolder(settings) && !isFolder(home)) return {};
    const auto folder = isFolder(settings) ? std::filesystem::path(settings)
                                           : std::filesystem::path(home) / ".config";
    return folder / "quorin" / "terminal.json";
}

const std::map<std::string, TTheme> Themes = {{"light", TTheme::Light}, {"dark", TTheme::Dark}};

template <class Value>
CLI::IsMember NamesOf(const std::map<std::string, Value>& values) {
    std::vector<std::string> names;
    for (const auto& [name, value] : values) names.push_back(name);
    return CLI::IsMember(names);
}

const CLI::Validator PlainText([](std::string& text) { return ProblemOf(text); }, "");

} // namespace

TDesktopCommandLine ParseDesktopCommandLine(int argc, const char* const* argv) {
    TDesktopOptions options;
    std::string form = WholeTerminal, theme;
    std::string workspace, screenshot, universe, settings, exchange, symbol;
    int language = -1;

    CLI::App app("Opens a trading terminal on a simulated venue. With --text it is a console; see "
                 "--text --help.",
                 "quorin-terminal");
    app.set_version_flag("--version", "quorin-terminal " QUORIN_VERSION, "show the version");
    app.add_option("--form", form, FormHelp())
        ->type_name("NAME")
        ->check(CLI::IsMember(FormNames()).description(""));
    app.add_option("--screenshot", screenshot, "draw the form into this file; needs no display")
        ->type_name("FILE.png")
        ->check(PlainText);
    app.add_option("--steps", options.Steps, "deliveries before the picture (default: 40)")
        ->type_name("N")
        ->check(CLI::Range(0, MostSteps).description(""));
    app.add_option("--measure", options.MeasureSeconds,
                   "run so long, then tell updates and frames a second and the longest pause")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, LongestMeasure).description(""));
    app.add_option("--theme", theme, "light or dark (default: as last time)")
        ->type_name("NAME")
        ->check(NamesOf(Themes).description(""));
    app.add_option("--language", language,
                   "0 English, 1 Traditional, 2 Simplified Chinese (default: as last time)")
        ->type_name("N")
        ->check(CLI::Range(0, 2).description(""));
    app.add_option("--seed", options.Seed, "another seed, another market (default: 1)")
        ->type_name("N");
    app.add_option("--poll", options.StepSeconds, "seconds between deliveries (default: 0.25)")
        ->type_name("SECONDS")
        ->check(CLI::Range(ShortestStep, LongestStep).description(""));
    app.add_option("--exchange", exchange, "the exchange to show (default: SEHK)")
        ->type_name("CODE")
        ->check(PlainText);
    app.add_option("--symbol", symbol, "that the ticket begins with (default: the first row's)")
        ->type_name("CODE")
        ->check(PlainText);
    app.add_option("--universe", universe, "symbols of the venue (default: the shipped ones)")
        ->type_name("FILE.csv")
        ->check(PlainText);
    app.add_option("--settings", settings, "settings to start with")
        ->type_name("FILE.ini")
        ->check(PlainText);
    app.add_option(
           "--workspace", workspace,
           "keeps forms and layouts from start to start (default: quorin/terminal.json among the "
           "user's settings; pictures use none)")
        ->type_name("FILE.json")
        ->check(PlainText);

    TDesktopCommandLine result;
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        result.Output = app.help();
        return result;
    } catch (const CLI::CallForVersion&) {
        result.Output = app.version() + "\n";
        return result;
    } catch (const CLI::ParseError& error) {
        result.ExitStatus = UnusableOptions;
        result.Error = OneLine(error.what()) + Usage;
        return result;
    }
    if (const TPaneKindInfo* kind = FindPaneKind(FromUtf8(form))) options.Form = kind->Kind;
    if (!theme.empty()) options.Theme = Themes.at(theme);
    if (language >= 0) options.Language = static_cast<TAppLanguage>(language);
    if (workspace.empty() && screenshot.empty()) workspace = UsualWorkspace();
    options.Workspace = workspace;
    options.Screenshot = screenshot;
    options.Universe = universe;
    options.Settings = settings;
    options.Exchange = FromUtf8(exchange);
    options.Symbol = FromUtf8(symbol);
    result.Options = std::move(options);
    return result;
}

} // namespace quorin
