#include "terminal/console/ReplaySession.h"

#include "embedded/DataError.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"

namespace quorin {

namespace {

constexpr Int64 ReportedLines = 20; // of the bad ones; the others are counted
constexpr const char* UniverseFolder = "universe";

} // namespace

TReplaySession::TReplaySession(const TConsoleOptions& options,
                               const std::filesystem::path& dataFolder, std::ostream& errors)
    : TConsoleSession(options, dataFolder, errors), FRecordingName(options.Replay.string()) {
    LoadUniverse(dataFolder / UniverseFolder, Services().Market());
    WarnOfSides(options.Exchange);
    std::error_code ignored;
    if (!options.Sides.empty() &&
        std::filesystem::equivalent(options.Sides, options.Replay, ignored)) {
        throw EDataError(options.Sides.string(), 0, "is the recording itself");
    }
    Open(options);
    OpenWatch(options);
    Watch().ShowSymbols(FFeed->Symbols());
    OpenTrades(options, FRecordingName);
    FollowSides(options, FFeed->Symbols());
}

void TReplaySession::Open(const TConsoleOptions& options) {
    TReplayOptions replay;
    replay.PollNanos = RoundToInt64(options.PollInterval * static_cast<Double>(NanosPerSecond));
    replay.Exchange = options.Exchange;
    FFeed = std::make_unique<TReplayFeed>(Services().Items(), Services().Market(), options.Replay,
                                          replay);
    FFeed->SetReport([this](Int64 line, std::string_view reason) { ReportLine(line, reason); });
    FFeed->Open();
}

void TReplaySession::ReportLine(Int64 line, std::string_view reason) {
    ++Counts().Skipped;
    if (Counts().Skipped <= ReportedLines) {
        Errors() << EDataError(FRecordingName, line, reason).what() << '\n';
    }
}

TSessionSummary TReplaySession::Summary() const {
    TSessionSummary summary = TConsoleSession::Summary();
    summary.Lines = FFeed->PlayedLines();
    return summary;
}

bool TReplaySession::Close() {
    const Int64 skipped = Counts().Skipped;
    if (skipped > ReportedLines) {
        Errors() << FRecordingName << ": " << skipped - ReportedLines << " more lines skipped\n";
    }
    return TConsoleSession::Close();
}

} // namespace quorin
