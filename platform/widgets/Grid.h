#pragma once

#include "platform/widgets/GridTableView.h"

namespace quorin {

// The place of a grid on a form. What it shows is its active view.
class TcxGrid : public TComponent {
    QUORIN_CLASS(TcxGrid, TComponent)

    explicit TcxGrid(TComponent* owner = nullptr) : TComponent(owner) {}
    ~TcxGrid() override { SetActiveView(nullptr); }

    // Not owned; nil shows nothing. A view that dies is forgotten.
    TcxGridTableView* ActiveView() const { return FActiveView; }
    void SetActiveView(TcxGridTableView* view) {
        if (FActiveView != nullptr) FActiveView->RemoveFreeListener(this);
        FActiveView = view;
        if (view != nullptr) view->AddFreeListener(MakeEvent<&TcxGrid::ViewFreed>(this), this);
    }

private:
    void ViewFreed(TObject*) { FActiveView = nullptr; }

    TcxGridTableView* FActiveView = nullptr;
};

} // namespace quorin
