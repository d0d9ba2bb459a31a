#pragma once

#include "platform/rtl/TEvent.h"

#include <functional>
#include <memory>

namespace quorin {

// Receives callbacks and counts them. The owner of the registrations is an object apart, so that it
// can die while a service that calls on regardless is found out and does no harm.
class TCallRecorder {
public:
    TCallRecorder() = default;
    TCallRecorder(const TCallRecorder&) = delete;
    TCallRecorder& operator=(const TCallRecorder&) = delete;

    TDataCallbackEvent Event() { return MakeEvent<&TCallRecorder::DataCalled>(this); }
    // A second event of the same owner, unequal to the first.
    TDataCallbackEvent OtherEvent() { return MakeEvent<&TCallRecorder::OtherDataCalled>(this); }
    TNotifyEvent NotifyEvent() { return MakeEvent<&TCallRecorder::Notified>(this); }

    TObject* Owner() { return FOwner.get(); }
    // After its registrations were removed, as an owner does.
    void KillOwner() { FOwner.reset(); }

    // Runs inside each call, after it was counted.
    void OnCall(std::function<void(Pointer sender)> action) { FAction = std::move(action); }

    Integer Count() const { return FCount; }
    Integer OtherCount() const { return FOtherCount; }
    // Calls whose `Data` was not nil.
    Integer DataCount() const { return FDataCount; }
    void Reset() { FCount = FOtherCount = FDataCount = 0; }

private:
    void DataCalled(Pointer Sender, Pointer Data) {
        if (Data != nullptr) ++FDataCount;
        Take(Sender, FCount);
    }
    void OtherDataCalled(Pointer Sender, Pointer) { Take(Sender, FOtherCount); }
    void Notified(TObject* Sender) { Take(Sender, FCount); }
    void Take(Pointer sender, Integer& count) {
        ++count;
        const auto action = FAction; // which may replace itself
        if (action) action(sender);
    }

    std::unique_ptr<TObject> FOwner = std::make_unique<TObject>();
    std::function<void(Pointer)> FAction;
    Integer FCount = 0;
    Integer FOtherCount = 0;
    Integer FDataCount = 0;
};

} // namespace quorin
