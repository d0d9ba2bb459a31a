#include "terminal/console/ConsoleSession.h"

#include "embedded/DataError.h"
#include "embedded/ReplayFile.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ReplaySession.h"
#include "terminal/console/TextWidth.h"
#include "terminal/console/VenueSession.h"
#include "terminal/forms/AccountTreeForm.h"
#include "terminal/forms/CashTreeForm.h"
#include "terminal/forms/PositionViewForm.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace quorin {

namespace {

constexpr StringView SideAsk = u"A";
constexpr StringView SideBid = u"B";
constexpr StringView ExchangeWithSides = u"SEHK";

} // namespace

TConsoleSession::TSharedRelease::~TSharedRelease() {
    TMarketTradeSideDetector::ReleaseInstance();
    TEditorManager::ReleaseInstance();
    TIImageResourceList::ReleaseInstance();
}

TConsoleSession::TConsoleSession(const TConsoleOptions& options,
                                 const std::filesystem::path& dataFolder, std::ostream& errors)
    : FErrors(errors), FHost(errors), FServices({.Host = FHost,
                                                 .DataDirectory = dataFolder,
                                                 .SettingsPath = options.Settings,
                                                 .Language = options.Language,
                                                 .Switches = options.Switches}) {
    FHost.SetDesk(&FServices.Desk());
    FHost.SetFieldLists(&FFieldLists);
    // Prices are shown by their ticks from the first frame on.
    FServices.Market().SetSpreadTablesAtOnce(true);
}

void TConsoleSession::OpenWatch(const TConsoleOptions& options) {
    FExchange = options.Exchange;
    FFormRows = FMostRows = options.Rows;
    FWatch = std::make_unique<TMarketWatchForm>();
    FWatch->View().SetVisibleRowCapacity(options.Rows);
}

void TConsoleSession::OpenTrades(const TConsoleOptions& options, const std::string& source) {
    FWatch->FollowVisibleRows();
    if (!options.TradesSymbol.empty() &&
        FServices.Market().FindMarketData(options.TradesSymbol) == nullptr) {
        throw EDataError(source, 0, "there is no symbol " + ToUtf8(options.TradesSymbol));
    }
    FTrades = std::make_unique<TTradesForm>();
    FProduct = std::make_unique<TProductForm>(FWatch->Control());
    ShowSymbol(options.TradesSymbol.empty() ? FWatch->Symbol(0) : options.TradesSymbol);
    FSides = std::make_unique<TTradeSides>();
    OpenSides(options);
}

void TConsoleSession::ShowSymbol(StringView symbol) {
    FTrades->SetSymbol(symbol);
    FProduct->SetSymbol(symbol);
}

void TConsoleSession::OpenSides(const TConsoleOptions& options) {
    if (options.Sides.empty()) return;
    const std::pair<const std::filesystem::path&, const char*> readFiles[] = {
        {options.Replay, "is the recording itself"},
        {options.Settings, "is the settings file"},
        {options.Universe, "is the universe file"},
    };
    for (const auto& [file, reason] : readFiles) {
        std::error_code ignored;
        if (!file.empty() && std::filesystem::equivalent(options.Sides, file, ignored)) {
            throw EDataError(options.Sides.string(), 0, reason);
        }
    }
    FSidesFile = std::make_unique<TSidesFile>(options.Sides);
}

void TConsoleSession::FollowSides(const TList<String>& symbols) {
    for (const String& symbol : symbols) FSides->Follow(symbol);
    FSummary.Symbols = symbols.Count();
}

void TConsoleSession::WarnOfSides(const String& exchange) {
    if (exchange == ExchangeWithSides) return;
    FErrors << "trade sides are worked out for " << ToUtf8(ExchangeWithSides) << " only, not for "
            << ToUtf8(PlainText(exchange)) << '\n';
}

bool TConsoleSession::Step() {
    if (!StepMarket()) return false;
    ++FSummary.Deliveries;
    if (FTrades->Symbol().empty() && FWatch->View().RowCount() > 0) {
        FWatch->FollowVisibleRows();
        ShowSymbol(FWatch->Symbol(0));
        FollowSides(FWatch->Control().Symbols());
    }
    FSides->TakeNew(
        [this](StringView symbol, const TMarketDataTrade& trade) { TakeTrade(symbol, trade); });
    return true;
}

void TConsoleSession::TakeTrade(StringView symbol, const TMarketDataTrade& trade) {
    ++FSummary.Trades;
    if (trade.Side() == SideAsk) ++FSummary.AskTrades;
    if (trade.Side() == SideBid) ++FSummary.BidTrades;
    if (FSidesFile != nullptr) FSidesFile->Write(Head().PollTime, symbol, trade);
}

TFrameHead TConsoleSession::Head() const {
    return {static_cast<Double>(TimeNanos()) / static_cast<Double>(NanosPerSecond),
            FSummary.Deliveries, FExchange};
}

namespace {

template <class Form>
std::unique_ptr<Form> MakeForm(const TConsoleOptions& options) {
    auto form = std::make_unique<Form>();
    form->ShowAccount(options.Account);
    if (options.IsAggregated) form->ShowSums();
    return form;
}

std::unique_ptr<TShownForm> MakeForm(const TConsoleOptions& options) {
    switch (options.Form) {
    case TFrameForm::Market: break;
    case TFrameForm::PositionView: return MakeForm<TPositionViewForm>(options);
    case TFrameForm::AccountTree: return MakeForm<TAccountTreeForm>(options);
    case TFrameForm::Cash: return MakeForm<TCashTreeForm>(options);
    case TFrameForm::AllCash: {
        auto form = MakeForm<TCashTreeForm>(options);
        form->ShowAll();
        return form;
    }
    }
    return nullptr;
}

} // namespace

void TConsoleSession::OpenForm(const TConsoleOptions& options, const std::string& source) {
    if (FServices.Accounts().FindAccount(options.Account) == nullptr && options.Universe.empty()) {
        throw EDataError(source, 0, "there is no account " + ToUtf8(options.Account));
    }
    FWatch->ShowAccount(options.Account);
    FForm = MakeForm(options);
}

// The clock of the head goes on also while an account rests.
bool TConsoleSession::TakeRepaint() {
    if (FForm == nullptr) return FWatch->View().TakeRepaint();
    const bool isLater =
        std::exchange(FPaintedDeliveries, FSummary.Deliveries) < FSummary.Deliveries;
    return FForm->TakeRepaint() || isLater;
}

void TConsoleSession::FitFrame(Integer height) {
    const Integer beside = FForm != nullptr ? FormLinesBesideRows(*FForm) : FrameLinesBesideRows;
    const Integer rows = std::clamp(height - beside, 1, FMostRows);
    FFormRows = rows;
    if (FForm == nullptr) FWatch->View().SetVisibleRowCapacity(rows);
}

std::vector<String> TConsoleSession::Frame() {
    if (FForm != nullptr) return FormLines(Head(), *FForm, FFormRows);
    return FrameLines(Head(), *FWatch, *FTrades, *FProduct);
}

bool TConsoleSession::Close() {
    return FSidesFile == nullptr || FSidesFile->Close();
}

std::unique_ptr<TConsoleSession> OpenSession(const TConsoleOptions& options,
                                             const std::filesystem::path& dataFolder,
                                             std::ostream& errors) {
    if (options.Replay.empty()) return std::make_unique<TVenueSession>(options, dataFolder, errors);
    return std::make_unique<TReplaySession>(options, dataFolder, errors);
}

std::string SummaryText(const TSessionSummary& summary) {
    std::ostringstream text;
    text << "deliveries " << summary.Deliveries << '\n';
    if (summary.Lines.has_value()) {
        text << "lines " << *summary.Lines << ", skipped " << summary.Skipped << '\n';
    }
    text << "trades " << summary.Trades << ": A " << summary.AskTrades << ", B "
         << summary.BidTrades << ", none " << summary.UnmarkedTrades() << "\nsymbols "
         << summary.Symbols << '\n';
    return text.str();
}

} // namespace quorin
