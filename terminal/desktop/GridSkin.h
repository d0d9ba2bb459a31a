#pragma once

#include "terminal/desktop/ViewSkin.h"
#include "terminal/forms/ListForm.h"

#include <QElapsedTimer>

class QLabel;

namespace quorin {

// A headless grid on the screen, which says so where it has no rows. They flash as they move and
// stand still under the pointer;
// where it is scrolled to goes to the headless grid, which knows the rows on screen by it.
class TGridSkin : public TViewSkin {
    Q_OBJECT

public:
    // `form` knows more of the cells; nil where all are plain text. Both must live longer.
    explicit TGridSkin(TcxGridTableView& view, TListForm* form = nullptr,
                       QWidget* parent = nullptr);

    void Follow() override;

signals:
    // The person has chosen a row: a double click, or Return.
    void RowChosen(int row);

protected:
    void FollowRows() override;
    // Rows stand still while the pointer is over them.
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TellRowsOnScreen();
    void TakeMoves();
    void FollowWaiting();
    void FollowNothing();

    TcxGridTableView& FView;
    TListForm* FForm;
    QLabel* FWaiting;
    QLabel* FNothing; // in place of rows
    QElapsedTimer FSinceCounted;
};

} // namespace quorin
