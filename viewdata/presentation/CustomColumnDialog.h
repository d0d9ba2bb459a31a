#pragma once

#include "viewdata/presentation/ColumnSequence.h"
#include "viewdata/services/DialogRecords.h"

#include <span>
#include <vector>

namespace quorin {

// Lets the user choose the columns of a grid or a tree list: asks the application and applies what
// it answers. One dialog at a time; a later one takes the view's place. A view that dies is
// forgotten.
template <class Twin>
class TCustomColumnDialog : public TComponent {
public:
    using TView = typename Twin::TView;
    using TColumn = typename Twin::TColumn;

    explicit TCustomColumnDialog(TComponent* AOwner = nullptr) : TComponent(AOwner) {}
    ~TCustomColumnDialog() override { SetView(nullptr); }

    // Shows the columns of the view. `Callback` gets the choice in place of HandleCustomColumn, if
    // it is set: nothing is applied here then.
    void ExecuteCustomColumn(TView& View, std::span<const Integer> ReservedCol,
                             const TDataCallbackEvent& Callback);
    void ShowCustomColumnView(const TDataCallbackEvent& Callback);
    // Applies a choice: places in the order of AllColumns, visible exactly what VisibleColumns
    // names. Columns that are not named stay as they are; of two with one caption the first counts.
    // Lists that are longer than the view's columns, or one than the other, are ignored.
    void HandleCustomColumn(Pointer Sender, Pointer Data);

private:
    void SetView(TView* view);
    void ViewFreed(TObject* view);
    TColumn* ColumnByCaption(const String& caption) const;
    Boolean IsReserved(Integer tag) const;

    TView* FView = nullptr;
    std::vector<Integer> FReservedCol;
};

using TGridCustomColumnRecord = TCustomColumnDialog<TGridTwin>;
using TTreeCustomColumnRecord = TCustomColumnDialog<TTreeTwin>;

} // namespace quorin
