#include "terminal/desktop/PaneKinds.h"

#include "platform/rtl/Utf.h"
#include "terminal/desktop/OrdersPane.h"
#include "terminal/desktop/PositionPane.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"
#include "terminal/forms/TerminalKeys.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

constexpr TPaneKindInfo Kinds[] = {
    {TPaneKind::Watch, "watch", TerminalKey::Res_MarketWatch},
    {TPaneKind::Positions, "positions", TerminalKey::Res_Positions},
    {TPaneKind::Ticket, "ticket", TerminalKey::Res_Ticket},
    {TPaneKind::Orders, "orders", TerminalKey::Res_Orders},
};

} // namespace

std::span<const TPaneKindInfo> PaneKinds() {
    return Kinds;
}

const TPaneKindInfo& PaneKindInfo(TPaneKind kind) {
    return *std::find_if(std::begin(Kinds), std::end(Kinds),
                         [kind](const TPaneKindInfo& info) { return info.Kind == kind; });
}

const TPaneKindInfo* FindPaneKind(StringView code) {
    const auto* found =
        std::find_if(std::begin(Kinds), std::end(Kinds),
                     [code](const TPaneKindInfo& info) { return FromUtf8(info.Code) == code; });
    return found == std::end(Kinds) ? nullptr : found;
}

TPane* MakePane(TPaneKind kind, TDesktopSession& session, QWidget* parent) {
    TOrderDialog& orders = session.Host().Orders();
    switch (kind) {
    case TPaneKind::Watch: return new TWatchPane(session.Exchange(), orders, parent);
    case TPaneKind::Positions: return new TPositionPane(orders, parent);
    case TPaneKind::Orders: return new TOrdersPane(session.Services().Desk(), orders, parent);
    case TPaneKind::Ticket: {
        auto* pane = new TTicketPane(parent);
        pane->Form().SetLayoutAccount(FirstAccount);
        return pane;
    }
    default: return nullptr;
    }
}

} // namespace quorin
