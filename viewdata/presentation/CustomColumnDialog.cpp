#include "viewdata/presentation/CustomColumnDialog.h"

#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/GlobalChannelManager.h"

#include <algorithm>

namespace quorin {

namespace {

Boolean Names(const std::vector<String>& captions, const String& caption) {
    return std::find(captions.begin(), captions.end(), caption) != captions.end();
}

} // namespace

template <class Twin>
void TCustomColumnDialog<Twin>::SetView(TView* view) {
    if (FView != nullptr) FView->RemoveFreeListener(this);
    FView = view;
    if (FView != nullptr) {
        FView->AddFreeListener(MakeEvent<&TCustomColumnDialog::ViewFreed>(this), this);
    }
}

template <class Twin>
void TCustomColumnDialog<Twin>::ViewFreed(TObject*) {
    FView = nullptr;
}

template <class Twin>
void TCustomColumnDialog<Twin>::ExecuteCustomColumn(TView& View,
                                                    std::span<const Integer> ReservedCol,
                                                    const TDataCallbackEvent& Callback) {
    SetView(&View);
    FReservedCol.assign(ReservedCol.begin(), ReservedCol.end());
    ShowCustomColumnView(Callback);
}

template <class Twin>
void TCustomColumnDialog<Twin>::ShowCustomColumnView(const TDataCallbackEvent& Callback) {
    if (FView == nullptr) return;
    TCustomColumnRecord record;
    for (const TColumn* column : ColumnSequence<Twin>(*FView)) {
        const String& caption = column->Caption();
        record.AllColumns.push_back(caption);
        if (column->GetVisible()) record.VisibleColumns.push_back(caption);
        if (IsReserved(column->Tag())) record.ReservedColumns.push_back(caption);
    }
    record.ReservedColumns.resize(FReservedCol.size());
    record.Callback =
        Callback ? Callback : MakeEvent<&TCustomColumnDialog::HandleCustomColumn>(this);
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(ChannelMessage::CustomColumn,
                                                                   Pointer(&record));
}

template <class Twin>
void TCustomColumnDialog<Twin>::HandleCustomColumn(Pointer, Pointer Data) {
    if (FView == nullptr || Data == nullptr) return;
    // A copy: who made the record may let it go while columns move.
    const TCustomColumnRecord choice = *static_cast<const TCustomColumnRecord*>(Data);
    const auto columns = static_cast<std::size_t>(FView->GetColumnCount());
    if (choice.AllColumns.size() > columns || choice.VisibleColumns.size() > columns) return;
    if (choice.VisibleColumns.size() > choice.AllColumns.size()) return;
    TView& view = *FView;
    const TViewUpdate update(view);
    typename Twin::TPlacer placer(view);
    Integer index = 0;
    for (const String& caption : choice.AllColumns) {
        if (TColumn* column = ColumnByCaption(caption)) {
            placer.Place(*column, index);
            column->SetVisible(Names(choice.VisibleColumns, caption));
        }
        ++index;
    }
}

template <class Twin>
typename TCustomColumnDialog<Twin>::TColumn*
TCustomColumnDialog<Twin>::ColumnByCaption(const String& caption) const {
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        TColumn* column = FView->GetColumn(index);
        if (column != nullptr && column->Caption() == caption) return column;
    }
    return nullptr;
}

template <class Twin>
Boolean TCustomColumnDialog<Twin>::IsReserved(Integer tag) const {
    return std::find(FReservedCol.begin(), FReservedCol.end(), tag) != FReservedCol.end();
}

template class TCustomColumnDialog<TGridTwin>;
template class TCustomColumnDialog<TTreeTwin>;

} // namespace quorin
