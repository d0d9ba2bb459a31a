#pragma once

#include "platform/rtl/TDictionary.h"
#include "viewdata/frame/DataControl.h"
#include "viewdata/frame/RowIndex.h"
#include "viewdata/services/ClientOrder.h"
#include "viewdata/services/PositionData.h"
#include "viewdata/services/TextComparer.h"

#include <memory>

namespace quorin {

// The position grid: one row per open position of one account. Rows come and go with the position
// service's updates and are valued from live prices at the moment of asking. A row is there while
// its quantity is not exactly 0.0; SetAccount sorts the rows, later ones stand at the end. Not
// supported: sorting and filtering, which are the view's; closing of sided records, which stay as
// they are.
//
// Rows are named by RecordIndex, columns by the numbers of PositionAttributes.h. A bad row, one
// outside the list or without a record, answers False, 0.0 or empty text and changes nothing. The
// records stay the position service's. The destructor removes every registration of this class.
class TCustomPositionDataControl : public TCustomDataControl {
    QUORIN_CLASS(TCustomPositionDataControl, TCustomDataControl)

    explicit TCustomPositionDataControl(TComponent* AOwner = nullptr);
    ~TCustomPositionDataControl() override;

    const String& Account() const { return FAccount; }
    const String& ConvertCurrency() const { return FConvertCurrency; }

    Integer GetCount() override { return FDataList.Count(); }
    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;
    Boolean GetRowValue(Integer RecordIndex, Pointer& Value) override;
    Boolean GetColValue(Integer ItemIndex, Pointer& Value) override;
    // Reads "ConfirmationClosePosition" and "PVAvgPriceMode" again. No signal.
    void ConfigUpdate(Pointer Sender, Pointer Data) override;

    // Operations, in order

    // Positions have changed: Sender is a TAccountPositionDictionary or nil. Takes in what is new
    // and drops what is closed; one signal if it names a symbol of the account. A record that is
    // known is kept, also when Sender names another one.
    virtual void PositionUpdate(Pointer Sender, Pointer Data);
    // Prices have moved: signals if Sender, the same kind, names the account and there are rows.
    virtual void PositionMarketDataUpdate(Pointer Sender, Pointer Data);
    // Shows the positions of another account, sorted, and signals; nothing for the same account.
    // The empty code shows none.
    virtual void SetAccount(StringView Account);
    // Tick tables have arrived: Sender is a TSpreadDictionary or nil. Signals if a row's product
    // uses one.
    virtual void SpreadUpdate(Pointer Sender, Pointer Data);
    // Units that are free to sell; 0.0 for nil. Futures and options: all. On an exchange of
    // "T1Market": what was held at the beginning of the day, less today's and pending sells, with
    // "IncludeStockSIMaxSell" plus deposits less withdrawals. Elsewhere: all less pending sells.
    virtual Double GetAvailableQty(TCustomPositionData* Position);
    // The currency of the converted market value; empty for none. Signals a change.
    virtual void SetConvertCurrency(StringView Currency);
    // Ratios have changed: signals if Sender is not nil and a currency is set.
    virtual void CurrencyRatioUpdate(Pointer Sender, Pointer Data);
    // Whether the position may be closed in spite of its size: above MaxOrderQuantity the user is
    // asked, modally. True for a bad row and for nil: the caller finds these itself.
    virtual Boolean CheckClosePositionQty(Integer RecordIndex);
    virtual Boolean CheckClosePositionQty(TCustomPositionData* Position);
    // Closes the row's net position with one order of at most MaxOrderQuantity units: at the best
    // price of the other side, at the last price, or at the market. With
    // "ConfirmationClosePosition" the application asks first. True when the order was taken; False
    // for sided records, without an order service, and while another action of this control waits
    // for its answer. The control must not die before the answer.
    virtual Boolean CloseToBest(Integer RecordIndex);
    virtual Boolean CloseToLast(Integer RecordIndex);
    virtual Boolean CloseToMarket(Integer RecordIndex);
    // Closes every net position at the market, after at most one question about sizes and, with
    // "ConfirmationClosePosition", one about the list. True when the orders went out, also when
    // some were refused. Goes by the positions as they are when it is called; says so when there
    // are none.
    virtual Boolean CloseAllPositions();
    // Puts the row's symbol on the favourites; what the market adapter answers.
    virtual Boolean AddToFavorite(Integer RecordIndex);
    // Hands the row to order entry as a closing order without a price, of any size.
    virtual Boolean CopyOrder(Integer RecordIndex);
    // The row's symbol is no favourite yet.
    virtual Boolean Watchable(Integer RecordIndex);

protected:
    enum class TClosePrice : Byte { Best, Last, Market };
    enum class TCloseStyle : Byte {
        NetRecords, // the others are left open
        AnyRecord,  // each order marked with ClosePositionFlagKey
    };
    // What the application is shown before every position is closed.
    struct TCloseAllQuestion {
        std::unique_ptr<TCustomPositionDataControl> List;
        String Message;
    };

    // Nil for a bad row.
    TCustomPositionData* RecordAt(Integer RecordIndex) const;
    // A short record's quantity may be shown below zero; its raw value never is.
    Double Signed(const TCustomPositionData& record, Double quantity) const;
    // Appends a row unless the symbol has one; takes a row out if there is one. Whether it did.
    Boolean TakeIn(const String& symbol, TCustomPositionData* record);
    Boolean Drop(StringView symbol);
    // Adds the rows of these positions, which nil makes any; symbols without a row have none.
    void NameRows(const TPositionDictionary* positions, TChangedRows& rows);
    // To be called when rows have been moved or taken out of FDataList.
    void RowsMoved() { FRowIndex.Clear(); }
    // The closes, for descendants that close in another style.
    Boolean CloseRow(Integer RecordIndex, TClosePrice price, TCloseStyle style);
    Boolean CloseAll(TCloseStyle style);
    // A new list, still without an account, and the text that goes with it.
    virtual TCloseAllQuestion AskCloseAll();

    String FAccount;
    std::unique_ptr<TCustomComparer> FComparer;                // of FDataList
    TDictionary<String, TCustomPositionData*> FDataDictionary; // records of the rows
    TList<String> FDataList;                                   // the rows: symbols in order
    std::unique_ptr<TCustomClientOrder> FMyOrder; // nil where there was no order service
    Boolean FClosePositionConfirmation = false;
    Integer FAvgPriceMode = 0;
    TDictionary<String, String> FT1SettelementMarket; // upper-case exchange codes, to themselves
    Boolean FT1SettlementIncludeDWQty = false;
    String FConvertCurrency;
    Boolean FShowNegForShortPos = false;
    Boolean FIsActionPending = false; // an order or copy action is under way
    std::uint32_t FMoves = 0;         // to another account, begun

private:
    void ReadSettlementMarkets();
    static Boolean Closes(TCloseStyle style, const TCustomPositionData& record);
    Boolean FillCloseOrder(const TCustomPositionData& record, TClosePrice price);
    void FillBatchOrder(const TCustomPositionData& record);
    Boolean CollectOpenPositions(TList<TCustomPositionData*>& open);
    Boolean ConfirmCloseAll();

    // Recipes of the columns.
    Double AveragePrice(const TCustomPositionData& record) const;
    Variant ConvertedMarketValue(const TCustomPositionData& record) const;
    String ConvertedMarketValueText(const TCustomPositionData& record) const;
    String QuantityText(const TCustomPositionData& record, Double quantity, Boolean shown) const;
    String QuantityText(const TCustomPositionData& record, Double quantity) const; // not near zero
    String LivePriceText(const TCustomPositionData& record, Integer field) const;
    String MarketValueText(const TCustomPositionData& record) const;

    TRowIndex FRowIndex; // of FDataList
};

// The list that a dialog shows before every position is closed: who holds what. An instance follows
// its account as any position list does. Whoever takes one out of a close-all message owns it.
class TCustomCloseAllPositionDataControl : public TCustomPositionDataControl {
    QUORIN_CLASS(TCustomCloseAllPositionDataControl, TCustomPositionDataControl)

    explicit TCustomCloseAllPositionDataControl(TComponent* AOwner = nullptr)
        : TCustomPositionDataControl(AOwner) {}

    // One list for all instances; nil before the first CloseAllPositions has needed it.
    const TColumnList* GetColList() override;
};

} // namespace quorin
