#include "embedded/FormatterService.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ConfigKeys.h"

#include <cmath>
#include <initializer_list>
#include <limits>
#include <utility>

namespace quorin {
namespace {

namespace Kind = DisplayDataType;

class FormatterTest : public TServicesFixture {
protected:
    static String Format(Double value, TDisplayDataType kind, StringView symbol = {},
                         bool flag = true) {
        return TCustomFormatter::GetInstance()->FormatValue(value, kind, symbol, flag, nullptr);
    }
};

TEST_F(FormatterTest, WithoutSettings) {
    struct TCase {
        const char* Name;
        Double Value;
        TDisplayDataType Kind;
        StringView Short; // Flag True
        StringView Full;  // Flag False
    };
    const TCase cases[] = {
        {"plain number", -1234.5, Kind::Text, u"-1234.5", u"-1234.5"},
        {"whole number", 1234567.0, Kind::Whole, u"1,234,567", u"1,234,567"},
        {"whole number, half", -2.5, Kind::Whole, u"-3", u"-3"},
        {"average price", 12.5, Kind::AveragePrice, u"12.5", u"12.500"},
        {"average price, rounded", 12.34567, Kind::AveragePrice, u"12.346", u"12.346"},
        {"amount", 1234.5, Kind::Amount, u"1,234.5", u"1,234.50"},
        {"amount below zero", -1234567.891, Kind::Amount, u"-1,234,567.89", u"-1,234,567.89"},
        {"amount, half a cent", 0.005, Kind::Amount, u"0.01", u"0.01"},
        {"amount below half a cent", -0.004, Kind::Amount, u"0", u"0.00"},
        {"no amount", 0.0, Kind::Amount, u"0", u"0.00"},
        {"quantity", 2000000000.0, Kind::Quantity, u"2,000,000,000", u"2,000,000,000"},
        {"no quantity", 0.0, Kind::Quantity, u"0", u"0"},
        {"part of a unit", -0.00012345, Kind::Quantity, u"-0.00012345", u"-0.00012345"},
        {"part of a unit, too fine", 0.123456789, Kind::Quantity, u"0.12345679", u"0.12345679"},
        {"ratio", 0.5, Kind::Ratio, u"0.5000", u"0.5000"},
        {"exchange ratio", 7.8125, Kind::CurrencyRatio, u"7.8125", u"7.812500"},
        {"small exchange ratio", 0.0520134, Kind::CurrencyRatio, u"0.052013", u"0.052013"},
        {"percentage", -12.345, Kind::Percent, u"-12.35%", u"-12.35%"},
        {"market price", 350.2, Kind::MarketPrice, u"350.20", u"350.20"},
        {"fine market price", 0.000123, Kind::MarketPrice, u"0.000123", u"0.000123"},
        {"kind that nobody knows", 1.25, 99, u"1.25", u"1.25"},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(Format(row.Value, row.Kind), row.Short) << row.Name;
        EXPECT_EQ(Format(row.Value, row.Kind, u"", false), row.Full) << row.Name << ", full";
    }
}

TEST_F(FormatterTest, SettingsOfDecimals) {
    struct TSetting {
        StringView Precision;
        StringView Keep;
        TDisplayDataType Kind;
    };
    const TSetting settings[] = {
        {ConfigKey::AmountPrecision, ConfigKey::AmountDecimal, Kind::Amount},
        {ConfigKey::QtyPrecision, ConfigKey::QtyDecimal, Kind::Quantity},
        {ConfigKey::DefaultPrecision, ConfigKey::DefaultDecimal, Kind::AveragePrice},
        {ConfigKey::CurrencyPrecision, ConfigKey::CurrencyDecimal, Kind::CurrencyRatio},
    };
    struct TCase {
        const char* Name;
        StringView Precision;
        StringView Keep;
        StringView Short;
        StringView Full;
    };
    const TCase cases[] = {
        // of 7.5
        {"four, dropped", u"4", u"0", u"7.5", u"7.5000"},
        {"four, kept", u"4", u"1", u"7.5000", u"7.5000"},
        {"none", u"0", u"1", u"8", u"8"},
        {"the most", u"8", u"1", u"7.50000000", u"7.50000000"},
    };
    for (const TSetting& setting : settings) {
        const String before = Format(7.5, setting.Kind, u"", false);
        for (const TCase& row : cases) {
            SetConfig(setting.Precision, row.Precision);
            SetConfig(setting.Keep, row.Keep);
            EXPECT_EQ(Format(7.5, setting.Kind), row.Short) << row.Name << +setting.Kind;
            EXPECT_EQ(Format(7.5, setting.Kind, u"", false), row.Full) << row.Name << +setting.Kind;
        }
        for (const StringView wrong : {u"", u"-1", u"9", u"two"}) {
            SetConfig(setting.Precision, wrong);
            EXPECT_EQ(Format(7.5, setting.Kind, u"", false), before) << ToUtf8(wrong);
        }
    }
}

TEST_F(FormatterTest, QuantityGroupingIsASetting) {
    EXPECT_EQ(Format(12345.0, Kind::Quantity), u"12,345");
    SetConfig(ConfigKey::QtyThousandPeriod, u"0");
    EXPECT_EQ(Format(12345.0, Kind::Quantity), u"12345");
    SetConfig(ConfigKey::QtyThousandPeriod, u"1");
    EXPECT_EQ(Format(12345.0, Kind::Quantity), u"12,345");
}

TEST_F(FormatterTest, PricesFollowTheSymbolsStep) {
    struct TCase {
        const char* Name;
        StringView Symbol;
        Double Value;
        StringView Market;
        StringView Average;
    };
    const TCase cases[] = {
        {"two decimals", u"00700", 19.98, u"19.98", u"19.980"},
        {"one decimal", u"00700", 350.0, u"350.0", u"350.000"},
        {"lower end of a band", u"00700", 100.0, u"100.0", u"100.000"},
        {"just below it", u"00700", 99.95, u"99.95", u"99.950"},
        {"below zero", u"00700", -5.0, u"-5.00", u"-5.000"},
        {"tick size of the item", u"HSIF", 20000.0, u"20000", u"20000.000"},
        {"unknown symbol", u"NONE", 1.125, u"1.125", u"1.125"},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(Format(row.Value, Kind::MarketPrice, row.Symbol), row.Market) << row.Name;
        EXPECT_EQ(Format(row.Value, Kind::AveragePrice, row.Symbol, false), row.Average)
            << row.Name;
    }
    SetField(u"HSIF", Field::TickSize, StringView(u"0.00005"));
    EXPECT_EQ(Format(1.5, Kind::AveragePrice, u"HSIF", false), u"1.50000");
    SetConfig(ConfigKey::DefaultPrecision, u"1");
    EXPECT_EQ(Format(1.5, Kind::AveragePrice, u"HSIF", false), u"1.5") << "the setting counts";
    EXPECT_EQ(Format(1.5, Kind::MarketPrice, u"HSIF"), u"1.50000");
}

TEST_F(FormatterTest, AmountWithoutCommasParsesBack) {
    struct TCase {
        StringView Precision;
        Double HalfAUnit; // of the last decimal
    };
    const TCase cases[] = {{u"", 0.005}, {u"0", 0.5}, {u"1", 0.05}, {u"8", 0.5e-8}};
    for (const TCase& row : cases) {
        SetConfig(ConfigKey::AmountPrecision, row.Precision);
        for (const Double value :
             {-1234.5, 0.0, -0.004, 1e-9, 999.5, -999999.995, 123456789012.34, -1e20}) {
            for (const bool flag : {false, true}) {
                const String shown = Format(value, Kind::Amount, u"00700", flag);
                Double parsed = -1.0;
                ASSERT_TRUE(TryParseDouble(ReplaceAll(shown, u",", u""), parsed)) << ToUtf8(shown);
                const Double tolerance = row.HalfAUnit * (1.0 + 1e-6) + std::fabs(value) * 1e-15;
                EXPECT_NEAR(parsed, value, tolerance) << ToUtf8(shown);
            }
        }
    }
}

TEST_F(FormatterTest, NumbersInMessagesAndFilters) {
    const TCustomFormatter& formatter = *TCustomFormatter::GetInstance();
    EXPECT_EQ(formatter.FormatInteger(MaxOrderQuantity), u"2,000,000,000");
    EXPECT_EQ(formatter.FormatInteger(std::numeric_limits<Integer>::min()), u"-2,147,483,648");

    struct TCase {
        const char* Name;
        Double Value;
        Integer Decimals;
        bool Flag;
        StringView Text;
    };
    const TCase cases[] = {
        {"all decimals", 12345.678, AllDecimals, true, u"12345.678"},
        {"no more than eight", 0.123456785, AllDecimals, true, u"0.12345679"},
        {"whole", 5.0, AllDecimals, false, u"5"},
        {"zeros dropped", 1.5, 3, true, u"1.5"},
        {"zeros kept", 1.5, 3, false, u"1.500"},
        {"no decimals", 1.5, 0, true, u"2"},
        {"too many decimals", 1.5, 1000, false, u"1.500000000000000"},
        {"too many decimals, dropped", 1.5, 1000, true, u"1.5"},
    };
    for (const TCase& row : cases) {
        EXPECT_EQ(formatter.FormatFloat(row.Value, row.Decimals, row.Flag), row.Text) << row.Name;
    }
}

TEST_F(FormatterTest, AnyNumberGivesAText) {
    constexpr Double infinity = std::numeric_limits<Double>::infinity();
    for (const Double value : {infinity, -infinity, std::nan(""), 1e308, 5e-324}) {
        for (TDisplayDataType kind = 0; kind < 10; ++kind) {
            EXPECT_FALSE(Format(value, kind, u"NONE").empty()) << value << " " << +kind;
        }
    }
}

TEST_F(FormatterTest, ShortTextsTakeNoMemory) {
    const TCustomFormatter& formatter = *TCustomFormatter::GetInstance();
    Format(50.2, Kind::MarketPrice, u"00700");
    for (TDisplayDataType kind = 0; kind < 9; ++kind) {
        const std::size_t before = AllocationCount();
        const String text = formatter.FormatValue(50.2, kind, u"00700", true, nullptr);
        EXPECT_EQ(AllocationCount(), before) << +kind << ": " << ToUtf8(text);
    }
}

// What registers later is called later: a view that repaints on a change sees the new decimals.
TEST_F(FormatterTest, ChangeIsKnownBeforeViewsHearOfIt) {
    struct TView : TObject {
        void Repaint(Pointer, Pointer) { Text = Format(1.5, Kind::Amount, u"", false); }
        String Text;
    } view;
    TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    config.RegisterConfigCallback(MakeEvent<&TView::Repaint>(&view), &view);
    SetConfig(ConfigKey::AmountPrecision, u"4");
    EXPECT_EQ(view.Text, u"1.5000");
    config.RemoveConfigCallback(&view);
}

} // namespace
} // namespace quorin
