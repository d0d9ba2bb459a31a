#pragma once

#include "platform/rtl/Types.h"

#include <type_traits>

namespace quorin {

// What an object knows of its class: its name and the way to its base's description.
struct TClassInfo {
    const char* Name;
    const TClassInfo& (*Base)(); // null only for TObject
};

// Root of every class that is tested or made by class at run time. Not copied.
class TObject {
public:
    using ThisClass = TObject;

    TObject() = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
    virtual ~TObject() = default;

    static const TClassInfo& StaticClass() {
        static constexpr TClassInfo info{"TObject", nullptr};
        return info;
    }
    virtual const TClassInfo& ClassInfo() const { return StaticClass(); }
    const char* ClassName() const { return ClassInfo().Name; }
};

// True when `info` describes `base` itself or a descendant of it.
inline bool InheritsFrom(const TClassInfo& info, const TClassInfo& base) {
    for (const TClassInfo* step = &info;; step = &step->Base()) {
        if (step == &base) return true;
        if (step->Base == nullptr) return false;
    }
}

// The line that names a class and its base; first in the class body, access is public after it.
#define QUORIN_CLASS(TSelf, TBase)                                                                 \
public:                                                                                            \
    using ThisClass = TSelf;                                                                       \
    using Inherited = TBase;                                                                       \
    static const ::quorin::TClassInfo& StaticClass() {                                             \
        static_assert(std::is_base_of_v<TBase, TSelf>);                                            \
        static_assert(std::is_same_v<typename TBase::ThisClass, TBase>);                           \
        static constexpr ::quorin::TClassInfo info{#TSelf, &TBase::StaticClass};                   \
        return info;                                                                               \
    }                                                                                              \
    const ::quorin::TClassInfo& ClassInfo() const override {                                       \
        return StaticClass();                                                                      \
    }

// An object as an untyped argument; ObjectAs is the way back. Nil stays nil.
template <class T>
Pointer AsPointer(T* object) {
    return static_cast<TObject*>(object);
}

// The object as a T, or nil when it is nil or of another class.
template <class T>
T* ObjectAs(TObject* object) {
    static_assert(std::is_same_v<typename T::ThisClass, T>,
                  "the class lacks its QUORIN_CLASS line");
    if (object == nullptr || !InheritsFrom(object->ClassInfo(), T::StaticClass())) return nullptr;
    return static_cast<T*>(object);
}

template <class T>
const T* ObjectAs(const TObject* object) {
    return ObjectAs<T>(const_cast<TObject*>(object));
}

// The same for an argument made by AsPointer.
template <class T>
T* ObjectAs(Pointer pointer) {
    return ObjectAs<T>(static_cast<TObject*>(pointer));
}

} // namespace quorin
