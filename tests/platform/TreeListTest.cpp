#include "platform/widgets/CustomDataSource.h"
#include "platform/widgets/TreeListView.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorin {
namespace {

struct TNode {
    String Name;
    TNode* Parent = nullptr;
    std::vector<TNode*> Children{};
    String Identity{};
};

// Offers one tree in both shapes.
class TNodeSource : public TcxTreeListCustomDataSource {
public:
    Integer GetRecordCount() override { return static_cast<Integer>(List.size()); }
    TcxDataRecordHandle GetRecordHandle(Integer index) override {
        ++HandlesAsked;
        CallInside();
        const auto place = static_cast<std::size_t>(index);
        return place < List.size() ? List[place] : nullptr;
    }
    TcxDataRecordHandle GetRootRecordHandle() override { return &Root; }
    TcxDataRecordHandle GetParentRecordHandle(TcxDataRecordHandle node) override {
        return At(node)->Parent;
    }
    Integer GetChildCount(TcxDataRecordHandle node) override {
        return static_cast<Integer>(At(node)->Children.size());
    }
    TcxDataRecordHandle GetChildRecordHandle(TcxDataRecordHandle node, Integer index) override {
        const std::vector<TNode*>& children = At(node)->Children;
        const auto place = static_cast<std::size_t>(index);
        const TcxDataRecordHandle child = place < children.size() ? children[place] : nullptr;
        ++HandlesAsked;
        CallInside();
        return child;
    }
    Variant GetValue(TcxDataRecordHandle node, TcxDataItemHandle item) override {
        EXPECT_NE(node, Gone) << "asked for a node that has ended";
        if (InValue) std::exchange(InValue, nullptr)();
        TComponent* column = GetDataController()->GetItem(item);
        if (column->Tag() < 0) return Variant(column->Tag());
        return Variant(At(node)->Name);
    }

    Int64 GetShapeVersion() override { return Version; }
    String GetRecordIdentity(TcxDataRecordHandle node) override { return At(node)->Identity; }

    TNode Root;
    std::vector<TNode*> List;
    Int64 Version = 0;
    int HandlesAsked = 0;
    std::function<void()> Inside;  // once, in the middle of a walk
    std::function<void()> InValue; // once, while a value is read
    TNode* Gone = nullptr;

private:
    void CallInside() {
        if (Inside) std::exchange(Inside, nullptr)();
    }
    static TNode* At(TcxDataRecordHandle node) { return static_cast<TNode*>(node); }
};

struct TTreeListTest : testing::TestWithParam<TcxTreeShape> {
    TTreeListTest() {
        const auto link = [](TNode& child, TNode& parent) {
            child.Parent = &parent;
            parent.Children.push_back(&child);
        };
        link(A, Source.Root);
        link(B, Source.Root);
        link(A1, A);
        link(A2, A);
        link(B1, B);
        // As a service might list them: grouped by something else than the tree.
        Source.List = {&A, &B, &A1, &B1, nullptr, &A2};
        Source.Root.Children.insert(Source.Root.Children.begin() + 1, nullptr);
        View->SetShape(GetParam());
        View->SetCustomDataSource(&Source);
        View->AddColumn(1, u"name");
    }
    std::string Rows() {
        std::string text;
        for (Integer row = 0; row < View->RowCount(); ++row) {
            const TcxTreeRow shown = View->Row(row);
            if (row > 0) text += ' ';
            text.append(static_cast<std::size_t>(shown.Depth), '.');
            if (shown.HasChildren) text += shown.IsExpanded ? '-' : '+';
            for (const Char unit : View->CellText(row, *View->GetColumn(0))) {
                text += static_cast<char>(unit);
            }
        }
        return text;
    }

    TNode A{u"a"}, B{u"b"}, A1{u"a1"}, A2{u"a2"}, B1{u"b1"};
    TNodeSource Source;
    std::unique_ptr<TcxVirtualTreeList> View = CreateComponent<TcxVirtualTreeList>();
};

TEST_P(TTreeListTest, OpensAndCloses) {
    EXPECT_EQ(Rows(), "+a +b");
    View->SetExpanded(0, true);
    EXPECT_EQ(Rows(), "-a .a1 .a2 +b");
    View->SetExpanded(1, true); // no children, nothing to open
    View->SetExpanded(3, true);
    EXPECT_EQ(Rows(), "-a .a1 .a2 -b .b1");
    View->SetExpanded(0, false);
    EXPECT_EQ(Rows(), "+a -b .b1");
    View->SetExpanded(99, true);
    EXPECT_EQ(Rows(), "+a -b .b1");
    View->SetStartsExpanded(true);
    EXPECT_EQ(Rows(), "-a .a1 .a2 -b .b1");
}

TEST_P(TTreeListTest, OpenNodesStayOpenThroughAChange) {
    View->SetExpanded(0, true);
    std::erase(Source.List, &A1);
    std::erase(A.Children, &A1);
    EXPECT_EQ(View->RowCount(), 3);
    Source.DataChanged();
    EXPECT_EQ(Rows(), "-a .a2 +b");
}

TEST_P(TTreeListTest, FocusStaysWithItsNode) {
    View->SetFocusedRow(1);
    EXPECT_EQ(View->Row(View->FocusedRow()).Node, &B);
    View->SetExpanded(0, true);
    EXPECT_EQ(View->FocusedRow(), 3);
    std::erase(Source.List, &B);
    std::erase(Source.Root.Children, &B);
    Source.DataChanged();
    EXPECT_EQ(View->FocusedRow(), NoRow);
}

TEST_P(TTreeListTest, ClosedNodeTakesTheFocusOfItsRows) {
    View->SetStartsExpanded(true); // -a .a1 .a2 -b .b1
    for (const auto& [focused, expected] : {std::pair(2, 0), std::pair(0, 0), std::pair(3, 1)}) {
        View->SetExpanded(0, true);
        View->SetFocusedRow(focused);
        View->SetExpanded(0, false);
        EXPECT_EQ(View->FocusedRow(), expected) << focused;
    }
}

TEST_P(TTreeListTest, ChangeAndLookInsideAWalkEndItsRows) {
    for (const bool looks : {false, true}) {
        Source.Inside = [this, looks] {
            std::erase(Source.List, &B);
            std::erase(Source.List, &B1);
            std::erase(Source.Root.Children, &B);
            Source.DataChanged();
            if (looks) View->RowCount();
        };
        EXPECT_EQ(Rows(), "+a") << looks;
        Source.List.insert(Source.List.end(), {&B, &B1});
        Source.Root.Children.push_back(&B);
        Source.DataChanged();
    }
}

TEST_P(TTreeListTest, TagOfAnyKindReachesTheSource) {
    TcxTreeListColumn& column = View->AddColumn(-5);
    EXPECT_EQ(View->Value(0, column), Variant(-5));
    EXPECT_EQ(View->Value(9, column), Variant());
}

TEST_P(TTreeListTest, EndlessTreeIsCutOff) {
    A1.Children = {&A, &A}; // its own ancestor
    A.Parent = &A1;
    View->SetStartsExpanded(true);
    EXPECT_EQ(Rows(), GetParam() == TcxTreeShape::Children ? "-a .a1 .a2 -b .b1" : "-b .b1");
}

TEST_P(TTreeListTest, SourceThatDiesLeavesNoRows) {
    auto dying = std::make_unique<TNodeSource>();
    dying->List = {&A};
    dying->Root.Children = {&A};
    View->SetCustomDataSource(dying.get());
    EXPECT_EQ(View->RowCount(), 1);
    dying.reset();
    EXPECT_EQ(View->RowCount(), 0);
    EXPECT_EQ(View->Row(0).Node, nullptr);
}

TEST_P(TTreeListTest, ChangeFetchesNothingUntilSomebodyLooks) {
    Rows();
    const int before = Source.HandlesAsked;
    Source.DataChanged();
    Source.DataChanged();
    EXPECT_EQ(Source.HandlesAsked, before);
    EXPECT_TRUE(View->TakeRepaint());
}

TEST_P(TTreeListTest, SameVersionMeansSameRows) {
    Source.Version = 7;
    View->SetExpanded(0, true);
    View->SetFocusedRow(2);
    EXPECT_EQ(Rows(), "-a .a1 .a2 +b");
    View->TakeRepaint();
    const int asked = Source.HandlesAsked;
    const Integer forgets = View->Forgets();
    A1.Name = u"new";
    Source.DataChanged();
    EXPECT_EQ(Rows(), "-a .new .a2 +b");
    EXPECT_EQ(View->FocusedRow(), 2);
    EXPECT_TRUE(View->TakeRepaint());
    EXPECT_EQ(Source.HandlesAsked, asked);
    EXPECT_EQ(View->Forgets(), forgets);

    View->GetColumn(0)->SetSortOrder(soAscending);
    EXPECT_EQ(Rows(), "-a .a2 .new +b");
    A1.Name = u"a1";
    Source.DataChanged();
    EXPECT_EQ(Rows(), "-a .a1 .a2 +b") << "sorted by values";
    View->ClearSorting();

    std::swap(Source.List[0], Source.List[1]);
    std::swap(Source.Root.Children.front(), Source.Root.Children.back());
    Source.Version = 8;
    Source.DataChanged();
    EXPECT_EQ(Rows(), "+b -a .a1 .a2");
    Source.List = {&A};
    Source.Root.Children = {&A};
    A.Children.clear();
    Source.DataChanged();
    EXPECT_EQ(Rows(), "a") << "the count tells";
}

TEST_P(TTreeListTest, VersionsOfAnotherSourceAreItsOwn) {
    TNodeSource other;
    other.List = {&A, &A1};
    other.Root.Children = {&A};
    Source.Version = other.Version = 7;
    View->SetExpanded(1, true);
    EXPECT_EQ(Rows(), "+a -b .b1");
    View->SetCustomDataSource(&other);
    EXPECT_EQ(Rows(), "+a");
    View->SetCustomDataSource(&Source);
    EXPECT_EQ(Rows(), "+a +b");
    View->SetCustomDataSource(nullptr);
}

TEST_P(TTreeListTest, AddressPassesNothingOnToTheNextNode) {
    struct TCase {
        const char* Name;
        StringView Identity;
        const char* Rows;
        Integer Focused;
    };
    static constexpr TCase Cases[] = {
        {"the same node", u"1", "-a .a1 .a2 +b", 0},
        {"another node", u"2", "+a +b", NoRow},
    };
    for (const TCase& row : Cases) {
        SCOPED_TRACE(row.Name);
        A.Identity = u"1";
        View->SetStartsExpanded(true);
        View->SetStartsExpanded(false);
        View->SetExpanded(0, true);
        View->SetFocusedRow(0);
        A.Identity = row.Identity; // it went and came between two looks
        Source.DataChanged();
        EXPECT_EQ(Rows(), row.Rows);
        EXPECT_EQ(View->FocusedRow(), row.Focused);
    }
}

TEST_P(TTreeListTest, SortsSiblingsAmongEachOther) {
    View->SetStartsExpanded(true);
    TcxTreeListColumn& name = *View->GetColumn(0);
    View->SetFocusedRow(1);
    name.SetSortOrder(soDescending);
    EXPECT_EQ(Rows(), "-b .b1 -a .a2 .a1");
    EXPECT_EQ(View->FocusedRow(), 4) << "stays with its node";
    A2.Name = u"A1"; // as a1: the source's order counts
    Source.DataChanged();
    EXPECT_EQ(Rows(), "-b .b1 -a .a1 .A1");
    A1.Name.clear();
    for (const TdxSortOrder order : {soAscending, soDescending}) {
        name.SetSortOrder(order);
        EXPECT_EQ(View->Row(View->RowCount() - (order == soAscending ? 3 : 1)).Node, &A1)
            << "blank last";
    }
    A.Name = u"b"; // ties with its sibling, so that the second column counts
    View->AddColumn(-1).SetSortOrder(soDescending);
    EXPECT_EQ(Rows(), "-b .A1 . -b .b1");
    View->ClearSorting();
    EXPECT_EQ(Rows(), "-b . .A1 -b .b1");
}

TEST_P(TTreeListTest, NodesThatEndWhileTheyAreSortedAreAskedForNothing) {
    View->SetStartsExpanded(true);
    View->GetColumn(0)->SetSortOrder(soDescending);
    Source.InValue = [this] {
        B1.Name = u"gone";
        Source.List.erase(Source.List.begin() + 3);
        B.Children.clear();
        Source.DataChanged();
        Source.Gone = &B1;
    };
    EXPECT_EQ(Rows(), "b -a .a2 .a1");
}

INSTANTIATE_TEST_SUITE_P(Shapes, TTreeListTest,
                         testing::Values(TcxTreeShape::FlatList, TcxTreeShape::Children),
                         [](const auto& shape) {
                             return shape.param == TcxTreeShape::FlatList ? "FlatList" : "Children";
                         });

} // namespace
} // namespace quorin
