#include "terminal/desktop/MainWindow.h"

#include "terminal/desktop/QtText.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QDockWidget>
#include <QLabel>
#include <QStatusBar>

#include <algorithm>

namespace quorin {

namespace {

constexpr const char* ProgramTitle = "quorin";
constexpr Double MillisecondsPerSecond = 1000.0;

} // namespace

TMainWindow::TMainWindow(TDesktopSession& session, const TDesktopOptions& options)
    : FSession(session), FClock(new QLabel(this)) {
    setWindowTitle(QLatin1String(ProgramTitle) + u' ' + ToQt(session.Exchange()));
    statusBar()->addWidget(FClock);
    statusBar()->setSizeGripEnabled(false);
    if (options.Form != TDesktopForm::Ticket) OpenWatch();
    if (options.Form != TDesktopForm::Watch) OpenTicket();
    if (FTicket != nullptr) FillTicket(options.Symbol);
    connect(&FStepTimer, &QTimer::timeout, this, [this] { FSession.Step(); });
    connect(&FFrameTimer, &QTimer::timeout, this, &TMainWindow::Frame);
    session.Host().SetWindow(this);
    resize(sizeHint()); // also where Qt would keep to a part of the screen
}

TMainWindow::~TMainWindow() {
    FSession.Host().SetWindow(nullptr);
    delete FWatch;
    delete FTicket;
}

void TMainWindow::OpenWatch() {
    FWatch = new TWatchPane(FSession.Exchange(), this);
    setCentralWidget(FWatch);
}

void TMainWindow::OpenTicket() {
    FTicket = new TTicketPane(this);
    FTicket->Form().SetLayoutAccount(FirstAccount);
    if (FWatch == nullptr) {
        setCentralWidget(FTicket);
        return;
    }
    auto* dock = new QDockWidget(this);
    dock->setTitleBarWidget(new QWidget(dock));
    dock->setWidget(FTicket);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    connect(&FWatch->Grid(), &TGridSkin::RowChosen, this, [this](int row) {
        FTicket->TakeSymbol(FWatch->Form().Symbol(row));
        FTicket->Skin(TTicketField::Price).setFocus();
    });
}

void TMainWindow::FillTicket(StringView symbol) {
    if (!symbol.empty()) {
        FTicket->TakeSymbol(symbol);
    } else if (FWatch != nullptr) {
        FTicket->TakeSymbol(FWatch->Form().Symbol(0));
    }
}

void TMainWindow::Start(Double stepSeconds) {
    FStepTimer.start(std::max(static_cast<int>(stepSeconds * MillisecondsPerSecond), 1));
    FFrameTimer.start(FrameInterval);
}

void TMainWindow::Frame() {
    if (FWatch != nullptr) FWatch->Follow();
    if (FTicket != nullptr) FTicket->Follow();
    const QString clock = ToQt(FSession.Exchange()) + QStringLiteral("   ") +
                          ToQt(FSession.Clock()) + QStringLiteral("   #") +
                          QString::number(FSession.Deliveries());
    if (FClock->text() != clock) FClock->setText(clock);
}

} // namespace quorin
