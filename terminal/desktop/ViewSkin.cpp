#include "terminal/desktop/ViewSkin.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>

namespace quorin {

namespace {

constexpr int SmallestColumn = 24;
constexpr Double OldAfter = 10.0; // seconds without a delivery

} // namespace

TViewSkin::TViewSkin(std::unique_ptr<TViewAccess> view, TShownForm* form, QWidget* parent)
    : QTableView(parent), FModel(std::move(view), form) {
    setModel(&FModel);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(SmallestColumn);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TViewSkin::SortBy);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) {
                TcxViewColumn* column = FModel.Column(section);
                if (!FIsFollowing && column != nullptr) column->SetWidth(width);
            });
    FollowColumns();
}

void TViewSkin::Follow() {
    const bool isChanged = FModel.View().TakeRepaint();
    const bool hasFaded = FModel.Flashes().Fade();
    if (!isChanged) {
        if (hasFaded) viewport()->update();
        return;
    }
    ++FPaintCount;
    const QScopedValueRollback following(FIsFollowing, true);
    FModel.FollowSize();
    FollowColumns();
    FollowRows();
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

void TViewSkin::FollowColumns() {
    const QScopedValueRollback following(FIsFollowing, true);
    for (int section = 0; section < FModel.columnCount(); ++section) {
        const TcxViewColumn& column = *FModel.Column(section);
        if (columnWidth(section) != column.GetWidth()) setColumnWidth(section, column.GetWidth());
    }
    const TcxViewColumn* sorted = FModel.View().SortedColumn();
    const int section = sorted == nullptr ? -1 : sorted->VisibleIndex();
    const auto order = sorted != nullptr && sorted->GetSortOrder() == soDescending
                           ? Qt::DescendingOrder
                           : Qt::AscendingOrder;
    horizontalHeader()->setSortIndicatorShown(section >= 0);
    horizontalHeader()->setSortIndicator(section, order);
}

void TViewSkin::FollowRows() {
    const Integer focused = FModel.View().FocusedRow();
    if (currentIndex().row() == focused) return;
    const int column = std::max(currentIndex().column(), 0);
    setCurrentIndex(focused == NoRow ? QModelIndex() : FModel.index(focused, column));
}

void TViewSkin::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!FIsFollowing) FModel.View().SetFocusedRow(current.isValid() ? current.row() : NoRow);
}

// Up, down, and as the rows came.
void TViewSkin::SortBy(int section) {
    TcxViewColumn* column = FModel.Column(section);
    if (column == nullptr) return;
    const TdxSortOrder before = column->GetSortOrder();
    FModel.View().SortBy(*column, before == soNone        ? soAscending
                                  : before == soAscending ? soDescending
                                                          : soNone);
    Follow();
}

void TViewSkin::SetFeedAge(Double seconds, const QString& since) {
    const QString old =
        seconds < OldAfter
            ? QString()
            : ToQt(FormatText(InterfaceText(TerminalKey::Res_NoDeliverySince), {FromQt(since)}));
    if (FModel.OldSince() == old) return;
    FModel.SetOldSince(old);
    viewport()->update();
}

} // namespace quorin
