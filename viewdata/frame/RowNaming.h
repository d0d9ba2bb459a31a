#pragma once

#include "platform/rtl/TList.h"

namespace quorin {

// Takes in the rows whose values have changed.
class TChangedRows {
public:
    explicit TChangedRows(TList<Integer>& rows) : FRows(rows), FBefore(rows.Count()) {}

    // A row below 0 is one that is not known: then nothing is named at all.
    void Add(Integer row) {
        if (row < 0) {
            NameNone();
        } else if (FAreNamed) {
            FRows.Add(row);
        }
    }
    // Anything may have changed.
    void NameNone() {
        FAreNamed = false;
        while (FRows.Count() > FBefore) FRows.Delete(FRows.Count() - 1);
    }
    Boolean AreNamed() const { return FAreNamed; }

private:
    TList<Integer>& FRows;
    Integer FBefore;
    Boolean FAreNamed = true;
};

// Says which rows a change signal is about, if somebody asks while it lasts.
class TRowNaming {
public:
    virtual void Name(TChangedRows& rows) const = 0;

protected:
    ~TRowNaming() = default;
};

} // namespace quorin
