#include "viewdata/frame/TreeDataSource.h"
#include "platform/rtl/Numbers.h"
#include "platform/widgets/TreeListView.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

struct TTestNode : TObject {
    TTestNode* Parent = nullptr;
    Integer Number = 0;
};

// The tree root(1, 2(3)); a node's value names its number and the column.
class TFourNodes : public TCustomTreeDataControl {
    QUORIN_CLASS(TFourNodes, TCustomTreeDataControl)

    explicit TFourNodes(TComponent* owner = nullptr) : TCustomTreeDataControl(owner) {
        for (Integer number = 0; number < 4; ++number) Nodes[number].Number = number;
        Nodes[1].Parent = Nodes[2].Parent = &Nodes[0];
        Nodes[3].Parent = &Nodes[2];
    }
    using TCustomTreeDataControl::GetValue;
    static TTestNode* NodeOf(Pointer node) {
        return static_cast<TTestNode*>(static_cast<TObject*>(node));
    }
    Integer GetCount() override { return 3; }
    Pointer GetNode(Integer index) override { return AsPointer(&Nodes[index + 1]); }
    Pointer GetRootNode() override { return AsPointer(&Nodes[0]); }
    Pointer GetParentNode(Pointer node) override { return AsPointer(NodeOf(node)->Parent); }
    Integer GetChildNodeCount(Pointer node) override {
        return node == GetRootNode() ? 2 : node == AsPointer(&Nodes[2]) ? 1 : 0;
    }
    Pointer GetChildNode(Pointer node, Integer index) override {
        return AsPointer(&Nodes[node == GetRootNode() ? index + 1 : 3]);
    }
    Variant GetValue(Pointer node, Integer column) override {
        return IntegerToText(NodeOf(node)->Number) + u":" + IntegerToText(column);
    }
    void SetColumnList(const TColumnList* list) override { Lists.Add(list); }

    TTestNode Nodes[4];
    TList<const TColumnList*> Lists;
};

struct TTreeDataSourceTest : TServicesFixture {
    TTreeDataSourceTest() {
        View->AddColumn(7);
        View->AddColumn(-1);
        View->SetShape(TcxTreeShape::Children);
        View->SetStartsExpanded(true);
    }
    const TcxFetchCounters& Counters() { return View->DataController().Counters(); }

    TColumnList First, Second;
    std::unique_ptr<TcxVirtualTreeList> View = CreateComponent<TcxVirtualTreeList>();
};

class TRowsOnly : public TCustomDataControl {
    QUORIN_CLASS(TRowsOnly, TCustomDataControl)
    using TCustomDataControl::TCustomDataControl;
};

TEST_F(TTreeDataSourceTest, ClassThatIsNoTreeControlGivesAnInertSource) {
    for (const auto& controlClass : {TComponentClass(), TComponentClass::Of<TRowsOnly>()}) {
        TCustomTreeDataSource source(&First, controlClass);
        View->SetCustomDataSource(&source);
        EXPECT_EQ(source.DataControl(), nullptr);
        EXPECT_EQ(source.GetRecordCount(), 0);
        EXPECT_EQ(source.GetChildCount(nullptr), 0);
        for (const Pointer handle :
             {source.GetRecordHandle(0), source.GetRootRecordHandle(),
              source.GetParentRecordHandle(nullptr), source.GetChildRecordHandle(nullptr, 0)}) {
            EXPECT_EQ(handle, nullptr);
        }
        EXPECT_EQ(source.GetValue(nullptr, source.GetItemHandle(0)), Variant::EmptyText());
        EXPECT_EQ(Services().RegistrationCount(), 1);
    }
}

TEST_F(TTreeDataSourceTest, NodesPassThroughWholeAndValuesGoByAnyTag) {
    TCustomTreeDataSource source(&First, TComponentClass::Of<TFourNodes>());
    auto& control = static_cast<TFourNodes&>(*source.DataControl());
    EXPECT_EQ(source.GetRecordCount(), 3);
    EXPECT_EQ(source.GetRecordHandle(1), AsPointer(&control.Nodes[2]));
    EXPECT_EQ(source.GetParentRecordHandle(AsPointer(&control.Nodes[3])),
              AsPointer(&control.Nodes[2]));
    View->SetCustomDataSource(&source);
    String shown;
    for (Integer row = 0; row < View->RowCount(); ++row) {
        for (const Integer column : {0, 1}) {
            shown += View->Value(row, *View->GetColumn(column)).ToText() + u" ";
        }
        shown += u"at " + IntegerToText(View->Row(row).Depth) + u"; ";
    }
    EXPECT_EQ(shown, u"1:7 1:-1 at 0; 2:7 2:-1 at 0; 3:7 3:-1 at 1; "); // -1 is asked as it stands
    EXPECT_EQ(source.GetValue(source.GetRootRecordHandle(), source.GetItemHandle(9)),
              Variant::EmptyText());
}

TEST_F(TTreeDataSourceTest, ColumnListsReachTheControlAndTheView) {
    auto source =
        std::make_unique<TCustomTreeDataSource>(&First, TComponentClass::Of<TFourNodes>());
    auto& control = static_cast<TFourNodes&>(*source->DataControl());
    ASSERT_EQ(control.Lists.Count(), 1);
    EXPECT_EQ(control.Lists[0], &First);
    source->SetColumnList(&Second); // no view yet
    View->SetCustomDataSource(source.get());
    const Integer before = Counters().Changes;
    source->SetColumnList(&First);
    EXPECT_EQ(Counters().Changes, before + 1);
    control.Changed();
    EXPECT_EQ(Counters().Changes, before + 2);
    ASSERT_EQ(control.Lists.Count(), 3);
    EXPECT_EQ(control.Lists[1], &Second);
    EXPECT_EQ(control.Lists[2], &First);

    SetConfig(ConfigKey::AvgPriceMode, u"1");
    SetConfig(u"Unrelated", u"1");
    EXPECT_TRUE(Counted(Counters().Refreshes, 1));
    EXPECT_EQ(Counters().Changes, before + 2);
    EXPECT_EQ(Services().RegistrationCount(), 2);
    source.reset();
    EXPECT_EQ(Services().RegistrationCount(), 0);
    EXPECT_EQ(View->RowCount(), 0);
}

} // namespace
} // namespace quorin
