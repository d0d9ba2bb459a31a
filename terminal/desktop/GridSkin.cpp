#include "terminal/desktop/GridSkin.h"

#include "terminal/desktop/CellPainter.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace quorin {

namespace {

constexpr Int64 CountInterval = 250; // milliseconds from one count of waiting rows to the next

} // namespace

TGridSkin::TGridSkin(TcxGridTableView& view, TListForm* form, QWidget* parent)
    : TViewSkin(std::make_unique<TGridAccess>(view), form, parent), FView(view), FForm(form),
      FWaiting(new QLabel(viewport())), FNothing(new QLabel(viewport())) {
    setItemDelegate(new TCellPainter(this));
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    FWaiting->setAutoFillBackground(true);
    FWaiting->setBackgroundRole(QPalette::ToolTipBase);
    FWaiting->setAttribute(Qt::WA_TransparentForMouseEvents);
    FWaiting->hide();
    FNothing->setAlignment(Qt::AlignCenter);
    FNothing->setWordWrap(true);
    FNothing->setForegroundRole(QPalette::PlaceholderText);
    FNothing->setAttribute(Qt::WA_TransparentForMouseEvents);
    FNothing->hide();
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit RowChosen(index.row()); });
}

void TGridSkin::Follow() {
    TViewSkin::Follow();
    FollowWaiting();
    FollowNothing();
}

void TGridSkin::FollowRows() {
    const Integer top = FView.TopRow();
    QScrollBar& bar = *verticalScrollBar();
    // Qt goes one row further at the end, for the row that would be cut off.
    const bool areAtEnd =
        bar.value() == bar.maximum() && top + FView.VisibleRowCapacity() >= FView.RowCount();
    if (bar.value() != top && !areAtEnd) bar.setValue(top);
    TViewSkin::FollowRows();
    TakeMoves();
}

// Once for a frame, of what is on screen.
void TGridSkin::TakeMoves() {
    if (FForm == nullptr) return;
    TCellFlashes& flashes = Model().Flashes();
    flashes.BeginFrame();
    const Integer end = FView.TopRow() + FView.VisibleRowCount();
    for (Integer row = FView.TopRow(); row < end; ++row) {
        const Integer record = FView.RecordIndex(row);
        const std::size_t identity = FForm->RowIdentity(row);
        for (int section = 0; section < Model().columnCount(); ++section) {
            const Integer attribute = Model().Column(section)->Tag();
            const auto move = FForm->TakeMove(row, attribute);
            if (move.has_value()) flashes.Flash(record, attribute, *move);
            const auto number =
                move.has_value() ? std::optional<Double>() : FForm->MovingNumber(row, attribute);
            if (number.has_value()) flashes.Compare(record, attribute, identity, *number);
        }
    }
}

void TGridSkin::FollowNothing() {
    FNothing->setVisible(FView.RowCount() == 0);
    if (FNothing->isHidden()) return;
    const bool isFiltered = FView.Filter().Active() && FView.Filter().Root().GetCount() > 0;
    const QString text = ToQt(InterfaceText(isFiltered ? TerminalKey::Res_NothingPasses
                                                       : TerminalKey::Res_NothingToShow));
    if (FNothing->text() != text) FNothing->setText(text);
    FNothing->resize(viewport()->size());
}

void TGridSkin::FollowWaiting() {
    if (!FView.IsOrderHeld()) {
        FWaiting->hide();
        return;
    }
    if (FSinceCounted.isValid() && FSinceCounted.elapsed() < CountInterval) return;
    FSinceCounted.start();
    const Integer waiting = FView.PendingMoves();
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

bool TGridSkin::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Enter) {
        FView.HoldOrder(true);
        FSinceCounted.invalidate();
    }
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide) FView.HoldOrder(false);
    return TViewSkin::viewportEvent(event);
}

void TGridSkin::TellRowsOnScreen() {
    if (IsFollowing()) return;
    // Qt counts the row that is cut off at the bottom as one that shows.
    const int rows = (viewport()->height() + RowHeight - 1) / RowHeight;
    FView.SetVisibleRowCapacity(std::max(rows, 1));
    FView.SetTopRow(std::max(verticalScrollBar()->value(), 0));
}

void TGridSkin::resizeEvent(QResizeEvent* event) {
    TViewSkin::resizeEvent(event);
    TellRowsOnScreen();
}

void TGridSkin::scrollContentsBy(int dx, int dy) {
    TViewSkin::scrollContentsBy(dx, dy);
    if (dy != 0) TellRowsOnScreen();
}

void TGridSkin::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid()) emit RowChosen(currentIndex().row());
        return;
    }
    TViewSkin::keyPressEvent(event);
}

} // namespace quorin
