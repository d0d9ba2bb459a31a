#pragma once

#include "platform/rtl/Variant.h"
#include "terminal/forms/FormView.h"
#include "viewdata/market/MarketDataControl.h"

#include <optional>
#include <vector>

namespace quorin {

// A list or a tree as whoever shows it sees it: rows from the top, columns from the left. Rows
// outside have empty texts and null values.
class TShownForm : public TObject {
    QUORIN_CLASS(TShownForm, TObject)

    // Its grid or tree list.
    virtual TFormView FormView() = 0;
    virtual Integer RowCount() = 0;
    // Levels above the row, none in a list.
    virtual Integer Depth(Integer) { return 0; }
    virtual Integer ColumnCount() = 0;
    virtual TcxViewColumn& Column(Integer index) = 0;
    // A cell of a column, as the view shows it.
    virtual String CellText(Integer row, Integer column) = 0;

    // A cell of any attribute, whether it has a column or not; of a tree the attributes are the
    // tags of its columns.
    virtual Variant Value(Integer row, Integer attribute) = 0;
    virtual String Text(Integer row, Integer attribute) = 0;
    // The attributes that the form can tell about a row, shown or not.
    virtual std::vector<Integer> Attributes() = 0;

    // Whether the column is read as text, from the left.
    virtual bool IsText(Integer attribute) const = 0;
    // Whether the column's cells may carry a mark behind their text, and the mark of a cell;
    // nothing where there is none.
    virtual bool HasMarks(Integer) const { return false; }
    virtual std::optional<TPriceChangeState> Mark(Integer, Integer) { return {}; }

    // Where a cell's number went farthest since the last call for it; nothing for cells that do not
    // tell of moves.
    virtual std::optional<TPriceChangeState> TakeMove(Integer, Integer) { return {}; }

    // Why the totals below the rows leave something out; empty while they are whole.
    virtual String PartialReason() { return {}; }
    // Why the total in a cell does; good until the next call of it.
    virtual StringView CellPartialReason(Integer, Integer) { return {}; }

    // What is shown and how, in a few words, and what stands below the rows; both may be empty.
    virtual String Title() { return {}; }
    virtual std::vector<String> Summary() { return {}; }

    // Something that shows has changed since the last call.
    virtual bool TakeRepaint() = 0;
};

} // namespace quorin
