#include "viewdata/presentation/ViewExports.h"

#include "platform/rtl/Paths.h"
#include "platform/widgets/ExportLinks.h"
#include "platform/widgets/SaveDialog.h"
#include "viewdata/frame/Settings.h"
#include "viewdata/services/ConfigKeys.h"

namespace quorin {

namespace {

struct TFileKind {
    StringView Extension;
    StringView Filter; // the same in every language
};

constexpr TFileKind Csv = {u"csv", u"Comma-Separated Values(*.csv)|*.csv"};
constexpr TFileKind Xls = {u"xls", u"Excel 97-2003 Workbook(*.xls)|*.xls"};
constexpr TFileKind Xlsx = {u"xlsx", u"Excel Workbook(*.xlsx)|*.xlsx"};

constexpr TOpenOptions SaveOptions = OptionBit(ofOverwritePrompt) | OptionBit(ofHideReadOnly) |
                                     OptionBit(ofNoChangeDir) | OptionBit(ofEnableSizing);
constexpr StringView Separator = u",";
constexpr Boolean Expand = true;
constexpr Boolean SaveAll = true;
constexpr Boolean UseNativeFormat = true;

// Calls save with the name of the file that the user chose, if he did.
template <class Save>
void AskAndSave(const TFileKind& kind, StringView defaultFileName, StringView defaultDir,
                Save save) {
    TSaveDialog dialog(SaveOptions);
    dialog.InitialDir = defaultDir.empty() ? GetDocumentsPath() : String(defaultDir);
    dialog.DefaultExt = kind.Extension;
    dialog.FileName = defaultFileName;
    dialog.Filter = kind.Filter;
    if (dialog.Execute()) save(dialog.FileName);
}

template <class View>
using TSaveWorkbook = void (TcxExportLinks::*)(const String&, View&, Boolean, Boolean, Boolean,
                                               StringView, TExportProgressEvent);

template <class View>
void SaveWorkbook(const TFileKind& kind, TSaveWorkbook<View> save, View& view,
                  StringView defaultFileName, StringView defaultDir) {
    AskAndSave(kind, defaultFileName, defaultDir, [&](const String& fileName) {
        (TcxExportLinks::Installed().*save)(fileName, view, Expand, SaveAll, UseNativeFormat,
                                            kind.Extension, nullptr);
    });
}

TcxCsvExportOptions CsvOptions() {
    TcxCsvExportOptions options;
    options.ByteOrderMark = ReadFlag(ConfigKey::CsvByteOrderMark);
    options.GuardFormula = ReadFlag(ConfigKey::CsvGuardFormula);
    return options;
}

// While it lives the tree has no buttons that open and close nodes; afterwards they are as by
// default, whatever they were before.
class TPlainBand {
public:
    explicit TPlainBand(TcxVirtualTreeList& tree) : FBand(tree.FirstBand()) {
        FBand.Expandable = TcxTreeListBandExpandable::tlbeNotExpandable;
    }
    TPlainBand(const TPlainBand&) = delete;
    TPlainBand& operator=(const TPlainBand&) = delete;
    ~TPlainBand() { FBand.Expandable = TcxTreeListBandExpandable::tlbeDefault; }

private:
    TcxTreeListBand& FBand;
};

} // namespace

void ExportToCSV(TcxGrid& grid, StringView defaultFileName, StringView defaultDir) {
    AskAndSave(Csv, defaultFileName, defaultDir, [&](const String& fileName) {
        TcxExportLinks::Installed().ExportGridToCSV(fileName, grid, Expand, SaveAll, Separator,
                                                    Csv.Extension, nullptr, TcxExportEncoding::Utf8,
                                                    CsvOptions());
    });
}

void ExportToXLS(TcxGrid& grid, StringView defaultFileName, StringView defaultDir) {
    SaveWorkbook<TcxGrid>(Xls, &TcxExportLinks::ExportGridToExcel, grid, defaultFileName,
                          defaultDir);
}

void ExportToXLSX(TcxGrid& grid, StringView defaultFileName, StringView defaultDir) {
    SaveWorkbook<TcxGrid>(Xlsx, &TcxExportLinks::ExportGridToXLSX, grid, defaultFileName,
                          defaultDir);
}

void ExportToCSV(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir) {
    AskAndSave(Csv, defaultFileName, defaultDir, [&](const String& fileName) {
        const TPlainBand band(tree);
        TcxExportLinks::Installed().cxExportTLToCSV(fileName, tree, Expand, SaveAll, Separator,
                                                    Csv.Extension, nullptr, TcxExportEncoding::Utf8,
                                                    CsvOptions());
    });
}

void ExportToXLS(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir) {
    SaveWorkbook<TcxVirtualTreeList>(Xls, &TcxExportLinks::cxExportTLToExcel, tree, defaultFileName,
                                     defaultDir);
}

void ExportToXLSX(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir) {
    SaveWorkbook<TcxVirtualTreeList>(Xlsx, &TcxExportLinks::cxExportTLToXLSX, tree, defaultFileName,
                                     defaultDir);
}

} // namespace quorin
