#pragma once

#include "terminal/desktop/ActionPane.h"
#include "terminal/forms/MarketWatchForm.h"

class QAction;
class QComboBox;

namespace quorin {

// The market watch on the screen: an exchange with its categories, or the favourites, with the
// quick orders of the row with the focus. Rows that are not sorted are moved by drag, or
// by Ctrl+Shift+Up and Ctrl+Shift+Down.
class TWatchPane : public TActionPane {
    Q_OBJECT

public:
    // `dialog` asks about orders; it must live longer.
    TWatchPane(StringView exchange, TOrderDialog& dialog, QWidget* parent = nullptr);

    TMarketWatchForm& Form() { return *FForm; }

    void Follow() override;
    QString Caption() override;
    // "EXCHANGE" or "EXCHANGE/CATEGORY".
    String Choice() override;
    void SetChoice(StringView choice) override;
    void TakeAccount(StringView account) override { FForm->ShowAccount(account); }
    QSize sizeHint() const override;

protected:
    void JoinGroup(StringView groupID) override;

private:
    void FillBoxes();
    QAction* AddListAction(const QKeySequence& key, void (TWatchPane::*act)());
    void MoveUp() { MoveFocused(-1); }
    void MoveDown() { MoveFocused(1); }
    void MoveFocused(Integer step);
    void AddFavourite() { FForm->Control().AddFavoritePrice(); }

    TMarketWatchForm* FForm; // the base's
    QComboBox* FExchanges;
    QComboBox* FCategories;
    QAction* FMoveUp;
    QAction* FMoveDown;
    QAction* FAddFavourite;
    TAppLanguage FFilledLanguage = TAppLanguage::None; // of the texts in the boxes
};

} // namespace quorin
