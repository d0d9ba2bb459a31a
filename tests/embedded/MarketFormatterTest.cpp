#include "embedded/MarketFormatterService.h"

#include "tests/support/ServicesFixture.h"
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
        {"moved by less than shows", 100.001, 100.0, u"0.0", u"0.00%"},
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
