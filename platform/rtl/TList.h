#pragma once

#include "platform/rtl/Types.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace quorin {

// An ordered list. Indexes are from 0 and must be inside the list unless an operation says
// otherwise. Elements move when the list grows.
template <class T>
class TList {
public:
    Integer Count() const { return static_cast<Integer>(FItems.size()); }
    bool IsEmpty() const { return FItems.empty(); }
    bool Has(Integer index) const { return index >= 0 && index < Count(); }

    T& operator[](Integer index) { return FItems[static_cast<std::size_t>(index)]; }
    const T& operator[](Integer index) const { return FItems[static_cast<std::size_t>(index)]; }
    const T& Last() const { return FItems.back(); }

    void Add(T value) { FItems.push_back(std::move(value)); }
    // `index` may equal the count.
    void Insert(Integer index, T value) { FItems.insert(At(index), std::move(value)); }
    void Delete(Integer index) { FItems.erase(At(index)); }
    T Extract(Integer index) {
        T value = std::move((*this)[index]);
        Delete(index);
        return value;
    }
    void Clear() { FItems.clear(); }
    template <class Predicate>
    void RemoveAll(Predicate predicate) {
        std::erase_if(FItems, predicate);
    }
    void Reserve(Integer count) { FItems.reserve(static_cast<std::size_t>(count)); }

    // The entry ends up at index `to`; those between shift by one.
    void Move(Integer from, Integer to) {
        if (from < to) std::rotate(At(from), At(from) + 1, At(to) + 1);
        if (to < from) std::rotate(At(to), At(from), At(from) + 1);
    }

    // Index of the first equal entry, -1 when there is none.
    template <class U>
    Integer IndexOf(const U& value) const {
        auto found = std::find(FItems.begin(), FItems.end(), value);
        return found == FItems.end() ? -1 : static_cast<Integer>(found - FItems.begin());
    }
    template <class U>
    bool Contains(const U& value) const {
        return IndexOf(value) >= 0;
    }

    // Entries that compare equal keep their order.
    template <class Less>
    void Sort(Less less) {
        std::stable_sort(FItems.begin(), FItems.end(), less);
    }

    auto begin() { return FItems.begin(); }
    auto end() { return FItems.end(); }
    auto begin() const { return FItems.begin(); }
    auto end() const { return FItems.end(); }

    friend bool operator==(const TList&, const TList&) = default;

private:
    auto At(Integer index) { return FItems.begin() + index; }

    std::vector<T> FItems;
};

} // namespace quorin
