#pragma once

#include "embedded/Registrations.h"
#include "platform/rtl/TEvent.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <array>
#include <memory>
#include <vector>

namespace quorin {

class TEmbeddedMarketData;
class TEmbeddedSubscribeAdapter;
struct TBatchReceiver;

// The fields of one item. A field is a Double or a text; each reads as the other. Only fields that
// were set once take memory. Reading a number costs a few loads and never allocates; a number has
// no text until somebody reads it, a text is read as a number when it is set.
class TFieldStore {
public:
    // Nil for a field that was never set, or forgotten.
    const Double* FindNumber(Integer fieldNo) const {
        const TCell* cell = Find(fieldNo);
        return cell != nullptr && cell->Kind != TKind::Unset ? &cell->Number : nullptr;
    }
    // A field that was set, also one that was cleared after that.
    bool Knows(Integer fieldNo) const { return FindNumber(fieldNo) != nullptr; }
    bool Has(Integer fieldNo) const {
        const TCell* cell = Find(fieldNo);
        return cell != nullptr && cell->Kind >= TKind::Number;
    }
    // Replaces what `text` holds.
    void Read(Integer fieldNo, String& text) const;

    void Set(Integer fieldNo, Double value);
    void Set(Integer fieldNo, StringView value);
    void Clear(Integer fieldNo);
    // As if the field had never been set.
    void Forget(Integer fieldNo);

    // How many fields have a fixed slot; see the list in the source.
    static constexpr std::size_t SlotCount = 85;
    using TSlotTable = std::array<Byte, 4096>; // from field number to slot, which count from 1

private:
    enum class TKind : Byte { Unset, Absent, Number, Text };
    struct TCell {
        Double Number = 0.0;
        std::uint16_t Text = NoText; // place in FTexts, kept for the next text of the field
        TKind Kind = TKind::Unset;
    };
    struct TFurtherCell {
        Integer FieldNo;
        TCell Cell;
    };
    static bool IsBelow(const TFurtherCell& cell, Integer fieldNo) {
        return cell.FieldNo < fieldNo;
    }
    static constexpr std::uint16_t NoText = 0xFFFF;
    static constexpr Byte NoCell = 0xFF;

    static const TSlotTable Slots;

    const TCell* Find(Integer fieldNo) const {
        const auto index = static_cast<std::uint32_t>(fieldNo);
        if (index >= Slots.size() || Slots[index] == 0) return FindFurther(fieldNo);
        const Byte place = FPlaces[Slots[index] - 1u];
        return place == NoCell ? nullptr : &FCells[place];
    }
    const TCell* FindFurther(Integer fieldNo) const;
    TCell& Obtain(Integer fieldNo);

    std::vector<TCell> FCells;
    std::array<Byte, SlotCount> FPlaces = NoPlaces(); // from slot to FCells
    std::vector<String> FTexts;
    std::unique_ptr<std::vector<TFurtherCell>> FFurther; // fields without a slot, by number

    static constexpr std::array<Byte, SlotCount> NoPlaces() {
        std::array<Byte, SlotCount> places{};
        for (Byte& place : places) place = NoCell;
        return places;
    }
};

// The live data of one key in memory, over the static fields of its symbol, which take no memory
// here. A feed writes fields and marks the item as changed with
// TEmbeddedSubscribeAdapter::Touch; readers see a written field at once and hear of it with the
// next delivery. Made by the adapter only, which also owns it.
class alignas(64) TEmbeddedSubItem final : public TCustomSubItem {
    QUORIN_CLASS(TEmbeddedSubItem, TCustomSubItem)
public:
    TEmbeddedSubItem(TEmbeddedSubscribeAdapter& adapter, StringView key);

    const String& GetKey() const override { return FKey; }
    Double GetFieldDouble(Integer FieldNo) const override {
        if (const Double* number = FFields.FindNumber(FieldNo)) return *number;
        return FRecord != nullptr ? RecordNumber(FieldNo) : 0.0;
    }
    void GetFieldString(Integer FieldNo, String& Text) const override;
    Boolean HasField(Integer FieldNo) const override;
    Integer GetStatus() const override { return FStatus; }
    Integer GetItemIndex() const override { return FItemIndex; }
    void AddRealtimeListener(const TNotifyEvent& Event, TObject* Owner) override;
    void RemoveRealtimeListener(TObject* Owner) override;

    // Feeding. A text that is no number reads as 0.0.
    void SetField(Integer fieldNo, Double value) { FFields.Set(fieldNo, value); }
    void SetField(Integer fieldNo, StringView value) { FFields.Set(fieldNo, value); }
    // Absent from now on, also where the record knows it.
    void ClearField(Integer fieldNo) {
        if (FRecord != nullptr || FFields.Knows(fieldNo)) FFields.Clear(fieldNo);
    }
    // Drops what was set, so that the field reads as the record's.
    void TakeRecordField(Integer fieldNo) { FFields.Forget(fieldNo); }
    // What fields read as that were not set; nil for nothing. Must outlive the item's last reading.
    void SetRecord(const TEmbeddedMarketData* record) { FRecord = record; }
    const TEmbeddedMarketData* Record() const { return FRecord; }
    // One of ItemStatus. Not needed for data that arrives: the first delivery of a waiting item
    // makes it ready.
    void SetStatus(Integer status) { FStatus = status; }
    // Waits as a new item does: the next delivery makes it ready.
    void AwaitData() {
        FStatus = ItemStatus::Waiting;
        FDelivered = false;
    }

private:
    friend class TEmbeddedSubscribeAdapter;

    struct TFollower {
        TBatchReceiver* Receiver;
        TDeliverySerial Since; // the last delivery that had begun before the follower came
    };

    Double RecordNumber(Integer fieldNo) const;

    // Of very many items each update meets one, which is then far away in memory. What a feed
    // writes fills the first cache line, what a delivery reads the last one.
    Integer FStatus = ItemStatus::Waiting;
    Integer FItemIndex = NoItemIndex;
    bool FTouched = false;
    bool FDelivered = false;
    TFieldStore FFields;
    const TEmbeddedMarketData* FRecord = nullptr;
    TEmbeddedSubscribeAdapter& FAdapter;
    alignas(64) String FKey;
    std::unique_ptr<TRegistrations<TNotifyEvent>> FListeners; // from the first listener on
    std::vector<TFollower> FFollowers;                        // one per owner
};

} // namespace quorin
