#include "platform/rtl/TComponent.h"

#include <algorithm>

namespace quorin {

TComponent::TComponent(TComponent* owner) : FOwner(owner) {
    if (FOwner != nullptr) FOwner->FComponents.push_back(this);
}

TComponent::~TComponent() {
    while (!FComponents.empty()) {
        TComponent* newest = FComponents.back();
        FComponents.pop_back();
        newest->FOwner = nullptr;
        delete newest;
    }
    if (FOwner != nullptr) std::erase(FOwner->FComponents, this);
    while (!FFreeListeners.empty()) {
        const TNotifyEvent event = FFreeListeners.back().Event;
        FFreeListeners.pop_back();
        event(this);
    }
}

void TComponent::AddFreeListener(const TNotifyEvent& event, TObject* listener) {
    RemoveFreeListener(listener);
    FFreeListeners.push_back(TFreeListener{listener, event});
}

void TComponent::RemoveFreeListener(TObject* listener) {
    std::erase_if(FFreeListeners,
                  [listener](const TFreeListener& entry) { return entry.Listener == listener; });
}

std::unique_ptr<TComponent> TComponentClass::Create() const {
    std::unique_ptr<TComponent> component(FFactory(nullptr));
    component->AfterConstruction();
    return component;
}

} // namespace quorin
