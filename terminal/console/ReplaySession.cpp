#include "terminal/console/ReplaySession.h"

#include "embedded/DataError.h"
#include "embedded/UniverseFile.h"
#include "platform/rtl/Numbers.h"

namespace quorin {

namespace {

constexpr const char* UniverseFolder = "universe";

} // namespace

TReplaySession::TReplaySession(const TConsoleOptions& options,
                               const std::filesystem::path& dataFolder, std::ostream& errors)
    : TConsoleSession(options, dataFolder, errors), FRecordingName(options.Replay.string()) {
    LoadUniverse(dataFolder / UniverseFolder, Services().Market());
    WarnOfSides(options.Exchange);
    Open(options);
    OpenWatch(options);
    Watch().ShowSymbols(FFeed->Symbols());
    OpenTrades(options, FRecordingName);
    FollowSides(FFeed->Symbols());
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

// Kept until the end: a screen that is being painted is no place for complaints.
void TReplaySession::ReportLine(Int64 line, std::string_view reason) {
    ++Counts().Skipped;
    FReports += EDataError(FRecordingName, line, reason).what();
    FReports += '\n';
}

bool TReplaySession::StepMarket() {
    if (!FFeed->Step()) return false;
    Services().Deliver(); // what the quotes have asked for, tick tables among it
    return true;
}

TSessionSummary TReplaySession::Summary() const {
    TSessionSummary summary = TConsoleSession::Summary();
    summary.Lines = FFeed->PlayedLines();
    return summary;
}

bool TReplaySession::Close() {
    Errors() << FReports;
    if (Counts().Skipped > 0) {
        Errors() << FRecordingName << ": " << Counts().Skipped << " lines skipped\n";
    }
    return TConsoleSession::Close();
}

} // namespace quorin
