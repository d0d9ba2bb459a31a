#pragma once

#include "terminal/console/ConsoleSession.h"
#include "terminal/forms/VenueMarket.h"

namespace quorin {

// The simulated venue, which goes on for as long as somebody looks. The watch shows one exchange.
class TVenueSession final : public TConsoleSession {
public:
    TVenueSession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                  std::ostream& errors);

private:
    bool StepMarket() override;
    Int64 TimeNanos() const override { return FMarket.TimeNanos(); }

    TVenueMarket FMarket;
};

} // namespace quorin
