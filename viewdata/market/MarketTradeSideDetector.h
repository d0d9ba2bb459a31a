#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <memory>

namespace quorin {

// One trade as its line told it.
class TMarketDataTrade : public TComponent {
    QUORIN_CLASS(TMarketDataTrade, TComponent)

    explicit TMarketDataTrade(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

    const String& Time() const { return FTime; }
    // The quantity's text, as the line gave it.
    const String& Qty() const { return FQty; }
    // 0.0 when the line's price is no number.
    Double Price() const { return FPrice; }
    // "A": the trade reached the ask; "B": it reached the bid; empty: neither, or not known.
    const String& Side() const { return FSide; }

protected:
    friend class TSymbolMarketTrade;

    // Takes in a line "HH:MM:SS quantity price", or with HH:MM; the time may touch the quantity. A
    // line that has no blank after its time leaves the trade as it was. Answers the price's text,
    // which may begin with a blank and is empty when there is none; it is part of `line`.
    StringView Parse(StringView line);

    String FTime;
    String FQty;
    Double FPrice = 0.0;
    String FSide;
};

// The followed state of one symbol: its latest trades and the quote before them. Made and owned
// by the detector.
class TSymbolMarketTrade : public TComponent {
    QUORIN_CLASS(TSymbolMarketTrade, TComponent)

    explicit TSymbolMarketTrade(TComponent* AOwner = nullptr) : TComponent(AOwner) {}
    // Stops listening.
    ~TSymbolMarketTrade() override;

    const String& Symbol() const { return FSymbol; }
    // Trades known, the oldest first: none before the first valid update, five after it, of which
    // those without a trade have an empty time.
    Integer Count() const { return FTradeList.Count(); }
    Integer GetCount() const { return FTradeList.Count(); }
    // Nil for an index outside the list. The trade stays this object's and may be reused by the
    // next update.
    TMarketDataTrade* GetTrade(Integer Value) const;
    // How many lines have been taken in since the symbol was first followed. What was added since
    // an earlier look stands last in the list.
    Int64 TakenCount() const { return FTakenCount; }

    // One more or one less follower. The first one starts listening; after the last one the
    // history is empty again.
    void Add();
    void Reduce();
    // Stops listening and forgets the history and all followers; whether the exchange is one that
    // is watched stays decided.
    void ClearTrade();
    // The realtime listener; Sender is a TCustomSubItem, anything else is ignored.
    void SymbolUpdate(TObject* Sender);
    // Takes in the item's quote and its five latest trade lines.
    void ProcessTradeMessage(TCustomSubItem* Item);

protected:
    friend class TMarketTradeSideDetector;

    // One side of the quote of an update. Not valid: the field's text is no number.
    struct TQuotePrice {
        Double Price = 0.0;
        Boolean IsValid = false;
    };
    enum class TDetectorFlag : Integer { Undecided = 0, Detecting = 1, Off = 2 };

    TCustomSubItem* LiveItem() const;
    TQuotePrice ReadQuote(const TCustomSubItem& item, Integer field);
    void KeepQuote(const TQuotePrice& bid, const TQuotePrice& ask);
    void TakeFirstLines();
    void TakeNewLines(const TQuotePrice& bid, const TQuotePrice& ask);
    void TakeNewLine(StringView line, Integer index, const TQuotePrice& bid,
                     const TQuotePrice& ask);
    Boolean IsNewLine(StringView line, Integer index, Integer anchorIndex) const;
    void KeepLatestLines();
    StringView SideOf(StringView price, const TQuotePrice& bid, const TQuotePrice& ask) const;

    String FSymbol;
    TList<std::unique_ptr<TMarketDataTrade>> FTradeList;
    Boolean FTradeInit = false;
    Integer FEventCount = 0;
    TList<String> FLastTradeList; // five lines from the first update on, the oldest first
    TList<String> FCurrentTradeList;
    TList<String> FDiffTradeList;
    Double FLastBidPrice = 0.0; // the quote of the update before
    Double FLastAskPrice = 0.0;
    Boolean FLastBidValid = false;
    Boolean FLastAskValid = false;
    TDetectorFlag FDetectorFlag = TDetectorFlag::Undecided;
    Int64 FTakenCount = 0;
    String FQuoteText; // reused from update to update
};

// Tells which side of the market each reported trade hit, from the five latest trade lines of a
// symbol and the quote before them. Forms follow symbols and read the results when they repaint;
// nothing calls them back. Only one exchange is watched: a symbol of any other switches itself off
// at its first valid update. Trades beyond five between two updates are lost.
class TMarketTradeSideDetector : public TComponent {
    QUORIN_CLASS(TMarketTradeSideDetector, TComponent)

    explicit TMarketTradeSideDetector(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

    // The shared detector, made on first use. ReleaseInstance frees it; the host calls that before
    // the services go.
    static TMarketTradeSideDetector* GetInstance();
    static void ReleaseInstance();

    // Each AddSymbol asks for one RemoveSymbol; one for an unknown symbol does nothing.
    void AddSymbol(StringView Symbol);
    void RemoveSymbol(StringView Symbol);
    // The symbol's state, which lasts as long as the detector, or nil when it was never added.
    TSymbolMarketTrade* GetSymbolMarketTrade(StringView Symbol) const;

protected:
    TDictionary<String, std::unique_ptr<TSymbolMarketTrade>> FSymbolTradeList;
};

} // namespace quorin
