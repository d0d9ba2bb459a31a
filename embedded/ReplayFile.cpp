#include "embedded/ReplayFile.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quorin {

namespace {

enum TColumn : std::size_t {
    TimeColumn,
    SymbolColumn,
    EventColumn,
    PriceColumn,
    QuantityColumn,
    BidColumn,
    BidQuantityColumn,
    AskColumn,
    AskQuantityColumn,
    ColumnCount
};

constexpr std::string_view Header[ColumnCount] = {"time", "symbol",  "event", "price",  "qty",
                                                  "bid",  "bid_qty", "ask",   "ask_qty"};

constexpr int NanoDigits = 9;
constexpr Int64 SecondsPerDay = 24 * 60 * 60;

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

// Digits with at most one point among them, at least one digit.
bool IsPlainDecimal(std::string_view text) {
    const auto digits = std::count_if(text.begin(), text.end(), IsDigit);
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

// Reckoned in whole numbers: a Double has no room for the nanoseconds of a day's fraction.
bool TryParseTime(std::string_view text, Int64& nanos) {
    if (!IsPlainDecimal(text)) return false;
    const std::size_t point = std::min(text.find('.'), text.size());
    Int64 seconds = 0;
    for (const char digit : text.substr(0, point)) {
        seconds = seconds * 10 + (digit - '0');
        if (seconds >= SecondsPerDay) return false;
    }
    Int64 fraction = 0;
    for (std::size_t place = 1; place <= NanoDigits; ++place) {
        const std::size_t index = point + place;
        fraction = fraction * 10 + (index < text.size() ? text[index] - '0' : 0);
    }
    nanos = seconds * NanosPerSecond + fraction;
    return true;
}

bool TryParseQuantity(std::string_view text, Double& value) {
    if (!IsPlainDecimal(text)) return false;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return TryParseDouble(FromUtf8(text), value); // which takes what is too small for 0.0
    }
    return result.ec == std::errc() && std::isfinite(value);
}

bool TryParsePrice(std::string_view text, Double& value) {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (!TryParseQuantity(text.substr(isNegative ? 1 : 0), value)) return false;
    if (isNegative) value = -value;
    return true;
}

// An empty text leaves the value absent.
template <class Parse>
bool TryParseOptional(std::string_view text, std::optional<Double>& value, Parse parse) {
    value.reset();
    return text.empty() || parse(text, value.emplace());
}

} // namespace

bool TReplayReader::ReadHeader() {
    if (!FReader.Next()) return false;
    const auto fields = FReader.Fields();
    return std::equal(fields.begin(), fields.end(), std::begin(Header), std::end(Header));
}

bool TReplayReader::Next(TReplayEvent& event) {
    while (FReader.Next()) {
        const std::string_view reason = ReadEvent(event);
        if (reason.empty()) {
            FLastTime = event.Time;
            return true;
        }
        if (FReport) FReport(FReader.Line(), reason);
    }
    return false;
}

std::string_view TReplayReader::ReadEvent(TReplayEvent& event) const {
    if (!FReader.Problem().empty()) return FReader.Problem();
    const auto fields = FReader.Fields();
    if (fields.size() != ColumnCount) return "wrong number of fields";

    if (!TryParseTime(fields[TimeColumn], event.Time)) return "bad time";
    event.Symbol = fields[SymbolColumn];
    if (event.Symbol.empty()) return "no symbol";
    if (!IsValidUtf8(event.Symbol)) return "the symbol is not UTF-8";
    const std::string_view kind = fields[EventColumn];
    if (kind != "Q" && kind != "T") return "unknown event";
    event.IsTrade = kind == "T";

    event.PriceText = fields[PriceColumn];
    event.QuantityText = fields[QuantityColumn];
    const bool hasPrice = event.IsTrade || !event.PriceText.empty();
    if (hasPrice && !TryParsePrice(event.PriceText, event.Price)) return "bad price";
    const bool hasQuantity = event.IsTrade || !event.QuantityText.empty();
    if (hasQuantity && !TryParseQuantity(event.QuantityText, event.Quantity)) return "bad quantity";

    TReplayQuote& quote = event.Quote;
    if (!TryParseOptional(fields[BidColumn], quote.Bid, TryParsePrice)) return "bad bid";
    if (!TryParseOptional(fields[AskColumn], quote.Ask, TryParsePrice)) return "bad ask";
    if (!TryParseOptional(fields[BidQuantityColumn], quote.BidQuantity, TryParseQuantity)) {
        return "bad bid quantity";
    }
    if (!TryParseOptional(fields[AskQuantityColumn], quote.AskQuantity, TryParseQuantity)) {
        return "bad ask quantity";
    }
    return event.Time < FLastTime ? "earlier than the line before" : std::string_view();
}

} // namespace quorin
