#pragma once

#include "embedded/EmbeddedServices.h"
#include "embedded/ReplayFeed.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/console/FrameText.h"
#include "terminal/console/Options.h"
#include "terminal/console/SidesFile.h"
#include "terminal/forms/TradeSides.h"

#include <memory>
#include <ostream>

namespace quorin {

// What a session has seen when it ends.
struct TReplaySummary {
    Integer Deliveries = 0;
    Int64 Lines = 0;   // taken in
    Int64 Skipped = 0; // bad ones
    Int64 Trades = 0;  // taken in by the detector
    Int64 AskTrades = 0;
    Int64 BidTrades = 0;
    Integer Symbols = 0;

    Int64 UnmarkedTrades() const { return Trades - AskTrades - BidTrades; }
};

// One replay from its first line to its last: the services, the recording, the forms on them. Bad
// lines are told of on `errors`, the first ones each on a line of its own.
class TReplaySession {
public:
    // Raises EDataError for data that cannot be worked with.
    TReplaySession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                   std::ostream& errors);
    TReplaySession(const TReplaySession&) = delete;
    TReplaySession& operator=(const TReplaySession&) = delete;

    // Goes on to the next delivery; False when the recording is over.
    bool Step();
    // The screen as it is now.
    std::vector<String> Frame();
    TMarketWatchForm& Watch() { return *FWatch; }
    TReplaySummary Summary() const;
    // To be called once, after the last Step; False when the file of sides is not complete.
    bool Close();

private:
    // Lets the shared detector go when the forms are gone and the services still there.
    struct TDetectorRelease {
        TDetectorRelease() = default;
        TDetectorRelease(const TDetectorRelease&) = delete;
        TDetectorRelease& operator=(const TDetectorRelease&) = delete;
        ~TDetectorRelease() { TMarketTradeSideDetector::ReleaseInstance(); }
    };

    void OpenRecording(const TConsoleOptions& options);
    void OpenForms(const TConsoleOptions& options);
    void ReportLine(Int64 line, std::string_view reason);
    void TakeTrade(StringView symbol, const TMarketDataTrade& trade);
    Double PollTime() const;

    std::ostream& FErrors;
    std::string FRecordingName;
    TFrameHead FHead;
    TReplaySummary FSummary;
    TConsoleHost FHost;
    TEmbeddedServices FServices;
    TDetectorRelease FDetectorRelease;
    std::unique_ptr<TReplayFeed> FFeed;
    std::unique_ptr<TMarketWatchForm> FWatch;
    std::unique_ptr<TTradesForm> FTrades;
    std::unique_ptr<TTradeSides> FSides;
    std::unique_ptr<TSidesFile> FSidesFile;
};

// One line per kind of figure, each with its line end.
std::string SummaryText(const TReplaySummary& summary);

} // namespace quorin
