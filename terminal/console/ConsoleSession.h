#pragma once

#include "embedded/EmbeddedServices.h"
#include "terminal/console/ConsoleHost.h"
#include "terminal/console/FrameText.h"
#include "terminal/console/Options.h"
#include "terminal/console/SidesFile.h"
#include "terminal/forms/TradeSides.h"

#include <memory>
#include <optional>
#include <ostream>

namespace quorin {

// What a session has seen when it ends.
struct TSessionSummary {
    Integer Deliveries = 0;
    std::optional<Int64> Lines; // of a recording, taken in
    Int64 Skipped = 0;          // bad ones
    Int64 Trades = 0;           // taken in by the detector
    Int64 AskTrades = 0;
    Int64 BidTrades = 0;
    Integer Symbols = 0;

    Int64 UnmarkedTrades() const { return Trades - AskTrades - BidTrades; }
};

// The services and the forms on them, from the first delivery to the last. What makes the market
// move is a descendant's.
class TConsoleSession {
public:
    TConsoleSession(const TConsoleSession&) = delete;
    TConsoleSession& operator=(const TConsoleSession&) = delete;
    virtual ~TConsoleSession() = default;

    // Goes on to the next delivery; False when there is no other.
    bool Step();
    // The screen as it is now.
    std::vector<String> Frame();
    TMarketWatchForm& Watch() { return *FWatch; }
    // What a frame shows has changed since the last call.
    bool TakeRepaint();
    // A frame has at most so many lines from here on, as long as there is room for a row.
    void FitFrame(Integer height);
    virtual TSessionSummary Summary() const { return FSummary; }
    // To be called once, after the last Step and with the terminal given back; False when the file
    // of sides is not complete.
    virtual bool Close();

    TEmbeddedServices& Services() { return FServices; }
    TConsoleHost& Host() { return FHost; }
    // The head of the screen as it is now.
    TFrameHead Head() const;

protected:
    // Raises EDataError for data that cannot be worked with, as every constructor of a session.
    TConsoleSession(const TConsoleOptions& options, const std::filesystem::path& dataFolder,
                    std::ostream& errors);

    virtual bool StepMarket() = 0;
    // Of the latest delivery, in nanoseconds after midnight.
    virtual Int64 TimeNanos() const = 0;

    // To be called once the market has its symbols and before its first delivery, which belongs to
    // the rows on screen as well. An unknown symbol in the options is a fault of `source`.
    void OpenWatch(const TConsoleOptions& options);
    void OpenTrades(const TConsoleOptions& options, const std::string& source);
    void OpenSides(const TConsoleOptions& options);
    void FollowSides(const TList<String>& symbols);
    // The account and what frames show of it. An account that there is not is a fault of `source`.
    void OpenForm(const TConsoleOptions& options, const std::string& source);
    // Trade sides are worked out for one exchange only; says so when it is not this one.
    void WarnOfSides(const String& exchange);

    std::ostream& Errors() { return FErrors; }
    TSessionSummary& Counts() { return FSummary; }

private:
    // Lets what the forms share go when they are gone and the services still there.
    struct TSharedRelease {
        TSharedRelease() = default;
        TSharedRelease(const TSharedRelease&) = delete;
        TSharedRelease& operator=(const TSharedRelease&) = delete;
        ~TSharedRelease();
    };

    void TakeTrade(StringView symbol, const TMarketDataTrade& trade);
    void ShowSymbol(StringView symbol);

    std::ostream& FErrors;
    String FExchange; // that the watch shows
    TSessionSummary FSummary;
    TConsoleHost FHost;
    TEmbeddedServices FServices;
    TFieldLists FFieldLists;
    TSharedRelease FSharedRelease;
    std::unique_ptr<TMarketWatchForm> FWatch;
    std::unique_ptr<TShownForm> FForm; // that frames show in place of the market
    Integer FMostRows = 0;             // of a frame, as asked for
    Integer FFormRows = 0;
    Integer FPaintedDeliveries = 0;
    std::unique_ptr<TTradesForm> FTrades;
    std::unique_ptr<TProductForm> FProduct;
    std::unique_ptr<TTradeSides> FSides;
    std::unique_ptr<TSidesFile> FSidesFile;
};

// The session that the options ask for: a recording or the simulated venue.
std::unique_ptr<TConsoleSession> OpenSession(const TConsoleOptions& options,
                                             const std::filesystem::path& dataFolder,
                                             std::ostream& errors);

// One line per kind of figure, each with its line end.
std::string SummaryText(const TSessionSummary& summary);

} // namespace quorin
