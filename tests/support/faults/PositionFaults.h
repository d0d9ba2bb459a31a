#pragma once

#include "embedded/PositionService.h"
#include "tests/support/faults/FaultyCallbacks.h"
#include "viewdata/services/AccountAdapter.h"

namespace quorin {

// Positions, misbehaving: an account's positions are told of again, or those of other accounts with
// them, or none; the one that came last, so that the order of rows stays, is closed and reopened.
class TFaultyPositionAdapter final : public TCustomPositionAdapter {
public:
    TFaultyPositionAdapter(TFaultPlan& plan, TEmbeddedPositionAdapter& inner,
                           TCustomAccountAdapter& accounts);

    void ChangePositionAccount(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override;
    void RemovePositionCallback(StringView Account, TObject* Owner) override {
        FChanges.Remove(Owner, Account);
        FInner.RemovePositionCallback(Account, Owner);
    }
    void AddPositionMarketDataCallback(const TDataCallbackEvent& Callback,
                                       TObject* Owner) override {
        FMoves.Add(FInner, &TCustomPositionAdapter::AddPositionMarketDataCallback, Callback, Owner);
    }
    void RemovePositionMarketDataCallback(TObject* Owner) override {
        FMoves.Remove(FInner, &TCustomPositionAdapter::RemovePositionMarketDataCallback, Owner);
    }
    void AddAggregatePositionCallback(StringView Account, const TDataCallbackEvent& Callback,
                                      TObject* Owner, Pointer Reserved) override {
        FAggregates.RegisterAndCall(Owner, Account, Callback, [&](const auto& event) {
            FInner.AddAggregatePositionCallback(Account, event, Owner, Reserved);
        });
    }
    void RemoveAggregatePositionCallback(StringView Account, TObject* Owner) override {
        FAggregates.Remove(Owner, Account);
        FInner.RemoveAggregatePositionCallback(Account, Owner);
    }
    void GetPositionList(StringView Account, TPositionDictionary& List) const override {
        FInner.GetPositionList(Account, List);
        FPlan.InLookUp();
    }
    TCustomPositionData* GetPosition(StringView Account, StringView Symbol) const override {
        return FPlan.LookedUp(FInner.GetPosition(Account, Symbol));
    }
    Boolean GetMarketValue(StringView Symbol, Double NetQuantity, Double& Value) const override {
        return FPlan.LookedUp(FInner.GetMarketValue(Symbol, NetQuantity, Value));
    }

private:
    using THeld = TDictionary<String, TPositionDictionary>; // by account

    void AfterChange(TFaultyEntry& entry, Pointer sender);
    void TellChange(TFaultyEntry& entry);
    void TellMove(TFaultyEntry& entry);
    void TellSubAccounts(TFaultyEntry& entry);
    void Take(TFaultyEntry& entry, Pointer sender);
    bool MayMoveRows(const TFaultyEntry& entry) const;
    // Tells that the last position is closed, then that it is open; false where there is none.
    bool DropAndReAdd(TFaultyEntry& entry);
    TPositionDictionary KnownPositions(const TFaultyEntry& entry);
    void AddHeld(THeld& held, StringView account) const;
    void AddAllHeld(THeld& held) const;
    static void Tell(TFaultyEntry& entry, THeld& held);

    TFaultPlan& FPlan;
    TEmbeddedPositionAdapter& FInner;
    TCustomAccountAdapter& FAccounts;
    TFaultyCallbacks FChanges;
    TFaultyCallbacks FMoves;
    TFaultyCallbacks FAggregates; // by master
};

} // namespace quorin
