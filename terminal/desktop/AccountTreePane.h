#pragma once

#include "terminal/desktop/TreePane.h"

namespace quorin {

// The figures of one account, or of a master the sum over its sub-accounts.
class TAccountTreePane : public TTreePane {
    Q_OBJECT

public:
    // Begins with this account, known or not.
    explicit TAccountTreePane(StringView account, QWidget* parent = nullptr);

    QString Caption() override;
};

} // namespace quorin
