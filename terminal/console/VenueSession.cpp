#include "terminal/console/VenueSession.h"

#include "embedded/DataError.h"
#include "embedded/ReplayFile.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr const char* UniverseFolder = "universe";
constexpr const char* AccountsFolder = "accounts";
constexpr Int64 SecondsAtStart = (9 * 60 + 30) * 60; // when most exchanges trade
constexpr Integer StepsPerRound = 4;                 // in which every symbol has moved about once

} // namespace

TVenueSession::TVenueSession(const TConsoleOptions& options,
                             const std::filesystem::path& dataFolder, std::ostream& errors)
    : TConsoleSession(options, dataFolder, errors), FReadyAfter(options.MarketReadyAfter) {
    LoadMarket(options, dataFolder);
    TConsoleOptions chosen = options;
    chosen.Exchange = ChooseExchange(options);
    WarnOfSides(chosen.Exchange);

    TVenueOptions venue;
    venue.Seed = options.Seed;
    venue.StepNanos = RoundToInt64(options.PollInterval * static_cast<Double>(NanosPerSecond));
    venue.StartNanos = SecondsAtStart * NanosPerSecond;
    venue.UpdatesPerStep =
        std::max(Services().Market().Universe().SymbolCount() / StepsPerRound, 1);
    FVenue = std::make_unique<TVenue>(Services().Items(), Services().Market(), std::move(venue));

    OpenWatch(chosen);
    if (FReadyAfter > 0) Services().Market().SetMarketDataReady(false);
    Watch().ShowMarket(chosen.Exchange);
    OpenForm(options, (dataFolder / AccountsFolder).string());
    OpenTrades(chosen, FUniverseName);
    FollowSides(Watch().Control().Symbols());
}

void TVenueSession::LoadMarket(const TConsoleOptions& options,
                               const std::filesystem::path& dataFolder) {
    if (options.Universe.empty()) {
        const std::filesystem::path folder = dataFolder / UniverseFolder;
        FUniverseName = folder.string();
        LoadUniverse(folder, Services().Market());

        Services().LoadAccounts(dataFolder / AccountsFolder);
    } else {
        FUniverseName = options.Universe.string();
        LoadUniverseList(options.Universe, Services().Market());
    }
}

String TVenueSession::ChooseExchange(const TConsoleOptions& options) const {
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    if (!options.HasExchange && !options.Universe.empty()) return market.GetExchangeCode(0);
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        if (market.GetExchangeCode(index) == options.Exchange) return options.Exchange;
    }
    throw EDataError(FUniverseName, 0, "there is no exchange " + ToUtf8(options.Exchange));
}

bool TVenueSession::StepMarket() {
    FVenue->Step();
    if (FReadyAfter > 0 && --FReadyAfter == 0) Services().Market().SetMarketDataReady(true);
    Services().Deliver();
    return true;
}

} // namespace quorin
