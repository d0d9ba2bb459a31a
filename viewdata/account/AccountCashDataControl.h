#pragma once

#include "viewdata/account/AccountDataControl.h"

namespace quorin {

// The cash tree: one account, or all accounts of the user, each with its currency records below
// it, and the chosen figures as columns. The numbers of AccountAttributes.h are column tags here.
// Not supported: conversion, and the figures of China Connect accounts.
//
// The tree is walked from the root, child by child; its nodes are the TCustomAccount and
// TCustomAccountData objects of the account service. With all accounts on show SetAccount has no
// effect on the tree.
class TCustomAccountCashDataControl : public TCustomAccountInfoDataControl {
    QUORIN_CLASS(TCustomAccountCashDataControl, TCustomAccountInfoDataControl)

    explicit TCustomAccountCashDataControl(TComponent* AOwner = nullptr);
    ~TCustomAccountCashDataControl() override;

    using TCustomAccountInfoDataControl::GetDisplayValue;
    using TCustomAccountInfoDataControl::GetValue;

    // Accounts below the root, currencies below an account.
    Integer GetChildNodeCount(Pointer Node) override;
    // Nil outside and for a record that is not there. With one account any index from 0 gives it.
    Pointer GetChildNode(Pointer Node, Integer Index) override;
    // Raw cell: of an account its code, holder and base currency, else its total record's figure.
    Variant GetValue(Pointer Node, Integer ColumnID) override;
    String GetDisplayValue(Pointer Node, Integer ColumnID) override;
    // Takes the columns as they are. No signal.
    void SetColumnList(const TColumnList* List) override;
    // As far as the account service tells.
    Int64 ShapeVersion() const override;
    String NodeIdentity(Pointer Node) const override;
    void ClearAll() override;
    // These three signal whatever has changed.
    void AccountUpdate(Pointer Sender, Pointer Data) override;
    void MultiCurrencyInfoUpdate(Pointer Sender, Pointer Data) override;
    void CurrencyListUpdate(Pointer Sender, Pointer Data) override;
    // Figures are always the account's own.
    void UpdateChinaConnectFlag() override;

    // Operations, in order

    // The list of accounts has become ready: with all accounts on show follows them and signals.
    virtual void AccountReady(Pointer Sender, Pointer Data);

    // Not virtual

    // Shows all accounts from here on, at once or when they are ready.
    void MonitorAllAccount();

protected:
    Boolean FMonitorAll = false;
};

} // namespace quorin
