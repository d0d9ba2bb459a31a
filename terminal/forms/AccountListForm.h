#pragma once

#include "terminal/forms/FieldListForm.h"

namespace quorin {

// The accounts of the user to choose from, with tag and holder. What is chosen is a TCustomAccount.
class TAccountListForm : public TFieldListForm {
    QUORIN_CLASS(TAccountListForm, TFieldListForm)

    explicit TAccountListForm(TComponent* owner = nullptr);
    ~TAccountListForm() override;

protected:
    void Collect(std::vector<TObject*>& entries) const override;
    const String& CodeOf(const TObject& entry) const override;
    String CellOf(const TObject& entry, Integer column) const override;
};

} // namespace quorin
