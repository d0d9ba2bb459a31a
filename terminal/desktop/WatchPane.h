#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/QuickOrderBar.h"
#include "terminal/forms/MarketWatchForm.h"

class QComboBox;

namespace quorin {

// The market watch on the screen: an exchange with its categories, or the favourites, with the
// quick orders of the row with the focus.
class TWatchPane : public TPane {
    Q_OBJECT

public:
    // `dialog` asks about orders; it must live longer.
    TWatchPane(StringView exchange, TOrderDialog& dialog, QWidget* parent = nullptr);
    ~TWatchPane() override;

    TMarketWatchForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    TQuickOrderBar& Bar() { return *FBar; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    // "EXCHANGE" or "EXCHANGE/CATEGORY".
    String Choice() override;
    void SetChoice(StringView choice) override;
    void TakeAccount(StringView account) override { FForm.ShowAccount(account); }
    bool IsAsking() const override { return FBar->IsAsking(); }
    QSize sizeHint() const override;

protected:
    void JoinGroup(StringView groupID) override;

private:
    void FillBoxes();

    TMarketWatchForm FForm;
    QComboBox* FExchanges;
    QComboBox* FCategories;
    TGridSkin* FGrid;
    TQuickOrderBar* FBar;
    TAppLanguage FFilledLanguage = TAppLanguage::None; // of the texts in the boxes
};

} // namespace quorin
