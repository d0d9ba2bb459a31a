#include "embedded/BondPrices.h"

#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/MarketDataFormatter.h"

#include <limits>
#include <memory>

namespace quorin {
namespace {

constexpr StringView Bond = u"BOND64";  // of category 6, priced in 64ths
constexpr StringView Note = u"NOTE100"; // of category 7, priced in hundredths

// The services with two symbols that are priced like bonds.
class BondPricesTest : public TServicesFixture {
protected:
    BondPricesTest() {
        AddProduct(u"BND", 6, Bond, u"0.015625");
        AddProduct(u"NTE", 7, Note, u"0.01");
        Services().Deliver();
    }

    void SetForm(StringView form, StringView denominator) {
        SetConfig(ConfigKey::DenominatorModeValue, form);
        SetConfig(ConfigKey::BondPriceDenominator, denominator);
    }
    static String Price(Double value, StringView symbol = Bond,
                        TDisplayDataType kind = DisplayDataType::MarketPrice) {
        return TCustomFormatter::GetInstance()->FormatValue(value, kind, symbol, true, nullptr);
    }

private:
    void AddProduct(StringView series, Integer category, StringView symbol, StringView tick) {
        TEmbeddedMarketAdapter& market = Services().Market();
        EXPECT_TRUE(market.AddCategory({.CategoryID = category, .Names = {.Name = series}}));
        EXPECT_TRUE(market.AddSeries({.Code = series,
                                      .Exchange = u"SEHK",
                                      .CategoryID = category,
                                      .Names = {.Name = series}}));
        EXPECT_TRUE(market.AddSymbol({.Symbol = symbol,
                                      .Exchange = u"SEHK",
                                      .Series = series,
                                      .Names = {.Name = symbol},
                                      .TickSize = tick}));
    }
};

TEST_F(BondPricesTest, FormsOfAPrice) {
    struct TCase {
        const char* Name;
        StringView Denominator;
        Double Value;
        StringView Dash;
        StringView Blank;
        StringView Decimals;
    };
    const TCase cases[] = {
        {"64ths", u"64", 99.515625, u"99-33/64", u"99 33/64", u"99.515625"},
        {"32nds", u"32", 99.53125, u"99-17/32", u"99 17/32", u"99.531250"},
        {"16ths", u"16", 99.0625, u"99-1/16", u"99 1/16", u"99.062500"},
        {"eighths", u"8", 99.875, u"99-7/8", u"99 7/8", u"99.875000"},
        {"quarters", u"4", 99.25, u"99-1/4", u"99 1/4", u"99.250000"},
        {"halves", u"2", 99.5, u"99-1/2", u"99 1/2", u"99.500000"},
        {"not reduced", u"64", 99.5, u"99-32/64", u"99 32/64", u"99.500000"},
        {"whole", u"64", 100.0, u"100", u"100", u"100.000000"},
        {"nothing", u"64", 0.0, u"0", u"0", u"0.000000"},
        {"nothing, below zero", u"64", -0.0, u"0", u"0", u"0.000000"},
        {"below one", u"64", 0.515625, u"33/64", u"33/64", u"0.515625"},
        {"below zero", u"64", -99.515625, u"-99-33/64", u"-99 33/64", u"-99.515625"},
        {"whole below zero", u"64", -5.0, u"-5", u"-5", u"-5.000000"},
        {"fraction below zero", u"64", -0.015625, u"-1/64", u"-1/64", u"-0.015625"},
        {"large", u"2", 1234567.5, u"1234567-1/2", u"1234567 1/2", u"1234567.500000"},
        {"last before a whole", u"64", 99.984375, u"99-63/64", u"99 63/64", u"99.984375"},
        {"noise below a whole", u"64", 99.9999999999, u"100", u"100", u"100.000000"},
        {"between two 32nds", u"32", 99.515625, u"99.515625", u"99.515625", u"99.515625"},
        {"between two 64ths", u"64", 99.52, u"99.520000", u"99.520000", u"99.520000"},
        {"just beside a 64th", u"64", 99.515626, u"99.515626", u"99.515626", u"99.515626"},
    };
    for (const TCase& row : cases) {
        SetForm(u"1", row.Denominator);
        EXPECT_EQ(Price(row.Value), row.Dash) << row.Name;
        SetForm(u"2", row.Denominator);
        EXPECT_EQ(Price(row.Value), row.Blank) << row.Name;
        for (const StringView decimal : {u"", u"0", u"3", u"-1", u"dash"}) {
            SetForm(decimal, row.Denominator);
            EXPECT_EQ(Price(row.Value), row.Decimals) << row.Name << ToUtf8(decimal);
        }
    }
}

TEST_F(BondPricesTest, OnlyFractionsOfBondsCount) {
    for (const StringView denominator : {u"", u"-1", u"0", u"1", u"3", u"10", u"128", u"half"}) {
        SetForm(u"1", denominator);
        EXPECT_EQ(Price(99.5), u"99.500000") << ToUtf8(denominator);
    }
}

TEST_F(BondPricesTest, WhatIsABond) {
    struct TCase {
        const char* Name;
        StringView Categories;
        StringView BondText;
        StringView NoteText;
    };
    const TCase cases[] = {
        {"by default", u"", u"99-1/2", u"99.50"},
        {"another category", u"7", u"99.500000", u"99-1/2"},
        {"both, with blanks and rubbish", u" 7, x,,6 ", u"99-1/2", u"99-1/2"},
        {"none", u"none", u"99.500000", u"99.50"},
    };
    SetForm(u"1", u"2");
    for (const TCase& row : cases) {
        SetConfig(BondCategoriesKey, row.Categories);
        EXPECT_EQ(Price(99.5, Bond), row.BondText) << row.Name;
        EXPECT_EQ(Price(99.5, Note), row.NoteText) << row.Name;
    }
    EXPECT_EQ(Price(99.5, u"00700"), u"99.50") << "a share";
    EXPECT_EQ(Price(99.5, u"NONE"), u"99.50") << "an unknown symbol";
    EXPECT_EQ(Price(99.5, u""), u"99.50") << "no symbol";
}

TEST_F(BondPricesTest, OnlyPricesAreShownInFractions) {
    SetForm(u"1", u"64");
    SetConfig(BondCategoriesKey, u"6");
    for (TDisplayDataType kind = 0; kind < 10; ++kind) {
        const bool isPrice =
            kind == DisplayDataType::AveragePrice || kind == DisplayDataType::MarketPrice;
        EXPECT_EQ(Price(99.515625, Bond, kind) == u"99-33/64", isPrice) << +kind;
    }
    EXPECT_EQ(Price(99.51, Bond, DisplayDataType::AveragePrice), u"99.51")
        << "a worked-out price between two fractions";
    SetConfig(ConfigKey::DefaultPrecision, u"2");
    EXPECT_EQ(Price(99.515625, Bond, DisplayDataType::AveragePrice), u"99-33/64");
    EXPECT_EQ(Price(99.517, Bond, DisplayDataType::AveragePrice), u"99.52");
}

TEST_F(BondPricesTest, NoNumberAndNumbersTooLargeAreWrittenAsEverywhere) {
    constexpr Double infinity = std::numeric_limits<Double>::infinity();
    SetForm(u"1", u"64");
    EXPECT_EQ(Price(infinity), u"INF");
    EXPECT_EQ(Price(-infinity), u"-INF");
    EXPECT_EQ(Price(std::numeric_limits<Double>::quiet_NaN()), u"NAN");
    EXPECT_EQ(Price(1e18), u"1000000000000000000.000000");
}

TEST_F(BondPricesTest, MarketViewShowsTheSameForm) {
    const TCustomMarketDataFormatter& market = *TCustomMarketDataFormatter::GetInstance();
    SetField(Bond, Field::LastPrice, 99.515625);
    SetForm(u"2", u"64");
    String text;
    EXPECT_TRUE(market.FormatPrice(Bond, Field::LastPrice, text));
    EXPECT_EQ(text, u"99 33/64");
    SetForm(u"0", u"64");
    EXPECT_TRUE(market.FormatPrice(Bond, Field::LastPrice, text));
    EXPECT_EQ(text, u"99.515625");
}

} // namespace
} // namespace quorin
