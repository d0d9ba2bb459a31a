#include "embedded/MarketFormatterService.h"

#include "embedded/BondPrices.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"

namespace quorin {
namespace {

const String Untouched = u"-";

class MarketFormatterTest : public TServicesFixture {
protected:
    static TCustomMarketDataFormatter& Formatter() {
        return *TCustomMarketDataFormatter::GetInstance();
    }
    // What a cell shows whose empty text is Untouched.
    static String Price(StringView symbol, Integer field) {
        String text = Untouched;
        const bool shown = Formatter().FormatPrice(symbol, field, text);
        EXPECT_EQ(shown, text != Untouched);
        return text;
    }
    static String Volume(StringView symbol, Integer field) {
        String text = Untouched;
        const bool shown = Formatter().FormatVolume(symbol, field, text);
        EXPECT_EQ(shown, text != Untouched);
        return text;
    }
};

TEST_F(MarketFormatterTest, Prices) {
    EXPECT_EQ(Price(u"00700", Field::LastPrice), Untouched) << "no quote yet";
    EXPECT_EQ(Price(u"NONE", Field::LastPrice), Untouched) << "unknown symbol";
    EXPECT_EQ(Price(u"", Field::LastPrice), Untouched) << "no symbol";
    SetField(u"00700", Field::LastPrice, 350.2);
    EXPECT_EQ(Price(u"00700", Field::LastPrice), u"350.2");
    SetField(u"00700", Field::LastPrice, 9.5);
    EXPECT_EQ(Price(u"00700", Field::LastPrice), u"9.50") << "another band";
    SetField(u"00700", Field::LastPrice, 0.0);
    EXPECT_EQ(Price(u"00700", Field::LastPrice), Untouched) << "0 is no price";
    SetField(u"00700", Field::LastPrice, StringView());
    EXPECT_EQ(Price(u"00700", Field::LastPrice), Untouched) << "empty";
    SetField(u"HSIF", Field::LastPrice, -3.0);
    EXPECT_EQ(Price(u"HSIF", Field::LastPrice), u"-3") << "below zero is a price";
}

// The published steps of Hong Kong's shares, border by border, and those of futures and bonds.
TEST_F(MarketFormatterTest, DecimalsOfTheStepInForce) {
    static constexpr TSpreadBand bands[] = {
        {0.01, 0.25, 0.001},   {0.25, 0.5, 0.005},    {0.5, 10.0, 0.01},     {10.0, 20.0, 0.02},
        {20.0, 100.0, 0.05},   {100.0, 200.0, 0.1},   {200.0, 500.0, 0.2},   {500.0, 1000.0, 0.5},
        {1000.0, 2000.0, 1.0}, {2000.0, 5000.0, 2.0}, {5000.0, 9995.0, 5.0},
    };
    TEmbeddedMarketAdapter& market = Services().Market();
    ASSERT_TRUE(market.AddSpreadTable(u"BANDS", bands));
    ASSERT_TRUE(market.AddSymbol(
        {.Symbol = u"BANDED", .Exchange = u"SEHK", .Series = u"MAIN", .SpreadCode = u"BANDS"}));
    struct TCase {
        const char* Name;
        StringView TickSize; // of a symbol without a table; empty for the one with it
        Double Price;
        StringView Text;
    };
    const TCase cases[] = {
        {"lowest price", u"", 0.01, u"0.010"},
        {"below the table", u"", 0.0005, u"0.0005"},
        {"off the ticks", u"", 5002.5, u"5002.5"},
        {"off the ticks, finer", u"", 7.655, u"7.655"},
        {"off the ticks, the finest", u"", 7.000000004, u"7.00"},
        {"a large price, worked out", u"", 123456789.1 * 3.0, u"370370367.3"},
        {"first of 0.005", u"", 0.25, u"0.250"},
        {"first of 0.005, worked out", u"", 0.1 + 0.15, u"0.250"},
        {"first of 0.01", u"", 0.5, u"0.50"},
        {"first of 0.1", u"", 100.0, u"100.0"},
        {"first of 0.1, worked out", u"", 33.3 + 66.7, u"100.0"},
        {"first of 1", u"", 1000.0, u"1000"},
        {"in 5", u"", 5005.0, u"5005"},
        {"above the table", u"", 12000.0, u"12000"},
        {"a step of 10", u"10", 78450.0, u"78450"},
        {"a step of 0.5", u"0.5", 1234.5, u"1234.5"},
        {"a step of 0.25", u"0.25", 4321.5, u"4321.50"},
        {"a step of 1/32", u"0.03125", 99.5, u"99.50000"},
        {"a step of 0", u"0", 99.125, u"99.125"},
        {"a step below zero", u"-1", 99.0, u"99.00"},
        {"no number as a step", u"one", 99.0, u"99.00"},
        {"a spread below zero", u"1", -118.0, u"-118"},
    };
    for (const TCase& row : cases) {
        const StringView symbol = row.TickSize.empty() ? u"BANDED" : u"HSIF";
        if (!row.TickSize.empty()) SetField(symbol, Field::TickSize, row.TickSize);
        SetField(symbol, Field::LastPrice, row.Price);
        EXPECT_EQ(Price(symbol, Field::LastPrice), row.Text) << row.Name;
    }
}

TEST_F(MarketFormatterTest, PricesTakeNoMemoryButTheirText) {
    struct TCase {
        const char* Name;
        StringView Symbol;
        Double Price;
        std::size_t Allocations; // what a text of that length needs
    };
    SetConfig(ConfigKey::DenominatorModeValue, u"1");
    SetConfig(ConfigKey::BondPriceDenominator, u"64");
    SetConfig(BondCategoriesKey, u"2"); // index futures, here
    const TCase cases[] = {
        {"of a table", u"00700", 350.2, 0},
        {"of a tick size, as a whole bond price", u"HSIF", 26000.0, 0},
        {"a fraction", u"HSIF", 9.015625, 0},
        {"a longer fraction", u"HSIF", 99.515625, 1},
        {"of no known step", u"NONE", 1.125, 0},
    };
    for (const TCase& row : cases) {
        SetField(row.Symbol, Field::LastPrice, row.Price);
        Price(row.Symbol, Field::LastPrice);
        String text;
        const std::size_t before = AllocationCount();
        Formatter().FormatPrice(row.Symbol, Field::LastPrice, text);
        EXPECT_EQ(AllocationCount() - before, row.Allocations) << row.Name << ToUtf8(text);
    }
}

TEST_F(MarketFormatterTest, Volumes) {
    EXPECT_EQ(Volume(u"00700", Field::Volume), Untouched);
    SetField(u"00700", Field::Volume, 1234567.0);
    EXPECT_EQ(Volume(u"00700", Field::Volume), u"1,234,567");
    SetField(u"00700", Field::Volume, 0.0);
    EXPECT_EQ(Volume(u"00700", Field::Volume), u"0");
    SetField(u"00700", Field::Volume, StringView());
    EXPECT_EQ(Volume(u"00700", Field::Volume), Untouched);
}

TEST_F(MarketFormatterTest, Change) {
    struct TCase {
        const char* Name;
        Double LastPrice;
        Double PreviousClose;
        StringView Change;
        StringView Percent;
    };
    const TCase cases[] = {
        {"up", 102.5, 100.0, u"+2.5", u"+2.50%"},
        {"down", 99.95, 100.0, u"-0.05", u"-0.05%"},
        {"unmoved", 100.0, 100.0, u"0.0", u"0.00%"},
        {"off the ticks", 100.001, 100.0, u"+0.001", u"0.00%"},
        {"moved by less than shows", 100.000000001, 100.0, u"0.0", u"0.00%"},
        {"across a border, finer decimals", 100.0, 99.95, u"+0.05", u"+0.05%"},
        {"previous close below zero", 1.0, -2.0, u"+3.00", u"+150.00%"},
        {"no last price", 0.0, 100.0, Untouched, Untouched},
        {"no previous close", 100.0, 0.0, Untouched, Untouched},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        SetField(u"00700", Field::LastPrice, row.LastPrice);
        SetField(u"00700", Field::PreviousClose, row.PreviousClose);
        const bool isShown = row.Change != Untouched;
        String text = Untouched;
        EXPECT_EQ(Formatter().GetAttribute48Text(u"00700", text), isShown);
        EXPECT_EQ(text, row.Change);
        text = Untouched;
        EXPECT_EQ(Formatter().GetAttribute130Text(u"00700", text), isShown);
        EXPECT_EQ(text, row.Percent);
    }
}

TEST_F(MarketFormatterTest, ChangeValuesStayWithoutBothPrices) {
    Double change = 0.0;
    Double percent = 0.0;
    SetField(u"00700", Field::LastPrice, 90.0);
    Formatter().GetAttribute48Value(u"00700", change);
    Formatter().GetAttribute130Value(u"00700", percent);
    EXPECT_EQ(change, 0.0);
    EXPECT_EQ(percent, 0.0);
    SetField(u"00700", Field::PreviousClose, 80.0);
    Formatter().GetAttribute48Value(u"00700", change);
    Formatter().GetAttribute130Value(u"00700", percent);
    EXPECT_EQ(change, 10.0);
    EXPECT_EQ(percent, 12.5);
}

TEST_F(MarketFormatterTest, NamesOfDataTypes) {
    struct TCase {
        StringView Name;
        TDisplayDataType DataType;
    };
    const TCase cases[] = {
        {u"price", DisplayDataType::MarketPrice}, {u"Amount", DisplayDataType::Amount},
        {u"QTY", DisplayDataType::Quantity},      {u"ratio", DisplayDataType::Ratio},
        {u"percent", DisplayDataType::Percent},   {u"integer", DisplayDataType::Whole},
        {u"", DisplayDataType::Amount},           {u"prices", DisplayDataType::Amount},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(GetDataType(row.Name), row.DataType) << ToUtf8(row.Name);
    }
}

} // namespace
} // namespace quorin
