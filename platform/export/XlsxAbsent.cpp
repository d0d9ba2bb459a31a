#include "platform/export/Exporters.h"

namespace quorin {

bool WriteXlsx(const std::filesystem::path&, TExportTable&, TExportProgressEvent) {
    throw EExportError(TExportFault::NoExporter, "This program was built without XLSX workbooks.");
}

} // namespace quorin
