#pragma once

#include "terminal/forms/MarketListForm.h"

#include <vector>

namespace quorin {

// What a symbol of the watch is: the lines of its product information, its required margin and what
// the watch's account holds of it. Reads the control at the moment of asking; must be gone before
// the control.
class TProductForm : public TObject {
    QUORIN_CLASS(TProductForm, TObject)

    explicit TProductForm(TMarketControl& control) : FControl(control) {}

    void SetSymbol(StringView symbol) { FSymbol = symbol; }
    // Lines "label: value", none for a symbol that the watch does not have.
    std::vector<String> Lines();

private:
    void AddCell(std::vector<String>& lines, Integer row, StringView captionKey,
                 Integer attribute) const;

    TMarketControl& FControl;
    String FSymbol;
};

} // namespace quorin
