// Answers of a filter dialog: each line is a column, an operator and the values. A filter shows
// rows of the source alone, each once, and an emptied one shows them all.

#include "platform/widgets/CustomDataSource.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/FuzzServices.h"
#include "viewdata/presentation/CustomFilterDialog.h"
#include "viewdata/services/ChannelMessages.h"

#include <array>
#include <vector>

namespace quorin {
namespace {

constexpr Integer Rows = 5;

struct TSource : TcxCustomDataSource {
    Integer GetRecordCount() override { return Rows; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        static const std::array<Variant, Rows> values{u"Alpha", 20, Variant(), 1000.25, u"%a%"};
        const Integer tag = GetDataController()->GetItem(item)->Tag();
        return values[static_cast<std::size_t>((IndexOfHandle(record) + tag) % Rows)];
    }
};

void CheckRows(TcxGridTableView& grid) {
    std::vector<bool> seen(Rows);
    for (Integer row = 0; row < grid.RowCount(); ++row) {
        const Integer record = grid.RecordIndex(row);
        ExpectLaw(record >= 0 && record < Rows && !seen[static_cast<std::size_t>(record)],
                  "a filter shows each row at most once");
        seen[static_cast<std::size_t>(record)] = true;
    }
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    TFuzzServices world;
    TSource source;
    auto grid = CreateComponent<TcxGridTableView>();
    grid->SetCustomDataSource(&source);
    TcxGridColumn* columns[] = {&grid->AddColumn(0), &grid->AddColumn(1), &grid->AddColumn(2),
                                &grid->AddColumn(3)};
    columns[1]->DataBinding().SetValueType<TcxFloatValueType>();
    columns[2]->DataBinding().SetValueType<TcxDateTimeValueType>();
    columns[3]->DataBinding().SetValueType<TZTDateValueType>();
    TGridCustomFilterRecord dialog;
    String value;
    Byte op = 0;
    world.Host.OnMessage = [&](Integer number, Pointer record) {
        if (number != ChannelMessage::CustomFilter) return false;
        auto& answer = *static_cast<TCustomFilterRecord*>(record);
        answer.Operator = op;
        answer.Value = value;
        return true;
    };
    while (!input.IsEmpty()) {
        TcxGridColumn& column = *columns[input.TakeByte() % std::size(columns)];
        op = static_cast<Byte>(input.TakeByte() - 'a');
        value = input.TakeText();
        dialog.ExecuteCustomFilter(*grid, column);
        CheckRows(*grid);
    }
    grid->Filter().Root().Clear();
    grid->Filter().Refresh();
    ExpectLaw(grid->RowCount() == Rows, "no filter, all rows");
    return 0;
}
