#include "terminal/console/VenueSession.h"

namespace quorin {

namespace {

constexpr const char* AccountsFolder = "accounts"; // of the data folder, for messages

} // namespace

TVenueSession::TVenueSession(const TConsoleOptions& options,
                             const std::filesystem::path& dataFolder, std::ostream& errors)
    : TConsoleSession(options, dataFolder, errors),
      FMarket(Services(), {dataFolder, options.Universe, options.Seed, options.PollInterval,
                           options.MarketReadyAfter}) {
    TConsoleOptions chosen = options;
    chosen.Exchange =
        FMarket.ChooseExchange(options.HasExchange ? StringView(options.Exchange) : StringView());
    WarnOfSides(chosen.Exchange);
    OpenWatch(chosen);
    Watch().ShowMarket(chosen.Exchange);
    OpenForm(options, (dataFolder / AccountsFolder).string());
    OpenTrades(chosen, FMarket.UniverseName());
    FollowSides(Watch().Control().Symbols());
}

bool TVenueSession::StepMarket() {
    FMarket.Step();
    return true;
}

} // namespace quorin
