#include "terminal/desktop/ActionPane.h"

#include "terminal/desktop/TableSize.h"

#include <QVBoxLayout>

namespace quorin {

namespace {
constexpr int UsualRows = 8;
constexpr QSize LargestTable(1100, 500);
} // namespace

QVBoxLayout& TActionPane::Bind(std::unique_ptr<TListForm> form, TOrderDialog& dialog,
                               std::vector<TRowAction> actions) {
    FForm = std::move(form);
    FGrid = new TGridSkin(FForm->View(), FForm.get(), this);
    FBar = new TQuickOrderBar(*FForm, *FGrid, dialog, std::move(actions), *this);
    connect(FGrid, &TGridSkin::RowChosen, this, &TActionPane::ChooseRow);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FBar);
    layout->addWidget(FGrid);
    return *layout;
}

// What draws must be gone before the form that it shows.
TActionPane::~TActionPane() {
    delete FBar;
    delete FGrid;
}

QSize TActionPane::sizeHint() const {
    const QSize table = TableSize(*FGrid, UsualRows).boundedTo(LargestTable);
    return QWidget::sizeHint().expandedTo(table);
}

void TActionPane::Follow() {
    FGrid->Follow();
    FBar->Follow();
    const QString name = Caption();
    if (FGrid->accessibleName() != name) FGrid->setAccessibleName(name);
}

void TActionPane::ChooseRow(int row) {
    const String symbol = FForm->Symbol(row);
    if (!symbol.empty()) ChooseSymbol(symbol);
}

} // namespace quorin
