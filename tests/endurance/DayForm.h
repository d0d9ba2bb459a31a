#pragma once

#include "embedded/EmbeddedServices.h"
#include "terminal/forms/ShownForm.h"
#include "tests/endurance/Findings.h"

#include <memory>

namespace quorin {

// What every form of a day shares.
struct TDay {
    TEmbeddedServices& Services;
    TDayRandom& Random;
    TFindings& Findings;
    // Whether what is on show must agree with the services: everybody is logged in, and the
    // universe and the accounts are ready.
    bool IsAllReady = true;
    bool ShowsZeroQuantity = false; // the setting

    String AnyAccount();
    String AnyExchange();
    // The symbols that are traded, a few of each exchange.
    const TList<String>& TradedSymbols();
    String AnySymbol() { return TradedSymbols()[Random.Pick(TradedSymbols().Count())]; }
    String AnyCurrency();

    TList<String> Traded = {}; // once asked for
};

// One open form with its user.
class TDayForm {
public:
    explicit TDayForm(TDay& day) : Day(day) {}
    TDayForm(const TDayForm&) = delete;
    TDayForm& operator=(const TDayForm&) = delete;
    virtual ~TDayForm() = default;

    // Shows something else.
    virtual void Switch() = 0;
    // The user does something with what is on show; `mayOrder` says whether orders may go out.
    virtual void Use(bool mayOrder) = 0;
    // As a skin does, once per frame.
    virtual void Paint() = 0;
    // What must hold whenever no call is under way.
    virtual void Check() = 0;

protected:
    TDay& Day;
};

enum class TDayFormKind {
    Watch,
    Underlyer,
    Position,
    PositionView,
    AccountTree,
    CashTree,
    Orders,
    Trades,
    Ticket,
};
inline constexpr TDayFormKind DayFormKinds[] = {
    TDayFormKind::Watch,        TDayFormKind::Underlyer,   TDayFormKind::Position,
    TDayFormKind::PositionView, TDayFormKind::AccountTree, TDayFormKind::CashTree,
    TDayFormKind::Orders,       TDayFormKind::Trades,      TDayFormKind::Ticket,
};
const char* NameOf(TDayFormKind kind);

std::unique_ptr<TDayForm> MakeDayForm(TDayFormKind kind, TDay& day);
// Per family.
std::unique_ptr<TDayForm> MakeMarketDayForm(TDayFormKind kind, TDay& day);
std::unique_ptr<TDayForm> MakePositionDayForm(TDayFormKind kind, TDay& day);
std::unique_ptr<TDayForm> MakeTreeDayForm(TDayFormKind kind, TDay& day);
std::unique_ptr<TDayForm> MakeTicketDayForm(TDay& day);

} // namespace quorin
