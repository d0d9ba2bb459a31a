#pragma once

#include "embedded/ReplayFeed.h"
#include "terminal/console/ConsoleSession.h"

namespace quorin {

// One recording from its first line to its last. The watch shows the recorded symbols. Close
// tells on `errors` of every bad line, and how many they were.
class TReplaySession final : public TConsoleSession {
public:
    TReplaySession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                   std::ostream& errors);

    TSessionSummary Summary() const override;
    bool Close() override;

private:
    bool StepMarket() override;
    Int64 TimeNanos() const override { return FFeed->PollTimeNanos(); }
    void Open(const TConsoleOptions& options);
    void ReportLine(Int64 line, std::string_view reason);

    std::string FRecordingName;
    std::string FReports; // of bad lines, each with its line end
    std::unique_ptr<TReplayFeed> FFeed;
};

} // namespace quorin
