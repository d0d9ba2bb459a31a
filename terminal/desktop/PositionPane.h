#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/QuickOrderBar.h"
#include "terminal/forms/PositionForm.h"

namespace quorin {

// The positions of one account, with their closes.
class TPositionPane : public TPane {
    Q_OBJECT

public:
    // `dialog` asks about orders; it must live longer.
    explicit TPositionPane(TOrderDialog& dialog, QWidget* parent = nullptr);
    ~TPositionPane() override;

    TPositionForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    TQuickOrderBar& Bar() { return *FBar; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    // The account.
    String Choice() override { return FForm.Control().Account(); }
    void SetChoice(StringView account) override { TakeAccount(account); }
    void TakeAccount(StringView account) override;
    bool IsAsking() const override { return FBar->IsAsking(); }

protected:
    void JoinGroup(StringView groupID) override;

private:
    TPositionForm FForm;
    TGridSkin* FGrid;
    TQuickOrderBar* FBar;
};

} // namespace quorin
