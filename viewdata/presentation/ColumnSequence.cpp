#include "viewdata/presentation/ColumnSequence.h"

namespace quorin {

Integer TGridColumnLayoutSeqIndex::Compare(const TcxGridColumn* Left,
                                           const TcxGridColumn* Right) const {
    if (Left->GetVisible() && Right->GetVisible()) {
        return Left->VisibleIndex() - Right->VisibleIndex();
    }
    const auto* left = ObjectAs<TcxGridBandedColumn>(Left);
    const auto* right = ObjectAs<TcxGridBandedColumn>(Right);
    if (left != nullptr && right != nullptr) {
        return left->Position().GetColIndex() - right->Position().GetColIndex();
    }
    return Left->Index() - Right->Index();
}

Integer TTreeColumnLayoutSeqIndex::Compare(const TcxTreeListColumn* Left,
                                           const TcxTreeListColumn* Right) const {
    if (Left->GetVisible() && Right->GetVisible()) {
        return Left->GetVisibleIndex() - Right->GetVisibleIndex();
    }
    return Left->Position().GetColIndex() - Right->Position().GetColIndex();
}

void TGridTwin::TPlacer::Place(TcxGridColumn& column, Integer index) {
    auto* banded = FIsBanded ? ObjectAs<TcxGridBandedColumn>(&column) : nullptr;
    if (banded == nullptr) {
        column.SetIndex(index);
        return;
    }
    const Integer band = banded->Position().GetBandIndex();
    const Integer* last = FLastPlaces.Find(band);
    banded->Position().SetColIndex(last != nullptr ? *last + 1 : 0);
    FLastPlaces.AddOrSetValue(band, banded->Position().GetColIndex());
}

} // namespace quorin
