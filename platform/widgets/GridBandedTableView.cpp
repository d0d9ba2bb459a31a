#include "platform/widgets/GridBandedTableView.h"

#include <algorithm>
#include <limits>

namespace quorin {

// The order of all columns holds that of each band.
TList<TcxViewColumn*> TcxGridBandedColumn::Band(Integer index) const {
    TList<TcxViewColumn*> band;
    if (Columns() == nullptr) return band;
    for (Integer place = 0; place < Columns()->Count(); ++place) {
        auto* column = ObjectAs<TcxGridBandedColumn>(Columns()->Get(place));
        if (column != nullptr && column->FPosition.GetBandIndex() == index) band.Add(column);
    }
    return band;
}

Integer TcxGridBandedColumn::VisibleIndex() const {
    if (!GetVisible() || Columns() == nullptr) return -1;
    Integer place = 0;
    bool isPassed = false; // this column, among those of its own band
    for (Integer index = 0; index < Columns()->Count(); ++index) {
        const auto* other = ObjectAs<TcxGridBandedColumn>(Columns()->Get(index));
        if (other == this) isPassed = true;
        if (other == nullptr || !other->GetVisible()) continue;
        const Integer band = other->FPosition.GetBandIndex();
        const Integer own = FPosition.GetBandIndex();
        if (band < own || (band == own && !isPassed)) ++place;
    }
    return place;
}

void TcxGridBandedColumnPosition::SetBandIndex(Integer index) {
    const Integer band = std::max<Integer>(index, 0);
    if (band == FBandIndex) return;
    FBandIndex = band;
    FColumn->SetIndex(std::numeric_limits<Integer>::max());
}

Integer TcxGridBandedColumnPosition::GetColIndex() const {
    return FColumn->Band(FBandIndex).IndexOf(static_cast<TcxViewColumn*>(FColumn));
}

void TcxGridBandedColumnPosition::SetColIndex(Integer index) {
    const TList<TcxViewColumn*> band = FColumn->Band(FBandIndex);
    if (band.IsEmpty()) return;
    FColumn->SetIndex(band[std::clamp<Integer>(index, 0, band.Count() - 1)]->Index());
}

TcxGridBandedColumn& TcxGridBandedTableView::AddColumn(Integer tag, StringView caption) {
    auto& column = CreateComponent<TcxGridBandedColumn>(*this, Columns(), Filter());
    column.SetTag(tag);
    column.SetCaption(caption);
    return column;
}

} // namespace quorin
