#include "platform/widgets/GridFindPanel.h"

#include "platform/rtl/Text.h"
#include "platform/widgets/GridTableView.h"

namespace quorin {

void TcxGridFindPanel::Open() {
    FIsOpen = true;
    FView.DataController().InvalidatePaint();
}

void TcxGridFindPanel::Close() {
    PressClear();
    FIsOpen = false;
}

void TcxGridFindPanel::PressFind() {
    FFoundText = FText;
    FUpperText = UpperCase(FText);
    FRows.SetOnFind(FText.empty() ? nullptr : MakeEvent<&TcxGridFindPanel::IsFound>(this));
}

void TcxGridFindPanel::PressClear() {
    FText.clear();
    PressFind();
}

Boolean TcxGridFindPanel::IsFound(Integer record) {
    String text;
    for (Integer index = 0; index < FView.GetColumnCount(); ++index) {
        TcxGridColumn& column = *FView.GetColumn(index);
        if (!column.GetVisible()) continue;
        FView.GetRecordText(record, column, text);
        if (UpperCase(text).find(FUpperText) != String::npos) return true;
    }
    return false;
}

} // namespace quorin
