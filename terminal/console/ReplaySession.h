#pragma once

#include "embedded/ReplayFeed.h"
#include "terminal/console/ConsoleSession.h"

namespace quorin {

// One recording from its first line to its last. The watch shows the recorded symbols. Bad lines
// are told of on `errors`, the first ones each on a line of its own.
class TReplaySession final : public TConsoleSession {
public:
    TReplaySession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                   std::ostream& errors);

    TSessionSummary Summary() const override;
    bool Close() override;

private:
    bool StepMarket() override { return FFeed->Step(); }
    Int64 TimeNanos() const override { return FFeed->PollTimeNanos(); }
    void Open(const TConsoleOptions& options);
    void ReportLine(Int64 line, std::string_view reason);

    std::string FRecordingName;
    std::unique_ptr<TReplayFeed> FFeed;
};

} // namespace quorin
