// Layouts of grids, banded grids and trees from any text: no column is lost or doubled, and what a
// view writes it reads back as it stands.

#include "platform/widgets/GridBandedTableView.h"
#include "tests/fuzz/FuzzInput.h"
#include "viewdata/presentation/ViewLayouts.h"

#include <set>

namespace quorin {
namespace {

constexpr Integer Columns = 6;
constexpr Integer LargestWidth = 300;

struct TDefaults {
    TDefaults() {
        static constexpr const char16_t* keys[Columns] = {u"Bid", u"Ask", u"", u"Last", u"1", u"N"};
        for (Integer tag = 1; tag <= Columns; ++tag) {
            Infos.push_back(TColumnInfo::AddColumn(tag, u"", 50, keys[tag - 1], false));
            List.Add(Infos.back().get());
        }
    }
    std::vector<std::unique_ptr<TColumnInfo>> Infos;
    TColumnList List;
};

template <class View>
void Check(StringView columns, StringView sorts) {
    static const TDefaults defaults;
    auto view = CreateComponent<View>();
    for (Integer tag = 1; tag <= Columns; ++tag) view->AddColumn(tag);
    if constexpr (std::is_same_v<View, TcxGridBandedTableView>) {
        auto* column = ObjectAs<TcxGridBandedColumn>(view->GetColumn(3));
        column->Position().SetBandIndex(1);
    }
    SetColumnLayout(*view, columns, &defaults.List);
    std::set<Integer> tags;
    for (Integer index = 0; index < view->GetColumnCount(); ++index) {
        const auto* column = view->GetColumn(index);
        tags.insert(column->Tag());
        ExpectLaw(column->GetWidth() >= 0 && column->GetWidth() <= LargestWidth, "widths");
    }
    ExpectLaw(tags.size() == Columns && view->GetColumnCount() == Columns, "every column, once");
    const String written = GetColumnLayout(*view, &defaults.List);
    SetColumnLayout(*view, written, &defaults.List);
    ExpectLaw(GetColumnLayout(*view, &defaults.List) == written, "a layout survives its reading");

    SetSortLayout(*view, sorts);
    const String sorted = GetSortLayout(*view);
    SetSortLayout(*view, sorted);
    ExpectLaw(GetSortLayout(*view) == sorted, "a sort survives its reading");
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    const String columns = input.TakeText();
    const String sorts = input.TakeText();
    Check<TcxGridTableView>(columns, sorts);
    Check<TcxGridBandedTableView>(columns, sorts);
    Check<TcxVirtualTreeList>(columns, sorts);
    return 0;
}
