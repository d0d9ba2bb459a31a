#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/QuickOrderBar.h"
#include "terminal/forms/OrdersForm.h"

class QCheckBox;

namespace quorin {

// The orders that work, or all of the day, and how to cancel them.
class TOrdersPane : public TPane {
    Q_OBJECT

public:
    // Both must live longer.
    TOrdersPane(TOrderDesk& desk, TOrderDialog& dialog, QWidget* parent = nullptr);
    ~TOrdersPane() override;

    TOrdersForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    TQuickOrderBar& Bar() { return *FBar; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    // Which orders: "all", or "working" to begin with.
    String Choice() override;
    void SetChoice(StringView choice) override;
    bool IsAsking() const override { return FBar->IsAsking(); }

private:
    TOrdersForm FForm;
    TGridSkin* FGrid;
    TQuickOrderBar* FBar;
    QCheckBox* FAll;
};

} // namespace quorin
