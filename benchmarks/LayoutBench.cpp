#include "benchmarks/HandChain.h"
#include "benchmarks/WindowChanges.h"
#include "platform/rtl/Numbers.h"
#include "platform/widgets/GridTableView.h"
#include "viewdata/presentation/ViewLayouts.h"

#include <algorithm>

// A column layout of 30 columns, read and put into force on a grid of many rows; and the same text
// taken apart by hand, with the columns put into its order.

namespace quorin {
namespace {

constexpr Integer LayoutKinds = 2; // so that each one changes something

String LayoutOf(Integer kind) {
    String layout;
    for (Integer place = 0; place < WindowColumns; ++place) {
        const Integer column = kind == 0 ? place : WindowColumns - 1 - place;
        layout += u"COLUMN" + IntegerToText(column) + (place % 5 == 4 ? u",0," : u",1,") +
                  IntegerToText(60 + column) + u";";
    }
    return layout;
}

class TRowsOnly : public TcxCustomDataSource {
public:
    explicit TRowsOnly(Integer rows) : FRows(rows) {}
    Integer GetRecordCount() override { return FRows; }
    Variant GetValue(TcxDataRecordHandle, TcxDataItemHandle) override { return 1.0; }

private:
    Integer FRows;
};

void ApplyLayout(benchmark::State& state) {
    TRowsOnly source(static_cast<Integer>(state.range(0)));
    TcxGridTableView grid;
    grid.SetCustomDataSource(&source);
    std::vector<std::unique_ptr<TColumnInfo>> owned;
    TColumnList columns;
    for (Integer column = 0; column < WindowColumns; ++column) {
        grid.AddColumn(column + 1);
        owned.push_back(
            TColumnInfo::AddColumn(column + 1, {}, 80, u"COLUMN" + IntegerToText(column), false));
        columns.Add(owned.back().get());
    }
    const String layouts[LayoutKinds] = {LayoutOf(0), LayoutOf(1)};
    std::size_t next = 0;
    for (auto _ : state) {
        SetColumnLayout(grid, layouts[next++ % LayoutKinds], &columns);
        benchmark::DoNotOptimize(grid.RowCount());
    }
    if (GetColumnLayout(grid, &columns) != layouts[(next - 1) % LayoutKinds]) {
        state.SkipWithError("another layout is in force");
    }
    state.SetItemsProcessed(state.iterations());
}

struct THandColumn {
    String Key;
    Integer Width = 0;
    bool IsVisible = false;
};

// The next piece of `text` up to the mark, which both go.
StringView TakePiece(StringView& text, Char mark) {
    const std::size_t end = text.find(mark);
    const StringView piece = text.substr(0, end);
    text.remove_prefix(end == StringView::npos ? text.size() : end + 1);
    return piece;
}

void LayoutByHand(benchmark::State& state) {
    std::vector<THandColumn> columns;
    for (Integer column = 0; column < WindowColumns; ++column) {
        columns.push_back({u"COLUMN" + IntegerToText(column), 80, true});
    }
    const String layouts[LayoutKinds] = {LayoutOf(0), LayoutOf(1)};
    std::size_t next = 0;
    for (auto _ : state) {
        StringView layout = layouts[next++ % LayoutKinds];
        auto place = columns.begin();
        while (!layout.empty()) {
            StringView entry = TakePiece(layout, u';');
            const StringView key = TakePiece(entry, u',');
            const auto found = std::find_if(place, columns.end(), [key](const THandColumn& column) {
                return column.Key == key;
            });
            if (found == columns.end()) continue;
            found->IsVisible = TakePiece(entry, u',') == u"1";
            found->Width = ToIntegerOr(entry, found->Width);
            std::rotate(place, found, found + 1);
            ++place;
        }
        benchmark::DoNotOptimize(columns.data());
    }
    state.SetItemsProcessed(state.iterations());
}

QUORIN_GROWTH(ApplyLayout);
QUORIN_GROWTH(LayoutByHand);

} // namespace
} // namespace quorin
