// A control of one's own: two columns that the library does not have, computed when a cell is read,
// and one that stands for a field of the feed.
#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "viewdata/frame/BoundGrid.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/ResourceKeys.h"

#include <iomanip>
#include <iostream>

using namespace quorin;

namespace {

// Numbers of one's own stay clear of those of the library and below FirstCustomColumn.
constexpr Integer Turnover = 90001; // value of what was traded today, at the last price
constexpr Integer Middle = 90002;   // between best bid and best ask

// A number from FirstCustomColumn up stands for a field of the live item. Caption and type come
// from a table of the language files, which the control names.
constexpr Integer LotSize = FirstCustomColumn + Field::LotSize;
constexpr StringView FieldTable = u"MarketCustomColumn";

constexpr TColumnEntry Columns[] = {{MarketAttribute::SymbolCode, ResourceKey::Res_Symbol},
                                    {MarketAttribute::LastPrice},
                                    {Middle},
                                    {Turnover},
                                    {LotSize}};

class TTurnoverControl : public TCustomMarketDataControl {
    QUORIN_CLASS(TTurnoverControl, TCustomMarketDataControl)

    explicit TTurnoverControl(TComponent* AOwner = nullptr) : TCustomMarketDataControl(AOwner) {
        EmptyDisplayText = u"-";
        FCustomColumnTagID = FieldTable;
    }

    const TColumnList* GetColList() override { return FColumns.List(); }

    // Raw values sort, filter and add up. Null says that there is nothing, which 0.0 would not.
    Variant GetValue(Integer RecordIndex, Integer Attribute) override {
        switch (Attribute) {
        case Turnover: return Product(RecordIndex);
        case Middle: return MiddleOf(RecordIndex);
        default: return TCustomMarketDataControl::GetValue(RecordIndex, Attribute);
        }
    }

    // Texts are what a person reads.
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override {
        if (Attribute != Turnover && Attribute != Middle) {
            return TCustomMarketDataControl::GetDisplayValue(RecordIndex, Attribute);
        }
        const Variant value = GetValue(RecordIndex, Attribute);
        if (value.IsNull()) return EmptyDisplayText;
        return FormatPattern(value.ToDouble(), Attribute == Turnover ? u"#,##0" : u"#,##0.###");
    }

private:
    Double Number(Integer row, Integer attribute) {
        Double number = 0.0;
        TCustomMarketDataControl::GetValue(row, attribute).TryToDouble(number);
        return number;
    }
    Variant Product(Integer row) {
        const Double value =
            Number(row, MarketAttribute::LastPrice) * Number(row, MarketAttribute::Volume);
        return value > 0.0 ? Variant(value) : Variant();
    }
    Variant MiddleOf(Integer row) {
        const Double bid = Number(row, MarketAttribute::BestBid);
        const Double ask = Number(row, MarketAttribute::BestAsk);
        return bid > 0.0 && ask > 0.0 ? Variant((bid + ask) / 2.0) : Variant();
    }

    const TColumnSet FColumns{Columns};
};

constexpr Integer CellWidth = 16;

} // namespace

int main() {
    const std::filesystem::path data = QUORIN_DATA_DIR;
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = data});
    LoadUniverse(data / "universe", services.Market());
    TVenue venue(services.Items(), services.Market(),
                 {.StartNanos = Int64{10 * 3600} * NanosPerSecond});

    auto owned = CreateComponent<TTurnoverControl>();
    TTurnoverControl& control = *owned;
    TBoundGrid grid(std::move(owned), FieldTable);
    // Captions of columns that no language file knows are the program's.
    grid.View().GetColumn(1)->SetCaption(u"Last");
    grid.View().GetColumn(2)->SetCaption(u"Middle");
    grid.View().GetColumn(3)->SetCaption(u"Turnover");

    control.SetExchangeAndCategory(u"SEHK", -1);
    grid.View().SetVisibleRowCapacity(8);
    control.ViewRecordChanged(grid.VisibleRecords());
    for (int step = 0; step < 40; ++step) {
        venue.Step();
        services.Deliver();
    }

    for (Integer index = 0; index < grid.View().GetColumnCount(); ++index) {
        std::cout << std::setw(CellWidth) << ToUtf8(grid.View().GetColumn(index)->Caption());
    }
    std::cout << '\n';
    const Integer rows = grid.View().VisibleRowCount();
    for (Integer row = 0; row < rows; ++row) {
        std::cout << ToUtf8(grid.RowLine(row, CellWidth)) << '\n';
    }
}
