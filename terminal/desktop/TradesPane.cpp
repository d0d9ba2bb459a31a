#include "terminal/desktop/TradesPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TableSize.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int UsualRows = 14;
constexpr int Margin = 4;

} // namespace

TTradesPane::TTradesPane(QWidget* parent)
    : TPane(TPaneKind::Trades, parent), FChooser(CreateComponent<TSymbolChooser>()),
      FLabel(new QLabel(this)), FField(new TPopupSkin(FChooser->Edit(), this)),
      FGrid(new TGridSkin(FForm.View(), &FForm, this)) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(Margin, Margin, Margin, 0);
    line->addWidget(FLabel);
    line->addWidget(FField, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(line);
    layout->addWidget(FGrid);
    FLabel->setBuddy(FField);
    Follow();
}

// The skins must be gone before what they show.
TTradesPane::~TTradesPane() {
    delete FField;
    delete FGrid;
}

void TTradesPane::SetChoice(StringView choice) {
    const bool canTell = Market().IsMarketDataReady();
    if (!canTell || Market().FindMarketData(choice) != nullptr) TakeSymbol(choice);
}

void TTradesPane::TakeSymbol(StringView symbol) {
    if (symbol == FChooser->Symbol() || FChooser->Edit().Focused()) return;
    FChooser->Enter(symbol);
    Follow();
}

void TTradesPane::FollowField() {
    if (FChooser->Symbol() == FForm.Symbol()) return;
    FForm.Trades().SetSymbol(FChooser->Symbol());
}

void TTradesPane::Follow() {
    FollowField();
    FForm.Follow();
    FGrid->Follow();
    FField->Mirror();
    if (!FLanguage.TakeChange()) return;
    const QString caption = ToQt(InterfaceText(ResourceKey::Res_Symbol));
    FLabel->setText(caption);
    FField->setAccessibleName(caption);
    FGrid->setAccessibleName(Caption());
}

QString TTradesPane::Caption() {
    return ToQt(FForm.Title());
}

QSize TTradesPane::sizeHint() const {
    return QWidget::sizeHint().expandedTo(TableSize(*FGrid, UsualRows));
}

} // namespace quorin
