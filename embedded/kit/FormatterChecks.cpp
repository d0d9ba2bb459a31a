#include "embedded/kit/Checker.h"
#include "embedded/kit/ContractKit.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "viewdata/services/FieldNumbers.h"

namespace quorin {

namespace {

constexpr TDisplayDataType LastKnownType = DisplayDataType::MarketPrice;
constexpr TDisplayDataType FurtherType = 200; // a data type table may give any
constexpr StringView UnknownSymbol = u"no such symbol";
constexpr StringView LeftOver = u"left over";

// What a text says of its number once group separators are gone.
bool TryReadAmount(StringView text, Double& value) {
    return TryParseDouble(ReplaceAll(text, u",", {}), value);
}

void CheckPlainNumbers(TCustomFormatter& formatter, TChecker& check) {
    struct TCase {
        Double Value;
        StringView Text;
    };
    const TCase cases[] = {{0.0, u"0"},
                           {1234.5, u"1234.5"},
                           {-0.25, u"-0.25"},
                           {1000000.0, u"1000000"},
                           {99.0, u"99"}};
    for (const TCase& row : cases) {
        check.Reads(u"FormatFloat with all decimals is the plain number", row.Text,
                    formatter.FormatFloat(row.Value, AllDecimals, /*Flag=*/true));
    }
    for (const Integer value : {MaxOrderQuantity, 0, -5}) {
        Double parsed = -1.0;
        const String text = formatter.FormatInteger(value);
        check.True(u"FormatInteger gives a text that says the number",
                   TryReadAmount(text, parsed) && parsed == value, ShowValue(text));
    }
}

void CheckEveryType(TCustomFormatter& formatter, const String& known, TChecker& check) {
    for (TDisplayDataType type = 0; type <= LastKnownType + 1; ++type) {
        const TDisplayDataType asked = type <= LastKnownType ? type : FurtherType;
        for (const StringView symbol : {StringView(), UnknownSymbol, StringView(known)}) {
            for (const bool flag : {false, true}) {
                const String where = u"data type " + ShowValue(static_cast<Integer>(asked)) +
                                     u", symbol " + ShowValue(symbol);
                const auto text = [&](Double value) {
                    return formatter.FormatValue(value, asked, symbol, flag, nullptr);
                };
                check.False(u"FormatValue gives a text for any symbol and type",
                            text(1234.5).empty(), where);
                check.False(u"FormatValue gives a text for 0", text(0.0).empty(), where);
                check.False(u"a 0 has no sign", text(0.0).starts_with(u'-'), where);
                check.True(u"FormatValue shows the sign of a negative number",
                           text(-1234.5).find(u'-') == 0, where);
                check.False(u"a positive number has no minus", text(1234.5).starts_with(u'-'),
                            where);
            }
        }
    }
}

void CheckAmounts(TCustomFormatter& formatter, const String& known, TChecker& check) {
    for (const Double value : {-1234.5, 1234.5, 1234567.25, -0.5, 0.0, 987654321.0}) {
        for (const StringView symbol : {StringView(), UnknownSymbol, StringView(known)}) {
            const String text =
                formatter.FormatValue(value, DisplayDataType::Amount, symbol, false, nullptr);
            Double parsed = 0.0;
            const StringView rule = u"an amount without its commas parses back";
            if (!check.True(rule, TryReadAmount(text, parsed), text)) continue;
            check.Near(rule, value, parsed, text);
        }
    }
}

} // namespace

void CheckFormatter(TFormatterDriver& driver, TContractReport& report) {
    TChecker check(report, u"Formatter");
    TCustomFormatter& formatter = driver.Formatter();
    const String known = driver.SymbolWithPrices(102.5, 100.0);
    CheckPlainNumbers(formatter, check);
    CheckEveryType(formatter, known, check);
    CheckAmounts(formatter, known, check);
}

void CheckMarketDataFormatter(TFormatterDriver& driver, TContractReport& report) {
    TChecker check(report, u"MarketDataFormatter");
    const TCustomMarketDataFormatter& formatter = driver.MarketFormatter();
    const String empty = driver.SymbolWithoutPrice();
    for (const StringView symbol : {StringView(empty), UnknownSymbol, StringView()}) {
        const String where = ShowValue(symbol);
        const StringView rule = u"with nothing to show the answer is false and the text stays";
        const auto expectNothing = [&](bool answer, const String& text, StringView operation) {
            check.False(rule, answer, String(operation) + u" " + where);
            check.Reads(rule, LeftOver, text, String(operation) + u" " + where);
        };
        String text(LeftOver);
        expectNothing(formatter.GetAttribute48Text(symbol, text), text, u"GetAttribute48Text");
        text = LeftOver;
        expectNothing(formatter.GetAttribute130Text(symbol, text), text, u"GetAttribute130Text");
        text = LeftOver;
        expectNothing(formatter.FormatPrice(symbol, Field::LastPrice, text), text, u"FormatPrice");
        text = LeftOver;
        expectNothing(formatter.FormatVolume(symbol, Field::Volume, text), text, u"FormatVolume");
        Double value = -7.0;
        formatter.GetAttribute48Value(symbol, value);
        formatter.GetAttribute130Value(symbol, value);
        check.Equal(u"with nothing to work out the value stays", -7.0, value, where);
    }
    struct TCase {
        Double LastPrice;
        Double PreviousClose;
        Double Change;
        Double Percent;
    };
    const TCase cases[] = {
        {102.5, 100.0, 2.5, 2.5}, {95.0, 100.0, -5.0, -5.0}, {50.0, 50.0, 0.0, 0.0}};
    for (const TCase& row : cases) {
        const String symbol = driver.SymbolWithPrices(row.LastPrice, row.PreviousClose);
        const String where = ShowValue(row.LastPrice) + u" after " + ShowValue(row.PreviousClose);
        Double value = -7.0;
        formatter.GetAttribute48Value(symbol, value);
        check.Near(u"attribute 48 is the change of the price", row.Change, value, where);
        formatter.GetAttribute130Value(symbol, value);
        check.Near(u"attribute 130 is the change in percent", row.Percent, value, where);
        for (const bool isPercent : {false, true}) {
            String text(LeftOver);
            const bool isShown = isPercent ? formatter.GetAttribute130Text(symbol, text)
                                           : formatter.GetAttribute48Text(symbol, text);
            check.True(u"a change is shown once both prices are there", isShown, where);
            check.Equal(u"the text of a change shows its sign", row.Change < 0.0,
                        text.starts_with(u'-'), where);
        }
        String text(LeftOver);
        const StringView replaced = u"FormatPrice replaces the text by the price";
        check.True(replaced, formatter.FormatPrice(symbol, Field::LastPrice, text), where);
        Double parsed = -7.0;
        check.True(replaced, TryReadAmount(text, parsed), text);
        check.Near(replaced, row.LastPrice, parsed, where);
    }
}

} // namespace quorin
