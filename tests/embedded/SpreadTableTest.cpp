#include "embedded/SpreadTable.h"
#include "platform/rtl/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

constexpr TSpreadBand Bands[] = {
    {0.0, 0.25, 0.001}, {0.25, 0.5, 0.005}, {0.5, 20.0, 0.01}, {20.0, 50.0, 0.02}};
constexpr TSpreadBand Fractions[] = {{0.0, 100.0, 0.0078125}}; // 1/128
constexpr TSpreadBand Signed[] = {{-100.0, 100.0, 0.5}};
constexpr TSpreadBand Uneven[] = {{0.0, 1.0, 0.3}, {1.0, 3.0, 0.5}};

TEST(SpreadTable, MovesByTicks) {
    const struct {
        const char* name;
        std::span<const TSpreadBand> bands;
        Double price;
        Integer steps;
        StringView moved; // the shortest text that reads back as the same number
    } cases[] = {
        {"inside, up", Bands, 0.1, 1, u"0.101"},
        {"inside, down", Bands, 0.1, -1, u"0.099"},
        {"border, up", Bands, 0.25, 1, u"0.255"},
        {"border, down", Bands, 0.25, -1, u"0.249"},
        {"onto a border", Bands, 0.495, 1, u"0.5"},
        {"onto a border, down", Bands, 20.02, -1, u"20"},
        {"upper border, down", Bands, 20.0, -1, u"19.99"},
        {"across a border", Bands, 0.249, 2, u"0.255"},
        {"across two borders", Bands, 0.249, 52, u"0.51"},
        {"back across two borders", Bands, 0.51, -52, u"0.249"},
        {"off the ticks, up", Bands, 0.2512, 1, u"0.255"},
        {"off the ticks, down", Bands, 0.2512, -1, u"0.25"},
        {"off the ticks below a border", Bands, 0.2495, 1, u"0.25"},
        {"off the ticks above a border", Bands, 0.2502, -1, u"0.25"},
        {"off the ticks, finer than a unit", Bands, 0.1000005, -1, u"0.1"},
        {"binary noise is on the tick", Bands, 0.1 + 0.2, 1, u"0.305"},
        {"no step", Bands, 0.2512, 0, u"0.2512"},
        {"lowest", Bands, 0.001, -1, u"0"},
        {"not below 0", Bands, 0.002, -5, u"0"},
        {"0 down", Bands, 0.0, -1, u"0"},
        {"0 up", Bands, 0.0, 1, u"0.001"},
        {"below 0, down", Bands, -3.0, -1, u"0"},
        {"below 0, up", Bands, -3.0, 1, u"0"},
        {"end of the last band, up", Bands, 50.0, 1, u"50.02"},
        {"beyond the last band", Bands, 60.0, 2, u"60.04"},
        {"beyond the last band, down", Bands, 60.01, -1, u"60"},
        {"most steps", Bands, 50.0, std::numeric_limits<Integer>::max(), u"42949722.94"},
        {"least steps", Bands, 50.0, std::numeric_limits<Integer>::min(), u"0"},
        {"fractions of two", Fractions, 99.5, 1, u"99.5078125"},
        {"fractions of two, down", Fractions, 99.5, -3, u"99.4765625"},
        {"negative prices", Signed, -0.5, -1, u"-1"},
        {"off the ticks below 0", Signed, -0.7, 1, u"-0.5"},
        {"to 0 from below", Signed, -0.5, 1, u"0"},
        {"lower end of negative prices", Signed, -99.5, -3, u"-100"},
        {"band ends between ticks", Uneven, 0.9, 1, u"1"},
        {"band ends between ticks, down", Uneven, 1.0, -1, u"0.9"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        TEmbeddedSpreadTable table;
        ASSERT_TRUE(table.Load(row.bands));
        EXPECT_EQ(ShortestText(table.MovePrice(row.price, row.steps)), row.moved);
    }
}

TEST(SpreadTable, NamesTheBand) {
    constexpr Double Most = std::numeric_limits<Double>::max();
    const struct {
        const char* name;
        Double price;
        Double stepUp, lowerUp, upperUp;
        Double stepDown, lowerDown, upperDown;
    } cases[] = {
        {"inside", 0.3, 0.005, 0.25, 0.5, 0.005, 0.25, 0.5},
        {"on a border", 0.5, 0.01, 0.5, 20.0, 0.005, 0.25, 0.5},
        {"just above a border", 0.50001, 0.01, 0.5, 20.0, 0.01, 0.5, 20.0},
        {"just below a border", 0.49999, 0.005, 0.25, 0.5, 0.005, 0.25, 0.5},
        {"lower end", 0.0, 0.001, 0.0, 0.25, 0.001, 0.0, 0.25},
        {"below", -1.0, 0.001, -Most, 0.25, 0.001, -Most, 0.25},
        {"upper end", 50.0, 0.02, 20.0, 50.0, 0.02, 20.0, 50.0},
        {"just above", 50.0001, 0.02, 20.0, Most, 0.02, 20.0, Most},
        {"above", 70.0, 0.02, 20.0, Most, 0.02, 20.0, Most},
    };
    TEmbeddedSpreadTable table;
    ASSERT_TRUE(table.Load(Bands));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Double upper = -1.0;
        Double lower = -1.0;
        EXPECT_EQ(table.GetSpreadUp(row.price, upper, lower), row.stepUp);
        EXPECT_EQ(upper, row.upperUp);
        EXPECT_EQ(lower, row.lowerUp);
        EXPECT_EQ(table.GetSpreadDown(row.price, upper, lower), row.stepDown);
        EXPECT_EQ(upper, row.upperDown);
        EXPECT_EQ(lower, row.lowerDown);
    }
}

TEST(SpreadTable, LeavesAloneWhatIsNoPrice) {
    TEmbeddedSpreadTable table;
    EXPECT_NE(table.GetStatus(), SpreadTableLoaded);
    EXPECT_EQ(table.MovePrice(5.0, 1), 5.0);
    Double upper = -1.0;
    Double lower = -1.0;
    EXPECT_EQ(table.GetSpreadDown(5.0, upper, lower), 0.0);
    EXPECT_EQ(upper, 0.0);
    EXPECT_EQ(lower, 0.0);

    ASSERT_TRUE(table.Load(Bands));
    EXPECT_EQ(table.GetStatus(), SpreadTableLoaded);
    EXPECT_TRUE(std::isnan(table.MovePrice(std::nan(""), 1)));
    for (const Double price : {HUGE_VAL, -HUGE_VAL, 1e300, -1e20}) {
        EXPECT_EQ(table.MovePrice(price, -1), price);
        EXPECT_EQ(table.GetSpreadUp(price, upper, lower), 0.0);
    }
}

TEST(SpreadTable, TakesFineSteps) {
    for (const Double step : {0.0001, 0.00005, 0.00001, 0.000000001, 0.01000009}) {
        SCOPED_TRACE(step);
        const TSpreadBand bands[] = {{0.0, 100.0, step}};
        TEmbeddedSpreadTable table;
        ASSERT_TRUE(table.Load(bands));
        EXPECT_EQ(table.MovePrice(0.0, 1), step);
    }
}

TEST(SpreadTable, KnowsItsSteps) {
    const struct {
        const char* name;
        std::span<const TSpreadBand> bands;
        Double price;
        bool isOnStep;
    } cases[] = {
        {"inside", Bands, 0.101, true},
        {"finer", Bands, 0.1015, false},
        {"finer than a unit", Bands, 0.1000005, false},
        {"step of the band below", Bands, 0.251, false},
        {"border", Bands, 0.25, true},
        {"binary noise", Bands, 0.1 + 0.2, true},
        {"end of the last band", Bands, 50.0, true},
        {"beyond the last band", Bands, 60.02, true},
        {"beyond, off the step", Bands, 60.01, false},
        {"border that ends a step early", Uneven, 1.0, true},
        {"step that the border cuts", Uneven, 1.2, false},
        {"below 0", Signed, -0.5, true},
        {"below 0, off the step", Signed, -0.7, false},
        {"below the first band", Bands, -0.002, true},
        {"no number", Bands, std::nan(""), false},
        {"without end", Bands, std::numeric_limits<Double>::infinity(), false},
        {"nothing loaded", {}, 0.123, true},
    };
    for (const auto& row : cases) {
        TEmbeddedSpreadTable table;
        table.Load(row.bands);
        EXPECT_EQ(table.IsOnStep(row.price), row.isOnStep) << row.name;
    }
}

TEST(SpreadTable, RefusesBadBands) {
    const struct {
        const char* name;
        std::vector<TSpreadBand> bands;
    } cases[] = {
        {"none", {}},
        {"step 0", {{0.0, 1.0, 0.0}}},
        {"step below 0", {{0.0, 1.0, -0.1}}},
        {"ends before it begins", {{1.0, 1.0, 0.1}}},
        {"gap", {{0.0, 1.0, 0.1}, {2.0, 3.0, 0.1}}},
        {"overlap", {{0.0, 1.0, 0.1}, {0.5, 3.0, 0.1}}},
        {"not ascending", {{1.0, 2.0, 0.1}, {0.0, 1.0, 0.1}}},
        {"ten decimals", {{0.0, 1.0, 0.0000000001}}},
        {"a third", {{0.0, 1.0, 1.0 / 3.0}}},
        {"no number", {{0.0, std::nan(""), 0.1}}},
        {"infinite", {{0.0, HUGE_VAL, 0.1}}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        TEmbeddedSpreadTable table;
        EXPECT_FALSE(table.Load(row.bands));
        ASSERT_TRUE(table.Load(Bands));
        EXPECT_FALSE(table.Load(row.bands));
        EXPECT_EQ(table.MovePrice(0.25, 1), 0.255) << "the old bands stay";
    }
}

} // namespace
