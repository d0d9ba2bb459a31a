#pragma once

#include "embedded/EmbeddedServices.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"

#include <filesystem>
#include <memory>
#include <string>

namespace quorin {

// The account that a session begins with, of those that are shipped.
inline constexpr StringView FirstAccount = u"M88001";

struct TVenueMarketOptions {
    std::filesystem::path DataFolder;
    std::filesystem::path Universe; // one file; empty: the shipped one, with its accounts
    std::uint64_t Seed = 1;
    Double StepSeconds = 0.25;
    Integer ReadyAfter = 0;      // steps until the market is ready
    TLoadProgress Progress = {}; // of a universe file
};

// The simulated venue with its symbols, and with the shipped accounts where the symbols are the
// shipped ones. What a program shows a moving market with. The services must live longer.
class TVenueMarket {
public:
    // Raises EDataError for data that cannot be worked with.
    TVenueMarket(TEmbeddedServices& services, const TVenueMarketOptions& options);

    // The exchange asked for; without one the shipped universe's usual, or the file's first. Raises
    // EDataError for an exchange that is not there.
    String ChooseExchange(StringView asked) const;
    // Goes on to the next delivery.
    void Step();
    // Of the latest delivery, after midnight.
    Int64 TimeNanos() const { return FVenue->TimeNanos(); }
    // Of prices, by the venue, so far.
    Int64 Updates() const { return FVenue->UpdateCount(); }
    // Where the symbols come from, for messages.
    const std::string& UniverseName() const { return FUniverseName; }

private:
    void Load(const TVenueMarketOptions& options);

    TEmbeddedServices& FServices;
    std::string FUniverseName;
    bool FIsShippedUniverse;
    Integer FReadyAfter;
    std::unique_ptr<TVenue> FVenue;
};

} // namespace quorin
