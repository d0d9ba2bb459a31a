#include "platform/widgets/ExportLinks.h"

namespace quorin {

namespace {

TcxExportLinks* installedLinks = nullptr;

} // namespace

TcxExportLinks& TcxExportLinks::Installed() {
    if (installedLinks == nullptr) {
        throw EExportError(TExportFault::NoExporter, "No exporter is installed in this program.");
    }
    return *installedLinks;
}

void TcxExportLinks::Install(TcxExportLinks* links) {
    installedLinks = links;
}

} // namespace quorin
