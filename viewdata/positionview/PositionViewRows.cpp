#include "platform/rtl/ScopedValue.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/services/PositionAdapter.h"

#include <utility>

namespace quorin {

// What a rebuild makes beside what is shown; it takes its place when it is whole.
struct TPositionViewDataControl::TRows {
    TList<String> List;
    TPositionDictionary Dictionary;
    TSums Sums;

    void Add(const String& symbol, TCustomPositionData* position) {
        if (Dictionary.Add(symbol, position)) List.Add(symbol);
    }
};

// A service may tell of changes while it is asked, and so begin another rebuild inside this one:
// that one has read later, and this one's rows are thrown away.
void TPositionViewDataControl::RefreshDataList() {
    const std::uint32_t rebuild = ++FRebuilds;
    TRows rows;
    rows.Dictionary.Reserve(FDataDictionary.Count());
    if (FAggregated) {
        rows.Sums.Reserve(FAggregatePositionList.Count());
        ListSums(rows);
    } else {
        ListPlain(rows);
    }
    if (rebuild != FRebuilds) return;
    KeepOrder(rows);
    TakeOver(rows);
}

void TPositionViewDataControl::ListPlain(TRows& rows) {
    TBorrowed<TPositionDictionary> held(FHeld);
    (*held).Recycle();
    TCustomPositionAdapter::GetInstance()->GetPositionList(FAccount, *held);
    for (const auto& [symbol, position] : *held) {
        if (IsDisplayPosition(position)) rows.Add(symbol, position);
    }
}

void TPositionViewDataControl::ListSums(TRows& rows) {
    AddToSums(rows.Sums, FAccount);
    // By code, and by a copy of the codes: an account may go while its positions are asked for.
    for (const String& account : FSubAccountList.Keys()) AddToSums(rows.Sums, account);
    for (const auto& [symbol, sum] : rows.Sums) {
        if (IsDisplayPosition(sum.get())) rows.Add(symbol, sum.get());
    }
}

void TPositionViewDataControl::AddToSums(TSums& sums, StringView account) {
    TBorrowed<TPositionDictionary> held(FHeld);
    (*held).Recycle();
    TCustomPositionAdapter::GetInstance()->GetPositionList(account, *held);
    for (const auto& [symbol, position] : *held) {
        if (position == nullptr) continue;
        std::unique_ptr<TAggregatePositionData>& sum = sums.Obtain(symbol);
        if (sum != nullptr) {
            sum->IncPositionData(position);
            continue;
        }
        sum = std::make_unique<TAggregatePositionData>(position->GetSymbol(), FAccount);
        sum->AssignPositionData(position);
        sum->SetSide(position->GetSide());
    }
}

// Rows that stay take the places of rows that stay, in their old order.
void TPositionViewDataControl::KeepOrder(TRows& rows) const {
    if (FDataList.IsEmpty()) return;
    Integer next = 0;
    for (String& symbol : rows.List) {
        if (!FDataDictionary.ContainsKey(symbol)) continue;
        while (next < FDataList.Count() && !rows.Dictionary.ContainsKey(FDataList[next])) ++next;
        if (next == FDataList.Count()) return;
        symbol = FDataList[next++];
    }
}

void TPositionViewDataControl::TakeOver(TRows& rows) {
    if (FDataList != rows.List) {
        FDataList = std::move(rows.List);
        RowsMoved();
        ++FListChanges;
    }
    FDataDictionary = std::move(rows.Dictionary);
    ClearAggregateData();
    FAggregatePositionList = std::move(rows.Sums);
}

void TPositionViewDataControl::ClearAggregateData() {
    if (HoldsRows()) {
        for (const auto& item : FAggregatePositionList) {
            FParkedRows.push_back(std::move(item.Value));
        }
    } else {
        FParkedRows.clear();
    }
    FAggregatePositionList.Clear();
}

} // namespace quorin
