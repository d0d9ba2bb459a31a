#include "platform/widgets/CustomDataSource.h"
#include "platform/widgets/GridTableView.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorin {
namespace {

// Answers record * 1000 + tag, as a Double; the tag is what the data controller makes of the
// handle.
class TNumberSource : public TcxCustomDataSource {
public:
    Integer GetRecordCount() override { return Count; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        TComponent* column = GetDataController()->GetItem(item);
        if (column == nullptr) return Variant::EmptyText();
        return Variant(IndexOfHandle(record) * 1000.0 + column->Tag());
    }
    Integer Count = 3;
};

struct TGridViewTest : testing::Test {
    TNumberSource Source;
    std::unique_ptr<TcxGridTableView> View = CreateComponent<TcxGridTableView>();

    const TcxFetchCounters& Counters() { return View->DataController().Counters(); }
    String Row(Integer row) {
        String text;
        for (Integer index = 0; index < View->GetColumnCount(); ++index) {
            TcxGridColumn& column = *View->GetColumn(index);
            if (!column.GetVisible()) continue;
            if (!text.empty()) text += u" | ";
            text += View->CellText(row, column);
        }
        return text;
    }
};

TEST_F(TGridViewTest, ProviderExistsExactlyWhileAttached) {
    EXPECT_EQ(Source.GetProvider(), nullptr);
    EXPECT_EQ(Source.GetDataController(), nullptr);
    View->SetCustomDataSource(&Source);
    EXPECT_NE(Source.GetProvider(), nullptr);
    EXPECT_EQ(Source.GetDataController(), &View->DataController());
    View->SetCustomDataSource(nullptr);
    EXPECT_EQ(Source.GetProvider(), nullptr);
    Source.DataChanged(); // without a view nothing happens
    EXPECT_EQ(Counters().Changes, 0);
}

TEST_F(TGridViewTest, ValuesFollowTheColumnThroughMovesAndDeaths) {
    View->SetCustomDataSource(&Source);
    View->AddColumn(1);
    TcxGridColumn* second = &View->AddColumn(2);
    View->AddColumn(3);
    EXPECT_EQ(Row(2), u"2001 | 2002 | 2003");

    View->GetColumn(2)->SetIndex(0);
    EXPECT_EQ(Row(2), u"2003 | 2001 | 2002");
    View->GetColumn(0)->SetIndex(99);
    EXPECT_EQ(Row(2), u"2001 | 2002 | 2003");

    View->GetColumn(0)->SetVisible(false);
    EXPECT_EQ(View->GetColumn(0)->VisibleIndex(), -1);
    EXPECT_EQ(View->GetColumn(2)->VisibleIndex(), 1);
    EXPECT_EQ(Row(2), u"2002 | 2003");

    delete second;
    EXPECT_EQ(View->GetColumnCount(), 2);
    EXPECT_EQ(Row(2), u"2003");
}

TEST_F(TGridViewTest, ItemHandleOfNoColumnGivesNil) {
    View->AddColumn(7);
    const TcxCustomDataController& controller = View->DataController();
    EXPECT_EQ(controller.GetItem(TcxCustomDataSource::HandleOfIndex(0))->Tag(), 7);
    for (const Integer index : {1, -1, 1 << 30}) {
        EXPECT_EQ(controller.GetItem(TcxCustomDataSource::HandleOfIndex(index)), nullptr) << index;
    }
}

TEST_F(TGridViewTest, ChangeFetchesNothingUntilSomebodyLooks) {
    View->SetCustomDataSource(&Source);
    EXPECT_EQ(View->RowCount(), 3);
    for (int times = 0; times < 5; ++times) Source.DataChanged();
    EXPECT_EQ(Counters().Changes, 5);
    EXPECT_EQ(Counters().Counts, 1);
    Source.Count = 7;
    EXPECT_EQ(View->RowCount(), 7);
    EXPECT_EQ(View->RowCount(), 7);
    EXPECT_EQ(Counters().Counts, 2);
}

TEST_F(TGridViewTest, RefreshKeepsTheRowsAndAsksForAPaint) {
    View->SetCustomDataSource(&Source);
    EXPECT_EQ(View->RowCount(), 3);
    EXPECT_TRUE(View->TakeRepaint());
    EXPECT_FALSE(View->TakeRepaint());
    Source.Count = 9;
    Source.GetDataController()->Refresh();
    EXPECT_EQ(View->RowCount(), 3);
    EXPECT_TRUE(View->TakeRepaint());
    EXPECT_FALSE(View->TakeRepaint());
}

TEST_F(TGridViewTest, EachVisibleChangeAsksForOnePaint) {
    View->SetCustomDataSource(&Source);
    View->AddColumn(1);
    View->AddColumn(2);
    const struct {
        const char* Name;
        void (*Do)(TGridViewTest&);
        bool Repaints;
    } cases[] = {
        {"data changed", [](TGridViewTest& t) { t.Source.DataChanged(); }, true},
        {"width", [](TGridViewTest& t) { t.View->GetColumn(0)->SetWidth(9); }, true},
        {"order", [](TGridViewTest& t) { t.View->GetColumn(0)->SetIndex(1); }, true},
        {"caption", [](TGridViewTest& t) { t.View->GetColumn(0)->SetCaption(u"x"); }, true},
        {"scroll", [](TGridViewTest& t) { t.View->SetTopRow(1); }, true},
        {"scroll to where it is", [](TGridViewTest& t) { t.View->SetTopRow(1); }, false},
        {"focus", [](TGridViewTest& t) { t.View->SetFocusedRow(2); }, true},
        {"looking", [](TGridViewTest& t) { t.Row(0); }, false},
        {"column freed", [](TGridViewTest& t) { delete t.View->GetColumn(0); }, true},
        {"detached", [](TGridViewTest& t) { t.View->SetCustomDataSource(nullptr); }, true},
    };
    View->TakeRepaint();
    for (const auto& row : cases) {
        row.Do(*this);
        EXPECT_EQ(View->TakeRepaint(), row.Repaints) << row.Name;
    }
}

TEST_F(TGridViewTest, ScrollAndFocusStayInsideTheRows) {
    Source.Count = 10;
    View->SetCustomDataSource(&Source);
    View->SetVisibleRowCapacity(4);
    View->SetTopRow(99);
    EXPECT_EQ(View->TopRow(), 6);
    View->SetFocusedRow(2);
    EXPECT_EQ(View->TopRow(), 2);
    View->SetFocusedRow(9);
    EXPECT_EQ(View->TopRow(), 6);

    Source.Count = 3;
    Source.DataChanged();
    EXPECT_EQ(View->TopRow(), 0);
    EXPECT_EQ(View->VisibleRowCount(), 3);
    EXPECT_EQ(View->FocusedRow(), 2);
    Source.Count = 0;
    Source.DataChanged();
    EXPECT_EQ(View->FocusedRow(), NoRow);
    View->SetFocusedRow(0);
    EXPECT_EQ(View->FocusedRow(), NoRow);
}

TEST_F(TGridViewTest, SourceThatDiesLeavesAnEmptyViewWithoutAFetch) {
    auto dying = std::make_unique<TNumberSource>();
    View->SetCustomDataSource(dying.get());
    TcxGridColumn& column = View->AddColumn(1);
    EXPECT_EQ(View->RowCount(), 3);
    const TcxFetchCounters before = Counters();
    dying.reset();
    EXPECT_EQ(View->RowCount(), 0);
    EXPECT_EQ(View->Value(0, column), Variant());
    EXPECT_EQ(View->CellText(0, column), u"");
    EXPECT_EQ(Counters().Counts, before.Counts);
    EXPECT_EQ(Counters().Values, before.Values);
}

TEST_F(TGridViewTest, ViewThatDiesDetachesItsSource) {
    View->SetCustomDataSource(&Source);
    View.reset();
    EXPECT_EQ(Source.GetProvider(), nullptr);
    Source.DataChanged();
}

TEST_F(TGridViewTest, SecondViewTakesTheSourceFromTheFirst) {
    auto second = CreateComponent<TcxGridTableView>();
    View->SetCustomDataSource(&Source);
    second->SetCustomDataSource(&Source);
    EXPECT_EQ(Source.GetDataController(), &second->DataController());
    EXPECT_EQ(View->RowCount(), 0);
    EXPECT_EQ(second->RowCount(), 3);
}

TEST_F(TGridViewTest, FormSuppliesTheText) {
    struct TForm {
        void Text(Integer record, TcxCustomGridTableItem& column, String& text) {
            text.assign(static_cast<std::size_t>(record), u'*');
            text += column.Caption();
        }
    } form;
    View->SetCustomDataSource(&Source);
    TcxGridColumn& column = View->AddColumn(1, u"bid");
    View->SetOnGetCellText(MakeEvent<&TForm::Text>(&form));
    EXPECT_EQ(View->CellText(2, column), u"**bid");
    EXPECT_EQ(View->CellText(3, column), u"");
    EXPECT_EQ(View->CellText(-1, column), u"");
}

TEST_F(TGridViewTest, NumberOfACellAllocatesNothing) {
    View->SetCustomDataSource(&Source);
    TcxGridColumn& column = View->AddColumn(5);
    View->RowCount();
    const std::size_t before = AllocationCount();
    const Variant value = View->Value(1, column);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(value, Variant(1005.0));
}

// Numbers that can change, with the records named or not.
class TChangingSource : public TcxCustomDataSource {
public:
    Integer GetRecordCount() override { return static_cast<Integer>(Values.size()); }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle) override {
        return Values[static_cast<std::size_t>(IndexOfHandle(record))];
    }
    bool ChangedRecords(TList<Integer>& records) override {
        for (const Integer record : Named) records.Add(record);
        return !Named.empty();
    }
    std::vector<Integer> Values{10, 20, 30};
    std::vector<Integer> Named;
};

TEST(GridViewHoldTest, RowsStandStillUntilTheyAreLetGo) {
    for (const std::vector<Integer>& named : {std::vector<Integer>{0}, std::vector<Integer>{}}) {
        SCOPED_TRACE(named.empty() ? "no record named" : "records named");
        TChangingSource source;
        source.Named = named;
        auto view = CreateComponent<TcxGridTableView>();
        view->SetCustomDataSource(&source);
        TcxGridColumn& column = view->AddColumn(1);
        column.SetSortOrder(soAscending);
        EXPECT_EQ(view->RecordIndex(0), 0);
        view->HoldOrder(true);
        source.Values[0] = 25;
        source.DataChanged();
        EXPECT_EQ(view->RecordIndex(0), 0);
        EXPECT_EQ(view->CellText(0, column), u"25"); // values go on
        EXPECT_EQ(view->PendingMoves(), 1);
        view->TakeRepaint();
        view->HoldOrder(false);
        EXPECT_TRUE(view->TakeRepaint());
        EXPECT_EQ(view->RecordIndex(0), 1);
        EXPECT_EQ(view->PendingMoves(), 0);
        view->HoldOrder(true);
        column.SetSortOrder(soDescending); // the person's own wish does not wait
        EXPECT_EQ(view->RecordIndex(0), 2);
        source.Values.pop_back(); // nor does a record that goes
        source.DataChanged();
        EXPECT_EQ(view->RowCount(), 2);
    }
}

TEST(CustomDataSourceTest, BaseTakesNoEdits) {
    TcxCustomDataSource source;
    EXPECT_EQ(source.AppendRecord(), nullptr);
    EXPECT_EQ(source.InsertRecord(nullptr), nullptr);
    source.SetValue(nullptr, nullptr, Variant(1.0));
    source.DeleteRecord(nullptr);
    EXPECT_EQ(source.GetRecordCount(), 0);
    EXPECT_EQ(source.GetValue(nullptr, nullptr), Variant());
}

} // namespace
} // namespace quorin
