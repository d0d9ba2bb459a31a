#include "terminal/desktop/PositionPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QVBoxLayout>

namespace quorin {

TPositionPane::TPositionPane(TOrderDialog& dialog, QWidget* parent)
    : TPane(TPaneKind::Positions, parent), FGrid(new TGridSkin(FForm.View(), &FForm, this)),
      FBar(new TQuickOrderBar(FForm, *FGrid, dialog, PositionActions(FForm), *this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FBar);
    layout->addWidget(FGrid);
    TakeAccount(FirstAccount);
    connect(FGrid, &TGridSkin::RowChosen, this, [this](int row) {
        const String symbol = FForm.Symbol(row);
        if (!symbol.empty()) ChooseSymbol(symbol);
    });
}

// What draws must be gone before the form that it shows.
TPositionPane::~TPositionPane() {
    delete FBar;
    delete FGrid;
}

void TPositionPane::Follow() {
    FGrid->Follow();
    FBar->Follow();
    if (FGrid->accessibleName() != Caption()) FGrid->setAccessibleName(Caption());
}

QString TPositionPane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_Positions)) + u' ' + ToQt(FForm.Control().Account());
}

void TPositionPane::TakeAccount(StringView account) {
    FForm.Control().SetAccount(account);
}

void TPositionPane::JoinGroup(StringView groupID) {
    FForm.Control().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

} // namespace quorin
