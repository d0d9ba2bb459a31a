#pragma once

#include "terminal/desktop/TreePane.h"
#include "terminal/forms/CashTreeForm.h"

namespace quorin {

// The cash of one account, or of every account of the user, a row per currency.
class TCashTreePane : public TTreePane {
    Q_OBJECT

public:
    // Begins with this account, known or not; with an empty one shows all.
    explicit TCashTreePane(StringView account, QWidget* parent = nullptr);

    QString Caption() override;
    // The account, or a mark for all.
    String Choice() override;
    void SetChoice(StringView choice) override;

protected:
    String Shows() override;
    void Show(StringView account) override;

private:
    TCashTreeForm& Form() { return static_cast<TCashTreeForm&>(TreeForm()); }
};

} // namespace quorin
