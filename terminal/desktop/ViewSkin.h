#pragma once

#include "terminal/desktop/ViewModel.h"

#include <QTableView>

namespace quorin {

// A headless grid or tree list on the screen: what both have alike. The focused row, widths and
// sorting by a click on a caption go to the headless list; what it says is drawn. Draws only in
// Follow, so that any number of changes costs one paint of the visible cells.
class TViewSkin : public QTableView {
    Q_OBJECT

public:
    TViewModel& Model() { return FModel; }
    // To be called once per frame: repaints when the headless list asks for it.
    virtual void Follow();
    // How many repaints Follow has asked for.
    Int64 PaintCount() const { return FPaintCount; }

    // How long ago the feed's latest delivery was, and its time of day: cells of a feed that has
    // stopped go grey, and say since when on hover.
    void SetFeedAge(Double seconds, const QString& since);

protected:
    static constexpr int RowHeight = 22; // pixels

    // See TViewModel.
    TViewSkin(std::unique_ptr<TViewAccess> view, TShownForm* form, QWidget* parent);

    // What Qt tells now comes from the headless list itself.
    bool IsFollowing() const { return FIsFollowing; }
    // A repaint is due: Qt takes over where the rows stand.
    virtual void FollowRows();
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void FollowColumns();
    void SortBy(int section);

    TViewModel FModel;
    Int64 FPaintCount = 0;
    bool FIsFollowing = false;
};

} // namespace quorin
