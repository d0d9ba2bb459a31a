#include "terminal/desktop/MessagesPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TableSize.h"

#include <QScrollBar>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int UsualRows = 14;

} // namespace

void FollowTail(TGrowingListForm& form, TGridSkin& grid) {
    const Integer rows = form.RowCount();
    const bool wasAtEnd = grid.verticalScrollBar()->value() == grid.verticalScrollBar()->maximum();
    form.Follow();
    grid.Follow();
    if (wasAtEnd && form.RowCount() > rows && form.View().GetSortedItemCount() == 0) {
        grid.scrollToBottom();
    }
}

TMessagesPane::TMessagesPane(const TMessageLog& log, QWidget* parent)
    : TPane(TPaneKind::Messages, parent), FForm(log),
      FGrid(new TGridSkin(FForm.View(), &FForm, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FGrid);
    Follow();
}

// The grid must be gone before the form that it shows.
TMessagesPane::~TMessagesPane() {
    delete FGrid;
}

void TMessagesPane::Follow() {
    FollowTail(FForm, *FGrid);
    if (FLanguage.TakeChange()) FGrid->setAccessibleName(Caption());
}

QString TMessagesPane::Caption() {
    return ToQt(FForm.Title());
}

QSize TMessagesPane::sizeHint() const {
    return QWidget::sizeHint().expandedTo(TableSize(*FGrid, UsualRows));
}

} // namespace quorin
