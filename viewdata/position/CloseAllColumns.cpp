#include "viewdata/position/CloseAllColumns.h"

#include "viewdata/position/PositionAttributes.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/services/ResourceKeys.h"

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

TCloseAllColumns& Shared() {
    static TCloseAllColumns columns;
    return columns;
}

} // namespace

void TCloseAllColumns::Make() {
    if (!FList.IsEmpty()) return;
    for (const TColumn& column : Columns) {
        FColumns.push_back(TColumnInfo::AddColumn(column.Attribute, column.Caption, column.Width,
                                                  StringView(), column.IsQuantity));
        FList.Add(FColumns.back().get());
    }
}

const TColumnList* TCustomCloseAllPositionDataControl::GetColList() {
    return Shared().List();
}

TCustomPositionDataControl::TCloseAllQuestion TCustomPositionDataControl::AskCloseAll() {
    Shared().Make();
    return {CreateComponent<TCustomCloseAllPositionDataControl>(), String()};
}

} // namespace quorin
