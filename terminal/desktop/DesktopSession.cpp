#include "terminal/desktop/DesktopSession.h"

#include "embedded/TimeText.h"
#include "terminal/forms/SettingsTable.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/market/MarketTradeSideDetector.h"
#include "viewdata/presentation/IImageResource.h"

#include <QDebug>
#include <QScopedValueRollback>

namespace quorin {

namespace {

// Before anybody looks at them.
void TakeUsualSettings(TEmbeddedConfigManager& config) {
    for (const TSetting& setting : Settings()) {
        const bool isUsual = !setting.Default.empty() && SettingText(setting).empty();
        if (isUsual) ChangeSetting(config, setting, setting.Default);
    }
}

} // namespace

TDesktopSession::TSharedRelease::~TSharedRelease() {
    TEditorManager::ReleaseInstance();
    TMarketTradeSideDetector::ReleaseInstance();
    TIImageResourceList::ReleaseInstance();
}

TDesktopSession::TRegistrationCheck::~TRegistrationCheck() {
#ifndef NDEBUG
    const Integer left = Services.RegistrationCount();
    if (left != 0) qWarning("%d registrations are left", left);
#endif
}

TDesktopSession::TDesktopSession(const TDesktopOptions& options,
                                 const std::filesystem::path& dataFolder,
                                 const TLoadProgress& progress)
    : FServices({.Host = FHost,
                 .DataDirectory = dataFolder,
                 .SettingsPath = options.Settings,
                 .Language = options.Language.value_or(TAppLanguage::English),
                 .Switches = {}}),
      FMarket(FServices,
              {dataFolder, options.Universe, options.Seed, options.StepSeconds, 0, progress}),
      FExchange(FMarket.ChooseExchange(options.Exchange)) {
    TakeUsualSettings(FServices.Config());
    FSinceDelivery.start();
    FHost.SetFieldLists(&FFieldLists);
    FHost.SetDesk(&FServices.Desk());
    FHost.Messages().SetTime(FMarket.TimeNanos());
    FServices.Market().SetSpreadTablesAtOnce(true); // prices by their ticks from the first frame on
}

// A question that is open lets the timers run, and so does an export, which wants one moment.
void TDesktopSession::Step() {
    if (FIsStepping || FHost.IsSaving()) return;
    const QScopedValueRollback stepping(FIsStepping, true);
    FMarket.Step();
    FHost.Messages().SetTime(FMarket.TimeNanos());
    ++FDeliveries;
    FSinceDelivery.restart();
}

Double TDesktopSession::DeliveryAge() const {
    constexpr Double millisecondsPerSecond = 1000.0;
    return static_cast<Double>(FSinceDelivery.elapsed()) / millisecondsPerSecond;
}

String TDesktopSession::Clock() const {
    String text;
    AppendTimeOfDay(text, FMarket.TimeNanos() / NanosPerSecond);
    return text;
}

} // namespace quorin
