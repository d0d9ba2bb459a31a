#pragma once

#include "platform/widgets/ExportLinks.h"

namespace quorin {

// The exporters for the whole program: a host makes one and installs it. See Exporters.h for what
// the files are like.
class TViewExportLinks : public TcxExportLinks {
public:
    // Tells of exports that come without a handler of their own: how far each is, and its end,
    // however it ended. Nil for neither.
    void SetProgress(TExportProgressEvent progress, TEvent<void()> ended) {
        FProgress = progress;
        FEnded = ended;
    }
    // An export runs, and its view must hold still.
    bool IsSaving() const { return FIsSaving; }

    void ExportGridToCSV(const String& fileName, TcxGrid& grid, Boolean expand, Boolean saveAll,
                         StringView separator, StringView fileExt, TExportProgressEvent handler,
                         TcxExportEncoding encoding, const TcxCsvExportOptions& options) override;
    void ExportGridToExcel(const String& fileName, TcxGrid& grid, Boolean expand, Boolean saveAll,
                           Boolean useNativeFormat, StringView fileExt,
                           TExportProgressEvent handler) override;
    void ExportGridToXLSX(const String& fileName, TcxGrid& grid, Boolean expand, Boolean saveAll,
                          Boolean useNativeFormat, StringView fileExt,
                          TExportProgressEvent handler) override;
    void cxExportTLToCSV(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                         Boolean saveAll, StringView separator, StringView fileExt,
                         TExportProgressEvent handler, TcxExportEncoding encoding,
                         const TcxCsvExportOptions& options) override;
    void cxExportTLToExcel(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                           Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                           TExportProgressEvent handler) override;
    void cxExportTLToXLSX(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                          Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                          TExportProgressEvent handler) override;

private:
    class TRun;

    TExportProgressEvent FProgress;
    TEvent<void()> FEnded;
    bool FIsSaving = false;
};

} // namespace quorin
