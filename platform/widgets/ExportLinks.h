#pragma once

#include "platform/rtl/TEvent.h"
#include "platform/rtl/Types.h"

#include <stdexcept>
#include <string>

namespace quorin {

class TcxGrid;
class TcxVirtualTreeList;

enum class TExportFault : Byte {
    NoExporter,  // the program was built or started without one
    TooLarge,    // more rows, columns or bytes than the format holds
    CannotWrite, // the target, with the reason that the system gives
};

// The one exception of exports. The message is UTF-8 and fit for a message box. Whenever it is
// raised, what stood at the target before still stands there.
class EExportError : public std::runtime_error {
public:
    EExportError(TExportFault fault, const std::string& message)
        : std::runtime_error(message), FFault(fault) {}
    TExportFault Fault() const { return FFault; }

private:
    TExportFault FFault;
};

// Told of a long export: rows done, rows in all. False ends the export without a file.
using TExportProgressEvent = TEvent<Boolean(Integer, Integer)>;

enum class TcxExportEncoding : Byte { Utf8 };

// What the user has set for CSV files.
struct TcxCsvExportOptions {
    Boolean ByteOrderMark = false;
    // An apostrophe before a text that a spreadsheet would take for a formula.
    Boolean GuardFormula = false;
};

// Saves a view as a file, every row as the view shows it. The host installs one; the view layer
// calls the operations below. An implementation raises EExportError alone.
class TcxExportLinks {
public:
    virtual ~TcxExportLinks() = default;

    // `expand` takes what is closed as open, `saveAll` all rows and not the focused one alone;
    // without `useNativeFormat` numbers are stored as text. The file gets the extension if its name
    // has none.
    virtual void ExportGridToCSV(const String& fileName, TcxGrid& grid, Boolean expand,
                                 Boolean saveAll, StringView separator, StringView fileExt,
                                 TExportProgressEvent handler, TcxExportEncoding encoding,
                                 const TcxCsvExportOptions& options) = 0;
    virtual void ExportGridToExcel(const String& fileName, TcxGrid& grid, Boolean expand,
                                   Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                                   TExportProgressEvent handler) = 0;
    virtual void ExportGridToXLSX(const String& fileName, TcxGrid& grid, Boolean expand,
                                  Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                                  TExportProgressEvent handler) = 0;
    virtual void cxExportTLToCSV(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                                 Boolean saveAll, StringView separator, StringView fileExt,
                                 TExportProgressEvent handler, TcxExportEncoding encoding,
                                 const TcxCsvExportOptions& options) = 0;
    virtual void cxExportTLToExcel(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                                   Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                                   TExportProgressEvent handler) = 0;
    virtual void cxExportTLToXLSX(const String& fileName, TcxVirtualTreeList& tree, Boolean expand,
                                  Boolean saveAll, Boolean useNativeFormat, StringView fileExt,
                                  TExportProgressEvent handler) = 0;

    // What the host installed. Without one: EExportError, NoExporter.
    static TcxExportLinks& Installed();
    // Not owned; nil removes it.
    static void Install(TcxExportLinks* links);
};

} // namespace quorin
