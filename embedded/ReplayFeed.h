#pragma once

#include "embedded/MarketService.h"
#include "embedded/ReplayFile.h"
#include "embedded/SubscribeService.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>

namespace quorin {

struct TReplayOptions {
    Int64 PollNanos = NanosPerSecond; // at least 1
    String Exchange = u"SEHK";        // of symbols that the universe does not have
};

// Plays a recording into the live items: what a screen would have shown that polls its prices at
// every whole multiple of the poll interval. A line belongs to the first poll after its time; of
// several lines between two polls the last one counts, but volume, high, low and the five latest
// trades take in all of them. Polls without a line do not happen.
//
// The previous close of a symbol is the universe's; where that has none it is the price of the
// symbol's first trade, without any trade the middle of its first quote (or the one side of it).
// Other symbols of the universe show what their record says; any other key has no data.
class TReplayFeed final : public TItemFeed {
public:
    // The stream must be able to go back to its start. Adapters and stream must live longer.
    TReplayFeed(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
                const std::filesystem::path& path, TReplayOptions options);
    TReplayFeed(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
                std::istream& stream, std::string_view name, TReplayOptions options);
    TReplayFeed(const TReplayFeed&) = delete;
    TReplayFeed& operator=(const TReplayFeed&) = delete;
    ~TReplayFeed() override;

    // Told of each line that is skipped while playing, with its number and the reason.
    void SetReport(TReplayReader::TReport report) { FReport = std::move(report); }

    // Reads the recording once, lists the symbols that the universe does not have, and becomes the
    // feed of the items; delivers nothing. Raises EDataError for a file that cannot be read, that
    // has another header or no good line. To be called once, before the first Step.
    void Open();
    // The symbols of the good lines, in the order of their first ones.
    const TList<String>& Symbols() const { return FSymbols; }

    // Takes in all lines up to the next poll and delivers. False, without a delivery, when the
    // recording is over.
    bool Step();
    // When the last delivery was, in nanoseconds after midnight; 0 before the first.
    Int64 PollTimeNanos() const { return FPollTime; }
    // How many lines the deliveries so far have taken in.
    Int64 PlayedLines() const { return FPlayedLines; }
    // How many lines were skipped so far.
    Int64 ReportedLines() const { return FReportedLines; }

    void Requested(TEmbeddedSubItem& item) override;

private:
    static constexpr std::size_t ShownTrades = 5;

    struct TSymbolState {
        TEmbeddedSubItem* Item = nullptr;
        TReplayQuote Quote;
        Double Last = 0.0;
        Double Volume = 0.0;
        Double High = 0.0;
        Double Low = 0.0;
        Double Open = 0.0;
        std::array<String, ShownTrades> Trades; // a ring; the next one goes to TradeCount
        std::size_t TradeCount = 0;
        bool IsChanged = false;
    };
    struct TReference { // what the previous close may be taken from
        std::optional<Double> FirstTrade;
        std::optional<Double> FirstQuote;
    };

    void Rewind();
    void Scan();
    void List(const String& symbol, const TReference& reference);
    std::size_t IndexOf(std::string_view symbol, bool& isNew);
    void Apply(const TReplayEvent& event);
    static void ApplyTrade(TSymbolState& state, const TReplayEvent& event);
    static void Write(const TSymbolState& state);

    TEmbeddedSubscribeAdapter& FItems;
    TEmbeddedMarketAdapter& FMarket;
    TReplayOptions FOptions;
    std::string FName;
    std::ifstream FFile;
    std::istream& FStream;
    TReplayReader::TReport FReport;
    std::unique_ptr<TReplayReader> FReader;
    TReplayEvent FPending; // the line that comes next
    bool FHasPending = false;
    Int64 FPollTime = 0;
    Int64 FPlayedLines = 0;
    Int64 FReportedLines = 0;
    TList<String> FSymbols;
    TDictionary<String, Integer> FIndexes; // of symbols
    std::string FLastSymbol;               // of the last look-up, and its index
    std::size_t FLastIndex = 0;
    std::vector<TSymbolState> FStates; // by index
    std::vector<std::size_t> FChanged; // indexes of symbols with lines since the last poll
};

} // namespace quorin
