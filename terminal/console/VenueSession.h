#pragma once

#include "embedded/venue/Venue.h"
#include "terminal/console/ConsoleSession.h"

namespace quorin {

// The simulated venue, which goes on for as long as somebody looks. The watch shows one exchange.
class TVenueSession final : public TConsoleSession {
public:
    TVenueSession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                  std::ostream& errors);

private:
    bool StepMarket() override;
    Int64 TimeNanos() const override { return FVenue->TimeNanos(); }
    void LoadMarket(const TConsoleOptions& options, const std::filesystem::path& dataFolder);
    // The exchange of the options, without one the universe's first.
    String ChooseExchange(const TConsoleOptions& options) const;

    std::string FUniverseName;
    std::unique_ptr<TVenue> FVenue;
    Integer FReadyAfter; // deliveries until the market is ready
};

} // namespace quorin
