#include "terminal/desktop/RowDrag.h"

#include "terminal/desktop/QtText.h"

#include <QApplication>
#include <QFrame>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace quorin {

namespace {

constexpr int LineHeight = 2;

} // namespace

TRowDrag::TRowDrag(TListForm& form, TGridSkin& grid, std::function<bool()> canMove)
    : QObject(&grid), FForm(form), FGrid(grid), FCanMove(std::move(canMove)),
      FLine(new QFrame(grid.viewport())) {
    FLine->setAutoFillBackground(true);
    FLine->setBackgroundRole(QPalette::Highlight);
    FLine->setAttribute(Qt::WA_TransparentForMouseEvents);
    FLine->hide();
    grid.installEventFilter(this);
    grid.viewport()->installEventFilter(this);
}

bool TRowDrag::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: return Begin(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove: return Move(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease: return End();
    case QEvent::KeyPress:
        if (!FIsDragging || static_cast<QKeyEvent&>(*event).key() != Qt::Key_Escape) return false;
        Cancel();
        return true;
    case QEvent::FocusOut:
    case QEvent::Hide: Cancel(); return false;
    default: return false;
    }
}

// The press still goes to the grid, which takes the row as chosen.
bool TRowDrag::Begin(const QMouseEvent& event) {
    Cancel();
    const QModelIndex index = FGrid.indexAt(event.position().toPoint());
    if (event.button() != Qt::LeftButton || !index.isValid() || !FCanMove()) return false;
    FRow = ToQt(FForm.ShownKey(index.row()));
    FStart = event.position().toPoint();
    return false;
}

bool TRowDrag::Move(const QMouseEvent& event) {
    if (FRow.isEmpty() || !event.buttons().testFlag(Qt::LeftButton)) return false;
    const QPoint place = event.position().toPoint();
    if (!FIsDragging && (place - FStart).manhattanLength() < QApplication::startDragDistance()) {
        return true; // the grid would choose other rows meanwhile
    }
    FIsDragging = true;
    QScrollBar& bar = *FGrid.verticalScrollBar();
    if (place.y() < 0) bar.setValue(bar.value() - 1);
    if (place.y() >= FGrid.viewport()->height()) bar.setValue(bar.value() + 1);
    FTarget = RowBelow(place.y());
    ShowLine();
    return true;
}

// The row whose upper edge is nearest; one behind the last where that is its lower edge.
int TRowDrag::RowBelow(int y) const {
    const int height = FGrid.verticalHeader()->defaultSectionSize();
    const int top = FGrid.rowViewportPosition(0);
    return std::clamp((y - top + height / 2) / height, 0, FGrid.model()->rowCount());
}

void TRowDrag::ShowLine() {
    const int height = FGrid.verticalHeader()->defaultSectionSize();
    const int y = FGrid.rowViewportPosition(0) + FTarget * height;
    FLine->setGeometry(0, std::max(y - LineHeight / 2, 0), FGrid.viewport()->width(), LineHeight);
    FLine->show();
    FLine->raise();
}

bool TRowDrag::End() {
    const bool isDragging = FIsDragging;
    const QString row = FRow;
    const int target = FTarget;
    Cancel();
    if (!isDragging) return false;
    const bool isBehindAll = target >= FGrid.model()->rowCount();
    const QString before = isBehindAll ? QString() : ToQt(FForm.ShownKey(target));
    if (isBehindAll || !before.isEmpty()) emit Moved(row, before);
    return true;
}

void TRowDrag::Cancel() {
    FRow.clear();
    FIsDragging = false;
    FLine->hide();
}

} // namespace quorin
