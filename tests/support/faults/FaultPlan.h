#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/Types.h"

#include <array>
#include <limits>
#include <random>

namespace quorin {

class TEmbeddedServices;
class TFaultyCallbacks;
class TFaultyEntry;

// The ways in which services misbehave towards the view layer.
enum class TFault : Byte {
    CallInRegistration, // a callback inside an operation that registers or changes
    CallInLookUp,       // a callback inside a look-up
    Twice,              // what was told is told again
    NilSender,          // nothing is named
    NamesMore,          // more is named than has changed
    ReportedAgain,      // an account or a sub-account is told of though it is as it was
    ForeignSender,      // a channel tells of an object of another class
    DropAndReAdd,       // a position is told of as closed, and then as open
    FillInOrder,        // what waits is delivered before TakeOrderAction returns
    NestedLoop,         // what waits is delivered while a question is open, and more is told
};
inline constexpr std::size_t FaultCount = 10;

// When which fault happens: chosen by a seeded random number, so that a seed repeats a run. Keeps
// count of what happened. Faults do not happen inside faults.
class TFaultPlan {
public:
    TFaultPlan(TEmbeddedServices& services, unsigned seed) : FServices(services), FRandom(seed) {}
    TFaultPlan(const TFaultPlan&) = delete;
    TFaultPlan& operator=(const TFaultPlan&) = delete;

    // True while a fault calls. What happens then was not asked for by any test.
    static bool IsInFault() { return FaultDepth > 0; }

    Integer Happened(TFault fault) const { return FHappened[static_cast<std::size_t>(fault)]; }
    Integer HappenedInAll() const;

    // Off, the services behave, and so they do after `most` calls inside look-ups and
    // registrations; on from the start, without an end.
    void SetOn(bool on, Integer most = std::numeric_limits<Integer>::max()) {
        FOn = on;
        FCallsLeft = most;
    }
    bool IsOn() const { return FOn; }
    // Whether operations call back before they return, which no receiver that frees the caller can
    // stand; on from the start.
    void SetCallsInside(bool on) { FCallsInside = on; }

    void Count(TFault fault) { ++FHappened[static_cast<std::size_t>(fault)]; }
    // One of 0 to `count` - 1.
    unsigned Pick(unsigned count) { return static_cast<unsigned>(FRandom() % count); }
    bool OneIn(unsigned count) { return Pick(count) == 0; }

    // Runs `fault()` as a fault, unless one is running.
    template <class Action>
    void Run(Action fault) {
        if (!FOn || IsInFault()) return;
        ++FaultDepth;
        fault();
        --FaultDepth;
    }

    // What a look-up may lead to are the registrations of all services but local ones, whose extra
    // call would change the end.
    void Join(TFaultyCallbacks& callbacks, bool isLocal) {
        FAll.Add(&callbacks);
        if (!isLocal) FCallbacks.Add(&callbacks);
    }
    // Gives back the memory of registrations that have ended. Never inside a call.
    void Sweep();

    // The points at which services misbehave.
    void InRegistration(TFaultyCallbacks& own);
    void InLookUp();
    // What a look-up answers, once others have been called inside it.
    template <class Answer>
    Answer LookedUp(Answer answer) {
        InLookUp();
        return answer;
    }
    void InOrder();
    void InQuestion();

private:
    // Whether the operation that asks calls somebody before it returns.
    bool CallsInside(unsigned rate);
    // False where nobody is registered.
    bool TellAny();
    void DeliverAll(TFault fault);

    inline static int FaultDepth = 0;

    TEmbeddedServices& FServices;
    std::mt19937 FRandom;
    TList<TFaultyCallbacks*> FAll;
    TList<TFaultyCallbacks*> FCallbacks; // but for local ones
    std::array<Integer, FaultCount> FHappened{};
    bool FOn = true;
    bool FCallsInside = true;
    Integer FCallsLeft = std::numeric_limits<Integer>::max();
    bool FDelivers = false;
};

} // namespace quorin
