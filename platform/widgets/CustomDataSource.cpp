#include "platform/widgets/CustomDataSource.h"

namespace quorin {

TcxCustomDataSource::~TcxCustomDataSource() {
    if (FProvider != nullptr) FProvider->DataController().SetCustomDataSource(nullptr);
}

Variant TcxCustomDataSource::GetValue(TcxDataRecordHandle, TcxDataItemHandle) {
    return Variant();
}

void TcxCustomDataSource::SetValue(TcxDataRecordHandle, TcxDataItemHandle, const Variant&) {}

void TcxCustomDataSource::DeleteRecord(TcxDataRecordHandle) {}

void TcxCustomDataSource::DataChanged() {
    if (FProvider != nullptr) FProvider->DataController().DataChanged();
}

bool TcxCustomDataSource::ChangedRecords(TList<Integer>&) {
    return false;
}

} // namespace quorin
