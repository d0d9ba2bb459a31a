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

void TcxCustomDataSource::RecordsChanged(std::span<const Integer> records) {
    if (TcxCustomDataController* controller = GetDataController()) {
        controller->RecordsChanged(records);
    }
}

} // namespace quorin
