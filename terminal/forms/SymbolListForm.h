#pragma once

#include "terminal/forms/FieldListForm.h"

namespace quorin {

// The symbols of all exchanges to choose from, with currency and name. What is chosen is a
// TCustomMarketData.
class TSymbolListForm : public TFieldListForm {
    QUORIN_CLASS(TSymbolListForm, TFieldListForm)

    explicit TSymbolListForm(TComponent* owner = nullptr);
    ~TSymbolListForm() override;

protected:
    void Collect(std::vector<TObject*>& entries) const override;
    const String& CodeOf(const TObject& entry) const override;
    String CellOf(const TObject& entry, Integer column) const override;
};

} // namespace quorin
