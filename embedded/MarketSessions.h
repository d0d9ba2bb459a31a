#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TList.h"
#include "platform/rtl/Types.h"

#include <filesystem>

namespace quorin {

// From `From` to before `To`, in nanoseconds after midnight.
struct TMarketSession {
    Int64 From = 0;
    Int64 To = 0;
    String State = {}; // key into the table of market states
    Integer Status = 0; // MarketOpen, or anything else
};

// The day of each exchange. Outside its sessions an exchange is closed; one without any session
// trades around the clock.
class TMarketSessions {
public:
    // False, and nothing changes, for a session that does not begin at the end of the exchange's
    // last one or later, does not end after it begins, or is not within one day.
    bool Add(StringView exchange, const TMarketSession& session);

    // The session of that time; the times of what is no session are those of the gap.
    TMarketSession At(StringView exchange, Int64 time) const;
    // In the order of the day; nil for an exchange without any.
    const TList<TMarketSession>* Find(StringView exchange) const { return FByExchange.Find(exchange); }
    const TDictionary<String, TList<TMarketSession>>& ByExchange() const { return FByExchange; }
    bool IsEmpty() const { return FByExchange.Count() == 0; }

private:
    TDictionary<String, TList<TMarketSession>> FByExchange;
};

// Reads a file with the columns exchange, from, to (HH:MM or HH:MM:SS), state and status. Raises
// EDataError at the first fault.
TMarketSessions LoadSessions(const std::filesystem::path& path);

} // namespace quorin
