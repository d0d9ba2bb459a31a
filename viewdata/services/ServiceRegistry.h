#pragma once

namespace quorin {

// The services through which the view layer sees prices, positions, accounts, orders and the
// application. Each is an abstract class with one installed instance. The host installs them all
// before the first control is made and removes them after the last is gone.
//
// What every service promises, and what its callers may build on:
//
// Registrations
// - One is kept under its operation, its owner and whatever else the operation names: an account,
//   an item, a channel, a group. Registering the same again replaces the callback.
// - Removing what is not there does no harm, so removing twice doesn't either.
// - Who registers removes, at the latest in its destructor. The owner stays nobody's but its own;
//   a service compares its address and calls nothing on it.
//
// Deliveries
// - Everything happens on the one thread that runs the views.
// - No operation calls back inside the call that asked for it: not while registering, subscribing,
//   looking up or moving to another account. Only operations that publish or ask (PublishValue,
//   SendChannelMessage, TakeOrderAction, message boxes) may run others before they return.
// - One delivery calls each owner once per event. What it tells of travels as `Sender`, the address
//   of exactly the dictionary type that the operation names; it may be nil, and it holds for the
//   length of the call only. `Data` carries nothing unless the operation says so.
// - Inside a callback an owner may register, remove and die, itself or others. What was added
//   waits for the next delivery, also what was added under another key of the operation or for
//   another event that the delivery tells of; what was removed is not called any more. A callback
//   that is replaced by another waits likewise; the same one again keeps its turn.
//
// Records
// - What a service hands out stays the service's: nobody else frees it. Texts that come back by
//   reference live as long as their record and may change with it; copy what must last.
// - A known key keeps one object, updated in place, for as long as the service lists it. A record
//   outlives the callback that tells of its end, and any order action that is under way.
//
// Answers
// - Nothing throws. What is not there answers nil, an empty text, 0, 0.0 or false.
// - Nothing waits: an operation answers from what the service holds at that moment.
// - Indexes are from 0; one outside answers as something that is not there.

class ServiceRegistry;

// What each contract derives from: `class TCustomLogFile : public TService<TCustomLogFile>`.
template <class Contract>
class TService {
public:
    TService(const TService&) = delete;
    TService& operator=(const TService&) = delete;
    virtual ~TService() = default;

    // The installed instance; nil before a host installed one and after it was removed.
    static Contract* GetInstance() noexcept { return FInstalled; }

protected:
    TService() = default;

private:
    friend class ServiceRegistry;
    inline static Contract* FInstalled = nullptr;
};

// Where a host puts its services. It owns none of them.
class ServiceRegistry {
public:
    // Makes `service` what GetInstance of its contract answers; an earlier one is replaced. The
    // contract is found from the argument: Install(&log) with any class that implements it.
    template <class Contract>
    static void Install(TService<Contract>* service) {
        TService<Contract>::FInstalled = static_cast<Contract*>(service);
    }

    // From here on GetInstance answers nil: Remove<TCustomLogFile>().
    template <class Contract>
    static void Remove() {
        TService<Contract>::FInstalled = nullptr;
    }
};

} // namespace quorin
