// Port: the licence, which decides whether the program may learn and restore.
#pragma once

#include "VantrelCore/model/Entitlement.h"

#include <expected>
#include <functional>
#include <string>

namespace vantrel {

// Used on the main thread.
class LicenseGate {
public:
    // Told once on the main thread: done, or in a sentence why not, and then nothing has changed.
    using Done = std::function<void(const std::expected<void, std::string>&)>;

    LicenseGate() = default;
    LicenseGate(const LicenseGate&) = delete;
    LicenseGate& operator=(const LicenseGate&) = delete;
    virtual ~LicenseGate() = default;

    [[nodiscard]] virtual const Entitlement& entitlement() const = 0;

    // Calls `handler` on the main thread after the entitlement has changed. An empty function ends the calls.
    virtual void setChangeHandler(std::function<void()> handler) = 0;

    // Gets the vendor's licence for this computer by the key that the user bought.
    virtual void activate(const std::string& key, Done done) = 0;
    // Gives this computer's licence back.
    virtual void deactivate(Done done) = 0;
};

} // namespace vantrel
