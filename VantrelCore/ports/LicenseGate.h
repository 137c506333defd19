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
    // Called once on the main thread. On failure it gets a sentence with the reason, and nothing has changed.
    using Done = std::function<void(const std::expected<void, std::string>&)>;

    LicenseGate() = default;
    LicenseGate(const LicenseGate&) = delete;
    LicenseGate& operator=(const LicenseGate&) = delete;
    virtual ~LicenseGate() = default;

    [[nodiscard]] virtual const Entitlement& entitlement() const = 0;

    // Calls `handler` on the main thread after the entitlement has changed. An empty function stops the
    // calls.
    virtual void setChangeHandler(std::function<void()> handler) = 0;

    // Obtains this computer's licence from the vendor with the key that the user bought.
    virtual void activate(const std::string& key, Done done) = 0;
    // Returns this computer's licence to the vendor.
    virtual void deactivate(Done done) = 0;
};

} // namespace vantrel
