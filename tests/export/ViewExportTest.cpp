// Views as files, read back cell by cell.

#include "platform/export/ViewExportLinks.h"
#include "platform/rtl/Utf.h"
#include "platform/widgets/CustomDataSource.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/GridBandedTableView.h"
#include "platform/widgets/TreeListView.h"
#include "tests/export/ExportFixture.h"

#include <array>

namespace quorin {
namespace {

// A cell of the view: its text, and the number that a workbook stores for it, if one.
struct TShown {
    const char16_t* Text;
    const char* Number = "";
};
using TShownRow = std::vector<TShown>;

template <class View>
struct TExporter {
    const char* Extension;
    void (*Export)(const String&, View&, Boolean saveAll, Boolean native);
};

constexpr TExporter<TcxGrid> GridExporters[] = {
    {"csv",
     [](const String& name, TcxGrid& grid, Boolean saveAll, Boolean) {
         TViewExportLinks().ExportGridToCSV(name, grid, true, saveAll, u",", u"csv", nullptr,
                                            TcxExportEncoding::Utf8, {});
     }},
    {"xls",
     [](const String& name, TcxGrid& grid, Boolean saveAll, Boolean native) {
         TViewExportLinks().ExportGridToExcel(name, grid, true, saveAll, native, u"xls", nullptr);
     }},
    {"xlsx",
     [](const String& name, TcxGrid& grid, Boolean saveAll, Boolean native) {
         TViewExportLinks().ExportGridToXLSX(name, grid, true, saveAll, native, u"xlsx", nullptr);
     }},
};

constexpr TExporter<TcxVirtualTreeList> TreeExporters[] = {
    {"csv",
     [](const String& name, TcxVirtualTreeList& tree, Boolean saveAll, Boolean) {
         TViewExportLinks().cxExportTLToCSV(name, tree, true, saveAll, u",", u"csv", nullptr,
                                            TcxExportEncoding::Utf8, {});
     }},
    {"xls",
     [](const String& name, TcxVirtualTreeList& tree, Boolean saveAll, Boolean native) {
         TViewExportLinks().cxExportTLToExcel(name, tree, true, saveAll, native, u"xls", nullptr);
     }},
    {"xlsx",
     [](const String& name, TcxVirtualTreeList& tree, Boolean saveAll, Boolean native) {
         TViewExportLinks().cxExportTLToXLSX(name, tree, true, saveAll, native, u"xlsx", nullptr);
     }},
};

struct TQuotes : TcxCustomDataSource {
    Integer GetRecordCount() override { return 4; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        const auto row = static_cast<std::size_t>(IndexOfHandle(record));
        return GetDataController()->GetItem(item)->Tag() == 1 ? Names[row] : Prices[row];
    }
    std::array<Variant, 4> Names{u"=1+2", u"Gone", u"a \"b\", c", u"腾讯"};
    std::array<Variant, 4> Prices{1.5, 2.0, 1234.5, Variant()};
};

// A number of three levels per node: its own digits, 1 with the child 11 and its child 111.
struct TDigits : TcxTreeListCustomDataSource {
    TcxDataRecordHandle GetRootRecordHandle() override { return HandleOfIndex(99); }
    Integer GetChildCount(TcxDataRecordHandle node) override {
        return node == GetRootRecordHandle() ? 2
                                             : IndexOfHandle(node) % 2 && IndexOfHandle(node) < 100;
    }
    TcxDataRecordHandle GetChildRecordHandle(TcxDataRecordHandle node, Integer index) override {
        if (node == GetRootRecordHandle()) return HandleOfIndex(index + 1);
        return HandleOfIndex(IndexOfHandle(node) * 10 + 1);
    }
};

class TViewExportTest : public TExportTest {
protected:
    template <class View>
    void ExpectFile(const TExporter<View>& exporter, View& view, const TShownRow& captions,
                    const std::vector<TShownRow>& rows, const std::vector<Integer>& depths = {},
                    Boolean saveAll = true, Boolean native = true) {
        SCOPED_TRACE(exporter.Extension);
        const auto name = File("view"); // gets its extension
        exporter.Export(FromUtf8(name.string()), view, saveAll, native);
        std::vector<std::string> lines;
        ReadBack(name.string() + "." + exporter.Extension, lines);
        if (IsSkipped() || HasFatalFailure()) return;
        const bool isWorkbook = exporter.Extension != std::string("csv");
        std::vector<std::string> expected;
        for (std::size_t column = 0; column < captions.size(); ++column) {
            expected.push_back(TextLine(0, column, captions[column].Text) +
                               (isWorkbook ? " bold" : ""));
        }
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t column = 0; column < captions.size(); ++column) {
                const TShown& cell = rows[row][column];
                const Integer depth = column == 0 && row < depths.size() ? depths[row] : 0;
                if (*cell.Text == 0) continue;
                if (!isWorkbook) {
                    expected.push_back(
                        TextLine(row + 1, column,
                                 String(static_cast<std::size_t>(depth) * 2, u' ') + cell.Text));
                } else if (*cell.Number == '\0' || !native) {
                    expected.push_back(TextLine(row + 1, column, cell.Text, depth));
                } else {
                    expected.push_back(NumberLine(row + 1, column, cell.Number, cell.Text, depth));
                }
            }
        }
        EXPECT_EQ(lines, expected);
    }
};

struct TGridExportTest : TViewExportTest {
    TGridExportTest() {
        View->SetCustomDataSource(&Source);
        View->SetOnGetCellText(MakeEvent<&TGridExportTest::Text>(this));
        TcxGridBandedColumn& name = View->AddColumn(1, u"Name");
        name.Position().SetBandIndex(1);
        View->AddColumn(2, u"Price").SetSortOrder(soDescending);
        View->AddColumn(3, u"Hidden").SetVisible(false);
        View->AddColumn(4, u"00700");
        name.DataBinding().AddToFilter(View->Filter().Root(), foNotEqual, u"Gone", u"Gone", false);
        View->Filter().SetActive(true);
        View->Filter().Refresh();
        Grid->SetActiveView(View.get());
    }
    void Text(Integer record, TcxCustomGridTableItem& column, String& text) {
        static const TTextRow prices = {u"1.50", u"2.00", u"1,234.50", u""};
        const auto row = static_cast<std::size_t>(record);
        switch (column.Tag()) {
        case 1: text = Source.Names[row].ToText(); break;
        case 2: text = prices[row]; break;
        default: text = u"+" + prices[row]; break;
        }
    }
    TQuotes Source;
    std::unique_ptr<TcxGridBandedTableView> View = CreateComponent<TcxGridBandedTableView>();
    std::unique_ptr<TcxGrid> Grid = CreateComponent<TcxGrid>();
    TShownRow Captions = {{u"Price"}, {u"00700"}, {u"Name"}};
    std::vector<TShownRow> Rows = {
        {{u"1,234.50", "1234.5"}, {u"+1,234.50", "1234.5"}, {u"a \"b\", c"}},
        {{u"1.50", "1.5"}, {u"+1.50", "1.5"}, {u"=1+2"}},
        {{u""}, {u"+"}, {u"腾讯"}},
    };
};

TEST_F(TGridExportTest, IsTheViewCellByCell) {
    for (const auto& exporter : GridExporters) ExpectFile(exporter, *Grid, Captions, Rows);
}

TEST_F(TGridExportTest, OnlyTheFocusedRowAndOnlyTextWhereThatIsAsked) {
    View->SetFocusedRow(1);
    for (const auto& exporter : GridExporters) {
        ExpectFile(exporter, *Grid, Captions, {Rows[1]}, {}, /*saveAll=*/false, /*native=*/false);
    }
}

TEST_F(TGridExportTest, CsvFilesAreAsTheOptionsSay) {
    const auto csv = [this](StringView separator, const TcxCsvExportOptions& options) {
        const auto file = File("a.csv");
        TViewExportLinks().ExportGridToCSV(FromUtf8(file.string()), *Grid, true, true, separator,
                                           u"csv", nullptr, TcxExportEncoding::Utf8, options);
        return Content(file);
    };
    EXPECT_TRUE(csv(u",", {}).starts_with("Price,00700,Name\r\n"));
    EXPECT_TRUE(csv(u";", {}).starts_with("Price;00700;Name\r\n"));
    EXPECT_TRUE(csv(u",", {/*ByteOrderMark=*/true, false}).starts_with("\xEF\xBB\xBFPrice,"));
    EXPECT_NE(csv(u",", {false, /*GuardFormula=*/true}).find(",'=1+2\r\n,'+,"), std::string::npos);
}

TEST_F(TGridExportTest, WithoutAViewIsEmpty) {
    View.reset();
    for (const auto& exporter : GridExporters) ExpectFile(exporter, *Grid, {}, {});
}

struct TTreeExportTest : TViewExportTest {
    TTreeExportTest() {
        Tree->SetShape(TcxTreeShape::Children);
        Tree->SetCustomDataSource(&Source);
        Tree->SetOnGetCellText(MakeEvent<&TTreeExportTest::Text>(this));
        Tree->AddColumn(1, u"Twice");
        Tree->AddColumn(2, u"Node").Position().SetColIndex(0);
    }
    void Text(TcxDataRecordHandle node, TcxTreeListColumn& column, String& text) {
        const Integer number = TcxCustomDataSource::IndexOfHandle(node);
        text = Variant(column.Tag() * number).ToText();
        text = column.Tag() == 2 ? u"N" + text : text;
        if (ChangesAt == number) Source.DataChanged();
    }
    TDigits Source;
    std::unique_ptr<TcxVirtualTreeList> Tree = CreateComponent<TcxVirtualTreeList>();
    Integer ChangesAt = 0;
};

TEST_F(TTreeExportTest, HasEveryNodeAndLeavesTheViewAsItWas) {
    ASSERT_EQ(Tree->RowCount(), 2) << "closed";
    const std::vector<TShownRow> rows = {{{u"N2"}, {u"1", "1.0"}},
                                         {{u"N22"}, {u"11", "11.0"}},
                                         {{u"N222"}, {u"111", "111.0"}},
                                         {{u"N4"}, {u"2", "2.0"}}};
    for (const auto& exporter : TreeExporters) {
        ExpectFile(exporter, *Tree, {{u"Node"}, {u"Twice"}}, rows, {0, 1, 2, 0});
    }
    EXPECT_EQ(Tree->RowCount(), 2);
}

TEST_F(TTreeExportTest, OneThatChangesMeanwhileLeavesTheOldFile) {
    ChangesAt = 11;
    for (const auto& exporter : TreeExporters) {
        SCOPED_TRACE(exporter.Extension);
        const auto file = File(std::string("view.") + exporter.Extension);
        Put(file, "old");
        EXPECT_THROW(exporter.Export(FromUtf8(file.string()), *Tree, true, true), EExportError);
        EXPECT_EQ(Content(file), "old");
    }
    EXPECT_EQ(Names(), "view.csv view.xls view.xlsx ");
}

} // namespace
} // namespace quorin
