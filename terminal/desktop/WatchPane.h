#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/forms/MarketWatchForm.h"

namespace quorin {

// The market watch on the screen.
class TWatchPane : public QWidget {
    Q_OBJECT

public:
    explicit TWatchPane(StringView exchange, QWidget* parent = nullptr);
    ~TWatchPane() override;

    TMarketWatchForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    // To be called once per frame.
    void Follow();
    QSize sizeHint() const override;

private:
    TMarketWatchForm FForm;
    TGridSkin* FGrid;
};

} // namespace quorin
