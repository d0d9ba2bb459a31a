#include "platform/widgets/GridTableView.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/position/PositionAttributes.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/services/FieldNumbers.h"

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <utility>

namespace quorin {
namespace {

constexpr Integer Symbols = 300;
constexpr Double LeastShown = 20.0; // of what the filter lets through

String SymbolOf(Integer index) {
    const std::string digits = std::to_string(1000 + index);
    return u"S" + String(digits.begin(), digits.end());
}

// A grid on a real control, sorted and filtered, while the services change what it shows. After
// each delivery the rows must stand as sorting everything anew would put them, and no more may have
// been read than what changed.
class TSortedViewTest : public TServicesFixture {
protected:
    TSortedViewTest() {
        WithoutFaults("a value that nobody tells of moves no row");
        TEmbeddedMarketAdapter& market = Services().Market();
        market.AddSeries({.Code = u"MANY", .Exchange = u"SEHK", .CategoryID = 9});
        for (Integer index = 0; index < Symbols; ++index) {
            market.AddSymbol({.Symbol = SymbolOf(index), .Exchange = u"SEHK", .Series = u"MANY"});
            SetField(SymbolOf(index), Field::LastPrice, Price());
        }
        Services().Accounts().FeedAccount(u"A1");
        Services().Accounts().FeedAccount(u"M1", {.IsAggregate = true});
        Services().Accounts().FeedAccount(u"S1", {.MasterAccount = u"M1"});
        Services().Deliver();
    }

    Integer Below(Integer limit) { return static_cast<Integer>(Random() % unsigned(limit)); }
    Double Price() { return 10.0 + Below(40); }
    Double Quantity() { return 1.0 + Below(60); }
    StringView Holder(bool aggregated) {
        return !aggregated ? u"A1" : Below(2) == 0 ? u"M1" : u"S1";
    }

    void Bind(std::unique_ptr<TBaseDataControl> control, Integer first, Integer second) {
        Control = control.get();
        Source = std::make_unique<TCustomGridDataSource>(std::move(control));
        View.SetCustomDataSource(Source.get());
        First = &View.AddColumn(first);
        Second = &View.AddColumn(second);
        First->SetSortOrder(soDescending);
        Second->SetSortOrder(soAscending);
        First->DataBinding().AddToFilter(View.Filter().Root(), foGreaterEqual, LeastShown, u"20",
                                         /*ReplaceExisting=*/false);
        View.Filter().SetActive(true);
        View.Filter().Refresh();
    }

    // Numbers alone stand in both columns.
    std::vector<Integer> Sorted() {
        std::vector<Integer> records;
        const auto value = [this](Integer record, Integer attribute) {
            return Control->GetValue(record, attribute).ToDouble();
        };
        for (Integer record = 0; record < Control->GetCount(); ++record) {
            if (value(record, First->GetTag()) >= LeastShown) records.push_back(record);
        }
        std::stable_sort(records.begin(), records.end(), [&](Integer left, Integer right) {
            const Double difference = value(left, First->GetTag()) - value(right, First->GetTag());
            if (difference != 0.0) return difference > 0.0;
            return value(left, Second->GetTag()) < value(right, Second->GetTag());
        });
        return records;
    }
    std::vector<Integer> Shown() {
        std::vector<Integer> records;
        for (Integer row = 0; row < View.RowCount(); ++row)
            records.push_back(View.RecordIndex(row));
        return records;
    }

    // `change` makes one delivery and answers how many rows it changes; Everything where it names
    // none of them.
    static constexpr Integer Everything = -1;
    void Follow(const std::function<Integer()>& change) {
        constexpr Integer readsPerRow = 3; // two keys and the filter
        TcxCustomDataController& data = View.DataController();
        Integer moves = 0;
        for (Integer round = 0; round < 80; ++round) {
            ASSERT_EQ(Shown(), Sorted()) << "round " << round;
            if (View.FocusedRow() == NoRow) View.SetFocusedRow(Below(View.RowCount()));
            const Integer focused = View.RecordIndex(View.FocusedRow());
            const std::vector<Integer> before = Shown();
            const Integer reads = data.Counters().Values;
            const Integer changes = data.Counters().Changes;
            const Integer changed = change();
            EXPECT_EQ(data.Counters().Values, reads) << "read before anybody looked";
            const Integer row = View.RowOfRecord(focused);
            if (changed == Everything) continue;
            EXPECT_LE(data.Counters().Changes, changes + 1);
            EXPECT_LE(data.Counters().Values - reads, changed * readsPerRow) << "round " << round;
            if (row != NoRow) {
                EXPECT_EQ(View.FocusedRow(), row) << "stays with its record";
            }
            moves += before != Shown() ? 1 : 0;
        }
        EXPECT_GT(moves, 20) << "nothing was moved by names";
    }

    const unsigned Seed = std::random_device{}();
    std::mt19937 Random{Seed};
    testing::ScopedTrace Trace{__FILE__, __LINE__, "seed " + std::to_string(Seed)};
    std::unique_ptr<TCustomGridDataSource> Source;
    TBaseDataControl* Control = nullptr;
    TcxGridTableView View;
    TcxGridColumn* First = nullptr;
    TcxGridColumn* Second = nullptr;
};

TEST_F(TSortedViewTest, MarketRows) {
    auto made = CreateComponent<TCustomMarketDataControl>();
    TCustomMarketDataControl& watch = *made;
    watch.SetExchangeAndCategory(u"SEHK", 9);
    Bind(std::move(made), MarketAttribute::LastPrice, MarketAttribute::Volume);
    std::vector<Integer> everyRow(static_cast<std::size_t>(Symbols));
    for (Integer row = 0; row < Symbols; ++row) everyRow[static_cast<std::size_t>(row)] = row;
    const auto follow = [&](bool inBatches) {
        watch.SetIsBatchMode(inBatches);
        watch.ViewRecordChanged(everyRow);
    };
    follow(true);
    Services().Deliver();
    Follow([&]() -> Integer {
        switch (Below(8)) {
        case 0: watch.MoveRecord(Below(Symbols), Below(Symbols)); return Everything;
        case 1: watch.SpreadUpdate(nullptr, nullptr); return Everything;
        case 2: { // one item at once
            follow(false);
            SetField(SymbolOf(Below(Symbols)), Field::Volume, Quantity());
            Services().Items().Deliver();
            follow(true);
            return 1;
        }
        default:
            const Integer count = 1 + Below(20);
            for (Integer change = 0; change < count; ++change) {
                SetField(SymbolOf(Below(Symbols)), Field::LastPrice, Price());
            }
            Services().Items().Deliver();
            return count;
        }
    });
}

// Asks the control which rows its signal is about, as a source does.
struct TAskingReceiver : TObject {
    QUORIN_CLASS(TAskingReceiver, TObject)
    void Signal(TObject* sender) {
        if (Inside) std::exchange(Inside, nullptr)();
        if (Control == nullptr) return;
        EXPECT_EQ(sender, Control.get());
        TList<Integer> rows;
        Said += Control->NameChangedRows(rows) ? u"named " : u"any ";
        for (const Integer row : rows) Said += Variant(row).ToText() + u' ';
        EXPECT_FALSE(Control->NameChangedRows(rows)) << "once per signal";
    }
    std::unique_ptr<TCustomMarketDataControl> Control;
    std::function<void()> Inside; // once
    String Said;
};

TEST_F(TSortedViewTest, SignalsNameTheirOwnRows) {
    TAskingReceiver receiver;
    receiver.Control = CreateComponent<TCustomMarketDataControl>();
    TCustomMarketDataControl& watch = *receiver.Control;
    watch.SetExchangeAndCategory(u"SEHK", 9);
    const Integer followed[] = {3, 5};
    watch.ViewRecordChanged(followed);
    Services().Deliver();
    watch.SetOnDataChanged(MakeEvent<&TAskingReceiver::Signal>(&receiver));
    const auto tick = [&] {
        for (const Integer row : {3, 4, 5}) SetField(SymbolOf(row), Field::LastPrice, Price());
        Services().Items().Deliver();
        return std::exchange(receiver.Said, String());
    };
    EXPECT_EQ(tick(), u"named 3 5 ");
    watch.MoveRecord(3, 0);
    receiver.Said.clear();
    EXPECT_EQ(tick(), u"named 0 5 ") << "by symbol";
    receiver.Inside = [&] { watch.SpreadUpdate(nullptr, nullptr); };
    EXPECT_EQ(tick(), u"any any ") << "another signal has ended the naming";
    receiver.Inside = [&] { receiver.Control.reset(); };
    EXPECT_EQ(tick(), u"");
}

enum class TKind : Byte { List, View, Sums };
struct TKindCase {
    const char* Name;
    TKind Kind;
};

void PrintTo(const TKindCase& test, std::ostream* out) {
    *out << test.Name;
}

class TSortedPositionsTest : public TSortedViewTest,
                             public testing::WithParamInterface<TKindCase> {};

TEST_P(TSortedPositionsTest, PositionRows) {
    const bool aggregated = GetParam().Kind == TKind::Sums;
    const auto feed = [&](Integer symbol, Double quantity) {
        Services().Positions().FeedPosition(Holder(aggregated), SymbolOf(symbol),
                                            {.FollowsPrice = true, .Quantity = quantity});
    };
    for (Integer symbol = 0; symbol < Symbols; symbol += 2) feed(symbol, Quantity());
    Services().Deliver();
    std::unique_ptr<TCustomPositionDataControl> made;
    if (GetParam().Kind == TKind::List) {
        made = CreateComponent<TCustomPositionDataControl>();
    } else {
        made = CreateComponent<TPositionViewDataControl>();
    }
    made->SetAccount(aggregated ? u"M1" : u"A1");
    if (aggregated) static_cast<TPositionViewDataControl&>(*made).SetAggregate();
    Bind(std::move(made), PositionAttribute::LastPrice, PositionAttribute::NetQuantity);
    Follow([&]() -> Integer {
        if (Below(3) == 0) { // one position comes, goes or changes
            const Integer rows = Control->GetCount();
            feed(Below(Symbols), Below(3) == 0 ? 0.0 : Quantity());
            Services().Deliver();
            return rows == Control->GetCount() ? 1 : Everything;
        }
        const Integer count = 1 + Below(10);
        for (Integer change = 0; change < count; ++change) {
            SetField(SymbolOf(Below(Symbols)), Field::LastPrice, Price());
        }
        Services().Deliver();
        return count;
    });
}

INSTANTIATE_TEST_SUITE_P(Kinds, TSortedPositionsTest,
                         testing::Values(TKindCase{"list", TKind::List},
                                         TKindCase{"view", TKind::View},
                                         TKindCase{"sums", TKind::Sums}),
                         [](const auto& test) { return test.param.Name; });

} // namespace
} // namespace quorin
