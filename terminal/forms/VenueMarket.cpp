#include "terminal/forms/VenueMarket.h"

#include "embedded/DataError.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr const char* UniverseFolder = "universe";
constexpr const char* AccountsFolder = "accounts";
constexpr StringView UsualExchange = u"SEHK";
constexpr Int64 SecondsAtStart = (9 * 60 + 30) * 60; // when most exchanges trade
constexpr Integer StepsPerRound = 4;                 // in which every symbol has moved about once

} // namespace

TVenueMarket::TVenueMarket(TEmbeddedServices& services, const TVenueMarketOptions& options)
    : FServices(services), FIsShippedUniverse(options.Universe.empty()),
      FReadyAfter(options.ReadyAfter) {
    Load(options);
    TVenueOptions venue;
    venue.Seed = options.Seed;
    venue.StepNanos = RoundToInt64(options.StepSeconds * static_cast<Double>(NanosPerSecond));
    venue.StartNanos = SecondsAtStart * NanosPerSecond;
    venue.UpdatesPerStep = std::max(FServices.Market().Universe().SymbolCount() / StepsPerRound, 1);
    FVenue = std::make_unique<TVenue>(FServices.Items(), FServices.Market(), venue);
    if (FReadyAfter > 0) FServices.Market().SetMarketDataReady(false);
}

void TVenueMarket::Load(const TVenueMarketOptions& options) {
    if (FIsShippedUniverse) {
        const std::filesystem::path folder = options.DataFolder / UniverseFolder;
        FUniverseName = folder.string();
        LoadUniverse(folder, FServices.Market());
        FServices.LoadAccounts(options.DataFolder / AccountsFolder);
    } else {
        FUniverseName = options.Universe.string();
        LoadUniverseList(options.Universe, FServices.Market(), options.Progress);
    }
}

String TVenueMarket::ChooseExchange(StringView asked) const {
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    if (asked.empty() && !FIsShippedUniverse) return market.GetExchangeCode(0);
    const StringView wanted = asked.empty() ? UsualExchange : asked;
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        if (market.GetExchangeCode(index) == wanted) return String(wanted);
    }
    throw EDataError(FUniverseName, 0, "there is no exchange " + ToUtf8(wanted));
}

void TVenueMarket::Step() {
    FVenue->Step();
    if (FReadyAfter > 0 && --FReadyAfter == 0) FServices.Market().SetMarketDataReady(true);
    FServices.Deliver();
}

} // namespace quorin
