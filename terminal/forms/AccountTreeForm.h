#pragma once

#include "terminal/forms/TreeForm.h"

namespace quorin {

using TAccountTreeControl = TTerminalAccountControl<TCustomAccountInfoDataControl>;

// The figures of one account: a row per figure with the total, and below it a row per currency.
class TAccountTreeForm : public TTreeForm {
    QUORIN_CLASS(TAccountTreeForm, TTreeForm)

    // With the figures that matter most.
    TAccountTreeForm();

    void ShowMainFigures();
    // Chooses the figures; those without a caption are left out.
    void ShowFigures(std::span<const Integer> attributes);

    bool IsText(Integer attribute) const override;
    // Names the currency of China Connect as well, while its account is shown.
    String Title() override;

protected:
    // The rows of the figures.
    TTotal TotalOf(Pointer node, Integer tag) override;
    String ColumnText(Integer tag) override;
    // A figure is named also while the account is not known.
    String NodeText(Pointer node, Integer tag) override;
    const TColumnList& LayoutColumns() const override { return *FLayoutColumns.List(); }

private:
    TFormColumns FLayoutColumns; // figure and amount; the control's columns are the rows
};

} // namespace quorin
