#pragma once

#include "terminal/desktop/CodeBox.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/QuickOrderBar.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/UnderlyerForm.h"

class QComboBox;

namespace quorin {

// The futures or options of one underlyer, chosen from the top down: exchange, series, what of it,
// month, calls or puts; with the quick orders of the row with the focus.
class TUnderlyerPane : public TPane {
    Q_OBJECT

public:
    // Begins with the first exchange that has futures. `dialog` asks about orders; it must live
    // longer.
    explicit TUnderlyerPane(TOrderDialog& dialog, QWidget* parent = nullptr);
    ~TUnderlyerPane() override;

    TUnderlyerForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    TQuickOrderBar& Bar() { return *FBar; }
    TCodeBox& ExchangeBox() { return *FExchanges; }
    TCodeBox& SeriesBox() { return *FSeries; }
    TCodeBox& ModeBox() { return *FModes; }
    TCodeBox& MonthBox() { return *FMonths; }
    TCodeBox& CallPutBox() { return *FCallPut; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    QSize sizeHint() const override;
    // Exchange, series, mode, month, calls or puts, each after a "|".
    String Choice() override;
    void SetChoice(StringView choice) override;
    // The series of a future or an option; other symbols change nothing.
    void TakeSymbol(StringView symbol) override;
    void TakeAccount(StringView account) override { FForm.ShowAccount(account); }
    bool IsAsking() const override { return FBar->IsAsking(); }

protected:
    void JoinGroup(StringView groupID) override;

private:
    void ConnectBoxes();
    void FollowMarket();
    void FillBoxes();
    void ExchangesChanged(Pointer Sender, Pointer Data);

    TUnderlyerForm FForm;
    TObject FOwner; // of the registration
    TCodeBox* FExchanges;
    TCodeBox* FSeries;
    TCodeBox* FModes;
    TCodeBox* FMonths;
    TCodeBox* FCallPut;
    TGridSkin* FGrid;
    TQuickOrderBar* FBar;
    TShownLanguage FLanguage;
    bool FWasReady = false;
    bool FIsStale = true; // there may be other things to choose than the boxes have
};

} // namespace quorin
