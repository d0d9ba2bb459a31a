#pragma once

#include "embedded/OrderAudit.h"
#include "embedded/OrderMarket.h"
#include "embedded/Registrations.h"
#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TEvent.h"
#include "viewdata/services/ClientOrder.h"
#include "viewdata/services/OrderRecords.h"

#include <deque>

namespace quorin {

class TEmbeddedAccountAdapter;
class TEmbeddedMarketAdapter;
class TEmbeddedPositionAdapter;
class TEmbeddedSubscribeAdapter;

// Everything an order says.
struct TOrderValues {
    String Account = {};
    String Symbol = {};
    Double Quantity = 0.0;
    Double Price = 0.0;
    Integer BuySell = OrderSide::Buy;
    Integer Flags = 0; // bits of OrderFlag
    TDictionary<String, String> ExtraValues = {};

    bool IsBuy() const { return BuySell == OrderSide::Buy; }
    bool IsMarket() const { return (Flags & OrderFlag::Market) != 0; }
};

enum class TOrderState : Byte { Working, Filled, Cancelled, Refused };

// The key of the text for people, among the resource strings.
StringView OrderStateKey(TOrderState state);

// An order as the desk has it. A cancelled one may be filled in part.
struct TDeskOrder {
    Int64 Number = 0;
    TOrderValues Values;
    TOrderState State = TOrderState::Working;
    TOrderReason Reason = TOrderReason::None; // of the refusal or the cancellation
    Int64 TimeNanos = 0;                      // of its entry
    Double Filled = 0.0;                      // booked
    Double FilledAmount = 0.0;                // price times quantity of that
    Double Matched = 0.0;                     // filled, or traded and waiting to be booked

    // Of what was filled; 0.0 before the first fill.
    Double AveragePrice() const { return Filled != 0.0 ? FilledAmount / Filled : 0.0; }
    // What is not filled yet of a working order; 0.0 of any other.
    Double Remaining() const {
        return State == TOrderState::Working ? Values.Quantity - Filled : 0.0;
    }
};

// Takes orders, has them matched and books what they trade. An order that comes in is checked, and
// refused for the first thing that is wrong with it; what is taken trades against the quote at
// once. A market order then gives up what the quote could not give; a limit order works on, and
// is tried again with every quote that follows.
//
// A trade is booked by the next Book, never inside a call: until then it shows nowhere but in what
// the market says of itself, and its order still works.
class TOrderDesk {
public:
    // All must live longer.
    TOrderDesk(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
               TEmbeddedAccountAdapter& accounts, TEmbeddedPositionAdapter& positions);
    TOrderDesk(const TOrderDesk&) = delete;
    TOrderDesk& operator=(const TOrderDesk&) = delete;
    ~TOrderDesk();

    // The answer is None for an order that was taken. Calls nobody back.
    //
    // An order with ClosePositionFlagKey closes what is held and no more: against a short record it
    // becomes a buy, and in a master account whose own position is not exactly its quantity it is
    // spread over the master and then its sub-accounts in their order, each closing its own side.
    // Every part is an order of its own; what nobody holds is refused. It is taken when a part is.
    TOrderReason Take(const TOrderValues& values);
    // Notes that something came that is no order.
    void RefuseUnknown();
    // Cancels what no trade has matched yet. False for a number that is not known and for an order
    // of which nothing is left to cancel. Calls nobody back.
    bool CancelOrder(Int64 number);

    // Every order since the start in order of entry, refused ones too. Entries stay where they are
    // and change in place; none is taken out.
    const std::deque<TDeskOrder>& Orders() const { return FOrders; }
    // Those that still work, in order of entry.
    TList<const TDeskOrder*> WorkingOrders() const;
    // Nil for a number that is not known.
    const TDeskOrder* FindOrder(Int64 number) const;

    const TOrderAudit& Audit() const { return FAudit; }
    // Adds lines of the host: what it asked the user, and what the answer was.
    void NoteQuestion(StringView text) { Note({.Kind = TOrderAuditKind::Question}, text); }
    void NoteAnswer(StringView text) { Note({.Kind = TOrderAuditKind::Answer}, text); }
    // Of the market that trades; 0 where there is no clock.
    Int64 TimeNanos() const;

    // Grows with every change of an order and every line of the audit list.
    Int64 ChangeCount() const { return FChangeCount; }
    // Calls `event(nil, nil)` with the delivery after a change, once per delivery.
    void AddChangeCallback(const TDataCallbackEvent& event, TObject* owner) {
        FCallbacks.Add(owner, event);
    }
    void RemoveChangeCallback(TObject* owner) { FCallbacks.Remove(owner); }

    // Books what was traded since the last call into positions. Calls nobody back.
    void Book();
    // Tells of changes.
    void Deliver();
    Integer RegistrationCount() const { return FCallbacks.Count(); }

private:
    struct TTrade {
        Int64 OrderNumber;
        TOrderTrade Trade;
        Int64 TimeNanos;
    };

    TOrderMarket& Market();
    TDeskOrder& At(Int64 number) { return FOrders[static_cast<std::size_t>(number - 1)]; }
    TDeskOrder& Enter(const TOrderValues& values);
    // What an account holds that an order could close, with the side that closes it.
    struct TClosable {
        Integer BuySell = OrderSide::Sell;
        Double Held = 0.0;
        Double Open = 0.0; // less what working orders close already
    };
    static bool SaysItCloses(const TOrderValues& values);
    TClosable ClosableOf(StringView account, const TOrderValues& values) const;
    Double WaitingClose(StringView account, StringView symbol, Integer side) const;
    TList<String> ClosingAccounts(const TOrderValues& values) const;
    TOrderReason TakeClose(const TOrderValues& values);
    TOrderReason TakeOne(const TOrderValues& values);
    void Refuse(TDeskOrder& order, TOrderReason reason);
    TOrderReason Check(const TOrderValues& values) const;
    bool IsWholeClose(const TOrderValues& values) const;
    bool CrossesZero(const TOrderValues& values) const;
    // What is held with everything that has traded; a short quantity is below 0.
    Double HeldQuantity(StringView account, StringView symbol) const;
    void Match(TDeskOrder& order);
    void MatchWorking();
    void BookTrade(const TTrade& trade);
    void GiveUp(TDeskOrder& order, TOrderReason reason);
    void DropIdle();
    void Pend(const TOrderValues& values, Double quantity);
    void Note(TOrderAuditEntry entry, StringView text);
    void Note(TOrderAuditKind kind, const TDeskOrder& order, const TOrderTrade& trade);

    TEmbeddedSubscribeAdapter& FItems;
    TEmbeddedMarketAdapter& FMarket;
    TEmbeddedAccountAdapter& FAccounts;
    TEmbeddedPositionAdapter& FPositions;
    TQuoteOrderMarket FQuotes;
    std::deque<TDeskOrder> FOrders;
    TList<Int64> FWorking;      // numbers of orders that work, in order of entry
    std::deque<TTrade> FTrades; // not booked yet
    TOrderAudit FAudit;
    Int64 FChangeCount = 0;
    Int64 FToldChangeCount = 0;
    TDeliveryClock FDeliveries;
    TRegistrations<TDataCallbackEvent> FCallbacks{FDeliveries};
};

} // namespace quorin
