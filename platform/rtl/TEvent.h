#pragma once

#include "platform/rtl/TObject.h"

#include <cstddef>

namespace quorin {

template <class Signature>
class TEvent;

// A method bound to its object: two words, no allocation. The call dispatches virtually, so an
// override is what gets called. Two bindings of one object through one member compare equal.
// The event does not own the object. An empty event must not be called.
template <class R, class... A>
class TEvent<R(A...)> {
public:
    TEvent() = default;
    TEvent(std::nullptr_t) {}

    template <auto Member, class Class>
    static TEvent Of(Class* object) {
        return TEvent(object, &Thunk<Member, Class>);
    }

    explicit operator bool() const { return FThunk != nullptr; }
    R operator()(A... arguments) const { return FThunk(FObject, arguments...); }
    friend bool operator==(const TEvent&, const TEvent&) = default;

private:
    using TThunk = R (*)(void*, A...);
    TEvent(void* object, TThunk thunk) : FObject(object), FThunk(thunk) {}

    template <auto Member, class Class>
    static R Thunk(void* object, A... arguments) {
        return (static_cast<Class*>(object)->*Member)(arguments...);
    }

    void* FObject = nullptr;
    TThunk FThunk = nullptr;
};

template <class Member>
struct TMemberTraits;
template <class R, class C, class... A>
struct TMemberTraits<R (C::*)(A...)> {
    using Class = C;
    using Event = TEvent<R(A...)>;
};

// MakeEvent<&TForm::Clicked>(form): the event of the member's own class and signature.
template <auto Member>
auto MakeEvent(typename TMemberTraits<decltype(Member)>::Class* object) {
    using Traits = TMemberTraits<decltype(Member)>;
    return Traits::Event::template Of<Member, typename Traits::Class>(object);
}

using TNotifyEvent = TEvent<void(TObject*)>;
using TDataCallbackEvent = TEvent<void(Pointer, Pointer)>;

} // namespace quorin
