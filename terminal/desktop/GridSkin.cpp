#include "terminal/desktop/GridSkin.h"

#include "terminal/desktop/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorin {

namespace {

constexpr int RowHeight = 22;
constexpr int MarkWidth = 16;
constexpr int CellMargin = 6;
constexpr int SmallestColumn = 24;

// Text with its mark in a place of its own behind it, so that figures stay in line.
class TCellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = cell.text;
        cell.text.clear();
        cell.state &= ~QStyle::State_HasFocus; // the row is what has it
        const QStyle& style = *cell.widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

        QRect place = cell.rect.adjusted(CellMargin, 0, -CellMargin, 0);
        const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
        const QColor plain =
            cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        QColor color = plain;
        if (index.data(TGridModel::HasMarksRole).toBool()) {
            const QRect markPlace(place.right() - MarkWidth + 1, place.top(), MarkWidth,
                                  place.height());
            place.setRight(markPlace.left() - 1);
            const QVariant mark = index.data(TGridModel::MarkRole);
            if (mark.isValid()) {
                const auto state = static_cast<TPriceChangeState>(mark.toInt());
                if (MoveColor(state).isValid()) color = MoveColor(state);
                painter->setPen(MoveColor(state).isValid() ? color : QuietTextColor());
                painter->drawText(markPlace, Qt::AlignRight | Qt::AlignVCenter, MoveMark(state));
            }
        }
        painter->setPen(color);
        painter->drawText(place, static_cast<int>(cell.displayAlignment),
                          cell.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    }
};

} // namespace

TGridSkin::TGridSkin(TcxGridTableView& view, TListForm* form, QWidget* parent)
    : QTableView(parent), FModel(view, form) {
    setModel(&FModel);
    setItemDelegate(new TCellDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
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
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TGridSkin::SortBy);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) {
                TcxGridColumn* column = FModel.Column(section);
                if (!FIsFollowing && column != nullptr) column->SetWidth(width);
            });
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit RowChosen(index.row()); });
    FollowColumns();
}

void TGridSkin::Follow() {
    if (!FModel.View().TakeRepaint()) return;
    ++FPaintCount;
    const QScopedValueRollback following(FIsFollowing, true);
    FModel.FollowSize();
    FollowColumns();
    FollowRows();
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

void TGridSkin::FollowColumns() {
    const QScopedValueRollback following(FIsFollowing, true);
    for (int section = 0; section < FModel.columnCount(); ++section) {
        const TcxGridColumn& column = *FModel.Column(section);
        if (columnWidth(section) != column.GetWidth()) setColumnWidth(section, column.GetWidth());
    }
    TcxGridColumn* sorted = FModel.View().GetSortedItem(0);
    const int section = sorted == nullptr ? -1 : sorted->VisibleIndex();
    const auto order = sorted != nullptr && sorted->GetSortOrder() == soDescending
                           ? Qt::DescendingOrder
                           : Qt::AscendingOrder;
    horizontalHeader()->setSortIndicatorShown(section >= 0);
    horizontalHeader()->setSortIndicator(section, order);
}

void TGridSkin::FollowRows() {
    TcxGridTableView& view = FModel.View();
    const Integer top = view.TopRow();
    QScrollBar& bar = *verticalScrollBar();
    // Qt goes one row further at the end, for the row that would be cut off.
    const bool areAtEnd =
        bar.value() == bar.maximum() && top + view.VisibleRowCapacity() >= view.RowCount();
    if (bar.value() != top && !areAtEnd) bar.setValue(top);
    const Integer focused = view.FocusedRow();
    if (currentIndex().row() == focused) return;
    const int column = std::max(currentIndex().column(), 0);
    setCurrentIndex(focused == NoRow ? QModelIndex() : FModel.index(focused, column));
}

void TGridSkin::TellRowsOnScreen() {
    if (FIsFollowing) return;
    TcxGridTableView& view = FModel.View();
    // Qt counts the row that is cut off at the bottom as one that shows.
    const int rows = (viewport()->height() + RowHeight - 1) / RowHeight;
    view.SetVisibleRowCapacity(std::max(rows, 1));
    view.SetTopRow(std::max(verticalScrollBar()->value(), 0));
}

void TGridSkin::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    TellRowsOnScreen();
}

void TGridSkin::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dy != 0) TellRowsOnScreen();
}

void TGridSkin::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!FIsFollowing) FModel.View().SetFocusedRow(current.isValid() ? current.row() : NoRow);
}

void TGridSkin::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid()) emit RowChosen(currentIndex().row());
        return;
    }
    QTableView::keyPressEvent(event);
}

// Up, down, and as the rows came.
void TGridSkin::SortBy(int section) {
    TcxGridColumn* column = FModel.Column(section);
    if (column == nullptr) return;
    const TdxSortOrder before = column->GetSortOrder();
    FModel.View().BeginUpdate();
    FModel.View().ClearSorting();
    if (before != soDescending) {
        column->SetSortOrder(before == soNone ? soAscending : soDescending);
    }
    FModel.View().EndUpdate();
    Follow();
}

} // namespace quorin
