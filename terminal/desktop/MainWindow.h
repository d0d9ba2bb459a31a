#pragma once

#include "terminal/desktop/DesktopOptions.h"
#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/PaneDock.h"
#include "terminal/desktop/StoredSettings.h"
#include "terminal/desktop/Workspace.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>

class QMenu;

namespace quorin {

class TStatusLine;
class TTicketPane;
class TWatchPane;

// The window with its forms, each in a dock and any of them as often as wanted. Deliveries come
// with one timer and frames with another, so a flood of deliveries costs no more than a frame now
// and then. The workspace has the forms of the last start, and gets those of this one at the end.
class TMainWindow : public QMainWindow {
    Q_OBJECT

public:
    // At most 60 frames a second.
    static constexpr int FrameInterval = 17; // milliseconds

    // All must live longer.
    TMainWindow(TDesktopSession& session, const TDesktopOptions& options, TWorkspace& workspace);
    ~TMainWindow() override;

    // Starts the market and the frames.
    void Start(Double stepSeconds);
    // Draws what has changed since the frame before.
    void Frame();
    // How many frames there were, and the longest time between two, in milliseconds.
    Int64 Frames() const { return FFrames; }
    Int64 LongestPause() const { return FLongestPause; }

    // Opens one more form of the kind, with the layout that a form of its number had last.
    TPane& Open(TPaneKind kind);
    // Closes every form and opens those that a terminal begins with.
    void ArrangeAsAtFirst();
    const std::vector<TPaneDock*>& Docks() const { return FDocks; }
    // The first of its kind; nil where the window has none.
    TPane* Find(TPaneKind kind) const;
    TWatchPane* Watch() const;
    TTicketPane* Ticket() const;

    void SwitchLanguage(TAppLanguage language);
    void SwitchTheme(TTheme theme);
    // Hands forms and layouts to the workspace and writes it.
    void Store();

signals:
    // The user has closed the window, and forms and layouts are stored. Floating forms are windows
    // of their own and stay open; the program ends.
    void Closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    static const QString FormsKey; // in the workspace: "watch-1 ticket-1"
    static const QString GeometryKey;
    static const QString StateKey;

    TPaneDock& OpenDock(TPaneKind kind, int number);
    void OpenFirst(const TDesktopOptions& options);
    bool OpenStored();
    void OpenUsual();
    void SizeUsual();
    void FillTicket(StringView symbol);
    void CloseActiveForm();
    void Link(TPane& pane);
    void SymbolChosen(TPane& from, const QString& symbol);
    TPaneDock* DockOf(const QString& code) const;
    void EndForm(TPaneDock* dock);
    void StoreForm(TPaneDock& dock);
    QString FormCodes() const; // as under FormsKey
    void MakeMenus();
    void FollowLanguage();

    TDesktopSession& FSession;
    TWorkspace& FWorkspace;
    TStoredSettings FSettings;
    TStoredFavourites FFavourites;
    std::vector<TPaneDock*> FDocks; // in order of opening
    TStatusLine* FStatus;
    TAppLanguage FShownLanguage = TAppLanguage::None;
    QElapsedTimer FSinceFrame;
    Int64 FFrames = 0;
    Int64 FLongestPause = 0;
    bool FSizesAreDue = false;
    bool FKeepsForms = false; // as the whole terminal, not a single form
    QTimer FStepTimer;
    QTimer FFrameTimer;
};

} // namespace quorin
