#pragma once

#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"

#include <QMainWindow>
#include <QTimer>

class QLabel;

namespace quorin {

// The window with the forms that were asked for. Deliveries come with one timer and frames with
// another, so a flood of deliveries costs no more than a frame now and then.
class TMainWindow : public QMainWindow {
    Q_OBJECT

public:
    // At most 60 frames a second.
    static constexpr int FrameInterval = 17; // milliseconds

    // The session must live longer.
    TMainWindow(TDesktopSession& session, const TDesktopOptions& options);
    ~TMainWindow() override;

    // Starts the market and the frames.
    void Start(Double stepSeconds);
    // Draws what has changed since the frame before.
    void Frame();

    // Nil where the window does not have it.
    TWatchPane* Watch() { return FWatch; }
    TTicketPane* Ticket() { return FTicket; }

private:
    void OpenWatch();
    void OpenTicket();
    void FillTicket(StringView symbol);

    TDesktopSession& FSession;
    TWatchPane* FWatch = nullptr;
    TTicketPane* FTicket = nullptr;
    QLabel* FClock;
    QTimer FStepTimer;
    QTimer FFrameTimer;
};

} // namespace quorin
