#include "terminal/desktop/GridSkin.h"

#include "terminal/desktop/CellPainter.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace quorin {

namespace {

constexpr int RowHeight = 22;
constexpr int SmallestColumn = 24;
constexpr Double OldAfter = 10.0;    // seconds without a delivery
constexpr Int64 CountInterval = 250; // milliseconds from one count of waiting rows to the next

} // namespace

TGridSkin::TGridSkin(TcxGridTableView& view, TListForm* form, QWidget* parent)
    : QTableView(parent), FModel(view, form), FForm(form), FWaiting(new QLabel(viewport())) {
    setModel(&FModel);
    setItemDelegate(new TCellPainter(this));
    FWaiting->setAutoFillBackground(true);
    FWaiting->setBackgroundRole(QPalette::ToolTipBase);
    FWaiting->setAttribute(Qt::WA_TransparentForMouseEvents);
    FWaiting->hide();
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
    const bool isChanged = FModel.View().TakeRepaint();
    const bool hasFaded = FModel.Flashes().Fade();
    FollowWaiting();
    if (!isChanged) {
        if (hasFaded) viewport()->update();
        return;
    }
    ++FPaintCount;
    const QScopedValueRollback following(FIsFollowing, true);
    FModel.FollowSize();
    FollowColumns();
    FollowRows();
    TakeMoves();
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

// Once for a frame, of what is on screen.
void TGridSkin::TakeMoves() {
    if (FForm == nullptr) return;
    TcxGridTableView& view = FModel.View();
    const Integer end = view.TopRow() + view.VisibleRowCount();
    for (Integer row = view.TopRow(); row < end; ++row) {
        const Integer record = view.RecordIndex(row);
        for (int section = 0; section < FModel.columnCount(); ++section) {
            const Integer attribute = FModel.Column(section)->GetTag();
            const auto move = FForm->TakeMove(row, attribute);
            if (move.has_value()) FModel.Flashes().Flash(record, attribute, *move);
        }
    }
}

void TGridSkin::FollowWaiting() {
    TcxGridTableView& view = FModel.View();
    if (!view.IsOrderHeld()) {
        FWaiting->hide();
        return;
    }
    if (FSinceCounted.isValid() && FSinceCounted.elapsed() < CountInterval) return;
    FSinceCounted.start();
    const Integer waiting = view.PendingMoves();
    FWaiting->setVisible(waiting > 0);
    if (waiting == 0) return;
    const QString text = ToQt(
        FormatText(InterfaceText(TerminalKey::Res_RowsWait), {FromQt(QString::number(waiting))}));
    if (FWaiting->text() != text) FWaiting->setText(text);
    FWaiting->setAccessibleName(text);
    FWaiting->adjustSize();
    FWaiting->move(viewport()->width() - FWaiting->width(),
                   viewport()->height() - FWaiting->height());
}

void TGridSkin::SetFeedAge(Double seconds, const QString& since) {
    const QString old =
        seconds < OldAfter
            ? QString()
            : ToQt(FormatText(InterfaceText(TerminalKey::Res_NoDeliverySince), {FromQt(since)}));
    if (FModel.OldSince() == old) return;
    FModel.SetOldSince(old);
    viewport()->update();
}

bool TGridSkin::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Enter) {
        FModel.View().HoldOrder(true);
        FSinceCounted.invalidate();
    }
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide) {
        FModel.View().HoldOrder(false);
    }
    return QTableView::viewportEvent(event);
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
