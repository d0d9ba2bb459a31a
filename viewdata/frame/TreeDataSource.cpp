#include "viewdata/frame/TreeDataSource.h"

namespace quorin {

TCustomTreeDataSource::TCustomTreeDataSource(const TColumnList* ColumnList,
                                             const TComponentClass& DataControl) {
    MakeControl(DataControl);
    SetColumnList(ColumnList);
    FollowConfig();
}

void TCustomTreeDataSource::SetColumnList(const TColumnList* ColumnList) {
    if (FMyDataControl != nullptr) FMyDataControl->SetColumnList(ColumnList);
    if (GetProvider() != nullptr) DataChanged();
}

Integer TCustomTreeDataSource::GetRecordCount() {
    return FMyDataControl != nullptr ? FMyDataControl->GetCount() : 0;
}

Variant TCustomTreeDataSource::GetValue(TcxDataRecordHandle RecordHandle,
                                        TcxDataItemHandle ItemHandle) {
    if (FMyDataControl == nullptr || GetDataController() == nullptr) return Variant::EmptyText();
    const TComponent* column = GetDataController()->GetItem(ItemHandle);
    if (column == nullptr) return Variant::EmptyText();
    return FMyDataControl->GetValue(RecordHandle, column->Tag());
}

TcxDataRecordHandle TCustomTreeDataSource::GetRecordHandle(Integer Index) {
    return FMyDataControl != nullptr ? FMyDataControl->GetNode(Index) : nullptr;
}

TcxDataRecordHandle TCustomTreeDataSource::GetRootRecordHandle() {
    return FMyDataControl != nullptr ? FMyDataControl->GetRootNode() : nullptr;
}

TcxDataRecordHandle TCustomTreeDataSource::GetParentRecordHandle(TcxDataRecordHandle Handle) {
    return FMyDataControl != nullptr ? FMyDataControl->GetParentNode(Handle) : nullptr;
}

Integer TCustomTreeDataSource::GetChildCount(TcxDataRecordHandle Handle) {
    return FMyDataControl != nullptr ? FMyDataControl->GetChildNodeCount(Handle) : 0;
}

TcxDataRecordHandle TCustomTreeDataSource::GetChildRecordHandle(TcxDataRecordHandle Handle,
                                                                Integer Index) {
    return FMyDataControl != nullptr ? FMyDataControl->GetChildNode(Handle, Index) : nullptr;
}

Int64 TCustomTreeDataSource::GetShapeVersion() {
    return FMyDataControl != nullptr ? FMyDataControl->ShapeVersion() : 0;
}

String TCustomTreeDataSource::GetRecordIdentity(TcxDataRecordHandle Handle) {
    return FMyDataControl != nullptr ? FMyDataControl->NodeIdentity(Handle) : String();
}

} // namespace quorin
