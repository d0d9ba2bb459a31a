#include "terminal/desktop/WatchPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/VenueMarket.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int ShownRows = 22;
constexpr int EdgeWidth = 24; // of the scroll bar and the frame

} // namespace

TWatchPane::TWatchPane(StringView exchange, QWidget* parent)
    : QWidget(parent), FGrid(new TGridSkin(FForm.View(), &FForm, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FGrid);
    FGrid->setAccessibleName(ToQt(exchange));
    FForm.ShowMarket(exchange);
    FForm.ShowAccount(FirstAccount);
}

// The grid must be gone before the form that it shows.
TWatchPane::~TWatchPane() {
    delete FGrid;
}

void TWatchPane::Follow() {
    FForm.FollowVisibleRows();
    FGrid->Follow();
}

QSize TWatchPane::sizeHint() const {
    int width = EdgeWidth;
    for (int section = 0; section < FGrid->model()->columnCount(); ++section) {
        width += FGrid->columnWidth(section);
    }
    return {width, (ShownRows + 1) * FGrid->verticalHeader()->defaultSectionSize()};
}

} // namespace quorin
