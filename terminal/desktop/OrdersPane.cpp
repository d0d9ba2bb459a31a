#include "terminal/desktop/OrdersPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QCheckBox>
#include <QHBoxLayout>

namespace quorin {

namespace {

constexpr StringView AllChoice = u"all";
constexpr StringView WorkingChoice = u"working";
constexpr Integer CancelAction = 0;

} // namespace

TOrdersPane::TOrdersPane(TOrderDesk& desk, TOrderDialog& dialog, QWidget* parent)
    : TPane(TPaneKind::Orders, parent), FForm(desk),
      FGrid(new TGridSkin(FForm.View(), &FForm, this)),
      FBar(new TQuickOrderBar(FForm, *FGrid, dialog, OrderActions(FForm, dialog), *this)),
      FAll(new QCheckBox(this)) {
    auto* head = new QHBoxLayout;
    head->addWidget(FBar);
    head->addWidget(FAll);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(FGrid);
    FBar->AddKey(CancelAction, QKeySequence::Delete);
    FForm.Control().SetWorkingOnly(true);
    connect(FAll, &QCheckBox::toggled, this,
            [this](bool isAll) { FForm.Control().SetWorkingOnly(!isAll); });
    connect(FGrid, &TGridSkin::RowChosen, this, [this](int row) {
        const String symbol = FForm.Symbol(row);
        if (!symbol.empty()) ChooseSymbol(symbol);
    });
}

// What draws must be gone before the form that it shows.
TOrdersPane::~TOrdersPane() {
    delete FBar;
    delete FGrid;
}

void TOrdersPane::Follow() {
    FGrid->Follow();
    FBar->Follow();
    const QString all = ToQt(InterfaceText(TerminalKey::Res_AllOrders));
    if (FAll->text() != all) FAll->setText(all);
    if (FGrid->accessibleName() != Caption()) FGrid->setAccessibleName(Caption());
}

QString TOrdersPane::Caption() {
    return ToQt(InterfaceText(FAll->isChecked() ? TerminalKey::Res_AllOrders
                                                : TerminalKey::Res_WorkingOrders));
}

String TOrdersPane::Choice() {
    return String(FAll->isChecked() ? AllChoice : WorkingChoice);
}

void TOrdersPane::SetChoice(StringView choice) {
    if (choice == AllChoice || choice == WorkingChoice) FAll->setChecked(choice == AllChoice);
}

} // namespace quorin
