#include "tests/viewdata/PositionFixture.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using TPositionColumnValuesTest = TPositionTest;

// Writes one text for every value.
class TFixedFormatter : public TSpyFormatter {
public:
    String FormatValue(Double, TDisplayDataType, StringView, Boolean, Pointer) const override {
        return Text;
    }
    String Text;
};

// Every figure has a value of its own.
constexpr StringView Filled =
    u"qty=300 start=200 sqty=20 sstart=7 buy=11 paid=1200 sell=13 got=1300 pbuy=17 psell=19 "
    u"out=23 in=29 cover=31 at=7.5 nominal=61 close=63 init=1000 "
    u"real=100 exe=10 fifn=41 mixed=43 avgin=47 held=53 pheld=59";

TEST_F(TPositionColumnValuesTest, EveryColumn) {
    SetField(u"00700", Field::LastPrice, 10.0);
    SetField(u"00700", Field::PreviousClose, 8.0);
    SetField(u"00700", Field::Exchange, u"XEX"); // the market record goes first
    SetField(u"00700", Field::Currency, u"XXX");
    Hold(u"A1", u"00700", Filled, &Item(u"00700"));
    Deliver();
    Show(u"A1");
    SpyOnFormatter();
    constexpr struct {
        Integer Attribute;
        StringView Cell;
    } cases[] = {
        {0, u"'00700'"},      {3, u"10 8/$/T"},     {4, u"300 4/$/T"},    {10, u"'A1'"},
        {20, u"'Hong Kong'"}, {21, u"'Tencent'"},   {23, u"'HKD'"},       {29, u"''"},
        {31, u"8 8/$/T"},     {35, u"281 4/$/T"},   {42, u"43 2/$/T"},    {95, u"280 4/$/T"},
        {189, u"100 3/$/F"},  {405, u"2800 3/$/F"}, {406, u"2800 3/$/F"}, {446, u"910 3/$/F"},
        {470, u"#0 | --"},    {479, u"11 4/$/T"},   {480, u"13 4/$/T"},   {482, u"19 4/$/T"},
        {607, u"1010 3/$/F"}, {1105, u"31 4/$/T"},  {1302, u"6 4/$/T"},   {9014, u"200 4/$/T"},
        {1, u"''"},           {604, u"''"},         {100003, u"''"},      {2147483647, u"''"},
        {-1, u"'' | --"},
    };
    for (const auto& row : cases) EXPECT_EQ(Cell(0, row.Attribute), row.Cell) << row.Attribute;
    for (const Integer row : {-1, 1, 2147483647}) {
        for (const Integer attribute : {0, 4, 21, 1, -1}) {
            EXPECT_EQ(Cell(row, attribute), u"'' | --") << row << ", " << attribute;
        }
    }
    List->FDataDictionary.Clear();
    EXPECT_EQ(Cell(0, 0), u"'' | --") << "a row without a record";
    Hold(u"A1", u"00700", 0.0);
    Show({});
}

TEST_F(TPositionColumnValuesTest, QuantitiesAndTheirBorders) {
    SpyOnFormatter();
    constexpr struct {
        const char* Name;
        Integer Attribute;
        StringView Figures, Cell;
    } cases[] = {
        {"long, below the tolerance", 4, u"qty=5e-8", u"5E-8 4/$/T"},
        {"long of a net short", 4, u"qty=-300", u"#0 | --"},
        {"long record", 4, u"long qty=300", u"300 | --"},
        {"long record below 0", 4, u"long qty=-300", u"-300 | --"},
        {"long record at it", 4, u"long qty=1e-7", u"#0 | --"},
        {"long record above it", 4, u"long qty=2e-7", u"2E-7 | --"},
        {"long of a short record", 4, u"short qty=300", u"#0 | --"},
        {"net short", 470, u"qty=-300", u"300 4/$/T"},
        {"net short, below the tolerance", 470, u"qty=-5e-8", u"5E-8 4/$/T"},
        {"short record", 470, u"short qty=300", u"300 | --"},
        {"short record below 0", 470, u"short qty=-300", u"-300 | --"},
        {"short record at it", 470, u"short qty=-1e-7", u"#0 | --"},
        {"short record above it", 470, u"short qty=2e-7", u"2E-7 | --"},
        {"short of a long record", 470, u"long qty=300", u"#0 | --"},
        {"net below the tolerance", 95, u"qty=5e-8", u"5E-8 | --"},
        {"net at it", 95, u"qty=1e-7", u"1E-7 | --"},
        {"net above it", 95, u"qty=2e-7", u"2E-7 4/$/T"},
        {"net minus it", 95, u"qty=-1e-7", u"-1E-7 | --"},
        {"net below minus it", 95, u"qty=-2e-7", u"-2E-7 4/$/T"},
        {"net 0", 95, u"qty=20 sqty=20", u"0 | --"},
        {"available 0", 35, u"qty=20 psell=20", u"0 | --"},
        {"available below 0", 35, u"qty=1 psell=3", u"-2 4/$/T"},
        {"bought, at it", 479, u"qty=1 buy=1e-7", u"1E-7 | --"},
        {"bought, above it", 479, u"qty=1 buy=2e-7", u"2E-7 4/$/T"},
        {"bought, below 0", 479, u"qty=1 buy=-5", u"-5 | --"},
        {"sold, at it", 480, u"qty=1 sell=1e-7", u"1E-7 | --"},
        {"sold, below 0", 480, u"qty=1 sell=-5", u"-5 | --"},
        {"pending, at it", 482, u"qty=1 psell=1e-7", u"1E-7 | --"},
        {"pending, below 0", 482, u"qty=1 psell=-5", u"-5 4/$/T"},
        {"covered alone", 1105, u"qty=1 cover=31", u"31 | --"},
        {"covered, start below 0", 1105, u"qty=1 start=-5 cover=31", u"31 4/$/T"},
        {"covered, start at it", 1105, u"qty=1 start=1e-7 cover=31", u"31 | --"},
        {"covered, bought", 1105, u"qty=1 buy=1 cover=-31", u"-31 4/$/T"},
        {"covered, bought below 0", 1105, u"qty=1 buy=-1 cover=31", u"31 | --"},
        {"covered, sold", 1105, u"qty=1 sell=1 cover=31", u"31 4/$/T"},
        {"covered at it", 1105, u"qty=1 start=5 cover=1e-7", u"1E-7 | --"},
        {"moved in and out", 1302, u"qty=1 out=5 in=5", u"0 4/$/T"},
        {"moved out", 1302, u"qty=1 out=5", u"-5 4/$/T"},
        {"not moved", 1302, u"qty=1", u"0 | --"},
        {"moved in below 0", 1302, u"qty=1 in=-5", u"-5 | --"},
        {"start 0", 9014, u"qty=1", u"0 | --"},
        {"start at it", 9014, u"qty=1 start=-1e-7", u"-1E-7 | --"},
        {"start below 0", 9014, u"qty=1 start=-5", u"-5 4/$/T"},
        {"start of a short", 9014, u"short qty=1 start=5", u"5 4/$/T"},
        {"average 0", 42, u"qty=1", u"0 2/$/T"},
        {"realised 0", 189, u"qty=1", u"0 3/$/F"},
        {"unrealised 0", 446, u"qty=1", u"0 3/$/F"},
        {"total 0", 607, u"qty=1", u"0 3/$/F"},
        {"no last price", 3, u"qty=1", u"#0 | --"},
        {"no market value", 405, u"qty=1", u"#0 | --"},
        {"none to convert", 406, u"qty=1", u"#0 | --"},
    };
    for (const auto& row : cases) {
        Hold(u"A1", u"00700", row.Figures);
        Show(u"A1");
        EXPECT_EQ(Cell(0, row.Attribute), row.Cell) << row.Name;
    }
    SetConfig(ConfigKey::ShowNegForShortPos, u"1");
    EXPECT_EQ(Cell(0, 9014), u"0 | --");
    Hold(u"A1", u"00700", u"short qty=1 start=5");
    EXPECT_EQ(Cell(0, 9014), u"5 4/$/T") << "read by a new list only";
    MakeList();
    Show(u"A1");
    EXPECT_EQ(Cell(0, 9014), u"5 | -5 4/$/T");
    for (const StringView figures : {u"qty=1 start=5", u"long qty=1 start=5"}) {
        Hold(u"A1", u"00700", figures);
        EXPECT_EQ(Cell(0, 9014), u"5 4/$/T");
    }
}

TEST_F(TPositionColumnValuesTest, AveragePriceByMode) {
    Hold(u"A1", u"00700", Filled);
    Show(u"A1");
    SpyOnFormatter();
    constexpr struct {
        StringView Mode, Cell;
    } cases[] = {{u"1", u"47 2/$/T"},
                 {u"2", u"41 2/$/T"},
                 {u"0", u"43 2/$/T"},
                 {u"7", u"43 2/$/T"},
                 {u"-1", u"43 2/$/T"}};
    for (const auto& row : cases) {
        SetConfig(ConfigKey::PVAvgPriceMode, row.Mode);
        EXPECT_EQ(Cell(0, 42), row.Cell) << ToUtf8(row.Mode);
    }
}

// Z is no known symbol, TCHC is one; each with a ticker in some state, or without.
TEST_F(TPositionColumnValuesTest, TickerAndMarketRecord) {
    Services().Market().AddSymbol({.Symbol = u"TCHC6",
                                   .Exchange = u"HKFE",
                                   .Series = u"TCH",
                                   .ProductType = ProductType::Options,
                                   .ExpiryMonth = u"202606"});
    TEmbeddedSubItem& item = Item(u"TICKER");
    constexpr Integer none = -1;
    constexpr struct {
        const char* Name;
        StringView Symbol;
        Integer Status; // none: no ticker
        bool HasFields;
        StringView Last, Exchange, Name21, Currency, Expiry, Close;
    } cases[] = {
        {"both, live", u"TCHC6", 1, true, u"12 8/$/T", u"'HKFE'", u"'TCHC6'", u"'HKD'", u"'202609'",
         u"11 8/$/T"},
        {"both, live and empty", u"TCHC6", 1, false, u"0 | --", u"'HKFE'", u"'TCHC6'", u"'HKD'",
         u"''", u"0 | --"},
        {"both, waiting", u"TCHC6", 0, true, u"#0 | --", u"'HKFE'", u"'TCHC6'", u"'HKD'",
         u"'202606'", u"#0 | --"},
        {"both, no data", u"TCHC6", 2, true, u"#0 | --", u"'HKFE'", u"'TCHC6'", u"'HKD'",
         u"'202606'", u"#0 | --"},
        {"record", u"TCHC6", none, true, u"#0 | --", u"'HKFE'", u"'TCHC6'", u"'HKD'", u"'202606'",
         u"#0 | --"},
        {"ticker, live", u"Z", 1, true, u"12 8/$/T", u"'XEX'", u"'Z'", u"'XXX'", u"'202609'",
         u"11 8/$/T"},
        {"ticker, live and empty", u"Z", 1, false, u"0 | --", u"''", u"'Z'", u"''", u"''",
         u"0 | --"},
        {"ticker, waiting", u"Z", 0, true, u"#0 | --", u"''", u"'Z'", u"''", u"''", u"#0 | --"},
        {"ticker, no data", u"Z", 2, true, u"#0 | --", u"''", u"'Z'", u"''", u"''", u"#0 | --"},
        {"neither", u"Z", none, true, u"#0 | --", u"''", u"'Z'", u"''", u"''", u"#0 | --"},
    };
    Services().Language().SetText(TAppLanguage::English, u"Exchange", u"HKFE", u"HKFE");
    SpyOnFormatter();
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        for (const Integer field : {3, 20, 23, 29, 31}) item.ClearField(field);
        if (row.HasFields) {
            item.SetField(Field::LastPrice, 12.0);
            item.SetField(Field::PreviousClose, 11.0);
            item.SetField(Field::Exchange, u"XEX");
            item.SetField(Field::Currency, u"XXX");
            item.SetField(Field::Expiry, u"202609");
        }
        item.SetStatus(row.Status);
        Hold(u"A2", row.Symbol, u"qty=1", row.Status == none ? nullptr : &item);
        Show(u"A2");
        EXPECT_EQ(Cell(0, 3), row.Last);
        EXPECT_EQ(Cell(0, 20), row.Exchange);
        EXPECT_EQ(Cell(0, 21), row.Name21);
        EXPECT_EQ(Cell(0, 23), row.Currency);
        EXPECT_EQ(Cell(0, 29), row.Expiry);
        EXPECT_EQ(Cell(0, 31), row.Close);
        Hold(u"A2", row.Symbol, 0.0);
    }
}

TEST_F(TPositionColumnValuesTest, TheEmptyCodeIsTranslatedAsWell) {
    TEmbeddedLanguageManager& language = Services().Language();
    language.SetText(TAppLanguage::English, u"Exchange", u"", u"nowhere");
    language.SetText(TAppLanguage::English, u"Currency", u"", u"nothing");
    Hold(u"A1", u"Z", 1.0);
    Show(u"A1");
    EXPECT_EQ(Cell(0, 20), u"'nowhere'");
    EXPECT_EQ(Cell(0, 23), u"'nothing'");
}

TEST_F(TPositionColumnValuesTest, ConvertedMarketValue) {
    TEmbeddedCurrencyAdapter& currencies = Services().Currencies();
    currencies.FeedRatio(u"CNY", 2.0);
    currencies.FeedRatio(u"USD", 8.0);
    for (const StringView symbol : {u"AU12", u"Z"}) SetField(symbol, Field::LastPrice, 10.0);
    TEmbeddedSubItem& ticker = Item(u"TICKER");
    ticker.SetStatus(ItemStatus::Ready);
    ticker.SetField(Field::Currency, u"CNY");
    Deliver();
    SpyOnFormatter();
    const struct {
        const char* Name;
        StringView Symbol, Target;
        TCustomSubItem* Ticker;
        Double SourceRatio;
        StringView Plain, Converted;
    } cases[] = {
        {"converted", u"AU12", u"USD", nullptr, 2.0, u"40000 3/$/F", u"10000 3/$/F"},
        {"no target", u"AU12", u"", nullptr, 2.0, u"40000 3/$/F", u"40000 3/$/F"},
        {"target without a ratio", u"AU12", u"EUR", nullptr, 2.0, u"40000 3/$/F",
         u"40000 | 80000 3/$/F"},
        {"to its own", u"AU12", u"CNY", nullptr, 2.0, u"40000 3/$/F", u"40000 3/$/F"},
        {"own without a ratio", u"AU12", u"USD", nullptr, 0.0, u"40000 3/$/F", u"0 3/$/F"},
        {"no currency", u"Z", u"USD", nullptr, 2.0, u"40 3/$/F", u"5 3/$/F"},
        {"no currency, no ratio", u"Z", u"EUR", nullptr, 2.0, u"40 3/$/F", u"40 3/$/F"},
        {"currency of the ticker", u"Z", u"USD", &ticker, 2.0, u"40 3/$/F", u"10 3/$/F"},
        {"no price", u"HSIF", u"USD", nullptr, 2.0, u"#0 | --", u"#0 | --"},
    };
    for (const auto& row : cases) {
        currencies.FeedRatio(u"CNY", row.SourceRatio);
        Hold(u"A1", row.Symbol, u"qty=6 sqty=2", row.Ticker);
        Show(u"A1");
        List->SetConvertCurrency(row.Target);
        EXPECT_EQ(Cell(0, 405), row.Plain) << row.Name;
        EXPECT_EQ(Cell(0, 406), row.Converted) << row.Name;
        Hold(u"A1", row.Symbol, 0.0);
    }
}

TEST_F(TPositionColumnValuesTest, AmountsRoundAsTheyAreShown) {
    Hold(u"A1", u"00700", u"qty=1 init=-1000 real=1234567.894 exe=0.126");
    Show(u"A1");
    EXPECT_EQ(Cell(0, 189), u"1234567.89 | 1,234,567.89");
    EXPECT_EQ(Cell(0, 607), u"-999.87");
    EXPECT_EQ(Cell(0, 446), u"-1235567.77 | -1,235,567.77");
    const auto formatter = std::make_unique<TFixedFormatter>();
    ServiceRegistry::Install(formatter.get());
    constexpr struct {
        StringView Text, Cell;
    } cases[] = {{u"1,2,3.50", u"123.5 | 1,2,3.50"},
                 {u"$5", u"1234567.894 | $5"},
                 {u"5 x", u"1234567.894 | 5 x"},
                 {u",", u"1234567.894 | ,"},
                 {u"-0.00", u"0 | -0.00"}};
    for (const auto& row : cases) {
        formatter->Text = row.Text;
        EXPECT_EQ(Cell(0, 189), row.Cell) << ToUtf8(row.Text);
    }
}

} // namespace
} // namespace quorin
