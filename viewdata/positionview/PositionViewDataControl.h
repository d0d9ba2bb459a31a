#pragma once

#include "platform/rtl/Lifeline.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/positionview/AggregatePositionData.h"
#include "viewdata/services/Account.h"

#include <vector>

namespace quorin {

// The main position grid. It lists the positions of an account as the service has them, or, for a
// master account, the sums over the account and all its sub-accounts; filters them by currency;
// values them at live prices; and follows the account's status and details. Not supported: sorting,
// patching of sums (what touches one of the accounts rebuilds the list).
//
// Rows of quantity 0.0 may stand in the list here, see "DisplayZeroQty". Needs the account service.
// Rows that stay keep their order among each other; there is no sorting, also not after SetAccount.
// Columns are the numbers of PositionViewAttributes.h and PositionAttributes.h. Bad rows answer as
// in the base class. A reader never sees a half-built list, and rows that a rebuild drops while one
// of this control's operations still reads or closes them are kept until it has returned.
class TPositionViewDataControl : public TCustomPositionDataControl {
    QUORIN_CLASS(TPositionViewDataControl, TCustomPositionDataControl)

    // Reads "OptionsPLPrice", "MiddlePLPrice" and "LoadAcctStatus", once and for all.
    explicit TPositionViewDataControl(TComponent* AOwner = nullptr);
    ~TPositionViewDataControl() override;

    Boolean Aggregated() const { return FAggregated; }
    const String& FilterCurrency() const { return FFilterCurrency; }
    // The figures behind the totals have changed; the sender is this control.
    const TNotifyEvent& OnSummaryDataChanged() const { return FOnSummaryDataChanged; }
    void SetOnSummaryDataChanged(const TNotifyEvent& Event) { FOnSummaryDataChanged = Event; }
    // The account's status or details have changed; the sender is nil.
    const TNotifyEvent& OnAccountInfoUpdate() const { return FOnAccountInfoUpdate; }
    void SetOnAccountInfoUpdate(const TNotifyEvent& Event) { FOnAccountInfoUpdate = Event; }

    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;
    // Also reads "DisplayZeroQty", which rebuilds the list, and "DenominatorModeValue". One signal
    // if either differs.
    void ConfigUpdate(Pointer Sender, Pointer Data) override;
    // Patches the plain list, rebuilds the aggregated one if an account of it is named. Signals the
    // rows, then the summary.
    void PositionUpdate(Pointer Sender, Pointer Data) override;
    // Signals the rows alone, also of an empty aggregated list; rebuilds nothing.
    void PositionMarketDataUpdate(Pointer Sender, Pointer Data) override;
    // Stays aggregated for a master account and for the empty code, not for any other.
    void SetAccount(StringView Account) override;
    // The closes of the base class, for sided records as well, each order marked with
    // ClosePositionFlagKey. An aggregate row closes in the master account.
    Boolean CloseToBest(Integer RecordIndex) override;
    Boolean CloseToLast(Integer RecordIndex) override;
    Boolean CloseToMarket(Integer RecordIndex) override;
    Boolean CloseAllPositions() override;

    // Operations, in order

    // Rebuilds the list. No signal.
    virtual void RefreshDataList();
    // The position passes the currency filter (without a ticker it does) and is open or, with
    // "DisplayZeroQty", traded today. False for nil.
    virtual Boolean IsDisplayPosition(TCustomPositionData* Position);
    // Margin ratios have changed: signals the rows, then the summary.
    virtual void ProductMarginRatioUpdate(Pointer Sender, Pointer Data);
    // What the position is worth as margin, in `Currency` or, for the empty code, in the product's.
    // A missing ratio leaves the amount in the last currency that could be reached. False, and
    // `Value` left alone, where there is no margin ratio or no market value.
    virtual Boolean GetAcceptValue(TCustomPositionData* Position, StringView Currency,
                                   Double& Value);
    // The part of the position's value that counts as margin; False for what is in no margin
    // account or has no ratio.
    virtual Boolean GetProductMargin(TCustomPositionData* Position, Double& Ratio);
    // Details of accounts have been loaded: Sender is a TAccountDictionary or nil. A margin
    // account's new group is stored and signalled; the details in any case.
    virtual void AccountInfoLoadUpdate(Pointer Sender, Pointer Data);
    // What is left of the quantity at the beginning of the day; 0.0 for a net record. On SHFE every
    // closing trade takes from it, elsewhere only what the day's opening trades do not cover.
    virtual Double GetLastQty(TCustomPositionData* Position);
    // Text of the account's principal type; empty for a net record.
    virtual String GetPrincipalType(TCustomPositionData* Position);
    // Units of a contract, 0.0 where the product has none.
    virtual Double GetConstractSize(TCustomPositionData* Position);
    // Average cost of a sided record; False for a net one and where nothing was held or came in.
    virtual Boolean GetAvgPrice(TCustomPositionData* Position, Double& Price);
    // Profit and loss at GetPLPrice, in the product's currency. A net record has no cost here.
    virtual Double GetPL(TCustomPositionData* Position);
    // The price that marks the position: the nominal or, as settings say, a side of the quote or
    // the median of last, close and that side.
    virtual Double GetPLPrice(TCustomPositionData* Position);
    virtual Boolean IsMarketOpen(StringView Exchange);
    // The median.
    virtual Double GetMiddleOne(Double A, Double B, Double C);
    // Sub-accounts have been loaded: Sender is a TAccountDictionary or nil. Rebuilds and signals if
    // one of this master is named.
    virtual void SubAccountLoadUpdate(Pointer Sender, Pointer Data);
    // Takes in the sub-accounts; ends the aggregation for an account that is no master.
    virtual void InitAggregateAccountList();
    // Takes them in again if Sender names one of them; whether it did.
    virtual Boolean CheckNeedUpdateSubAccountList(const TAccountDictionary* Sender);
    // Lets the sums go. None of them is a row of the list any more.
    virtual void ClearAggregateData();
    // Sender names the account or one of its sub-accounts.
    virtual Boolean CheckNeedUpdatePosition(const TAccountPositionDictionary* Sender);
    // Shows positions in this currency alone, in any case of letters; empty for all. Signals.
    virtual void SetFilterCurrency(StringView Currency);
    // Sum of the rows' converted market value or accept value. With China Connect on it covers
    // either its rows or all others, and is in the currency of SetShowChinaConnect.
    virtual Double GetTotalMarketValue();
    virtual Double GetTotalAcceptValue();
    // Turns the aggregation of a master account on or off; nothing for any other. Signals.
    virtual void SetAggregate();
    // The currency of China Connect totals; empty for the totals of everything else. No signal.
    virtual void SetShowChinaConnect(StringView SelectCurrency);
    // Up to three lines on the holder, "\r\n" between them, and a line on the account's status.
    // Both empty without an account.
    virtual String GetAccountInfo(String& Status);

    // Not virtual

    // Hands the row to order entry as a sale of what is free, at the last price. Does nothing for a
    // bad row, without an order service, and while an action waits.
    void CopySymbol(Integer RecordIndex);
    // The account has changed: follows its status.
    void AccountUpdate(Pointer Sender, Pointer Data);

protected:
    using TSums = TDictionary<String, std::unique_ptr<TAggregatePositionData>>;

    Boolean FDisplayZeroQty = false;
    Integer FBondStyle = 0;
    String FAccountGroupID;
    TNotifyEvent FOnSummaryDataChanged;
    Boolean FOptionsPLPrice = false;
    Boolean FMiddlePLPrice = false;
    Boolean FAggregated = false;
    TAccountDictionary FSubAccountList; // the records stay the account service's
    // Every sum, shown or not, by symbol.
    TSums FAggregatePositionList;
    Boolean FShowingChinaConnectAccountData = false;
    String FChinaConnectCurrency;
    TNotifyEvent FOnAccountInfoUpdate;
    Boolean FLoadAccountStatus = false;
    Integer FAccountStatus = 0;
    String FFilterCurrency;

private:
    struct TRows; // of a rebuild that is under way

    // Keeps dropped rows for as long as an operation that reads or closes them lasts.
    class TPin;
    Boolean HoldsRows() const { return FPins > 0 || FIsActionPending; }

    TCloseAllQuestion AskCloseAll() override;
    void ListPlain(TRows& rows);
    void ListSums(TRows& rows);
    void AddToSums(TSums& sums, StringView account);
    void KeepOrder(TRows& rows) const;
    void TakeOver(TRows& rows);
    void SignalRowsAndSummary();
    void NameMoved(const TAccountPositionDictionary& moved, TChangedRows& rows);
    void FireAccountInfoUpdate();
    TCustomAccount* MasterAccount() const;
    Double Total(Integer attribute);
    Boolean IsInTotal(Integer row) const;
    String StatusWord() const;
    String KindLine(const TCustomAccount& account) const;

    // Recipes of the columns.
    Variant AverageCostValue(TCustomPositionData& record);
    Variant ProductMarginValue(TCustomPositionData& record);
    Variant AcceptValue(TCustomPositionData& record, StringView currency);
    String AcceptValueText(TCustomPositionData& record, StringView currency);
    String AverageCostText(TCustomPositionData& record);
    String ProductMarginText(TCustomPositionData& record);
    String CoveredText(const TCustomPositionData& record) const;

    TPositionDictionary FHeld; // of one account; reused from rebuild to rebuild
    std::vector<std::unique_ptr<TAggregatePositionData>> FParkedRows;
    Integer FPins = 0;
    std::uint32_t FRebuilds = 0;    // begun
    std::uint32_t FListChanges = 0; // rebuilds that brought other rows
    TLifeline FLifeline;
};

// The list that a dialog shows before every position of the view is closed.
class TPositionViewCloseAllPositionDataControl : public TCustomCloseAllPositionDataControl {
    QUORIN_CLASS(TPositionViewCloseAllPositionDataControl, TCustomCloseAllPositionDataControl)

    explicit TPositionViewCloseAllPositionDataControl(TComponent* AOwner = nullptr)
        : TCustomCloseAllPositionDataControl(AOwner) {}

    // One list for all instances; nil before the first CloseAllPositions has needed it.
    const TColumnList* GetColList() override;
};

} // namespace quorin
