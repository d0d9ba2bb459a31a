#pragma once

#include "terminal/desktop/GridActions.h"
#include "terminal/desktop/Pane.h"

#include <QDockWidget>
#include <QPointer>

class QLabel;
class QToolButton;

namespace quorin {

// A dock of the main window with one form in it. Its title says what is shown and which linked
// group it is in, by a letter in the group's colour; a press on that goes on to the next group.
class TPaneDock : public QDockWidget {
    Q_OBJECT

public:
    // Takes the form over. The code names the dock in stored arrangements.
    TPaneDock(TPane* pane, const QString& code, QWidget* parent = nullptr);
    ~TPaneDock() override;

    TPane& Pane() { return *FPane; }
    // What can be done with its list or tree; nil for forms without one.
    TGridActions* Actions() { return FActions; }
    void Follow();
    // The person, or the program, wants the form gone: it goes at once, or when its question, or
    // any box that is open, has been answered, or its export is done.
    void CloseForm();

signals:
    // The form may go now.
    void Ended(TPaneDock* dock);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QToolButton* MakeButton(const QString& text);
    void FollowGroup();
    bool IsAsking() const;

    TPane* FPane;
    QPointer<TGridActions> FActions; // the view's
    QLabel* FTitle;
    QToolButton* FGroupButton;
    QToolButton* FFloatButton;
    QToolButton* FCloseButton;
    bool FWantsToClose = false;
};

} // namespace quorin
