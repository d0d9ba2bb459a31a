#include "terminal/desktop/MainWindow.h"

#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/PaneLayout.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/StatusLine.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"

#include <QApplication>
#include <QCloseEvent>
#include <QStatusBar>

#include <algorithm>

namespace quorin {

namespace {

constexpr const char* ProgramTitle = "quorin";
constexpr Double MillisecondsPerSecond = 1000.0;

QString CodeOf(TPaneKind kind, int number) {
    return QLatin1String(PaneKindInfo(kind).Code) + u'-' + QString::number(number);
}

QString ToBase64(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toBase64());
}

} // namespace

const QString TMainWindow::FormsKey = QStringLiteral("forms");
const QString TMainWindow::GeometryKey = QStringLiteral("window.geometry");
const QString TMainWindow::StateKey = QStringLiteral("window.state");

TMainWindow::TMainWindow(TDesktopSession& session, const TDesktopOptions& options,
                         TWorkspace& workspace)
    : FSession(session), FWorkspace(workspace), FSettings(session.Services().Config(), workspace),
      FFavourites(workspace), FStatus(new TStatusLine(session, this)) {
    setWindowTitle(QLatin1String(ProgramTitle) + u' ' + ToQt(session.Exchange()));
    setDockNestingEnabled(true);
    setDockOptions(dockOptions() | AllowTabbedDocks | AllowNestedDocks);
    statusBar()->addWidget(FStatus);
    statusBar()->setSizeGripEnabled(false);
    FollowLanguage();
    connect(&FStepTimer, &QTimer::timeout, this, [this] { FSession.Step(); });
    connect(&FFrameTimer, &QTimer::timeout, this, &TMainWindow::Frame);
    session.Host().SetWindow(this);
    OpenFirst(options);
    for (TPaneDock* dock : FDocks) NoteFirst(*dock, FWorkspace); // with their groups
    FWorkspace.SetFirst(FormsKey, FormCodes());
}

TMainWindow::~TMainWindow() {
    FSession.Host().SetWindow(nullptr);
    for (TPaneDock* dock : FDocks) delete dock;
}

void TMainWindow::Start(Double stepSeconds) {
    FFrameTimer.setTimerType(Qt::PreciseTimer); // a coarse one may come early
    FStepTimer.start(std::max(static_cast<int>(stepSeconds * MillisecondsPerSecond), 1));
    FFrameTimer.start(FrameInterval);
}

void TMainWindow::Frame() {
    if (FSinceFrame.isValid())
        FLongestPause = std::max<Int64>(FLongestPause, FSinceFrame.elapsed());
    FSinceFrame.start();
    FollowLanguage();
    const std::vector<TPaneDock*> docks = FDocks; // a form may end inside
    for (TPaneDock* dock : docks) {
        if (auto* list = qobject_cast<TViewSkin*>(dock->Pane().ItemView())) {
            list->SetFeedAge(FSession.DeliveryAge(), ToQt(FSession.Clock()));
        }
        dock->Follow();
    }
    FStatus->Follow(++FFrames);
}

// Languages are switched by whoever reaches the service.
void TMainWindow::FollowLanguage() {
    const TAppLanguage language = FSession.Services().Language().GetCurrentLanguage();
    if (language == FShownLanguage) return;
    FShownLanguage = language;
    MakeMenus();
}

void TMainWindow::SwitchLanguage(TAppLanguage language) {
    FSession.Services().Language().SetLanguage(language);
    FWorkspace.SetLanguage(language);
    Frame();
}

void TMainWindow::SwitchTheme(TTheme theme) {
    ApplyTheme(*qApp, theme);
    FWorkspace.SetTheme(theme);
    Frame();
}

TPaneDock* TMainWindow::DockOf(const QString& code) const {
    const auto found = std::find_if(FDocks.begin(), FDocks.end(), [&code](const TPaneDock* dock) {
        return dock->objectName() == code;
    });
    return found == FDocks.end() ? nullptr : *found;
}

TPane* TMainWindow::Find(TPaneKind kind) const {
    for (TPaneDock* dock : FDocks) {
        if (dock->Pane().Kind() == kind) return &dock->Pane();
    }
    return nullptr;
}

TWatchPane* TMainWindow::Watch() const {
    return static_cast<TWatchPane*>(Find(TPaneKind::Watch));
}

TTicketPane* TMainWindow::Ticket() const {
    return static_cast<TTicketPane*>(Find(TPaneKind::Ticket));
}

TPane& TMainWindow::Open(TPaneKind kind) {
    int number = 1;
    while (DockOf(CodeOf(kind, number)) != nullptr) ++number;
    TPaneDock& dock = OpenDock(kind, number);
    dock.show();
    dock.raise();
    return dock.Pane();
}

TPaneDock& TMainWindow::OpenDock(TPaneKind kind, int number) {
    const QString code = CodeOf(kind, number);
    auto* dock = new TPaneDock(MakePane(kind, FSession), code, this);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    FDocks.push_back(dock);
    connect(dock, &TPaneDock::Ended, this, &TMainWindow::EndForm);
    Link(dock->Pane());
    RestorePane(*dock, FWorkspace);
    NoteFirst(*dock, FWorkspace);
    return *dock;
}

void TMainWindow::Link(TPane& pane) {
    connect(&pane, &TPane::SymbolChosen, this,
            [this, &pane](const QString& symbol) { SymbolChosen(pane, symbol); });
}

// The ticket of the same group, which has heard of the symbol already; else the first one.
void TMainWindow::SymbolChosen(TPane& from, const QString& symbol) {
    TTicketPane* ticket = Ticket();
    for (TPaneDock* dock : FDocks) {
        if (dock->Pane().Kind() != TPaneKind::Ticket || dock->Pane().Group() != from.Group()) {
            continue;
        }
        ticket = static_cast<TTicketPane*>(&dock->Pane());
        break;
    }
    if (ticket == nullptr || &from == ticket) return;
    if (ToQt(ticket->Form().Symbol()) != symbol) ticket->TakeSymbol(FromQt(symbol));
    ticket->FieldSkin(TTicketField::Price).setFocus();
}

void TMainWindow::EndForm(TPaneDock* dock) {
    StoreForm(*dock);
    FDocks.erase(std::find(FDocks.begin(), FDocks.end(), dock));
    removeDockWidget(dock);
    dock->deleteLater();
}

void TMainWindow::StoreForm(TPaneDock& dock) {
    if (FKeepsForms) StorePane(dock, FWorkspace);
}

QString TMainWindow::FormCodes() const {
    QStringList codes;
    for (const TPaneDock* dock : FDocks) codes << dock->objectName();
    return codes.join(u' ');
}

void TMainWindow::Store() {
    if (FKeepsForms) {
        for (TPaneDock* dock : FDocks) StoreForm(*dock);
        FWorkspace.Set(FormsKey, FormCodes());
        FWorkspace.Set(GeometryKey, ToBase64(saveGeometry()));
        FWorkspace.Set(StateKey, ToBase64(saveState()));
    }
    FSettings.Store();
    FFavourites.Store();
    FWorkspace.Store();
}

void TMainWindow::closeEvent(QCloseEvent* event) {
    Store();
    event->accept();
    emit Closed();
}

} // namespace quorin
