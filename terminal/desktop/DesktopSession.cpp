#include "terminal/desktop/DesktopSession.h"

#include "embedded/TimeText.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/presentation/IImageResource.h"

#include <QDebug>
#include <QScopedValueRollback>

namespace quorin {

TDesktopSession::TSharedRelease::~TSharedRelease() {
    TEditorManager::ReleaseInstance();
    TIImageResourceList::ReleaseInstance();
}

TDesktopSession::TRegistrationCheck::~TRegistrationCheck() {
#ifndef NDEBUG
    const Integer left = Services.RegistrationCount();
    if (left != 0) qWarning("%d registrations are left", left);
#endif
}

TDesktopSession::TDesktopSession(const TDesktopOptions& options,
                                 const std::filesystem::path& dataFolder)
    : FServices({.Host = FHost,
                 .DataDirectory = dataFolder,
                 .SettingsPath = options.Settings,
                 .Language = options.Language,
                 .Switches = {}}),
      FMarket(FServices, {dataFolder, options.Universe, options.Seed, options.StepSeconds, 0}),
      FExchange(FMarket.ChooseExchange(options.Exchange)) {
    FHost.SetFieldLists(&FFieldLists);
    FServices.Market().SetSpreadTablesAtOnce(true); // prices by their ticks from the first frame on
}

// A question that is open lets the timers run.
void TDesktopSession::Step() {
    if (FIsStepping) return;
    const QScopedValueRollback stepping(FIsStepping, true);
    FMarket.Step();
    ++FDeliveries;
}

String TDesktopSession::Clock() const {
    String text;
    AppendTimeOfDay(text, FMarket.TimeNanos() / NanosPerSecond);
    return text;
}

} // namespace quorin
