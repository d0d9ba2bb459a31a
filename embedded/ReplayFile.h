#pragma once

#include "embedded/CsvReader.h"
#include "embedded/TimeText.h"

#include <functional>
#include <optional>

namespace quorin {

// One side of a quote, or both; an absent part is not quoted.
struct TReplayQuote {
    std::optional<Double> Bid;
    std::optional<Double> BidQuantity;
    std::optional<Double> Ask;
    std::optional<Double> AskQuantity;

    bool IsEmpty() const { return !Bid && !BidQuantity && !Ask && !AskQuantity; }
};

// A line of a recording. Texts are good until the next line is read.
struct TReplayEvent {
    Int64 Time = 0; // nanoseconds after midnight
    std::string_view Symbol;
    bool IsTrade = false;
    TReplayQuote Quote;
    Double Price = 0.0; // of a trade; its texts are as in the file
    Double Quantity = 0.0;
    std::string_view PriceText;
    std::string_view QuantityText;
};

// Reads the lines of a recording: its header is "time,symbol,event,price,qty,bid,bid_qty,ask,
// ask_qty", an event is Q (a quote) or T (a trade). Numbers are plain decimals, quantities not
// below zero; only prices may have a sign.
class TReplayReader {
public:
    // Told of each line that is skipped, with its number and what is wrong with it.
    using TReport = std::function<void(Int64 line, std::string_view reason)>;

    TReplayReader(std::istream& stream, TReport report)
        : FReader(stream), FReport(std::move(report)) {}

    // False for any other header; to be called first.
    bool ReadHeader();
    // Goes to the next line that can be read and is not earlier than the one before it; False at
    // the end.
    bool Next(TReplayEvent& event);
    const TCsvReader& Reader() const { return FReader; }

private:
    // What is wrong with the record at hand; empty when the event could be read.
    std::string_view ReadEvent(TReplayEvent& event) const;

    TCsvReader FReader;
    TReport FReport;
    Int64 FLastTime = 0;
};

} // namespace quorin
