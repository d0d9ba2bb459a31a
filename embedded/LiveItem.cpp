#include "embedded/LiveItem.h"

#include "embedded/MarketUniverse.h"
#include "embedded/SubscribeService.h"
#include "platform/rtl/Numbers.h"

#include <algorithm>

namespace quorin {

namespace {

struct TFieldRange {
    Integer First;
    Integer Last;
};

// The fields that get a slot, by number.
constexpr TFieldRange SlottedFields[] = {
    {Field::BestBid, Field::LastPrice},
    {Field::BestBidQuantity, Field::Volume},
    {Field::BestAskQuantity, Field::Exchange},
    {Field::ProductType, Field::LotSize},
    {Field::Underlyer, Field::Expiry},
    {Field::PreviousClose, Field::Remark},
    {Field::LowPrice, Field::LowPrice},
    {Field::BidQuantity2, Field::BidQuantity5},
    {Field::AskQuantity2, Field::AskQuantity5},
    {Field::SpreadCode, Field::SpreadCode},
    {Field::BidPrice2, Field::BidPrice5},
    {Field::AskPrice2, Field::AskPrice5},
    {Field::OldestTrade, Field::NewestTrade},
    {Field::OpenPrice, Field::LastTradingDay},
    {Field::Series, Field::Series},
    {Field::MarketState, Field::MarketState},
    {Field::FirstMargin, Field::LastMargin},
    {Field::ContractSize, Field::ContractSize},
    {Field::TickSize, Field::TickSize},
    {Field::SettlementDay, Field::SettlementDay},
    {Field::DisplayRatio, Field::DisplayRatio},
    {Field::FractionalQuantity, Field::FractionalQuantity},
    {Field::BidQuantity6, Field::BidQuantity10},
    {Field::AskQuantity6, Field::AskQuantity10},
    {Field::BidPrice6, Field::BidPrice10},
    {Field::AskPrice6, Field::AskPrice10},
};

constexpr std::size_t CountSlots() {
    std::size_t count = 0;
    for (const TFieldRange& range : SlottedFields) {
        count += static_cast<std::size_t>(range.Last - range.First + 1);
    }
    return count;
}
static_assert(CountSlots() == TFieldStore::SlotCount);

// There may be very many items, each with few fields: doubling would waste more than it saves.
template <class T>
void GrowBySteps(std::vector<T>& list) {
    constexpr std::size_t step = 4;
    if (list.size() == list.capacity() && list.size() < TFieldStore::SlotCount) {
        list.reserve(list.size() + step);
    }
}

constexpr TFieldStore::TSlotTable MakeSlots() {
    TFieldStore::TSlotTable slots{};
    Byte slot = 0;
    for (const TFieldRange& range : SlottedFields) {
        for (Integer fieldNo = range.First; fieldNo <= range.Last; ++fieldNo) {
            slots[static_cast<std::size_t>(fieldNo)] = ++slot;
        }
    }
    return slots;
}

} // namespace

constexpr TFieldStore::TSlotTable TFieldStore::Slots = MakeSlots();

void TFieldStore::Read(Integer fieldNo, String& text) const {
    text.clear();
    const TCell* cell = Find(fieldNo);
    if (cell == nullptr || cell->Kind < TKind::Number) return;
    if (cell->Kind == TKind::Text) {
        text = FTexts[cell->Text];
    } else {
        AppendDouble(text, cell->Number);
    }
}

void TFieldStore::Set(Integer fieldNo, Double value) {
    TCell& cell = Obtain(fieldNo);
    cell.Number = value;
    cell.Kind = TKind::Number;
}

void TFieldStore::Set(Integer fieldNo, StringView value) {
    TCell& cell = Obtain(fieldNo);
    if (cell.Text == NoText) {
        if (FTexts.size() >= NoText) return; // more different fields than any feed has
        cell.Text = static_cast<std::uint16_t>(FTexts.size());
        GrowBySteps(FTexts);
        FTexts.emplace_back();
    }
    FTexts[cell.Text].assign(value);
    cell.Number = ToDoubleOr(value, 0.0);
    cell.Kind = TKind::Text;
}

void TFieldStore::Clear(Integer fieldNo) {
    TCell& cell = Obtain(fieldNo);
    cell.Number = 0.0;
    cell.Kind = TKind::Absent;
}

void TFieldStore::Forget(Integer fieldNo) {
    if (Knows(fieldNo)) Obtain(fieldNo).Kind = TKind::Unset;
}

const TFieldStore::TCell* TFieldStore::FindFurther(Integer fieldNo) const {
    if (FFurther == nullptr) return nullptr;
    const auto found = std::lower_bound(FFurther->begin(), FFurther->end(), fieldNo, IsBelow);
    return found != FFurther->end() && found->FieldNo == fieldNo ? &found->Cell : nullptr;
}

TFieldStore::TCell& TFieldStore::Obtain(Integer fieldNo) {
    if (const TCell* known = Find(fieldNo)) return const_cast<TCell&>(*known);
    const auto index = static_cast<std::uint32_t>(fieldNo);
    if (index < Slots.size() && Slots[index] != 0) {
        FPlaces[Slots[index] - 1u] = static_cast<Byte>(FCells.size());
        GrowBySteps(FCells);
        return FCells.emplace_back();
    }
    if (FFurther == nullptr) FFurther = std::make_unique<std::vector<TFurtherCell>>();
    const auto place = std::lower_bound(FFurther->begin(), FFurther->end(), fieldNo, IsBelow);
    return FFurther->insert(place, TFurtherCell{fieldNo, TCell{}})->Cell;
}

TEmbeddedSubItem::TEmbeddedSubItem(TEmbeddedSubscribeAdapter& adapter, StringView key)
    : FAdapter(adapter), FKey(key) {}

Double TEmbeddedSubItem::RecordNumber(Integer fieldNo) const {
    return FRecord->FieldNumber(fieldNo);
}

void TEmbeddedSubItem::GetFieldString(Integer FieldNo, String& Text) const {
    if (FRecord == nullptr || FFields.Knows(FieldNo)) {
        FFields.Read(FieldNo, Text);
    } else {
        FRecord->ReadField(FieldNo, Text);
    }
}

Boolean TEmbeddedSubItem::HasField(Integer FieldNo) const {
    if (FRecord == nullptr || FFields.Knows(FieldNo)) return FFields.Has(FieldNo);
    return FRecord->HasField(FieldNo);
}

void TEmbeddedSubItem::AddRealtimeListener(const TNotifyEvent& Event, TObject* Owner) {
    FAdapter.AddListener(*this, Event, Owner);
}

void TEmbeddedSubItem::RemoveRealtimeListener(TObject* Owner) {
    FAdapter.RemoveListener(*this, Owner);
}

} // namespace quorin
