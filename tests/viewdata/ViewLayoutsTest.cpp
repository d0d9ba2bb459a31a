#include "viewdata/presentation/ViewLayouts.h"

#include "platform/rtl/Utf.h"
#include "platform/widgets/GridBandedTableView.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorin {
namespace {

// Default columns: 1 "Bid", 2 "Ask", 3 without a key, 4 "Last".
struct TDefaults {
    TDefaults() {
        for (const auto& [id, key] : {std::pair{1, u"Bid"}, {2, u"Ask"}, {3, u""}, {4, u"Last"}}) {
            Infos.push_back(TColumnInfo::AddColumn(id, u"", 50, key, false));
            List.Add(Infos.back().get());
        }
    }
    std::vector<std::unique_ptr<TColumnInfo>> Infos;
    TColumnList List;
};

// A view with the columns 1, 2, 3 and 5, which the defaults do not know; 3 is hidden.
template <class View>
std::unique_ptr<View> MakeView() {
    auto view = CreateComponent<View>();
    for (const Integer tag : {1, 2, 3, 5}) view->AddColumn(tag).SetWidth(tag * 10);
    view->GetColumn(2)->SetVisible(false);
    return view;
}

struct TLayoutCase {
    const char* Name;
    const char16_t* Layout;
    Boolean Result;
    const char16_t* Expected; // what the view writes afterwards
};
constexpr const char16_t* Untouched = u"Bid,1,10;Ask,1,20;3,0,30;5,1,50;";
constexpr TLayoutCase LayoutCases[] = {
    {"empty", u"", false, Untouched},
    {"its own", Untouched, true, Untouched},
    {"order, hiding and width", u"Ask,1,99;Bid,0,11;", true, u"Ask,1,99;Bid,0,11;3,0,30;5,1,50;"},
    {"number for a column without a key", u"3,1,77;", true, u"3,1,77;Bid,1,10;Ask,1,20;5,1,50;"},
    {"number of a column with a key", u"1,0,77;", true, Untouched},
    {"unknown keys and older columns", u"Last,1,5;Gone,1,5;5,1,5;Ask,1,20;", true,
     u"Ask,1,20;Bid,1,10;3,0,30;5,1,50;"},
    {"widths", u"Bid,1,301;Ask,1,300;3,1,x;", true, u"Bid,1,300;Ask,1,300;3,1,30;5,1,50;"},
    {"hostile widths", u"Bid,1,-5;Ask,1,99999999999;3,1, 7 ;", true,
     u"Bid,1,0;Ask,1,20;3,1,7;5,1,50;"},
    {"only 0 hides", u"Bid, 0,10;Ask,2,20;3,,30;", true, u"Bid,1,10;Ask,1,20;3,1,30;5,1,50;"},
    {"key with blanks", u"  Ask ,1,20;", true, u"Ask,1,20;Bid,1,10;3,0,30;5,1,50;"},
    {"twice: the first counts", u"Ask,0,21;Bid,1,10;Ask,1,22;", true,
     u"Ask,0,21;Bid,1,10;3,0,30;5,1,50;"},
    {"cut short", u"Ask,1,20;Bid,0", true, u"Ask,1,20;Bid,1,10;3,0,30;5,1,50;"},
    {"garbage", u";;,,,;\x1\xFFFF;Ask;", true, Untouched},
    {"further fields", u"Ask,1,20,9,9;", true, u"Ask,1,20;Bid,1,10;3,0,30;5,1,50;"},
};

class ViewLayouts : public ::testing::TestWithParam<TLayoutCase> {};

TEST_P(ViewLayouts, ReadAlikeByTheTwins) {
    const TLayoutCase& test = GetParam();
    const TDefaults defaults;
    auto grid = MakeView<TcxGridTableView>();
    EXPECT_EQ(SetColumnLayout(*grid, test.Layout, &defaults.List), test.Result);
    EXPECT_EQ(GetColumnLayout(*grid, &defaults.List), test.Expected);
    auto tree = MakeView<TcxVirtualTreeList>();
    EXPECT_EQ(SetColumnLayout(*tree, test.Layout, &defaults.List), test.Result);
    EXPECT_EQ(GetColumnLayout(*tree, &defaults.List), test.Expected);
    EXPECT_FALSE(SetColumnLayout(*grid, test.Layout, nullptr)) << "no default columns";
}

INSTANTIATE_TEST_SUITE_P(Cases, ViewLayouts, ::testing::ValuesIn(LayoutCases),
                         [](const auto& test) {
                             std::string name = test.param.Name;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return !isalnum(c); }, '_');
                             return name;
                         });

TEST(ViewLayouts, OrderColumnsWithinTheirBands) {
    const TDefaults defaults;
    auto grid = CreateComponent<TcxGridBandedTableView>();
    for (const Integer tag : {1, 2, 3, 4}) grid->AddColumn(tag).SetWidth(10);
    for (const Integer tag : {2, 4}) {
        for (Integer index = 0; index < 4; ++index) {
            auto* column = ObjectAs<TcxGridBandedColumn>(grid->GetColumn(index));
            if (column->Tag() == tag) {
                column->Position().SetBandIndex(1);
                break;
            }
        }
    }
    EXPECT_EQ(GetColumnLayout(*grid, &defaults.List), u"Bid,1,10;3,1,10;Ask,1,10;Last,1,10;");
    EXPECT_TRUE(SetColumnLayout(*grid, u"Last,1,10;3,1,10;Ask,1,10;Bid,1,10;", &defaults.List));
    EXPECT_EQ(GetColumnLayout(*grid, &defaults.List), u"3,1,10;Bid,1,10;Last,1,10;Ask,1,10;");
}

struct TSortCase {
    const char* Name;
    const char16_t* Layout;
    const char16_t* Expected;
};
constexpr TSortCase SortCases[] = {
    {"empty clears", u"", u""},
    {"two columns", u"2,0,2;5,1,1;", u"2,0,2;5,1,1;"},
    {"sequence by index", u"5,1,1;2,0,2;", u"2,0,2;5,1,1;"},
    {"gaps stay", u"9,0,1;5,4,1;2,2,2;", u"2,2,2;5,4,1;"},
    {"blanks and empty pieces", u" 2 , 0 , 1 ;;  ;", u"2,0,1;"},
    {"what makes no sense", u"-1,0,1;2,-1,1;2,0,0;2,0,3;x,0,1;2,0;5,0,1,7", u"5,0,1;"},
};

TEST(SortLayouts, ReadAlikeByTheTwins) {
    for (const TSortCase& test : SortCases) {
        SCOPED_TRACE(test.Name);
        auto grid = MakeView<TcxGridTableView>();
        grid->GetColumn(0)->SetSortOrder(soAscending);
        SetSortLayout(*grid, test.Layout);
        EXPECT_EQ(GetSortLayout(*grid), test.Expected);
        auto tree = MakeView<TcxVirtualTreeList>();
        SetSortLayout(*tree, test.Layout);
        EXPECT_EQ(GetSortLayout(*tree), test.Expected);
    }
}

TEST(SortLayouts, RepaintOnce) {
    auto grid = MakeView<TcxGridTableView>();
    grid->TakeRepaint();
    grid->BeginUpdate();
    SetSortLayout(*grid, u"1,0,1;2,1,2;");
    EXPECT_FALSE(grid->TakeRepaint()) << "inside a batch";
    grid->EndUpdate();
    EXPECT_TRUE(grid->TakeRepaint());
}

} // namespace
} // namespace quorin
