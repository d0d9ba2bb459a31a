#include "embedded/MarketSessions.h"

#include "embedded/DataTable.h"
#include "viewdata/services/MarketAdapter.h"

namespace quorin {

namespace {

constexpr Int64 Second = 1'000'000'000;
constexpr Int64 Day = 24 * 60 * 60 * Second;
constexpr StringView OpenState = u"CT";
constexpr StringView ClosedState = u"CL";

// Two digits at that place of the text, below `end`.
bool TryTwoDigits(StringView text, std::size_t place, Int64 end, Int64& value) {
    if (place + 2 > text.size()) return false;
    value = 0;
    for (const Char unit : text.substr(place, 2)) {
        if (unit < u'0' || unit > u'9') return false;
        value = value * 10 + (unit - u'0');
    }
    return value < end;
}

bool TryParseTime(StringView text, Int64& time) {
    constexpr std::size_t minutesLength = 5; // HH:MM
    constexpr std::size_t secondsLength = 8; // HH:MM:SS
    if (text.size() != minutesLength && text.size() != secondsLength) return false;
    Int64 hours = 0;
    Int64 minutes = 0;
    Int64 seconds = 0;
    if (!TryTwoDigits(text, 0, 25, hours) || text[2] != u':') return false;
    if (!TryTwoDigits(text, 3, 60, minutes)) return false;
    if (text.size() == secondsLength) {
        if (text[minutesLength] != u':' || !TryTwoDigits(text, 6, 60, seconds)) return false;
    }
    time = ((hours * 60 + minutes) * 60 + seconds) * Second;
    return time <= Day;
}

Int64 Time(const TDataTable& file, TDataTable::TColumn column) {
    Int64 time = 0;
    if (!TryParseTime(file.Text(column), time)) file.Fail(column, "is no time of a day");
    return time;
}

} // namespace

bool TMarketSessions::Add(StringView exchange, const TMarketSession& session) {
    if (exchange.empty() || session.From < 0 || session.To <= session.From || session.To > Day) {
        return false;
    }
    const TList<TMarketSession>* known = FByExchange.Find(exchange);
    if (known != nullptr && known->Last().To > session.From) return false;
    FByExchange.Obtain(exchange).Add(session);
    return true;
}

TMarketSession TMarketSessions::At(StringView exchange, Int64 time) const {
    const TList<TMarketSession>* sessions = Find(exchange);
    if (sessions == nullptr) return {0, Day, String(OpenState), MarketOpen};
    TMarketSession gap{0, Day, String(ClosedState), 0};
    for (const TMarketSession& session : *sessions) {
        if (time < session.From) {
            gap.To = session.From;
            return gap;
        }
        if (time < session.To) return session;
        gap.From = session.To;
    }
    return gap;
}

TMarketSessions LoadSessions(const std::filesystem::path& path) {
    TDataTable file(path, {"exchange", "from", "to", "state", "status"});
    const auto exchange = file.Column("exchange");
    const auto from = file.Column("from");
    const auto to = file.Column("to");
    const auto state = file.Column("state");
    const auto status = file.Column("status");
    TMarketSessions sessions;
    while (file.Next()) {
        const TMarketSession session{Time(file, from), Time(file, to), String(file.Code(state)),
                                     file.Whole(status)};
        if (!sessions.Add(file.Code(exchange), session)) {
            file.Fail("the session ends before it begins, or begins before the one above it ends");
        }
    }
    return sessions;
}

} // namespace quorin
