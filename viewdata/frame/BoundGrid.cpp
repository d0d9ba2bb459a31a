#include "viewdata/frame/BoundGrid.h"

namespace quorin {

TColumnSet::TColumnSet(std::span<const TColumnEntry> columns) {
    for (const TColumnEntry& column : columns) {
        FColumns.push_back(TColumnInfo::AddColumn(column.Attribute, column.Caption, column.Width,
                                                  column.Key, column.IsQuantity));
        FList.Add(FColumns.back().get());
    }
}

TBoundGrid::TBoundGrid(std::unique_ptr<TBaseDataControl> control, StringView customColumnTag)
    : FControl(control.get()), FSource(std::move(control)),
      FView(CreateComponent<TcxGridTableView>()), FGrid(CreateComponent<TcxGrid>()) {
    FGrid->SetActiveView(FView.get());
    FView->SetCustomDataSource(&FSource);
    FView->SetOnGetCellText(MakeEvent<&TBoundGrid::GetCellText>(this));
    const TColumnList* columns = FControl->GetColList();
    if (columns == nullptr) return;
    for (const TColumnInfo* info : *columns) {
        FView->AddColumn(info->ID(), ColumnCaption(columns, info->ID(), customColumnTag))
            .SetWidth(info->Width());
    }
}

TBoundGrid::~TBoundGrid() {
    FView->SetCustomDataSource(nullptr);
}

std::vector<Integer> TBoundGrid::VisibleRecords() {
    std::vector<Integer> records;
    const Integer top = FView->TopRow();
    const Integer end = top + FView->VisibleRowCount();
    for (Integer row = top; row < end; ++row) records.push_back(FView->RecordIndex(row));
    return records;
}

std::vector<String> TBoundGrid::RowTexts(Integer row) {
    std::vector<String> texts;
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        texts.push_back(FView->CellText(row, *FView->GetColumn(index)));
    }
    return texts;
}

String TBoundGrid::RowLine(Integer row, Integer width) {
    const std::size_t room = width > 0 ? static_cast<std::size_t>(width) : 0;
    String line;
    for (const String& text : RowTexts(row)) {
        if (text.size() < room) line.append(room - text.size(), u' ');
        line += text;
    }
    return line;
}

void TBoundGrid::GetCellText(Integer record, TcxCustomGridTableItem& column, String& text) {
    text = FControl->GetDisplayValue(record, column.GetTag());
}

} // namespace quorin
