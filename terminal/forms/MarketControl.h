#pragma once

#include "viewdata/market/MarketDataControl.h"

#include <memory>
#include <vector>

namespace quorin {

// The market watch of the terminal: the columns that it shows and whether its rows were dropped.
class TMarketControl : public TCustomMarketDataControl {
    QUORIN_CLASS(TMarketControl, TCustomMarketDataControl)

    explicit TMarketControl(TComponent* AOwner = nullptr);

    const TColumnList* GetColList() override { return &FColumnList; }
    // Also notes that every subscription is gone.
    void ClearAll() override;

    // True when subscriptions were dropped since the last call.
    bool TakeCleared();
    const TList<String>& Symbols() const { return FDataList; }
    // -1 for a symbol without a row.
    Integer RowOf(StringView symbol) const { return FDataList.IndexOf(symbol); }
    // What a cell shows that has nothing to show.
    const String& EmptyText() const { return EmptyDisplayText; }
    // Caption of a column in the language in force.
    String Caption(Integer attribute) const;

private:
    std::vector<std::unique_ptr<TColumnInfo>> FColumns;
    TColumnList FColumnList;
    bool FIsCleared = true;
};

} // namespace quorin
