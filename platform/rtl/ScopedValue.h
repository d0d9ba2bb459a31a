#pragma once

#include <utility>

namespace quorin {

// Sets a variable for the length of a scope and gives it its previous value back at the end, so
// that nested scopes do not clear what an outer one set.
template <class T>
class TScopedValue {
public:
    TScopedValue(T& variable, T value)
        : FVariable(variable), FPrevious(std::exchange(variable, std::move(value))) {}
    TScopedValue(const TScopedValue&) = delete;
    TScopedValue& operator=(const TScopedValue&) = delete;
    ~TScopedValue() { FVariable = std::move(FPrevious); }

private:
    T& FVariable;
    T FPrevious;
};

// Borrows a reusable buffer for the length of a scope. A nested borrower finds it empty and works
// on its own memory, so that neither sees the other's content.
template <class Buffer>
class TBorrowed {
public:
    explicit TBorrowed(Buffer& home) : FHome(home), FBuffer(std::move(home)) { FHome = Buffer{}; }
    TBorrowed(const TBorrowed&) = delete;
    TBorrowed& operator=(const TBorrowed&) = delete;
    ~TBorrowed() { FHome = std::move(FBuffer); }
    Buffer& operator*() { return FBuffer; }

private:
    Buffer& FHome;
    Buffer FBuffer;
};

} // namespace quorin
