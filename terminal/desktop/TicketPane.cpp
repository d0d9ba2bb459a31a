#include "terminal/desktop/TicketPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace quorin {

namespace {

constexpr int ButtonHeight = 30;
constexpr int Margin = 12;

std::size_t Place(TTicketField field) {
    return static_cast<std::size_t>(field);
}

void ShowText(QLabel& label, const QString& text) {
    if (label.text() != text) label.setText(text);
}

} // namespace

TTicketPane::TTicketPane(QWidget* parent)
    : TPane(TPaneKind::Ticket, parent), FForm(CreateComponent<TTicketForm>()),
      FBuy(MakeButton(OrderSide::Buy)), FSell(MakeButton(OrderSide::Sell)),
      FResult(new QLabel(this)) {
    auto* grid = new QGridLayout;
    for (const TTicketField field : TicketFields) {
        const auto row = static_cast<int>(Place(field));
        FSkins[Place(field)] = MakeSkin(field);
        FLabels[Place(field)] = new QLabel(this);
        FLabels[Place(field)]->setBuddy(FSkins[Place(field)]);
        grid->addWidget(FLabels[Place(field)], row, 0);
        grid->addWidget(FSkins[Place(field)], row, 1);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(FBuy);
    buttons->addWidget(FSell);
    FResult->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    layout->addWidget(FResult);
    layout->addStretch();
    Follow();
}

// The skins must be gone before the fields that they show.
TTicketPane::~TTicketPane() {
    for (TEditSkin* skin : FSkins) delete skin;
}

TEditSkin* TTicketPane::MakeSkin(TTicketField field) {
    TcxCustomEdit& edit = FForm->Edit(field);
    if (auto* spin = ObjectAs<TcxSpinEdit>(&edit)) return new TSpinSkin(*spin, this);
    return new TPopupSkin(*ObjectAs<TcxPopupEdit>(&edit), this);
}

QPushButton* TTicketPane::MakeButton(Integer side) {
    auto* button = new QPushButton(this);
    button->setFixedHeight(ButtonHeight);
    button->setAutoDefault(false);
    QPalette palette = button->palette();
    palette.setColor(QPalette::Button, SideColor(side));
    palette.setColor(QPalette::ButtonText, SideTextColor());
    button->setPalette(palette);
    connect(button, &QPushButton::clicked, this, [this, side] { Send(side); });
    return button;
}

TEditSkin& TTicketPane::FieldSkin(TTicketField field) {
    return *FSkins[Place(field)];
}

QString TTicketPane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_Ticket));
}

// The fields hear of the group's values by themselves.
void TTicketPane::JoinGroup(StringView groupID) {
    for (const TTicketField field : TicketFields) FForm->SetGroup(field, groupID);
}

void TTicketPane::TakeSymbol(StringView symbol) {
    FForm->TakeSymbol(symbol);
    Follow();
}

void TTicketPane::Send(Integer side) {
    const QPointer<TTicketPane> alive(this);
    const Boolean isTaken = FForm->Send(side, /*atMarket=*/false);
    if (!alive) return;
    FResult->setText(isTaken ? QStringLiteral("\u2713 ") + ToQt(SideText(side))
                             : QStringLiteral("\u2717 ") + ToQt(SideText(side)));
    Follow();
}

void TTicketPane::Follow() {
    for (const TTicketField field : TicketFields) {
        const QString caption = ToQt(TTicketForm::Caption(field));
        ShowText(*FLabels[Place(field)], caption);
        FSkins[Place(field)]->Mirror();
        FSkins[Place(field)]->setAccessibleName(caption);
    }
    FBuy->setText(ToQt(SideText(OrderSide::Buy)));
    FSell->setText(ToQt(SideText(OrderSide::Sell)));
}

} // namespace quorin
