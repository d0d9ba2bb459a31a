#include "docs/snippets/Snippet.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/positionview/PositionViewDataControl.h"

#include <fstream>
#include <set>

namespace quorin {

namespace {

// The numbers of a table in docs/reference/columns.md, but for columns without cells.
std::set<Integer> Written(const std::string& heading) {
    std::ifstream page(QUORIN_COLUMNS_PAGE);
    std::set<Integer> numbers;
    bool isInside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## ")) isInside = line == "## " + heading;
        const bool isRow = line.size() > 2 && line[0] == '|' && line[2] >= '0' && line[2] <= '9';
        if (isInside && isRow && line.find("Depth") == std::string::npos) {
            numbers.insert(std::stoi(line.substr(2)));
        }
    }
    return numbers;
}

// The numbers below the custom columns that some row of the control answers.
std::set<Integer> Answered(TBaseDataControl& control) {
    std::set<Integer> numbers;
    for (Integer attribute = 0; attribute < FirstCustomColumn; ++attribute) {
        for (Integer row = 0; row < control.GetCount(); ++row) {
            if (control.GetValue(row, attribute) == Variant::EmptyText()) continue;
            numbers.insert(attribute);
            break;
        }
    }
    return numbers;
}

} // namespace

class TColumnTable : public TSnippet {
protected:
    TColumnTable() {
        TEmbeddedSubItem& item = Services.Items().Item(u"00700");
        for (const Integer field : {Field::Remark, Field::Expiry}) item.SetField(field, u"text");
        item.SetField(Field::CallPut, u"C");
        item.SetField(Field::MarketState, u"CT");
        Quote(u"00700", 350.2, 350.4, 350.2);

        TAccountDetails hedger;
        hedger.PrincipalType = PrincipalType::Hedge;
        Services.Accounts().FeedAccount(u"H1", hedger);
        TPositionFigures option;
        option.FollowsPrice = true;
        option.ProdType = ProductType::Options;
        option.Quantity = 1.0;
        Services.Positions().FeedPosition(u"H1", u"00700", option);
        option.Side = TPositionSide::Long;
        Services.Positions().FeedPosition(u"H1", u"00005", option);
        Services.Deliver();
    }
};

TEST_F(TColumnTable, Market) {
    const auto watch = CreateComponent<TCustomMarketDataControl>();
    watch->SetExchangeAndCategory(u"SEHK", -1);
    EXPECT_EQ(Answered(*watch), Written("Market watch and underlyer list"));
}

TEST_F(TColumnTable, Position) {
    const auto list = CreateComponent<TCustomPositionDataControl>();
    list->SetAccount(u"H1");
    EXPECT_EQ(Answered(*list), Written("Position list"));
}

TEST_F(TColumnTable, PositionView) {
    const auto view = CreateComponent<TPositionViewDataControl>();
    view->SetAccount(u"H1");
    std::set<Integer> written = Written("Position list");
    written.merge(Written("Position view"));
    EXPECT_EQ(Answered(*view), written);
}

} // namespace quorin
