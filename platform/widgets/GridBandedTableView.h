#pragma once

#include "platform/widgets/GridTableView.h"

namespace quorin {

class TcxGridBandedColumn;

// Where a column stands in a banded grid: in which band, and as which column of it.
class TcxGridBandedColumnPosition {
public:
    explicit TcxGridBandedColumnPosition(TcxGridBandedColumn& column) : FColumn(&column) {}

    Integer GetBandIndex() const { return FBandIndex; }
    // The column stands last in its new band. Never below 0.
    void SetBandIndex(Integer index);
    // Place among the columns of the band, hidden ones too.
    Integer GetColIndex() const;
    // Moves the column within its band; an index outside is taken as the nearest end.
    void SetColIndex(Integer index);

private:
    TcxGridBandedColumn* FColumn;
    Integer FBandIndex = 0;
};

class TcxGridBandedColumn : public TcxGridColumn {
    QUORIN_CLASS(TcxGridBandedColumn, TcxGridColumn)

    using TcxGridColumn::TcxGridColumn;
    TcxGridBandedColumnPosition& Position() { return FPosition; }
    const TcxGridBandedColumnPosition& Position() const { return FPosition; }
    // By bands, and within one by its columns.
    Integer VisibleIndex() const override;

private:
    friend class TcxGridBandedColumnPosition;
    // The columns of a band in their order.
    TList<TcxViewColumn*> Band(Integer index) const;

    TcxGridBandedColumnPosition FPosition{*this};
};

// A grid whose columns stand in bands, side by side under a common head.
class TcxGridBandedTableView : public TcxGridTableView {
    QUORIN_CLASS(TcxGridBandedTableView, TcxGridTableView)

    using TcxGridTableView::TcxGridTableView;
    // In band 0.
    TcxGridBandedColumn& AddColumn(Integer tag, StringView caption = {}) override;
};

} // namespace quorin
