#pragma once

#include "terminal/desktop/GridSkin.h"

#include <functional>

class QFrame;

namespace quorin {

// Rows of a grid that the person moves by drag: a line shows where the row would go, Escape leaves
// it where it is. What is moved, and where to, are rows as they were seen, by their keys.
class TRowDrag : public QObject {
    Q_OBJECT

public:
    // Both must live longer. `canMove` says whether rows can be moved at all now.
    TRowDrag(TListForm& form, TGridSkin& grid, std::function<bool()> canMove);

    bool IsDragging() const { return FIsDragging; }

signals:
    // The row was let go before that other one; behind all where that is empty.
    void Moved(const QString& row, const QString& before);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool Begin(const QMouseEvent& event);
    bool Move(const QMouseEvent& event);
    bool End();
    void Cancel();
    void ShowLine();
    int RowBelow(int y) const;

    TListForm& FForm;
    TGridSkin& FGrid;
    std::function<bool()> FCanMove;
    QFrame* FLine; // the viewport's
    QString FRow;  // its key; empty while no button is down on one
    QPoint FStart;
    int FTarget = 0; // the row that it would go before
    bool FIsDragging = false;
};

} // namespace quorin
