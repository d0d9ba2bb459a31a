#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/PopupSkin.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/SymbolChooser.h"
#include "terminal/forms/TradeListForm.h"

class QLabel;

namespace quorin {

// The latest trades of one symbol, each with the side of the quote that it reached. The symbol is
// typed, picked or followed from the group.
class TTradesPane : public TPane {
    Q_OBJECT

public:
    explicit TTradesPane(QWidget* parent = nullptr);
    ~TTradesPane() override;

    TTradeListForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    TPopupSkin& SymbolField() { return *FField; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    QSize sizeHint() const override;
    // The symbol.
    String Choice() override { return FForm.Symbol(); }
    void SetChoice(StringView choice) override;
    void TakeSymbol(StringView symbol) override;

protected:
    void JoinGroup(StringView groupID) override { FChooser->SetGroup(groupID); }

private:
    void FollowField();

    TTradeListForm FForm;
    std::unique_ptr<TSymbolChooser> FChooser;
    QLabel* FLabel;
    TPopupSkin* FField;
    TGridSkin* FGrid;
    TShownLanguage FLanguage;
};

} // namespace quorin
