#include "terminal/forms/TradeListForm.h"

#include "platform/rtl/Numbers.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <utility>

namespace quorin {

namespace {

namespace A = TradeAttribute;

constexpr TFormColumn Columns[] = {
    {A::Time, TerminalKey::Res_Time, 76, u"Time", false},
    {A::Price, TerminalKey::Res_Price, 88, u"Price", false},
    {A::Quantity, TerminalKey::Res_Qty, 88, u"Quantity", true},
    {A::Side, TerminalKey::Res_Side, 96, u"Side", false},
};

constexpr StringView AskSide = u"A"; // the detector's
constexpr StringView BidSide = u"B";
constexpr std::size_t UsualText = 15; // units of a time and of a quantity

TTradeSide SideOf(StringView side) {
    if (side == AskSide) return TTradeSide::Ask;
    return side == BidSide ? TTradeSide::Bid : TTradeSide::Unknown;
}

TCustomSubItem& LiveItem(StringView symbol) {
    return *TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
}

} // namespace

TTradeControl::TTradeControl(TComponent* AOwner) : TGrowingControl(AOwner, Columns) {
    FRing.resize(MostTrades);
    for (TTrade& trade : FRing) {
        trade.Time.reserve(UsualText);
        trade.Quantity.reserve(UsualText);
    }
}

TTradeControl::~TTradeControl() {
    SetSymbol({});
}

// The detector listens first, so with every update its trades are there when this control is told.
void TTradeControl::SetSymbol(StringView symbol) {
    if (symbol == FSymbol) return;
    TMarketTradeSideDetector& detector = *TMarketTradeSideDetector::GetInstance();
    const String left = std::exchange(FSymbol, String(symbol));
    FState = nullptr;
    FCount = 0;
    ++FChanges;
    if (!left.empty()) {
        LiveItem(left).RemoveRealtimeListener(this);
        detector.RemoveSymbol(left);
    }
    if (FSymbol.empty()) return;
    detector.AddSymbol(FSymbol);
    FState = detector.GetSymbolMarketTrade(FSymbol);
    FStateTaken = 0;
    LiveItem(FSymbol).AddRealtimeListener(MakeEvent<&TTradeControl::Update>(this), this);
    TakeNew();
}

void TTradeControl::Update(TObject*) {
    TakeNew();
}

void TTradeControl::TakeNew() {
    if (FState == nullptr) return;
    const Integer known = FState->GetCount();
    const Int64 taken = FState->TakenCount();
    const auto fresh =
        static_cast<Integer>(std::min<Int64>(taken - std::exchange(FStateTaken, taken), known));
    for (Integer index = known - fresh; index < known; ++index) {
        const TMarketDataTrade& trade = *FState->GetTrade(index);
        if (trade.Time().empty()) continue; // a place without a trade
        TTrade& kept = FRing[static_cast<std::size_t>(FNext)];
        kept.Time = trade.Time();
        kept.Quantity = trade.Qty();
        kept.Price = trade.Price();
        kept.Side = SideOf(trade.Side());
        FNext = (FNext + 1) % MostTrades;
        FCount = std::min(FCount + 1, MostTrades);
        ++FTaken;
        ++FChanges;
    }
}

const TTradeControl::TTrade& TTradeControl::At(Integer record) const {
    return FRing[static_cast<std::size_t>((FNext - 1 - record + MostTrades) % MostTrades)];
}

TTradeSide TTradeControl::Side(Integer record) const {
    return record >= 0 && record < FCount ? At(record).Side : TTradeSide::Unknown;
}

std::optional<Variant> TTradeControl::CellNumber(Integer record, Integer attribute) const {
    switch (attribute) {
    case A::Price: return At(record).Price;
    case A::Quantity: {
        Double quantity = 0.0;
        return TryParseDouble(At(record).Quantity, quantity) ? Variant(quantity) : Variant();
    }
    default: return {};
    }
}

String TTradeControl::CellText(Integer record, Integer attribute) const {
    const TTrade& trade = At(record);
    switch (attribute) {
    case A::Time: return trade.Time;
    case A::Price: {
        TOrderValues values;
        values.Symbol = FSymbol;
        values.Price = trade.Price;
        return OrderPriceText(values);
    }
    case A::Quantity: {
        Double quantity = 0.0;
        return TryParseDouble(trade.Quantity, quantity) ? QuantityText(quantity, FSymbol)
                                                        : trade.Quantity;
    }
    case A::Side:
        switch (trade.Side) {
        case TTradeSide::Ask: return InterfaceText(TerminalKey::Res_AtAsk);
        case TTradeSide::Bid: return InterfaceText(TerminalKey::Res_AtBid);
        case TTradeSide::Unknown: break;
        }
        return {};
    default: return {};
    }
}

TTradeListForm::TTradeListForm() {
    std::unique_ptr<TTradeControl> trades = CreateComponent<TTradeControl>();
    FTrades = trades.get();
    BindGrowing(std::move(trades));
}

void TTradeListForm::Follow() {
    const Int64 taken = FTrades->TakenCount();
    const auto fresh = static_cast<Integer>(
        std::min<Int64>(taken - std::exchange(FShown, taken), TTradeControl::MostTrades));
    const Integer top = View().TopRow();
    Inherited::Follow();
    const bool isAsTheyCame = View().GetSortedItemCount() == 0;
    if (fresh > 0 && top > 0 && isAsTheyCame) View().SetTopRow(top + fresh);
}

TFormView TTradeListForm::FormView() {
    TFormView view = Inherited::FormView();
    view.ReservedColumns = {A::Price};
    return view;
}

bool TTradeListForm::IsText(Integer attribute) const {
    return attribute == A::Time || attribute == A::Side;
}

std::optional<TPriceChangeState> TTradeListForm::Mark(Integer row, Integer attribute) {
    if (attribute != A::Side) return {};
    switch (FTrades->Side(View().RecordIndex(row))) {
    case TTradeSide::Ask: return pcsUp;
    case TTradeSide::Bid: return pcsDown;
    case TTradeSide::Unknown: break;
    }
    return {};
}

String TTradeListForm::Title() {
    const String caption = InterfaceText(TerminalKey::Res_LastTrades);
    return Symbol().empty() ? caption : caption + u"  " + SymbolText(Symbol());
}

} // namespace quorin
