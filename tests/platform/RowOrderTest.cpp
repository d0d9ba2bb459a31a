#include "platform/widgets/RowOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

namespace quorin {
namespace {

// Rows of two columns; a row whose first value is the text "hide" is filtered out.
struct TRows : TcxRowSource {
    bool Passes(Integer record) override { return !(Cell(record, 0) == Variant(u"hide")); }
    Variant SortValue(Integer record, Integer column) override { return Cell(record, column); }
    Variant& Cell(Integer record, Integer column) {
        return Cells[static_cast<std::size_t>(record)][static_cast<std::size_t>(column)];
    }
    std::vector<std::array<Variant, 2>> Cells;
};

std::vector<Integer> Shown(const TcxRowOrder& order) {
    std::vector<Integer> records;
    for (Integer row = 0; row < order.Count(); ++row) records.push_back(order.RecordAt(row));
    return records;
}

struct TOrderCase {
    const char* Name;
    std::vector<Variant> Values;
    bool Descending;
    std::vector<Integer> Expected;
};
void PrintTo(const TOrderCase& test, std::ostream* out) {
    *out << test.Name;
}

class RowOrderKinds : public ::testing::TestWithParam<TOrderCase> {};

TEST_P(RowOrderKinds, OneColumn) {
    TRows rows;
    for (const Variant& value : GetParam().Values) rows.Cells.push_back({value, Variant()});
    TcxRowOrder order;
    order.Build(static_cast<Integer>(rows.Cells.size()), {GetParam().Descending}, rows);
    EXPECT_EQ(Shown(order), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RowOrderKinds,
    ::testing::Values(
        TOrderCase{"numbers of every kind", {2.5, 10, Int64{-1}, 0}, false, {2, 3, 0, 1}},
        TOrderCase{"blanks last ascending", {Variant(), 1, u"", u"a"}, false, {1, 3, 0, 2}},
        TOrderCase{"blanks last descending", {Variant(), 1, u"", u"a"}, true, {3, 1, 0, 2}},
        TOrderCase{"case does not count", {u"b", u"A", u"a", u"B"}, false, {1, 2, 0, 3}},
        TOrderCase{
            "ties keep their order descending", {u"b", u"A", u"a", u"B"}, true, {0, 3, 1, 2}},
        TOrderCase{"whole 0 is 0", {0.5, 0, -0.5, 0.0}, false, {2, 1, 3, 0}},
        TOrderCase{"filtered", {3, u"hide", 1}, false, {2, 0}}),
    [](const auto& test) {
        std::string name = test.param.Name;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

TEST(RowOrder, FollowsChangesAsAFullSortWould) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](Integer limit) {
        return static_cast<Integer>(random() % unsigned(limit));
    };
    const auto anyValue = [&]() -> Variant {
        constexpr Double endless = std::numeric_limits<Double>::infinity();
        switch (below(8)) {
        case 0: return Variant();
        case 1: return Variant(u"hide");
        case 2: return Variant(String(1, static_cast<Char>(u'a' + below(3))));
        case 3: return Variant(below(2) == 0 ? endless : -endless);
        default: return Variant(below(40));
        }
    };
    constexpr Integer records = 3000;
    TRows rows;
    for (Integer record = 0; record < records; ++record)
        rows.Cells.push_back({anyValue(), anyValue()});
    const std::vector<bool> directions[] = {{}, {false}, {true}, {true, false}};
    for (const auto& descending : directions) {
        TcxRowOrder order;
        order.Build(records, descending, rows);
        for (Integer round = 0; round < 60; ++round) {
            std::vector<Integer> changed;
            const Integer count = round % 20 == 0 ? records : below(150);
            for (Integer change = 0; change < count; ++change) {
                const Integer record = below(records);
                const bool alike = round % 7 == 0; // whole runs grow and vanish
                rows.Cell(record, below(2)) = alike ? Variant(round) : anyValue();
                changed.push_back(record);
            }
            changed.push_back(-1);
            changed.push_back(records);
            const std::vector<Integer> before = Shown(order);
            std::sort(changed.begin(), changed.end());
            changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
            const bool anyMoves = order.CountMoves(changed, rows) > 0;
            if (round % 3 == 0) {
                order.UpdateAll(rows);
            } else {
                order.Update(changed, rows);
            }
            TcxRowOrder whole;
            whole.Build(records, descending, rows);
            ASSERT_EQ(Shown(order), Shown(whole)) << "round " << round;
            ASSERT_EQ(anyMoves, Shown(order) != before) << "round " << round;
            for (Integer probe = 0; probe < 20; ++probe) {
                const Integer record = below(records);
                const Integer row = order.RowOf(record);
                ASSERT_EQ(row >= 0, rows.Passes(record));
                ASSERT_EQ(order.RecordAt(row), row >= 0 ? record : -1);
            }
        }
    }
    TcxRowOrder order;
    order.Build(0, {false}, rows);
    EXPECT_EQ(order.RecordAt(0), -1);
    EXPECT_EQ(order.RowOf(0), -1);
}

struct TMovesCase {
    const char* Name;
    std::array<Variant, 6> Values; // in place of 0, 10, 20, 30, 40, 50
    Integer Moves;
};

TEST(RowOrder, CountsTheFewestMoves) {
    const TMovesCase cases[] = {
        {"none", {1, 11, 21, 31, 41, 51}, 0},
        {"between the same neighbours", {0, 10, 29, 30, 40, 50}, 0},
        {"one from bottom to top", {0, 10, 20, 30, 40, -1}, 1},
        {"two change places", {0, 20, 10, 30, 40, 50}, 1},
        {"two pass one that stands", {0, 45, 46, 30, 40, 50}, 2},
        {"one goes by the filter", {0, u"hide", 20, 30, 40, 50}, 1},
        {"all turned round", {50, 40, 30, 20, 10, 0}, 5},
    };
    for (const TMovesCase& test : cases) {
        SCOPED_TRACE(test.Name);
        TRows rows;
        for (Integer record = 0; record < 6; ++record) rows.Cells.push_back({record * 10, 0});
        TcxRowOrder order;
        order.Build(6, {false}, rows);
        std::vector<Integer> changed;
        for (Integer record = 0; record < 6; ++record) {
            const Variant& value = test.Values[static_cast<std::size_t>(record)];
            if (rows.Cell(record, 0) == value) continue;
            rows.Cell(record, 0) = value;
            changed.push_back(record);
        }
        EXPECT_EQ(order.CountMoves(changed, rows), test.Moves);
    }
}

} // namespace
} // namespace quorin
