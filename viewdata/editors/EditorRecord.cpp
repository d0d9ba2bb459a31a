#include "viewdata/editors/EditorRecord.h"

namespace quorin {

void TEditorRecord::Retire(std::unique_ptr<TEditorRecord> record) {
    if (record == nullptr) return;
    record->Unhook();
    if (record->FRuns > 0) record.release()->FIsRetired = true;
}

} // namespace quorin
