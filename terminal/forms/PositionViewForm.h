#pragma once

#include "terminal/forms/AccountView.h"
#include "terminal/forms/PositionListForm.h"
#include "viewdata/positionview/PositionViewDataControl.h"

namespace quorin {

// The main position list of the terminal: of one account, or of a master with all below it.
class TPositionViewControl : public TTerminalPositionControl<TPositionViewDataControl> {
    QUORIN_CLASS(TPositionViewControl, TTerminalPositionControl<TPositionViewDataControl>)

    explicit TPositionViewControl(TComponent* AOwner = nullptr);

    const String& Account() const { return FAccount; }
    // The currency of the China Connect totals while they are shown; empty for all others.
    String ChinaConnectCurrency() const;
    // The currency that the totals come in.
    String TotalsCurrency() const;
};

class TPositionViewForm : public TPositionListForm, public TAccountView {
    QUORIN_CLASS(TPositionViewForm, TPositionListForm)

    TPositionViewForm();

    TPositionViewControl& Control() { return *FControl; }
    bool IsText(Integer attribute) const override;
    // Every column of the view.
    std::vector<Integer> Attributes() override;

    void SetAggregate() override { FControl->SetAggregate(); }
    Boolean Aggregated() const override { return FControl->Aggregated(); }
    // The account, whether it is a sum, the currency of the rows when they are filtered, and what
    // the totals are of when they are not of everything else.
    String Title() override;
    // Who holds the account, its status, and the totals in one currency.
    std::vector<String> Summary() override;
    // Names rows that are held and have no market value in the currency of the totals: without a
    // price, or without a ratio of their currency.
    String PartialReason() override;

    // The lines on the holder.
    std::vector<String> HolderLines();
    // Empty without an account.
    String StatusText();
    String MarketValueText();
    // Sums have no accept value.
    String AcceptValueText();

protected:
    void SetAccount(StringView account) override { FControl->SetAccount(account); }

private:
    TPositionViewControl* FControl; // the source's
};

} // namespace quorin
