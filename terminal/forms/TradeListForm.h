#pragma once

#include "terminal/forms/GrowingListForm.h"
#include "viewdata/market/MarketTradeSideDetector.h"

#include <vector>

namespace quorin {

// The tags of the trade list's columns.
namespace TradeAttribute {
inline constexpr Integer Time = 1;
inline constexpr Integer Price = 2;
inline constexpr Integer Quantity = 3;
inline constexpr Integer Side = 4;
} // namespace TradeAttribute

enum class TTradeSide : Byte { Unknown, Ask, Bid };

// The latest trades of one symbol with the side of the quote that each reached, newest first. Goes
// on where the detector forgets: takes its trades over with every update, before there are new
// ones, so that frames may come as seldom as they like. Must be gone before the detector is
// released.
class TTradeControl : public TGrowingControl {
    QUORIN_CLASS(TTradeControl, TGrowingControl)

    static constexpr Integer MostTrades = 200;

    explicit TTradeControl(TComponent* AOwner = nullptr);
    ~TTradeControl() override;

    // Follows another symbol from here on, with what the detector knows of it; empty follows none.
    void SetSymbol(StringView symbol);
    const String& Symbol() const { return FSymbol; }
    // Unknown outside.
    TTradeSide Side(Integer record) const;
    // Trades taken in since the start.
    Int64 TakenCount() const { return FTaken; }

    Integer GetCount() override { return FCount; }

protected:
    Int64 Written() const override { return FChanges; }
    std::optional<Variant> CellNumber(Integer record, Integer attribute) const override;
    String CellText(Integer record, Integer attribute) const override;

private:
    struct TTrade {
        String Time;
        String Quantity;
        Double Price = 0.0;
        TTradeSide Side = TTradeSide::Unknown;
    };

    void Update(TObject* Sender);
    void TakeNew();
    const TTrade& At(Integer record) const;

    String FSymbol;
    const TSymbolMarketTrade* FState = nullptr; // the detector's
    Int64 FStateTaken = 0;                      // of its trades
    std::vector<TTrade> FRing;                  // texts are written over, not made anew
    Integer FNext = 0;                          // place in the ring
    Integer FCount = 0;
    Int64 FTaken = 0;
    Int64 FChanges = 0; // trades and symbols
};

class TTradeListForm : public TGrowingListForm {
    QUORIN_CLASS(TTradeListForm, TGrowingListForm)

    TTradeListForm();

    TTradeControl& Trades() { return *FTrades; }
    const String& Symbol() const { return FTrades->Symbol(); }
    // To be called once per frame, before the list is drawn. Rows that were scrolled to stay where
    // they are when others come above them.
    void Follow();

    TFormView FormView() override;
    bool IsText(Integer attribute) const override;
    bool HasMarks(Integer attribute) const override { return attribute == TradeAttribute::Side; }
    // Up for a trade that reached the ask, down for one that reached the bid.
    std::optional<TPriceChangeState> Mark(Integer row, Integer attribute) override;
    String Title() override;

private:
    TTradeControl* FTrades = nullptr; // the source's
    Int64 FShown = 0;
};

} // namespace quorin
