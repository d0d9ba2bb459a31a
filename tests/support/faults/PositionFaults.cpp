#include "tests/support/faults/PositionFaults.h"

namespace quorin {

namespace {

// Exactly 0.0 is closed.
bool IsOpen(const TCustomPositionData& record) {
    return record.GetQuantity() != 0.0;
}

} // namespace

TFaultyPositionAdapter::TFaultyPositionAdapter(TFaultPlan& plan, TEmbeddedPositionAdapter& inner,
                                               TCustomAccountAdapter& accounts)
    : FPlan(plan), FInner(inner), FAccounts(accounts),
      FChanges(plan, [this](TFaultyEntry& entry) { TellChange(entry); }),
      FMoves(plan, [this](TFaultyEntry& entry) { TellMove(entry); }),
      FAggregates(plan, [this](TFaultyEntry& entry) { TellSubAccounts(entry); }) {
    FChanges.SetAfter([this](TFaultyEntry& entry, Pointer sender) { AfterChange(entry, sender); });
}

void TFaultyPositionAdapter::ChangePositionAccount(StringView Account,
                                                   const TDataCallbackEvent& Callback,
                                                   TObject* Owner, StringView PreviousAccount) {
    if (!PreviousAccount.empty()) FChanges.Remove(Owner, PreviousAccount);
    if (Account.empty()) {
        FInner.ChangePositionAccount(Account, Callback, Owner, PreviousAccount);
        return;
    }
    TFaultyEntry& entry = FChanges.Register(Owner, Account, Callback, [&](const auto& event) {
        FInner.ChangePositionAccount(Account, event, Owner, PreviousAccount);
    });
    TFaultyEntry::TTold& told = entry.Told();
    TPositionDictionary held;
    FInner.GetPositionList(entry.Key(), held);
    for (const auto& [symbol, record] : held) {
        if (IsOpen(*record)) told.Open.Add(symbol, true);
    }
    FPlan.InRegistration(FChanges);
}

void TFaultyPositionAdapter::AddHeld(THeld& held, StringView account) const {
    TPositionDictionary positions;
    FInner.GetPositionList(account, positions);
    held.AddOrSetValue(account, std::move(positions));
}

void TFaultyPositionAdapter::AddAllHeld(THeld& held) const {
    for (Integer index = 0; index < FAccounts.GetAccountCount(); ++index) {
        if (const TCustomAccount* account = FAccounts.GetAccountByIndex(index)) {
            AddHeld(held, account->GetAccount());
        }
    }
}

void TFaultyPositionAdapter::Tell(TFaultyEntry& entry, THeld& held) {
    TAccountPositionDictionary sender;
    for (const auto& item : held) sender.Add(item.Key, &item.Value);
    entry.Tell(&sender);
}

void TFaultyPositionAdapter::AfterChange(TFaultyEntry& entry, Pointer sender) {
    Take(entry, sender);
    FPlan.Run([&] {
        if (FPlan.OneIn(2) && DropAndReAdd(entry)) return;
        if (!FPlan.OneIn(2)) return;
        FPlan.Count(TFault::Twice);
        entry.Tell(sender);
    });
}

void TFaultyPositionAdapter::TellChange(TFaultyEntry& entry) {
    if (FPlan.OneIn(2) && DropAndReAdd(entry)) return;
    if (FPlan.OneIn(3)) {
        FPlan.Count(TFault::NilSender);
        entry.Tell(nullptr);
        return;
    }
    THeld held;
    if (FPlan.OneIn(2)) AddAllHeld(held);
    held.AddOrSetValue(entry.Key(), KnownPositions(entry));
    FPlan.Count(TFault::NamesMore);
    Tell(entry, held);
}

// What opened or closed and waits for its delivery is left out.
TPositionDictionary TFaultyPositionAdapter::KnownPositions(const TFaultyEntry& entry) {
    TPositionDictionary positions;
    FInner.GetPositionList(entry.Key(), positions);
    const TFaultyEntry::TTold& told = entry.Told();
    TPositionDictionary known;
    for (const auto& [symbol, record] : positions) {
        if (IsOpen(*record) == told.Open.ContainsKey(symbol)) known.Add(symbol, record);
    }
    return known;
}

void TFaultyPositionAdapter::TellMove(TFaultyEntry& entry) {
    if (FPlan.OneIn(3)) {
        FPlan.Count(TFault::NilSender);
        entry.Tell(nullptr);
        return;
    }
    THeld held;
    AddAllHeld(held);
    FPlan.Count(TFault::NamesMore);
    Tell(entry, held);
}

void TFaultyPositionAdapter::TellSubAccounts(TFaultyEntry& entry) {
    if (FPlan.OneIn(3)) {
        FPlan.Count(TFault::NilSender);
        entry.Tell(nullptr);
        return;
    }
    TAccountDictionary subAccounts;
    FAccounts.GetSubAccountList(entry.Key(), subAccounts);
    THeld held;
    for (const auto& item : subAccounts) AddHeld(held, item.Key);
    FPlan.Count(TFault::ReportedAgain);
    Tell(entry, held);
}

void TFaultyPositionAdapter::Take(TFaultyEntry& entry, Pointer sender) {
    if (sender == nullptr) return;
    TPositionDictionary* const* changes =
        static_cast<const TAccountPositionDictionary*>(sender)->Find(entry.Key());
    if (changes == nullptr) return;
    TFaultyEntry::TTold& told = entry.Told();
    for (const auto& [symbol, record] : **changes) {
        if (IsOpen(*record)) {
            if (told.Open.Add(symbol, true)) told.Last = symbol;
        } else {
            told.Open.Remove(symbol);
            if (told.Last == symbol) told.Last.clear();
        }
    }
}

// A list of sums puts a row that comes back where its sum is made, wherever it stood.
bool TFaultyPositionAdapter::MayMoveRows(const TFaultyEntry& entry) const {
    if (!FAggregates.Has(entry)) return false;
    TPositionDictionary all;
    FInner.GetPositionList(entry.Key(), all);
    TAccountDictionary subAccounts;
    FAccounts.GetSubAccountList(entry.Key(), subAccounts);
    for (const auto& item : subAccounts) FInner.GetPositionList(item.Key, all);
    return all.Count() > 1;
}

bool TFaultyPositionAdapter::DropAndReAdd(TFaultyEntry& entry) {
    if (MayMoveRows(entry)) return false;
    const TFaultyEntry::TTold& told = entry.Told();
    String symbol = told.Last;
    if (symbol.empty() && told.Open.Count() == 1) symbol = told.Open.Keys()[0];
    auto* record = ObjectAs<TEmbeddedPositionData>(FInner.GetPosition(entry.Key(), symbol));
    if (record == nullptr || !IsOpen(*record)) return false;
    FPlan.Count(TFault::DropAndReAdd);
    THeld held;
    held.Obtain(entry.Key()).Add(symbol, record);
    const TPositionFigures figures = record->Figures();
    TPositionFigures closed = figures;
    closed.Quantity = 0.0;
    record->SetFigures(closed);
    Tell(entry, held);
    record->SetFigures(figures);
    Tell(entry, held);
    return true;
}

} // namespace quorin
