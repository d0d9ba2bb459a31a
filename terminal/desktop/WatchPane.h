#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/desktop/Pane.h"
#include "terminal/forms/MarketWatchForm.h"

class QComboBox;

namespace quorin {

// The market watch on the screen: an exchange with its categories, or the favourites.
class TWatchPane : public TPane {
    Q_OBJECT

public:
    explicit TWatchPane(StringView exchange, QWidget* parent = nullptr);
    ~TWatchPane() override;

    TMarketWatchForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    // "EXCHANGE" or "EXCHANGE/CATEGORY".
    String Choice() override;
    void SetChoice(StringView choice) override;
    void TakeAccount(StringView account) override { FForm.ShowAccount(account); }
    QSize sizeHint() const override;

private:
    void FillBoxes();

    TMarketWatchForm FForm;
    QComboBox* FExchanges;
    QComboBox* FCategories;
    TGridSkin* FGrid;
    TAppLanguage FFilledLanguage = TAppLanguage::None; // of the texts in the boxes
};

} // namespace quorin
