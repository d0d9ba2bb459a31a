#include "viewdata/position/CloseAllColumns.h"

#include "viewdata/position/PositionAttributes.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/services/ResourceKeys.h"

#include <vector>

namespace quorin {

namespace {

namespace A = PositionAttribute;

struct TColumn {
    Integer Attribute;
    StringView Caption;
    Integer Width; // pixels
    Boolean IsQuantity;
};

constexpr TColumn Columns[] = {
    {A::Account, ResourceKey::Res_Account, 80, false},
    {A::SymbolName, ResourceKey::Res_SymbolName, 150, false},
    {A::LongQuantity, ResourceKey::Res_Long, 70, true},
    {A::ShortQuantity, ResourceKey::Res_Short, 70, true},
    {A::SymbolCode, ResourceKey::Res_Symbol, 80, false},
};

struct TOwnedColumns {
    std::vector<std::unique_ptr<TColumnInfo>> Infos;
    TColumnList List;
};

TOwnedColumns& Shared() {
    static TOwnedColumns columns;
    return columns;
}

} // namespace

void MakeCloseAllColumns() {
    TOwnedColumns& shared = Shared();
    if (!shared.List.IsEmpty()) return;
    for (const TColumn& column : Columns) {
        shared.Infos.push_back(TColumnInfo::AddColumn(
            column.Attribute, column.Caption, column.Width, StringView(), column.IsQuantity));
        shared.List.Add(shared.Infos.back().get());
    }
}

const TColumnList* CloseAllColumns() {
    return Shared().List.IsEmpty() ? nullptr : &Shared().List;
}

const TColumnList* TCustomCloseAllPositionDataControl::GetColList() {
    return CloseAllColumns();
}

} // namespace quorin
