#pragma once

#include "terminal/desktop/GridModel.h"

#include <QElapsedTimer>
#include <QTableView>

class QLabel;

namespace quorin {

// A headless grid on the screen. Scrolling, the focused row, widths and sorting by a click on a
// caption go to the headless grid; what it says is drawn. Draws only in Follow, so that any number
// of changes costs one paint of the visible cells.
class TGridSkin : public QTableView {
    Q_OBJECT

public:
    // See TGridModel.
    explicit TGridSkin(TcxGridTableView& view, TListForm* form = nullptr,
                       QWidget* parent = nullptr);

    TGridModel& Model() { return FModel; }
    // To be called once per frame: repaints when the headless grid asks for it.
    void Follow();
    // How many repaints Follow has asked for.
    Int64 PaintCount() const { return FPaintCount; }

    // How long ago the feed's latest delivery was, and its time of day: cells of a feed that has
    // stopped go grey, and say since when on hover.
    void SetFeedAge(Double seconds, const QString& since);

signals:
    // The person has chosen a row: a double click, or Return.
    void RowChosen(int row);

protected:
    // Rows stand still while the pointer is over them.
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FollowColumns();
    void FollowRows();
    void TellRowsOnScreen();
    void SortBy(int section);

    void TakeMoves();
    void FollowWaiting();

    TGridModel FModel;
    TListForm* FForm;
    QLabel* FWaiting;
    QElapsedTimer FSinceCounted;
    Int64 FPaintCount = 0;
    bool FIsFollowing = false; // what Qt tells now comes from the headless grid itself
};

} // namespace quorin
