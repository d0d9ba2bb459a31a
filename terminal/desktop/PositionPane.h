#pragma once

#include "terminal/desktop/ActionPane.h"
#include "terminal/forms/PositionForm.h"

namespace quorin {

// The positions of one account, with their closes.
class TPositionPane : public TActionPane {
    Q_OBJECT

public:
    // `dialog` asks about orders; it must live longer.
    explicit TPositionPane(TOrderDialog& dialog, QWidget* parent = nullptr);

    TPositionForm& Form() { return *FForm; }

    QString Caption() override;
    // The account.
    String Choice() override { return FForm->Control().Account(); }
    void SetChoice(StringView account) override { TakeAccount(account); }
    void TakeAccount(StringView account) override { FForm->Control().SetAccount(account); }

protected:
    void JoinGroup(StringView groupID) override;

private:
    TPositionForm* FForm; // the base's
};

} // namespace quorin
