#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/market/UnderlyerPriceDataControl.h"

#include <utility>

namespace quorin {

// Table of the custom columns of the terminal's market lists.
inline constexpr StringView MarketCustomColumns = u"MarketCustomColumn";

std::span<const TFormColumn> MarketColumns();

// What the terminal asks of a market list beside the view layer's operations, whatever it lists.
class TMarketRows {
public:
    virtual ~TMarketRows() = default;

    // True when subscriptions were dropped since the last call.
    bool TakeCleared() { return std::exchange(FIsCleared, false); }
    virtual const TList<String>& Symbols() const = 0;
    // -1 for a symbol without a row.
    Integer RowOf(StringView symbol) const { return Symbols().IndexOf(symbol); }
    // The group that copies of a row name; empty for none.
    virtual void SetGroupID(StringView groupID) = 0;
    // What a cell shows that has nothing to show.
    virtual const String& EmptyText() const = 0;

protected:
    bool FIsCleared = true;
};

// A market list of the view layer with the columns of the terminal.
template <class List>
class TTerminalMarketControl : public List, public TMarketRows {
    QUORIN_CLASS(TTerminalMarketControl, List)

    explicit TTerminalMarketControl(TComponent* AOwner = nullptr) : List(AOwner) {
        this->EmptyDisplayText = NothingToShow;
        this->FCustomColumnTagID = MarketCustomColumns;
    }

    const TColumnList* GetColList() override { return FColumns.List(); }
    // Also notes that every subscription is gone.
    void ClearAll() override {
        List::ClearAll();
        FIsCleared = true;
    }
    const TList<String>& Symbols() const override { return this->FDataList; }
    void SetGroupID(StringView groupID) override { this->GroupID = groupID; }
    const String& EmptyText() const override { return this->EmptyDisplayText; }

private:
    TFormColumns FColumns{MarketColumns()};
};

// The market watch, and the futures or options of one underlyer.
using TMarketControl = TTerminalMarketControl<TCustomMarketDataControl>;
using TUnderlyerControl = TTerminalMarketControl<TCustomUnderlyerPriceDataControl>;

} // namespace quorin
