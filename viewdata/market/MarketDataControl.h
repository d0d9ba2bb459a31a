#pragma once

#include "platform/rtl/Lifeline.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/frame/DataControl.h"
#include "viewdata/frame/RowIndex.h"
#include "viewdata/services/ClientOrder.h"
#include "viewdata/services/MarketAdapter.h"
#include "viewdata/services/PositionData.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <memory>
#include <span>

namespace quorin {

// Which way a price moved. Equal or unknown is None.
enum class TPriceChangeState : Byte { pcsNone, pcsUp, pcsDown };
using enum TPriceChangeState;

// The exchange code that stands for the user's favourites.
inline constexpr StringView FavoriteExchange = u"FAVORITEEXCHANGE";

// The market watch: one row per symbol of an exchange, of a product category or of the user's
// favourites. Rows are loaded at once, but only those that the view says are on screen are
// subscribed; their updates signal the view, once per delivered batch. Values are read from the
// live item at the moment of asking, nothing is cached. Not supported: sorting and filtering,
// which are the view's; telling of errors: what can't be done answers False and keeps its state.
//
// Rows are named by RecordIndex, columns by the numbers of MarketAttributes.h. A row outside the
// list or a negative attribute answers empty text, EmptyDisplayText or False and changes nothing.
// The destructor runs ClearAll and removes every registration of this class; a descendant that
// registers or subscribes more releases that in its own destructor.
class TCustomMarketDataControl : public TCustomDataControl {
    QUORIN_CLASS(TCustomMarketDataControl, TCustomDataControl)

    explicit TCustomMarketDataControl(TComponent* AOwner = nullptr);
    ~TCustomMarketDataControl() override;

    const String& Account() const { return FAccount; }
    Boolean ShowPosition() const { return FShowPosition; }
    // How ViewRecordChanged subscribes: True, from construction, in batches; False for each change
    // of an item at once. Rows subscribed before stay as they are.
    Boolean IsBatchMode() const { return FIsBatchMode; }
    void SetIsBatchMode(Boolean Value) { FIsBatchMode = Value; }

    Integer GetCount() override { return FDataList.Count(); }
    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;
    // Signals when the bond style differs from the one last seen; a receiver may free the control
    // there, so that an override reads its own settings before the inherited call or guards itself.
    void ConfigUpdate(Pointer Sender, Pointer Data) override;

    // Operations, in order

    // Reloads the rows and signals: those of the exchange or the favourites; with an empty exchange
    // and a category of 0 or more those of every exchange; with neither none. Except for favourites
    // it keeps everything while the universe is not ready, and the caller asks again later.
    virtual void InitData();
    // Reloads the rows from the favourites, also those whose record is not loaded, and signals.
    virtual void InitFavoriteData();
    // Batched update: Sender is a TSubItemDictionary or nil. One signal if any row followed.
    virtual void SymbolUpdate(Pointer Sender, Pointer Data);
    // Tick tables have arrived: signals.
    virtual void SpreadUpdate(Pointer Sender, Pointer Data);
    // Releases all subscriptions and empties the list without a signal. Last prices and margins
    // are remembered for symbols that come back.
    virtual void ClearAll();
    // Choose what InitData loads. Neither reloads. A negative category means every category.
    virtual void SetExchange(StringView Exchange);
    virtual void SetCategory(Integer CategoryID);
    // Appends the row of a record unless the list has it; nil adds nothing. No signal.
    virtual void AddMarketData(TCustomMarketData* Data);
    // The favourites have changed: reloads them while they are what is shown and, when there are as
    // many rows as before, subscribes again what was subscribed.
    virtual void FavoriteMarketDataCountUpdate(Pointer Sender, Pointer Data);
    // The account of position columns and quick orders; an unknown one is ignored. Signals.
    virtual void SetAccount(StringView Account);
    // Whether the view shows position columns. No signal.
    virtual void SetShowPosition(Boolean Value);
    // Positions have changed: Sender is a TAccountPositionDictionary or nil. Signals if it names
    // the account and positions are shown.
    virtual void PositionUpdate(Pointer Sender, Pointer Data);
    // Margin that one contract of a future or option requires, as amount text or in the currency
    // of the product. False, and Margin left alone, while none is known; the first call for a
    // product subscribes its margin items, and the control signals when they arrive.
    virtual Boolean GetRequireMargin(StringView Symbol, String& Margin);
    virtual Boolean GetRequireMargin(StringView Symbol, Double& Margin);
    // Margin items have changed: Sender is a TSubItemDictionary or nil. Signals once if it names
    // one that is subscribed here, also when the margin is as before.
    virtual void SpanUpdate(Pointer Sender, Pointer Data);
    // Takes over the largest of a ready margin item's figures, whatever their signs.
    virtual void ProcessMarginValue(TCustomSubItem* Item);
    // One item has changed: Sender is a TCustomSubItem. Signals if its row is followed.
    virtual void SymbolRealtimeUpdate(TObject* Sender);
    // Takes in one changed item; False, and nothing done, when its symbol is not subscribed.
    virtual Boolean UpdateSymbolMessage(TCustomSubItem* Item);
    // What a view calls to show a market: chooses and reloads.
    virtual void SetExchangeAndCategory(StringView Exchange, Integer CategoryID);
    // Asks the application for its way of adding a favourite. Always True.
    virtual Boolean AddFavoritePrice();
    // Take the row's symbol off the favourites, or every symbol; the list follows when the change
    // comes back. False for a bad row, for what is no favourite, and where there are none.
    virtual Boolean RemoveFavoritePrice(Integer RecordIndex);
    virtual Boolean ClearAllFavoritePrice();
    // One order for the row's symbol and the control's account: at the market, at the last price,
    // or at the best price of the other side, whatever that is. With "ConfirmationPlaceOrd" the
    // application is asked and gives the quantity; without, one lot goes out at once. What the
    // order path answers; False when nobody is logged in, without an account or an order service,
    // and while another action of this control waits for its answer. The control must not die
    // before the answer.
    virtual Boolean BuyMarketOrder(Integer RecordIndex);
    virtual Boolean SellMarketOrder(Integer RecordIndex);
    virtual Boolean BuyLastOrder(Integer RecordIndex);
    virtual Boolean SellLastOrder(Integer RecordIndex);
    virtual Boolean BuyBestAskOrder(Integer RecordIndex);
    virtual Boolean SellBestBidOrder(Integer RecordIndex);
    // Puts the row's symbol on the favourites; what the market adapter answers.
    virtual Boolean AddToFavorite(Integer RecordIndex);
    // The rows now on screen: exactly these are subscribed afterwards, all others released. An
    // index outside the list and a row named twice are skipped. Always True.
    virtual Boolean ViewRecordChanged(std::span<const Integer> Value);
    // Lines "label: value" that describe the row's product in the language in force, "\r\n" between
    // them: four lines, up to twelve for futures and options. Empty outside the list.
    virtual String GetProductInfo(Integer RecordIndex);
    // The row's symbol, empty outside the list.
    virtual String GetSymbol(Integer RecordIndex);
    // Hands the row's symbol to order entry, with the price or the quantity that the column stands
    // for, if it stands for one. Needs no account; does nothing while an action waits.
    virtual void CopyPrice(Integer RecordIndex, Integer Attribute);
    // Moves a row within the list and signals; subscriptions stay with their symbols.
    virtual void MoveRecord(Integer FromRecordIndex, Integer ToRecordIndex);
    // How the last price moved at the row's latest update since the list was loaded, against the
    // price before, which is remembered beyond a reload. False before there is such a move.
    virtual Boolean GetLastPriceMoveTick(Integer RecordIndex, TPriceChangeState& UpDownTick);

    // Not virtual

    // Value of a custom column: Double or whole 0 where its resource has a numeric type, text
    // otherwise.
    Variant GetFieldValue(TCustomSubItem* Item, Integer Attribute);
    // The field against the previous close; False when the item lacks either.
    Boolean GetPriceChangeState(Integer RecordIndex, Integer Attribute,
                                TPriceChangeState& PriceState);
    // The field against what this operation saw at its previous call for the same symbol and
    // attribute, so that a change shows once; False when the item lacks the field.
    Boolean GetPriceMoveTickChangeState(Integer RecordIndex, Integer Attribute,
                                        TPriceChangeState& PriceState);

    // Where the field went farthest, up or down, from what this operation saw at its previous call
    // for the same symbol and attribute, as far as the row was followed: a rise that is taken back
    // is told nevertheless. pcsNone at the first call; False when the item lacks the field.
    Boolean GetExtremeMove(Integer RecordIndex, Integer Attribute, TPriceChangeState& PriceState);

protected:
    TDictionary<String, TCustomMarketData*> FDataDictionary; // the records stay the adapter's
    TList<String> FDataList;                                 // the rows: symbols in display order
    TDictionary<String, TCustomSubItem*> FSubscribedDataList;
    String FExchange;
    Integer FCategoryID = 0;
    Boolean FIsFavoriteExchange = false;
    std::unique_ptr<TCustomClientOrder> FMyOrder; // nil while there is no order service
    String FAccount;
    Boolean FShowPosition = false;
    Boolean FMonitoringPosition = false;
    TDictionary<String, Double> FLastPriceList;
    TDictionary<String, TPriceChangeState> FLastMoveTick;
    TDictionary<String, TCustomSubItem*> FSubscribedSpanDataList;
    TDictionary<String, Double> FSpanList;
    Boolean FAddOrderConfirmation = false;
    TDictionary<String, TDictionary<Integer, Double>> FRefreshPriceList;
    Boolean FIsBatchMode = true;
    Integer FBondStyle = 0;
    String FCustomColumnTagID; // table of custom columns; a descendant sets it

private:
    // What a field has been since it was looked at.
    struct TFieldExtent {
        Integer Attribute = 0;
        Double Seen = 0.0;
        Double Low = 0.0;
        Double High = 0.0;
    };

    void WidenExtents(const TCustomSubItem& item);
    Boolean HasCategory() const { return FCategoryID >= 0; }
    void InitExchange(StringView exchange);
    void FetchAhead(const TSubItemDictionary& changed) const;
    void NameFollowedRows(const TSubItemDictionary& changed, TChangedRows& rows);
    void NamePositions(const TAccountPositionDictionary& changed, TChangedRows& rows);
    void ReleaseSubscribedData();
    void ReleaseSubscribedSpanData();
    const TCustomSubItem& SearchMargin(const String& code, Boolean& found, Double& margin);
    void RequestSpreadTable(const TCustomSubItem& item);
    void TrackLastPrice(const TCustomSubItem& item);
    Boolean QuickOrder(Integer RecordIndex, Integer side, Integer priceField);
    void UpdateMonitoringPosition() { FMonitoringPosition = FShowPosition && !FAccount.empty(); }

    // Recipes of the columns.
    Variant PositionSize(StringView symbol, Double side) const;
    String PositionText(Integer RecordIndex, Integer Attribute, const String& symbol);
    String RequiredMarginText(StringView symbol);
    Double RequiredMargin(StringView symbol);
    String StrikePriceText(StringView symbol) const;
    String CustomColumnType(Integer attribute) const;
    String CustomColumnText(Integer RecordIndex, Integer Attribute, const String& symbol);
    template <class Maker>
    String ShownText(Maker make) const;
    String PriceText(StringView symbol, Integer attribute) const;
    String VolumeText(StringView symbol, Integer attribute) const;
    String ChangeText(StringView symbol) const;
    String ChangePercentText(StringView symbol) const;

    TDictionary<String, TList<TFieldExtent>> FExtents; // by symbol, of what has been looked at
    TRowIndex FRowIndex;                               // of FDataList
    Boolean FIsActionPending = false;                  // an order or copy action is under way
    String FSpreadCode;                                // reused from update to update
    TLifeline FLifeline;
};

} // namespace quorin
