#include "terminal/console/ReplaySession.h"

#include "embedded/DataError.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <sstream>

namespace quorin {

namespace {

constexpr Int64 ReportedLines = 20; // of the bad ones; the others are counted
constexpr StringView SideAsk = u"A";
constexpr StringView SideBid = u"B";
constexpr StringView ExchangeWithSides = u"SEHK";

constexpr const char* UniverseFolder = "universe";

} // namespace

TReplaySession::TReplaySession(const TConsoleOptions& options,
                               const std::filesystem::path& dataFolder, std::ostream& errors)
    : FErrors(errors), FRecordingName(options.Replay.string()), FHost(errors),
      FServices({FHost, dataFolder, options.Settings}) {
    // The shipped universe lists one exchange; the same code elsewhere is another product.
    if (options.Exchange == ExchangeWithSides) {
        LoadUniverse(dataFolder / UniverseFolder, FServices.Market());
    }
    OpenRecording(options);
    OpenForms(options);
}

void TReplaySession::OpenRecording(const TConsoleOptions& options) {
    if (options.Exchange != ExchangeWithSides) {
        FErrors << "trade sides are worked out for " << ToUtf8(ExchangeWithSides)
                << " only, not for " << ToUtf8(options.Exchange) << '\n';
    }
    TReplayOptions replay;
    replay.PollNanos = RoundToInt64(options.PollInterval * static_cast<Double>(NanosPerSecond));
    replay.Exchange = options.Exchange;
    FFeed = std::make_unique<TReplayFeed>(FServices.Items(), FServices.Market(), options.Replay,
                                          replay);
    FFeed->SetReport([this](Int64 line, std::string_view reason) { ReportLine(line, reason); });
    FFeed->Open();
    FHead.Exchange = options.Exchange;
}

void TReplaySession::OpenForms(const TConsoleOptions& options) {
    FWatch = std::make_unique<TMarketWatchForm>();
    FWatch->View().SetVisibleRowCapacity(options.Rows);
    FWatch->ShowSymbols(FFeed->Symbols());
    FWatch->FollowVisibleRows(); // before the first delivery, which belongs to these rows as well

    if (!options.TradesSymbol.empty() &&
        FServices.Market().FindMarketData(options.TradesSymbol) == nullptr) {
        throw EDataError(FRecordingName, 0, "there is no symbol " + ToUtf8(options.TradesSymbol));
    }
    FTrades = std::make_unique<TTradesForm>();
    FTrades->SetSymbol(options.TradesSymbol.empty() ? FWatch->Symbol(0) : options.TradesSymbol);

    FSides = std::make_unique<TTradeSides>();
    for (const String& symbol : FFeed->Symbols()) FSides->Follow(symbol);
    FSummary.Symbols = FFeed->Symbols().Count();
    if (options.Sides.empty()) return;
    std::error_code ignored;
    if (std::filesystem::equivalent(options.Sides, options.Replay, ignored)) {
        throw EDataError(options.Sides.string(), 0, "is the recording itself");
    }
    FSidesFile = std::make_unique<TSidesFile>(options.Sides);
}

void TReplaySession::ReportLine(Int64 line, std::string_view reason) {
    ++FSummary.Skipped;
    if (FSummary.Skipped <= ReportedLines) {
        FErrors << EDataError(FRecordingName, line, reason).what() << '\n';
    }
}

Double TReplaySession::PollTime() const {
    return static_cast<Double>(FFeed->PollTimeNanos()) / static_cast<Double>(NanosPerSecond);
}

bool TReplaySession::Step() {
    if (!FFeed->Step()) return false;
    ++FSummary.Deliveries;
    FHead.PollTime = PollTime();
    FHead.Deliveries = FSummary.Deliveries;
    FSides->TakeNew(
        [this](StringView symbol, const TMarketDataTrade& trade) { TakeTrade(symbol, trade); });
    return true;
}

void TReplaySession::TakeTrade(StringView symbol, const TMarketDataTrade& trade) {
    ++FSummary.Trades;
    if (trade.Side() == SideAsk) ++FSummary.AskTrades;
    if (trade.Side() == SideBid) ++FSummary.BidTrades;
    if (FSidesFile != nullptr) FSidesFile->Write(FHead.PollTime, symbol, trade);
}

std::vector<String> TReplaySession::Frame() {
    return FrameLines(FHead, *FWatch, *FTrades);
}

TReplaySummary TReplaySession::Summary() const {
    TReplaySummary summary = FSummary;
    summary.Lines = FFeed->PlayedLines();
    return summary;
}

bool TReplaySession::Close() {
    if (FSummary.Skipped > ReportedLines) {
        FErrors << FRecordingName << ": " << FSummary.Skipped - ReportedLines
                << " more lines skipped\n";
    }
    return FSidesFile == nullptr || FSidesFile->Close();
}

std::string SummaryText(const TReplaySummary& summary) {
    std::ostringstream text;
    text << "deliveries " << summary.Deliveries << "\nlines " << summary.Lines << ", skipped "
         << summary.Skipped << "\ntrades " << summary.Trades << ": A " << summary.AskTrades
         << ", B " << summary.BidTrades << ", none " << summary.UnmarkedTrades() << "\nsymbols "
         << summary.Symbols << '\n';
    return text.str();
}

} // namespace quorin
