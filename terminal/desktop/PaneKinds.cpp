#include "terminal/desktop/PaneKinds.h"

#include "platform/rtl/Utf.h"
#include "terminal/desktop/AccountTreePane.h"
#include "terminal/desktop/AuditPane.h"
#include "terminal/desktop/CashTreePane.h"
#include "terminal/desktop/MessagesPane.h"
#include "terminal/desktop/OrdersPane.h"
#include "terminal/desktop/PositionPane.h"
#include "terminal/desktop/PositionViewPane.h"
#include "terminal/desktop/SettingsPane.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/TradesPane.h"
#include "terminal/desktop/UnderlyerPane.h"
#include "terminal/desktop/WatchPane.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/services/MarketAdapter.h"

#include <algorithm>
#include <iterator>

namespace quorin {

namespace {

constexpr TPaneKindInfo Kinds[] = {
    {TPaneKind::Watch, "watch", TerminalKey::Res_MarketWatch},
    {TPaneKind::Underlyer, "underlyer", TerminalKey::Res_UnderlyerList},
    {TPaneKind::Positions, "positions", TerminalKey::Res_Positions},
    {TPaneKind::PositionView, "positionview", TerminalKey::Res_PositionView},
    {TPaneKind::AccountTree, "accounttree", TerminalKey::Res_AccountTree},
    {TPaneKind::CashTree, "cash", TerminalKey::Res_CashTree},
    {TPaneKind::Ticket, "ticket", TerminalKey::Res_Ticket},
    {TPaneKind::Orders, "orders", TerminalKey::Res_Orders},
    {TPaneKind::Trades, "trades", TerminalKey::Res_LastTrades},
    {TPaneKind::Messages, "messages", TerminalKey::Res_Messages},
    {TPaneKind::Audit, "audit", TerminalKey::Res_AuditList},
    {TPaneKind::Settings, "settings", TerminalKey::Res_Settings},
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
    case TPaneKind::Underlyer: return new TUnderlyerPane(orders, parent);
    case TPaneKind::Positions: return new TPositionPane(orders, parent);
    case TPaneKind::PositionView: return new TPositionViewPane(FirstAccount, orders, parent);
    case TPaneKind::Orders: return new TOrdersPane(session.Services().Desk(), orders, parent);
    case TPaneKind::AccountTree: return new TAccountTreePane(FirstAccount, parent);
    case TPaneKind::CashTree: return new TCashTreePane({}, parent);
    case TPaneKind::Trades: {
        auto* pane = new TTradesPane(parent);
        const auto* first =
            TCustomMarketAdapter::GetInstance()->GetMarketDataAt(session.Exchange(), {}, 0);
        if (first != nullptr) pane->SetChoice(first->GetSymbol());
        return pane;
    }
    case TPaneKind::Messages: return new TMessagesPane(session.Host().Messages(), parent);
    case TPaneKind::Audit: return new TAuditPane(session.Services().Desk(), parent);
    case TPaneKind::Settings: return new TSettingsPane(session.Services().Config(), parent);
    case TPaneKind::Ticket: {
        auto* pane = new TTicketPane(parent);
        pane->Form().SetLayoutAccount(FirstAccount);
        return pane;
    }
    }
    return nullptr;
}

} // namespace quorin
