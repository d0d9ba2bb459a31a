// Which forms a window begins with, and where they stand.

#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/PaneLayout.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer FirstGroup = 1;
constexpr QSize UsualSize(1440, 860);
constexpr int FrameHeight = 60; // title, menu and status line beside a single form
constexpr int SideWidth = 330;
constexpr int BelowHeight = 280;

// A form's number is what its code ends with; 0 for a code that is none.
int NumberOf(const QString& code) {
    return code.section(u'-', 1).toInt();
}

bool IsKind(TPaneKind kind) {
    const auto kinds = PaneKinds();
    return std::any_of(kinds.begin(), kinds.end(),
                       [kind](const TPaneKindInfo& info) { return info.Kind == kind; });
}

} // namespace

void TMainWindow::OpenFirst(const TDesktopOptions& options) {
    FKeepsForms = !options.Form.has_value();
    if (options.Form.has_value()) {
        TPane& pane = OpenDock(*options.Form, 1).Pane();
        resize(pane.sizeHint() + QSize(0, FrameHeight));
        if (pane.Kind() != TPaneKind::Ticket && !options.Symbol.empty()) {
            pane.TakeSymbol(options.Symbol);
        }
    } else if (!OpenStored()) {
        OpenUsual();
    }
    FillTicket(options.Symbol);
}

void TMainWindow::FillTicket(StringView symbol) {
    TTicketPane* ticket = Ticket();
    if (ticket == nullptr) return;
    if (!symbol.empty()) {
        ticket->TakeSymbol(symbol);
    } else if (Watch() != nullptr) {
        ticket->TakeSymbol(Watch()->Form().Symbol(0));
    }
}

bool TMainWindow::OpenStored() {
    const QStringList codes = FWorkspace.Value(FormsKey).split(u' ', Qt::SkipEmptyParts);
    for (const QString& code : codes) {
        const TPaneKindInfo* kind = FindPaneKind(FromQt(code.section(u'-', 0, 0)));
        if (kind == nullptr || NumberOf(code) < 1 || DockOf(code) != nullptr) continue;
        OpenDock(kind->Kind, NumberOf(code));
    }
    if (FDocks.empty()) return false;
    resize(UsualSize);
    restoreGeometry(QByteArray::fromBase64(FWorkspace.Value(GeometryKey).toLatin1()));
    restoreState(QByteArray::fromBase64(FWorkspace.Value(StateKey).toLatin1()));
    return true;
}

// The watch with its lists below; the ticket at the side with the account below. All in one group.
void TMainWindow::OpenUsual() {
    resize(UsualSize);
    TPaneDock& watch = OpenDock(TPaneKind::Watch, 1);
    TPaneDock& ticket = OpenDock(TPaneKind::Ticket, 1);
    addDockWidget(Qt::RightDockWidgetArea, &ticket);
    TPaneDock* below = nullptr;
    for (const TPaneKind kind : {TPaneKind::Positions, TPaneKind::PositionView, TPaneKind::Orders,
                                 TPaneKind::Audit, TPaneKind::Messages}) {
        if (!IsKind(kind)) continue;
        TPaneDock& dock = OpenDock(kind, 1);
        if (below == nullptr) {
            splitDockWidget(&watch, &dock, Qt::Vertical);
            below = &dock;
        } else {
            tabifyDockWidget(below, &dock);
        }
    }
    TPaneDock* above = &ticket;
    for (const TPaneKind kind : {TPaneKind::Trades, TPaneKind::AccountTree}) {
        if (!IsKind(kind)) continue;
        TPaneDock& dock = OpenDock(kind, 1);
        splitDockWidget(above, &dock, Qt::Vertical);
        above = &dock;
    }
    if (below != nullptr) below->raise();
    FSizesAreDue = true;
    if (isVisible()) SizeUsual();
    for (TPaneDock* dock : FDocks) dock->Pane().SetGroup(FirstGroup);
}

// Docks have sizes only once they are on the screen.
void TMainWindow::SizeUsual() {
    FSizesAreDue = false;
    for (TPaneDock* dock : FDocks) {
        if (dock->Pane().Kind() == TPaneKind::Ticket) {
            resizeDocks({FDocks.front(), dock}, {width() - SideWidth, SideWidth}, Qt::Horizontal);
            resizeDocks({dock}, {dock->sizeHint().height()}, Qt::Vertical);
        }
        if (dock->Pane().Kind() == TPaneKind::Positions) {
            resizeDocks({dock}, {BelowHeight}, Qt::Vertical);
        }
    }
}

void TMainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (FSizesAreDue) SizeUsual();
}

void TMainWindow::ArrangeAsAtFirst() {
    const std::vector<TPaneDock*> docks = FDocks;
    for (TPaneDock* dock : docks) dock->CloseForm();
    if (!FDocks.empty()) return; // a question is open; what waits for it stays as it is
    OpenUsual();
    FillTicket({});
}

} // namespace quorin
