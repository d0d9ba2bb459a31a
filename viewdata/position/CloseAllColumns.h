#pragma once

#include "viewdata/frame/ColumnInfo.h"

#include <vector>

namespace quorin {

// The columns of the list that is shown before every position is closed. Each class of such lists
// has one set for all its instances, which lives as long as the program.
class TCloseAllColumns {
public:
    // Nil before Make.
    const TColumnList* List() const { return FList.IsEmpty() ? nullptr : &FList; }
    // Nothing when they are there.
    void Make();

private:
    std::vector<std::unique_ptr<TColumnInfo>> FColumns;
    TColumnList FList;
};

} // namespace quorin
