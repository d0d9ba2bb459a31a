#include "platform/export/ViewExportLinks.h"

#include "platform/export/Exporters.h"
#include "platform/export/ViewTables.h"
#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Utf.h"

namespace quorin {

namespace {

std::filesystem::path Target(const String& fileName, StringView fileExt) {
    std::filesystem::path target = ToUtf8(fileName);
    if (target.has_filename() && !target.has_extension()) target += "." + ToUtf8(fileExt);
    return target;
}

// A separator of several characters is none that the format knows: its first one counts.
TCsvOptions CsvOptions(StringView separator, const TcxCsvExportOptions& options) {
    TCsvOptions csv;
    if (!separator.empty()) csv.Separator = separator.front();
    csv.ByteOrderMark = options.ByteOrderMark;
    csv.GuardFormula = options.GuardFormula;
    return csv;
}

} // namespace

// One export from its beginning to its end. One that begins inside another is not told of.
class TViewExportLinks::TRun {
public:
    TRun(TViewExportLinks& links, TExportProgressEvent handler)
        : FLinks(links), FHandler(handler), FIsTold(!handler && !links.FIsSaving),
          FSaving(links.FIsSaving, true) {}
    TRun(const TRun&) = delete;
    TRun& operator=(const TRun&) = delete;
    ~TRun() {
        if (FIsTold && FLinks.FEnded) FLinks.FEnded();
    }

    TExportProgressEvent Progress() const { return FIsTold ? FLinks.FProgress : FHandler; }

private:
    TViewExportLinks& FLinks;
    const TExportProgressEvent FHandler;
    const bool FIsTold;
    const TScopedValue<bool> FSaving;
};

void TViewExportLinks::ExportGridToCSV(const String& fileName, TcxGrid& grid, Boolean expand,
                                       Boolean saveAll, StringView separator, StringView fileExt,
                                       TExportProgressEvent handler, TcxExportEncoding,
                                       const TcxCsvExportOptions& options) {
    const TRun run(*this, handler);
    TGridExportTable table(grid, {expand, saveAll});
    WriteCsv(Target(fileName, fileExt), table, CsvOptions(separator, options), run.Progress());
}

void TViewExportLinks::ExportGridToExcel(const String& fileName, TcxGrid& grid, Boolean expand,
                                         Boolean saveAll, Boolean useNativeFormat,
                                         StringView fileExt, TExportProgressEvent handler) {
    const TRun run(*this, handler);
    TGridExportTable table(grid, {expand, saveAll, useNativeFormat});
    WriteXls(Target(fileName, fileExt), table, run.Progress());
}

void TViewExportLinks::ExportGridToXLSX(const String& fileName, TcxGrid& grid, Boolean expand,
                                        Boolean saveAll, Boolean useNativeFormat,
                                        StringView fileExt, TExportProgressEvent handler) {
    const TRun run(*this, handler);
    TGridExportTable table(grid, {expand, saveAll, useNativeFormat});
    WriteXlsx(Target(fileName, fileExt), table, run.Progress());
}

void TViewExportLinks::cxExportTLToCSV(const String& fileName, TcxVirtualTreeList& tree,
                                       Boolean expand, Boolean saveAll, StringView separator,
                                       StringView fileExt, TExportProgressEvent handler,
                                       TcxExportEncoding, const TcxCsvExportOptions& options) {
    const TRun run(*this, handler);
    TTreeExportTable table(tree, {expand, saveAll});
    WriteCsv(Target(fileName, fileExt), table, CsvOptions(separator, options), run.Progress());
}

void TViewExportLinks::cxExportTLToExcel(const String& fileName, TcxVirtualTreeList& tree,
                                         Boolean expand, Boolean saveAll, Boolean useNativeFormat,
                                         StringView fileExt, TExportProgressEvent handler) {
    const TRun run(*this, handler);
    TTreeExportTable table(tree, {expand, saveAll, useNativeFormat});
    WriteXls(Target(fileName, fileExt), table, run.Progress());
}

void TViewExportLinks::cxExportTLToXLSX(const String& fileName, TcxVirtualTreeList& tree,
                                        Boolean expand, Boolean saveAll, Boolean useNativeFormat,
                                        StringView fileExt, TExportProgressEvent handler) {
    const TRun run(*this, handler);
    TTreeExportTable table(tree, {expand, saveAll, useNativeFormat});
    WriteXlsx(Target(fileName, fileExt), table, run.Progress());
}

} // namespace quorin
