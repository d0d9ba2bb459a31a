#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "tests/viewdata/MarketFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace quorin {

void PrintTo(const Variant& value, std::ostream* stream) {
    *stream << "kind " << static_cast<int>(value.Kind()) << ", " << ToUtf8(value.ToText());
}

namespace {

enum TRow : Integer { Stock, Future, Option, Foreign, Ghost };

constexpr Integer AllColumns[] = {0,  1,  2,  3,  4,  5,  16, 17,  19,  20,  21,  23, 27,
                                  28, 29, 31, 32, 33, 37, 48, 130, 133, 141, 470, 604};

// Favourites 00700, HSIF, TCHC, Z12 and GHOST, the last one without a record, and the account A1.
struct TMarketColumnValuesTest : TMarketTest {
    TMarketColumnValuesTest() {
        Control->SetAccount(u"A1");
        LoadFavorites({u"00700", u"HSIF", u"TCHC", u"Z12", u"GHOST"});
    }
    String Row(Integer row) {
        String text;
        for (const Integer column : AllColumns) {
            if (!text.empty()) text += u" | ";
            text += Control->GetDisplayValue(row, column);
        }
        return text;
    }
    // Numbers of fields, "1=350.2,2=350.4".
    void Quote(StringView symbol, StringView fields) {
        for (const StringView field : Split(fields, u',')) {
            const std::size_t sign = field.find(u'=');
            SetField(symbol, ToIntegerOr(field.substr(0, sign), -1),
                     ToDoubleOr(field.substr(sign + 1), -1.0));
        }
    }
    // The value and the text of a cell are these.
    void ExpectCell(Integer row, Integer column, const Variant& value, StringView text) {
        EXPECT_EQ(Control->GetValue(row, column), value);
        EXPECT_EQ(Control->GetDisplayValue(row, column), text);
    }
};

TEST_F(TMarketColumnValuesTest, WholeRows) {
    EXPECT_EQ(Row(Ghost), u"GHOST | -- | -- | -- | -- |  | -- | -- | -- |  | GHOST |  | -- |  |  | "
                          u"-- | -- |  | -- | -- | -- | -- |  | -- | --");
    EXPECT_EQ(Row(Future), u"HSIF | -- | -- | -- | -- | Continuous trading | -- | -- | -- | "
                           u"Hong Kong Futures | Hang Seng future | HKD | -- |  |  | "
                           u"-- | -- |  | -- | -- | -- | -- | Hang Seng | -- | --");
    Quote(u"00700", u"1=350.2,2=350.4,3=352,16=500,17=1234567,19=0,31=350,32=353,37=349.6,133=351");
    SetField(u"00700", 33, u"ex div");
    Services().Positions().FeedPosition(u"A1", u"00700", {.Quantity = 1200.0});
    Services().Positions().FeedPosition(u"A2", u"00700", {.Quantity = 9.0});
    EXPECT_EQ(Row(Stock), u"00700 | 350.2 | 350.4 | 352.0 | 1,200 | Continuous trading | 500 | "
                          u"1,234,567 | 0 | Hong Kong | Tencent | HKD | -- |  |  | 350.0 | 353.0 | "
                          u"ex div | 349.6 | +2.0 | +0.57% | 351.0 | Main board | -- | --");
    Quote(u"TCHC", u"3=12.5,31=13");
    Services().Positions().FeedPosition(u"A1", u"TCHC", {.Quantity = -3.0});
    EXPECT_EQ(Row(Option), u"TCHC | -- | -- | 12.50 | -- | Continuous trading | -- | -- | -- | "
                           u"Hong Kong Futures | Tencent 350 call | HKD | 350.00 | Call |  | 13.00 "
                           u"| -- |  | -- | -0.50 | -3.85% | -- | Tencent options | 3 | --");
}

TEST_F(TMarketColumnValuesTest, ValuesKeepTheirKinds) {
    const Variant none = Variant::EmptyText();
    const struct {
        const char* Name;
        Integer Row, Column;
        Variant Value;
        String Text;
    } cases[] = {
        {"bid", Stock, 1, 350.2, u"350.2"},
        {"bid that has not arrived", Ghost, 1, 0.0, u"--"},
        {"quantity that is 0", Stock, 19, 0.0, u"0"},
        {"quantity that is not there", Ghost, 19, 0.0, u"--"},
        {"name of an unknown symbol", Ghost, 21, u"GHOST", u"GHOST"},
        {"strike of an option", Option, 27, 350.0, u"350.00"},
        {"strike of a future", Future, 27, 20000.0, u"--"},
        {"strike without a record", Ghost, 27, 7.5, u"--"},
        {"no remark", Stock, 33, none, u""},
        {"remark", Ghost, 33, u"note", u"note"},
        {"change", Stock, 48, 352.0 - 350.0, u"+2.0"},
        {"no change to tell", Ghost, 48, 0.0, u"--"},
        {"change in percent", Stock, 130, 2.0 / 350.0 * 100.0, u"+0.57%"},
        {"no percentage to tell", Ghost, 130, 0.0, u"--"},
        {"no margin", Stock, 604, 0.0, u"--"},
        {"no position", Stock, 4, 0.0, u"--"},
        {"unlisted", Stock, 10, none, u""},
        {"last before the custom columns", Stock, 99999, none, u""},
        {"negative column", Stock, -1, none, u"--"},
        {"negative row", -1, 0, none, u"--"},
        {"row behind the last", 5, 0, none, u"--"},
    };
    Quote(u"00700", u"1=350.2,3=352,19=0,31=350");
    Quote(u"HSIF", u"27=20000");
    Quote(u"GHOST", u"27=7.5");
    SetField(u"GHOST", 33, u"note");
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        ExpectCell(row.Row, row.Column, row.Value, row.Text);
    }
}

TEST_F(TMarketColumnValuesTest, PositionsBelowTheToleranceAreFlat) {
    constexpr Double tolerance = 1e-7;
    const Double above = std::nextafter(tolerance, 1.0);
    const struct {
        const char* Name;
        Double Quantity, Long, Short;
        String LongText, ShortText;
    } cases[] = {
        {"closed", 0.0, 0.0, 0.0, u"--", u"--"},
        {"far below", 1e-8, 0.0, 0.0, u"--", u"--"},
        {"border", tolerance, 0.0, 0.0, u"--", u"--"},
        {"just above", above, above, 0.0, u"0", u"--"},
        {"long", 2500.5, 2500.5, 0.0, u"2,500.5", u"--"},
        {"short, border", -tolerance, 0.0, 0.0, u"--", u"--"},
        {"short, just above", -above, 0.0, above, u"--", u"0"},
        {"short", -7.0, 0.0, 7.0, u"--", u"7"},
    };
    SetConfig(ConfigKey::QtyPrecision, u"2"); // and drops the zeros at the end
    for (const bool shown : {false, true}) {  // which the columns do not ask
        Control->SetShowPosition(shown);
        for (const auto& row : cases) {
            SCOPED_TRACE(row.Name);
            Services().Positions().FeedPosition(u"A1", u"HSIF", {.Quantity = row.Quantity});
            ExpectCell(Future, 4, row.Long, row.LongText);
            ExpectCell(Future, 470, row.Short, row.ShortText);
        }
    }
    Control->SetAccount(u"A2");
    ExpectCell(Future, 470, 0.0, u"--");
}

TEST_F(TMarketColumnValuesTest, TranslatesCodesOrShowsThem) {
    const struct {
        const char* Name;
        Integer Row, Column;
        Integer Field; // of the item; below 0 for none
        String Set, Text;
    } cases[] = {
        {"exchange of the record", Stock, 20, 20, u"CME", u"Hong Kong"},
        {"exchange without an entry", Foreign, 20, -1, u"", u"QEX"},
        {"exchange of the item", Ghost, 20, 20, u"SGX", u"Singapore"},
        {"currency of the record", Option, 23, 23, u"CNY", u"HKD"},
        {"currency without an entry", Foreign, 23, -1, u"", u"ZZZ"},
        {"currency of the item", Ghost, 23, 23, u"CNY", u"RMB"},
        {"market state", Ghost, 5, 143, u"HA", u"Halt"},
        {"market state without an entry", Ghost, 5, 143, u"QQ", u""},
        {"market state of a record's item", Stock, 5, 143, u"CL", u"Closed"},
        {"expiry of the item", Foreign, 29, 29, u"202701", u"202701"},
        {"expiry of the item, empty", Foreign, 29, 29, u"", u""},
        {"expiry without a record", Ghost, 29, 29, u"202703", u"202703"},
        {"series of the record", Foreign, 141, 141, u"HSI", u"Zero"},
        {"series of the item", Ghost, 141, 141, u"HSI", u"Hang Seng"},
        {"unknown series of the item", Ghost, 141, 141, u"S?", u"S?"},
        {"call", Ghost, 28, 28, u"C", u"Call"},
        {"call 1", Ghost, 28, 28, u"1", u"Call"},
        {"call 6", Ghost, 28, 28, u"61", u"Call"},
        {"put", Ghost, 28, 28, u"Put", u"Put"},
        {"put 2", Ghost, 28, 28, u"2", u"Put"},
        {"small letter", Ghost, 28, 28, u"c", u"c"},
        {"other", Ghost, 28, 28, u"3C", u"3C"},
        {"empty", Ghost, 28, 28, u"", u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        if (row.Field >= 0) SetField(Control->GetSymbol(row.Row), row.Field, StringView(row.Set));
        ExpectCell(row.Row, row.Column, Variant(row.Text), row.Text);
    }
    for (const Integer column : {5, 20, 23, 28, 29, 141}) {
        for (const Integer field : {143, 20, 23, 28, 29, 141}) {
            Services().Items().Item(u"GHOST").ClearField(field);
        }
        ExpectCell(Ghost, column, Variant::EmptyText(), u"");
    }
    Services().Items().Item(u"Z12").ClearField(Field::Expiry);
    ExpectCell(Foreign, 29, u"202612", u"202612"); // the record's

    Services().Language().SetLanguage(TAppLanguage::TraditionalChinese);
    ExpectCell(Foreign, 141, u"Zero1", u"Zero1");
    Services().Language().SetLanguage(TAppLanguage::SimplifiedChinese);
    ExpectCell(Foreign, 141, u"Zero2", u"Zero2");
}

TEST_F(TMarketColumnValuesTest, CustomColumnsGoByTheirType) {
    const struct {
        const char* Name;
        Integer Field;
        const Char* Type; // nil: no entry
        const Char* Set;  // nil: the item has no such field
        Variant Value;
        String Text;
    } cases[] = {
        {"price", 9001, u"price", u"12.5", 12.5, u"12.50"},
        {"price, 0", 9002, u"price", u"0", 0.0, u"0.00"},
        {"quantity", 9003, u"qty", u"1500", 1500.0, u"1,500"},
        {"percent", 9004, u"percent", u"-2.5", -2.5, u"-2.50%"},
        {"amount, in capitals", 9005, u"AMOUNT", u"1234.5", 1234.5, u"1,234.5"},
        {"unknown type is an amount", 9006, u"text", u"1234.5", 1234.5, u"1,234.5"},
        {"number that is none", 9007, u"qty", u"abc", 0.0, u"0"},
        {"number that is not there", 9008, u"qty", nullptr, 0, u"--"},
        {"text", 9009, u"string", u"abc", u"abc", u"abc"},
        {"text that is a number", 9010, u"STRING", u"012", u"012", u"012"},
        {"no type", 9011, u"", u"7.0", u"7.0", u"7.0"},
        {"no entry", 9012, nullptr, u"7.0", u"7.0", u"7.0"},
        {"empty text", 9013, u"string", u"", Variant::EmptyText(), u""},
        {"text that is not there", 9014, u"string", nullptr, Variant::EmptyText(), u""},
        {"field 0", 0, u"integer", u"42", 42.0, u"42"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        if (row.Type != nullptr) {
            Services().Language().SetText(TAppLanguage::English, WatchColumns,
                                          IntegerToText(row.Field), u"caption", row.Type);
        }
        if (row.Set != nullptr) SetField(u"GHOST", row.Field, row.Set);
        ExpectCell(Ghost, FirstCustomColumn + row.Field, row.Value, row.Text);
        TEmbeddedSubItem& item = Services().Items().Item(u"GHOST");
        EXPECT_EQ(Control->GetFieldValue(&item, FirstCustomColumn + row.Field), row.Value);
    }
}

TEST_F(TMarketColumnValuesTest, ReadingAsksTheFeedForNothing) {
    for (Integer row = 0; row < Control->GetCount(); ++row) {
        for (const Integer column : {FirstCustomColumn, FirstCustomColumn + Field::LastPrice}) {
            (void)Control->GetValue(row, column);
        }
        for (const Integer column : AllColumns) {
            if (column == 604) continue;
            (void)Control->GetValue(row, column);
            (void)Control->GetDisplayValue(row, column);
        }
        const TCustomSubItem* item = Services().Items().FindItem(Control->GetSymbol(row));
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->GetItemIndex(), NoItemIndex);
    }
    EXPECT_EQ(TakeSignals(), 0);
}

} // namespace
} // namespace quorin
