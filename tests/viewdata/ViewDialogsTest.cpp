#include "platform/widgets/CustomDataSource.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/presentation/CustomColumnDialog.h"
#include "viewdata/presentation/CustomFilterDialog.h"
#include "viewdata/services/ChannelMessages.h"

#include <functional>

namespace quorin {
namespace {

// Four rows of a text and a number.
struct TTwoColumns : TcxCustomDataSource {
    Integer GetRecordCount() override { return 4; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        const auto row = static_cast<std::size_t>(IndexOfHandle(record));
        return GetDataController()->GetItem(item)->Tag() == 1 ? Texts[row] : Numbers[row];
    }
    bool ChangedRecords(TList<Integer>& records) override {
        if (Changed < 0) return false;
        records.Add(std::exchange(Changed, -1));
        return true;
    }
    Integer Changed = -1; // the record that the next change names
    std::array<Variant, 4> Texts{u"Alpha", u"beta", u"", u"Gamma"};
    std::array<Variant, 4> Numbers{1.5, 20, Variant(), 1000.25};
};

struct ViewDialogs : TServicesFixture {
    ViewDialogs() {
        Host().SetReceiver(MakeEvent<&ViewDialogs::Answer>(this));
        Grid->SetCustomDataSource(&Source);
        Text = &Grid->AddColumn(1, u"Name");
        Number = &Grid->AddColumn(2, u"Price");
        Number->DataBinding().SetValueType<TcxFloatValueType>();
    }
    Boolean Answer(Integer number, Pointer data) {
        if (number == ChannelMessage::CustomFilter) {
            auto& record = *static_cast<TCustomFilterRecord*>(data);
            Asked = record;
            if (FilterAnswer) FilterAnswer(record);
        } else if (number == ChannelMessage::CustomColumn) {
            auto& record = *static_cast<TCustomColumnRecord*>(data);
            AskedColumns = record;
            if (ColumnAnswer) ColumnAnswer(record);
        }
        return true;
    }
    // The dialog is answered with these; what the grid shows afterwards.
    String Filter(TcxGridColumn& column, Byte op, StringView value) {
        FilterAnswer = [&](TCustomFilterRecord& record) {
            record.Operator = op;
            record.Value = value;
        };
        Dialog.ExecuteCustomFilter(*Grid, column);
        FilterAnswer = nullptr;
        return Rows();
    }
    String Rows() {
        String rows;
        for (Integer row = 0; row < Grid->RowCount(); ++row) {
            rows += static_cast<Char>(u'0' + Grid->RecordIndex(row));
        }
        return rows;
    }

    TTwoColumns Source;
    std::unique_ptr<TcxGridTableView> Grid = CreateComponent<TcxGridTableView>();
    TcxGridColumn* Text;
    TcxGridColumn* Number;
    TGridCustomFilterRecord Dialog;
    TCustomFilterRecord Asked;
    TCustomColumnRecord AskedColumns;
    std::function<void(TCustomFilterRecord&)> FilterAnswer;
    std::function<void(TCustomColumnRecord&)> ColumnAnswer;
};

struct TFilterCase {
    const char* Name;
    bool IsNumber;
    Byte Operator;
    const char16_t* Value;
    const char16_t* Rows;
    const char16_t* ReadBack;
};
constexpr TFilterCase FilterCases[] = {
    {"contains", false, FilterOperator::Contains, u"A", u"013", u"A"},
    {"contains one of", false, FilterOperator::Contains, u"alp,GAM", u"03", u"alp,GAM"},
    {"contains none of", false, FilterOperator::NotContains, u"alp,GAM", u"12", u"alp,GAM"},
    {"equal", false, FilterOperator::Equal, u"BETA", u"1", u"BETA"},
    {"equal to one of, blank among them", false, FilterOperator::Equal, u"beta,,Gamma", u"123",
     u"beta,,Gamma"},
    {"unequal to all", false, FilterOperator::NotEqual, u"beta,Gamma", u"02", u"beta,Gamma"},
    {"number equal", true, FilterOperator::Equal, u"20.0", u"1", u"20"},
    {"number greater", true, FilterOperator::Greater, u"1.5", u"13", u"1.5"},
    {"number from", true, FilterOperator::GreaterOrEqual, u"1.5", u"013", u"1.5"},
    {"number below", true, FilterOperator::Less, u"20", u"0", u"20"},
    {"number up to", true, FilterOperator::LessOrEqual, u"20", u"01", u"20"},
    {"number between", true, FilterOperator::Between, u"20,1000.25", u"13", u"20,1000.25"},
    {"number outside", true, FilterOperator::NotBetween, u"20,1000.25", u"02", u"20,1000.25"},
    {"no number is 0.0", true, FilterOperator::Greater, u"1,5", u"013", u"0"},
};

TEST_F(ViewDialogs, FilterShowsAndReadsBackWhatWasAsked) {
    for (const TFilterCase& test : FilterCases) {
        SCOPED_TRACE(test.Name);
        TcxGridColumn& column = test.IsNumber ? *Number : *Text;
        EXPECT_EQ(Filter(column, test.Operator, test.Value), test.Rows);
        Dialog.ExecuteCustomFilter(*Grid, column); // cancelled
        EXPECT_EQ(Asked.DataKind, test.IsNumber ? FilterDataKind::Number : FilterDataKind::Text);
        EXPECT_EQ(Asked.Operator, test.Operator);
        EXPECT_EQ(Asked.Value, test.ReadBack);
        EXPECT_EQ(Rows(), test.Rows) << "a cancelled dialog changes nothing";
        EXPECT_EQ(Filter(column, test.Operator, u""), u"0123") << "emptied";
    }
}

TEST_F(ViewDialogs, RangeWithoutTwoBoundsLeavesTheRowsUnrefreshed) {
    EXPECT_EQ(Filter(*Number, FilterOperator::Greater, u"2"), u"13");
    EXPECT_EQ(Filter(*Number, FilterOperator::Between, u"1,2,3"), u"13");
    EXPECT_EQ(Number->DataBinding().GetFilterCriteriaItem(), nullptr);
    Grid->Filter().Refresh();
    EXPECT_EQ(Rows(), u"0123");
}

TEST_F(ViewDialogs, FiltersOfColumnsCountTogetherAndDieWithThem) {
    EXPECT_EQ(Filter(*Text, FilterOperator::Contains, u"a"), u"013");
    EXPECT_EQ(Filter(*Number, FilterOperator::Less, u"100"), u"01");
    delete Text;
    EXPECT_EQ(Rows(), u"01") << "the number's filter stays";
    delete Number;
    EXPECT_EQ(Rows(), u"0123");
}

TEST_F(ViewDialogs, TextsThatSpellNumbersAreTexts) {
    Source.Texts = {u"007", u"7", u"7.0", 7};
    EXPECT_EQ(Filter(*Text, FilterOperator::Equal, u"7"), u"13") << "as a symbol's code";
    EXPECT_EQ(Filter(*Text, FilterOperator::Less, u"7"), u"0");
}

TEST_F(ViewDialogs, DialogInsideADialogTakesItsPlace) {
    Integer dialogs = 0;
    FilterAnswer = [&](TCustomFilterRecord& record) {
        const bool isOuter = ++dialogs == 1;
        if (isOuter) Dialog.ExecuteCustomFilter(*Grid, *Number);
        record.Value = isOuter ? u"Gamma" : u"20";
    };
    Dialog.ExecuteCustomFilter(*Grid, *Text);
    EXPECT_EQ(Rows(), u"1") << "the inner one's filter alone";
}

TEST_F(ViewDialogs, ColumnThatDiesInTheDialogIsForgotten) {
    FilterAnswer = [&](TCustomFilterRecord& record) {
        record.Value = u"x";
        delete Text;
    };
    Dialog.ExecuteCustomFilter(*Grid, *Text);
    EXPECT_EQ(Rows(), u"0123");
}

TEST_F(ViewDialogs, ChooserShowsAndAppliesColumns) {
    TGridCustomColumnRecord chooser;
    TcxGridColumn& third = Grid->AddColumn(3, u"Time");
    third.SetVisible(false);
    const Integer reserved[] = {2, 77};
    ColumnAnswer = [](TCustomColumnRecord& record) {
        TCustomColumnRecord choice{{u"Time", u"Gone", u"Name"}, {u"Time"}, {}, {}};
        record.Callback(nullptr, Pointer(&choice));
    };
    chooser.ExecuteCustomColumn(*Grid, reserved, {});
    EXPECT_EQ(AskedColumns.AllColumns, (std::vector<String>{u"Name", u"Price", u"Time"}));
    EXPECT_EQ(AskedColumns.VisibleColumns, (std::vector<String>{u"Name", u"Price"}));
    EXPECT_EQ(AskedColumns.ReservedColumns, (std::vector<String>{u"Price", u""}));
    EXPECT_EQ(third.VisibleIndex(), 0);
    EXPECT_FALSE(Text->GetVisible());
    EXPECT_TRUE(Number->GetVisible()) << "not named: as it was";

    TCustomColumnRecord tooMany{{u"a", u"b", u"c", u"Name"}, {u"Name"}, {}, {}};
    chooser.HandleCustomColumn(nullptr, Pointer(&tooMany));
    EXPECT_FALSE(Text->GetVisible());

    Grid.reset();
    chooser.HandleCustomColumn(nullptr, Pointer(&tooMany)); // a late answer finds no view
}

TEST_F(ViewDialogs, SortedAndFilteredRowsFollowChanges) {
    Number->SetSortOrder(soDescending);
    EXPECT_EQ(Rows(), u"3102") << "blank last";
    Grid->SetVisibleRowCapacity(4);
    Grid->SetFocusedRow(1);
    Source.Numbers[0] = 5000;
    Source.Changed = 0;
    Source.DataChanged();
    EXPECT_EQ(Rows(), u"0312");
    EXPECT_EQ(Grid->FocusedRow(), 2) << "stays with its record";
    Source.Numbers[2] = 30;
    Source.DataChanged();
    EXPECT_EQ(Rows(), u"0321");
    EXPECT_EQ(Filter(*Text, FilterOperator::NotEqual, u"beta"), u"032");
    EXPECT_EQ(Grid->FocusedRow(), 2) << "the row that took its place";
    Grid->ClearSorting();
    EXPECT_EQ(Rows(), u"023");
}

} // namespace
} // namespace quorin
