#pragma once

#include "terminal/desktop/ActionPane.h"
#include "terminal/forms/OrdersForm.h"

class QCheckBox;

namespace quorin {

// The orders that work, or all of the day, and how to cancel them.
class TOrdersPane : public TActionPane {
    Q_OBJECT

public:
    // Both must live longer.
    TOrdersPane(TOrderDesk& desk, TOrderDialog& dialog, QWidget* parent = nullptr);

    TOrdersForm& Form() { return *FForm; }

    void Follow() override;
    QString Caption() override;
    // Which orders: "all", or "working" to begin with.
    String Choice() override;
    void SetChoice(StringView choice) override;

private:
    TOrdersForm* FForm; // the base's
    QCheckBox* FAll;
};

} // namespace quorin
