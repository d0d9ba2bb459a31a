#pragma once

#include <cstdint>

namespace quorin {

// The number of a delivery, from 1.
using TDeliverySerial = std::uint64_t;

// Numbers the deliveries of one service, so that one delivery over many lists of registrations
// leaves out everything that was registered after it had begun.
class TDeliveryClock {
public:
    TDeliveryClock() = default;
    TDeliveryClock(const TDeliveryClock&) = delete;
    TDeliveryClock& operator=(const TDeliveryClock&) = delete;

    TDeliverySerial Begin() { return ++FLast; }
    // Of the delivery that began last; 0 before the first.
    TDeliverySerial Last() const { return FLast; }

private:
    TDeliverySerial FLast = 0;
};

} // namespace quorin
