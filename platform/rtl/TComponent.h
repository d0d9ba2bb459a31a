#pragma once

#include "platform/rtl/TEvent.h"
#include "platform/rtl/TObject.h"

#include <memory>
#include <utility>
#include <vector>

namespace quorin {

// An object that may be owned by another one and is then freed with it. Supported: owners, a tag,
// telling others of the end, making by class. Not supported: names, streaming, moving to another
// owner.
class TComponent : public TObject {
    QUORIN_CLASS(TComponent, TObject)

    explicit TComponent(TComponent* owner = nullptr);
    // Frees what this component owns, the newest first, and tells those who asked for its end.
    ~TComponent() override;

    // Called once when the object is complete; the place for what needs virtual calls.
    virtual void AfterConstruction() {}

    TComponent* Owner() const { return FOwner; }
    Integer ComponentCount() const { return static_cast<Integer>(FComponents.size()); }

    // A number that the user of the component gives a meaning to.
    Integer Tag() const { return FTag; }
    void SetTag(Integer tag) { FTag = tag; }

    // `event` is called at the end of this component's life with its address, which is then good
    // for comparing only. One registration per listener; the same again replaces it.
    void AddFreeListener(const TNotifyEvent& event, TObject* listener);
    void RemoveFreeListener(TObject* listener);

private:
    struct TFreeListener {
        TObject* Listener;
        TNotifyEvent Event;
    };

    TComponent* FOwner;
    std::vector<TComponent*> FComponents;
    std::vector<TFreeListener> FFreeListeners;
    Integer FTag = 0;
};

// Makes a component without an owner; the caller keeps it.
template <class T, class... A>
std::unique_ptr<T> CreateComponent(std::nullptr_t = nullptr, A&&... arguments) {
    auto component = std::make_unique<T>(nullptr, std::forward<A>(arguments)...);
    component->AfterConstruction();
    return component;
}

// Makes a component that `owner` frees.
template <class T, class... A>
T& CreateComponent(TComponent& owner, A&&... arguments) {
    auto component = std::make_unique<T>(&owner, std::forward<A>(arguments)...);
    component->AfterConstruction();
    return *component.release();
}

// A class as a value: what it descends from and how to make one.
class TComponentClass {
public:
    TComponentClass() = default; // no class
    TComponentClass(std::nullptr_t) {}

    template <class T>
    static TComponentClass Of() {
        static_assert(std::is_same_v<typename T::ThisClass, T>,
                      "the class lacks its QUORIN_CLASS line");
        return TComponentClass(&T::StaticClass(), [](TComponent* owner) -> TComponent* {
            return std::make_unique<T>(owner).release();
        });
    }

    explicit operator bool() const { return FInfo != nullptr; }
    // True for the class itself and its descendants; makes no object.
    template <class Base>
    bool InheritsFrom() const {
        return FInfo != nullptr && quorin::InheritsFrom(*FInfo, Base::StaticClass());
    }
    // A complete object without an owner. Must not be called on no class.
    std::unique_ptr<TComponent> Create() const;

private:
    using TFactory = TComponent* (*)(TComponent*);
    TComponentClass(const TClassInfo* info, TFactory factory) : FInfo(info), FFactory(factory) {}

    const TClassInfo* FInfo = nullptr;
    TFactory FFactory = nullptr;
};

} // namespace quorin
