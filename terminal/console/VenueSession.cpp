#include "terminal/console/VenueSession.h"

namespace quorin {

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
    Watch().ShowAccount(FirstAccount);
    OpenTrades(chosen, FMarket.UniverseName());
    FollowSides(Watch().Control().Symbols());
}

bool TVenueSession::StepMarket() {
    FMarket.Step();
    return true;
}

} // namespace quorin
