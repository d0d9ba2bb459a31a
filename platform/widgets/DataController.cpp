#include "platform/widgets/DataController.h"

#include "platform/widgets/CustomDataSource.h"

#include <algorithm>
#include <utility>

namespace quorin {

TcxCustomDataController::~TcxCustomDataController() {
    if (FSource != nullptr) FSource->FProvider = nullptr;
}

void TcxCustomDataController::SetCustomDataSource(TcxCustomDataSource* source) {
    if (source == FSource) return;
    if (FSource != nullptr) FSource->FProvider = nullptr;
    FSource = nullptr;
    if (source != nullptr) {
        if (source->FProvider != nullptr) {
            source->FProvider->DataController().SetCustomDataSource(nullptr);
        }
        FSource = source;
        FSource->FProvider = &FProvider;
    }
    Forget();
}

void TcxCustomDataController::AddItem(TComponent* item) {
    FItems.Add(item);
    FNeedsRepaint = true;
}

void TcxCustomDataController::RemoveItem(TComponent* item) {
    const Integer index = FItems.IndexOf(item);
    if (index < 0) return;
    FItems.Delete(index);
    FNeedsRepaint = true;
}

void TcxCustomDataController::DataChanged() {
    ++FCounters.Changes;
    if (!KeepsChangedRecords()) {
        Forget();
        return;
    }
    FIsStale = true;
    FNeedsRepaint = true;
}

// More names than records: a view that nobody looks at does better with all of them at once.
bool TcxCustomDataController::KeepsChangedRecords() {
    if (!FFollowsRecords || FSource == nullptr) return false;
    return FSource->ChangedRecords(FChangedRecords) && FChangedRecords.Count() <= FRecordCount;
}

void TcxCustomDataController::UnfollowRecords() {
    FFollowsRecords = false;
    FChangedRecords.Clear();
}

void TcxCustomDataController::TakeChangedRecords(TList<Integer>& records) {
    records.Clear();
    std::swap(records, FChangedRecords);
}

void TcxCustomDataController::Refresh() {
    ++FCounters.Refreshes;
    FNeedsRepaint = true;
}

void TcxCustomDataController::EndUpdate() {
    FUpdates = std::max(FUpdates - 1, 0);
}

void TcxCustomDataController::Forget() {
    UnfollowRecords();
    FIsStale = true;
    FNeedsRepaint = true;
    if (FOnForget) FOnForget(this);
}

Integer TcxCustomDataController::CountRecords() {
    if (FSource == nullptr) return 0;
    FIsStale = false; // before the call, which may tell of the next change
    ++FCounters.Counts;
    const Integer count = FSource->GetRecordCount();
    FRecordCount = std::max<Integer>(count, 0);
    return FRecordCount;
}

Variant TcxCustomDataController::Value(TcxDataRecordHandle record, Integer item) {
    if (FSource == nullptr) return Variant();
    ++FCounters.Values;
    return FSource->GetValue(record, FSource->GetItemHandle(item));
}

Variant TcxCustomDataController::ValueAt(Integer record, Integer item) {
    if (FSource == nullptr) return Variant();
    ++FCounters.Values;
    return FSource->GetValue(FSource->GetRecordHandle(record), FSource->GetItemHandle(item));
}

bool TcxCustomDataController::TakeRepaint() {
    return FUpdates == 0 && std::exchange(FNeedsRepaint, false);
}

} // namespace quorin
