#include "platform/rtl/Paths.h"
#include "platform/rtl/Utf.h"
#include "platform/widgets/ExportLinks.h"
#include "platform/widgets/SaveDialog.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/editors/EditorManager.h"

#include <filesystem>

namespace quorin {
namespace {

namespace fs = std::filesystem;

// Writes nothing, notes what it was asked for as one text.
struct TNotingLinks : TcxExportLinks {
    void Note(const char16_t* name, const String& fileName, StringView fileExt,
              std::initializer_list<Boolean> flags, TExportProgressEvent handler) {
        Asked = String(name) + u" " + fileName + u" " + String(fileExt);
        for (const Boolean flag : flags) Asked += flag ? u" 1" : u" 0";
        if (handler) Asked += u" handler";
        BandThen = Tree->FirstBand().Expandable;
        if (Fails) throw EExportError(TExportFault::CannotWrite, "no room");
    }
    void NoteCsv(StringView separator, TcxExportEncoding encoding,
                 const TcxCsvExportOptions& options) {
        Csv = String(separator) + (encoding == TcxExportEncoding::Utf8 ? u" utf8" : u" ?") +
              (options.ByteOrderMark ? u" mark" : u"") + (options.GuardFormula ? u" guard" : u"");
    }
    void ExportGridToCSV(const String& name, TcxGrid&, Boolean expand, Boolean all,
                         StringView separator, StringView ext, TExportProgressEvent handler,
                         TcxExportEncoding encoding, const TcxCsvExportOptions& options) override {
        NoteCsv(separator, encoding, options);
        Note(u"grid csv", name, ext, {expand, all}, handler);
    }
    void ExportGridToExcel(const String& name, TcxGrid&, Boolean expand, Boolean all,
                           Boolean native, StringView ext, TExportProgressEvent handler) override {
        Note(u"grid xls", name, ext, {expand, all, native}, handler);
    }
    void ExportGridToXLSX(const String& name, TcxGrid&, Boolean expand, Boolean all, Boolean native,
                          StringView ext, TExportProgressEvent handler) override {
        Note(u"grid xlsx", name, ext, {expand, all, native}, handler);
    }
    void cxExportTLToCSV(const String& name, TcxVirtualTreeList&, Boolean expand, Boolean all,
                         StringView separator, StringView ext, TExportProgressEvent handler,
                         TcxExportEncoding encoding, const TcxCsvExportOptions& options) override {
        NoteCsv(separator, encoding, options);
        Note(u"tree csv", name, ext, {expand, all}, handler);
    }
    void cxExportTLToExcel(const String& name, TcxVirtualTreeList&, Boolean expand, Boolean all,
                           Boolean native, StringView ext, TExportProgressEvent handler) override {
        Note(u"tree xls", name, ext, {expand, all, native}, handler);
    }
    void cxExportTLToXLSX(const String& name, TcxVirtualTreeList&, Boolean expand, Boolean all,
                          Boolean native, StringView ext, TExportProgressEvent handler) override {
        Note(u"tree xlsx", name, ext, {expand, all, native}, handler);
    }

    TcxVirtualTreeList* Tree = nullptr;
    String Asked;
    String Csv;
    TcxTreeListBandExpandable BandThen = TcxTreeListBandExpandable::tlbeDefault;
    bool Fails = false;
};

struct ViewExports : TServicesFixture, TSaveDialogHost {
    ViewExports() {
        TSaveDialogHost::Install(this);
        TcxExportLinks::Install(&Links);
        Links.Tree = Tree.get();
    }
    ~ViewExports() override {
        TSaveDialogHost::Install(nullptr);
        TcxExportLinks::Install(nullptr);
        TEditorManager::ReleaseInstance();
    }
    Boolean ChooseFile(TSaveDialog& dialog) override {
        Seen = dialog.FileName + u" in " + dialog.InitialDir;
        SeenKind = dialog.DefaultExt + u" " + dialog.Filter;
        Options = dialog.Options;
        if (!GoesTo.empty()) fs::current_path(GoesTo);
        dialog.FileName = Answer;
        return !Cancels;
    }

    TNotingLinks Links;
    std::unique_ptr<TcxVirtualTreeList> Tree = CreateComponent<TcxVirtualTreeList>();
    std::unique_ptr<TcxGrid> Grid = CreateComponent<TcxGrid>();
    TEditorManager* Manager = TEditorManager::GetInstance();
    String Seen;
    String SeenKind;
    TOpenOptions Options = 0;
    String Answer = u"/d/chosen";
    fs::path GoesTo;
    bool Cancels = false;
};

using TGridExport = void (TEditorManager::*)(TcxGrid&, StringView, StringView);
using TTreeExport = void (TEditorManager::*)(TcxVirtualTreeList&, StringView, StringView);
struct TOperation {
    const char16_t* Kind; // extension and filter
    const char16_t* Flags;
    TGridExport OnGrid;
    TTreeExport OnTree;
};
constexpr TOperation Operations[] = {
    {u"csv Comma-Separated Values(*.csv)|*.csv", u"1 1", &TEditorManager::ExportGridToCSV,
     &TEditorManager::ExportTreeToCSV},
    {u"xls Excel 97-2003 Workbook(*.xls)|*.xls", u"1 1 1", &TEditorManager::ExportGridToXLS,
     &TEditorManager::ExportTreeToXLS},
    {u"xlsx Excel Workbook(*.xlsx)|*.xlsx", u"1 1 1", &TEditorManager::ExportGridToXLSX,
     &TEditorManager::ExportTreeToXLSX},
};
constexpr TOpenOptions AllOptions = 0b1111; // all that there are

TEST_F(ViewExports, AskForAFileAndHandTheViewOver) {
    for (const TOperation& operation : Operations) {
        const String kind = operation.Kind;
        const String extension = kind.substr(0, kind.find(u' '));
        SCOPED_TRACE(ToUtf8(extension));
        const auto expected = [&](const char16_t* view) {
            return String(view) + extension + u" /d/chosen." + extension + u" " + extension + u" " +
                   operation.Flags;
        };
        (Manager->*operation.OnGrid)(*Grid, u"Quotes", u"/reports");
        EXPECT_EQ(Seen, u"Quotes in /reports");
        EXPECT_EQ(SeenKind, kind);
        EXPECT_EQ(Options, AllOptions);
        EXPECT_EQ(Links.Asked, expected(u"grid "));
        (Manager->*operation.OnTree)(*Tree, u"", u"");
        EXPECT_EQ(Seen, u" in " + GetDocumentsPath());
        EXPECT_EQ(SeenKind, kind);
        EXPECT_EQ(Links.Asked, expected(u"tree "));
    }
}

TEST_F(ViewExports, ChosenNamesAreCompletedAndTheWorkingFolderStays) {
    const fs::path before = fs::current_path();
    const struct {
        const char* Name;
        const char16_t* Answer;
        const char16_t* File;
    } cases[] = {
        {"with an extension", u"/d/a.txt", u"/d/a.txt"},
        {"without", u"/d/a", u"/d/a.csv"},
        {"in the dialog's folder", u"a", u"/reports/a.csv"},
        {"below it", u"b/a.csv", u"/reports/b/a.csv"},
        {"a folder", u"/d/", u"/d/"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        Answer = test.Answer;
        GoesTo = fs::temp_directory_path();
        Manager->ExportGridToCSV(*Grid, u"", u"/reports");
        EXPECT_EQ(Links.Asked, u"grid csv " + String(test.File) + u" csv 1 1");
        EXPECT_EQ(fs::current_path(), before);
    }
}

TEST_F(ViewExports, NobodyWhoAnswersMeansNoFile) {
    Cancels = true;
    Manager->ExportGridToCSV(*Grid, u"a", u"");
    Cancels = false;
    Answer = u"";
    Manager->ExportTreeToXLS(*Tree, u"a", u"");
    TSaveDialogHost::Install(nullptr);
    Manager->ExportTreeToXLSX(*Tree, u"a", u"");
    EXPECT_EQ(Links.Asked, u"");
}

TEST_F(ViewExports, TheBandOfATreeIsPlainInACsvFileAlone) {
    using enum TcxTreeListBandExpandable;
    for (const bool fails : {false, true}) {
        Links.Fails = fails;
        for (const TOperation& operation : Operations) {
            Tree->FirstBand().Expandable = tlbeExpandable;
            const auto run = [&] { (Manager->*operation.OnTree)(*Tree, u"", u""); };
            if (fails) {
                EXPECT_THROW(run(), EExportError);
            } else {
                run();
            }
            const bool isCsv = &operation == &Operations[0];
            EXPECT_EQ(Links.BandThen, isCsv ? tlbeNotExpandable : tlbeExpandable);
            EXPECT_EQ(Tree->FirstBand().Expandable, isCsv ? tlbeDefault : tlbeExpandable);
        }
    }
}

TEST_F(ViewExports, SettingsOfCsvFilesCountAtOnce) {
    const auto csv = [&] {
        Manager->ExportGridToCSV(*Grid, u"", u"");
        const String ofGrid = Links.Csv;
        Manager->ExportTreeToCSV(*Tree, u"", u"");
        EXPECT_EQ(Links.Csv, ofGrid);
        return ofGrid;
    };
    EXPECT_EQ(csv(), u", utf8");
    SetConfig(u"CsvGuardFormula", u"Y");
    EXPECT_EQ(csv(), u", utf8 guard");
    SetConfig(u"CsvGuardFormula", u"N");
    SetConfig(u"CsvByteOrderMark", u"1");
    EXPECT_EQ(csv(), u", utf8 mark");
}

TEST_F(ViewExports, WithoutAnExporterTheyRaise) {
    TcxExportLinks::Install(nullptr);
    EXPECT_THROW(Manager->ExportGridToCSV(*Grid, u"", u""), EExportError);
}

} // namespace
} // namespace quorin
