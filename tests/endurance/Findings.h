#pragma once

#include "platform/rtl/Utf.h"

#include <iostream>
#include <random>
#include <string>

namespace quorin {

// What was found wrong in a run; says so at once, but not without end.
class TFindings {
public:
    // Where the run is, for the lines that follow.
    void SetPlace(std::string place) { FPlace = std::move(place); }
    void Add(const std::string& what) {
        constexpr int MostPrinted = 40;
        if (++FCount <= MostPrinted) std::cout << "WRONG " << FPlace << ": " << what << std::endl;
    }
    void Require(bool holds, const char* what) {
        if (!holds) Add(what);
    }
    void Require(bool holds, const char* what, StringView detail) {
        if (!holds) Add(what + (": " + ToUtf8(detail)));
    }
    int Count() const { return FCount; }

private:
    std::string FPlace;
    int FCount = 0;
};

class TDayRandom {
public:
    explicit TDayRandom(std::uint64_t seed) : FRandom(seed) {}
    // One of 0 to `count` - 1; 0 for none.
    Integer Pick(Integer count) {
        return count > 0 ? static_cast<Integer>(FRandom() % static_cast<std::uint64_t>(count)) : 0;
    }
    bool OneIn(Integer count) { return Pick(count) == 0; }
    template <class List>
    auto OneOf(const List& list) {
        return list[static_cast<std::size_t>(Pick(static_cast<Integer>(std::size(list))))];
    }

private:
    std::mt19937_64 FRandom;
};

} // namespace quorin
