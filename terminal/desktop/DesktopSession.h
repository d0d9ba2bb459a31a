#pragma once

#include "terminal/desktop/DesktopHost.h"
#include "terminal/desktop/DesktopOptions.h"
#include "terminal/forms/VenueMarket.h"

#include <QElapsedTimer>

namespace quorin {

// The services with a venue that moves, for as long as there are windows.
class TDesktopSession {
public:
    // Raises EDataError for data that cannot be worked with.
    TDesktopSession(const TDesktopOptions& options, const std::filesystem::path& dataFolder,
                    const TLoadProgress& progress = {});

    TDesktopHost& Host() { return FHost; }
    TEmbeddedServices& Services() { return FServices; }
    const String& Exchange() const { return FExchange; }
    // Goes on to the next delivery; nothing inside a delivery, and while a view is being saved.
    void Step();
    Integer Deliveries() const { return FDeliveries; }
    // Price updates of all deliveries so far.
    Int64 Updates() const { return FMarket.Updates(); }
    // Seconds since the latest delivery, or since the start.
    Double DeliveryAge() const;
    // "HH:MM:SS" of the latest delivery.
    String Clock() const;

private:
    // Lets what the forms share go when they are gone and the services still there.
    struct TSharedRelease {
        TSharedRelease() = default;
        TSharedRelease(const TSharedRelease&) = delete;
        TSharedRelease& operator=(const TSharedRelease&) = delete;
        ~TSharedRelease();
    };

    // Says what has been left registered at the end, in debug builds.
    struct TRegistrationCheck {
        explicit TRegistrationCheck(const TEmbeddedServices& services) : Services(services) {}
        TRegistrationCheck(const TRegistrationCheck&) = delete;
        TRegistrationCheck& operator=(const TRegistrationCheck&) = delete;
        ~TRegistrationCheck();
        const TEmbeddedServices& Services;
    };

    TDesktopHost FHost;
    TEmbeddedServices FServices;
    TRegistrationCheck FCheck{FServices};
    TFieldLists FFieldLists;
    TSharedRelease FSharedRelease;
    TVenueMarket FMarket;
    String FExchange;
    Integer FDeliveries = 0;
    QElapsedTimer FSinceDelivery;
    bool FIsStepping = false;
};

} // namespace quorin
