#pragma once

#include "terminal/desktop/PopupSkin.h"
#include "terminal/desktop/SpinSkin.h"
#include "terminal/forms/TicketForm.h"

#include <array>

class QLabel;
class QPushButton;

namespace quorin {

// The order ticket on the screen.
class TTicketPane : public QWidget {
    Q_OBJECT

public:
    explicit TTicketPane(QWidget* parent = nullptr);
    ~TTicketPane() override;

    TTicketForm& Form() { return *FForm; }
    TEditSkin& Skin(TTicketField field);
    // Enters the symbol as a person would.
    void TakeSymbol(StringView symbol);
    // To be called once per frame.
    void Follow();

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
