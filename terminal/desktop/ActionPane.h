#pragma once

#include "terminal/desktop/Pane.h"
#include "terminal/desktop/QuickOrderBar.h"

#include <memory>

class QVBoxLayout;

namespace quorin {

// A list with the actions on its rows above it.
class TActionPane : public TPane {
    Q_OBJECT

public:
    ~TActionPane() override;

    TGridSkin& Grid() const { return *FGrid; }
    TQuickOrderBar& Bar() { return *FBar; }

    void Follow() override;
    TShownForm* Shown() override { return FForm.get(); }
    QAbstractItemView* ItemView() override { return FGrid; }
    bool IsAsking() const override { return FBar->IsAsking(); }
    QSize sizeHint() const override;

protected:
    using TPane::TPane;
    // To be called once, by the constructor of a descendant: takes the form with its actions.
    // `dialog` asks about orders; it must live longer. What is answered has bar and grid in it.
    QVBoxLayout& Bind(std::unique_ptr<TListForm> form, TOrderDialog& dialog,
                      std::vector<TRowAction> actions);
    // Chooses the row's symbol, if it has one.
    void ChooseRow(int row);

private:
    std::unique_ptr<TListForm> FForm;
    TGridSkin* FGrid = nullptr;
    TQuickOrderBar* FBar = nullptr;
};

} // namespace quorin
