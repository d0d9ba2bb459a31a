#pragma once

#include "platform/rtl/Types.h"

#include <deque>
#include <filesystem>
#include <string_view>

namespace quorin {

enum class TOrderAuditKind : Byte { Order, Fill, Refusal, Cancel, Question, Answer };

// Why an order was refused, or why what was left of it was cancelled.
enum class TOrderReason : Byte {
    None,
    NotAnOrder, // nothing that the service could take
    NoSide,     // neither bought nor sold
    UnknownAccount,
    UnknownSymbol,
    Quantity,       // not above 0, or above the largest of an order
    Lot,            // no whole number of lots
    Price,          // off the price steps, or not above 0 where prices are
    CrossesZero,    // more than may be closed where long and short are apart
    NothingOffered, // the quote had no more for a market order
    ByUser,
};

// One line of the audit list. What does not apply is empty or 0.
struct TOrderAuditEntry {
    Int64 Sequence = 0;  // from 1, given by the list
    Int64 TimeNanos = 0; // after midnight, by the venue; 0 without one
    TOrderAuditKind Kind = TOrderAuditKind::Order;
    TOrderReason Reason = TOrderReason::None;
    Int64 OrderNumber = 0;
    String Account = {};
    String Symbol = {};
    Integer BuySell = 0; // see OrderSide; counts only with a symbol
    Double Quantity = 0.0;
    Double Price = 0.0; // 0.0 for the price of a market order
    String Text = {};   // of a question or an answer
};

// The codes that files have, in every language.
std::string_view AuditCode(TOrderAuditKind kind);
std::string_view ReasonCode(TOrderReason reason); // empty for None
// The keys of the texts for people, among the resource strings; empty for None.
StringView AuditKey(TOrderAuditKind kind);
StringView ReasonKey(TOrderReason reason);

// Everything that happened to orders, oldest first. Nothing is ever changed or taken out.
class TOrderAudit {
public:
    // Gives the entry its number.
    void Add(TOrderAuditEntry entry);
    Integer Count() const { return static_cast<Integer>(FEntries.size()); }
    // From 0, the oldest; references stay good.
    const TOrderAuditEntry& operator[](Integer index) const {
        return FEntries[static_cast<std::size_t>(index)];
    }

    // Writes the whole list as comma separated values, in UTF-8, with a line of column names. The
    // file is there complete or not at all: an older one stays until the new one is written.
    // Raises EDataError.
    void Save(const std::filesystem::path& path) const;

private:
    std::deque<TOrderAuditEntry> FEntries;
};

} // namespace quorin
