#pragma once

#include "platform/rtl/Lifeline.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/account/AccountNodes.h"
#include "viewdata/frame/DataControl.h"
#include "viewdata/services/Account.h"
#include "viewdata/services/PositionData.h"

namespace quorin {

// The account information tree. The user chooses figures as columns of a column list; the tree
// turns them around: a row per figure with the total, and below it a row per currency of the
// account. Two columns are shown, see AccountTreeColumn. An account that can be aggregated may be
// shown with figures summed over its sub-accounts; with a filter currency figures come from the
// China Connect account.
//
// The tree is walked as a flat list of nodes, each with its parent; the child operations are not
// for it. Without an account the figures' captions are shown alone. A node lives until the next
// rebuild drops it; one that is dropped while an operation of this control is under way is kept
// until that has returned, and a row that comes back in a rebuild keeps its node. Numbers of the
// figures are those of AccountAttributes.h. Unknown nodes answer as empty ones. Not supported: rows
// of converted amounts, which a descendant makes; sub-accounts that join an account that is shown
// summed, before SetAggregate or SetAccount take them in.
class TCustomAccountInfoDataControl : public TCustomTreeDataControl {
    QUORIN_CLASS(TCustomAccountInfoDataControl, TCustomTreeDataControl)

    // Reads "OptionsPLPrice" and "MiddlePLPrice", once and for all.
    explicit TCustomAccountInfoDataControl(TComponent* AOwner = nullptr);
    // Relies on no override: a descendant releases in its own destructor what it added.
    ~TCustomAccountInfoDataControl() override;

    const String& FilterCurr() const { return FFilterCurr; }
    const String& Account() const { return FAccount; }
    const String& Currency() const { return FCurrency; }
    Boolean Aggregated() const { return FAggregated; }

    using TCustomTreeDataControl::GetDisplayValue;
    using TCustomTreeDataControl::GetValue;

    // Rows of the flat list: with no account the captions alone.
    Integer GetCount() override;
    Boolean GetRowValue(Integer RecordIndex, Pointer& Value) override;
    Boolean GetColValue(Integer ItemIndex, Pointer& Value) override;
    // Nil for an attribute row, for the root and for what is no node.
    Pointer GetParentNode(Pointer Node) override;
    // Nil outside.
    Pointer GetNode(Integer Index) override;
    Pointer GetChildNode(Pointer Node, Integer Index) override;
    Integer GetChildNodeCount(Pointer Node) override;
    // A marker; it is no row.
    Pointer GetRootNode() override;
    // Raw cell: the caption, or the figure, a row's own and never converted. Empty text for another
    // column and, with an account that the service does not know, everywhere.
    Variant GetValue(Pointer Node, Integer ColumnID) override;
    // Cell text: the total converted to Currency(), a currency's own amount as it is. Empty without
    // an account, also where GetValue has the caption.
    String GetDisplayValue(Pointer Node, Integer ColumnID) override;
    // Replaces the columns and rebuilds the rows, without a signal: whoever calls it tells the view
    // (the tree source does), which must drop its nodes before it asks again. Of two columns with
    // one ID the second is left out. The columns must outlive their use here; nil shows none.
    void SetColumnList(const TColumnList* List) override;
    // Follows FNodeList: a descendant that walks anything else answers for that as well.
    Int64 ShapeVersion() const override;
    String NodeIdentity(Pointer Node) const override;

    // Operations, in order

    // Drops all nodes and columns. No signal.
    virtual void ClearAll();
    // Drops the rows of currencies. No signal.
    virtual void ClearAccountCurrencyNode();
    // Shows another account and signals; nothing for the same code. Stays aggregated for an account
    // that can be, and for the empty code, which shows none.
    virtual void SetAccount(StringView Account);
    // Accounts have changed: Sender is a TAccountDictionary or nil. Takes in new currencies; one
    // signal if it names the account or a sub-account that is summed.
    virtual void AccountUpdate(Pointer Sender, Pointer Data);
    // Account information per currency, or the list of currencies, has changed: takes in new
    // currencies and signals, also without an account. Nothing without columns.
    virtual void MultiCurrencyInfoUpdate(Pointer Sender, Pointer Data);
    virtual void CurrencyListUpdate(Pointer Sender, Pointer Data);
    // Ratios have changed: Sender is a TCurrencyRatioDictionary or nil. Signals if it names
    // Currency().
    virtual void CurrencyRatioUpdate(Pointer Sender, Pointer Data);
    // Caption of a column in the language in force; empty for a number that is no column.
    virtual String GetResourceHeader(Integer Attribute);
    // One figure of one record, in the record's currency: a Double, a text, or whole 0 and empty
    // text for what is not there. With China data it is the China Connect account's.
    virtual Variant GetAccountCurrencyData(TCustomAccountData* Data, Integer Attribute);
    // The figure as text, empty for nil. `Convert` turns an amount into Currency(); without a ratio
    // of that it stays in the last currency that could be reached.
    virtual String GetAccountCurrencyDisplayData(TCustomAccountData* Data, Integer Attribute,
                                                 Boolean Convert);
    // The currency that totals are shown in; empty for the base currency. Signals a change.
    virtual void SetCurrency(StringView Value);
    // Adds the rows of currencies that have none yet. No signal.
    virtual void InitCurrencyNode();
    // The figure summed over the record's account and the sub-accounts, while aggregated and for an
    // account that can be; for any other as GetAccountCurrencyData. Whole 0 for nil and where a
    // figure is no number.
    virtual Variant GetAggregatedAccountCurrencyData(TCustomAccountData* Data, Integer Attribute);
    // Takes in the sub-accounts; ends the aggregation of an account that cannot be aggregated.
    virtual void InitAggregateAccountList();
    // Sender names a sub-account of the master account that is shown aggregated. False for nil.
    virtual Boolean IsSubAccountUpdate(const TAccountDictionary* Sender);
    // Works out whether figures come from the China Connect account.
    virtual void UpdateChinaConnectFlag();
    // With a currency, in an installation that has China Connect, shows that account's figures.
    // The rows are the same. Signals a change.
    virtual void SetFilterCurr(StringView Value);
    // The pricing rules of positions, as in the position view. Not called by this class.
    virtual Boolean GetAvgPrice(TCustomPositionData* Position, Double& Price);
    virtual Double GetPL(TCustomPositionData* Position);
    virtual Double GetPLPrice(TCustomPositionData* Position);
    virtual Boolean IsMarketOpen(StringView Exchange);
    virtual Double GetMiddleOne(Double A, Double B, Double C);
    // Turns the aggregation on or off and signals; nothing for an account that cannot be
    // aggregated.
    virtual void SetAggregate();

    // Not virtual

    // The field of a custom column: a Double, whole 0 where there is none, or a text. Nil answers
    // as a record without fields.
    Variant GetFieldValue(TCustomAccountData* Data, Integer Attribute);

protected:
    // A figure as the mode wants it: summed or the record's own.
    Variant Figure(TCustomAccountData* data, Integer attribute);
    // The records of the sub-accounts may have been dropped or made anew.
    void RefreshSubAccounts();

    String FFilterCurr;
    String FAccount;
    TAccountNodeList FNodeList; // attribute rows in column order, then value rows
    TColumnList FColumnList;
    String FCurrency;
    TList<TAccountDataNode*> FDummyNodeList; // the attribute rows alone
    TDictionary<Integer, TAccountDataNode*> FAccountDataNodeList;
    TDictionary<String, TAccountDataValueNode*> FAccountDataValueNodeList;
    // A descendant adds its nodes here and to FNodeList, which frees them.
    TDictionary<String, TConvertAccountDataValueNode*> FConvertAccountDataNodeList;
    Integer FAccountCurrencyDataCount = 0; // currencies when the value rows were built
    Boolean FAggregated = false;
    TAccountDictionary FSubAccountList; // the records stay the account service's; nil once dropped
    Boolean FShowingChinaConnectAccountData = false;
    String FCustomColumnTagID; // table of custom columns; a descendant sets it
    Boolean FOptionsPLPrice = false;
    Boolean FMiddlePLPrice = false;
    TLifeline FLifeline;

private:
    struct TCell; // what a node shows
    // Keeps dropped nodes for as long as an operation lasts.
    class TPin;
    class TKnownColumn;
    struct TColumnKind {
        Integer Attribute = NoAttribute;
        Boolean IsNumeric = false;
    };

    Boolean FollowAccount(const TPin& pin, const String& account, const String& previous);
    Boolean FollowSubAccounts(const TPin& pin);

    void Park(std::unique_ptr<TObject> node);
    void ReleaseParked();
    template <class Node, class... A>
    Node* AddNode(Node* former, A&&... arguments);
    void AddRow(TColumnInfo* column);
    void AddValueRow(Integer attribute, const String& currency);
    void DropCurrencyRows();

    TCell CellOf(Pointer node) const;
    Boolean IsBlank(const TCustomAccountData* record, Integer attribute) const;
    String DisplayText(TCustomAccountData& data, Integer attribute, Boolean convert);

    Boolean ShowsChinaData() const;
    String CustomColumnType(Integer attribute) const;
    Boolean IsNumericColumn(Integer attribute) const;
    Variant PresetOf(Integer attribute) const;
    Variant CurrencyText(const TCustomAccountData& data) const;
    Double BuiltInFigure(const TCustomAccountData& data, Integer attribute);
    Variant AggregatedFigure(TCustomAccountData* data, Integer attribute);
    Double SumOfFigures(TCustomAccountData& data, Integer attribute);
    Double SumOfShortfalls(TCustomAccountData& data);
    template <class Own, class Sub>
    Double SumOverSubAccounts(Own own, Sub sub);
    template <class Own, class Sub>
    Double SumByCode(Own own, Sub sub);

    Integer FPins = 0;
    TDictionary<TObject*, std::unique_ptr<TObject>> FParkedNodes;
    TDictionary<Integer, TAccountDataNode*>
        FFormerRows; // parked nodes that a rebuild may take back
    TDictionary<String, TAccountDataValueNode*> FFormerValueRows;
    Integer FBuilds = 0;            // of currency rows
    Integer FAccountChanges = 0;    // counts SetAccount, also of the same account
    Integer FSubAccountChanges = 0; // of FSubAccountList
    TColumnKind FSummedColumn;      // known for the length of a sum
    String FFieldText;              // borrowed by readers of fields
};

} // namespace quorin
