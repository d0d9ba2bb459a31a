#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/PopupSkin.h"
#include "terminal/desktop/SpinSkin.h"
#include "terminal/forms/TicketForm.h"

#include <array>

class QLabel;
class QPushButton;

namespace quorin {

// The order ticket on the screen.
class TTicketPane : public TPane {
    Q_OBJECT

public:
    explicit TTicketPane(QWidget* parent = nullptr);
    ~TTicketPane() override;

    TTicketForm& Form() { return *FForm; }
    TEditSkin& FieldSkin(TTicketField field);

    void Follow() override;
    QString Caption() override;
    // The account.
    String Choice() override { return FForm->Account(); }
    void SetChoice(StringView account) override { FForm->SetLayoutAccount(account); }
    // Enters the symbol as a person would.
    void TakeSymbol(StringView symbol) override;
    void TakeAccount(StringView account) override { FForm->SetLayoutAccount(account); }
    bool IsAsking() const override { return FForm->IsSending(); }

protected:
    void JoinGroup(StringView groupID) override;

private:
    TEditSkin* MakeSkin(TTicketField field);
    QPushButton* MakeButton(Integer side);
    void Send(Integer side);

    std::unique_ptr<TTicketForm> FForm;
    std::array<TEditSkin*, std::size(TicketFields)> FSkins{};
    std::array<QLabel*, std::size(TicketFields)> FLabels{};
    QPushButton* FBuy;
    QPushButton* FSell;
    QLabel* FResult;
};

} // namespace quorin
