#include "viewdata/frame/GridDataSource.h"

namespace quorin {

TCustomGridDataSource::TCustomGridDataSource(const TComponentClass& DataControl) {
    MakeControl(DataControl);
    FollowConfig();
}

TCustomGridDataSource::TCustomGridDataSource(std::unique_ptr<TBaseDataControl> DataControl) {
    TakeControl(std::move(DataControl));
    FollowConfig();
}

Integer TCustomGridDataSource::GetRecordCount() {
    return FMyDataControl != nullptr ? FMyDataControl->GetCount() : 0;
}

Variant TCustomGridDataSource::GetValue(TcxDataRecordHandle RecordHandle,
                                        TcxDataItemHandle ItemHandle) {
    if (FMyDataControl == nullptr || GetDataController() == nullptr) return Variant::EmptyText();
    const TComponent* item = GetDataController()->GetItem(ItemHandle);
    if (item == nullptr || item->Tag() < 0) return Variant::EmptyText();
    const auto recordIndex = static_cast<Integer>(reinterpret_cast<std::uintptr_t>(RecordHandle));
    return FMyDataControl->GetValue(recordIndex, item->Tag());
}

TcxDataRecordHandle TCustomGridDataSource::AppendRecord() {
    return nullptr;
}

TcxDataRecordHandle TCustomGridDataSource::InsertRecord(TcxDataRecordHandle) {
    return nullptr;
}

} // namespace quorin
